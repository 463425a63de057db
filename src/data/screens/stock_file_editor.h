#pragma once
// What the species, fleet and scenario editors share: the file path in the caption, the
// question about unsaved changes on closing, Save As by copying the file, and printing and
// export of the listing that GenerateOutput builds.
#include <QString>
#include <QStringList>
#include <QWidget>
#include <vector>

#include "widgets/data_editor.h"
#include "widgets/shell_context.h"

namespace norvo::gui {

class DataGrid;

inline constexpr const char* kStockOutputFirstLine = "Norvo 2: Olmar-Tavesh Stock Assessment Tools";
inline constexpr const char* kStockUnsavedTitle = "Unsaved Changes";
inline constexpr const char* kStockUnsavedText = "Do you want to save changes you made to ";

class StockFileEditor : public QWidget, public DataEditor {
  public:
    StockFileEditor(ShellContext& ctx, const char* kind, QWidget* parent);
    ~StockFileEditor() override;

    QWidget* widget() override { return this; }
    QString kind() const override { return kind_; }
    QString filePath() const override { return path_; }
    void setFilePath(const QString& path) override;
    void SaveFileAs(const QString& path) override;
    void PrintFile() override;
    void Export() override;
    void GenerateOutput() override;
    void InsertRow() override {}
    void InsertCol() override {}
    void DeleteRow() override {}
    void DeleteCol(int) override {}

    bool saved() const { return saved_; }
    DataGrid* outputGrid() const { return output_; }

  protected:
    // The lines of the printed listing after its first line, one cell list each.
    virtual std::vector<QStringList> outputLines() const = 0;
    // The read error: its notice, then the editor closes.
    void failRead();
    void markChanged() {
        if (!filling_) saved_ = false;
    }
    void closeEvent(QCloseEvent* event) override;

    ShellContext& ctx_;
    bool saved_ = true;
    bool filling_ = false;

  private:
    QString kind_;
    QString path_;
    DataGrid* output_ = nullptr;
    bool unloading_ = false;
};

}  // namespace norvo::gui
