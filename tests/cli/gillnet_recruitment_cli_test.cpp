#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "selection/gillnet.h"
#include "selection/recruitment.h"
#include "support/lfq_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

// Two nets (meshes 8 and 10) with catches that are not quite noise free.
std::string WriteNetsLfq(const test::TempDir& dir) {
    return test::MakeLfqFile(dir.file("nets.lfq"), test::LfqHeaderOf("Net fish", "cm", 11, 2),
                             {test::SampleOn(1, 10, 3, 2002), test::SampleOn(2, 10, 3, 2002)},
                             test::ByClass({{2, 9, 31, 70, 101, 95, 60, 22, 8, 2, 0},
                                            {0, 1, 5, 19, 48, 83, 99, 77, 40, 15, 3}}));
}

TEST(GillnetCli, CurvesFilesAndRefusals) {
    test::TempDir dir;
    const auto path = WriteNetsLfq(dir);
    const auto base = dir.file("out");
    auto r = test::RunCli("--json gillnet " + path + " --small 1 --big 2 --mesh 8,10 --save " +
                          base + " --plot " + dir.file("g.png"));
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["points"], 9);
    EXPECT_EQ(j["x"].size(), 9u);
    EXPECT_EQ(j["x"][0], 13.0);
    EXPECT_GT(j["l_b"].get<double>(), j["l_a"].get<double>());
    EXPECT_NEAR(j["l_b"].get<double>() / j["l_a"].get<double>(), 10.0 / 8, 1e-9);
    ASSERT_EQ(j["prb"]["sum"].size(), 11u);
    EXPECT_EQ(j["prb"]["net1"][0][0], 11.0);
    for (const char* f : {"out.PRB", "out1.PRB", "out2.PRB", "g.png", "g_ratio.png", "g_catch.png"})
        EXPECT_TRUE(fs::exists(dir.path() / f)) << f;

    // The files stand: a second save is refused and leaves them alone.
    const auto before = fs::last_write_time(dir.path() / "out1.PRB");
    r = test::RunCli("gillnet " + path + " --small 1 --big 2 --mesh 8,10 --save " + base);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(fs::last_write_time(dir.path() / "out1.PRB"), before);

    r = test::RunCli("--json gillnet " + path + " --small 1 --big 2 --mesh 10,8");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"], kGnMeshSizesText);
    r = test::RunCli("--json gillnet " + path + " --small 1 --mesh 8,10");
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"], kGnIncompleteText);
    // The same sample twice: a slope of 0 is the division fault.
    r = test::RunCli("--json gillnet " + path + " --small 1 --big 1 --mesh 8,10");
    EXPECT_EQ(r.exitCode, 3);
    EXPECT_EQ(nlohmann::json::parse(r.out)["fault"]["number"], 11);
}

TEST(RecruitmentCli, PatternGroupsAndFault) {
    test::TempDir dir;
    const auto path =
        test::MakeLfqFile(dir.file("r.lfq"), test::LfqHeaderOf("Recruit fish", "cm", 5, 5),
                          test::MonthlySamples(3, 15, 2003),
                          test::ByClass({{0, 3, 12, 30, 22, 9, 4, 6, 5, 2},
                                         {1, 8, 20, 14, 6, 3, 7, 9, 4, 2},
                                         {0, 0, 4, 16, 25, 12, 5, 3, 6, 4}}));
    auto r = test::RunCli("--json recruitment " + path +
                          " --loo 80 --k 0.6 --t0 -0.1 --samples 1,3 --transform percent "
                          "--temporal --groups 3,9 --plot " +
                          dir.file("r.svg"));
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["time_label"], kRcAbsoluteTime);
    ASSERT_EQ(j["pattern"].size(), 12u);
    EXPECT_EQ(j["pattern"][0], 0.0);
    const int start = j["start_month"];
    EXPECT_EQ(j["labels"][0], kRcMonthNames[start]);
    EXPECT_EQ(j["groups"].size(), 2u);
    EXPECT_TRUE(fs::exists(dir.path() / "r.svg"));

    r = test::RunCli("--json recruitment " + path + " --loo 2 --k 0.6");
    EXPECT_EQ(r.exitCode, 3);
    EXPECT_EQ(nlohmann::json::parse(r.out)["fault"]["description"], kRcNothingProjected);
    r = test::RunCli("--json recruitment " + path + " --loo 80 --k 0.6 --samples 4");
    EXPECT_EQ(r.exitCode, 2);
}

}  // namespace
}  // namespace norvo
