#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "support/test_paths.h"
#include "support/xyf_fixtures.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

TEST(RegressCli, SlotsOfBothFits) {
    test::TempDir dir;
    const std::string path =
        test::MakeXyfFile(dir.file("pairs.xyf"), {{1, 1}, {2, 3}, {3, 2}, {4, 5}});
    auto r = test::RunCli("--json regress " + path);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["form"], 0);
    EXPECT_EQ(j["function"], "Y = a + b * X");
    EXPECT_TRUE(j["c"].is_null());
    EXPECT_EQ(j["fit"], j["slots"]);
    EXPECT_EQ(j["fit"]["n"].get<double>(), 4.0);
    EXPECT_EQ(j["fit"]["b"].get<double>(), 1.1);
    EXPECT_NEAR(j["fit"]["a"].get<double>(), 0.0, 1e-6);
    EXPECT_NEAR(j["fit"]["seB"].get<double>(), std::sqrt(0.27), 1e-6);
    EXPECT_TRUE(j["notices"].empty());

    // --functional and --form 1 are the same fit; its F slot is never written.
    for (const char* option : {"--functional", "--form 1"}) {
        r = test::RunCli(std::string("--json regress ") + option + " " + path);
        ASSERT_EQ(r.exitCode, 0) << r.err;
        j = nlohmann::json::parse(r.out);
        EXPECT_EQ(j["form"], 1);
        EXPECT_NEAR(j["fit"]["b"].get<double>(), std::sqrt(8.75 / 5.0), 1e-6);
        EXPECT_EQ(j["fit"]["F"].get<double>(), 0.0);
    }

    r = test::RunCli("regress " + path);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out.rfind("Function: Y = a + b * X\n", 0), 0u) << r.out;
    EXPECT_NE(r.out.find(" 3  b      1.1\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("17  F      "), std::string::npos);
}

TEST(RegressCli, FormsWithTheConstantAndTheirGuards) {
    test::TempDir dir;
    const std::string path =
        test::MakeXyfFile(dir.file("pairs.xyf"), {{1, 1}, {2, 3}, {3, 2}, {4, 5}});
    auto r = test::RunCli("--json regress " + path + " --form 6 --c 5.0001");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["function"], "ln(1-Y/C) = a + b * X");
    EXPECT_EQ(j["c"].get<double>(), 5.0001);
    ASSERT_EQ(j["y"].size(), 4u);
    EXPECT_EQ(j["x"][3].get<double>(), 4.0);
    EXPECT_LT(j["y"][3].get<double>(), -10);

    r = test::RunCli("--json regress " + path + " --form 6 --c 5");
    EXPECT_EQ(r.exitCode, 2);
    j = nlohmann::json::parse(r.out)["refused"];
    EXPECT_EQ(j["title"], "invalid Input");
    EXPECT_EQ(j["message"],
              "Input caused an undefined results. Constant should be greater than 5.000. Please "
              "try again.");

    // C = 0 in form 8: a constant x, on which the fit itself fails.
    r = test::RunCli("--json regress " + path + " --form 8 --c 0");
    EXPECT_EQ(r.exitCode, 3);
    EXPECT_EQ(nlohmann::json::parse(r.out)["fault"]["description"], "Division by zero");

    // A form with C needs it; forms run from 0 to 8.
    EXPECT_NE(test::RunCli("regress " + path + " --form 7").exitCode, 0);
    EXPECT_NE(test::RunCli("regress " + path + " --form 9").exitCode, 0);
    EXPECT_NE(test::RunCli("regress " + path + " --form 2 --functional").exitCode, 0);
}

TEST(RegressCli, RefusalsAndThePlot) {
    test::TempDir dir;
    const std::string path = test::MakeXyfFile(dir.file("pairs.xyf"), {{1, 10}, {0, 5}, {4, 7}});
    const auto before = fs::file_size(path);
    auto r = test::RunCli("regress " + path + " --form 2 --plot " + path);
    EXPECT_NE(r.exitCode, 0);
    EXPECT_EQ(fs::file_size(path), before);

    r = test::RunCli("regress " + path + " --form 4");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err,
              "Invalid Data: Pair 2 (X = 0.000, Y = 5.000) cannot be transformed: the logarithm "
              "of a value at or below 0 is undefined.\n");

    const std::string png = dir.file("fit.png");
    r = test::RunCli("--json regress " + path + " --form 3 --plot " + png);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(nlohmann::json::parse(r.out)["plot"], png);
    std::ifstream in(png, std::ios::binary);
    char magic[4] = {};
    in.read(magic, 4);
    EXPECT_EQ(std::string(magic + 1, 3), "PNG");

    EXPECT_EQ(test::RunCli("regress " + test::MakeXyfFile(dir.file("empty.xyf"), {})).exitCode, 2);
    EXPECT_EQ(test::RunCli("regress " + dir.file("none.xyf")).exitCode, 2);
}

}  // namespace
}  // namespace norvo
