#include "growth/lmax.h"

#include <algorithm>
#include <stdexcept>

#include "base/basic.h"
#include "base/checked.h"
#include "base/format.h"
#include "chart/kind_a.h"

namespace norvo {
namespace {

struct Moments {
    double mean = 0;
    double sd = 0;
};

// Mean and standard deviation with n - 1 in the divisor, from the sums.
Moments MeanAndSd(const std::vector<double>& v) {
    const double n = static_cast<double>(v.size());
    double sum = 0, sumSq = 0;
    for (double x : v) {
        sum += x;
        sumSq += x * x;
    }
    Moments m;
    m.mean = Div(sum, n);
    // Equal values can leave a rounding residue just below 0.
    m.sd = Sqrt(std::max(0.0, Div(sumSq - sum * sum / n, n - 1)));
    return m;
}

}  // namespace

std::vector<double> ExtremeLengths(const LfqData& data) {
    std::vector<double> extremes;
    for (int s = 0; s < data.noOfSamples; ++s) {
        int lastClass = -1;
        for (int c = 0; c < data.noOfClasses; ++c) {
            if (data.freq.at(c).at(s) > 0) lastClass = c;
        }
        if (lastClass >= 0) extremes.push_back(data.midlength(lastClass));
    }
    std::sort(extremes.begin(), extremes.end());
    return extremes;
}

double ReducedVariate(double probability) {
    return -Ln(-Ln(probability));
}

double PredictionStandardError(const GumbelFitResult& fit, double y) {
    const double k = Div(y - fit.meanY, fit.sdY);
    return fit.sdX / Sqrt(fit.n) * Sqrt(1 + kGumbelSkewness * k + kGumbelKurtosisTerm * k * k);
}

GumbelFitResult GumbelFit(std::vector<double> extremes) {
    if (extremes.size() < 2) throw std::invalid_argument("GumbelFit needs two extremes");
    GumbelFitResult r;
    std::sort(extremes.begin(), extremes.end());
    r.extremes = std::move(extremes);
    r.n = static_cast<int>(r.extremes.size());
    for (int i = 1; i <= r.n; ++i) {
        const double p = static_cast<double>(i) / (r.n + 1);
        r.probabilities.push_back(p);
        r.reduced.push_back(ReducedVariate(p));
    }
    const Moments y = MeanAndSd(r.reduced);
    const Moments x = MeanAndSd(r.extremes);
    r.meanY = y.mean;
    r.sdY = y.sd;
    r.meanX = x.mean;
    r.sdX = x.sd;
    r.beta = Div(r.sdX, r.sdY);
    r.u = r.meanX - r.beta * r.meanY;
    if (!(r.beta > 0)) return r;

    const double yTarget = ReducedVariate(kLmaxTargetProbability);
    r.predicted = r.u + r.beta * yTarget;
    r.standardError = PredictionStandardError(r, yTarget);
    r.lower = r.predicted - r.standardError;
    r.upper = r.predicted + r.standardError;

    // Lengths evenly spaced on the probability paper; each is taken back to its reduced
    // variate and probability as a length would be.
    const double yLow = ReducedVariate(kCurveLowProbability);
    const double yHigh = ReducedVariate(kCurveHighProbability);
    const double step = (yHigh - yLow) / (kMaxCurvePoints - 1);
    for (int k = 0; k < kMaxCurvePoints; ++k) {
        const double length = r.u + r.beta * (yLow + k * step);
        const double yk = Div(length - r.u, r.beta);
        const double se = PredictionStandardError(r, yk);
        r.curve.push_back({Exp(-Exp(-yk)), length, length - se, length + se});
    }
    r.ok = true;
    return r;
}

double ProbabilityAxisX(double reducedVariate) {
    const double low = ReducedVariate(kCurveLowProbability);
    const double high = ReducedVariate(kCurveHighProbability);
    return kFrameLeft + (reducedVariate - low) / (high - low) * (kFrameRight - kFrameLeft);
}

void GraphResults(ChartCanvas& canvas, const GumbelFitResult& fit, const std::string& unit) {
    BeginPercentCanvas(canvas);
    DrawPercentFrame(canvas, kFrameTop);

    // The length axis runs from the whole part of the smallest value drawn to the whole part of
    // the largest plus 1, in five steps.
    double smallest = fit.extremes.front(), largest = fit.extremes.back();
    for (const auto& p : fit.curve) {
        smallest = std::min(smallest, p.lower);
        largest = std::max(largest, p.upper);
    }
    const double bottom = Int(smallest);
    const double top = TopWholePlusOne(largest);
    const double scale = PercentScaleY(top - bottom, kFrameTop);
    const auto yOf = [&](double length) { return PercentY(length - bottom, scale); };
    for (double t : FixedStepTicks(top - bottom)) {
        DrawYTick(canvas, yOf(bottom + t));
        DrawYLabel(canvas, yOf(bottom + t), Format(bottom + t, "0.0"));
    }
    for (const auto& tick : kProbabilityTicks) {
        const double x = ProbabilityAxisX(ReducedVariate(tick.probability));
        DrawXTick(canvas, x);
        DrawXLabel(canvas, x, tick.label);
    }
    DrawXTitle(canvas, kCumulativeProbabilityAxis);
    DrawYTitle(canvas, "Extreme lengths (" + unit + ")");

    if (!fit.curve.empty()) {
        std::vector<UserPoint> predicted, lower, upper;
        for (const auto& p : fit.curve) {
            const double x = ProbabilityAxisX(ReducedVariate(p.probability));
            predicted.push_back({x, yOf(p.predicted)});
            lower.push_back({x, yOf(p.lower)});
            upper.push_back({x, yOf(p.upper)});
        }
        canvas.SetPen(PenStyle::Dashed, 1);
        canvas.Polyline(lower, kBlack);
        canvas.Polyline(upper, kBlack);
        canvas.SetPen(PenStyle::Solid, 2);
        canvas.Polyline(predicted, kRed);
        canvas.SetPen(PenStyle::Solid, 1);
    }
    canvas.SetFill(kRed, FillStyle::Solid);
    for (int i = 0; i < fit.n; ++i) {
        canvas.Circle(ProbabilityAxisX(fit.reduced[i]), yOf(fit.extremes[i]), 0.8, kBlack);
    }
    canvas.SetFill(kWhite, FillStyle::Transparent);
}

ReportDescriptor LmaxReport(const LfqData& data, const GumbelFitResult& fit, std::time_t when) {
    auto rep = MakeReport("frmOutLmax", kLmaxReportTitle, data.speciesname, when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"Filename:", data.path});
    in.fields.push_back({"Species name:", data.speciesname});
    in.fields.push_back({"Unit of measurement:", data.unitOfMeasurement});
    in.fields.push_back({"Number of extremes:", std::to_string(fit.n)});
    auto& out = rep.addSection("Results", true);
    out.fields.push_back(NumberField("Location (u):", fit.u, "0.000"));
    out.fields.push_back(NumberField("Scale (beta):", fit.beta, "0.000"));
    const std::string unit = " " + data.unitOfMeasurement;
    out.fields.push_back(
        {"Predicted maximum length:", Format(fit.predicted, kLmaxValueFormat) + unit});
    out.fields.push_back(
        {"Lower limit:", Format(fit.lower, kLmaxValueFormat) + unit + " - " + kLowerLimitText});
    out.fields.push_back(
        {"Upper limit:", Format(fit.upper, kLmaxValueFormat) + unit + " - " + kUpperLimitText});
    return rep;
}

}  // namespace norvo
