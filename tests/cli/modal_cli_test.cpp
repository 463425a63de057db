#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "modal/msd_save.h"
#include "support/lfq_fixtures.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

double Phi(double x, double mean, double sd) {
    return 0.5 * std::erfc(-(x - mean) / (sd * std::sqrt(2.0)));
}

// Two samples of two cohorts in 1 cm classes from 5.5 cm; the second sample has no fish.
std::string WriteTwoCohorts(const test::TempDir& dir) {
    std::vector<double> f, empty;
    for (int i = 0; i < 45; ++i) {
        const double lo = 5 + i;
        f.push_back(600 * (Phi(lo + 1, 18, 2.5) - Phi(lo, 18, 2.5)) +
                    400 * (Phi(lo + 1, 34, 3.5) - Phi(lo, 34, 3.5)));
        empty.push_back(0);
    }
    return test::MakeLfqFile(dir.file("two.lfq"), test::LfqHeaderOf("Two", "cm", 5.5, 1),
                             {test::SampleOn(1, 15, 3, 2001), test::SampleOn(2, 15, 4, 2001)},
                             test::ByClass({f, empty}));
}

TEST(ModalCli, NormsepSeparatesAndRefuses) {
    test::TempDir dir;
    const auto path = WriteTwoCohorts(dir);
    const std::string png = dir.file("n.png");
    auto r = test::RunCli("--json normsep " + path + " --sample 1 --means 16,36 --plot " + png);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["code"], 1);
    ASSERT_EQ(j["components"].size(), 2u);
    EXPECT_NEAR(j["components"][0]["mean"].get<double>(), 18, 0.02);
    EXPECT_NEAR(j["components"][1]["population"].get<double>(), 400, 2);
    EXPECT_TRUE(j["components"][0]["si"].is_null());
    EXPECT_GT(j["evaluations"].get<int>(), 0);
    EXPECT_TRUE(std::filesystem::file_size(png) > 0);

    r = test::RunCli("--json normsep " + path + " --means 16,,36");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"],
              "Please insert the start estimates for the means of  all the distributions");
    r = test::RunCli("--json normsep " + path + " --sample 2 --means 16");
    EXPECT_EQ(r.exitCode, 2);
}

TEST(ModalCli, BhattacharyaTakesComponentsInTurn) {
    test::TempDir dir;
    const auto path = WriteTwoCohorts(dir);
    auto r = test::RunCli("--json bhattacharya " + path + " --points 17:9,24:36 --plot " +
                          dir.file("b.svg"));
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const auto j = nlohmann::json::parse(r.out);
    ASSERT_EQ(j["components"].size(), 2u);
    const auto& a = j["components"][0];
    EXPECT_EQ(a["points"], nlohmann::json::array({9, 17}));
    EXPECT_EQ(a["used"].size(), 9u);
    EXPECT_NEAR(a["mean"].get<double>(), 18, 0.1);
    EXPECT_TRUE(a["si"].is_null());
    EXPECT_TRUE(a["warning"].is_null());
    EXPECT_EQ(a["observed_after"].size(), 45u);
    EXPECT_NEAR(j["components"][1]["mean"].get<double>(), 34, 0.1);
    EXPECT_GT(j["components"][1]["si"].get<double>(), 2);

    r = test::RunCli("--json bhattacharya " + path + " --points 1:60");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"],
              "Point numbers run from 1 to 44.");
}

TEST(ModalCli, LinkingLinksRefusesAndSavesOnlyNewFiles) {
    test::TempDir dir;
    LfqData data;
    data.speciesname = "Linked";
    data.noOfSamples = 3;
    data.day = {1, 1, 1};
    data.month = {1, 1, 1};
    data.year = {2001, 2002, 2004};
    const std::string msd = dir.file("m.msd");
    ScriptedDialogs yes;
    yes.defaultAnswer = Answer::Yes;
    const std::string program = test::BinDir().string();
    ASSERT_TRUE(SaveMsdSample(msd, program, data, 1, {{10, 1, 5}, {12, 1, 5}}, yes));
    ASSERT_TRUE(SaveMsdSample(msd, program, data, 2, {{30, 1, 5}}, yes));
    ASSERT_TRUE(SaveMsdSample(msd, program, data, 3, {{40, 1, 5}}, yes));
    // Points: 1 (2001, 10), 2 (2001, 12), 3 (2002, 30), 4 (2004, 40).
    auto r = test::RunCli("--json linking " + msd + " --links '1>2>3>4' --save-gin " +
                          dir.file("l.gin") + " --save-laa " + dir.file("l.laa"));
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["refused"], nlohmann::json::parse(R"([{"from":1,"to":2}])"));
    ASSERT_EQ(j["links"].size(), 2u);
    EXPECT_EQ(j["links"][0], nlohmann::json::parse("[1,1,2001,10,1,1,2002,30]"));
    EXPECT_FLOAT_EQ(j["growth"]["loo"].get<float>(), 40);
    EXPECT_FLOAT_EQ(j["growth"]["k"].get<float>(), 1);
    ASSERT_EQ(j["ages"].size(), 4u);
    EXPECT_EQ(j["ages"][1]["age"], j["ages"][2]["age"]);
    EXPECT_EQ(j["notices"][0]["text"],
              "Linking of means to earlier or equal dates is not allowed.");
    EXPECT_TRUE(std::filesystem::exists(dir.file("l.laa")));

    // An existing file is not overwritten; a single link gives no growth and no ages.
    r = test::RunCli("--json linking " + msd + " --links '1>3' --save-gin " + dir.file("l.gin"));
    EXPECT_EQ(r.exitCode, 2);
    r = test::RunCli("--json linking " + msd + " --links '1>3'");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["growth"]["loo"], -9999);
    EXPECT_TRUE(j["ages"].is_null());
}

}  // namespace
}  // namespace norvo
