#include "mortality/bh_mortality.h"

#include "base/checked.h"
#include "numerics/validators.h"

namespace norvo {

CalcStatus CheckMeanLengthInput(const MeanLengthInput& in) {
    if (!InRange(in.loo, 0.25f, 9999.0f)) {
        return CalcStatus::Refused(kInvalidInputTitle, kLooLimitMessage);
    }
    if (!InRange(in.k, 0.01f, 10.0f)) {
        return CalcStatus::Refused(kInvalidInputTitle, kKLimitMessage);
    }
    if (!InRange(in.lmean, 0.25f, 9999.0f) || in.lmean > in.loo) {
        return CalcStatus::Refused(kInvalidInputTitle, kLmeanLimitMessage);
    }
    if (!InRange(in.lc, 0.25f, 9999.0f) || in.lc > in.lmean) {
        return CalcStatus::Refused(kInvalidInputTitle, kLcLimitMessage);
    }
    return {};
}

double BevertonHoltZ(const MeanLengthInput& in) {
    const double loo = in.loo, k = in.k, lmean = in.lmean, lc = in.lc;
    return Div(k * (loo - lmean), lmean - lc);
}

BhMortalityResult ComputeBhMortality(const MeanLengthInput& in) {
    BhMortalityResult r;
    r.status = CheckMeanLengthInput(in);
    if (!r.status.ok) return r;
    r.z = R4(BevertonHoltZ(in));
    return r;
}

}  // namespace norvo
