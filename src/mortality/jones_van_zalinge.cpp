#include "mortality/jones_van_zalinge.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "base/basic.h"
#include "base/checked.h"
#include "mortality/length_samples.h"
#include "numerics/validators.h"

namespace norvo {

std::string JvzEmptyTopText(int first, int last) {
    const std::string which =
        first == last ? fmt::format("Class {} at the top of the file holds", first)
                      : fmt::format("Classes {} to {} at the top of the file hold", first, last);
    return which +
           " no fish in the chosen samples, so the cumulative catch there is 0 and has no "
           "logarithm. Please cut the empty classes from the file and compute again.";
}

Outcome CheckJonesVanZalingeInput(const LfqData& data, float loo, float k) {
    Outcome o;
    if (!(loo > 0)) {
        o.refuse(kCcInvalidLooText, kValidatorTitle, Icon::Warning);
    } else if (!(k > 0)) {
        o.refuse(kCcInvalidKText, kValidatorTitle, Icon::Warning);
    } else {
        // Summed from the header's 32-bit values.
        const float least =
            static_cast<float>(data.smallestMl) + 3 * static_cast<float>(data.classInterval);
        if (!(loo > least)) o.refuse(kJvzTooSmallText, kJvzTooSmallTitle, Icon::Information);
    }
    return o;
}

JonesVanZalingeRun JonesVanZalingeMethod(const LfqData& data, const JonesVanZalingeOptions& o) {
    JonesVanZalingeRun run;
    run.loo = o.loo;
    run.k = o.k;
    if (!AnySampleSelected(o.selected, data.noOfSamples)) {
        run.refuse(kJvzNoDataText, kJvzNoDataTitle, Icon::Information);
        return run;
    }
    run.absorb(CheckSampleFrequencies(data, o.transform));
    if (!run.ok()) return run;

    const int nC = data.noOfClasses;
    run.nC = nC;
    const size_t size = static_cast<size_t>(nC) + 1;
    run.pooled =
        PoolSelectedSamples(PreparedFrequencies(data, o.transform, o.temporal), o.selected);
    run.pooled.resize(size, 0.f);
    run.cumCatch.assign(size, 0.f);
    run.logCum.assign(size, 0.f);
    run.logLoo.assign(size, 0.f);
    if (nC < 1) return run;
    run.cumCatch[nC] = run.pooled[nC];
    for (int i = nC - 1; i >= 1; --i)
        run.cumCatch[i] = R4(static_cast<double>(run.pooled[i]) + run.cumCatch[i + 1]);

    // Every class takes its logarithm, above Loo too: empty top classes stop the run here.
    int empty = 0;
    for (int i = 1; i <= nC; ++i)
        if (run.cumCatch[i] == 0 && empty == 0) empty = i;
    if (empty > 0) {
        run.refuse(JvzEmptyTopText(empty, nC), kJvzEmptyTopTitle, Icon::Information);
        return run;
    }
    for (int i = 1; i <= nC; ++i) run.logCum[i] = R4(Ln(run.cumCatch[i]));

    const double firstMid = static_cast<float>(data.smallestMl);
    const double width = static_cast<float>(data.classInterval);
    for (int i = 1; i <= nC; ++i) {
        const double lowerLimit = (firstMid - width / 2) + (i - 1) * width;
        const double arg = static_cast<double>(o.loo) - lowerLimit;
        if (!(arg > 0)) break;
        run.logLoo[i] = R4(Ln(arg));
        run.usable = i;
    }
    return run;
}

Outcome JvzChoosePoints(JonesVanZalingeRun& run, int first, int last) {
    Outcome o;
    if (first > last) std::swap(first, last);
    if (first < 1 || last > run.usable) {
        o.refuse(kCcNoSelectionText, kCcNoSelectionTitle, Icon::Information);
        return o;
    }
    if (last - first + 1 < 3) {
        o.refuse(kJvzTooFewText, kJvzSelectionTitle, Icon::Information);
        return o;
    }
    run.first = first;
    run.last = last;
    LinearRegression(run.logLoo, run.logCum, first, last, run.fit);
    return o;
}

JonesVanZalingeRun RunJonesVanZalinge(const LfqData& data, const JonesVanZalingeOptions& o) {
    const Outcome check = CheckJonesVanZalingeInput(data, o.loo, o.k);
    if (!check.ok()) {
        JonesVanZalingeRun refused;
        refused.absorb(check);
        refused.growthRefused = true;
        return refused;
    }
    JonesVanZalingeRun run = JonesVanZalingeMethod(data, o);
    if (run.ok() && o.points) run.absorb(JvzChoosePoints(run, o.points->first, o.points->last));
    return run;
}

JvzScale JonesVanZalingeScale(const JonesVanZalingeRun& run) {
    JvzScale s;
    double yMax = 0, xMax = 0;
    for (int i = 1; i <= run.usable; ++i) {
        yMax = std::max<double>(yMax, run.logCum[i]);
        xMax = std::max<double>(xMax, run.logLoo[i]);
    }
    s.yTop = Int(yMax) + 1;
    s.xTop = Int(xMax) + 1;
    s.yScale = Div(70, s.yTop);
    s.xScale = Div(75, s.xTop);
    return s;
}

}  // namespace norvo
