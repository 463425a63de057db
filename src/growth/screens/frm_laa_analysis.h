#pragma once
// The length-at-age screen: the constraint table, the fit of the growth curve, its estimates
// with standard errors and marks, the plot of the fit and of the residuals, and the report.
#include <QWidget>
#include <array>
#include <memory>
#include <string>

#include "widgets/shell_context.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTabWidget;

namespace norvo {
struct LaaRun;
}

namespace norvo::gui {

inline constexpr const char* kLaaCmdOpen = "...";
inline constexpr const char* kLaaCmdCompute = "&Compute";
inline constexpr const char* kLaaCmdPrint = "&Print";
inline constexpr const char* kLaaCmdClose = "&Close";
inline constexpr const char* kLaaOpenTitle = "Open...";
inline constexpr const char* kLaaFilter = "Length-at-age (*.laa)|*.laa|All Files (*.*)|*.*";
inline constexpr std::array<const char*, 3> kLaaColumnCaptions = {"Minimum", "Starting estimate",
                                                                  "Maximum"};
inline constexpr const char* kLaaPlotTab = "&Growth Curve";
inline constexpr const char* kLaaResidualTab = "&Residuals";

class PlotView;

class FrmLaaAnalysis : public QWidget {
  public:
    explicit FrmLaaAnalysis(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmLaaAnalysis() override;

    // Reads a length-at-age file and resets the constraint table to its defaults.
    void ReadLAA(const std::string& path);
    // Validates, asks about the weights where they differ from 1, fits and shows.
    void compute();

    // The constraint boxes by their numbers: 3 to 7 minima, 8 to 12 starts, 13 to 17 maxima,
    // each group in the rows Loo, K, C, WP, t0.
    QLineEdit* txtLAA(int index) const { return txtLAA_.at(static_cast<size_t>(index - 3)); }
    // Estimate, s.e. and mark of a row (Loo, K, C, WP, t0).
    QLineEdit* estimateBox(int row) const { return est_.at(static_cast<size_t>(row)); }
    QLineEdit* stdErrBox(int row) const { return se_.at(static_cast<size_t>(row)); }
    QLabel* starsLabel(int row) const { return stars_.at(static_cast<size_t>(row)); }
    QPlainTextEdit* txtRemarks() const { return remarks_; }
    QPushButton* cmdLAA(int index) const { return cmd_.at(static_cast<size_t>(index)); }
    PlotView* picLAA() const { return plot_; }
    PlotView* residualPlot() const { return residuals_; }
    QTabWidget* tabs() const { return tabs_; }
    const LaaRun* run() const;

  private:
    struct State;
    void openFile();
    void resetDefaults();
    void clearResults();
    void showRun();
    void redraw();
    void print();

    ShellContext& ctx_;
    std::unique_ptr<State> st_;
    QLineEdit* file_ = nullptr;
    QLabel* species_ = nullptr;
    std::array<QLineEdit*, 15> txtLAA_{};
    std::array<QLineEdit*, 5> est_{};
    std::array<QLineEdit*, 5> se_{};
    std::array<QLabel*, 5> stars_{};
    QPlainTextEdit* remarks_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QTabWidget* tabs_ = nullptr;
    PlotView* plot_ = nullptr;
    PlotView* residuals_ = nullptr;
    std::array<QPushButton*, 4> cmd_{};  // 0 open, 1 compute, 2 report, 3 close
};

}  // namespace norvo::gui
