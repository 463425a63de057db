#include "growth/vbgf_plot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "base/checked.h"

namespace norvo {
namespace {

// A file of `samples` monthly samples (the 15th of each month from January 2000) and 20
// classes of 2 cm from 5 cm, with one mode moving up a class a month.
LfqData MonthlyFile(int samples) {
    LfqData d;
    d.unitOfMeasurement = "cm";
    d.smallestMl = 5;
    d.classInterval = 2;
    d.noOfClasses = 20;
    d.largestMl = 5 + 19 * 2;
    d.noOfSamples = samples;
    d.freq.assign(20, std::vector<double>(samples, 0.0));
    for (int s = 0; s < samples; ++s) {
        d.day.push_back(15);
        d.month.push_back(static_cast<int16_t>(s % 12 + 1));
        d.year.push_back(static_cast<int16_t>(2000 + s / 12));
        d.freq[static_cast<size_t>(s % 20)][static_cast<size_t>(s)] = 10 + s;
        d.freq[static_cast<size_t>((s + 7) % 20)][static_cast<size_t>(s)] = 3;
    }
    return d;
}

GrowthParams Params(float loo, float k, float c, float wp) {
    GrowthParams p;
    p.loo = loo;
    p.k = k;
    p.c = c;
    p.wp = wp;
    return p;
}

TEST(VbgfPlotCurve, ZeroAmplitudeSkipsTheSineAndSeasonalTermIgnoresT0) {
    // C of exactly 0: the plain curve; WP has no effect on either routine.
    const GrowthParams plain = Params(50, 0.5f, 0, 0.3f);
    const float expected = R4(R4((1 - std::exp(-(1.2 - 0.1) * 0.5)) * 50) + 0.005);
    EXPECT_FLOAT_EQ(ComputeL(1.2, plain, 0.1f), expected);
    EXPECT_EQ(ComputeL(1.2, plain, 0.1f), ComputeL(1.2, Params(50, 0.5f, 0, 0.9f), 0.1f));
    const float x = R4(std::log(1 - 20.0 / 50) / 0.5);
    EXPECT_FLOAT_EQ(ComputeT0(20, 0.25f, plain), R4(x + 0.25));
    EXPECT_EQ(ComputeT0(20, 0.25f, plain), ComputeT0(20, 0.25f, Params(50, 0.5f, 0, 0.9f)));

    // The seasonal form has the sine of t alone: no term for t0.
    const GrowthParams seasonal = Params(50, 0.5f, 0.8f, 0.2f);
    const double s = 0.5 * 0.8 / kTwoPi * std::sin(((1.2 - 0.2f) + 0.5) * kTwoPi);
    EXPECT_NEAR(ComputeL(1.2, seasonal, 0.1f),
                (1 - std::exp(-(s + (1.2 - 0.1f) * 0.5))) * 50 + 0.005, 1e-4);
    // Far before the origin the length is floored at 0.
    EXPECT_EQ(ComputeL(-5, plain, 0), 0.0f);
}

TEST(VbgfPlotCurve, DayCountsRunFromTheFirstSample) {
    LfqData d = MonthlyFile(3);
    d.day = {20, 1, 31};
    d.month = {12, 1, 3};
    d.year = {1999, 2000, 2000};
    EXPECT_EQ(SampleDayCount(d, 0), 1999 * 365 + 334 + 20);
    EXPECT_EQ(SampleDays(d), (std::vector<int>{0, 12, 12 + 31 + 28 + 31 - 1}));
}

TEST(VbgfPlotCurve, StartingLengthAtTheFirstLowerLimitStartsInTheFirstClass) {
    const LfqData d = MonthlyFile(12);
    GrowthParams p = Params(45, 0.8f, 0, 0);
    p.ss = 3;
    p.sl = 4;  // lower limit of the first class
    const CurveTable t = ComputePoints(d, p);
    ASSERT_GE(t.cohorts, 1);
    EXPECT_FLOAT_EQ(t.day[0][0], static_cast<float>(SampleDays(d)[2]));
    EXPECT_GE(t.length[0][0], 4.0f);
    EXPECT_LT(t.length[0][0], 6.0f);
    // It then grows to the last sample.
    const int n = t.points[0];
    EXPECT_FLOAT_EQ(t.day[0][static_cast<size_t>(n - 1)], static_cast<float>(SampleDays(d)[11]));
    EXPECT_GT(t.length[0][static_cast<size_t>(n - 1)], t.length[0][0]);
}

TEST(VbgfPlotCurve, CohortAndPointLimitsHoldOnAFiveYearFile) {
    const LfqData d = MonthlyFile(60);
    for (float k : {0.2f, 1.0f, 3.0f}) {
        GrowthParams p = Params(44, k, 0.5f, 0.4f);
        p.ss = 30;
        p.sl = 20;
        const CurveTable t = ComputePoints(d, p);
        EXPECT_GE(t.cohorts, 2) << k;
        EXPECT_LE(t.cohorts, kMaxCohorts) << k;
        for (int c = 0; c < t.cohorts; ++c) {
            const auto ci = static_cast<size_t>(c);
            EXPECT_GE(t.points[ci], 2);
            EXPECT_LE(t.points[ci], kMaxCohortPoints);
            // Every cohort runs to the last sample, in increasing time.
            EXPECT_NEAR(t.day[ci][static_cast<size_t>(t.points[ci] - 1)], SampleDays(d)[59], 1);
            for (int j = 1; j < t.points[ci]; ++j)
                EXPECT_GT(t.day[ci][static_cast<size_t>(j)], t.day[ci][static_cast<size_t>(j - 1)]);
        }
    }
}

TEST(VbgfPlotHisto, DisplayAllShrinksBarsByTheTimeAxisFactor) {
    const LfqData d = MonthlyFile(60);
    HistoOptions o;
    ChartCanvas window, all;
    const PlotLayout a = PlotHisto(window, d, o);
    o.displayAll = true;
    const PlotLayout b = PlotHisto(all, d, o);
    EXPECT_EQ(a.zoom, 1.0);
    EXPECT_GT(b.zoom, 5.0);
    EXPECT_NEAR(a.xPerDay / b.xPerDay, b.zoom, 1e-9);
    // The longest bar (the file's largest frequency, last sample) is 12 units, or 12 / zoom.
    auto longest = [](const ChartCanvas& c) {
        double w = 0;
        for (const auto& box : c.commandsOf(DrawOp::FilledBox))
            if (box.colour == HistoOptions{}.barColour) w = std::max(w, box.x2 - box.x1);
        return w;
    };
    EXPECT_NEAR(longest(all), kMaxBarUnits / b.zoom, 1e-9);
    // The window shows the first 200 days: the first sample's longest bar stands at its date.
    EXPECT_NEAR(longest(window), kMaxBarUnits * 16 / 69, 1e-9);
    // Every sample is inside the axis with Display all.
    auto bars = [](const ChartCanvas& c) {
        const auto boxes = c.commandsOf(DrawOp::FilledBox);
        return std::count_if(boxes.begin(), boxes.end(), [](const DrawCommand& b) {
            return b.colour == HistoOptions{}.barColour;
        });
    };
    EXPECT_EQ(bars(all), 120);
    EXPECT_EQ(bars(window), 14);
}

TEST(VbgfPlotHisto, AxisLabelsAndScrolling) {
    const LfqData d = MonthlyFile(24);
    HistoOptions o;
    o.scrollDay = 365;
    ChartCanvas c;
    const PlotLayout lay = PlotHisto(c, d, o);
    EXPECT_EQ(lay.windowStartDay, 365);
    std::vector<std::string> texts;
    for (const auto& p : c.commandsOf(DrawOp::Print)) texts.push_back(p.text);
    auto has = [&](const std::string& t) {
        return std::find(texts.begin(), texts.end(), t) != texts.end();
    };
    EXPECT_TRUE(has("Feb"));
    EXPECT_TRUE(has("2001"));  // the year under January
    EXPECT_FALSE(has("2000"));
    EXPECT_TRUE(has("Length (cm)"));
    EXPECT_EQ(LengthTickStep(9), 1);
    EXPECT_EQ(LengthTickStep(10), 2);
    EXPECT_EQ(LengthTickStep(30), 2);
    EXPECT_EQ(LengthTickStep(31), 5);
    EXPECT_EQ(LengthTickStep(81), 10);
    // A scroll past the end is held at the last window.
    o.scrollDay = 1e6;
    EXPECT_EQ(PlotHisto(c, d, o).windowStartDay, ScrollRangeDays(d));
}

TEST(VbgfPlotHisto, CurveStaysInsideTheWindow) {
    const LfqData d = MonthlyFile(36);
    GrowthParams p = Params(44, 1.0f, 0, 0);
    p.ss = 1;
    p.sl = 15;
    ChartCanvas c;
    const PlotLayout lay = PlotHisto(c, d, HistoOptions{});
    const size_t before = c.commandsOf(DrawOp::Line).size();
    PlotCurve(c, lay, ComputePoints(d, p), kRed);
    int red = 0;
    for (const auto& l : c.commandsOf(DrawOp::Line)) {
        if (l.colour != kRed) continue;
        ++red;
        for (double x : {l.x1, l.x2}) {
            EXPECT_GE(x, kTimeAxisLeft - 1e-9);
            EXPECT_LE(x, kTimeAxisRight + 1e-9);
        }
        for (double y : {l.y1, l.y2}) {
            EXPECT_GE(y, kLengthAxisTop - 1e-9);
            EXPECT_LE(y, kTimeAxisY + 1e-9);
        }
    }
    EXPECT_GT(red, 0);
    EXPECT_GT(c.commandsOf(DrawOp::Line).size(), before);
}

TEST(VbgfPlotChecks, RefusalsInOrder) {
    const LfqData d = MonthlyFile(12);
    auto refused = [&](CurveInputs in, const char* text) {
        const CurveCheck check = CheckCurveInputs(in, d);
        EXPECT_FALSE(check.ok()) << text;
        ASSERT_EQ(check.notices.size(), 1u) << text;
        EXPECT_EQ(check.notices.back().text, text);
    };
    // An empty box reads as 0; a box whose text is not a number reads as nothing.
    refused({0.0, 0.5, 0, 0, 1, 10}, kVbgfInvalidLoo);
    refused({50, std::nullopt, 0, 0, 1, 10}, kVbgfInvalidK);
    refused({50, 0.5, 1.5, 0, 1, 10}, kVbgfInvalidC);
    refused({50, 0.5, 0, 2, 1, 10}, kVbgfInvalidWP);
    refused({50, 0.5, 0, 0, 0, 10}, kVbgfInvalidSS);
    refused({50, 0.5, 0, 0, 13, 10}, kVbgfInvalidSS);
    refused({50, 0.5, 0, 0, 1.5, 10}, kVbgfInvalidSS);
    refused({50, 0.5, 0, 0, 1, 3.9}, kVbgfInvalidSL);
    refused({50, 0.5, 0, 0, 1, 44.1}, kVbgfInvalidSL);
    // Every parameter unreadable: the first check's notice alone.
    refused({}, kVbgfInvalidLoo);
    const CurveCheck p = CheckCurveInputs({50, 0.5, 0.0, 0.0, 12, 4}, d);
    ASSERT_TRUE(p.ok());
    EXPECT_TRUE(p.notices.empty());
    EXPECT_EQ(p.params.ss, 12.0f);
    EXPECT_EQ(p.params.c, 0.0f);
    EXPECT_EQ(std::string(kVbgfInvalidSS),
              "The sample number introduced is not valid. Please check input!");
}

}  // namespace
}  // namespace norvo
