#pragma once
// Prediction of the maximum length from the extreme lengths of the samples of a grouped
// length-frequency file.
#include <QWidget>
#include <optional>

#include "chart/chart_canvas.h"
#include "growth/lmax.h"
#include "widgets/shell_context.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace norvo::gui {

inline constexpr const char* kLmaxTitle = "Maximum Length Estimation...";
inline constexpr const char* kLmaxCmdOpen = "&Open...";
inline constexpr const char* kLmaxFileCaption = "File:";
inline constexpr const char* kLmaxPredictedCaption = "Predicted maximum length:";
inline constexpr const char* kLmaxLowerCaption = "Lower limit:";
inline constexpr const char* kLmaxUpperCaption = "Upper limit:";

class FrmLmax : public QWidget {
  public:
    explicit FrmLmax(ShellContext& ctx, QWidget* parent = nullptr);

    // The commands behind the buttons, which run them through the command boundary.
    // Asks for a file and loads it.
    void cmdOpen();
    // Reads the file, fits the extremes and shows tables, results and plot. A file that can't
    // be read, one with fewer than two extremes, or extremes without spread show their notice
    // and leave the screen empty.
    void loadFile(const QString& path);
    // Prints the page of the last prediction (plot, file, fit and limits).
    void cmdPrint();

    const std::optional<GumbelFitResult>& fit() const { return fit_; }
    const ChartCanvas& canvas() const { return canvas_; }

    QLineEdit* txtFile = nullptr;
    QTableWidget* grdExtremes = nullptr;
    QTableWidget* grdCurve = nullptr;
    QLineEdit* txtPredicted = nullptr;
    QLineEdit* txtLower = nullptr;
    QLineEdit* txtUpper = nullptr;
    QLabel* picPlot = nullptr;
    QPushButton* cmdPrintButton = nullptr;

  private:
    void clearResults();
    void showResults(const std::string& unit);
    void showPlot();
    void resizeEvent(QResizeEvent* event) override;

    ShellContext& ctx_;
    std::optional<GumbelFitResult> fit_;
    LfqData data_;  // the file the prediction came from
    ChartCanvas canvas_;
};

}  // namespace norvo::gui
