#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "stock/thompson_bell.h"
#include "stock/thompson_bell_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;
using test::TbCatches;
using test::TbSpecies;

// Two species, two fleets; the longliners do not catch the squid.
std::string Scenario(const test::TempDir& dir) {
    test::TbScenarioFile sce(dir);
    const SpeciesData hake = TbSpecies("Hake", {0.3, 0.6, 0.9, 0.9});
    const SpeciesData squid = TbSpecies("Squid", {0.1, 0.4, 0.4});
    sce.addSpecies(hake);
    sce.addSpecies(squid);
    sce.addFleet("Trawl");
    sce.addFleet("Longline");
    sce.link("Trawl", "Hake", TbCatches(hake, {50, 80, 20, 5}));
    sce.link("Longline", "Hake", TbCatches(hake, {0, 20, 60, 60}));
    sce.link("Trawl", "Squid", TbCatches(squid, {10, 10, 10}));
    return sce.path();
}

TEST(TbCli, JsonMatchesTheCoreAndPlotsAreWritten) {
    test::TempDir dir;
    const std::string sce = Scenario(dir);
    const std::string png = dir.file("tb.png");
    const auto r = test::RunCli("--json tb " + sce +
                                " --vary Longline --fix Trawl=0.5 --selection --plot " + png);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["fleets"], nlohmann::json::array({"Trawl", "Longline"}));
    EXPECT_EQ(j["vary"], nlohmann::json::array({"Longline"}));
    EXPECT_EQ(j["species"]["Hake"]["last_class"], 4);
    EXPECT_EQ(j["species"]["Squid"]["F"]["Longline"], nlohmann::json::array({0.0, 0.0, 0.0}));
    ASSERT_EQ(j["steps"].size(), 41u);
    EXPECT_EQ(j["steps"][40]["p"], 41);
    EXPECT_EQ(j["steps"][40]["ffactor"], 4.0);

    ThompsonBellOptions o;
    o.scenarioPath = sce;
    o.effort = {{"Longline"}, {{"Trawl", 0.5}}};
    o.useSelection = true;
    const ThompsonBellResult core = RunThompsonBell(o);
    ASSERT_TRUE(core.ok());
    for (int p : {0, 10, 40}) {
        const auto& step = j["steps"][p];
        EXPECT_DOUBLE_EQ(step["total"]["yield"].get<double>(), core.steps[p].yield);
        EXPECT_DOUBLE_EQ(step["total"]["biomass"].get<double>(), core.steps[p].biomass);
        const auto& hake = step["species"]["Hake"];
        EXPECT_NEAR(hake["fleet_yield"]["Trawl"].get<double>() +
                        hake["fleet_yield"]["Longline"].get<double>(),
                    hake["yield"].get<double>(), 1e-9 * hake["yield"].get<double>());
    }
    for (const char* tag : {"", "_biomass", "_value", "_combination_yield", "_combination_biomass",
                            "_combination_value"})
        EXPECT_GT(fs::file_size(dir.file(std::string("tb") + tag + ".png")), 1000u) << tag;
    // The plots are not replaced unasked.
    const auto again = test::RunCli("tb " + sce + " --vary Longline --plot " + png);
    EXPECT_EQ(again.exitCode, 2);
    EXPECT_EQ(test::RunCli("tb " + sce + " --vary Longline --force --plot " + png).exitCode, 0);
}

TEST(TbCli, TablesAndNoVaryingFleet) {
    test::TempDir dir;
    const std::string sce = Scenario(dir);
    const auto r = test::RunCli("tb " + sce + " --vary Trawl,Longline --species Squid");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("Trawl (vary f-factor)"), std::string::npos);
    EXPECT_NE(r.out.find("Squid / Trawl"), std::string::npos);
    EXPECT_NE(r.out.find("Cummulative"), std::string::npos);
    EXPECT_NE(r.out.find("Yield (10^"), std::string::npos);

    const auto none = test::RunCli("--json tb " + sce + " --fix Longline=2");
    ASSERT_EQ(none.exitCode, 0) << none.err;
    const auto j = nlohmann::json::parse(none.out);
    EXPECT_TRUE(j["steps"].empty());
    EXPECT_TRUE(j["vary"].empty());
    const auto text = test::RunCli("tb " + sce + " --fix Longline=2");
    EXPECT_NE(text.out.find("Longline (fixed at f-factor=2.00)"), std::string::npos);
}

TEST(TbCli, RefusalsAndUsageErrors) {
    test::TempDir dir;
    const std::string sce = Scenario(dir);
    auto range = test::RunCli("--json tb " + sce + " --vary Trawl --fix Longline=4.5");
    EXPECT_EQ(range.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(range.out)["refused"]["message"],
              "The f-factor can only be in the range from >0 to 4. Please try again.");
    EXPECT_EQ(test::RunCli("tb " + sce + " --vary Seiner").exitCode, 2);
    EXPECT_EQ(test::RunCli("tb " + sce + " --fix Longline:2").exitCode, 1);

    fs::remove(dir.file("Squid.spc"));
    auto gone = test::RunCli("--json tb " + sce + " --vary Trawl");
    EXPECT_EQ(gone.exitCode, 2);
    const auto j = nlohmann::json::parse(gone.out);
    EXPECT_EQ(j["refused"]["title"], "Invalid File Path");
    EXPECT_EQ(j["refused"]["message"], ThompsonBellPathText(sce));
}

}  // namespace
}  // namespace norvo
