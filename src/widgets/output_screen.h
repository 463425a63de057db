#pragma once
// The output screen of every analysis: a page with the three headers, the plot (picOut) and
// the labelled input values (lblData) and results (lblResults), filled from a report
// descriptor. It prints itself as laid out, on one page, and lives for one report.
#include <QWidget>
#include <functional>
#include <vector>

#include "chart/report.h"

class QLabel;
class QPainter;
class QPrinter;
class QVBoxLayout;

namespace norvo::gui {

class PlotView;

// Where printing goes: the printer chosen in the last print dialogue (ShellContext::printer).
using PrinterSource = std::function<QPrinter*()>;

// The printer dialogue's "print to file" answer: a PDF printer with a file name, which is how
// the toolkit's dialogue returns that choice.
bool IsPrintToFile(const QPrinter* printer);

class OutputScreen : public QWidget, public ReportOutput {
    Q_OBJECT
  public:
    // The page at 96 dots per inch: A4 portrait.
    static constexpr int kPageWidth = 794;
    static constexpr int kPageHeight = 1123;

    explicit OutputScreen(PrinterSource printer = {}, QWidget* parent = nullptr);

    // ReportOutput
    void fill(const ReportDescriptor& report) override;
    void setPicture(const CanvasImage& image) override;
    bool printToFileChosen() const override;
    void printPage() override;
    void unload() override;

    // Paints the page, scaled to fit the printer's page, on `printer`.
    bool printOn(QPrinter& printer);
    // Paints the page as laid out, in page pixels, with `painter`.
    void paintPage(QPainter& painter);
    // Replaces the rule that tells a print to a file from printing.
    void setPrintToFileRule(std::function<bool(const QPrinter*)> rule) {
        toFile_ = std::move(rule);
    }

    PlotView* picOut() const { return picOut_; }
    QLabel* lblHeader(int index) const { return headers_.at(index - 1); }
    const std::vector<QLabel*>& lblData() const { return lblData_; }
    const std::vector<QLabel*>& lblResults() const { return lblResults_; }
    const ReportDescriptor& report() const { return report_; }
    bool unloaded() const { return unloaded_; }

  private:
    QWidget* buildColumn(bool results);

    PrinterSource printer_;
    std::function<bool(const QPrinter*)> toFile_ = IsPrintToFile;
    ReportDescriptor report_;
    std::vector<QLabel*> headers_;
    PlotView* picOut_ = nullptr;
    QWidget* values_ = nullptr;
    QLabel* note_ = nullptr;
    std::vector<QLabel*> lblData_, lblResults_;
    bool unloaded_ = false;
};

// A saver that writes the picture through the renderer, its format by extension.
PlotSaver RenderedPlotSaver();

// The report flow with an output screen made for it: fill, print or save, close.
PrintOutcome PrintReport(const ReportDescriptor& report, const ChartCanvas& canvas,
                         DialogService& dialogs, PrinterSource printer);

}  // namespace norvo::gui
