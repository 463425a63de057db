#include "growth/powell_wetherall.h"

#include "base/checked.h"
#include "mortality/length_samples.h"

namespace norvo {

namespace {

// r below this counts as -0.999 in the sign test, so that a perfect line is not taken for a
// failed one.
constexpr double kPwPerfectR = -0.9993;

}  // namespace

PowellWetherallData PowellWetherallMethod(const LfqData& data, const PowellWetherallOptions& o) {
    PowellWetherallData d;
    if (!AnySampleSelected(o.selected, data.noOfSamples)) {
        d.refuse(kPwNoDataText, kPwNoDataTitle, Icon::Information);
        return d;
    }
    d.absorb(CheckSampleFrequencies(data, o.transform));
    if (!d.ok()) return d;

    // The header keeps the first midlength and the class width as 32-bit numbers.
    const float firstMid = static_cast<float>(data.smallestMl);
    const float width = static_cast<float>(data.classInterval);
    d.smallestMl = firstMid;
    d.classInterval = width;
    const int nC = data.noOfClasses;
    d.nC = nC;
    d.pooled = PoolSelectedSamples(PreparedFrequencies(data, o.transform, o.temporal), o.selected);
    d.pooled.resize(static_cast<size_t>(nC) + 1, 0.f);

    int last = nC;
    while (last > 0 && d.pooled[last] == 0) --last;
    d.lastClass = last;

    const size_t size = static_cast<size_t>(nC) + 1;
    d.cumF.assign(size, 0.f);
    d.cutOff.assign(size, 0.f);
    d.meanAbove.assign(size, 0.f);
    if (last == 0) return d;
    d.cumF[last] = d.pooled[last];
    for (int i = last - 1; i >= 1; --i)
        d.cumF[i] = R4(d.cumF[i + 1] + static_cast<double>(d.pooled[i]));
    const double lower = firstMid - width / 2.0;
    for (int i = 1; i <= last; ++i) {
        d.cutOff[i] = R4(lower + (i - 1) * static_cast<double>(width));
        float sum = 0;
        for (int j = i; j <= last; ++j) sum = R4(sum + d.pooled[j] * d.midlength(j));
        d.meanAbove[i] = R4(Div(sum, d.cumF[i]) - d.cutOff[i]);
    }
    return d;
}

PowellWetherallFit PowellWetherallFitFrom(const PowellWetherallData& d, int firstPoint) {
    PowellWetherallFit f;
    if (firstPoint < 1 || d.lastClass - firstPoint + 1 < 3) {
        f.refuse(kPwTooFewText, kPwSelectionTitle, Icon::Information);
        return f;
    }
    f.firstPoint = firstPoint;
    f.lastPoint = d.lastClass;
    for (int i = firstPoint; i <= d.lastClass; ++i) {
        const double x = d.cutOff[i], y = d.meanAbove[i], w = d.cumF[i];
        f.sw = R4(f.sw + w);
        f.sx = R4(f.sx + w * x);
        f.sy = R4(f.sy + w * y);
        f.sxx = R4(f.sxx + w * x * x);
        f.syy = R4(f.syy + w * y * y);
        f.sxy = R4(f.sxy + w * x * y);
    }
    const double sw = f.sw, sx = f.sx, sy = f.sy;
    f.meanX = R4(Div(sx, sw));
    f.meanY = R4(Div(sy, sw));
    f.cxy = R4(f.sxy - Div(sx * sy, sw));
    f.cxx = R4(f.sxx - Div(sx * sx, sw));
    f.cyy = R4(f.syy - Div(sy * sy, sw));
    f.b = R4(Div(f.cxy, f.cxx));
    f.a = R4(f.meanY - static_cast<double>(f.meanX) * f.b);
    // A negative Cxx * Cyy is an invalid root, a zero one a division by zero.
    f.r = R4(Div(f.cxy, Sqrt(static_cast<double>(f.cxx) * f.cyy)));

    const double rTest = f.r < kPwPerfectR ? -0.999 : f.r;
    if (rTest >= 0) {
        f.note(kPwPositiveSlopeText, kPwSelectionTitle, Icon::Information);
        return f;
    }
    const double b = f.b;
    f.loo = Div(f.a, -b);
    if (b != -1) f.zk = Div(b + 1, -b);
    return f;
}

std::string PwFunctionText(const std::string& a, const std::string& b) {
    return "Y =" + a + " + (" + b + " )* X";
}

}  // namespace norvo
