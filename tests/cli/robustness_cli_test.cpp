// The command line as users meet it: one exit code for usage errors, an example in every
// command's help, nothing overwritten unasked, unwritable places refused with a notice, the
// editors' checks on imported tables, and Ctrl-C that stops a long run cleanly.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "data/store_routines.h"
#include "data/write_notices.h"
#include "selection/selection.h"
#include "support/lfq_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

using test::RunCli;
using test::TempDir;

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// The subcommand names listed in a help text.
std::vector<std::string> Subcommands(const std::string& help) {
    std::vector<std::string> names;
    std::istringstream in(help);
    bool inList = false;
    for (std::string line; std::getline(in, line);) {
        if (line.rfind("Subcommands:", 0) == 0) {
            inList = true;
            continue;
        }
        if (!inList) continue;
        if (line.empty() || line[0] != ' ') break;
        std::istringstream words(line);
        std::string name;
        words >> name;
        names.push_back(name);
    }
    return names;
}

TEST(CliUsage, UsageErrorsExitOneWithTheParsersMessage) {
    for (const char* args : {"", "nosuch", "info", "phi --k abc", "phi --k 0.5 --bogus",
                             "selection x.prb", "export a.lfq out.csv"}) {
        const auto r = RunCli(args);
        EXPECT_EQ(r.exitCode, 1) << args << "\n" << r.err;
        EXPECT_FALSE(r.err.empty()) << args;
    }
    const auto help = RunCli("--help");
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(Contains(help.out, "1 wrong arguments")) << help.out;
}

// Every command at every depth, those added later too, shows an example of itself.
TEST(CliUsage, EveryCommandsHelpShowsAnExample) {
    std::vector<std::string> pending = Subcommands(RunCli("--help").out);
    ASSERT_GT(pending.size(), 10u);
    while (!pending.empty()) {
        const std::string path = pending.back();
        pending.pop_back();
        const auto r = RunCli(path + " --help");
        EXPECT_EQ(r.exitCode, 0) << path;
        EXPECT_TRUE(Contains(r.out, "Example:\n  norvo-cli " + path)) << path << "\n" << r.out;
        for (const std::string& sub : Subcommands(r.out)) pending.push_back(path + " " + sub);
    }
}

TEST(CliNew, AnExistingFileIsKeptUnlessForced) {
    TempDir dir;
    const std::string path = test::MakeLfqFile(
        dir.file("full.lfq"), test::LfqHeaderOf("Sardinella", "cm", 10, 1),
        test::MonthlySamples(3, 15, 2001), std::vector<std::vector<double>>(5, {1, 2, 3}));
    const auto before = test::DumpTable(path, "GLF_Measures");
    auto r = RunCli("--json new '" + path + "'");
    EXPECT_EQ(r.exitCode, 2);
    const auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["refused"]["title"], "Create File");
    EXPECT_EQ(j["refused"]["message"], FileExistsText(path));
    EXPECT_EQ(test::DumpTable(path, "GLF_Measures"), before);

    // Imports and exports keep an existing target too.
    const std::string csv = dir.file("t.csv");
    std::ofstream(csv) << "Midlength,2004-01-15\n10,1\n11,2\n";
    for (const std::string& args :
         {"import '" + csv + "' '" + path + "'", "export '" + csv + "' --csv '" + path + "'"}) {
        r = RunCli(args);
        EXPECT_EQ(r.exitCode, 2) << args;
        EXPECT_TRUE(Contains(r.err, FileExistsText(path))) << r.err;
    }
    EXPECT_EQ(test::DumpTable(path, "GLF_Measures"), before);
    EXPECT_EQ(RunCli("import --force '" + csv + "' '" + path + "'").exitCode, 0);

    r = RunCli("new --force '" + path + "'");
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_TRUE(test::DumpTable(path, "GLF_Measures").empty());
}

// A path inside a plain file cannot be written, whoever runs the tests (root included).
TEST(CliWrite, UnwritablePlacesAreRefusedWithTheirNotice) {
    TempDir dir;
    const std::string plain = dir.file("plain");
    std::ofstream(plain) << "x";
    const std::string lfq =
        test::MakeLfqFile(dir.file("a.lfq"), test::LfqHeaderOf("Sardinella", "cm", 10, 1),
                          test::MonthlySamples(1, 15, 2001), {{1}, {2}});
    auto r = RunCli("export '" + lfq + "' --csv '" + plain + "/out.csv'");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_TRUE(Contains(r.err, CannotWriteText(plain + "/out.csv"))) << r.err;

    const std::string prb = dir.file("in.prb");
    SelectionInput in;
    in.probability = {0, 0.02f, 0.1f, 0.35f, 0.7f, 0.9f, 1, 1, 1};
    in.nC = 8;
    in.w = 2;
    in.firstMid = 10;
    ASSERT_TRUE(SaveProbabilities(prb, test::BinDir().string(), {"Sel", "x", "cm"}, in).ok());
    r = RunCli("selection '" + prb + "' --running-average --save '" + dir.file("out.txt") + "'");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_TRUE(Contains(r.err, kWrongFileType)) << r.err;
    EXPECT_FALSE(std::filesystem::exists(dir.file("out.txt")));
    r = RunCli("selection '" + prb + "' --running-average --save '" + plain + "/out.prb'");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_TRUE(Contains(r.err, CannotWriteText(plain + "/out.prb"))) << r.err;
}

TEST(CliImport, TablesOfIncrementsGetTheEditorsChecks) {
    TempDir dir;
    const std::string csv = dir.file("gin.csv");
    std::ofstream(csv) << "Day1,Month1,Year1,Length1,Day2,Month2,Year2,Length2\n"
                          "1,2,2000,10,1,8,2000,12\n"
                          "31,2,2000,11,5,9,2000,13\n";
    const auto r = RunCli("import '" + csv + "' '" + dir.file("x.gin") + "'");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_TRUE(Contains(r.err, "Invalid date input for date on row 2.")) << r.err;
    EXPECT_FALSE(std::filesystem::exists(dir.file("x.gin")));
}

// Ctrl-C during a K-scan ends it between two steps: exit 130, no result, no plot. The file is
// large enough for the scan to take well over the two seconds before the signal (ten years of
// monthly samples in 400 classes: about 9 s on two cores).
TEST(CliStop, CtrlCStopsALongKScan) {
    TempDir dir;
    constexpr int kClasses = 400, kSamples = 120;
    std::vector<std::vector<double>> freq(kClasses, std::vector<double>(kSamples));
    for (int c = 0; c < kClasses; ++c)
        for (int s = 0; s < kSamples; ++s) freq[c][s] = 1 + (c * 7 + s * 13) % 50;
    const std::string lfq =
        test::MakeLfqFile(dir.file("big.lfq"), test::LfqHeaderOf("Big", "cm", 5, 0.5),
                          test::MonthlySamples(kSamples, 15, 1990), freq);
    const std::string plot = dir.file("k.png");
    const auto r = test::RunCommand("timeout --preserve-status -s INT 2 '" +
                                    (test::BinDir() / "norvo-cli").string() + "' elefan kscan '" +
                                    lfq + "' --loo 110 --plot '" + plot + "'");
    EXPECT_EQ(r.exitCode, 130) << r.err;
    EXPECT_TRUE(Contains(r.err, "Stopped by the user")) << r.err;
    EXPECT_TRUE(r.out.empty());
    EXPECT_FALSE(std::filesystem::exists(plot));
}

}  // namespace
}  // namespace norvo
