#pragma once
// The report of Shepherd's method: the ELEFAN I report page with the method's own title, its
// best point under "At Maximum Score", and no seasonal parameters.
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "growth/elefan_report.h"
#include "growth/shepherd_search.h"

namespace norvo {

inline constexpr const char* kShepherdReportSubtitle = "Shepherd's Method";
inline constexpr const char* kShepherdResultsHeading = "At Maximum Score";
inline constexpr const char* kShepherdNoStart = "n.a.";

// Captions and display patterns of the result fields: Loo, K, starting sample and length,
// score.
inline constexpr std::array<const char*, 5> kShepherdResultLabels = {
    "Loo:", "K:", "Starting sample:", "Starting length:", "Score:"};
inline constexpr std::array<const char*, 5> kShepherdResultPatterns = {"0.00", "0.000", "0", "0.0",
                                                                       "0.000"};

// The values of a best point in the order of the result fields; the starting length is none
// when the curve has none.
std::array<std::optional<double>, 5> ShepherdBestValues(const ShepherdBest& best);
// Their texts ("n.a." for a missing starting length), '.' for the decimals.
std::array<std::string, 5> ShepherdBestTexts(const ShepherdBest& best);

// The report page's texts: the file and, after a K-scan, its best point.
Elefan1ReportInfo ShepherdReportInfo(const std::optional<ElefanFileInfo>& file,
                                     const ShepherdBest* best);

// The growth parameters that the plot command stores: Loo, K, C and WP 0, starting sample and
// length (0 when there is none).
GrowthParams ShepherdPlotParams(const ShepherdBest& best);
// The patterns they are stored with: C and WP as "0.00".
inline constexpr std::array<const char*, 6> kShepherdStorePatterns = {"0.00", "0.000", "0.00",
                                                                      "0.00", "0",     "0.0"};

}  // namespace norvo
