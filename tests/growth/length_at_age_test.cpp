#include "growth/length_at_age.h"

#include <gtest/gtest.h>

#include <cmath>

namespace norvo {
namespace {

LaaData Exact(double loo, double k, double t0, int n = 10, const std::string& unit = "year") {
    LaaData d;
    d.unitOfAge = unit;
    const double divisor = LaaAgeDivisor(unit);
    for (int i = 0; i < n; ++i) {
        const float age = static_cast<float>((0.5 + 0.6 * i) * divisor);
        const double t = static_cast<float>(age / divisor);
        d.rows.push_back({age, static_cast<float>(loo * (1 - std::exp(-k * (t - t0)))), 1.0f});
    }
    return d;
}

LaaOptions Defaults(const LaaData& d) {
    LaaOptions o;
    o.constraints = DefaultLaaConstraints(d);
    return o;
}

TEST(ComputeLAA, NoiseFreeDataGiveBackTheParameters) {
    for (const char* unit : {"Year", "month", "Days"}) {
        const LaaData d = Exact(80, 0.4, -0.3, 10, unit);
        LaaOptions o = Defaults(d);
        o.constraints[kLaaT0] = {-2, 0, 2};
        const LaaRun run = ComputeLAA(d, o);
        ASSERT_TRUE(run.fitted()) << unit;
        EXPECT_EQ(run.model, kMarquardtVbgf);
        EXPECT_EQ(run.names, (std::vector<std::string>{"Loo", "K", "t0"}));
        EXPECT_FALSE(run.weights.asked);
        EXPECT_NEAR(run.estimate(kLaaLoo), 80, 80e-6) << unit;
        EXPECT_NEAR(run.estimate(kLaaK), 0.4, 0.4e-6) << unit;
        EXPECT_NEAR(run.estimate(kLaaT0), -0.3, 1e-6) << unit;
        EXPECT_EQ(run.stars(kLaaC), "***");
        EXPECT_EQ(run.fit.message, kMqConverged);
        EXPECT_EQ(run.remarks.find(kGrowthFitRemarks), std::string_view(kMqConverged).size());
        EXPECT_EQ(run.caption(), "Parameters: Loo=80.00 ; K=0.40 ;and to=-0.30");
    }
    EXPECT_EQ(LaaAgeDivisor("Months"), 30);
    EXPECT_EQ(LaaAgeDivisor("days"), 365);
    EXPECT_EQ(LaaAgeDivisor(""), 1);
}

TEST(ComputeLAA, DefaultsComeFromTheLargestLengthOfEveryRow) {
    LaaData d = Exact(80, 0.4, 0);
    d.rows.push_back({9, 50.3f, 0});  // weight 0 still counts
    for (auto& r : d.rows) r[1] = std::min(r[1], 50.3f);
    const LaaConstraints c = DefaultLaaConstraints(d);
    EXPECT_EQ(c[kLaaLoo], (ParamConstraint{50.3f, 55.33f, 150.9f}));
    EXPECT_EQ(c[kLaaK], (ParamConstraint{0.01f, 1, 10}));
    EXPECT_TRUE(c[kLaaC].fixed() && c[kLaaWP].fixed() && c[kLaaT0].fixed());
    EXPECT_TRUE(ValidateLaaConstraints(c, LaaLargestLength(d)).ok());
    EXPECT_EQ(CeilTwoDecimals(1.1 * 50), 55.0f);
    EXPECT_EQ(CeilTwoDecimals(12.341), 12.35f);
}

TEST(ComputeLAA, WeightsRepeatRowsAndDecimalsMultiplyByTen) {
    LaaData d = Exact(80, 0.4, 0, 8);
    d.rows[0][2] = 0.5f;
    d.rows[1][2] = 1.5f;
    d.rows[2][2] = 0;
    d.rows[3][2] = 0.7f;
    LaaRun run = ComputeLAA(d, Defaults(d));
    ASSERT_TRUE(run.fitted());
    EXPECT_TRUE(run.weights.asked && run.weights.used && run.weights.times10);
    EXPECT_EQ(run.weights.repetitions, (std::vector<int>{5, 15, 0, 7, 10, 10, 10, 10}));
    EXPECT_EQ(run.table.size(), 67u);

    // Whole weights are repetitions as they stand.
    for (auto& r : d.rows) r[2] = 2;
    run = ComputeLAA(d, Defaults(d));
    EXPECT_FALSE(run.weights.times10);
    EXPECT_EQ(run.table.size(), 16u);

    // Answered No: every row once, weight 0 included.
    d.rows[2][2] = 0;
    LaaOptions o = Defaults(d);
    o.useWeights = false;
    run = ComputeLAA(d, o);
    EXPECT_TRUE(run.weights.asked);
    EXPECT_FALSE(run.weights.used);
    EXPECT_EQ(run.table.size(), 8u);

    // Too many repetitions for the working table.
    o.useWeights = true;
    o.maxWorkRows = 10;
    run = ComputeLAA(d, o);
    ASSERT_NE(run.refusal(), nullptr);
    EXPECT_EQ(run.refusal()->text, kLaaMemoryText);
}

TEST(ComputeLAA, RefusalsOfRowsConstraintsAndCount) {
    const LaaData six = Exact(80, 0.4, 0, 6);
    LaaRun run = ComputeLAA(six, Defaults(six));
    ASSERT_NE(run.refusal(), nullptr);
    EXPECT_EQ(run.refusal()->title, kLaaInsufficientTitle);
    EXPECT_EQ(run.refusal()->text, kLaaInsufficientText);

    const LaaData d = Exact(80, 0.4, 0, 8);
    const float largest = LaaLargestLength(d);
    auto refused = [&](auto change) {
        LaaConstraints c = DefaultLaaConstraints(d);
        change(c);
        const Outcome o = ValidateLaaConstraints(c, largest);
        return !o.ok() && o.refusal()->text == std::string(kLaaInvalidInputText) &&
               o.refusal()->title == std::string("Invalid Data");
    };
    EXPECT_TRUE(refused([](LaaConstraints& c) { c[kLaaK].min = 2; }));  // out of order
    EXPECT_TRUE(refused([](LaaConstraints& c) { c[kLaaK].min = 0.009f; }));
    EXPECT_TRUE(refused([](LaaConstraints& c) { c[kLaaK].max = 10.01f; }));
    EXPECT_TRUE(refused([&](LaaConstraints& c) { c[kLaaLoo].start = largest - 0.01f; }));
    EXPECT_TRUE(refused([](LaaConstraints& c) { c[kLaaLoo] = {100, 200, 99999}; }));
    EXPECT_TRUE(refused([](LaaConstraints& c) { c[kLaaC].max = 1.5f; }));
    EXPECT_TRUE(refused([](LaaConstraints& c) { c[kLaaWP].min = -0.1f; }));
    EXPECT_TRUE(refused([](LaaConstraints& c) { c[kLaaT0] = {-10.5f, 0, 0}; }));
    EXPECT_FALSE(refused([](LaaConstraints& c) { c[kLaaT0] = {-10, 0, 1}; }));

    // Five free parameters and only five rows after the weights.
    LaaData few = d;
    for (size_t i = 0; i < few.rows.size(); ++i) few.rows[i][2] = i < 5 ? 1.0f : 0.0f;
    LaaOptions o = Defaults(few);
    o.constraints[kLaaC] = {0, 0.1f, 1};
    o.constraints[kLaaWP] = {0, 0.5f, 1};
    o.constraints[kLaaT0] = {-1, 0, 1};
    run = ComputeLAA(few, o);
    ASSERT_NE(run.refusal(), nullptr);
    EXPECT_EQ(run.refusal()->text, kMoreParamsText);
}

TEST(ComputeLAA, FixedPositiveCRunsTheSeasonalModelWithConstants) {
    const LaaData d = Exact(80, 0.4, 0, 10);
    LaaOptions o = Defaults(d);
    o.constraints[kLaaC] = {0.3f, 0.3f, 0.3f};
    o.constraints[kLaaWP] = {0.2f, 0.2f, 0.2f};
    o.constraints[kLaaT0] = {-1, 0, 1};
    const LaaRun run = ComputeLAA(d, o);
    ASSERT_TRUE(run.fitted());
    EXPECT_EQ(run.model, kMarquardtSeasonal);
    EXPECT_EQ(run.stars(kLaaC), "***");
    EXPECT_EQ(run.stars(kLaaWP), "***");
    EXPECT_EQ(run.estimate(kLaaC), 0.3f);
    EXPECT_EQ(run.stdErr(kLaaWP), 0);
    EXPECT_GT(run.stdErr(kLaaK), 0);
    EXPECT_NE(run.caption().find(" ; C=0.30 ; WP=0.20 ;and to="), std::string::npos);
}

}  // namespace
}  // namespace norvo
