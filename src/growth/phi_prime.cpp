#include "growth/phi_prime.h"

#include "base/checked.h"

namespace norvo {

PhiPrimeResult ComputeParameters(const PhiPrimeInput& in) {
    PhiPrimeResult r;
    if (in.k > 0 && in.loo > 0) r.phiPrime = Log10(in.k) + 2.0 * Log10(in.loo);
    if (in.k > 0 && in.woo > 0) r.phi = Log10(in.k) + (2.0 / 3.0) * Log10(in.woo);
    return r;
}

}  // namespace norvo
