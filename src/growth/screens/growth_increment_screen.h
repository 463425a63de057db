#pragma once
// The common part of the growth-increment screens (Gulland and Holt, Munro, Fabens,
// Appeldoorn): the file of increments, the row table with each row's selection flag, the
// fixed-Loo box, the result labels, and plots whose points toggle a row when clicked.
//
// How a screen uses it:
//   - derive, build the plots with addPlot() (each a PlotView on a tab of tabs()), and put any
//     extra buttons in buttonRow();
//   - implement recompute(): run the core on rows() and flags(), show its notices with
//     ShowNotices, adopt a pre-selection with setFlags(), draw, and hand the drawn points of
//     each plot to setPickable(); fill the results with setResult();
//   - implement print() (the Print button); call loadLastActive() at the end of the
//     constructor, which opens the active GIN file if there is one.
// A click on a plot flips the row of the point within 1 canvas unit of it and runs
// recompute(); a click beside every point gets the "Invalid Action..." notice. Moving the
// pointer shows the data coordinates under it, "n.a." outside the plot frame. Ticking a row's
// box in the table flips its flag too.
#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include "data/sample_readers.h"
#include "growth/increment_plots.h"
#include "widgets/shell_context.h"

class QCheckBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;
class QTabWidget;

namespace norvo::gui {

class PlotView;

inline constexpr const char* kGinOpenTitle = "Open...";
inline constexpr const char* kGinFilter = "Growth Increments (*.gin)|*.gin|All Files (*.*)|*.*";
inline constexpr const char* kGinSelectNote =
    "Click the data point to select or de-select data. Parameters are automatically recomputed.";
inline constexpr const char* kGinUseFixedLoo = "Use fixed Loo";
inline constexpr const char* kGinEnterLoo = "Enter Loo:";

class GrowthIncrementScreen : public QWidget {
  public:
    GrowthIncrementScreen(ShellContext& ctx, const std::string& objectName,
                          const std::string& caption, QWidget* parent);
    ~GrowthIncrementScreen() override;

    // Reads a GIN file into the screen and computes.
    void Initialize(const std::string& path);
    virtual void recompute() = 0;

    const std::vector<GinRow>& rows() const { return rows_; }
    const std::vector<bool>& flags() const { return flags_; }
    // Sets the flags (e.g. after a pre-selection) and shows them in the table.
    void setFlags(const std::vector<bool>& flags);
    // Flips one row's flag and computes again.
    void toggleRow(int row);
    // The fixed Loo when its box is ticked: the entered number, 0 when empty or no number.
    std::optional<float> fixedLoo() const;
    const LfqData& header() const { return header_; }
    std::string unit() const { return header_.unitOfMeasurement; }

    QTabWidget* tabs() const { return tabs_; }
    QTableWidget* table() const { return table_; }
    QCheckBox* fixedBox() const { return chkFixed_; }
    QLineEdit* looBox() const { return txtLoo_; }
    QPushButton* printButton() const { return print_; }
    QPushButton* closeButton() const { return close_; }
    QPushButton* openButton() const { return open_; }
    QLabel* resultLabel(int index) const { return results_[index]; }  // Loo, K
    QLabel* messageLabel() const { return message_; }
    QLabel* readOut(int index) const { return readOuts_[index]; }
    PlotView* plot(int index) const { return plots_[index].view; }

    // A click or a pointer move on plot `index` at canvas coordinates, as the mouse gives them.
    void clickPlot(int index, double x, double y);
    void movePointer(int index, double x, double y);

  protected:
    // Adds a plot on a new tab. `xPattern` and `yPattern` format the read-outs; the captions
    // name them ("Mean length:", "Growth rate:").
    PlotView* addPlot(const QString& tabCaption, const std::string& xCaption,
                      const std::string& yCaption, const std::string& xPattern,
                      const std::string& yPattern, bool pickable = true);
    // Adds a plot under an existing one on the same tab (not pickable).
    PlotView* addPlotBelow(int index);
    void setPickable(int index, const PickablePlot& plot);
    // Loo and K in "0.00" and "0.000"; blank when there is no result.
    void setResult(std::optional<float> loo, std::optional<float> k);
    void setMessage(const std::string& text);
    QHBoxLayout* buttonRow() const { return buttons_; }
    void loadLastActive();
    virtual void print() = 0;

    ShellContext& ctx_;

  private:
    struct Plot {
        PlotView* view = nullptr;
        PickablePlot pick;
        std::string xCaption, yCaption, xPattern, yPattern;
        bool pickable = false;
    };
    void fillTable();
    void runRecompute();

    LfqData header_;
    std::vector<GinRow> rows_;
    std::vector<bool> flags_;
    std::vector<Plot> plots_;
    bool filling_ = false;
    QLineEdit* file_ = nullptr;
    QLabel* species_ = nullptr;
    QPushButton* open_ = nullptr;
    QTableWidget* table_ = nullptr;
    QCheckBox* chkFixed_ = nullptr;
    QLineEdit* txtLoo_ = nullptr;
    QLabel* results_[2] = {};
    QLabel* message_ = nullptr;
    QLabel* readOutCaptions_[2] = {};
    QLabel* readOuts_[2] = {};
    QTabWidget* tabs_ = nullptr;
    QHBoxLayout* buttons_ = nullptr;
    QPushButton* print_ = nullptr;
    QPushButton* close_ = nullptr;
};

}  // namespace norvo::gui
