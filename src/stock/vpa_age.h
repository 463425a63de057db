#pragma once
// Virtual population analysis by age group: population numbers N and fishing mortality F of a
// catch-at-age table, worked backwards from the oldest group, one cohort at a time. Arrays of a
// run are 1-based by group (index 0 unused), the oldest group last.
#include <string>
#include <vector>

#include "base/outcome.h"

namespace norvo {

// Notice texts.
inline constexpr const char* kVpaAgeTitle = "Age-Structured VPA";
inline constexpr const char* kVpaInvalidInputTitle = "Invalid Input";
inline constexpr const char* kVpaDtLimitsText =
    "The time interval exceeds the limits (0.01 to 1) per year. Please correct input.";
inline constexpr const char* kVpaTerminalFText =
    "The terminal fishing mortality (F) must be above 0: the oldest group's population is "
    "derived by dividing by it. Please correct input.";
inline constexpr const char* kVpaNaturalMText =
    "The natural mortality (M) cannot be negative. Please correct input.";
inline constexpr const char* kVpaEmptyOldestText =
    "The catch of the oldest age group is 0, so its population is 0 and the younger groups "
    "cannot be reconstructed from it. Please remove the empty group from the file or correct its "
    "catch.";
inline constexpr const char* kVpaNegativeCatchText =
    "A catch cannot be negative. Please correct the catch of age group ";
inline constexpr const char* kVpaNoGroupsText = "The file holds no age groups to analyse.";
inline constexpr const char* kVpaInvalidDataTitle = "Invalid Data";

// Newton's iteration on the catch equation gives up after this many rounds (an arithmetic fault).
inline constexpr int kVpaNewtonLimit = 1000;
inline constexpr double kVpaNewtonTolerance = 1e-6;

struct AgeVpaOptions {
    std::vector<float> catches;  // by group, youngest first (0-based)
    float m = 0;                 // natural mortality per year
    float ft = 0;                // terminal fishing mortality per year
    float dt = 1;                // time spent in each group, years
};

struct AgeVpaResult : Outcome {
    int n = 0;
    std::vector<float> C, N, F;     // 1..n
    std::vector<int> newtonRounds;  // 1..n; 0 for the oldest group and for zero catches
};

// Checks the inputs: dt within 0.01..1 (as 32-bit values), Ft above 0, M not negative, no
// negative catch, and a catch in the oldest group (an empty one leaves nothing to divide by).
Outcome CheckAgeVpa(const AgeVpaOptions& options);

// The oldest group: N = C Zd / (Fd (1 - e^-Zd)).
double TerminalPopulation(double c, double md, double fd);

// One group before a known one: Fd (per interval) solving C = (Fd/Zd) Nn (e^Zd - 1) by Newton's
// iterations from Pope's approximation. `rounds` receives the number of rounds taken.
double SolveFd(double c, double nn, double md, int& rounds);

// The whole analysis; refused with the first failing check's notice.
AgeVpaResult RunAgeVpa(const AgeVpaOptions& options);

}  // namespace norvo
