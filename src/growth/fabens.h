#pragma once
// Fabens' method: Loo and K of the von Bertalanffy curve fitted to tag-and-recapture
// increments by least squares, L2 = Linf - (Linf - L1) exp(-K dt). Newton's iteration runs on
// K; with Loo free, Linf is solved exactly at each K. Computed in 64-bit (in 32-bit the
// stopping tolerance is out of reach for lengths in mm), the estimates stored in 32-bit.
#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/sample_readers.h"

namespace norvo {

inline constexpr const char* kFabensTitle = "Fabens' Method";
inline constexpr const char* kFabensNoConvergeTitle = "None Convergence...";
inline constexpr const char* kFabensAllAboveText =
    "All samples are estimated to be above Loo. Please try another method.";
inline constexpr int kFabensMaxIterations = 400;
inline constexpr double kFabensTolerance = 0.001;
inline constexpr double kFabensNoLinf = -9999;

// "Failed to converge after 400 iterations. Try another method ..."
std::string FabensNoConvergeText(int iterations);
// "#<n> samples were above the calculated Loo and are not shown in Fabens plot"
std::string FabensAboveLooText(int n);

// The selected rows: release and recapture lengths, time at liberty in years.
struct FabensData {
    std::vector<double> l1, l2, dt;
};

// Linf that minimises the sum of squares at K: sum((L2 - e L1)(1 - e)) / sum((1 - e)^2), with
// e = exp(-K dt); -9999 when the denominator is not above 0.
double FabenLinf(const FabensData& d, double k);
// F(K) = dSS/dK at Linf held: -2 sum(r (Linf - L1) dt e), r = L2 - (Linf - (Linf - L1) e).
// At the Linf of FabenLinf it is also the total derivative of the sum of squares.
double FabenFK(const FabensData& d, double k, double linf);
// dSS/dLinf at K: -2 sum(r (1 - e)); 0 at the Linf of FabenLinf.
double FabenFLinf(const FabensData& d, double k, double linf);
// dLinf/dK of FabenLinf; 0 where FabenLinf gives its -9999.
double FabenDLInfDK(const FabensData& d, double k);
// dF/dK with Linf moving by `dLinfDK` per unit of K (0 with a fixed Linf).
double FabenFKPrime(const FabensData& d, double k, double linf, double dLinfDK);

struct FabensIteration {
    double k = 0, linf = 0;
    int iterations = 1;  // the counter: 1 + each pass that did not converge
    bool converged = false;
    double f = 0, fLinf = 0;  // the sums of the last pass
};
// Newton's iteration from `k0`, with Linf solved at each K or held at `fixedLinf`.
FabensIteration IterateFabens(const FabensData& d, double k0,
                              std::optional<double> fixedLinf = std::nullopt);

struct FabensOptions {
    std::vector<bool> selected;     // by row; missing rows are selected
    std::optional<float> fixedLoo;  // present when Loo is held fixed
};

struct FabensResult : Outcome {
    std::vector<bool> selected;  // by row, after the pre-selection
    std::vector<int> rowOf;
    FabensData data;
    float startK = 0, startLoo = 0;  // from the Gulland and Holt line
    float loo = 0, k = 0;
    int iterations = 0;
    bool converged = false;
    int aboveLoo = 0;  // selected rows whose recapture length is at or above Loo
};

FabensResult Fabens(const std::vector<GinRow>& rows, const FabensOptions& options);

}  // namespace norvo
