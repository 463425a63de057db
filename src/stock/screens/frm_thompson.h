#pragma once
// The Thompson and Bell screen: a scenario's species and fleets, each fleet either varying with
// the f-factor or fixed at one, the choice of F (F-array or selection), and the projected
// yield, biomass and value as six plots and two tables: the picked species and fleet
// combination and the sum over all.
#include <QWidget>
#include <array>
#include <memory>
#include <string>

#include "stock/thompson_bell.h"
#include "widgets/shell_context.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QTableWidget;

namespace norvo::gui {

class PlotView;

inline constexpr const char* kTbCaption = "Thompson and Bell Y-S Prediction...";
inline constexpr const char* kTbOpenTitle = "Open...";
inline constexpr const char* kTbOpenFilter =
    "Multi-species/Multi-fleet Scenario (*.sce)|*.sce|All Files (*.*)|*.*";
inline constexpr std::array<const char*, 3> kTbTabs = {"&General", "&Graphical Results",
                                                       "&Tabular Results"};
inline constexpr std::array<const char*, 5> kTbCommands = {"&Calculate", "...", "&Print...",
                                                           "Save P&lots...", "&Close"};
inline constexpr const char* kTbBranchFrame = "Fishing mortality by fleet";
inline constexpr std::array<const char*, 2> kTbBranches = {
    "From the species' F-array, shared by catches", "From the selection data and Ft"};
inline constexpr const char* kTbSelectivityFrame = "Selectivity of the picked combination";
inline constexpr std::array<const char*, 4> kTbSelectivity = {"L50:", "L75:", "R75:", "R50:"};
// The settings that keep the last selectivity shown, in "0.00".
inline constexpr std::array<const char*, 4> kTbSelectivityKeys = {"TBL50", "TBL75", "TBR75",
                                                                  "TBR50"};

class FrmThompson : public QWidget {
  public:
    explicit FrmThompson(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmThompson() override;

    // Reads the scenario and the files it names, and lists its species and fleets.
    void OpenScenario(const std::string& path);
    // Validates, projects, and fills the tables and plots.
    void Calculate();
    // Shows the picked combination's table and plots.
    void PickCombination();
    // The fleet list's check box: ticked varies the fleet, unticked asks for its fixed f-factor.
    void FleetChecked(int row, bool vary);
    void PrintFile();
    void SavePlots();

    QLineEdit* fileBox() const { return file_; }
    QListWidget* lstThompson(int index) const { return lists_[index]; }
    QComboBox* cmbThompson(int index) const { return combos_[index]; }
    QRadioButton* branch(int index) const { return branches_[index]; }
    QLineEdit* selectivity(int index) const { return selectivity_[index]; }
    QPushButton* command(int index) const { return cmd_[index]; }
    QTabWidget* tabs() const { return tabs_; }
    // Plots 0-2 the combination's yield, biomass and value; 3-5 the cumulative ones.
    PlotView* plot(int index) const { return plots_[index]; }
    // Table 0 the combination, 1 the cumulative.
    QTableWidget* table(int index) const { return tables_[index]; }
    const ThompsonBellResult* result() const;

  private:
    struct State;
    void buildGeneral(QWidget* page);
    void buildGraphs(QWidget* page);
    void buildTables(QWidget* page);
    void clearScenario();
    void clearResult();
    void showFleets();
    void showSelectivity();
    void showCombination();
    void fillTable(int index, const ThompsonBellTable& table);
    void drawPlots(int first, const ThompsonBellTable& table, bool cumulative);
    bool combinationCaught(int species, int fleet) const;
    std::string combinationName() const;

    ShellContext& ctx_;
    std::unique_ptr<State> st_;
    QLineEdit* file_ = nullptr;
    QLabel* title_ = nullptr;
    std::array<QListWidget*, 2> lists_{};
    std::array<QComboBox*, 2> combos_{};
    std::array<QRadioButton*, 2> branches_{};
    std::array<QLineEdit*, 4> selectivity_{};
    std::array<QPushButton*, 5> cmd_{};
    QTabWidget* tabs_ = nullptr;
    std::array<PlotView*, 6> plots_{};
    std::array<QTableWidget*, 2> tables_{};
    std::array<QLabel*, 2> tableTitles_{};
    QLabel* graphTitle_ = nullptr;
    bool filling_ = false;
};

}  // namespace norvo::gui
