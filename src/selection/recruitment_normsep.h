#pragma once
// Decomposition of a recruitment pattern into one or two normal curves over the twelve month
// positions, by the iterative separation of grouped data: each pass splits every month among
// the groups by their shares of it, then updates each group's mean, standard deviation and
// proportion from its parts, until the likelihood stops rising.
#include <array>
#include <vector>

#include "base/outcome.h"

namespace norvo {

inline constexpr const char* kRsNoSpreadText =
    "A group of the decomposition has no spread left (its part of the pattern lies in one "
    "month). Please check the start values of the groups.";
inline constexpr const char* kRsEmptyGroupText =
    "A group of the decomposition receives no part of the pattern. Please check the start "
    "values of the groups.";
inline constexpr const char* kRsSameStartText =
    "The two groups need different start values. Please check the start values of the groups.";
inline constexpr const char* kRsTitle = "Invalid Data";

// Passes stop when the log10 likelihood rises by no more than this, or at the pass limit.
inline constexpr double kRsTolerance = 1e-7;
inline constexpr int kRsMaxPasses = 1000;

struct NormalGroup {
    double mean = 0, sd = 0, proportion = 0;
};

struct RecruitmentGroupsResult : Outcome {
    std::vector<NormalGroup> groups;  // empty when nothing was asked (first start at or below 0)
    int passes = 0;
    double logLikelihood = 0;  // log10
    // The fitted per cent of a group at a position (curve over the bars).
    double curve(int group, double position) const;
    double total = 0;  // sum of the twelve values
};

// The decomposition of values 1..12 (index 0 unused) from the start positions of group 1 and
// group 2 (group 2 at or below 0: one group).
RecruitmentGroupsResult DoNORMSEP(const std::array<float, 13>& values, double start1,
                                  double start2);

}  // namespace norvo
