#pragma once
// Total mortality from mean length with a maximum length (Ault and Ehrhardt): the stepping
// search for the z at which R = ((Loo - Lmax)/(Loo - L'))^(z/K) meets
// T = ((L' - Lmean) z + (Loo - Lmean) K) / ((Loo - Lmean) K + (Lmax - Lmean) z).
#include <optional>

#include "mortality/bh_mortality.h"

namespace norvo {

inline constexpr double kAultStep = 0.01;            // z grows by this at each trial
inline constexpr double kAultStartFraction = 0.005;  // z0 as a fraction of the B&H estimate
inline constexpr double kAultTolerance = 0.005;      // final tolerance on |R - T|
inline constexpr double kAultFirstStageFactor = 10;  // the tolerance is 10x wider at first
// The trial counter is a 16-bit integer: more trials than this is an overflow fault.
inline constexpr int kAultMaxTrials = 32767;

inline constexpr const char* kAultExactRootCaption = "Exact root of R = T (bisection):";

struct AultEhrhardtInput {
    MeanLengthInput common;
    float lmax = 0;
};

struct AultEhrhardtResult : Outcome {
    double z = 0;              // the last trial z of the stepping search
    int trials = 0;            // number of trial values taken
    double zBevertonHolt = 0;  // the bound of the search
    // The root of R = T on [z0, Z(B&H)] by bisection, when R - T changes sign there.
    std::optional<double> exactRoot;
};

// The five checks: the four common ones, then Lmax.
Outcome CheckAultEhrhardtInput(const AultEhrhardtInput& in);

// |R - T| at a trial z.
double AultEhrhardtDistance(const AultEhrhardtInput& in, double z);

AultEhrhardtResult ComputeAultEhrhardt(const AultEhrhardtInput& in);

}  // namespace norvo
