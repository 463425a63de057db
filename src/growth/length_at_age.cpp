#include "growth/length_at_age.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "base/format.h"
#include "base/user_notice.h"

namespace norvo {
namespace {

// Rows of the constraint table in the order of the fit's parameters.
constexpr std::array<LaaParam, 3> kPlainOrder = {kLaaLoo, kLaaK, kLaaT0};
constexpr std::array<LaaParam, 5> kSeasonalOrder = {kLaaLoo, kLaaK, kLaaT0, kLaaC, kLaaWP};

constexpr float kLooMaxLimit = 99999.0f;
constexpr float kKMinLimit = 0.01f;
constexpr float kKMaxLimit = 10.0f;
constexpr float kT0MinLimit = -10.0f;

// Index of a constraint row in the fit; -1 when the fit leaves it out.
int FitIndex(int model, LaaParam p) {
    if (model == kMarquardtVbgf) {
        for (size_t i = 0; i < kPlainOrder.size(); ++i)
            if (kPlainOrder[i] == p) return static_cast<int>(i);
        return -1;
    }
    for (size_t i = 0; i < kSeasonalOrder.size(); ++i)
        if (kSeasonalOrder[i] == p) return static_cast<int>(i);
    return -1;
}

}  // namespace

float LaaLargestLength(const LaaData& data) {
    float largest = 0;
    for (const auto& row : data.rows) largest = std::max(largest, row[1]);
    return largest;
}

LaaConstraints DefaultLaaConstraints(const LaaData& data) {
    const double largest = LaaLargestLength(data);
    LaaConstraints c{};
    c[kLaaLoo] = {CeilTwoDecimals(largest), CeilTwoDecimals(1.1 * largest),
                  CeilTwoDecimals(3 * largest)};
    c[kLaaK] = {0.01f, 1.0f, 10.0f};
    return c;
}

Outcome CheckLaaRows(const LaaData& data) {
    Outcome out;
    if (static_cast<int>(data.rows.size()) < kLaaMinRows)
        out.refuse(kLaaInsufficientText, kLaaInsufficientTitle);
    return out;
}

Outcome ValidateLaaConstraints(const LaaConstraints& c, float largestLength) {
    bool ok = std::all_of(c.begin(), c.end(), [](const ParamConstraint& p) { return p.ordered(); });
    ok = ok && c[kLaaLoo].start >= largestLength && c[kLaaLoo].max < kLooMaxLimit;
    ok = ok && c[kLaaK].min >= kKMinLimit && c[kLaaK].max <= kKMaxLimit;
    ok = ok && c[kLaaC].min >= 0 && c[kLaaC].max <= 1;
    ok = ok && c[kLaaWP].min >= 0 && c[kLaaWP].max <= 1;
    ok = ok && c[kLaaT0].min >= kT0MinLimit;
    Outcome out;
    if (!ok) out.refuse(kLaaInvalidInputText, kInvalidDataTitle);
    return out;
}

bool LaaAsksWeights(const LaaData& data) {
    return std::any_of(data.rows.begin(), data.rows.end(),
                       [](const auto& row) { return row[2] != 1.0f; });
}

double LaaAgeDivisor(const std::string& unitOfAge) {
    const char first =
        unitOfAge.empty()
            ? ' '
            : static_cast<char>(std::toupper(static_cast<unsigned char>(unitOfAge[0])));
    if (first == 'M') return 30;
    if (first == 'D') return 365;
    return 1;
}

float LaaRun::estimate(LaaParam p) const {
    const int i = FitIndex(model, p);
    return i < 0 ? constraints[p].start : fit.b[static_cast<size_t>(i)];
}

float LaaRun::stdErr(LaaParam p) const {
    const int i = FitIndex(model, p);
    return i < 0 ? 0.0f : fit.stdErr[static_cast<size_t>(i)];
}

std::string LaaRun::stars(LaaParam p) const {
    const int i = FitIndex(model, p);
    return i < 0 ? std::string(kMqConstant) : fit.stars[static_cast<size_t>(i)];
}

std::string LaaRun::caption(char decimalSeparator) const {
    auto v = [&](LaaParam p) { return FormatLocal(estimate(p), "#0.00", decimalSeparator); };
    std::string text = "Parameters: Loo=" + v(kLaaLoo) + " ; K=" + v(kLaaK);
    if (model == kMarquardtSeasonal) text += " ; C=" + v(kLaaC) + " ; WP=" + v(kLaaWP);
    return text + " ;and to=" + v(kLaaT0);
}

LaaRun ComputeLAA(const LaaData& data, const LaaOptions& options) {
    LaaRun run;
    run.constraints = options.constraints;
    run.absorb(CheckLaaRows(data));
    if (!run.ok()) return run;
    run.absorb(ValidateLaaConstraints(options.constraints, LaaLargestLength(data)));
    if (!run.ok()) return run;

    // Weights as whole repetitions; a decimal weight makes all of them ten times larger.
    LaaWeighting& w = run.weights;
    w.asked = LaaAsksWeights(data);
    w.used = w.asked && options.useWeights;
    if (w.used)
        w.times10 = std::any_of(data.rows.begin(), data.rows.end(),
                                [](const auto& row) { return row[2] != Int(row[2]); });
    size_t total = 0;
    for (const auto& row : data.rows) {
        int times = 1;
        if (w.used) {
            const float weight = w.times10 ? R4(static_cast<double>(row[2]) * 10) : row[2];
            times = std::max(0, static_cast<int>(std::min(Int(weight), 2e9)));
        }
        w.repetitions.push_back(times);
        total += static_cast<size_t>(times);
    }
    if (total > options.maxWorkRows) {
        run.refuse(kLaaMemoryText, kInvalidDataTitle);
        return run;
    }
    w.ageDivisor = LaaAgeDivisor(data.unitOfAge);
    run.table.reserve(total);
    for (size_t i = 0; i < data.rows.size(); ++i) {
        const auto& row = data.rows[i];
        const float age = w.ageDivisor == 1 ? row[0] : R4(row[0] / w.ageDivisor);
        for (int r = 0; r < w.repetitions[i]; ++r) run.table.push_back({age, row[1]});
    }

    const LaaConstraints& c = options.constraints;
    const auto freeCount =
        std::count_if(c.begin(), c.end(), [](const ParamConstraint& p) { return !p.fixed(); });
    if (freeCount >= static_cast<long>(run.table.size())) {
        run.refuse(kMoreParamsText, kInvalidDataTitle);
        return run;
    }

    const bool plain =
        c[kLaaC].fixed() && c[kLaaC].min == 0 && c[kLaaWP].fixed() && c[kLaaWP].min == 0;
    const int model = plain ? kMarquardtVbgf : kMarquardtSeasonal;
    MarquardtOptions mo;
    mo.model = model;
    mo.progress = options.progress;
    auto add = [&](LaaParam p) {
        run.names.push_back(kLaaParamNames[p]);
        mo.start.push_back(c[p].start);
        mo.lower.push_back(c[p].min);
        mo.upper.push_back(c[p].max);
    };
    if (plain)
        for (LaaParam p : kPlainOrder) add(p);
    else
        for (LaaParam p : kSeasonalOrder) add(p);
    run.fit = MarquardtFit(run.table, mo);
    run.model = model;
    run.remarks = FitRemarks(run.fit);
    return run;
}

double LaaCurve(const LaaRun& run, double age) {
    const double loo = run.estimate(kLaaLoo), k = run.estimate(kLaaK), t0 = run.estimate(kLaaT0);
    double s = 0;
    if (run.model == kMarquardtSeasonal) {
        const double cc = run.estimate(kLaaC), ts = run.estimate(kLaaWP) - 0.5;
        s = (k * cc / kCurveTwoPi) *
            (std::sin(kCurveTwoPi * (age - ts)) - std::sin(kCurveTwoPi * (t0 - ts)));
    }
    return CheckFinite(loo * (1 - Exp(-k * (age - t0) - s)));
}

}  // namespace norvo
