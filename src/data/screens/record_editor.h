#pragma once
// The editor of the nine sample kinds (ULF, VLF, LAA, GIN, CAA, MSD, PRB, XYF, VAL): a
// "Headers" page of boxes and a "Data" page with one grid, both laid out from the kind's
// descriptor. What really differs between the kinds is in a few hooks: blanks filled on leaving
// a cell, the growth-increment checks, the date check of means files, the weight units of
// ungrouped files and the Save As of variable-class files.
#include <QString>
#include <QWidget>
#include <map>

#include "data/record_kinds.h"
#include "widgets/data_editor.h"
#include "widgets/shell_context.h"

class QComboBox;
class QLabel;
class QTabWidget;
class QTextEdit;

namespace norvo::gui {

class DataGrid;

inline constexpr const char* kRecordUnsavedTitle = "Unsaved Changes";
inline constexpr const char* kRecordUnsavedText = "Do you want to save changes you made to ";
inline constexpr const char* kHeadersPage = "Headers";
inline constexpr const char* kDataPage = "Data";
inline constexpr const char* kOutputFirstLine = "Norvo 2: Olmar-Tavesh Stock Assessment Tools";
inline constexpr const char* kMissingModuleTitle = "Missing Module...";
inline constexpr const char* kMissingModuleText =
    "The module that converts variable class groupings into grouped length frequencies is "
    "missing from this installation. Please ask the Norvo II maintainers "
    "(norvo-support@olmar-tavesh.org) for it.";

class RecordEditor : public QWidget, public DataEditor {
    Q_OBJECT
  public:
    RecordEditor(ShellContext& ctx, const RecordKind& kind, QWidget* parent = nullptr);
    ~RecordEditor() override;

    // DataEditor
    QWidget* widget() override { return this; }
    QString kind() const override { return kind_.code; }
    QString filePath() const override { return path_; }
    void setFilePath(const QString& path) override;
    void SaveFileAs(const QString& path) override;
    void SaveFile() override;
    void PrintFile() override;
    void Export() override;
    void OpenFile() override;
    void InsertRow() override;
    void InsertCol() override {}
    void DeleteRow() override;
    void DeleteCol(int) override {}
    void GenerateOutput() override;
    int activeColumn() const override;

    // Fills a cell left blank (0-based column and row), for the kinds that do so.
    void CheckCellValues(int column, int row);
    // The growth-increment checks before a save; false stops the save.
    bool ValidData();
    // The means file's date check before a save; false stops the save.
    bool CheckDates();

    bool saved() const { return saved_; }
    const RecordKind& descriptor() const { return kind_; }
    DataGrid* grid() const { return grid_; }
    DataGrid* outputGrid() const { return output_; }
    QTabWidget* pages() const { return tabs_; }
    // The box of a header field (QLineEdit, QComboBox, QDateEdit or QTextEdit).
    QWidget* box(const std::string& field) const;
    // A header box's text as it is saved.
    QString boxText(const std::string& field) const;
    void setBoxText(const std::string& field, const QString& text);

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void buildHeadersPage(QWidget* page);
    void buildDataPage(QWidget* page);
    void changed();
    void numberRows();
    void unitChanged();
    void cellLeft(int row, int col, int previousRow, int previousCol);
    RecordFile fileFromForm() const;
    QString cellOutput(int row, int col) const;

    ShellContext& ctx_;
    const RecordKind& kind_;
    QString path_;  // the file; the caption shows it
    QTabWidget* tabs_ = nullptr;
    DataGrid* grid_ = nullptr;
    DataGrid* output_ = nullptr;
    std::map<std::string, QWidget*> boxes_;
    bool saved_ = true;
    bool filling_ = false;
    bool unloading_ = false;
};

// The factory of the shell's editor table for one of the nine kinds.
DataEditor* MakeRecordEditor(const char* code, ShellContext& ctx, QWidget* parent);

}  // namespace norvo::gui
