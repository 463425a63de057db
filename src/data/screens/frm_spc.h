#pragma once
// The species editor: the population parameters of one species on "&Header" and its per-class
// F and value on "&Arrays".
#include <array>

#include "data/screens/stock_file_editor.h"

class QLineEdit;
class QTabWidget;

namespace norvo::gui {

inline constexpr const char* kSpcFrame = "Population Parameters";
inline constexpr std::array<const char*, 12> kSpcCaptions = {
    "Species Name:", "Remarks:", "Lower Limit:", "Class Size:", "No. of Groups:",
    "Recruit:",      "a:",       "b:",           "M:",          "Ft:",
    "Loo:",          "K:"};
inline constexpr std::array<const char*, 3> kSpcColumns = {"Mid-length", "F-array", "Value"};

class FrmSpc : public StockFileEditor {
  public:
    explicit FrmSpc(ShellContext& ctx, QWidget* parent = nullptr);

    void SaveFile() override;
    void OpenFile() override;
    void InsertRow() override;
    void DeleteRow() override;
    // Fills blank cells of a row with 0 when the cursor leaves it.
    void CheckCellValues(int row);

    QLineEdit* box(int index) const { return boxes_[index]; }
    DataGrid* grid() const { return grid_; }
    QTabWidget* pages() const { return tabs_; }

  protected:
    std::vector<QStringList> outputLines() const override;

  private:
    QTabWidget* tabs_ = nullptr;
    std::array<QLineEdit*, 12> boxes_{};
    DataGrid* grid_ = nullptr;
};

}  // namespace norvo::gui
