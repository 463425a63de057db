#include "modal/normsep.h"

#include <gtest/gtest.h>

#include "modal/modal_fixtures.h"

namespace norvo {
namespace {

using test::MakeLfq;
using test::MixtureSample;

const LfqData& TwoCohorts() {
    static const LfqData data =
        MakeLfq(5.5, 1, {MixtureSample({{18, 2.5, 600}, {34, 3.5, 400}}, 5.5, 1, 45)});
    return data;
}

TEST(Normsep, StartMeansMustAllBeGiven) {
    EXPECT_EQ(RunNormsep(TwoCohorts(), 1, {}).refusal()->text,
              "Please insert the start estimates for the means of the distributions");
    EXPECT_EQ(RunNormsep(TwoCohorts(), 1, {std::nullopt, std::nullopt}).refusal()->text,
              kNsNoMeansText);
    EXPECT_EQ(RunNormsep(TwoCohorts(), 1, {17.0, std::nullopt}).refusal()->text,
              "Please insert the start estimates for the means of  all the distributions");
    EXPECT_EQ(RunNormsep(TwoCohorts(), 3, {17.0}).refusal()->text,
              "There is no sample 3 in the file.");
}

TEST(Normsep, SeparatesTwoCohortsWithPopulationsAndSeparationIndex) {
    const NormsepResult r = RunNormsep(TwoCohorts(), 1, {16.0, 36.0});
    ASSERT_TRUE(r.ok());
    ASSERT_EQ(r.components.size(), 2u);
    EXPECT_NEAR(r.total, 1000, 0.5);
    const NsComponent& a = r.components[0];
    const NsComponent& b = r.components[1];
    // Class integrals widen each sd by about w^2/12.
    EXPECT_NEAR(a.mean, 18, 0.02);
    EXPECT_NEAR(b.mean, 34, 0.02);
    EXPECT_NEAR(a.sd, std::sqrt(2.5 * 2.5 + 1.0 / 12), 0.02);
    EXPECT_NEAR(a.population, r.total * a.proportion, 1e-9);
    EXPECT_NEAR(a.population, 600, 2);
    EXPECT_FALSE(a.si);
    ASSERT_TRUE(b.si);
    EXPECT_NEAR(*b.si, (b.mean - a.mean) / ((a.sd + b.sd) / 2), 1e-12);
}

TEST(Normsep, RowsKeepTheOrderOfTheStartMeans) {
    // Start means given high first: the rows follow them and the index turns negative.
    const NormsepResult r = RunNormsep(TwoCohorts(), 1, {36.0, 16.0});
    ASSERT_TRUE(r.ok());
    EXPECT_NEAR(r.components[0].mean, 34, 0.02);
    EXPECT_NEAR(r.components[1].mean, 18, 0.02);
    EXPECT_LT(*r.components[1].si, 0);
}

}  // namespace
}  // namespace norvo
