#pragma once
// The ELEFAN I report: its page (the file, the run's results, C and WP) and the flow that
// prints it or saves the response surface or the K-scan plot.
#include <array>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "base/user_notice.h"
#include "chart/report.h"
#include "data/lfq_data.h"
#include "growth/elefan_search.h"

namespace norvo {

inline constexpr const char* kElefanReportTitle = "Norvo 2: Olmar-Tavesh Stock Assessment Tools";
inline constexpr const char* kElefanReportSubtitle = "ELEFAN 1 Method";
inline constexpr const char* kSurfaceSavedPrefix = "The response surface table was saved in ";
inline constexpr const char* kSurfacePlotSavedInfix =
    " and the Response surface plot was saved in ";
inline constexpr const char* kKScanSavedPrefix = "The K-scan plot was saved in ";

// Captions and display patterns of the result fields: Loo, K, C, WP, SS, SL, Rn.
inline constexpr std::array<const char*, 7> kElefanResultLabels = {
    "Loo:", "K:", "C:", "WP:", "SS:", "SL:", "Rn:"};
inline constexpr std::array<const char*, 7> kElefanResultPatterns = {
    "0.00", "0.000", "0.000", "0.000", "0", "0.00", "0.000"};

// What the General tab shows of a loaded file.
struct ElefanFileInfo {
    std::string fileName;  // the path's last part
    std::string speciesName, otherIdentifier, unit;
    double classSize = 0;         // shown "0.00"
    double largestClassSize = 0;  // the largest midlength, shown as its 32-bit value
};
ElefanFileInfo ElefanFileInfoOf(const std::string& path, const LfqData& data);

// The values of a best setting in the order of the result fields.
std::array<double, 7> ElefanBestValues(const ElefanBest& best);

struct Elefan1ReportInfo {
    std::string fileName, speciesName, otherIdentifier;
    std::string classSize, largestClassSize, unit;  // as displayed
    std::string amplitude, winterPoint;             // C and WP, as displayed
    // Results of the run (Loo, K, Rn, ...), shown between the parameters and C, WP.
    ReportSection results{"Growth Parameters", {}, true};
    // The method's line under the title, the output screen's name, and whether the report
    // has C and WP (a method without seasonal parameters leaves them out).
    std::string subtitle = kElefanReportSubtitle;
    std::string screenName = "frmOutELEFAN1";
    bool otherParameters = true;
};

// The report's texts: the file (none before one is loaded: empty fields) and the tab's C and
// WP (none when the field holds no number: empty), each shown as the shortest decimal of its
// 32-bit value with at least two decimals.
Elefan1ReportInfo MakeElefan1ReportInfo(const std::optional<ElefanFileInfo>& file,
                                        std::optional<double> c, std::optional<double> wp);
// The result fields of a K-scan's best setting, and of a search table row.
std::vector<ReportField> ElefanResultFields(const ElefanBest& best);
std::vector<ReportField> ElefanResultFields(const SearchRow& row);
// The response surface as its table shows it: the corner, the Loo headings across, and a row
// per K (heading "0.00", scores "0.000").
std::vector<std::vector<std::string>> SurfaceTableTexts(const SurfaceResult& surface);

ReportDescriptor Elefan1ReportDescriptor(const Elefan1ReportInfo& info,
                                         std::time_t when = std::time(nullptr));

enum class Elefan1ReportMode { Print, KScan, Surface };

// Every mode fills the ELEFAN page (its caption "Report Generated: " and the date) and asks for
// the printer. Print: then PrintOrSaveImage. KScan: as Print, but a print to a file saves the
// K-scan plot with its own notice. Surface: the page is printed first; then the
// response-surface table (tab-delimited, rows of cells) and the plot, each in a file the user
// picks. Returns false when nothing was done (a cancel, or a file not written).
bool ReportELEFAN1(const ChartCanvas& canvas, ReportOutput& output, DialogService& dialogs,
                   Elefan1ReportMode mode, const Elefan1ReportInfo& info,
                   const std::vector<std::vector<std::string>>& surfaceTable,
                   const PlotSaver& save);

}  // namespace norvo
