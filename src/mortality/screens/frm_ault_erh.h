#pragma once
// Z from mean length and the largest length (Ault and Ehrhardt) on typed values.
#include <QWidget>

#include "mortality/ault_ehrhardt.h"
#include "mortality/screens/frm_bh_mort.h"
#include "widgets/shell_context.h"

class QLineEdit;
class QPushButton;

namespace norvo::gui {

inline constexpr const char* kAultErhTitle = "Ault & Ehrhardt...";
inline constexpr const char* kLmaxCaption = "Maximum length (Lmax):";
inline constexpr const char* kAultNoRoot = "none in range";

class FrmAultErh : public QWidget {
  public:
    explicit FrmAultErh(ShellContext& ctx, QWidget* parent = nullptr);

    // Checks the five boxes in order, then shows the stepping search's Z and, beside it, the
    // exact root of R = T on the same range.
    void cmdCompute();
    // Computes as Compute does and, when the checks pass, prints the page.
    void cmdPrint();

    MeanLengthBoxes boxes;
    QLineEdit* txtLmax = nullptr;
    QLineEdit* txtZ = nullptr;
    QLineEdit* txtRoot = nullptr;
    QPushButton* cmdComputeButton = nullptr;
    QPushButton* cmdPrintButton = nullptr;

  private:
    AultEhrhardtInput input() const;
    ShellContext& ctx_;
};

}  // namespace norvo::gui
