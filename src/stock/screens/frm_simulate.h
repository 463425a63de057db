#pragma once
// The simulation screen: inputs on six tabs, the STOCK and CATCH files, and the simulated
// samples on the "&Length Frequencies" tab.
#include <QWidget>
#include <array>

#include "stock/simulation.h"
#include "widgets/shell_context.h"

class QCheckBox;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QTableWidget;

namespace norvo::gui {

inline constexpr const char* kSimCaption = "Simulation of Length-frequencies";
inline constexpr std::array<const char*, 7> kSimTabs = {
    "File parameters",    "Population, mean and variability (s.d./mean)",
    "Year classes",       "Distributions",
    "Selection and Fmax", "Migratory route",
    "&Length Frequencies"};
inline constexpr std::array<const char*, 6> kSimFileLabels = {
    "Number of monthly samples",   "Number of months separating samples",
    "Number of fishes per sample", "Class interval",
    "Number of age groups",        "Seed number for randomization"};
inline constexpr std::array<const char*, 4> kSimPopulationLabels = {
    "Asymptotic length (Loo)", "VBGF growth constant (K)", "Amplitude of oscillation (C)",
    "'Winter Point' (WP)"};
inline constexpr const char* kSimMeanHeading = "Mean";
inline constexpr const char* kSimCvHeading = "Variability (s.d./mean)";
inline constexpr std::array<const char*, 3> kSimYearColumns = {"Age", "Strength", "Mortality"};
inline constexpr std::array<const char*, 2> kSimRecruitColumns = {"Month", "Rel. Recruitment"};
inline constexpr const char* kSimRecruitmentBox = "Recruitment";
inline constexpr std::array<const char*, 6> kSimSelectColumns = {"Area", "L50", "L75",
                                                                 "R75",  "R50", "F(max)"};
inline constexpr std::array<const char*, 3> kSimRouteColumns = {"Route", "From", "To"};
inline constexpr const char* kSimMigrate = "Simulate migratory route";
inline constexpr std::array<const char*, 2> kSimMigrationLabels = {"50% length at migration",
                                                                   "75% length at migration"};
inline constexpr std::array<const char*, 2> kSimPathLabels = {"STOCK sample file:",
                                                              "CATCH sample file:"};
inline constexpr const char* kSimSaveTitle = "Save...";
inline constexpr const char* kSimSaveFilter =
    "Grouped frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*";
inline constexpr const char* kSimCmdSimulate = "&Simulate";
inline constexpr const char* kSimCmdClose = "&Close";
inline constexpr std::array<const char*, 3> kSimSelectCommands = {"&Add...", "&Edit...", "&Delete"};
inline constexpr std::array<const char*, 3> kSimStatsColumns = {"Count", "Mean", "S.D."};
inline constexpr const char* kSimAgeDistTitle = "Fishes by age group";
inline constexpr const char* kSimNotDrawn = "-";

class FrmSimulate : public QWidget {
  public:
    explicit FrmSimulate(ShellContext& ctx, QWidget* parent = nullptr);

    // The inputs as the boxes and tables hold them (text that is not a number reads as NaN,
    // which the checks refuse).
    SimulationInputs inputs() const;
    // Shows a set of inputs in the boxes and tables.
    void showInputs(const SimulationInputs& in);
    // Runs the simulation, saves the two files and shows the samples.
    void cmdSimulate();
    // The selection table's commands: 0 add, 1 edit the current row, 2 delete it. Add and edit
    // open frmSimSelect (window-modal); its OK updates the table.
    void cmdSelect(int index);
    const SimulationResult& result() const { return result_; }

    QLineEdit* fileBox(int index) const { return txtFile_[static_cast<size_t>(index)]; }
    QLineEdit* simulBox(int index) const { return txtSimul_[static_cast<size_t>(index)]; }
    QLineEdit* populationBox(int index) const { return txtPop_[static_cast<size_t>(index)]; }
    QLineEdit* migrationBox(int index) const { return txtMigr_[static_cast<size_t>(index)]; }
    QCheckBox* migrateBox() const { return chkSimul_; }
    QTabWidget* tabs() const { return tabs_; }
    QTableWidget* yearTable() const { return grdYear_; }
    QTableWidget* recruitmentTable() const { return grdRecruit_; }
    QTableWidget* selectionTable() const { return grdSelect_; }
    QTableWidget* routeTable() const { return grdRoute_; }
    QTableWidget* ageDistTable() const { return grdAgeDist_; }
    QTableWidget* frequencyTable(SimSet set) const { return grdLf_[static_cast<size_t>(set)]; }

  private:
    QWidget* buildFileTab();
    QWidget* buildPopulationTab();
    QWidget* buildYearTab();
    QWidget* buildRecruitmentTab();
    QWidget* buildSelectionTab();
    QWidget* buildRouteTab();
    QWidget* buildResultTab();
    void browse(int index);
    void resizeYearTable();
    void onMigrateToggled(bool on);
    void setSelectionRow(int row, const SelectionRow& values);
    void showResults(const SimulationInputs& in);
    void closeScreen();

    ShellContext& ctx_;
    QTabWidget* tabs_ = nullptr;
    std::array<QLineEdit*, 2> txtFile_{};
    std::array<QLineEdit*, 6> txtSimul_{};
    std::array<QLineEdit*, 8> txtPop_{};
    std::array<QLineEdit*, 2> txtMigr_{};
    QCheckBox* chkSimul_ = nullptr;
    QTableWidget* grdYear_ = nullptr;
    QTableWidget* grdRecruit_ = nullptr;
    QTableWidget* grdSelect_ = nullptr;
    QTableWidget* grdRoute_ = nullptr;
    QTableWidget* grdAgeDist_ = nullptr;
    std::array<QTableWidget*, 2> grdLf_{};
    std::vector<SelectionRow> selection_;  // the rows behind grdSelect_
    SimulationResult result_;
};

}  // namespace norvo::gui
