#include "stock/vpa_age.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"

namespace norvo {
namespace {

// Catches of a cohort followed forward from n1 under the given F by group.
std::vector<float> ForwardCatches(double n1, const std::vector<double>& f, double m, double dt) {
    std::vector<float> c;
    double n = n1;
    for (double fi : f) {
        const double z = (m + fi) * dt;
        c.push_back(static_cast<float>(fi * dt / z * n * (1 - std::exp(-z))));
        n *= std::exp(-z);
    }
    return c;
}

std::string RefusalText(const Outcome& o) {
    return o.refusal() ? o.refusal()->text : "";
}

TEST(AgeVpa, RecoversTheFAndNThatMadeTheCatches) {
    const std::vector<double> f = {0.1, 0.4, 0.9, 0.7, 0.0, 0.5};
    for (double dt : {1.0, 0.5, 0.25}) {
        AgeVpaOptions o;
        o.m = 0.3f;
        o.dt = static_cast<float>(dt);
        o.ft = static_cast<float>(f.back());
        o.catches = ForwardCatches(1e6, f, o.m, dt);
        const AgeVpaResult r = RunAgeVpa(o);
        ASSERT_TRUE(r.ok()) << RefusalText(r);
        ASSERT_EQ(r.n, 6);
        double n = 1e6;
        for (int i = 1; i <= r.n; ++i) {
            SCOPED_TRACE("dt " + std::to_string(dt) + " group " + std::to_string(i));
            EXPECT_NEAR(r.F[i], f[i - 1], 2e-5);
            EXPECT_NEAR(r.N[i] / n, 1.0, 2e-6);
            n *= std::exp(-(o.m + f[i - 1]) * dt);
        }
        // The zero catch was carried by natural mortality alone, without Newton's rounds.
        EXPECT_EQ(r.newtonRounds[5], 0);
        EXPECT_FLOAT_EQ(r.N[5], static_cast<float>(r.N[6] * std::exp(0.3f * dt)));
        EXPECT_GT(r.newtonRounds[1], 0);
        EXPECT_LT(r.newtonRounds[1], 10);
    }
}

TEST(AgeVpa, NewtonStartsFromPopeAndSolvesTheCatchEquation) {
    int rounds = 0;
    const double md = 0.2, nn = 500, c = 300;
    const double fd = SolveFd(c, nn, md, rounds);
    const double zd = md + fd;
    EXPECT_NEAR(fd / zd * nn * (std::exp(zd) - 1), c, 1e-6);
    EXPECT_GE(rounds, 2);
    // Without natural mortality the equation has the closed form Fd = ln(1 + C/Nn).
    EXPECT_NEAR(SolveFd(c, nn, 0, rounds), std::log(1 + c / nn), 1e-12);
}

TEST(AgeVpa, RefusesBeforeAnyDivision) {
    AgeVpaOptions o;
    o.catches = {100, 50, 20};
    o.m = 0.2f;
    o.ft = 0.5f;
    o.dt = 0.01f;  // typed 0.01 is within the limits
    EXPECT_TRUE(RunAgeVpa(o).ok());
    o.dt = 1.0f;
    EXPECT_TRUE(RunAgeVpa(o).ok());

    for (float dt : {0.0099f, 1.001f, 0.0f, -1.0f}) {
        o.dt = dt;
        const auto r = RunAgeVpa(o);
        EXPECT_EQ(RefusalText(r), kVpaDtLimitsText) << dt;
        EXPECT_TRUE(r.N.empty());
    }
    o.dt = 1;
    for (float ft : {0.0f, -0.1f}) {
        o.ft = ft;
        EXPECT_EQ(RefusalText(RunAgeVpa(o)), kVpaTerminalFText);
    }
    o.ft = 0.5f;
    o.m = -0.1f;
    EXPECT_EQ(RefusalText(RunAgeVpa(o)), kVpaNaturalMText);
    o.m = 0.2f;
    // An empty oldest group would leave Nn = 0 for the next group with a catch.
    o.catches = {100, 50, 0};
    const auto empty = RunAgeVpa(o);
    EXPECT_EQ(RefusalText(empty), kVpaEmptyOldestText);
    EXPECT_EQ(empty.refusal()->title, kVpaInvalidDataTitle);
    o.catches = {100, -5, 20};
    std::string negative = kVpaNegativeCatchText;
    negative.append("2.");
    EXPECT_EQ(RefusalText(RunAgeVpa(o)), negative);
    o.catches = {};
    EXPECT_EQ(RefusalText(RunAgeVpa(o)), kVpaNoGroupsText);
}

TEST(AgeVpa, TerminalGroupAndSingleGroup) {
    AgeVpaOptions o;
    o.catches = {250};
    o.m = 0;
    o.ft = 1;
    o.dt = 1;
    const auto r = RunAgeVpa(o);
    ASSERT_TRUE(r.ok());
    // With M = 0 the whole population is caught over the interval's share 1 - e^-F.
    EXPECT_NEAR(r.N[1], 250 / (1 - std::exp(-1.0)), 1e-3);
    EXPECT_EQ(r.F[1], 1.0f);
}

}  // namespace
}  // namespace norvo
