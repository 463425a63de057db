#include "numerics/regression_tool.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"

namespace norvo {
namespace {

const std::vector<float> kX = {1, 2, 4};
const std::vector<float> kY = {10, 100, 1000};

std::string RefusalText(const Outcome& o) {
    return o.refusal() ? o.refusal()->text : "";
}

// Each form's pairs against values worked out by hand from X = 1, 2, 4 and Y = 10, 100, 1000.
TEST(RegressTransform, EveryFormAgainstHandValues) {
    struct Case {
        int form;
        float c;
        std::vector<float> x, y;
    };
    const std::vector<Case> cases = {
        {0, 0, {1, 2, 4}, {10, 100, 1000}},
        {1, 0, {1, 2, 4}, {10, 100, 1000}},
        {2, 0, {0, 0.30103000f, 0.60205999f}, {1, 2, 3}},
        {3, 0, {1, 2, 4}, {2.3025851f, 4.6051702f, 6.9077553f}},
        {4, 0, {0, 0.69314718f, 1.3862944f}, {10, 100, 1000}},
        {5, 0, {1, 2, 4}, {10, 50, 250}},
        {6, 2000, {1, 2, 4}, {-0.0050125418f, -0.051293294f, -0.69314718f}},
        {7, 0.5f, {1, 2, 4}, {3.1622777f, 10, 31.622777f}},
        {8, 2, {1, 4, 16}, {10, 100, 1000}},
        {8, -1, {1, 0.5f, 0.25f}, {10, 100, 1000}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.form);
        const auto t = TransformPairs(c.form, kX, kY, c.c);
        ASSERT_TRUE(t.ok());
        ASSERT_EQ(t.x.size(), 3u);
        for (size_t i = 0; i < 3; ++i) {
            EXPECT_FLOAT_EQ(t.x[i], c.x[i]) << i;
            EXPECT_FLOAT_EQ(t.y[i], c.y[i]) << i;
        }
    }
}

TEST(RegressTransform, PairsAFormCannotTakeAreNamed) {
    const std::vector<float> x = {1, 0, -2};
    const std::vector<float> y = {4, 0, -8};
    const std::string why = " cannot be transformed: ";
    auto t = TransformPairs(kFormLnY, x, y, 0);
    EXPECT_EQ(RefusalText(t), "Pair 2 (X = 0.000, Y = 0.000)" + why +
                                  "the logarithm of a value at or below 0 is undefined.");
    EXPECT_EQ(t.refusal()->title, kInvalidDataTitle);
    EXPECT_TRUE(t.x.empty());
    EXPECT_EQ(RefusalText(TransformPairs(kFormLogX, x, y, 0)),
              "Pair 2 (X = 0.000, Y = 0.000)" + why +
                  "the logarithm of a value at or below 0 is undefined.");
    EXPECT_EQ(RefusalText(TransformPairs(kFormRatio, x, y, 0)),
              "Pair 2 (X = 0.000, Y = 0.000)" + why + "Y/X is undefined for X = 0.");
    EXPECT_EQ(RefusalText(TransformPairs(kFormLnOneMinus, x, y, 4)),
              "Pair 1 (X = 1.000, Y = 4.000)" + why +
                  "1 - Y/C is at or below 0, so its logarithm is undefined.");
    EXPECT_EQ(RefusalText(TransformPairs(kFormLnOneMinus, x, y, 0)),
              "Pair 1 (X = 1.000, Y = 4.000)" + why + "Y/C is undefined for C = 0.");
    EXPECT_EQ(RefusalText(TransformPairs(kFormPowerY, x, y, 0.5f)),
              "Pair 3 (X = -2.000, Y = -8.000)" + why +
                  "a negative number to a fractional power C is undefined.");
    EXPECT_EQ(RefusalText(TransformPairs(kFormPowerX, x, y, -1)),
              "Pair 2 (X = 0.000, Y = 0.000)" + why + "0 to a negative power C is undefined.");
    // Whole powers of negative numbers are fine; a comma locale shows its own separator.
    const auto sq = TransformPairs(kFormPowerY, x, y, 2);
    ASSERT_TRUE(sq.ok());
    EXPECT_EQ(sq.y[2], 64.0f);
    EXPECT_EQ(RefusalText(TransformPairs(kFormLnY, std::vector<float>{1.5f},
                                         std::vector<float>{-0.25f}, 0, ',')),
              "Pair 1 (X = 1,500, Y = -0,250)" + why +
                  "the logarithm of a value at or below 0 is undefined.");
}

TEST(RegressConstant, GuardsOfTheThreeForms) {
    const std::vector<float> y = {2, 9.5f, 7};
    const std::string above =
        "Input caused an undefined results. Constant should be greater than 9.500. Please try "
        "again.";
    EXPECT_TRUE(CheckConstant(kFormLnOneMinus, 9.5001, y).ok());
    EXPECT_EQ(RefusalText(CheckConstant(kFormLnOneMinus, 9.5, y)), above);
    EXPECT_EQ(CheckConstant(kFormLnOneMinus, 9.5, y).refusal()->title, "invalid Input");
    // 9.5000001 is 9.5 in 32 bits: no more than the largest Y.
    EXPECT_EQ(RefusalText(CheckConstant(kFormLnOneMinus, 9.5000001, y)), above);
    EXPECT_EQ(RefusalText(CheckConstant(kFormLnOneMinus, 1, y, ',')),
              "Input caused an undefined results. Constant should be greater than 9,500. Please "
              "try again.");

    const std::string below32 =
        "Input caused undefined results. Constant should less than 32. Please try again.";
    for (int form : {kFormPowerY, kFormPowerX}) {
        EXPECT_EQ(RefusalText(CheckConstant(form, 32, y)), below32);
        EXPECT_EQ(RefusalText(CheckConstant(form, 1e6, y)), below32);
        EXPECT_TRUE(CheckConstant(form, 31.99, y).ok());
        EXPECT_TRUE(CheckConstant(form, -3, y).ok());
        EXPECT_EQ(RefusalText(CheckConstant(form, 1e300, y)), kRegressConstantNotNumber);
        EXPECT_EQ(RefusalText(CheckConstant(form, std::nan(""), y)), kRegressConstantNotNumber);
    }
    // Forms without C take anything.
    EXPECT_TRUE(CheckConstant(kFormLinear, std::nan(""), y).ok());
}

TEST(RegressAxes, LogMarksAndInverseByForm) {
    // Form: x log, y log, x inverse of 2, y inverse of 2.
    struct Case {
        int form;
        bool xLog, yLog;
        double xShown, yShown;
    };
    const Case cases[] = {{0, false, false, 2, 2},
                          {1, false, false, 2, 2},
                          {2, true, true, 100, 100},
                          {3, false, true, 2, std::exp(2.0)},
                          {4, true, false, 2, 2},
                          {5, false, false, 2, 2},
                          {6, false, true, 2, std::exp(2.0)},
                          {7, false, false, 2, 2},
                          {8, false, false, 2, 2}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.form);
        EXPECT_EQ(AxisTitle(c.form, false, "Age"), c.xLog ? "log(Age)" : "Age");
        EXPECT_EQ(AxisTitle(c.form, true, "Size"), c.yLog ? "log(Size)" : "Size");
        EXPECT_NEAR(AxisNumber(c.form, false, 2), c.xShown, 1e-9);
        EXPECT_NEAR(AxisNumber(c.form, true, 2), c.yShown, 1e-9);
    }
    EXPECT_EQ(FunctionTitle(6), "Function: ln(1-Y/C) = a + b * X");
    EXPECT_TRUE(FormNeedsConstant(6) && FormNeedsConstant(7) && FormNeedsConstant(8));
    EXPECT_FALSE(FormNeedsConstant(5));
}

TEST(RegressRun, FitsInTheTransformedSpace) {
    // Y = 3 X^2: the log-log line has b = 2 and a = log10 3.
    const std::vector<float> x = {1, 2, 4, 8};
    const std::vector<float> y = {3, 12, 48, 192};
    RegressOptions o;
    o.form = kFormLogLog;
    auto run = RunRegression(x, y, o);
    ASSERT_TRUE(run.ok());
    EXPECT_FALSE(run.c);
    EXPECT_NEAR(run.fit.b(), 2.0, 1e-5);
    EXPECT_NEAR(run.fit.a(), std::log10(3.0), 1e-5);
    EXPECT_EQ(run.fit.n(), 4.0f);

    // Y = a + b X^C with C = 2: a line through (1, 4), (4, 7), (16, 19), (64, 67).
    o.form = kFormPowerX;
    o.c = 2;
    run = RunRegression(x, std::vector<float>{4, 7, 19, 67}, o);
    ASSERT_TRUE(run.ok());
    EXPECT_EQ(run.c, 2.0f);
    EXPECT_NEAR(run.fit.a(), 3.0, 1e-5);
    EXPECT_NEAR(run.fit.b(), 1.0, 1e-6);

    // Form 1 is the functional fit, slot for slot where its figures are not noise.
    o.form = kFormFunctional;
    const std::vector<float> fy = {1, 3, 2, 5};
    run = RunRegression(x, fy, o);
    RegressionResult direct;
    FunctionalRegression(x, fy, 0, 3, direct);
    for (int slot : {1, 2, 3, 10, 11, 12, 13, 14}) EXPECT_EQ(run.fit[slot], direct[slot]) << slot;
    EXPECT_EQ(run.fit[RegressionResult::kF], 0.0f);
}

TEST(RegressRun, EdgesOfTheConstant) {
    const std::vector<float> x = {1, 2, 3, 4};
    const std::vector<float> y = {1, 3, 2, 5};
    RegressOptions o;
    // C just above the largest Y: the last point drops far below the others.
    o.form = kFormLnOneMinus;
    o.c = 5.0001;
    auto run = RunRegression(x, y, o);
    ASSERT_TRUE(run.ok());
    EXPECT_NEAR(run.y[3], std::log(1.0 - 5.0 / static_cast<float>(5.0001)), 1e-4);
    EXPECT_LT(run.y[3], -10);
    EXPECT_GT(run.y[2], -1);
    o.c = 5;
    run = RunRegression(x, y, o);
    EXPECT_FALSE(run.ok());
    EXPECT_TRUE(run.x.empty());

    // C = 0 in form 8 makes every x 1: the fit itself fails on the constant x.
    o.form = kFormPowerX;
    o.c = 0;
    EXPECT_THROW(RunRegression(x, y, o), ArithmeticFault);
    o.c = 32;
    EXPECT_EQ(RefusalText(RunRegression(x, y, o)), kRegressConstantBelow32);
    o.c = 31.99;
    o.form = kFormPowerY;
    const std::vector<float> small = {1, 1.2f, 1.1f, 1.3f};
    run = RunRegression(x, small, o);
    ASSERT_TRUE(run.ok());
    EXPECT_EQ(run.c, 31.99f);
    EXPECT_FLOAT_EQ(run.y[1], static_cast<float>(std::pow(static_cast<double>(1.2f),
                                                          static_cast<double>(31.99f))));
    // Larger Y to that power overflows the fit's 32-bit sums of squares.
    EXPECT_THROW(RunRegression(x, y, o), ArithmeticFault);
}

TEST(RegressRun, RefusesWhatCannotBeFitted) {
    RegressOptions o;
    const std::vector<float> one = {1};
    EXPECT_EQ(RefusalText(RunRegression(one, one, o)), kRegressTooFewPairs);
    EXPECT_EQ(RefusalText(RunRegression({}, {}, o)), kRegressTooFewPairs);
    o.form = 9;
    EXPECT_EQ(RefusalText(RunRegression(one, one, o)), "There is no function form 9.");
    // A pair the form cannot take stops the run before the fit.
    o.form = kFormLnY;
    const std::vector<float> x = {1, 2, 3};
    const auto run = RunRegression(x, std::vector<float>{1, 0, 2}, o);
    EXPECT_FALSE(run.ok());
    EXPECT_EQ(run.fit.n(), 0.0f);
}

}  // namespace
}  // namespace norvo
