#pragma once
// An exact steady-state catch: with Z/K constant the number of fish longer than L is
// proportional to (Loo - L)^(Z/K), so each class holds the difference of that at its limits.
// The top class holds Loo, so no class of the file is empty.
#include <cmath>
#include <vector>

#include "mortality/make_lfq.h"

namespace norvo::test {

struct SteadyState {
    double loo = 60, zk = 1.5, lower = 10, width = 2;
    int classes() const { return static_cast<int>(std::ceil((loo - lower) / width)); }
    double above(double length) const {
        return length >= loo ? 0 : 1000 * std::pow(loo - length, zk);
    }
    LfqData file() const {
        std::vector<double> f;
        for (int i = 0; i < classes(); ++i) {
            const double l = lower + i * width;
            f.push_back(above(l) - above(l + width));
        }
        return MakeLfq(lower + width / 2, width, {f});
    }
};

}  // namespace norvo::test
