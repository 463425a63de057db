#pragma once
// The printed pages of the mortality calculators: their inputs and results as report
// descriptors, in the formats the screens show.
#include <ctime>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "mortality/ault_ehrhardt.h"
#include "mortality/bh_mortality.h"
#include "mortality/hoenig.h"
#include "mortality/pauly_m.h"
#include "mortality/rikhter_efanov.h"

namespace norvo {

inline constexpr const char* kBhReportTitle = "Total Mortality from Mean Length (Beverton & Holt)";
inline constexpr const char* kAultReportTitle =
    "Total Mortality from Mean Length (Ault & Ehrhardt)";
inline constexpr const char* kHoenigReportTitle = "Total Mortality from Hoenig's Models";
inline constexpr const char* kPaulyReportTitle = "Natural Mortality from Pauly's Equation";
inline constexpr const char* kRikhterReportTitle =
    "Natural Mortality from Age at Maturity (Rikhter & Efanov)";
inline constexpr const char* kReportInputHeading = "Input";
inline constexpr const char* kReportResultHeading = "Results";

ReportDescriptor BhMortalityReport(const MeanLengthInput& in, const BhMortalityResult& r,
                                   std::time_t when = std::time(nullptr));
ReportDescriptor AultEhrhardtReport(const AultEhrhardtInput& in, const AultEhrhardtResult& r,
                                    std::time_t when = std::time(nullptr));
ReportDescriptor HoenigReport(const HoenigInput& in, const HoenigResult& r,
                              std::time_t when = std::time(nullptr));
// The Pauly page: the size under its form's caption, K, T (and the corrected T when the
// correction applied), the formula text as sub-title, and M.
ReportDescriptor PaulyReport(const PaulyInput& in, const PaulyResult& r,
                             std::time_t when = std::time(nullptr));
ReportDescriptor RikhterEfanovReport(const RikhterEfanovInput& in, const RikhterEfanovResult& r,
                                     std::time_t when = std::time(nullptr));

// The picture of a calculator's page: its formula and results as text on a white canvas.
void DrawResultCard(ChartCanvas& canvas, const ReportDescriptor& report);

}  // namespace norvo
