#include "mortality/catch_curve_run.h"

#include <charconv>
#include <string>
#include <utility>

#include "base/format.h"
#include "mortality/pauly_m.h"
#include "numerics/text_convert.h"

namespace norvo {

namespace {

Outcome Refused(const char* title, const std::string& text) {
    Outcome o;
    o.refuse(text, title, Icon::Information);
    return o;
}

}  // namespace

Outcome ChoosePoints(CatchCurveRun& run, int first, int last) {
    if (first > last) std::swap(first, last);
    if (first < run.firstClass || last > run.lastClass)
        return Refused(kCcNoSelectionTitle, kCcNoSelectionText);
    if (last - first < 2) return Refused(kCcInvalidActionTitle, kCcTooFewPickedText);
    run.firstPoint = first;
    run.lastPoint = last;
    FitPoints(run);
    return {};
}

Outcome CheckExtrapolation(const CatchCurveRun& run) {
    if (!run.fitted()) return Refused(kCcSelectingTitle, kCcSelectingText);
    if (run.seasonal)
        return Refused(kCcInvalidActionTitle, SeasonalExtrapolationText(CatchCurveZ(run)));
    return {};
}

TemperatureMortality MortalityAtTemperature(double t, const GrowthParams& growth) {
    TemperatureMortality r;
    r.absorb(CheckTemperature(t));
    if (!r.ok()) return r;
    r.t = PaulyTemperature(t);
    r.m = PaulyM(growth.loo, growth.k, r.t);
    return r;
}

Extrapolation ExtrapolateWith(const CatchCurveRun& run, double z, double m, double t) {
    const Outcome check = CheckMortalities(z, m);
    if (!check.ok()) {
        Extrapolation refused;
        refused.absorb(check);
        return refused;
    }
    Extrapolation e = ExtrapolateProb(run, z, m, t);
    e.absorb(check);
    return e;
}

namespace {

// Format writes a point whatever the locale, so the text is read back locale-free.
double AsShown(double v, const char* pattern) {
    const std::string text = Format(v, pattern);
    double shown = 0;
    std::from_chars(text.data(), text.data() + text.size(), shown);
    return shown;
}

}  // namespace

double AsShownInDialog(double v) {
    return AsShown(v, "0.000");
}

double ZAsShownInDialog(double z) {
    return AsShown(z, "0.00");
}

CatchCurveRun RunCatchCurve(const LfqData& data, const CatchCurveOptions& options) {
    const Outcome growthCheck = ValidateGrowthParams(options.growth);
    if (!growthCheck.ok()) {
        CatchCurveRun refused;
        refused.absorb(growthCheck);
        refused.growthRefused = true;
        return refused;
    }
    CatchCurveRun run = CatchCurveMethod(data, options);
    if (!run.ok()) {
        run.growthRefused = data.smallestMl > run.growth.loo;
        return run;
    }
    ComputeDefaultPoints(run);
    run.defaultPoints = {run.firstPoint, run.lastPoint};
    if (options.points) {
        run.absorb(ChoosePoints(run, options.points->first, options.points->last));
        if (!run.ok()) return run;
    } else if (run.fitted()) {
        FitPoints(run);
    }
    if (!options.extrapolate) return run;

    run.absorb(CheckExtrapolation(run));
    if (!run.ok()) return run;
    const MortalityOptions& mo = *options.extrapolate;
    const double z = mo.z.value_or(ZAsShownInDialog(CatchCurveZ(run)));
    double m = mo.m.value_or(0), t = 0;
    if (mo.temperature) {
        const TemperatureMortality tm = MortalityAtTemperature(*mo.temperature, run.growth);
        run.absorb(tm);
        if (!run.ok()) return run;
        // The dialogue rewrites the temperature and M with three decimals.
        t = AsShownInDialog(tm.t);
        if (!mo.m) m = AsShownInDialog(tm.m);
    }
    Extrapolation e = ExtrapolateWith(run, z, m, t);
    run.absorb(e);
    if (e.ok()) run.extrapolation = std::move(e);
    return run;
}

}  // namespace norvo
