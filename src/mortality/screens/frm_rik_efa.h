#pragma once
// Natural mortality from the age at first maturity (Rikhter and Efanov) on a typed value.
#include <QWidget>

#include "mortality/rikhter_efanov.h"
#include "widgets/shell_context.h"

class QLineEdit;
class QPushButton;

namespace norvo::gui {

inline constexpr const char* kRikEfaTitle = "Rikhter & Efanov's Method...";
inline constexpr const char* kTmCaption = "Age at first maturity (tm; years):";
inline constexpr const char* kRikEfaFormula = "M = 1.52 / tm^0.72 - 0.16";
inline constexpr const char* kRikEfaMCaption = "Natural mortality (M):";

class FrmRikEfa : public QWidget {
  public:
    explicit FrmRikEfa(ShellContext& ctx, QWidget* parent = nullptr);

    void cmdCompute();
    // Computes as Compute does and, when the checks pass, prints the page.
    void cmdPrint();

    QLineEdit* txtTm = nullptr;
    QLineEdit* txtM = nullptr;
    QPushButton* cmdComputeButton = nullptr;
    QPushButton* cmdPrintButton = nullptr;

  private:
    // Computes and shows M, or the notice of the failed check.
    RikhterEfanovResult compute(const RikhterEfanovInput& in);
    ShellContext& ctx_;
};

}  // namespace norvo::gui
