#pragma once
// The part the two 2-D yield-per-recruit screens share: the boxes for the length ratio, M/K and
// the reference points, the scroll bar that moves the ratio in thousandths, the plot of Y'/R and
// B'/R over E, and the report. The knife-edge and the ogive screens supply the analysis.
#include <QWidget>
#include <array>
#include <optional>

#include "chart/report.h"
#include "stock/relative_ypr_plot.h"
#include "widgets/shell_context.h"

class QGridLayout;
class QLabel;
class QLineEdit;
class QScrollBar;

namespace norvo::gui {

class PlotView;

// Bounds the boxes force their numbers into.
inline constexpr double kYrRatioLow = 0.001, kYrRatioHigh = 0.999;
inline constexpr double kYrMkLow = 0.0001, kYrMkHigh = 99;
inline constexpr double kYrStartRatio = 0.05;

class Ypr2DScreen : public QWidget {
  public:
    // Box 0 the ratio, 1 M/K, 2 E-10, 3 E-50, 4 E-max.
    QLineEdit* box(int i) const { return txt_[size_t(i)]; }
    QScrollBar* scrollBar() const { return scroll_; }
    PlotView* plot() const { return plot_; }
    float ratio() const { return ratio_; }
    float mk() const { return mk_; }
    float yPrimeMax() const { return yPrimeMax_; }

    // Redraws the plot and the reference points at the current inputs.
    void redraw();
    // The checks on leaving the ratio or the M/K box.
    void leaveRatio();
    void leaveMk();
    void scrolled(int value);
    void print();

  protected:
    Ypr2DScreen(ShellContext& ctx, const char* ratioCaption, const char* hint, QWidget* parent);
    // Starts over at the ratio 0.05 with the given M/K.
    void start(float mk);
    // The analysis at the current inputs; nothing when it can't run (its notice shown).
    struct Drawn {
        YprPlotData plot;
        Ypr2DReportInput report;
    };
    virtual std::optional<Drawn> analyse() = 0;
    // The top of the Y' axis after a change of M/K.
    virtual float topAfterChange() = 0;
    // Reads a box as the number forced into [low, high] and shown in "0.000"; "Invalid number"
    // and the focus back in the box when it holds none.
    std::optional<double> forcedNumber(QLineEdit* box, double low, double high);
    QGridLayout* grid() const { return grid_; }

    ShellContext& ctx_;
    float ratio_ = float(kYrStartRatio);
    float mk_ = 1;
    float yPrimeMax_ = 1;

  private:
    std::array<QLineEdit*, 5> txt_{};
    QScrollBar* scroll_ = nullptr;
    PlotView* plot_ = nullptr;
    QGridLayout* grid_ = nullptr;
    std::optional<Ypr2DReportInput> lastReport_;
};

}  // namespace norvo::gui
