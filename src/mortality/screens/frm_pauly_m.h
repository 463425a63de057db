#pragma once
// Natural mortality from Pauly's equation, in its length and weight forms, on typed values.
#include <QWidget>
#include <array>

#include "mortality/pauly_m.h"
#include "widgets/shell_context.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace norvo::gui {

inline constexpr const char* kPaulyTitle = "Pauly's M Equation...";
inline constexpr const char* kPaulyLengthOption = "Length";
inline constexpr const char* kPaulyWeightOption = "Weight";
inline constexpr const char* kPaulyKCaption = "Growth constant (K; /year):";
inline constexpr const char* kPaulyTCaption = "Mean habitat temperature (T; deg C):";
inline constexpr const char* kPaulyMCaption = "Natural mortality (M):";

class FrmPaulyM : public QWidget {
  public:
    explicit FrmPaulyM(ShellContext& ctx, QWidget* parent = nullptr);

    PaulyForm form() const;
    void cmdCompute();
    // Computes as Compute does and, when the checks pass, prints the page.
    void cmdPrint();

    std::array<QRadioButton*, 2> optPaulyM{};  // 0 length, 1 weight
    QLabel* lblSize = nullptr;
    QLabel* lblFormula = nullptr;
    QLabel* lblRemark = nullptr;
    QLineEdit* txtSize = nullptr;
    QLineEdit* txtK = nullptr;
    QLineEdit* txtT = nullptr;
    QLineEdit* txtM = nullptr;
    QPushButton* cmdComputeButton = nullptr;
    QPushButton* cmdPrintButton = nullptr;

  private:
    void showForm();
    PaulyInput input() const;
    // Computes and shows M, or the notice of the failed check.
    PaulyResult compute(const PaulyInput& in);
    ShellContext& ctx_;
};

}  // namespace norvo::gui
