#pragma once
// Downhill simplex minimiser with restarts, box limits, a further acceptance condition and
// fixed parameters. The objective takes the full parameter vector; only the free parameters
// (mask > 0) move, the fixed ones keep their start values.
#include <cstdint>
#include <functional>
#include <vector>

#include "base/outcome.h"

namespace norvo {

inline constexpr const char* kSimplexStartNotAdequate =
    "The start parameters provided are not adequate. Please check!";
inline constexpr const char* kSimplexTitle = "Simplex";

// Result codes.
enum SimplexCode : int {
    kSimplexConverged = 1,
    kSimplexLimit = -1,     // the evaluation limit was reached
    kSimplexWorse = -2,     // a restart ended above the previous best, which stands
    kSimplexNoneFree = -5,  // no parameter is free
};

using SimplexObjective = std::function<double(const std::vector<double>&)>;

struct SimplexOptions {
    std::vector<double> mask;   // > 0 marks a free parameter
    std::vector<double> lower;  // box of every parameter (full length; fixed ones unused)
    std::vector<double> upper;
    std::vector<double> step;  // start step factor of every parameter
    // A further condition on a point inside the box (full vector); a trial breaking it is
    // halved back towards the vertex it was drawn from. None: every point in the box is fine.
    std::function<bool(const std::vector<double>&)> acceptable;
    int64_t limit = 100000;   // the evaluation limit is ten times this
    double tolerance = 1e-8;  // restarts go on while a round gains 100 times this
};

struct SimplexResult : Outcome {
    int code = kSimplexNoneFree;
    std::vector<double> best;  // full vector
    double value = 0;          // objective at `best`
    int restarts = 0;
    int64_t evaluations = 0;  // every call of the objective
};

SimplexResult Simplex(const SimplexObjective& objective, const std::vector<double>& start,
                      const SimplexOptions& options);

// Moves `point` from `from` towards the box until it lies just inside it: with t the largest
// fraction of the step from `from` that lies outside, the point becomes
// from + (1 - t) * 0.999999999999 * (point - from). Only the listed indices are tested.
void DrawIntoBox(std::vector<double>& point, const std::vector<double>& from,
                 const std::vector<double>& lower, const std::vector<double>& upper,
                 const std::vector<int>& free);

}  // namespace norvo
