#pragma once
// The VBGF and L/F plot screen: a grouped file's samples with growth curves across them.
#include <QWidget>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "growth/vbgf_plot.h"
#include "widgets/shell_context.h"

class QCheckBox;
class QLineEdit;
class QPushButton;
class QScrollBar;
class QTabWidget;

namespace norvo::gui {

class PlotView;

inline constexpr const char* kVbgfPlotCaption = "VBGF and LF Plot ...";
inline constexpr const char* kVbgfTabData = "&Data and Graph Options";
inline constexpr const char* kVbgfTabGraph = "&Graph (Output)";
inline constexpr std::array<const char*, 6> kVbgfBoxCaptions = {
    "Asymptotic length (Loo):", "VBGF growth constant (K):", "Amplitute of oscillation (C):",
    "\"Winter Point\" (WP):",   "Starting sample (SS):",     "Starting length (SL):"};
inline constexpr const char* kVbgfUseRestructured = "Use restructured frequencies";
inline constexpr const char* kVbgfPlotCurve = "Plot the VBGF Curve";
inline constexpr const char* kVbgfSolidBars = "Solid bar graphs";
inline constexpr const char* kVbgfDisplayAll = "Display all";
inline constexpr const char* kVbgfDisplayAllTip = "This will fit all data on the display window.";
inline constexpr const char* kVbgfScrollTip = "Scroll to view other plots";
inline constexpr const char* kVbgfLineColour = "Line color for curve";
inline constexpr const char* kVbgfFillColour = "Color fill for bar graph";
inline constexpr const char* kVbgfCmdPlot = "P&lot VBGF";
inline constexpr const char* kVbgfCmdOpen = "&Open...";
inline constexpr const char* kVbgfCmdPrint = "&Print";
inline constexpr const char* kVbgfCmdClose = "&Close";
inline constexpr const char* kVbgfOpenTitle = "Open...";
inline constexpr const char* kVbgfOpenFilter =
    "Grouped frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*";
inline constexpr const char* kVbgfReportTitle =
    "von Bertallanfy Growth Function Plot and Length Frequencies";
inline constexpr const char* kVbgfNotAvailable = "n/a";

class FrmVbgfPlot : public QWidget {
  public:
    explicit FrmVbgfPlot(ShellContext& ctx, QWidget* parent = nullptr);

    // Reads the file and the parameter boxes' defaults from the settings.
    void Initialize(const std::string& path);
    void ReadDefaults();
    // "P&lot VBGF": checks the boxes, draws bars and curves; false when a check refused.
    bool PlotVBGF();
    void OpenCommand();
    void PrintCommand();

    QLineEdit* box(int i) const { return boxes_[static_cast<size_t>(i)]; }
    QCheckBox* restructured() const { return chkRestructured_; }
    QCheckBox* plotCurve() const { return chkCurve_; }
    QCheckBox* solidBars() const { return chkSolid_; }
    QCheckBox* displayAll() const { return chkAll_; }
    QScrollBar* scrollBar() const { return hscr_; }
    QTabWidget* tabs() const { return tabs_; }
    PlotView* plotView() const { return view_; }
    bool hasFile() const { return data_.has_value(); }
    const CurveTable& curveTable() const { return table_; }
    // Picks a colour (the colour buttons); null keeps the colour.
    std::function<std::optional<Colour>(Colour current, const QString& title)> chooseColour;

  private:
    void redraw();

    ShellContext& ctx_;
    std::optional<LfqData> data_;
    std::vector<std::vector<double>> restructuredPoints_;
    std::optional<GrowthParams> params_;
    CurveTable table_;
    Colour lineColour_ = kRed;
    Colour barColour_ = Rgb(0, 0, 255);
    std::array<QLineEdit*, 6> boxes_{};
    QCheckBox* chkRestructured_ = nullptr;
    QCheckBox* chkCurve_ = nullptr;
    QCheckBox* chkSolid_ = nullptr;
    QCheckBox* chkAll_ = nullptr;
    QScrollBar* hscr_ = nullptr;
    QTabWidget* tabs_ = nullptr;
    PlotView* view_ = nullptr;
};

}  // namespace norvo::gui
