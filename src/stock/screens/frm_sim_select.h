#pragma once
// Edits one row of the simulation's selection table: the area, the two-sided ogive and F(max).
#include <QDialog>
#include <array>

#include "base/user_notice.h"
#include "stock/simulation.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace norvo::gui {

inline constexpr const char* kSimSelectCaption = "Selection Parameters";
inline constexpr const char* kSimNegligible = "check if deselection is negligible";
inline constexpr std::array<const char*, 6> kSimSelectLabels = {"Area", "L50", "L75",
                                                                "R75",  "R50", "F(max)"};

class FrmSimSelect : public QDialog {
  public:
    FrmSimSelect(DialogService& dialogs, const SelectionRow& row, QWidget* parent = nullptr);
    // The row as last accepted.
    const SelectionRow& row() const { return row_; }
    QLineEdit* box(int index) const { return txt_[static_cast<size_t>(index)]; }
    QCheckBox* negligibleBox() const { return chk_; }
    // OK: a valid row closes the dialogue, otherwise the "Re-check Inputs..." notice.
    void accept() override;

  private:
    void updateRightLimb();

    DialogService& dialogs_;
    SelectionRow row_;
    std::array<QLineEdit*, 6> txt_{};
    QCheckBox* chk_ = nullptr;
};

}  // namespace norvo::gui
