#pragma once
// The fleet editor: the name of a fleet and remarks.
#include <array>

#include "data/screens/stock_file_editor.h"

class QLineEdit;

namespace norvo::gui {

inline constexpr std::array<const char*, 2> kFltCaptions = {"Fleet Name:", "Remarks:"};

class FrmFlt : public StockFileEditor {
  public:
    explicit FrmFlt(ShellContext& ctx, QWidget* parent = nullptr);

    void SaveFile() override;
    void OpenFile() override;
    QLineEdit* box(int index) const { return boxes_[index]; }

  protected:
    std::vector<QStringList> outputLines() const override;

  private:
    std::array<QLineEdit*, 2> boxes_{};
};

}  // namespace norvo::gui
