#pragma once
// Linking of means: the means of an MSD file on a time axis, linked by clicks into cohorts,
// growth from the links and the links saved as growth increments or lengths at relative age.
#include <QWidget>
#include <array>
#include <memory>
#include <string>

#include "widgets/shell_context.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace norvo::gui {

inline constexpr std::array<const char*, 5> kLkCommands = {"...", "&Redo All", "&Save Links",
                                                           "&Print...", "&Close"};
inline constexpr const char* kLkGinFilter = "Growth increments (*.gin)|*.gin|All Files (*.*)|*.*";
inline constexpr const char* kLkLaaFilter = "Length-at-age (*.laa)|*.laa|All Files (*.*)|*.*";

class PlotView;

class FrmLinking : public QWidget {
  public:
    explicit FrmLinking(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmLinking() override;

    void Initialize(const std::string& path);
    QPushButton* command(int index) const { return cmd_[index]; }
    PlotView* plot() const { return plot_; }
    QTableWidget* grid(int index) const { return grids_[index]; }
    QLabel* hint() const { return hint_; }
    // The pointer, a click, a double click and the popup's entries, at canvas coordinates.
    void hoverPlot(double x, double y);
    void clickPlot(double x, double y);
    void breakSeries();
    void popupChoice(int index);
    int linkCount() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct State;
    void redoAll();
    void saveLinks();
    void print();
    void redraw();
    void fillLinks();

    ShellContext& ctx_;
    std::unique_ptr<State> st_;
    QLineEdit* file_ = nullptr;
    PlotView* plot_ = nullptr;
    std::array<QTableWidget*, 2> grids_{};
    QLabel* hint_ = nullptr;
    QLabel* growth_ = nullptr;
    std::array<QPushButton*, 5> cmd_{};
};

}  // namespace norvo::gui
