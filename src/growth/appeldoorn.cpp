#include "growth/appeldoorn.h"

#include <algorithm>
#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "base/user_notice.h"
#include "growth/vbgf.h"

namespace norvo {
namespace {

// Columns of a GIN row.
constexpr int kDay1 = 1, kMonth1 = 2, kYear1 = 3, kLength1 = 4;
constexpr int kDay2 = 5, kMonth2 = 6, kYear2 = 7, kLength2 = 8;

bool ValidMonth(float month) {
    const double m = Fix(month);
    return m >= 1 && m <= 12;
}

float Years(float day, float month, float year) {
    const double days =
        static_cast<double>(year) * 365 + MonthStart(static_cast<int>(Fix(month))) + day;
    return R4(days / 365);
}

}  // namespace

float LargestTaggedLength(const GinData& data) {
    float largest = 0;
    for (const GinRow& row : data.rows) largest = std::max(largest, row[kLength1]);
    return largest;
}

ApConstraints DefaultAppeldoornConstraints(const GinData& data) {
    float recaptured = 0;
    for (const GinRow& row : data.rows) recaptured = std::max(recaptured, row[kLength2]);
    const float tagged = LargestTaggedLength(data);
    const double top = std::max(recaptured, tagged);
    ApConstraints c{};
    c[kApLoo] = {CeilTwoDecimals(tagged), CeilTwoDecimals(1.1 * top), CeilTwoDecimals(3 * top)};
    c[kApK] = {0.01f, 1.0f, 10.0f};
    c[kApC] = {0.0f, 0.5f, 1.0f};
    c[kApWP] = {0.0f, 0.5f, 1.0f};
    return c;
}

Outcome CheckAppeldoornConstraints(const ApConstraints& c, float largestTagged) {
    Outcome out;
    if (c[kApLoo].min < largestTagged)
        out.refuse(kApLooBelowTaggedText, kApInvalidInputTitle);
    else if (!c[kApLoo].ordered())
        out.refuse(kApLooOrderText, kApInvalidInputTitle);
    else if (!c[kApK].ordered())
        out.refuse(kApKOrderText, kApInvalidInputTitle);
    else if (!c[kApC].ordered())
        out.refuse(kApCOrderText, kApInvalidInputTitle);
    else if (!c[kApWP].ordered())
        out.refuse(kApWPOrderText, kApInvalidInputTitle);
    return out;
}

ApTable AppeldoornTable(const GinData& data) {
    ApTable table;
    for (const GinRow& row : data.rows) {
        if (!ValidMonth(row[kMonth1]) || !ValidMonth(row[kMonth2])) {
            table.rows.clear();
            table.refuse(kApBadDateText, kInvalidDataTitle);
            return table;
        }
        MarquardtObs obs;
        obs.x = Years(row[kDay2], row[kMonth2], row[kYear2]);
        obs.tb = Years(row[kDay1], row[kMonth1], row[kYear1]);
        obs.y = row[kLength2] - row[kLength1];
        obs.length = row[kLength1];
        table.rows.push_back(obs);
    }
    return table;
}

AppeldoornRun RunAppeldoorn(const GinData& data, const AppeldoornOptions& options) {
    AppeldoornRun run;
    run.constraints = options.constraints;
    run.absorb(CheckAppeldoornConstraints(options.constraints, LargestTaggedLength(data)));
    if (!run.ok()) return run;
    ApTable table = AppeldoornTable(data);
    run.absorb(table);
    if (!run.ok()) return run;
    run.table = std::move(table.rows);

    const ApConstraints& c = options.constraints;
    const auto freeCount =
        std::count_if(c.begin(), c.end(), [](const ParamConstraint& p) { return !p.fixed(); });
    if (static_cast<long>(run.table.size()) <= freeCount) {
        run.refuse(kMoreParamsText, kInvalidDataTitle);
    } else {
        MarquardtOptions mo;
        mo.model = kMarquardtAppeldoorn;
        mo.progress = options.progress;
        for (const ParamConstraint& p : c) {
            mo.start.push_back(p.start);
            mo.lower.push_back(p.min);
            mo.upper.push_back(p.max);
        }
        run.fit = MarquardtFit(run.table, mo);
        run.fitted = true;
        run.remarks = FitRemarks(run.fit);
        for (size_t j = 0; j < kApParams; ++j) {
            const float se = run.fit.stdErr[j], b = run.fit.b[j];
            if (se != 0 && b != 0) run.cv[j] = static_cast<double>(se) / b;
        }
    }
    // The command closes with this notice whenever the checks have passed.
    run.note(kApSuccessText, kApSuccessTitle, Icon::Information);
    return run;
}

double AppeldoornCurve(const MarquardtResult& fit, double t) {
    const double loo = fit.b[kApLoo], k = fit.b[kApK], c = fit.b[kApC];
    const double ts = fit.b[kApWP] - 0.5;
    const double s =
        (k * c / kCurveTwoPi) * (std::sin(kCurveTwoPi * (t - ts)) - std::sin(kCurveTwoPi * -ts));
    return CheckFinite(loo * (1 - Exp(-k * t - s)));
}

}  // namespace norvo
