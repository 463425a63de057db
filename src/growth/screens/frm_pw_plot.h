#pragma once
// The Powell-Wetherall screen: the samples of a grouped length-frequency file give the points of
// the plot; a click on a point (here or on the pseudo-catch curve beside it) chooses the first
// point of the fit, which gives Loo and Z/K.
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
struct PowellWetherallData;
struct PowellWetherallFit;
}  // namespace norvo

namespace norvo::gui {

inline constexpr std::array<const char*, 2> kPwTabs = {"&Data", "&Graph"};
inline constexpr const char* kPwCmdPlot = "P&lot Graph";
inline constexpr const char* kPwCmdPseudo = "&Open Pseudo-catch curve";
inline constexpr const char* kPwCmdPrint = "&Print...";
inline constexpr const char* kPwCmdClose = "&Close";
inline constexpr const char* kPwCmdOpen = "...";
inline constexpr const char* kPwCmdCloseWindow = "&Close this Window";
inline constexpr const char* kPwOpenTitle = "Open...";
inline constexpr const char* kPwLfqFilter = "Grouped frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*";
inline constexpr const char* kPwUnknown = "?";

class PlotView;
class SamplePanel;

// The pseudo-catch curve beside the main screen: a click on it chooses the first point as a
// click on the main plot does.
class FrmPseudoCatch : public QWidget {
  public:
    FrmPseudoCatch(ShellContext& ctx, QWidget* parent);
    PlotView* plot() const { return plot_; }
    QPushButton* closeButton() const { return close_; }

  private:
    PlotView* plot_ = nullptr;
    QPushButton* close_ = nullptr;
};

class FrmPwPlot : public QWidget {
  public:
    explicit FrmPwPlot(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmPwPlot() override;

    void Initialize(const std::string& path);
    // Builds the points and draws both plots.
    void PWMethod();
    // A click at canvas coordinates on the main plot or on the pseudo-catch curve.
    void clickPlot(double x, double y, bool pseudo = false);
    // A mouse move at canvas coordinates: the read-outs follow the point under the pointer.
    void hoverPlot(double x, double y, bool pseudo = false);
    void openPseudoCatch();

    QTabWidget* tabs() const { return tabs_; }
    SamplePanel* samples() const { return samples_; }
    PlotView* plot() const { return plot_; }
    FrmPseudoCatch* pseudoCatch() const { return pseudo_; }
    // 0 plot, 1 pseudo-catch, 2 print, 3 close, 4 open.
    QPushButton* command(int index) const { return cmd_[index]; }
    QLabel* meanReadOut() const { return meanAt_; }
    QLabel* cutOffReadOut() const { return cutAt_; }
    QLabel* looBox() const { return loo_; }
    QLabel* zkBox() const { return zk_; }
    QLabel* rBox() const { return r_; }
    QLabel* functionBox() const { return function_; }
    const PowellWetherallData* points() const;
    const PowellWetherallFit* fit() const;
    int picked() const;

  private:
    struct State;
    void clearForChange();
    void redraw();
    void showFit();
    void print();

    ShellContext& ctx_;
    std::unique_ptr<State> st_;
    QTabWidget* tabs_ = nullptr;
    QLineEdit* file_ = nullptr;
    QLabel* species_ = nullptr;
    SamplePanel* samples_ = nullptr;
    PlotView* plot_ = nullptr;
    FrmPseudoCatch* pseudo_ = nullptr;
    std::array<QPushButton*, 5> cmd_{};
    QLabel* meanAt_ = nullptr;
    QLabel* cutAt_ = nullptr;
    QLabel* loo_ = nullptr;
    QLabel* zk_ = nullptr;
    QLabel* r_ = nullptr;
    QLabel* function_ = nullptr;
};

}  // namespace norvo::gui
