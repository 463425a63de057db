#pragma once
// The regression tool's screen: the pairs of a two-column file, a function form picked from a
// list (forms 6 to 8 ask for the constant C), the line in the transformed space and its
// read-outs, and the report.
#include <QWidget>
#include <array>
#include <memory>
#include <optional>
#include <string>

#include "widgets/shell_context.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace norvo {
struct RegressRun;
struct XyfData;
}  // namespace norvo

namespace norvo::gui {

inline constexpr const char* kRegressCaption = "Regression Analysis";
inline constexpr const char* kRegressCmdPrint = "&Print";
inline constexpr const char* kRegressCmdClose = "&Close";
inline constexpr const char* kRegressCmdOpen = "...";
inline constexpr const char* kRegressOpenTitle = "Open...";
inline constexpr const char* kRegressXyfFilter =
    "XY regression file (*.xyf)|*.xyf|All Files (*.*)|*.*";
inline constexpr std::array<const char*, 4> kRegressTitleCaptions = {
    "Graph Title:", "X-axis Label:", "Y-axis Label:", "Remarks:"};
// The read-outs of txtRegress, in order, with their display patterns.
inline constexpr std::array<const char*, 7> kRegressReadOuts = {
    "n:", "a:", "SE of a:", "b:", "SE of b:", "r:", "Variance of the fit (F):"};
inline constexpr const char* kRegressConstantCaption = "Constant (C):";

class PlotView;

class FrmRegress : public QWidget {
  public:
    explicit FrmRegress(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmRegress() override;

    // Reads an XYF file and fits the form shown in the list.
    void Initialize(const std::string& path);
    // Picks a form of the list, as the user does: forms 6 to 8 ask for C first. An empty
    // answer, or a pair the form cannot take, leaves the earlier pick and its results.
    void pickForm(int form);

    QComboBox* cmbRegress() const { return cmbRegress_; }
    QLineEdit* txtRegress(int index) const { return txtRegress_[static_cast<size_t>(index)]; }
    QLineEdit* txtTitle(int index) const { return txtTitle_[static_cast<size_t>(index)]; }
    QLineEdit* txtConstant() const { return constant_; }
    QLabel* lblFunction() const { return function_; }
    QPushButton* command(int index) const { return cmd_[static_cast<size_t>(index)]; }
    PlotView* plot() const { return plot_; }
    const RegressRun* run() const;

  private:
    struct State;
    // Asks for C until it passes its guards; nothing when the user gives no answer.
    std::optional<double> askConstant(int form);
    void showRun();
    void redraw();
    void clearResults();
    void print();

    ShellContext& ctx_;
    std::unique_ptr<State> st_;
    QLineEdit* file_ = nullptr;
    std::array<QLineEdit*, 4> txtTitle_{};
    QComboBox* cmbRegress_ = nullptr;
    QLabel* function_ = nullptr;
    QLineEdit* constant_ = nullptr;
    std::array<QLineEdit*, 7> txtRegress_{};
    PlotView* plot_ = nullptr;
    std::array<QPushButton*, 3> cmd_{};  // 0 print, 1 close, 2 open
};

}  // namespace norvo::gui
