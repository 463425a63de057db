#pragma once
// Paths for tests: the build's bin folder (Templates/, Help/, Data/, norvo-cli) and a fresh
// temporary folder per test.
#include <filesystem>
#include <string>

namespace norvo::test {

// The folder of the built executables, where Templates/ stands.
std::filesystem::path BinDir();
// The source tree's root.
std::filesystem::path SourceDir();

// A temporary folder removed when the object goes out of scope.
class TempDir {
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::filesystem::path& path() const { return path_; }
    std::string file(const std::string& name) const { return (path_ / name).string(); }

  private:
    std::filesystem::path path_;
};

// Runs a shell command, returning its exit code and capturing stdout and stderr.
struct CommandResult {
    int exitCode = -1;
    std::string out;
    std::string err;
};
CommandResult RunCommand(const std::string& command);
// Runs norvo-cli with the given argument text.
CommandResult RunCli(const std::string& arguments);

}  // namespace norvo::test
