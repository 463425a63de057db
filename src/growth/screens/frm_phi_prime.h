#pragma once
// Growth performance indices from Loo or Woo, and K.
#include <QWidget>

#include "growth/phi_prime.h"
#include "widgets/shell_context.h"

class QLineEdit;
class QPushButton;

namespace norvo::gui {

inline constexpr const char* kPhiPrimeTitle = "Growth Performance Indices...";
inline constexpr const char* kPhiPrimeReadout = "ø':";
inline constexpr const char* kPhiReadout = "ø:";

class FrmPhiPrime : public QWidget {
  public:
    explicit FrmPhiPrime(ShellContext& ctx, QWidget* parent = nullptr);

    // Shows each index whose size and K are above 0 and leaves the other empty. The Compute
    // button runs it through the command boundary.
    void ComputeParameters();

    QLineEdit* txtLoo = nullptr;
    QLineEdit* txtWoo = nullptr;
    QLineEdit* txtK = nullptr;
    QLineEdit* txtPhiPrime = nullptr;
    QLineEdit* txtPhi = nullptr;
    QPushButton* cmdComputeButton = nullptr;

  private:
    ShellContext& ctx_;
};

}  // namespace norvo::gui
