#pragma once
// Z from mean length (Beverton and Holt) on typed values.
#include <QWidget>

#include "mortality/bh_mortality.h"
#include "widgets/shell_context.h"

class QFormLayout;
class QLineEdit;
class QPushButton;

namespace norvo::gui {

inline constexpr const char* kMeanLengthInputFrame = "Input parameters";
inline constexpr const char* kMeanLengthResultFrame = "Result";
inline constexpr const char* kLooCaption = "Asymptotic length (Loo):";
inline constexpr const char* kKCaption = "Growth constant (K):";
inline constexpr const char* kLmeanCaption = "Mean length (Lmean):";

// The four boxes both mean-length screens share.
struct MeanLengthBoxes {
    QLineEdit* txtLoo = nullptr;
    QLineEdit* txtK = nullptr;
    QLineEdit* txtLmean = nullptr;
    QLineEdit* txtLc = nullptr;

    void addTo(QFormLayout* form);
    MeanLengthInput values() const;
};

class FrmBhMort : public QWidget {
  public:
    explicit FrmBhMort(ShellContext& ctx, QWidget* parent = nullptr);

    // Checks the boxes in order and shows Z, or the notice of the first failed check.
    void cmdCompute();
    // Computes as Compute does and, when the checks pass, prints the page.
    void cmdPrint();

    MeanLengthBoxes boxes;
    QLineEdit* txtZ = nullptr;
    QPushButton* cmdComputeButton = nullptr;
    QPushButton* cmdPrintButton = nullptr;

  private:
    // Computes and shows Z, or the notice of the failed check.
    BhMortalityResult compute(const MeanLengthInput& in);
    ShellContext& ctx_;
};

}  // namespace norvo::gui
