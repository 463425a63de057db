#pragma once
// The length-structured VPA screen: samples of a grouped file, growth and mortality inputs give
// population, F and biomass by length class, as a table and a stacked-bar plot; the result can
// be saved as a species file.
#include <QWidget>
#include <array>
#include <memory>
#include <string>

#include "widgets/shell_context.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QTableWidget;

namespace norvo {
struct LengthVpaResult;
}

namespace norvo::gui {

inline constexpr const char* kVpa2Caption = "Length-Structured VPA";
inline constexpr std::array<const char*, 8> kVpa2Params = {
    "Raising exponent (10^e):", "a:", "b:", "M:", "Terminal F:", "Loo:", "K:", "+Groups:"};
inline constexpr std::array<const char*, 5> kVpa2Columns = {
    "Mid-Length", "Catch (in numbers)", "Population (N)", "Fishing mortality (F)",
    "Steady-state Biomass (tonnes)"};
inline constexpr const char* kVpa2Legend = "Display legend";
inline constexpr const char* kVpa2ModifyF = "Modify terminal F from graph";
inline constexpr const char* kVpaTipTitle = "Tip!";
inline constexpr const char* kVpa2ModifyTip =
    "Click on the graphic display to modify the terminal F and/or create + groups.";
inline constexpr const char* kVpaLegendTip =
    "Click on the graphic display to reposition the legend.";
inline constexpr const char* kVpa2OpenFilter =
    "Grouped frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*";
inline constexpr const char* kVpa2SpcFilter = "Species Table (*.spc)|*.spc|All Files (*.*)|*.*";
inline constexpr const char* kVpa2SaveTitle = "Save As...";
inline constexpr std::array<const char*, 5> kVpa2Commands = {"&Compute", "...", "&Print...",
                                                             "&Save SPC...", "&Close"};

class PlotView;
class SamplePanel;

class FrmVpa2 : public QWidget {
  public:
    explicit FrmVpa2(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmVpa2() override;

    void Initialize(const std::string& path);
    void Recompute();
    // A press and release on the plot at canvas coordinates.
    void pressPlot(double x, double y);
    void releasePlot();

    QLineEdit* param(int index) const { return params_[index]; }
    QPushButton* command(int index) const { return cmd_[index]; }
    QCheckBox* legendBox() const { return legend_; }
    QCheckBox* modifyBox() const { return modify_; }
    SamplePanel* samples() const { return samples_; }
    PlotView* plot() const { return plot_; }
    QTableWidget* table() const { return table_; }
    QTabWidget* tabs() const { return tabs_; }
    const LengthVpaResult* result() const;

  private:
    struct State;
    void clearResult();
    void redraw();
    void fillTable();
    void print();
    void saveSpecies();

    ShellContext& ctx_;
    std::unique_ptr<State> st_;
    QLineEdit* file_ = nullptr;
    QLabel* species_ = nullptr;
    std::array<QLineEdit*, 8> params_{};
    SamplePanel* samples_ = nullptr;
    QCheckBox* legend_ = nullptr;
    QCheckBox* modify_ = nullptr;
    QTabWidget* tabs_ = nullptr;
    PlotView* plot_ = nullptr;
    QTableWidget* table_ = nullptr;
    std::array<QPushButton*, 5> cmd_{};
};

}  // namespace norvo::gui
