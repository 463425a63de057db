#pragma once
// Recruitment pattern: the length frequencies of a file projected back along the growth curve
// onto one year, giving the share of recruits by month. Months and pattern positions are
// numbered 1..12 (index 0 unused).
#include <array>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/lfq_data.h"
#include "growth/vbgf.h"
#include "mortality/catch_curve.h"

namespace norvo {

inline constexpr const char* kRcCaption = "Recruitment Pattern...";
inline constexpr const char* kRcReportTitle = "Lenght-Converted Catch Curve";
inline constexpr const char* kRcAbsoluteTime = "Absolute Time";
inline constexpr const char* kRcRelativeTime = "Relative Time";
inline constexpr const char* kRcRelativeTimeColumn = "Relative  Time";
inline constexpr const char* kRcXTitle = "One Year";
inline constexpr const char* kRcYTitle = "Recruitment (%)";
inline constexpr const char* kRcNumericHeading = "Relative Recruitment Values";
inline constexpr const char* kRcPercentColumn = "Percent Recruitment";
inline constexpr std::array<const char*, 14> kRcMonthNames = {
    "", "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec", "Jan"};
// Two pi as this analysis writes it.
inline constexpr double kRcTwoPi = 6.2832;
// Classes are projected only up to this share of Loo.
inline constexpr double kRcLooLimit = 0.98;
// The description of the division fault when no class lies below the limit.
inline constexpr const char* kRcNothingProjected =
    "Division by zero (no length class lies below 0.98 of Loo, so nothing was projected)";
inline constexpr const char* kRcFlatPattern =
    "Division by zero (all twelve months are equal, so no recruitment stands above the lowest)";

struct RecruitmentOptions {
    GrowthParams growth;         // Loo, K, C, WP, t0
    std::vector<bool> selected;  // by sample, 0-based; empty selects all
    CcTransform transform = CcTransform::Raw;
    bool temporal = false;
    bool restructured = false;  // project the restructured points instead of the frequencies
};

struct RecruitmentResult : Outcome {
    std::string timeLabel;                 // the time axis: absolute or relative
    std::array<float, 13> monthShare{};    // projected numbers by calendar month
    int startMonth = 0;                    // calendar month of the first position (1..12)
    std::array<float, 13> pattern{};       // per cent by position after the rotation
    std::array<std::string, 13> labels{};  // month name of each position
};

// The label of the time axis: "Absolute Time" when t0 is not 0.
const char* RecruitmentTimeLabel(float t0);
// Tm(L): the time at which the curve reaches L, seen from a sample at time ts.
double RecruitTime(double length, double ts, const GrowthParams& g);
// The month of a day of the year: 0 for a day of exactly 0 (lost), 12 beyond December's start.
int RecruitMonth(double day);

// The frequencies the projection works on, by sample (0-based) and class (1..nC): restructured
// when asked, transformed, temporally weighted; 0 outside each sample's occupied classes.
std::vector<std::vector<float>> RecruitmentFrequencies(const LfqData& data,
                                                       const RecruitmentOptions& options);
// The whole projection. A Loo or K of 0 is the division fault, as is a pattern with nothing
// above its lowest month (the fault's description names the cause).
RecruitmentResult DoRecruitment(const LfqData& data, const RecruitmentOptions& options);

}  // namespace norvo
