#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "data/data_store.h"
#include "growth/elefan_lfq.h"
#include "support/lfq_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

// The five-sample file of the engine's golden test: classes 10, 12, ... 24.
std::string WriteGoldenLfq(const test::TempDir& dir) {
    const std::vector<std::vector<double>> bySample = {{0, 2, 6, 3, 1, 4, 2, 0},
                                                       {1, 0, 0, 5, 2, 0, 0, 0},
                                                       {0, 0, 0, 0, 0, 7, 0, 0},
                                                       {0, 0, 0, 0, 0, 0, 0, 0},
                                                       {3, 8, 4, 0, 0, 2, 9, 5}};
    return test::MakeLfqFile(dir.file("golden.lfq"), test::LfqHeaderOf("Golden fish", "cm", 10, 2),
                             {test::SampleOn(1, 15, 3, 1990), test::SampleOn(2, 1, 7, 1990),
                              test::SampleOn(3, 20, 11, 1990), test::SampleOn(4, 10, 5, 1990),
                              test::SampleOn(5, 28, 0, 1990)},
                             test::ByClass(bySample));
}

std::string WriteXyf(const test::TempDir& dir, const std::string& name,
                     const std::vector<std::pair<float, float>>& xy) {
    const std::string path = dir.file(name);
    fs::copy_file(test::BinDir() / "Templates" / "Template.XYF", path);
    DataStore store = DataStore::open(path);
    Records rs = store.openRecords("XYF_Measures");
    for (const auto& [x, y] : xy) {
        rs.addNew();
        rs.setField("X", static_cast<double>(x));
        rs.setField("Y", static_cast<double>(y));
        rs.update();
    }
    rs.close();
    store.close();
    return path;
}

TEST(ElefanRnCli, ScoresGivenAndDefaultStartingPoints) {
    test::TempDir dir;
    const std::string path = WriteGoldenLfq(dir);
    auto r = test::RunCli("elefan rn " + path + " --loo 30 --k 0.5 --ss 1 --sl 14");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out.substr(r.out.rfind("Rn: ")), "Rn: 0.272\n");

    // Without --ss/--sl the proposed point (sample 1, length 16) is used.
    r = test::RunCli("--json elefan rn " + path + " --loo 30 --k 0.5");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["ss"].get<double>(), 1.0);
    EXPECT_EQ(j["sl"].get<double>(), 16.0);
    EXPECT_NEAR(j["asp"].get<double>(), 1.457007, 2e-6);
    EXPECT_NEAR(j["esp"].get<double>(), -0.651895, 2e-6);
    EXPECT_EQ(j["rn"].get<double>(), 0.036);

    r = test::RunCli("elefan rn " + path + " --loo 30 --k 0.5 --c 0.5 --wp 0.25");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out.substr(r.out.rfind("Rn: ")), "Rn: 0.114\n");
}

TEST(ElefanRnCli, FaultsAndRefusals) {
    test::TempDir dir;
    const std::string path = WriteGoldenLfq(dir);
    auto r = test::RunCli("elefan rn " + path + " --loo 30 --k 0 --ss 1 --sl 14");
    EXPECT_EQ(r.exitCode, 3);
    EXPECT_NE(r.err.find("Division by zero"), std::string::npos);
    r = test::RunCli("elefan rn " + path + " --loo 30 --k 1 --ss 1 --sl 30");
    EXPECT_EQ(r.exitCode, 3);
    r = test::RunCli("elefan rn " + dir.file("missing.lfq") + " --loo 30 --k 1");
    EXPECT_EQ(r.exitCode, 2);
    r = test::RunCli("elefan rn " + path + " --loo 30 --k 1 --ss 1");  // --ss needs --sl
    EXPECT_NE(r.exitCode, 0);
    // A file without fish is refused before any computation, in every ELEFAN command.
    const std::string none =
        test::MakeLfqFile(dir.file("none.lfq"), test::LfqHeaderOf("x", "cm", 10, 2),
                          test::MonthlySamples(2, 15, 2001), {{0, 0}, {0, 0}, {0, 0}});
    for (const std::string& cmd :
         {"elefan rn " + none + " --loo 30 --k 1",
          "elefan kscan " + none + " --loo 30 --fixed-sp --ss 1 --sl 10"}) {
        r = test::RunCli("--json " + cmd);
        EXPECT_EQ(r.exitCode, 2) << cmd;
        EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"], kElefanNoFishText) << cmd;
    }
}

TEST(RegressCli, SlotsOfBothFits) {
    test::TempDir dir;
    const std::string path = WriteXyf(dir, "pairs.xyf", {{1, 1}, {2, 3}, {3, 2}, {4, 5}});
    auto r = test::RunCli("--json regress " + path);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out)["slots"];
    EXPECT_EQ(j["n"].get<double>(), 4.0);
    EXPECT_NEAR(j["b"].get<double>(), 1.1, 1e-6);
    EXPECT_NEAR(j["a"].get<double>(), 0.0, 1e-6);
    EXPECT_NEAR(j["seB"].get<double>(), std::sqrt(0.27), 1e-6);

    r = test::RunCli("--json regress --functional " + path);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    j = nlohmann::json::parse(r.out)["slots"];
    EXPECT_NEAR(j["b"].get<double>(), std::sqrt(8.75 / 5.0), 1e-6);
    EXPECT_EQ(j["F"].get<double>(), 0.0);

    r = test::RunCli("regress " + path);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find(" 3  b      1.1\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("17  F      "), std::string::npos);

    EXPECT_EQ(test::RunCli("regress " + WriteXyf(dir, "empty.xyf", {})).exitCode, 3);
    EXPECT_EQ(test::RunCli("regress " + dir.file("none.xyf")).exitCode, 2);
}

}  // namespace
}  // namespace norvo
