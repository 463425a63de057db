#include "mortality/hoenig.h"

#include <iterator>

#include "base/checked.h"

namespace norvo {

HoenigRow HoenigCoefficients(double n) {
    const auto* first = std::begin(kHoenigTable);
    const auto* last = std::end(kHoenigTable) - 1;
    if (n <= first->n) return *first;
    if (n >= last->n) return *last;
    const auto* hi = first + 1;
    while (hi->n < n) ++hi;
    const auto* lo = hi - 1;
    const double f = (n - lo->n) / (hi->n - lo->n);
    return {n, lo->c + f * (hi->c - lo->c), lo->e + f * (hi->e - lo->e)};
}

double HoenigModel1(double tmax) {
    return Exp(kHoenigIntercept - kHoenigSlope * Ln(tmax));
}

HoenigResult ComputeHoenig(const HoenigInput& in) {
    HoenigResult r;
    if (!in.model1 && !in.model2) {
        r.refuse(kNoSelectionMessage, kNoSelectionTitle);
        return r;
    }
    if (in.model2 && !(in.tc < in.tmax)) {
        r.refuse(kTcNotBelowTmaxMessage, kInvalidDataTitle);
        return r;
    }
    if (in.model1) r.z1 = HoenigModel1(in.tmax);
    if (in.model2) {
        const HoenigRow row = HoenigCoefficients(in.n);
        const double span = static_cast<double>(in.tmax) - in.tc;
        r.z2 = Div(1.0, row.c * span);
        r.se2 = Div(1.0, row.e * span);
    }
    return r;
}

}  // namespace norvo
