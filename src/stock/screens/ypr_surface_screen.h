#pragma once
// The part the two yield-per-recruit surface screens share: the surface plot with its spin and
// display options, the M/K box, the read-outs under the mouse, and the commands "&2D Analysis",
// "&Print" and "&Close". The knife-edge and the ogive screens supply the grid and the 2-D screen.
#include <QWidget>
#include <array>
#include <vector>

#include "chart/surface3d.h"
#include "stock/relative_ypr.h"
#include "widgets/shell_context.h"

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTimer;
class QVBoxLayout;

namespace norvo::gui {

class PlotView;

inline constexpr std::array<const char*, 2> kYrOptions = {"Y'/R plot", "B'/R plot"};
inline constexpr std::array<const char*, 4> kYrChecks = {"Spin plot", "Floor display",
                                                         "Ceiling display", "Isopleth"};
inline constexpr const char* kYr2DCommand = "&2D Analysis";
inline constexpr const char* kYrPrintCommand = "&Print";
inline constexpr const char* kYrCloseCommand = "&Close";
inline constexpr const char* kYrUnknown = "?";
inline constexpr int kYrSpinMs = 100;

class YprSurfaceScreen : public QWidget {
  public:
    QLineEdit* mkBox() const { return mk_; }
    QRadioButton* option(int i) const { return opt_[size_t(i)]; }
    QCheckBox* check(int i) const { return chk_[size_t(i)]; }
    QPushButton* command2D() const { return cmd2D_; }
    QPushButton* commandPrint() const { return cmdPrint_; }
    PlotView* plot() const { return plot_; }
    QLabel* readout(int i) const { return readout_[size_t(i)]; }  // E, ratio, value
    int rotation() const { return style_.rotationDeg; }
    const SurfaceGrid& grid() const { return grid_; }

    // Redraws the surface when the inputs allow it.
    void replot();
    // One tick of the spin.
    void spinTick();
    // The read-outs for a point of the picture.
    void UpdateFooter(double x, double y);
    void print();

  protected:
    YprSurfaceScreen(ShellContext& ctx, bool ogive, QWidget* parent);
    // The surface's rows, or nothing when the inputs can't give one (the screen stays blank).
    virtual std::optional<std::vector<SurfaceRow>> surfaceRows(bool biomass) = 0;
    virtual void open2D() = 0;
    virtual std::string reportTitle() const = 0;
    // Whether the plot and "&2D Analysis" may run.
    virtual bool inputsReady() const;
    // The current M/K, when the box holds a number above zero.
    std::optional<float> mkValue() const;
    void updateEnabled();
    // The side panel, for the screen's own boxes above the options.
    QVBoxLayout* side() const { return side_; }
    QGridLayout* boxes() const { return boxes_; }
    ShellContext& ctx_;

  private:
    void build();
    bool biomass() const;

    bool ogive_;
    SurfaceStyle style_;
    SurfaceGrid grid_;
    PlotView* plot_ = nullptr;
    QLineEdit* mk_ = nullptr;
    QLabel* valueCaption_ = nullptr;
    std::array<QLabel*, 3> readout_{};
    std::array<QRadioButton*, 2> opt_{};
    std::array<QCheckBox*, 4> chk_{};
    QPushButton* cmd2D_ = nullptr;
    QPushButton* cmdPrint_ = nullptr;
    QTimer* spin_ = nullptr;
    QVBoxLayout* side_ = nullptr;
    QGridLayout* boxes_ = nullptr;
};

}  // namespace norvo::gui
