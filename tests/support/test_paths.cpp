#include "support/test_paths.h"

#include <sys/wait.h>

#include <unistd.h>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

namespace norvo::test {

std::filesystem::path BinDir() {
    if (const char* env = std::getenv("NORVO_BIN_DIR")) return env;
    return NORVO_BIN_DIR;
}

std::filesystem::path SourceDir() {
    return NORVO_SOURCE_DIR;
}

TempDir::TempDir() {
    static std::atomic<int> counter{0};
    std::random_device rd;
    path_ = std::filesystem::temp_directory_path() /
            ("norvo-test-" + std::to_string(::getpid()) + "-" + std::to_string(counter++) + "-" +
             std::to_string(rd() % 100000));
    std::filesystem::create_directories(path_);
}

TempDir::~TempDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

static std::string Slurp(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

CommandResult RunCommand(const std::string& command) {
    TempDir tmp;
    const auto out = tmp.path() / "out";
    const auto err = tmp.path() / "err";
    const std::string full = command + " >'" + out.string() + "' 2>'" + err.string() + "'";
    const int status = std::system(full.c_str());
    CommandResult r;
    r.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    r.out = Slurp(out);
    r.err = Slurp(err);
    return r;
}

CommandResult RunCli(const std::string& arguments) {
    return RunCommand("'" + (BinDir() / "norvo-cli").string() + "' " + arguments);
}

}  // namespace norvo::test
