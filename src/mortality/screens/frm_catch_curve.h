#pragma once
// The length-converted catch curve screen: a grouped length-frequency file and growth
// parameters give Z from a chosen stretch of the curve, then the probabilities of capture.
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
struct CatchCurveRun;
struct Extrapolation;
struct GrowthParams;
}  // namespace norvo

namespace norvo::gui {

inline constexpr const char* kCcCaptionPrefix = "Length-converted Catch Curve [";
inline constexpr std::array<const char*, 3> kCcTabs = {"&Data and Options", "C&atch Curve",
                                                       "&Regression Statistics"};
inline constexpr const char* kCcCmdPrint = "&Print...";
inline constexpr const char* kCcCmdClose = "&Close";
inline constexpr const char* kCcCmdOpen = "...";
inline constexpr const char* kCcCmdCompute = "C&ompute Data Points";
inline constexpr const char* kCcCmdReset = "Reset Selections";
inline constexpr const char* kCcCmdExtrapolate = "&Extrapolate Prob.";
inline constexpr const char* kCcCmdShowProb = "&Show Prob.";
inline constexpr const char* kCcOpenTitle = "Open...";
inline constexpr const char* kCcLfqFilter = "Grouped frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*";

class PlotView;
class SamplePanel;
class FrmProbCatchCurve;
class FrmProbability;

class FrmCatchCurve : public QWidget {
  public:
    explicit FrmCatchCurve(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmCatchCurve() override;

    // Loads a file into the screen (the "..." command after its dialogue).
    void Initialize(const std::string& path);
    // Command buttons by index 0..6 (3 is the weighting help button).
    QPushButton* command(int index) const { return cmd_[index]; }
    QTabWidget* tabs() const { return tabs_; }
    SamplePanel* samples() const { return samples_; }
    QLineEdit* field(int index) const { return fields_[index]; }  // Loo, K, C, WP, t0
    PlotView* plot() const { return plot_; }
    QLabel* statistic(int index) const { return stats_[index]; }
    // The Z of the fit and r beside the curve, as on the statistics tab.
    QLabel* curveZ() const { return curveZ_; }
    QLabel* curveR() const { return curveR_; }
    const CatchCurveRun* run() const;
    const Extrapolation* extrapolation() const;
    FrmProbCatchCurve* mortalityDialog() const { return probDialog_; }
    FrmProbability* probabilityScreen() const { return probScreen_; }
    // A click on the plot at canvas coordinates, as the mouse gives it.
    void clickPlot(double x, double y);

    void CatchCurveMethod();
    void ResetSelections();
    void ExtrapolateOrShow();

  private:
    struct State;
    // The growth boxes as numbers (Loo, K, C, WP, t0).
    GrowthParams growth() const;
    void clearForChange();
    void DrawPointsAndCurve();
    void redraw();
    void fillStatistics();
    void onProceed(double z, double m, double t);
    void print();

    ShellContext& ctx_;
    std::unique_ptr<State> st_;
    QTabWidget* tabs_ = nullptr;
    QLineEdit* file_ = nullptr;
    QLabel* species_ = nullptr;
    std::array<QLineEdit*, 5> fields_{};
    SamplePanel* samples_ = nullptr;
    PlotView* plot_ = nullptr;
    QLineEdit* firstPoint_ = nullptr;
    QLineEdit* lastPoint_ = nullptr;
    std::array<QPushButton*, 7> cmd_{};
    std::array<QLabel*, 20> stats_{};
    QLabel* curveZ_ = nullptr;
    QLabel* curveR_ = nullptr;
    FrmProbCatchCurve* probDialog_ = nullptr;
    FrmProbability* probScreen_ = nullptr;
};

}  // namespace norvo::gui
