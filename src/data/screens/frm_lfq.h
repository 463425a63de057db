#pragma once
// The editor of grouped length-frequency files: a "Headers" page with the file's header boxes
// and a "Frequencies" page with the grid (one row per class, one dated column per sample).
// Sample columns are numbered from 1 in this interface, as the file's SampleNo is.
#include <QString>
#include <QWidget>
#include <array>
#include <functional>

#include "widgets/data_editor.h"
#include "widgets/shell_context.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QTextEdit;

namespace norvo::gui {

class DataGrid;
class FrmLfqSub;
class FrmTip1;

inline constexpr const char* kLfqKind = "LFQ";
inline constexpr const char* kClassRangeMessage =
    "The input data is invalid. The smallest class midlength and class interval should be within "
    "the range of 0.25 to 999 only. Please correct input.";
inline constexpr const char* kMissingHeaderTitle = "Missing Sample Header";
inline constexpr const char* kUnsavedTitle = "Unsaved Changes";
inline constexpr const char* kUnsavedText = "Do you want to save changes you made to ";
inline constexpr const char* kDeleteSampleTitle = "Delete Sample";
inline constexpr const char* kReportTitle = "Norvo 2: Grouped Length Frequencies";
inline constexpr const char* kExportTitle = "Export...";
inline constexpr const char* kExportFilter = "Tab Delimited (*.tab)|*.tab|All Files (*.*)|*.*";
inline constexpr std::array<const char*, 3> kUnits = {"cm", "mm", "in"};
inline constexpr std::array<const char*, 6> kMeasurementTypes = {
    "Total length (TL)", "Standard length (SL)", "Fork length (FL)",
    "Shell length (SL)", "Mantle length (ML)",   "Others"};
inline constexpr std::array<const char*, 3> kCmdLfqCaptions = {"Ed&it Sample Header", "A&dd Sample",
                                                               "Dele&te Sample"};
inline constexpr const char* kDecimalCaption = "Display decimal position";

// "The sample of <heading> will be deleted. Are you sure?"
QString DeleteSampleQuestion(const QString& heading);
// "Sample No.<n> does not have a sampling date. Data was not be saved to disk. ..."
QString MissingHeaderText(int column);

class FrmLfq : public QWidget, public DataEditor {
    Q_OBJECT
  public:
    FrmLfq(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmLfq() override;

    // DataEditor
    QWidget* widget() override { return this; }
    QString kind() const override { return kLfqKind; }
    QString filePath() const override { return path_; }
    void setFilePath(const QString& path) override;
    void SaveFileAs(const QString& path) override;
    void SaveFile() override;
    void PrintFile() override;
    void Export() override;
    void OpenFile() override;
    void InsertRow() override;
    void InsertCol() override;
    void DeleteRow() override;
    void DeleteCol(int column) override;
    void GenerateOutput() override;
    void AccessSubheader() override;
    int activeColumn() const override;

    // Row headings from the smallest midlength and the class interval, when both are set.
    void UpdateClassMidlength();
    // Edit Sample Header for a column (the active one when 0).
    void EditSampleHeader(int column = 0);
    // What the editor does when it comes to the front.
    void Activate();

    // The saved flag: one word shared by every editor of this kind.
    static bool savedFlag();
    static void setSavedFlag(bool saved);

    // How the modal dialogues are run; tests replace these to fill them in and close them.
    std::function<void(FrmLfqSub&)> runSubheader;
    std::function<void(FrmTip1&)> runTip;

    // Controls, for the tests and the shell.
    DataGrid* grid() const { return grdData_; }
    DataGrid* outputGrid() const { return grdOutput_; }
    QLineEdit* txtLFQ(int index) const { return txtLFQ_[index]; }
    QComboBox* cmbLFQ(int index) const { return cmbLFQ_[index]; }
    QTextEdit* remarksBox() const { return rtxtLFQ_; }
    QPushButton* cmdLFQ(int index) const { return cmdLFQ_[index]; }
    QCheckBox* decimalBox() const { return chkDecimal_; }
    QTabWidget* pages() const { return tabs_; }
    float smallestMl() const { return smallestMl_; }
    float classInterval() const { return classInterval_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void buildHeadersPage(QWidget* page);
    void buildFrequenciesPage(QWidget* page);
    bool validateClassBox(int index);
    void changed();
    void updateSampleButtons();
    void addSample();
    void tableCommand(int index);
    void unloadEditor();
    void applyOrder(const std::vector<int>& order);
    void writeFile(const std::vector<int>& order);

    ShellContext& ctx_;
    QString path_;  // the file; the caption shows it
    QTabWidget* tabs_ = nullptr;
    std::array<QLineEdit*, 4> txtLFQ_{};
    std::array<QComboBox*, 2> cmbLFQ_{};
    QTextEdit* rtxtLFQ_ = nullptr;
    std::array<QPushButton*, 3> cmdLFQ_{};
    QCheckBox* chkDecimal_ = nullptr;
    DataGrid* grdData_ = nullptr;
    DataGrid* grdOutput_ = nullptr;

    float smallestMl_ = 0;
    float classInterval_ = 0;
    bool newColumn_ = false;   // the sub-header is open for a sample just added
    bool validating_ = false;  // a class box's notice is up
    bool unloading_ = false;
    bool saveDone_ = false;  // the last SaveFile ran to its end
    bool activationHooked_ = false;
};

}  // namespace norvo::gui
