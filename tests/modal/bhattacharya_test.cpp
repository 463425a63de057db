#include "modal/bhattacharya.h"

#include <gtest/gtest.h>

#include "base/fault.h"
#include "modal/modal_fixtures.h"

namespace norvo {
namespace {

using test::MakeLfq;
using test::MixtureSample;

TEST(Bhattacharya, BoundariesAndLogDifferencesWithAbsentPoints) {
    const std::vector<float> x = ClassBoundaries(9.5f, 1, 4);
    EXPECT_EQ(x, (std::vector<float>{0, 10.5f, 11.5f, 12.5f}));
    const auto d = LogDifferences({0, 2, 0, 4, 8});
    ASSERT_EQ(d.size(), 4u);
    EXPECT_FALSE(d[1]);
    EXPECT_FALSE(d[2]);
    EXPECT_FLOAT_EQ(*d[3], static_cast<float>(std::log(2.0)));
    // One non-empty class: no point at all.
    for (size_t k = 1; k < 4; ++k) EXPECT_FALSE(LogDifferences({0, 0, 5, 0, 0})[k]);
}

TEST(Bhattacharya, LineSkipsAbsentPointsAndRefusesThemAsEnds) {
    const std::vector<float> x = {0, 1, 2, 3, 4, 5};
    const std::vector<std::optional<float>> y = {{}, 5.0f, 4.0f, {}, 2.0f, 1.0f};
    const LogLine line = FitLogLine(x, y, 5, 1);
    ASSERT_TRUE(line.ok());
    EXPECT_EQ(line.from, 1);
    EXPECT_EQ(line.to, 5);
    EXPECT_EQ(line.used, (std::vector<int>{1, 2, 4, 5}));
    EXPECT_FLOAT_EQ(line.fit.b(), -1);
    EXPECT_FLOAT_EQ(line.fit.a(), 6);

    EXPECT_EQ(FitLogLine(x, y, 3, 5).refusal()->text, kBhAbsentPointText);
    EXPECT_EQ(FitLogLine(x, y, 0, 2).refusal()->text, "Point numbers run from 1 to 5.");
    const std::vector<std::optional<float>> lone = {{}, 1.0f, {}, {}};
    EXPECT_EQ(FitLogLine(x, lone, 1, 1).refusal()->text, kBhTooFewPointsText);
}

TEST(Bhattacharya, RecoversASingleNormalUpToTheClassWidth) {
    const LfqData data = MakeLfq(11, 1, {MixtureSample({{30, 4, 1000}}, 11, 1, 40)});
    BhStart st = StartBhattacharya(data, 1);
    ASSERT_TRUE(st.ok());
    BhSample& s = st.sample;
    EXPECT_FLOAT_EQ(s.start, 10.5f);
    EXPECT_FLOAT_EQ(s.logX[1], 11.5f);
    // Points 12..26 lie between classes with midpoints 22..37.
    const BhTake t = PrepareComponent(s, 26, 12);
    ASSERT_TRUE(t.ok());
    const BhComponent& c = t.component;
    EXPECT_EQ(c.from, 12);
    EXPECT_EQ(c.to, 26);
    EXPECT_NEAR(c.mean, 30, 0.01);
    // Class counts are integrals over the class: the variance grows by about w^2/12.
    EXPECT_NEAR(c.sd, std::sqrt(16 + 1.0 / 12), 0.01);
    EXPECT_NEAR(c.population, 1000, 5);
    EXPECT_FALSE(c.si);
    AcceptComponent(s, c);
    for (int k = c.from; k <= c.to; ++k) EXPECT_LT(s.observed[k], 1.0f) << k;
    EXPECT_GT(s.observed[5], 0);  // classes outside the range keep their fish
}

TEST(Bhattacharya, SecondComponentGetsItsSeparationIndexAndWarning) {
    const LfqData data = MakeLfq(1, 1, {MixtureSample({{15, 2, 500}, {30, 3, 800}}, 1, 1, 45)});
    BhSample s = StartBhattacharya(data, 1).sample;
    const BhTake first = PrepareComponent(s, 9, 17);
    ASSERT_TRUE(first.ok());
    EXPECT_TRUE(first.notices.empty());
    AcceptComponent(s, first.component);
    const BhTake second = PrepareComponent(s, 24, 36);
    ASSERT_TRUE(second.ok());
    ASSERT_TRUE(second.component.si);
    EXPECT_FLOAT_EQ(
        *second.component.si,
        SeparationIndex(second.component.mean, second.component.sd, s.prevMean(), s.prevSD()));
    EXPECT_NEAR(*second.component.si, 15 / 2.5, 0.2);
    EXPECT_TRUE(second.notices.empty());
}

TEST(Bhattacharya, SeparationIndexAndItsWarningText) {
    EXPECT_FLOAT_EQ(SeparationIndex(10, 2, 12, 2), 1);
    EXPECT_FLOAT_EQ(SeparationIndex(12, 2, 10, 2), 1);
    EXPECT_FLOAT_EQ(SeparationIndex(10, 0, 12, 0), -9999);
    EXPECT_EQ(SeparationWarningText(1),
              "WARNING! The separation index (SI=1.00) is less than 2, indicating substantial "
              "overlap between classes.");
    EXPECT_EQ(SeparationWarningText(-9999),
              "WARNING! The separation index (SI=-9999.00) is less than 2, indicating "
              "substantial overlap between classes.");
}

TEST(Bhattacharya, SubtractionNeverLeavesAClassBelowZero) {
    std::vector<float> observed = {0, 5, 50, 5};
    BhComponent c;
    c.from = 1;
    c.to = 3;
    c.mean = 11;
    c.sd = 1;
    c.population = 200;
    SubtractComponent(observed, c, 9.5f, 1);
    EXPECT_EQ(observed[1], 0);
    EXPECT_EQ(observed[3], 0);
    EXPECT_EQ(observed[2], 0);
}

TEST(Bhattacharya, RisingLineIsAnArithmeticFaultAndAMissingSampleIsRefused) {
    EXPECT_THROW(ComputeComponent(1, 0.5f, 0, 1, {0, 1, 2}, 1, 2), ArithmeticFault);
    EXPECT_THROW(ComputeComponent(1, 0, 0, 1, {0, 1, 2}, 1, 2), ArithmeticFault);
    const LfqData data = MakeLfq(11, 1, {{1, 2, 3}});
    EXPECT_EQ(StartBhattacharya(data, 2).refusal()->text, "There is no sample 2 in the file.");
}

}  // namespace
}  // namespace norvo
