#pragma once
// Reports of the analyses: a one-page layout (three headers, labelled input values and
// results, a plot) described as plain data, and the print-or-save flow that ends every report.
// The output screen itself is a widget (plot/screens); here it is the ReportOutput interface.
#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/user_notice.h"
#include "chart/chart_canvas.h"

namespace norvo {

inline constexpr const char* kReportGenerated = "Report Generated: ";
inline constexpr const char* kPrintDialogTitle = "Print";
inline constexpr const char* kSaveImageTitle = "Save image...";
inline constexpr const char* kBitmapFilter = "Windows Bitmap (*.bmp)|*.bmp|All files (*.*)|*.*";
// The save dialogue of a printed picture offers PNG, SVG and PDF beside the bitmap.
inline constexpr const char* kImageFilter =
    "Windows Bitmap (*.bmp)|*.bmp|PNG Image (*.png)|*.png|SVG Drawing (*.svg)|*.svg|"
    "PDF Document (*.pdf)|*.pdf|All files (*.*)|*.*";
inline constexpr const char* kDataSavedTitle = "Data Saved";
inline constexpr const char* kGraphicSavedPrefix = "The graphic output was saved in ";
inline constexpr const char* kPlotsSavedTitle = "Plots Saved";
inline constexpr const char* kSaveTableTitle = "Save table...";
inline constexpr const char* kTabFilter = "Tab Delimited File (*.tab)|*.tab|All files (*.*)|*.*";

// The members of the output-screen family; each analysis fills a descriptor for its own.
inline constexpr const char* kOutputScreens[] = {
    "frmOutCatchCurve", "frmOutELEFAN1", "frmOutVBGFPlot", "frmOutLmax",
    "frmOutPaulyM",     "frmOutPWPlot",  "frmOutShepherd", "frmOutProbability",
    "frmOut2DYR",       "frmOut3DYR",    "frmOutRegress",  "frmOutLAA",
    "frmOutRecruit",    "frmOutBhattac", "frmOutLinking",  "frmOutGulland",
    "frmOutApple",      "frmOutVPA1",    "frmOutTB",       "frmOutNORMSEP_Simplex"};

// One labelled value: "Loo (cm): " and "45.20".
struct ReportField {
    std::string caption;
    std::string value;
};

// A heading and its lines. Sections marked `results` fill lblResults, the others lblData,
// each in order.
struct ReportSection {
    std::string heading;
    std::vector<ReportField> fields;
    bool results = false;
};

struct ReportDescriptor {
    std::string screenName;  // "frmOutCatchCurve", ...
    std::string header1;     // the analysis's title
    std::string header2;     // "Report Generated: " and the date
    std::string header3;     // a sub-title
    std::vector<ReportSection> sections;
    std::string note;     // a static text under the values (may be empty)
    std::string caption;  // the output screen's window caption; header1 when empty

    // Adds a section and returns it for filling.
    ReportSection& addSection(const std::string& heading, bool results);
    // lblData and lblResults: the fields of the data sections and of the result sections.
    std::vector<ReportField> dataFields() const;
    std::vector<ReportField> resultFields() const;
};

// "23-Nov-2026": the date shown after "Report Generated: ".
std::string ReportDate(std::time_t when);
// A descriptor with the headers filled: title, "Report Generated: " + date, sub-title.
ReportDescriptor MakeReport(const std::string& screenName, const std::string& title,
                            const std::string& subtitle, std::time_t when = std::time(nullptr));
// A field with a number shown in `format` ("0.00").
ReportField NumberField(const std::string& caption, double value, const std::string& format);

// The output screen as the report flow sees it.
class ReportOutput {
  public:
    virtual ~ReportOutput() = default;
    virtual void fill(const ReportDescriptor& report) = 0;
    // picOut takes the canvas's picture.
    virtual void setPicture(const CanvasImage& image) = 0;
    // After the printer dialogue: whether the user asked to print to a file.
    virtual bool printToFileChosen() const = 0;
    // Prints the page, as laid out, on the chosen printer.
    virtual void printPage() = 0;
    // Closes the screen; nothing stays behind between reports.
    virtual void unload() = 0;
};

// Writes a picture to a file; false when it can't be written.
using PlotSaver = std::function<bool(const ChartCanvas& canvas, const std::string& path)>;

// The fork of the maximum-length report: selector 1 prints the output screen, any other
// value has the main screen print itself with argument 0.
struct PrintFork {
    int selector = 1;
    std::function<void(int)> mainScreenPrint;
};

enum class PrintOutcome { Cancelled, Printed, MainScreenPrinted, Saved, SaveFailed };

// The "Save image..." dialogue with the given filter (a bitmap by default, overwrite prompt).
FileDialogOptions SaveImageDialog(const char* filter);

// Ends a report: the printer dialogue, then either printing of the output screen or, for a
// print to a file, the "Save image..." dialogue and the picture written there. A cancel
// anywhere ends quietly. The output screen is unloaded in every case.
PrintOutcome PrintOrSaveImage(const ChartCanvas& canvas, ReportOutput& output,
                              DialogService& dialogs, const PlotSaver& save,
                              const std::optional<PrintFork>& fork = std::nullopt);

// Fills the output screen and ends the report with PrintOrSaveImage.
PrintOutcome RunReport(const ReportDescriptor& report, const ChartCanvas& canvas,
                       ReportOutput& output, DialogService& dialogs, const PlotSaver& save);

// Saves several plots under one chosen name: name_0.bmp ... name_k.bmp, then "Plots Saved".
// Returns the paths written (empty on cancel or failure).
std::vector<std::string> SavePlots(const std::vector<const ChartCanvas*>& plots,
                                   DialogService& dialogs, const PlotSaver& save);

// Writes rows of cells, tab-separated, one line each. False when the file can't be written.
bool WriteTabDelimited(const std::string& path, const std::vector<std::vector<std::string>>& rows);

}  // namespace norvo
