#pragma once
// The Automatic Search tab of the ELEFAN I screen: the pattern search from seeds with fixed
// step sizes, its table of improving settings, and the starting point it scores at.
#include <QWidget>
#include <array>
#include <vector>

#include "growth/elefan_defaults.h"
#include "growth/screens/elefan_shared.h"

class QComboBox;
class QLineEdit;
class QProgressBar;
class QRadioButton;
class QTableWidget;

namespace norvo::gui {

inline constexpr const char* kVariableStart = "Variable starting point";
inline constexpr const char* kConstantStart = "Constant starting point";

class ElefanSearchPage : public QWidget {
  public:
    ElefanSearchPage(ElefanShared& shared, QWidget* parent = nullptr);

    void setDefaults(const ElefanDefaults& d);
    // A new file: its starting lists with the proposed point chosen, and an empty table.
    void load(float ss, float sl);
    // "Compute": the search from the seeds, after their checks; a cancelled search puts the
    // table back as it was.
    void compute();
    // "P&lot": the table's last row goes to the plot screen (six empty values without one).
    void plot();
    // "Report": the page with the last row as the result.
    void report();

    QLineEdit* looSeed() const { return looSeed_; }
    QLineEdit* looStep() const { return looStep_; }
    QLineEdit* kSeed() const { return kSeed_; }
    QLineEdit* kStep() const { return kStep_; }
    QLineEdit* cSeed() const { return cSeed_; }
    QLineEdit* cStep() const { return cStep_; }
    QLineEdit* wpSeed() const { return wpSeed_; }
    QLineEdit* wpStep() const { return wpStep_; }
    QRadioButton* option(int i) const { return opt_[static_cast<size_t>(i)]; }
    QComboBox* ssList() const { return ss_; }
    QComboBox* slList() const { return sl_; }
    QTableWidget* table() const { return table_; }
    const std::vector<SearchRow>& rows() const { return rows_; }

  private:
    friend class SearchRun;
    void appendRow(const SearchRow& row);
    void showRows();

    ElefanShared& shared_;
    std::vector<SearchRow> rows_;  // the table's rows
    bool filling_ = false;

    QLineEdit* looSeed_ = nullptr;
    QLineEdit* looStep_ = nullptr;
    QLineEdit* kSeed_ = nullptr;
    QLineEdit* kStep_ = nullptr;
    QLineEdit* cSeed_ = nullptr;
    QLineEdit* cStep_ = nullptr;
    QLineEdit* wpSeed_ = nullptr;
    QLineEdit* wpStep_ = nullptr;
    std::array<QRadioButton*, 2> opt_{};
    QComboBox* ss_ = nullptr;
    QComboBox* sl_ = nullptr;
    QProgressBar* bar_ = nullptr;
    QTableWidget* table_ = nullptr;
};

}  // namespace norvo::gui
