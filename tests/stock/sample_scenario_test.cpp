#include "stock/sample_scenario.h"

#include <gtest/gtest.h>

#include "stock/thompson_bell.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

// The scenario made at build time beside the program runs as the help page tells, and its two
// fleets share every class 70/30.
TEST(SampleScenario, BundledScenarioRunsWithTheFleetsSharingTheCatch) {
    ThompsonBellOptions o;
    o.scenarioPath = (test::BinDir() / kSampleScenarioFile).string();
    o.effort.vary = {kSampleTrawlName, kSampleGillnetName};
    const ThompsonBellResult r = RunThompsonBell(o);
    ASSERT_TRUE(r.ok()) << (r.refusal() ? r.refusal()->text : "");
    ASSERT_EQ(r.steps.size(), 41u);
    const ThompsonBellSpeciesStep& atOne = r.steps[10].species.at(0);
    ASSERT_GT(atOne.yield, 0);
    EXPECT_NEAR(atOne.fleetYield.at(0), 0.7 * atOne.yield, 1e-9 * atOne.yield);
    EXPECT_NEAR(atOne.fleetYield.at(1), 0.3 * atOne.yield, 1e-9 * atOne.yield);
    EXPECT_EQ(r.steps[0].species.at(0).yield, 0);
}

}  // namespace
}  // namespace norvo
