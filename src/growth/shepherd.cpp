#include "growth/shepherd.h"

#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "base/fault.h"
#include "growth/elefan_lfq.h"
#include "growth/vbgf.h"
#include "mortality/length_samples.h"

namespace norvo {

namespace {

// These very constants, as the score was published with them.
constexpr double kPi = 3.14159265358979;
constexpr double kWavePeriod = 6.28318530717958;

// Years the starting-length walk may step before it is taken for a loop without end (a K so
// small that the curve never gets anywhere).
constexpr int kMaxStartSteps = 10'000'000;

}  // namespace

ShepherdData ShepherdDataOf(const ElefanInput& in) {
    ShepherdData d;
    d.nS = in.nS;
    d.nC = in.nC;
    d.firstMid = in.firstMid;
    d.ci = in.ci;
    d.freq = in.freq;
    const double lowest = static_cast<double>(in.firstMid) - in.ci / 2.0;
    for (int k = 1; k <= in.nC + 1; ++k) d.boundary.push_back(R4(lowest + (k - 1) * in.ci));
    for (int s = 0; s < in.nS; ++s)
        d.sampleTime.push_back(
            SampleTime(in.day[static_cast<size_t>(s)], in.month[static_cast<size_t>(s)]));
    return d;
}

Outcome CheckShepherdFile(const LfqData& data) {
    return CheckSampleFrequencies(data, CcTransform::Raw);
}

ShepherdData ShepherdDataOf(const LfqData& data) {
    return ShepherdDataOf(ElefanInputFromLfq(data));
}

double ShepherdScoreParts::phase() const {
    return std::fabs(s2) > std::fabs(s1) ? kShepherdPhase2 : kShepherdPhase1;
}

ShepherdScoreParts ShepherdScoreOf(const ShepherdData& d, float loo, float k) {
    const double L = loo, K = k;
    std::vector<double> tb(static_cast<size_t>(d.nC) + 2, 0.0);
    auto pass = [&](double phase) {
        double sum = 0;
        const double lz = (1 - Exp(-K * phase)) * L;
        for (int c = 1; c <= d.nC + 1; ++c) {
            const double b = d.boundary[static_cast<size_t>(c - 1)];
            if (b < L) tb[static_cast<size_t>(c)] = Div(1, K) * Ln(Div(L - lz, L - b));
        }
        for (int c = 1; c <= d.nC; ++c) {
            if (!(d.boundary[static_cast<size_t>(c)] < L)) continue;
            const double lo = tb[static_cast<size_t>(c)], hi = tb[static_cast<size_t>(c + 1)];
            const double dT = hi - lo;
            const double tm = (hi + lo) * 0.5;
            const double g = dT > 0 ? std::sin(dT * kPi) / (dT * kPi) : 0.0;
            for (int s = 1; s <= d.nS; ++s) {
                const double u =
                    g * std::cos((tm - d.sampleTime[static_cast<size_t>(s - 1)]) * kWavePeriod);
                sum += Sqrt(d.frequency(s, c)) * u * dT;
            }
        }
        return CheckFinite(sum);
    };
    ShepherdScoreParts p;
    p.s1 = pass(kShepherdPhase1);
    p.s2 = pass(kShepherdPhase2);
    p.score = R4(Sqrt(CheckFinite(p.s1 * p.s1 + p.s2 * p.s2)));
    return p;
}

float ShepherdScore(const ShepherdData& d, float loo, float k) {
    return ShepherdScoreOf(d, loo, k).score;
}

std::optional<float> ShepherdStartLength(const ShepherdData& d, float loo, float k, double phase) {
    if (d.nS < 1 || d.nC < 1) return std::nullopt;
    const double top = d.topMid();
    if (!(loo > top)) return std::nullopt;
    const double L = loo, K = k;
    auto length = [&](double t) { return (1 - Exp(-K * (t - phase))) * L; };
    double t = d.sampleTime[0] - 1.0;
    int steps = 0;
    auto step = [&] {
        if (++steps > kMaxStartSteps) ThrowOverflow();
    };
    while (length(t) < top) {
        step();
        t += 1;
    }
    if (phase == kShepherdPhase2) t -= 1;
    while (length(t - 1) >= d.firstMid) {
        step();
        t -= 1;
    }
    return R4(Int(length(t) * 10) / 10);
}

ShepherdDefaults ReadDefaultsShepherd(double largestMl) {
    ShepherdDefaults d;
    d.lmax = R4(largestMl);
    const double lmax = d.lmax;
    d.surfaceLooFrom = {lmax / 2, "0.00"};
    d.surfaceLooTo = {R4(lmax * 1.5), kSinglePattern};
    d.kscanLoo = {R4(lmax * 1.05), kSinglePattern};
    d.surfaceKFrom = {0.01, kSinglePattern};
    d.surfaceKTo = {10, kSinglePattern};
    return d;
}

}  // namespace norvo
