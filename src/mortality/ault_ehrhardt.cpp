#include "mortality/ault_ehrhardt.h"

#include <cmath>

#include "base/checked.h"
#include "numerics/validators.h"

namespace norvo {
namespace {

// R - T at z; its sign change on the search bracket marks the root.
double RMinusT(const AultEhrhardtInput& in, double z) {
    const double loo = in.common.loo, k = in.common.k, lmean = in.common.lmean;
    const double lc = in.common.lc, lmax = in.lmax;
    const double r = Pow(Div(loo - lmax, loo - lc), z / k);
    const double t =
        Div((lc - lmean) * z + (loo - lmean) * k, (loo - lmean) * k + (lmax - lmean) * z);
    return CheckFinite(r - t);
}

std::optional<double> Bisect(const AultEhrhardtInput& in, double a, double b) {
    if (!(b > a)) return std::nullopt;
    double fa = RMinusT(in, a);
    const double fb = RMinusT(in, b);
    if (fa == 0) return a;
    if (fb == 0) return b;
    if ((fa < 0) == (fb < 0)) return std::nullopt;
    for (int i = 0; i < 200 && b - a > 1e-12 * std::max(1.0, std::fabs(b)); ++i) {
        const double m = 0.5 * (a + b);
        const double fm = RMinusT(in, m);
        if (fm == 0) return m;
        if ((fm < 0) == (fa < 0)) {
            a = m;
            fa = fm;
        } else {
            b = m;
        }
    }
    return 0.5 * (a + b);
}

}  // namespace

Outcome CheckAultEhrhardtInput(const AultEhrhardtInput& in) {
    Outcome s = CheckMeanLengthInput(in.common);
    if (s.ok() && (!InRange(in.lmax, 0.25f, 9999.0f) || in.lmax > in.common.loo))
        s.refuse(kLmaxLimitMessage, kInvalidInputTitle);
    return s;
}

double AultEhrhardtDistance(const AultEhrhardtInput& in, double z) {
    return std::fabs(RMinusT(in, z));
}

AultEhrhardtResult ComputeAultEhrhardt(const AultEhrhardtInput& in) {
    AultEhrhardtResult r;
    r.absorb(CheckAultEhrhardtInput(in));
    if (!r.ok()) return r;

    r.zBevertonHolt = BevertonHoltZ(in.common);
    const double z0 = kAultStartFraction * r.zBevertonHolt;
    // R = T holds trivially at z = 0, so d starts near 0. The first stage, with the wider
    // tolerance, lasts until d first reaches it; only from then on does a d below the final
    // tolerance end the search. Passing the Beverton and Holt value ends it at any stage.
    bool firstStage = true;
    for (int i = 1;; ++i) {
        if (i > kAultMaxTrials) ThrowOverflow();
        r.trials = i;
        r.z = z0 + i * kAultStep;
        const double d = AultEhrhardtDistance(in, r.z);
        if (firstStage) {
            if (d >= kAultTolerance * kAultFirstStageFactor) firstStage = false;
        } else if (d < kAultTolerance) {
            break;
        }
        if (r.z > r.zBevertonHolt) break;
    }
    r.exactRoot = Bisect(in, z0, r.zBevertonHolt);
    return r;
}

}  // namespace norvo
