#pragma once
// "Mortalities...": Z and M for the extrapolation of the probabilities of capture. M comes from
// the temperature by Pauly's formula unless typed.
#include <QWidget>
#include <array>
#include <functional>

#include "growth/vbgf.h"
#include "widgets/shell_context.h"

class QLineEdit;
class QPushButton;

namespace norvo::gui {

inline constexpr const char* kProbCcTitle = "Mortalities...";
inline constexpr const char* kProbCcProceed = "&Proceed";
inline constexpr const char* kProbCcCancel = "&Cancel";

class FrmProbCatchCurve : public QWidget {
  public:
    using Proceed = std::function<void(double z, double m, double t)>;
    // `z` is the curve's Z; M comes from Loo and K of `growth`.
    FrmProbCatchCurve(ShellContext& ctx, double z, const GrowthParams& growth, Proceed proceed,
                      QWidget* parent = nullptr);
    // Fields: 0 Z from the catch curve (read-only), 1 Z to use, 2 temperature, 3 M from the
    // formula, 4 M to use.
    QLineEdit* field(int index) const { return fields_[index]; }
    QPushButton* proceedButton() const { return proceed_; }
    QPushButton* cancelButton() const { return cancel_; }
    // Leaving the temperature field.
    void temperatureEntered();
    void proceed();

  private:
    ShellContext& ctx_;
    GrowthParams growth_;
    Proceed onProceed_;
    std::array<QLineEdit*, 5> fields_{};
    QPushButton* proceed_;
    QPushButton* cancel_;
};

}  // namespace norvo::gui
