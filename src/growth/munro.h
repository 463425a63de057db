#pragma once
// Munro's method: the Loo at which the K of the tagged fish, each from its own increment,
// agree best, measured by their coefficient of variation. The search raises Loo from the
// largest length in steps of 0.01 and stops as soon as the CV no longer falls by 0.001 a step;
// that can be short of the CV's minimum, which the CV curve of the passes shows.
#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/sample_readers.h"
#include "growth/gulland_holt.h"

namespace norvo {

inline constexpr const char* kMunroTitle = "Munro's Method...";
inline constexpr const char* kMunroReportTitle = "Munro's Plot";
inline constexpr const char* kMunroFixedBelowLmaxText =
    "The fixed value of Loo is less than Lmax. Munro's method This method does not allow the Loo "
    "estimate to be less than Lmax. If Loo is perceived to be less than Lmax, use the method "
    "proposed by Fabens (1965). Click OK to allow the Munro's method to estimate Loo.";
inline constexpr const char* kMunroFixedBelowLmaxTitle = "Fixed Loo...";
// Our own: the spread of K needs two rows below Loo.
inline constexpr const char* kMunroTooFewBelowLooText =
    "Fewer than 2 selected rows lie below Loo, so the spread of their K cannot be computed.";
inline constexpr const char* kMunroTooFewBelowLooTitle = "Invalid Data...";
inline constexpr double kMunroStep = 0.01;
inline constexpr double kMunroStopFall = 0.001;
inline constexpr double kMunroFirstPrevious = 10000;
// A search still falling after this many passes is a fault, never an endless loop.
inline constexpr int kMunroMaxPasses = 10000000;

// The K of the rows below one Loo: their mean, spread and count.
struct MunroPass {
    float loo = 0;
    double meanK = 0, sd = 0, cv = 0;
    int m = 0;
};
// Working rows of the selected rows: days at liberty, lengths.
struct MunroRows {
    std::vector<float> days, length1, length2;
};
// One pass at a given Loo (rows with a length at or above Loo take no part). `m` < 2 leaves
// mean, sd and CV at 0.
MunroPass MunroAtLoo(const MunroRows& rows, float loo);

struct MunroOptions {
    std::vector<bool> selected;     // by row; missing rows are selected
    std::optional<float> fixedLoo;  // present when "Use fixed Loo" is on, as entered
};

struct MunroResult : Outcome {
    std::vector<bool> selected;  // by row, after the pre-selection
    std::vector<int> rowOf;      // row of each working row
    MunroRows rows;
    float lmax = 0;
    GullandHoltLine gh;  // the equivalent line; its refusal stops nothing here
    bool searched = false;
    int passes = 0;                // the i of the last Loo; 0 with a fixed Loo
    std::vector<MunroPass> curve;  // every pass of the search, in order
    MunroPass estimate;            // the pass that stands
    float loo = 0, k = 0;          // Loo and mean K (32-bit)
};

MunroResult Munro(const std::vector<GinRow>& rows, const MunroOptions& options);

}  // namespace norvo
