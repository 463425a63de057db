#include "data/screens/frm_import.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/format.h"
#include "data/dos_import.h"
#include "data/store_routines.h"
#include "widgets/command_boundary.h"
#include "widgets/data_grid.h"

namespace norvo::gui {

FrmImport::FrmImport(ShellContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
    setObjectName("frmImport");
    setWindowTitle("Import Old Norvo L/F Files");
    auto* prompt = new QLabel(kImportPrompt, this);
    prompt->setWordWrap(true);
    txtSource_ = new QLineEdit(this);
    txtSource_->setObjectName("txtSource");
    txtDestination_ = new QLineEdit(this);
    txtDestination_->setObjectName("txtDestination");
    auto row = [this](QLineEdit* box, bool source) {
        auto* h = new QHBoxLayout;
        auto* b = new QPushButton("...", this);
        b->setObjectName(source ? "cmdBrowse_0" : "cmdBrowse_1");
        connect(b, &QPushButton::clicked, this,
                Guarded(ctx_.dialogs, [this, source] { browse(source); }));
        h->addWidget(box, 1);
        h->addWidget(b);
        return h;
    };
    auto* form = new QFormLayout;
    form->addRow(kImportSourceCaption, row(txtSource_, true));
    form->addRow(kImportDestinationCaption, row(txtDestination_, false));

    grid_ = new DataGrid(this);
    grid_->setCornerTitle("ML");
    grid_->setDisplayDecimals(0);
    grid_->setMaxCols(0);
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);

    cmdImport_ = new QPushButton(kImportButtonCaption, this);
    cmdImport_->setObjectName("cmdImport");
    cmdCancel_ = new QPushButton(kImportCancelCaption, this);
    cmdCancel_->setObjectName("cmdCancel");
    connect(cmdImport_, &QPushButton::clicked, this, Guarded(ctx_.dialogs, [this] { Import(); }));
    connect(cmdCancel_, &QPushButton::clicked, this, Guarded(ctx_.dialogs, [this] {
                if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
                    sub->close();
                } else {
                    close();
                }
            }));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdImport_);
    buttons->addWidget(cmdCancel_);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(prompt);
    layout->addLayout(form);
    layout->addWidget(grid_, 1);
    layout->addLayout(buttons);
    resize(560, 420);
}

void FrmImport::browse(bool source) {
    FileDialogOptions o;
    o.title = source ? kImportOpenTitle : kImportSaveTitle;
    o.filter = source ? kImportOpenFilter : kImportSaveFilter;
    o.startFolder = ctx_.programFolder.toStdString();
    o.mustExist = source;
    o.overwritePrompt = !source;
    if (!source) o.defaultExtension = "lfq";
    const auto path = source ? ctx_.dialogs.openFile(o) : ctx_.dialogs.saveFile(o);
    if (path && !path->empty())
        (source ? txtSource_ : txtDestination_)->setText(QString::fromStdString(*path));
}

bool FrmImport::Import() {
    const std::string source = txtSource_->text().trimmed().toStdString();
    const std::string destination = txtDestination_->text().trimmed().toStdString();
    if (source.empty() || destination.empty()) {
        ctx_.dialogs.notify(
            {kImportIncompleteText, kImportIncompleteTitle, Buttons::Ok, Icon::Information});
        return false;
    }
    Outcome notes;  // a sample count that differs from the file's own, told after the import
    try {
        const DosImport data = ReadDosFile(source);
        if (!data.ok()) {
            ShowNotices(data, ctx_.dialogs);
            return false;
        }
        const int rows = static_cast<int>(data.grid.size());
        const int cols = static_cast<int>(data.headings.size());
        grid_->clearContents();
        grid_->setMaxCols(cols);
        grid_->setMaxRows(rows);
        for (int r = 0; r < rows; ++r) {
            grid_->setRowHeading(r, QString::fromStdString(Format(data.rowHeadings[r], "0.00")));
            for (int c = 0; c < cols; ++c) grid_->setValue(r, c, data.grid[r][c]);
        }
        for (int c = 0; c < cols; ++c)
            grid_->setColHeading(c, QString::fromStdString(data.headings[c]));
        SaveDosImport(destination, ctx_.programFolder.toStdString(), data);
        notes.absorb(data);
    } catch (const std::exception&) {
        ctx_.dialogs.notify({kImportFailedText, kInvalidDataTitle, Buttons::Ok, Icon::Warning});
        return false;
    }
    ctx_.dialogs.notify({kImportDoneText, kImportDoneTitle, Buttons::Ok, Icon::Information});
    ShowNotices(notes, ctx_.dialogs);
    cmdCancel_->setText(kImportCloseCaption);
    return true;
}

}  // namespace norvo::gui
