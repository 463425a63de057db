#pragma once
// The Jones and van Zalinge screen: the samples of a grouped length-frequency file and Loo give
// the points of the plot; two clicks choose the classes of the fit, whose slope is Z/K.
#include <QWidget>
#include <array>
#include <memory>
#include <string>

#include "widgets/shell_context.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;

namespace norvo {
struct JonesVanZalingeRun;
}

namespace norvo::gui {

inline constexpr std::array<const char*, 3> kJvzTabs = {"&Data", "&Jones && van Zalinge Plot",
                                                        "&Regression Statistics"};
inline constexpr const char* kJvzCmdPrint = "&Print...";
inline constexpr const char* kJvzCmdClose = "&Close";
inline constexpr const char* kJvzCmdOpen = "...";
inline constexpr const char* kJvzCmdCompute = "&Compute";
inline constexpr const char* kJvzCmdRedo = "R&edo";
inline constexpr const char* kJvzCmdStub = "&Save Points...";
inline constexpr const char* kJvzOpenTitle = "Open...";
inline constexpr const char* kJvzLfqFilter =
    "Grouped frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*";
// The read-outs of the statistics tab, in order.
inline constexpr std::array<const char*, 13> kJvzStatCaptions = {
    "Number of observations:",
    "Intercept (a):",
    "Standard deviation of the intercept:",
    "95% confidence interval of intercept:",
    "Slope (b):",
    "Standard deviation of slope:",
    "95% confidence interval of slope:",
    "Mean value of x's:",
    "Standard deviation of x's:",
    "Mean value of y's:",
    "Standard deviation of y's:",
    "Correlation coefficient; r:",
    "r  :"};

class PlotView;
class SamplePanel;

class FrmJonesZalinge : public QWidget {
  public:
    explicit FrmJonesZalinge(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmJonesZalinge() override;

    void Initialize(const std::string& path);
    // Command 4: the checks of Loo and K, then JonZalMethod.
    void compute();
    void JonZalMethod();
    // A click at canvas coordinates on the plot.
    void clickPlot(double x, double y);

    QTabWidget* tabs() const { return tabs_; }
    SamplePanel* samples() const { return samples_; }
    QLineEdit* field(int index) const { return fields_[index]; }  // Loo, K
    PlotView* plot() const { return plot_; }
    QPushButton* command(int index) const { return cmd_[index]; }
    QLabel* statistic(int index) const { return stats_[index]; }
    // Z/K, its lower and upper limit.
    QLabel* zEstimate(int index) const { return z_[index]; }
    // Class no., X value, Y value of the first (row 0) and last (row 1) pick.
    QLabel* pointBox(int row, int column) const { return pointBoxes_[row * 3 + column]; }
    const JonesVanZalingeRun* run() const;

  private:
    struct State;
    void clearReadOuts();
    void clearForChange();
    void redraw();
    void showPick(int row, int cls);
    void fillStatistics();
    void print();

    ShellContext& ctx_;
    std::unique_ptr<State> st_;
    QTabWidget* tabs_ = nullptr;
    QLineEdit* file_ = nullptr;
    QLabel* species_ = nullptr;
    std::array<QLineEdit*, 2> fields_{};
    SamplePanel* samples_ = nullptr;
    PlotView* plot_ = nullptr;
    std::array<QPushButton*, 6> cmd_{};
    std::array<QLabel*, 13> stats_{};
    std::array<QLabel*, 3> z_{};
    std::array<QLabel*, 6> pointBoxes_{};
};

}  // namespace norvo::gui
