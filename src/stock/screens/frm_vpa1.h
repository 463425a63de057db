#pragma once
// The age-structured VPA screen: a catch-at-age file and M, terminal F and the time interval
// give population and F by age group, as a table and a stacked-bar plot.
#include <QWidget>
#include <array>
#include <memory>
#include <string>

#include "widgets/shell_context.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace norvo {
struct AgeVpaResult;
}

namespace norvo::gui {

inline constexpr const char* kVpa1Caption = "Age-Structured VPA";
inline constexpr std::array<const char*, 3> kVpa1Params = {
    "M:", "Terminal F:", "Time interval (dt):"};
inline constexpr std::array<const char*, 3> kVpa1HeaderCaptions = {
    "Unit of age measurement:", "Unit of catch measurement:", "Other identifiers:"};
inline constexpr std::array<const char*, 4> kVpa1Columns = {"Age", "Catch", "Population (N)",
                                                            "Fishing mortality (F)"};
inline constexpr const char* kVpa1Legend = "Display legend";
inline constexpr const char* kVpa1OpenFilter = "Catch-at-age (*.caa)|*.caa|All Files (*.*)|*.*";
inline constexpr std::array<const char*, 4> kVpa1Commands = {"&Compute", "&Print...", "...",
                                                             "&Close"};

class PlotView;

class FrmVpa1 : public QWidget {
  public:
    explicit FrmVpa1(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmVpa1() override;

    void Initialize(const std::string& path);
    void PlotVPA1();
    void clickPlot(double x, double y);

    QLineEdit* param(int index) const { return params_[index]; }
    QPushButton* command(int index) const { return cmd_[index]; }
    QCheckBox* legendBox() const { return legend_; }
    PlotView* plot() const { return plot_; }
    QTableWidget* table() const { return table_; }
    const AgeVpaResult* result() const;

  private:
    struct State;
    void clearResult();
    void redraw();
    void print();

    ShellContext& ctx_;
    std::unique_ptr<State> st_;
    QLineEdit* file_ = nullptr;
    std::array<QLabel*, 3> header_{};
    std::array<QLineEdit*, 3> params_{};
    QCheckBox* legend_ = nullptr;
    PlotView* plot_ = nullptr;
    QTableWidget* table_ = nullptr;
    std::array<QPushButton*, 4> cmd_{};
};

}  // namespace norvo::gui
