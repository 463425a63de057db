#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "data/data_store.h"
#include "growth/elefan_lfq.h"
#include "support/lfq_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

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

}  // namespace
}  // namespace norvo
