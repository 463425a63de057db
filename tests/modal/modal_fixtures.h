#pragma once
// Samples for the separation tests: normal mixtures in classes, integrated over each class.
#include <cmath>
#include <vector>

#include "mortality/make_lfq.h"

namespace norvo::test {

struct Normal {
    double mean, sd, n;
};

inline double Phi(double x, double mean, double sd) {
    return 0.5 * std::erfc(-(x - mean) / (sd * std::sqrt(2.0)));
}

// Expected numbers of `classes` classes of width w from midpoint firstMid.
inline std::vector<double> MixtureSample(const std::vector<Normal>& parts, double firstMid,
                                         double w, int classes) {
    std::vector<double> f(static_cast<size_t>(classes));
    for (int i = 0; i < classes; ++i) {
        const double lo = firstMid + i * w - w / 2;
        for (const Normal& p : parts)
            f[static_cast<size_t>(i)] += p.n * (Phi(lo + w, p.mean, p.sd) - Phi(lo, p.mean, p.sd));
    }
    return f;
}

}  // namespace norvo::test
