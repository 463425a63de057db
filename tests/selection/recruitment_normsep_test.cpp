#include "selection/recruitment_normsep.h"

#include <gtest/gtest.h>

#include <cmath>

namespace norvo {
namespace {

// Per cents by position from normal groups {mean, sd, proportion}, integrated over each
// position's class.
std::array<float, 13> Pattern(std::initializer_list<NormalGroup> groups) {
    std::array<float, 13> v{};
    for (int m = 1; m <= 12; ++m)
        for (const auto& g : groups) {
            auto cdf = [&](double x) {
                return 0.5 * std::erfc(-(x - g.mean) / (g.sd * std::sqrt(2)));
            };
            v[m] += static_cast<float>(100 * g.proportion * (cdf(m + 0.5) - cdf(m - 0.5)));
        }
    return v;
}

TEST(Normsep, SeparatesOneAndTwoGroups) {
    auto one = DoNORMSEP(Pattern({{5.5, 1.5, 1}}), 4, 0);
    ASSERT_TRUE(one.ok());
    ASSERT_EQ(one.groups.size(), 1u);
    EXPECT_NEAR(one.groups[0].mean, 5.5, 0.05);
    EXPECT_NEAR(one.groups[0].sd, 1.5, 0.1);
    EXPECT_DOUBLE_EQ(one.groups[0].proportion, 1);

    auto two = DoNORMSEP(Pattern({{3.5, 1.0, 0.6}, {9, 1.2, 0.4}}), 2, 10);
    ASSERT_TRUE(two.ok());
    ASSERT_EQ(two.groups.size(), 2u);
    EXPECT_NEAR(two.groups[0].mean, 3.5, 0.05);
    EXPECT_NEAR(two.groups[1].mean, 9, 0.05);
    EXPECT_NEAR(two.groups[0].sd, 1.0, 0.05);
    EXPECT_NEAR(two.groups[0].proportion, 0.6, 0.01);
    EXPECT_GT(two.passes, 1);
    EXPECT_LT(two.passes, kRsMaxPasses);
    // The curve of a group is its share of the per cents as a density over the positions.
    EXPECT_NEAR(two.curve(1, 9), two.total * 0.4 / (1.2 * std::sqrt(2 * M_PI)), 0.5);
}

TEST(Normsep, StartValues) {
    const auto v = Pattern({{6, 2, 1}});
    EXPECT_TRUE(DoNORMSEP(v, 0, 5).groups.empty());
    EXPECT_TRUE(DoNORMSEP(v, -1, 0).ok());
    EXPECT_EQ(DoNORMSEP(v, 5, 5).refusal()->text, kRsSameStartText);
    // A second group that no month is nearer to.
    std::array<float, 13> first{};
    first[1] = 20;
    first[2] = 50;
    first[3] = 30;
    EXPECT_EQ(DoNORMSEP(first, 2, 11).refusal()->text, kRsEmptyGroupText);
    std::array<float, 13> lone{};
    lone[4] = 100;
    EXPECT_EQ(DoNORMSEP(lone, 4, 0).refusal()->text, kRsNoSpreadText);
}

}  // namespace
}  // namespace norvo
