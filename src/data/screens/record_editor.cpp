#include "data/screens/record_editor.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDate>
#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPrinter>
#include <QStyledItemDelegate>
#include <QTabWidget>
#include <QTextEdit>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <filesystem>

#include "base/format.h"
#include "data/file_kind.h"
#include "data/lfq_file.h"
#include "data/record_checks.h"
#include "data/store_routines.h"
#include "numerics/text_convert.h"
#include "widgets/command_boundary.h"
#include "widgets/data_grid.h"
#include "widgets/wait_cursor.h"

namespace norvo::gui {

namespace {

constexpr int kStartRows = 10;
constexpr int kColumnChars = 10;
QString Decimals(double v, int decimals) {
    const std::string pattern = decimals > 0 ? "0." + std::string(decimals, '0') : "0";
    return QString::fromStdString(Format(v, pattern));
}

// Shows each column with its own decimals; editing stays with the grid's own delegate, which
// refuses values outside the column's limits and moves on Enter.
class ColumnDecimalsDelegate : public QStyledItemDelegate {
  public:
    ColumnDecimalsDelegate(QAbstractItemDelegate* base, std::vector<int> decimals, QObject* parent)
        : QStyledItemDelegate(parent), base_(base), decimals_(std::move(decimals)) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override {
        return base_->createEditor(parent, option, index);
    }
    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        base_->setEditorData(editor, index);
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override {
        base_->setModelData(editor, model, index);
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const QVariant v = index.data(Qt::EditRole);
        const int c = index.column();
        if (v.typeId() == QMetaType::Double && c >= 0 && c < static_cast<int>(decimals_.size()))
            option->text =
                Decimals(v.toDouble(), decimals_[c]).replace(QChar('.'), QChar(DecimalSeparator()));
    }
    bool eventFilter(QObject* object, QEvent* event) override {
        return static_cast<QObject*>(base_)->eventFilter(object, event);
    }

  private:
    QAbstractItemDelegate* base_;
    std::vector<int> decimals_;
};

}  // namespace

RecordEditor::RecordEditor(ShellContext& ctx, const RecordKind& kind, QWidget* parent)
    : QWidget(parent), ctx_(ctx), kind_(kind) {
    const FileKind* fk = FindKind(kind.code);
    setObjectName(fk ? fk->editor : kind.code);
    setAttribute(Qt::WA_DeleteOnClose);
    tabs_ = new QTabWidget(this);
    auto* headers = new QWidget;
    auto* data = new QWidget;
    buildHeadersPage(headers);
    buildDataPage(data);
    tabs_->addTab(headers, kHeadersPage);
    tabs_->addTab(data, kDataPage);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(tabs_);

    // The hidden report grid filled by GenerateOutput for printing and export.
    output_ = new DataGrid(this);
    output_->setObjectName("grdOutput");
    output_->setDefaultColumnFormat({false, 0, 0, 12});
    output_->hide();
    unitChanged();
    saved_ = true;
    resize(640, 480);
}

RecordEditor::~RecordEditor() = default;

void RecordEditor::buildHeadersPage(QWidget* page) {
    auto* form = new QFormLayout;
    QTextEdit* remarks = nullptr;
    for (const HeaderBox& b : kind_.boxes) {
        QWidget* w = nullptr;
        const QString name = QString("box_%1").arg(b.field);
        switch (b.type) {
            case BoxType::Text: {
                auto* e = new QLineEdit(page);
                connect(e, &QLineEdit::textChanged, this,
                        Guarded(ctx_.dialogs, [this] { changed(); }));
                w = e;
                break;
            }
            case BoxType::Combo: {
                auto* c = new QComboBox(page);
                for (const char* choice : b.choices) c->addItem(choice);
                connect(c, &QComboBox::currentTextChanged, this,
                        Guarded(ctx_.dialogs, [this] { changed(); }));
                if (std::string(b.field) == "Unit_Of_Measurement")
                    connect(c, &QComboBox::currentTextChanged, this,
                            Guarded(ctx_.dialogs, [this] { unitChanged(); }));
                w = c;
                break;
            }
            case BoxType::Date: {
                auto* d = new QDateEdit(QDate::currentDate(), page);
                d->setCalendarPopup(true);
                d->setDisplayFormat("dd/MM/yyyy");
                connect(d, &QDateEdit::dateChanged, this,
                        Guarded(ctx_.dialogs, [this] { changed(); }));
                w = d;
                break;
            }
            case BoxType::Remarks: {
                remarks = new QTextEdit(page);
                remarks->setAcceptRichText(false);
                connect(remarks, &QTextEdit::textChanged, this,
                        Guarded(ctx_.dialogs, [this] { changed(); }));
                w = remarks;
                break;
            }
        }
        w->setObjectName(name);
        w->setToolTip(b.caption);  // CheckRequired names a box by its tip
        boxes_[b.field] = w;
        if (b.type != BoxType::Remarks) form->addRow(QString(b.caption) + ":", w);
    }
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(form);
    if (remarks) {
        layout->addWidget(new QLabel(QString(kRemarksCaption) + ":", page));
        layout->addWidget(remarks, 1);
    }
}

void RecordEditor::buildDataPage(QWidget* page) {
    auto* layout = new QVBoxLayout(page);
    if (!kind_.bands.empty()) {
        // Band headings over the column groups.
        auto* bands = new QHBoxLayout;
        for (const RecordKind::Band& b : kind_.bands) {
            auto* l = new QLabel(b.text, page);
            l->setAlignment(Qt::AlignCenter);
            l->setFrameShape(QFrame::StyledPanel);
            l->setObjectName(QString("lblBand_%1").arg(b.first));
            bands->addWidget(l, b.count);
        }
        layout->addLayout(bands);
    }
    grid_ = new DataGrid(page);
    grid_->setCornerTitle(kind_.rowHeading);
    grid_->setRowHeadingWidthChars(5);
    grid_->setMaxCols(static_cast<int>(kind_.columns.size()));
    std::vector<int> decimals;
    for (int c = 0; c < static_cast<int>(kind_.columns.size()); ++c) {
        const GridColumn& col = kind_.columns[c];
        grid_->setColumnFormat(c, {true, col.min, col.max, kColumnChars});
        grid_->setColHeading(c, col.heading);
        decimals.push_back(col.decimals);
    }
    grid_->setItemDelegate(new ColumnDecimalsDelegate(grid_->itemDelegate(), decimals, grid_));
    grid_->setEnterWrapColumn(static_cast<int>(kind_.columns.size()) - 1);
    grid_->setMaxRows(kStartRows);
    for (int i : {kTableInsertColumn, kTableDeleteColumn, kTableEditSubheader})
        grid_->setTableMenuEnabled(i, false);
    numberRows();
    connect(grid_, &DataGrid::edited, this, Guarded(ctx_.dialogs, [this] { changed(); }));
    connect(grid_, &DataGrid::rowsChanged, this, Guarded(ctx_.dialogs, [this] {
                numberRows();
                changed();
            }));
    connect(grid_, &QTableWidget::currentCellChanged, this,
            Guarded(ctx_.dialogs, [this](int row, int col, int previousRow, int previousCol) {
                cellLeft(row, col, previousRow, previousCol);
            }));
    connect(grid_, &DataGrid::tableCommand, this, Guarded(ctx_.dialogs, [this](int index) {
                if (index == kTableInsertRow) InsertRow();
                if (index == kTableDeleteRow) DeleteRow();
            }));
    layout->addWidget(grid_, 1);
}

QWidget* RecordEditor::box(const std::string& field) const {
    auto it = boxes_.find(field);
    return it == boxes_.end() ? nullptr : it->second;
}

QString RecordEditor::boxText(const std::string& field) const {
    QWidget* w = box(field);
    if (auto* e = qobject_cast<QLineEdit*>(w)) return e->text();
    if (auto* c = qobject_cast<QComboBox*>(w)) return c->currentText();
    if (auto* d = qobject_cast<QDateEdit*>(w)) return d->date().toString("yyyy-MM-dd");
    if (auto* t = qobject_cast<QTextEdit*>(w)) return t->toPlainText();
    return {};
}

void RecordEditor::setBoxText(const std::string& field, const QString& text) {
    QWidget* w = box(field);
    if (auto* e = qobject_cast<QLineEdit*>(w)) e->setText(text);
    if (auto* c = qobject_cast<QComboBox*>(w)) {
        // Combos are set by text; a text not in the list is kept as it stands.
        if (!text.isEmpty() && c->findText(text) < 0) c->addItem(text);
        if (!text.isEmpty()) c->setCurrentText(text);
    }
    if (auto* d = qobject_cast<QDateEdit*>(w)) {
        const QDate date = QDate::fromString(text.left(10), "yyyy-MM-dd");
        if (date.isValid()) d->setDate(date);
    }
    if (auto* t = qobject_cast<QTextEdit*>(w)) t->setPlainText(text);
}

void RecordEditor::changed() {
    if (!filling_) saved_ = false;
}

void RecordEditor::numberRows() {
    for (int r = 0; r < grid_->maxRows(); ++r) grid_->setRowHeading(r, QString::number(r + 1));
}

void RecordEditor::unitChanged() {
    if (std::string(kind_.code) != "ULF") return;
    const std::string unit = boxText("Unit_Of_Measurement").toStdString();
    grid_->setColHeading(0, QString::fromStdString(UlfColumnHeading(unit)));
    if (QWidget* type = box("Type_Of_Measurement")) type->setEnabled(!IsWeightUnit(unit));
}

int RecordEditor::activeColumn() const {
    const int c = grid_->currentColumn();
    return c < 0 ? 0 : c + 1;
}

void RecordEditor::cellLeft(int row, int col, int previousRow, int previousCol) {
    if (previousRow < 0 || previousCol < 0 || previousRow >= grid_->maxRows()) return;
    // A blank is filled when the row holds data or the cursor moves along the row, so that
    // passing through empty rows leaves them empty.
    bool rowHasData = false;
    for (int c = 0; c < grid_->maxCols(); ++c) rowHasData |= !grid_->isBlank(previousRow, c);
    if (rowHasData || (row == previousRow && col != previousCol))
        CheckCellValues(previousCol, previousRow);
}

void RecordEditor::CheckCellValues(int column, int row) {
    if (row < 0 || row >= grid_->maxRows() || !grid_->isBlank(row, column)) return;
    const QDate now = QDate::currentDate();
    const auto v =
        BlankCellValue(kind_, row, column, [this](int r, int c) { return grid_->value(r, c); },
                       {now.day(), now.month(), now.year()});
    if (v) grid_->setValue(row, column, *v);
}

void RecordEditor::InsertRow() {
    grid_->insertRowsAtSelection();
}

void RecordEditor::DeleteRow() {
    grid_->deleteSelectedRows();
}

namespace {
// The last row (from 1) holding any data, 0 when none.
int LastGridDataRow(const DataGrid& g) {
    for (int r = g.maxRows(); r >= 1; --r)
        for (int c = 0; c < g.maxCols(); ++c)
            if (!g.isBlank(r - 1, c)) return r;
    return 0;
}
}  // namespace

bool RecordEditor::ValidData() {
    return ShowNotices(CheckRecordRows(kind_, fileFromForm().rows), ctx_.dialogs);
}

bool RecordEditor::CheckDates() {
    return ShowNotices(CheckRecordRows(kind_, fileFromForm().rows), ctx_.dialogs);
}

RecordFile RecordEditor::fileFromForm() const {
    RecordFile file;
    for (const HeaderBox& b : kind_.boxes) file.header[b.field] = boxText(b.field).toStdString();
    for (int r = 0; r < grid_->maxRows(); ++r) {
        GridRow row;
        for (int c = 0; c < grid_->maxCols(); ++c) row.push_back(grid_->value(r, c));
        file.rows.push_back(std::move(row));
    }
    return file;
}

void RecordEditor::SaveFile() {
    std::vector<RequiredBox> required;
    for (const HeaderBox& b : kind_.boxes)
        if (b.required) required.push_back({b.caption, boxText(b.field).toStdString()});
    if (!ShowNotices(CheckRequired(required), ctx_.dialogs)) return;
    const std::string code = kind_.code;
    if (code == "GIN" && !ValidData()) return;
    if (code == "MSD" && !CheckDates()) return;
    try {
        WaitCursor wait;
        WriteRecordFile(path_.toStdString(), ctx_.programFolder.toStdString(), kind_,
                        fileFromForm());
    } catch (const StoreError&) {
        ctx_.dialogs.notify({kFileSaveError, kAppTitle, Buttons::Ok, Icon::Warning});
        return;
    }
    saved_ = true;
}

void RecordEditor::SaveFileAs(const QString& path) {
    const std::string target = KindOfPath(path.toStdString());
    if (std::string(kind_.code) == "VLF" && target == "LFQ") {
        ctx_.dialogs.notify(
            {kMissingModuleText, kMissingModuleTitle, Buttons::Ok, Icon::Information});
        return;
    }
    if (target != kind_.code) {
        ctx_.dialogs.notify({kWrongFileType, kAppTitle, Buttons::Ok, Icon::Warning});
        return;
    }
    namespace fs = std::filesystem;
    std::error_code ec;
    const fs::path from = filePath().toStdString(), to = path.toStdString();
    if (from != to) fs::copy_file(from, to, fs::copy_options::overwrite_existing, ec);
    if (ec) {
        ctx_.dialogs.notify({kFileSaveError, kAppTitle, Buttons::Ok, Icon::Warning});
        return;
    }
    setFilePath(path);
    SaveFile();
}

void RecordEditor::setFilePath(const QString& path) {
    path_ = path;
    setWindowTitle(path);
}

void RecordEditor::OpenFile() {
    try {
        const RecordFile file = ReadRecordFile(filePath().toStdString(), kind_);
        filling_ = true;
        for (const HeaderBox& b : kind_.boxes) {
            auto it = file.header.find(b.field);
            setBoxText(b.field,
                       it == file.header.end() ? QString() : QString::fromStdString(it->second));
        }
        const QSignalBlocker block(grid_);
        grid_->clearContents();
        grid_->setMaxRows(std::max<int>(1, static_cast<int>(file.rows.size())));
        for (int r = 0; r < static_cast<int>(file.rows.size()); ++r)
            for (int c = 0; c < grid_->maxCols(); ++c) grid_->setValue(r, c, file.rows[r][c]);
        numberRows();
        unitChanged();
        grid_->viewport()->update();
        filling_ = false;
        saved_ = true;
    } catch (const std::exception&) {
        filling_ = false;
        ctx_.dialogs.notify(
            {kCorruptedOrWrongFormat, kInvalidDataTitle, Buttons::Ok, Icon::Warning});
        unloading_ = true;
        if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
            sub->close();
        } else {
            close();
        }
    }
}

QString RecordEditor::cellOutput(int row, int col) const {
    const auto v = grid_->value(row, col);
    return v ? Decimals(*v, kind_.columns[col].decimals) : QString();
}

void RecordEditor::GenerateOutput() {
    DataGrid& out = *output_;
    const int cols = grid_->maxCols();
    out.setMaxRows(0);
    out.setMaxCols(cols + 1);
    auto addRow = [&out](const QStringList& cells) {
        const int r = out.maxRows();
        out.setMaxRows(r + 1);
        for (int c = 0; c < cells.size(); ++c) out.setCellText(r, c, cells[c]);
    };
    addRow({kOutputFirstLine});
    addRow({kind_.dataTitle});
    addRow({"Date generated: " + QDate::currentDate().toString("dd/MM/yyyy")});
    addRow({});
    for (const HeaderBox& b : kind_.boxes) {
        if (b.type == BoxType::Remarks) continue;
        QString value = boxText(b.field);
        if (b.type == BoxType::Date) value = qobject_cast<QDateEdit*>(box(b.field))->text();
        addRow({QString(b.caption) + ":", value});
    }
    addRow({});
    if (!kind_.bands.empty()) {
        QStringList bands(cols + 1);
        for (const RecordKind::Band& b : kind_.bands) bands[b.first + 1] = b.text;
        addRow(bands);
    }
    QStringList heading{kind_.rowHeading};
    for (int c = 0; c < cols; ++c) heading << grid_->colHeading(c);
    addRow(heading);
    const int rows = LastGridDataRow(*grid_);
    for (int r = 0; r < rows; ++r) {
        QStringList line{QString::number(r + 1)};
        for (int c = 0; c < cols; ++c) line << cellOutput(r, c);
        addRow(line);
    }
    addRow({});
    addRow({"Remarks: " + boxText("Remarks")});
}

void RecordEditor::PrintFile() {
    QPrinter* printer = ctx_.printer();
    if (!printer) return;
    GenerateOutput();
    const FileKind* fk = FindKind(kind_.code);
    printer->setDocName(fk ? fk->reportTitle : kind_.dataTitle);
    output_->print(*printer, false, false);
}

void RecordEditor::Export() {
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

void RecordEditor::closeEvent(QCloseEvent* event) {
    if (!unloading_) {
        unloading_ = true;
        if (!saved_) {
            const std::string question = kRecordUnsavedText + filePath().toStdString();
            bool saveAsked = false;
            RunCommand(ctx_.dialogs, [&] {
                if (ctx_.dialogs.askYesNo(question, kRecordUnsavedTitle)) {
                    saveAsked = true;
                    SaveFile();
                } else {
                    OfferDeleteEmptyFile(path_.toStdString(), LastGridDataRow(*grid_) > 0 ? 1 : 0,
                                         ctx_.dialogs);
                }
            });
            // A save that was asked for and did not happen keeps the editor and its work open.
            if (saveAsked && !saved_) {
                unloading_ = false;
                event->ignore();
                return;
            }
        }
    }
    event->accept();
}

DataEditor* MakeRecordEditor(const char* code, ShellContext& ctx, QWidget* parent) {
    const RecordKind* kind = FindRecordKind(code);
    return kind ? new RecordEditor(ctx, *kind, parent) : nullptr;
}

}  // namespace norvo::gui
