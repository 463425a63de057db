#pragma once
// Z from the oldest age in the catch (Hoenig's two models) on typed values.
#include <QWidget>
#include <array>

#include "mortality/hoenig.h"
#include "widgets/shell_context.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace norvo::gui {

inline constexpr const char* kHoenigTitle = "Hoenig's Models...";
inline constexpr const char* kTmaxCaption = "Maximum age (tmax):";
inline constexpr const char* kTcCaption = "Mean age at first capture (tc):";
inline constexpr const char* kNCaption = "Sample size of the old animals (N):";
inline constexpr const char* kHoenigZCaption = "Z:";

class FrmHoenig : public QWidget {
  public:
    explicit FrmHoenig(ShellContext& ctx, QWidget* parent = nullptr);

    void cmdCompute();
    // Computes as Compute does and, when the checks pass, prints the page.
    void cmdPrint();
    // Leaving the tc box with a value not below tmax names the rule at once.
    void checkTc();

    QLineEdit* txtTmax = nullptr;
    QLineEdit* txtTc = nullptr;
    QLineEdit* txtN = nullptr;
    std::array<QCheckBox*, 2> chkHoenig{};
    QLineEdit* txtZ1 = nullptr;
    QLineEdit* txtSe1 = nullptr;  // model 1 has no s.e.; the box stays empty
    QLineEdit* txtZ2 = nullptr;
    QLineEdit* txtSe2 = nullptr;
    QPushButton* cmdComputeButton = nullptr;
    QPushButton* cmdPrintButton = nullptr;

  private:
    HoenigInput input() const;
    ShellContext& ctx_;
};

}  // namespace norvo::gui
