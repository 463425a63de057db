#pragma once
// Appeldoorn's screen on the shared growth-increment screen: the starting parameter matrix,
// the fit of Loo, K, C and WP to every row of the file, the growth curve and the summary
// statistics with the remarks of the fit.
#include <array>
#include <memory>
#include <string>

#include "growth/screens/growth_increment_screen.h"

class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QTableWidget;

namespace norvo {
struct AppeldoornRun;
}

namespace norvo::gui {

inline constexpr const char* kApParametersTab = "&Parameters";
inline constexpr const char* kApCurveTab = "&Growth Curve";
inline constexpr const char* kApSummaryTab = "&Summary Statistics";
inline constexpr const char* kApMatrixCaption = "Starting Parameter Matrix";
inline constexpr std::array<const char*, 3> kApColumnCaptions = {
    "Minimum Constraint", "Starting Estimate", "Maximum Constraint"};
inline constexpr std::array<const char*, 4> kApSummaryColumns = {"Parameter", "Estimates",
                                                                 "Asymptotic s.e.", "C.V."};
inline constexpr const char* kApCmdCompute = "&Compute";

class FrmAppledoorn : public GrowthIncrementScreen {
  public:
    explicit FrmAppledoorn(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmAppledoorn() override;
    // Redraws; a newly read file resets the matrix to its starting values.
    void recompute() override;
    // The checks, the fit and the closing notice.
    void compute();
    // Shows a parameter of the summary table in the small frame.
    void selectParameter(int row);

    // The matrix boxes, row by row (Loo, K, C, WP), each row minimum, start, maximum.
    QLineEdit* txtParam(int index) const { return txtParam_.at(static_cast<size_t>(index)); }
    QTableWidget* summary() const { return summary_; }
    QLineEdit* rBox() const { return r_; }
    QLineEdit* adjustedRBox() const { return adjR_; }
    QPlainTextEdit* txtRemarks() const { return remarks_; }
    QLineEdit* selectedBox(int index) const { return selected_.at(static_cast<size_t>(index)); }
    QPushButton* computeButton() const { return compute_; }
    const AppeldoornRun* result() const { return run_.get(); }

  protected:
    void print() override;

  private:
    void resetMatrix();
    void clearResults();
    void showRun();
    void redraw();

    std::string loadedPath_;
    std::unique_ptr<AppeldoornRun> run_;
    std::array<QLineEdit*, 12> txtParam_{};
    QProgressBar* progress_ = nullptr;
    QPushButton* compute_ = nullptr;
    QTableWidget* summary_ = nullptr;
    QLineEdit* r_ = nullptr;
    QLineEdit* adjR_ = nullptr;
    QPlainTextEdit* remarks_ = nullptr;
    std::array<QLineEdit*, 3> selected_{};  // estimate, s.e., C.V.
};

}  // namespace norvo::gui
