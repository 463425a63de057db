#pragma once
// The common interface of every data-file editor. The main window calls these on the active
// child without knowing its class. The editor holds the path of its file and shows it as its
// window title.
#include <QString>
#include <QWidget>

namespace norvo::gui {

class DataEditor {
  public:
    virtual ~DataEditor() = default;
    virtual QWidget* widget() = 0;
    virtual QString kind() const = 0;  // "LFQ", "ULF", ...
    virtual QString filePath() const = 0;
    // Gives the editor its file before anything else reaches it; the caption shows the path.
    virtual void setFilePath(const QString& path) { widget()->setWindowTitle(path); }

    virtual void SaveFileAs(const QString& path) = 0;
    virtual void SaveFile() = 0;
    virtual void PrintFile() = 0;
    virtual void Export() = 0;
    virtual void OpenFile() = 0;
    virtual void InsertRow() = 0;
    virtual void InsertCol() = 0;
    virtual void DeleteRow() = 0;
    virtual void DeleteCol(int column) = 0;
    virtual void GenerateOutput() = 0;
    // Only the grouped length-frequency editor has a sample sub-header.
    virtual void AccessSubheader() {}
    // The grid's active column, for "Delete Column" and "Sample header".
    virtual int activeColumn() const { return 0; }
};

}  // namespace norvo::gui
