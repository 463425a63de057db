#include "numerics/regression_tool.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

#include "base/checked.h"
#include "base/format.h"

namespace norvo {
namespace {

bool KnownForm(int form) {
    return form >= 0 && form < kRegressFormCount;
}

// "Pair 3 (X = 1.000, Y = 0.000) cannot be transformed: " + why.
std::string PairNotice(size_t row, float x, float y, const char* why, char sep) {
    return kRegressPairPrefix + std::to_string(row) + " (X = " + FormatLocal(x, "#0.000", sep) +
           ", Y = " + FormatLocal(y, "#0.000", sep) + ")" + kRegressPairCannot + why;
}

// v ^ c, or the reason why a pair cannot be raised to c.
const char* PowerProblem(double v, double c) {
    if (v < 0.0 && c != std::floor(c)) return kRegressWhyFractional;
    if (v == 0.0 && c < 0.0) return kRegressWhyZeroNegative;
    return nullptr;
}

// The reason why a form cannot transform the pair, or null when it can.
const char* TransformProblem(int form, double x, double y, double c) {
    switch (form) {
        case kFormLogLog:
            return x > 0.0 && y > 0.0 ? nullptr : kRegressWhyLog;
        case kFormLnY:
            return y > 0.0 ? nullptr : kRegressWhyLog;
        case kFormLogX:
            return x > 0.0 ? nullptr : kRegressWhyLog;
        case kFormRatio:
            return x != 0.0 ? nullptr : kRegressWhyXZero;
        case kFormLnOneMinus:
            if (c == 0.0) return kRegressWhyCZero;
            return 1.0 - y / c > 0.0 ? nullptr : kRegressWhyOneMinus;
        case kFormPowerY:
            return PowerProblem(y, c);
        case kFormPowerX:
            return PowerProblem(x, c);
        default:
            return nullptr;
    }
}

}  // namespace

bool FormNeedsConstant(int form) {
    return form == kFormLnOneMinus || form == kFormPowerY || form == kFormPowerX;
}

std::string FunctionTitle(int form) {
    if (!KnownForm(form)) throw SubscriptFault("cmbRegress");
    return std::string(kRegressFunctionPrefix) + kRegressForms[static_cast<size_t>(form)];
}

Outcome CheckConstant(int form, double c, std::span<const float> y, char decimalSeparator) {
    Outcome out;
    if (!FormNeedsConstant(form)) return out;
    if (!std::isfinite(c) || std::fabs(c) > FLT_MAX) {
        out.refuse(kRegressConstantNotNumber, kRegressInvalidInputTitle, Icon::Warning);
        return out;
    }
    const float c32 = static_cast<float>(c);
    if (form == kFormLnOneMinus) {
        // Compared in 32 bits, as both are stored.
        const float largest = y.empty() ? 0.0f : *std::max_element(y.begin(), y.end());
        if (!(c32 > largest))
            out.refuse(kRegressConstantAbove + FormatLocal(largest, "#0.000", decimalSeparator) +
                           kRegressTryAgain,
                       kRegressInvalidInputTitle, Icon::Warning);
    } else if (!(c32 < kRegressConstantLimit)) {
        out.refuse(kRegressConstantBelow32, kRegressInvalidInputTitle, Icon::Warning);
    }
    return out;
}

bool AxisHasLog(int form, bool yAxis) {
    switch (form) {
        case kFormLogLog:
            return true;
        case kFormLnY:
        case kFormLnOneMinus:
            return yAxis;
        case kFormLogX:
            return !yAxis;
        default:
            return false;
    }
}

std::string AxisTitle(int form, bool yAxis, const std::string& title) {
    return AxisHasLog(form, yAxis) ? "log(" + title + ")" : title;
}

bool AxisHasInverse(int form, bool yAxis) {
    return form == kFormLogLog || (yAxis && (form == kFormLnY || form == kFormLnOneMinus));
}

double AxisNumber(int form, bool yAxis, double v) {
    if (!AxisHasInverse(form, yAxis)) return v;
    return form == kFormLogLog ? Pow(10.0, v) : Exp(v);
}

TransformedPairs TransformPairs(int form, std::span<const float> x, std::span<const float> y,
                                float c, char decimalSeparator) {
    TransformedPairs out;
    if (!KnownForm(form)) throw SubscriptFault("cmbRegress");
    if (x.size() != y.size()) throw SubscriptFault("XYF_Measures");
    out.x.reserve(x.size());
    out.y.reserve(y.size());
    const double cd = c;
    for (size_t i = 0; i < x.size(); ++i) {
        const double xv = x[i], yv = y[i];
        if (const char* why = TransformProblem(form, xv, yv, cd)) {
            out.x.clear();
            out.y.clear();
            out.refuse(PairNotice(i + 1, x[i], y[i], why, decimalSeparator), kInvalidDataTitle);
            return out;
        }
        double tx = xv, ty = yv;
        switch (form) {
            case kFormLogLog:
                tx = Log10(xv);
                ty = Log10(yv);
                break;
            case kFormLnY:
                ty = Ln(yv);
                break;
            case kFormLogX:
                tx = Ln(xv);
                break;
            case kFormRatio:
                ty = Div(yv, xv);
                break;
            case kFormLnOneMinus:
                ty = Ln(1.0 - Div(yv, cd));
                break;
            case kFormPowerY:
                ty = Pow(yv, cd);
                break;
            case kFormPowerX:
                tx = Pow(xv, cd);
                break;
            default:
                break;
        }
        out.x.push_back(R4(tx));
        out.y.push_back(R4(ty));
    }
    return out;
}

RegressRun RunRegression(std::span<const float> x, std::span<const float> y,
                         const RegressOptions& options) {
    RegressRun run;
    run.form = options.form;
    if (!KnownForm(options.form)) {
        run.refuse(kRegressUnknownForm + std::to_string(options.form) + ".", kInvalidDataTitle);
        return run;
    }
    float c = 0;
    if (FormNeedsConstant(options.form)) {
        run.absorb(CheckConstant(options.form, options.c, y, options.decimalSeparator));
        if (!run.ok()) return run;
        c = static_cast<float>(options.c);
        run.c = c;
    }
    if (x.size() < 2) {
        run.refuse(kRegressTooFewPairs, kInvalidDataTitle);
        return run;
    }
    if (options.form == kFormFunctional && x.size() > 32768) {
        run.refuse(kRegressTooManyPairs, kInvalidDataTitle);
        return run;
    }
    TransformedPairs pairs = TransformPairs(options.form, x, y, c, options.decimalSeparator);
    run.absorb(pairs);
    if (!run.ok()) return run;
    run.x = std::move(pairs.x);
    run.y = std::move(pairs.y);
    const auto last = static_cast<int32_t>(run.x.size()) - 1;
    if (options.form == kFormFunctional)
        FunctionalRegression(run.x, run.y, 0, static_cast<int16_t>(last), run.fit);
    else
        LinearRegression(run.x, run.y, 0, last, run.fit);
    return run;
}

}  // namespace norvo
