#include "mortality/bh_mortality.h"

#include "base/checked.h"
#include "numerics/validators.h"

namespace norvo {
namespace {

Outcome Refused(const char* message) {
    Outcome o;
    o.refuse(message, kInvalidInputTitle);
    return o;
}

}  // namespace

Outcome CheckMeanLengthInput(const MeanLengthInput& in) {
    if (!InRange(in.loo, 0.25f, 9999.0f)) {
        return Refused(kLooLimitMessage);
    }
    if (!InRange(in.k, 0.01f, 10.0f)) {
        return Refused(kKLimitMessage);
    }
    if (!InRange(in.lmean, 0.25f, 9999.0f) || in.lmean > in.loo) {
        return Refused(kLmeanLimitMessage);
    }
    if (!InRange(in.lc, 0.25f, 9999.0f) || in.lc > in.lmean) {
        return Refused(kLcLimitMessage);
    }
    return {};
}

double BevertonHoltZ(const MeanLengthInput& in) {
    const double loo = in.loo, k = in.k, lmean = in.lmean, lc = in.lc;
    return Div(k * (loo - lmean), lmean - lc);
}

BhMortalityResult ComputeBhMortality(const MeanLengthInput& in) {
    BhMortalityResult r;
    r.absorb(CheckMeanLengthInput(in));
    if (!r.ok()) return r;
    r.z = R4(BevertonHoltZ(in));
    return r;
}

}  // namespace norvo
