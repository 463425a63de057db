#pragma once
// The scenario editor: the title and remarks of a multi-species, multi-fleet scenario, the
// species and fleet files taking part, and for each species and fleet combination its
// selection ogive and catches by length group. The lists, the selection and the catches are
// written when they are changed or saved by their own commands; SaveFile writes the header.
#include <QString>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "data/screens/stock_file_editor.h"
#include "data/species_files.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTabWidget;

namespace norvo::gui {

class FrmTip2;

inline constexpr const char* kSceReportTitle = "Scenario Parameters";
inline constexpr const char* kSceLoadTitle = "Load...";
inline constexpr const char* kSceSpeciesFilter = "Species Table (*.spc)|*.spc|All Files (*.*)|*.*";
inline constexpr const char* kSceFleetFilter = "Fleet Table (*.flt)|*.flt|All Files (*.*)|*.*";
inline constexpr const char* kSceInvalidAction = "Invalid Action";
inline constexpr const char* kSceAlreadySelected =
    "The file has already been selected. Please select another file.";
inline constexpr const char* kSceSameName =
    "An entry of this name is already on the list, and the name is the key of its selection and "
    "catches. Please rename one of them in its file first.";
inline constexpr const char* kScePickFirst =
    "Please select the Species and Fleet combination before encoding the selection parameters.";
inline constexpr const char* kSceSelectionSavedTitle = "NOTE!";
inline constexpr const char* kSceSelectionSaved = "File saved successfully.";
inline constexpr const char* kSceCatchesSavedTitle = "Record Saved...";
inline constexpr const char* kSceCatchesSaved = "Catches were saved successfully.";
inline constexpr const char* kSceUseSelection = "Compute F from the selection data";
inline constexpr std::array<const char*, 4> kSceSelectionCaptions = {
    "L50:", "L75:", "R75:", "R50:"};
inline constexpr std::array<const char*, 2> kSceCatchColumns = {"Midlength", "Catch Index"};
inline constexpr std::array<const char*, 7> kSceCommands = {
    "Add &Species...", "Add &Fleet...", "&Remove Species", "R&emove Fleet", "Save Se&lection",
    "Save &Catches",   "&Save"};

class FrmScenario : public StockFileEditor {
  public:
    explicit FrmScenario(ShellContext& ctx, QWidget* parent = nullptr);

    void SaveFile() override;
    void OpenFile() override;
    void SaveHeader() { SaveFile(); }
    // Adds the species or fleet file at `path` (the command's dialogue gives it).
    void SaveSpecies(const std::string& path);
    void SaveFleet(const std::string& path);
    void RemoveSpecies();
    void RemoveFleet();
    void SaveSelection();
    void SaveCatches();
    // Loads the picked combination's selection and catches.
    void PickCombination();

    QLineEdit* titleBox() const { return title_; }
    QLineEdit* remarksBox() const { return remarks_; }
    QListWidget* speciesList() const { return speciesList_; }
    QListWidget* fleetList() const { return fleetList_; }
    QComboBox* speciesCombo() const { return cmbSpecies_; }
    QComboBox* fleetCombo() const { return cmbFleet_; }
    QLineEdit* selectionBox(int index) const { return selection_[index]; }
    DataGrid* catches() const { return catches_; }
    QPushButton* command(int index) const { return cmd_[index]; }
    QTabWidget* pages() const { return tabs_; }
    // chkSelection: the session's choice of F for the Thompson and Bell prediction.
    QCheckBox* selectionCheck() const { return chkSelection_; }

    // Shows the tip after saving catches (tests replace it).
    std::function<void(FrmTip2&)> runTip;

  protected:
    std::vector<QStringList> outputLines() const override;

  private:
    void showMembers();
    void saveMembers();
    bool combinationPicked() const;
    std::string pickedSpecies() const;
    std::string pickedFleet() const;
    void selectionEdited();

    std::vector<ScenarioMember> species_, fleets_;
    QTabWidget* tabs_ = nullptr;
    QLineEdit* title_ = nullptr;
    QLineEdit* remarks_ = nullptr;
    QListWidget* speciesList_ = nullptr;
    QListWidget* fleetList_ = nullptr;
    QComboBox* cmbSpecies_ = nullptr;
    QComboBox* cmbFleet_ = nullptr;
    std::array<QLineEdit*, 4> selection_{};
    DataGrid* catches_ = nullptr;
    QCheckBox* chkSelection_ = nullptr;
    std::array<QPushButton*, 7> cmd_{};
    bool loading_ = false;
};

}  // namespace norvo::gui
