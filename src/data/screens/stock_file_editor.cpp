#include "data/screens/stock_file_editor.h"

#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QPrinter>
#include <filesystem>

#include "base/settings_store.h"
#include "base/user_notice.h"
#include "data/file_kind.h"
#include "data/store_routines.h"
#include "widgets/command_boundary.h"
#include "widgets/data_grid.h"

namespace norvo::gui {

StockFileEditor::StockFileEditor(ShellContext& ctx, const char* kind, QWidget* parent)
    : QWidget(parent), ctx_(ctx), kind_(kind) {
    output_ = new DataGrid(this);
    output_->hide();
}

StockFileEditor::~StockFileEditor() = default;

void StockFileEditor::setFilePath(const QString& path) {
    path_ = path;
    setWindowTitle(path);
}

void StockFileEditor::SaveFileAs(const QString& path) {
    if (KindOfPath(path.toStdString()) != kind_.toStdString()) {
        ctx_.dialogs.notify({kWrongFileType, kAppTitle, Buttons::Ok, Icon::Warning});
        return;
    }
    std::error_code ec;
    const std::filesystem::path from = path_.toStdString(), to = path.toStdString();
    if (from != to)
        std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing, ec);
    if (ec) {
        ctx_.dialogs.notify({kFileSaveError, kAppTitle, Buttons::Ok, Icon::Warning});
        return;
    }
    setFilePath(path);
    SaveFile();
}

void StockFileEditor::GenerateOutput() {
    DataGrid& out = *output_;
    const auto lines = outputLines();
    int cols = 2;
    for (const auto& l : lines) cols = std::max(cols, static_cast<int>(l.size()));
    out.setMaxRows(0);
    out.setMaxCols(cols);
    auto add = [&out](const QStringList& cells) {
        const int r = out.maxRows();
        out.setMaxRows(r + 1);
        for (int c = 0; c < cells.size(); ++c) out.setCellText(r, c, cells[c]);
    };
    add({kStockOutputFirstLine});
    for (const auto& l : lines) add(l);
}

void StockFileEditor::PrintFile() {
    QPrinter* printer = ctx_.printer();
    if (!printer) return;
    GenerateOutput();
    output_->print(*printer, false, false);
}

void StockFileEditor::Export() {
    FileDialogOptions o;
    o.title = "Export...";
    o.filter = "Tab Delimited (*.tab)|*.tab|All Files (*.*)|*.*";
    o.defaultExtension = "tab";
    o.initialName = "*.tab";
    o.overwritePrompt = true;
    const auto path = ctx_.dialogs.saveFile(o);
    if (!path || path->empty()) return;
    GenerateOutput();
    output_->saveTabDelimited(QString::fromStdString(*path), false);
}

void StockFileEditor::failRead() {
    ctx_.dialogs.notify({kCorruptedOrWrongFormat, kInvalidDataTitle, Buttons::Ok, Icon::Warning});
    unloading_ = true;
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        sub->close();
    } else {
        close();
    }
}

void StockFileEditor::closeEvent(QCloseEvent* event) {
    if (!unloading_ && !saved_) {
        unloading_ = true;
        bool saveAsked = false;
        RunCommand(ctx_.dialogs, [&] {
            if (ctx_.dialogs.askYesNo(kStockUnsavedText + path_.toStdString(),
                                      kStockUnsavedTitle)) {
                saveAsked = true;
                SaveFile();
            }
        });
        // A save that was asked for and did not happen keeps the editor and its work open.
        if (saveAsked && !saved_) {
            unloading_ = false;
            event->ignore();
            return;
        }
    }
    event->accept();
}

}  // namespace norvo::gui
