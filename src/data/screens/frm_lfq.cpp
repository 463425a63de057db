#include "data/screens/frm_lfq.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDate>
#include <QFocusEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPrinter>
#include <QPushButton>
#include <QTabWidget>
#include <QTextEdit>
#include <QVBoxLayout>
#include <filesystem>
#include <map>

#include "base/checked.h"
#include "base/format.h"
#include "base/settings_store.h"
#include "data/data_store.h"
#include "data/lfq_file.h"
#include "data/screens/frm_lfq_sub.h"
#include "data/screens/frm_tip1.h"
#include "data/store_routines.h"
#include "numerics/validators.h"
#include "widgets/command_boundary.h"
#include "widgets/data_grid.h"
#include "widgets/line_edit_box.h"
#include "widgets/number_box.h"
#include "widgets/wait_cursor.h"

namespace norvo::gui {

namespace {

bool gSavedFlag = false;

constexpr int kStartRows = 10;
constexpr int kRowHeadingChars = 7;
constexpr int kSampleColumnChars = 10;
constexpr double kClassMin = 0.25;
constexpr double kClassMax = 999;

// Midlength of row `row` (from 1) in 32-bit arithmetic, as the row headings show it.
float RowMidlength(int row, float interval, float smallest) {
    const float product = static_cast<float>(row - 1) * interval;
    return product + smallest;
}

}  // namespace

QString DeleteSampleQuestion(const QString& heading) {
    return "The sample of " + heading + " will be deleted. Are you sure?";
}

QString MissingHeaderText(int column) {
    return QString(
               "Sample No.%1 does not have a sampling date. Data was not be saved to disk. "
               "Please correct the error and try again.")
        .arg(column);
}

bool FrmLfq::savedFlag() {
    return gSavedFlag;
}

void FrmLfq::setSavedFlag(bool saved) {
    gSavedFlag = saved;
}

FrmLfq::FrmLfq(ShellContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
    setObjectName("frmLFQ");
    setAttribute(Qt::WA_DeleteOnClose);
    runSubheader = [](FrmLfqSub& dlg) { dlg.exec(); };
    runTip = [](FrmTip1& tip) { tip.exec(); };

    tabs_ = new QTabWidget(this);
    tabs_->setObjectName("tabLFQ");
    auto* headers = new QWidget;
    auto* frequencies = new QWidget;
    buildHeadersPage(headers);
    buildFrequenciesPage(frequencies);
    tabs_->addTab(headers, "Headers");
    tabs_->addTab(frequencies, "Frequencies");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(tabs_);

    // The hidden report grid filled by GenerateOutput for printing and export.
    grdOutput_ = new DataGrid(this);
    grdOutput_->setObjectName("grdOutput");
    grdOutput_->setDefaultColumnFormat({false, 0, 0, 12});
    grdOutput_->hide();

    resize(760, 520);
}

FrmLfq::~FrmLfq() = default;

void FrmLfq::buildHeadersPage(QWidget* page) {
    static constexpr std::array<const char*, 4> kTips = {
        "Species name", "Other identifier", "Smallest class midlength", "Class interval"};
    for (int i = 0; i < 4; ++i) {
        txtLFQ_[i] = new QLineEdit(page);
        txtLFQ_[i]->setObjectName(QString("txtLFQ_%1").arg(i));
        txtLFQ_[i]->setToolTip(kTips[i]);
        txtLFQ_[i]->installEventFilter(this);
        connect(txtLFQ_[i], &QLineEdit::textChanged, this,
                Guarded(ctx_.dialogs, [this] { changed(); }));
    }
    for (int i = 0; i < 2; ++i) {
        cmbLFQ_[i] = new QComboBox(page);
        cmbLFQ_[i]->setObjectName(QString("cmbLFQ_%1").arg(i));
        cmbLFQ_[i]->installEventFilter(this);
    }
    for (const char* u : kUnits) cmbLFQ_[0]->addItem(u);
    for (const char* t : kMeasurementTypes) cmbLFQ_[1]->addItem(t);
    cmbLFQ_[0]->setCurrentText("cm");
    cmbLFQ_[1]->setCurrentText("Total length (TL)");
    cmbLFQ_[0]->setToolTip("Unit of measurement");
    cmbLFQ_[1]->setToolTip("Type of measurement");
    for (QComboBox* c : cmbLFQ_) {
        connect(c, &QComboBox::currentTextChanged, this,
                Guarded(ctx_.dialogs, [this] { changed(); }));
    }
    rtxtLFQ_ = new QTextEdit(page);
    rtxtLFQ_->setObjectName("rtxtLFQ");
    rtxtLFQ_->setAcceptRichText(false);
    rtxtLFQ_->setToolTip("Remarks");
    connect(rtxtLFQ_, &QTextEdit::textChanged, this, Guarded(ctx_.dialogs, [this] { changed(); }));

    auto* species = new QGroupBox("Species", page);
    auto* speciesForm = new QFormLayout(species);
    speciesForm->addRow("Species name:", txtLFQ_[0]);
    speciesForm->addRow("Other identifier:", txtLFQ_[1]);

    auto* measure = new QGroupBox("Length measurement", page);
    auto* measureForm = new QFormLayout(measure);
    measureForm->addRow("Unit of measurement:", cmbLFQ_[0]);
    measureForm->addRow("Type of measurement:", cmbLFQ_[1]);
    measureForm->addRow("Smallest class midlength:", txtLFQ_[2]);
    measureForm->addRow("Class interval:", txtLFQ_[3]);

    auto* remarks = new QGroupBox("Remarks", page);
    auto* remarksLayout = new QVBoxLayout(remarks);
    remarksLayout->addWidget(rtxtLFQ_);

    auto* layout = new QVBoxLayout(page);
    layout->addWidget(species);
    layout->addWidget(measure);
    layout->addWidget(remarks, 1);
}

void FrmLfq::buildFrequenciesPage(QWidget* page) {
    grdData_ = new DataGrid(page);
    grdData_->setCornerTitle("ML");
    grdData_->setRowHeadingWidthChars(kRowHeadingChars);
    grdData_->setDefaultColumnFormat({true, 0.0, 99999999.99, kSampleColumnChars});
    grdData_->setEnterWrapColumn(2);
    grdData_->setMaxRows(kStartRows);
    grdData_->setMaxCols(0);
    connect(grdData_, &DataGrid::edited, this, Guarded(ctx_.dialogs, [this] { changed(); }));
    connect(grdData_, &DataGrid::rowsChanged, this,
            Guarded(ctx_.dialogs, [this] { UpdateClassMidlength(); }));
    connect(grdData_, &DataGrid::headingDoubleClicked, this,
            Guarded(ctx_.dialogs, [this](int col) { EditSampleHeader(col + 1); }));
    connect(grdData_, &DataGrid::tableCommand, this,
            Guarded(ctx_.dialogs, [this](int index) { tableCommand(index); }));

    for (int i = 0; i < 3; ++i) {
        cmdLFQ_[i] = new QPushButton(kCmdLfqCaptions[i], page);
        cmdLFQ_[i]->setObjectName(QString("cmdLFQ_%1").arg(i));
    }
    connect(cmdLFQ_[0], &QPushButton::clicked, this,
            Guarded(ctx_.dialogs, [this] { EditSampleHeader(); }));
    connect(cmdLFQ_[1], &QPushButton::clicked, this,
            Guarded(ctx_.dialogs, [this] { addSample(); }));
    connect(cmdLFQ_[2], &QPushButton::clicked, this, Guarded(ctx_.dialogs, [this] {
                if (activeColumn() > 0) DeleteCol(activeColumn());
            }));
    chkDecimal_ = new QCheckBox(kDecimalCaption, page);
    chkDecimal_->setObjectName("chkDecimal");
    connect(chkDecimal_, &QCheckBox::toggled, this,
            Guarded(ctx_.dialogs, [this](bool on) { grdData_->setDisplayDecimals(on ? 2 : 0); }));
    updateSampleButtons();

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(chkDecimal_);
    buttons->addStretch();
    for (QPushButton* b : cmdLFQ_) buttons->addWidget(b);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(grdData_, 1);
    layout->addLayout(buttons);
}

void FrmLfq::changed() {
    setSavedFlag(false);
}

void FrmLfq::updateSampleButtons() {
    const bool any = grdData_->maxCols() > 0;
    cmdLFQ_[0]->setEnabled(any);
    cmdLFQ_[2]->setEnabled(any);
}

int FrmLfq::activeColumn() const {
    const int c = grdData_->currentColumn();
    return c < 0 || c >= grdData_->maxCols() ? 0 : c + 1;
}

bool FrmLfq::validateClassBox(int index) {
    LineEditBox box(txtLFQ_[index]);
    validating_ = true;
    const bool ok = ValidateBox(box, kClassMin, kClassMax, kClassRangeMessage, ctx_.dialogs);
    validating_ = false;
    if (!ok) {
        txtLFQ_[index]->clear();
        return false;
    }
    (index == 2 ? smallestMl_ : classInterval_) = R4(BoxNumber(txtLFQ_[index]).value_or(0.0));
    UpdateClassMidlength();
    return true;
}

void FrmLfq::UpdateClassMidlength() {
    if (!(smallestMl_ > 0 && classInterval_ > 0)) return;
    for (int r = 1; r <= grdData_->maxRows(); ++r) {
        grdData_->setRowHeading(r - 1, QString::fromStdString(Format(
                                           RowMidlength(r, classInterval_, smallestMl_), "0.00")));
    }
}

bool FrmLfq::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && !validating_ && !unloading_ &&
        (watched == txtLFQ_[2] || watched == txtLFQ_[3])) {
        // Leaving the window or opening a popup is not leaving the box.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) {
            return QWidget::eventFilter(watched, event);
        }
        const int index = watched == txtLFQ_[2] ? 2 : 3;
        RunCommand(ctx_.dialogs, [&] { validateClassBox(index); });
    } else if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            // Enter moves on: species, other identifier, unit, smallest, interval, remarks.
            const std::map<QObject*, QWidget*> next = {
                {txtLFQ_[0], txtLFQ_[1]}, {txtLFQ_[1], cmbLFQ_[0]}, {cmbLFQ_[0], txtLFQ_[2]},
                {cmbLFQ_[1], txtLFQ_[2]}, {txtLFQ_[2], txtLFQ_[3]}, {txtLFQ_[3], rtxtLFQ_}};
            if (auto it = next.find(watched); it != next.end()) {
                it->second->setFocus();
                return true;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

void FrmLfq::InsertRow() {
    grdData_->insertRowsAtSelection();
}

void FrmLfq::DeleteRow() {
    grdData_->deleteSelectedRows();
}

void FrmLfq::InsertCol() {
    addSample();
}

void FrmLfq::addSample() {
    if (grdData_->maxCols() == 0 && FrmTip1::wanted(ctx_.settings)) {
        FrmTip1 tip(ctx_.settings, this);
        runTip(tip);
    }
    grdData_->setMaxCols(grdData_->maxCols() + 1);
    updateSampleButtons();
    changed();
    ctx_.session.sampleHeaderMode = 0;
    ctx_.session.sampleHeaderColumn = grdData_->maxCols();
    newColumn_ = true;
    AccessSubheader();
    newColumn_ = false;
}

void FrmLfq::EditSampleHeader(int column) {
    const int col = activeColumn() > 0 ? activeColumn() : column;
    if (col < 1 || col > grdData_->maxCols()) return;
    ctx_.session.sampleHeaderMode = 0;
    ctx_.session.sampleHeaderColumn = col;
    AccessSubheader();
}

void FrmLfq::AccessSubheader() {
    const int col = ctx_.session.sampleHeaderColumn;
    if (col < 1 || col > grdData_->maxCols()) return;
    FrmLfqSub dlg(filePath().toStdString(), col, ctx_.dialogs, ctx_.session.numericKeys, this);
    runSubheader(dlg);
    ctx_.session.sampleHeaderMode = dlg.day();
    if (dlg.day() >= 1) {
        grdData_->setColHeading(
            col - 1, QString::fromStdString(FormatSampleDate(dlg.day(), dlg.month(), dlg.year())));
        return;
    }
    // Cancelled: a sample just added goes away again; an edit changes nothing.
    if (newColumn_ && grdData_->columnIsBlank(col - 1)) {
        grdData_->removeColumnAt(col - 1);
        updateSampleButtons();
    }
}

void FrmLfq::DeleteCol(int column) {
    if (column < 1 || column > grdData_->maxCols()) return;
    const QString heading = grdData_->colHeading(column - 1);
    if (!ctx_.dialogs.askYesNo(DeleteSampleQuestion(heading).toStdString(), kAppTitle)) return;
    grdData_->removeColumnAt(column - 1);
    updateSampleButtons();
    const std::string path = filePath().toStdString();
    try {
        // The file's sample headers follow at once; the measures wait for a save.
        DeleteSampleHeader(path, column);
    } catch (const StoreError&) {
        ctx_.dialogs.notify(
            {kCorruptedOrWrongFormat, kInvalidDataTitle, Buttons::Ok, Icon::Warning});
    }
    changed();
}

void FrmLfq::SaveFile() {
    saveDone_ = false;
    const std::string path = filePath().toStdString();
    std::vector<RequiredBox> required;
    for (int i : {0, 2, 3})
        required.push_back({txtLFQ_[i]->toolTip().toStdString(), txtLFQ_[i]->text().toStdString()});
    if (!ShowNotices(CheckRequired(required), ctx_.dialogs)) return;
    // A class box typed into but not yet left is checked here as well.
    if (!validateClassBox(2) || !validateClassBox(3)) return;

    std::optional<WaitCursor> wait(std::in_place);
    const GridExtent extent =
        TrimGrid(grdData_->maxRows(), grdData_->maxCols(),
                 [this](int r, int c) { return !grdData_->isBlank(r - 1, c - 1); });
    grdData_->setMaxRows(extent.rows);
    grdData_->setMaxCols(extent.cols);
    updateSampleButtons();
    try {
        DeleteWhere(path, kTableSampleLf, {"SampleNo"}, {">"}, {std::to_string(extent.cols)});
    } catch (const StoreError&) {
        wait.reset();
        ctx_.dialogs.notify({kFileSaveError, kAppTitle, Buttons::Ok, Icon::Warning});
        return;
    }

    if (grdData_->dataColumnCount() == 0) {
        saveDone_ = true;  // an empty grid holds no work to keep
        wait.reset();
        if (OfferDeleteEmptyFile(path, 0, ctx_.dialogs)) unloadEditor();
        return;  // an empty grid is not saved
    }

    // Columns left blank in between are deleted like any sample.
    for (int c = grdData_->maxCols(); c >= 1; --c) {
        if (grdData_->columnIsBlank(c - 1)) {
            wait.reset();
            DeleteCol(c);
            wait.emplace();
        }
    }
    // A heading that is no date (blank, or 0/0/0 read from a damaged file) has no place in
    // time: the sample counts as one without a sampling date.
    for (int c = 1; c <= grdData_->maxCols(); ++c) {
        int day = 0, month = 0, year = 0;
        if (!ParseSampleDate(grdData_->colHeading(c - 1).trimmed().toStdString(), day, month,
                             year)) {
            wait.reset();
            ctx_.dialogs.notify({MissingHeaderText(c).toStdString(), kMissingHeaderTitle,
                                 Buttons::Ok, Icon::Information});
            return;
        }
    }

    std::vector<std::string> headings;
    for (int c = 0; c < grdData_->maxCols(); ++c) {
        headings.push_back(grdData_->colHeading(c).toStdString());
    }
    const std::vector<int> order = ChronologicalSort(headings);
    try {
        writeFile(order);
    } catch (const StoreError&) {
        wait.reset();
        ctx_.dialogs.notify({kFileSaveError, kAppTitle, Buttons::Ok, Icon::Warning});
        return;
    }
    applyOrder(order);
    setSavedFlag(true);
    saveDone_ = true;
}

// Header, renumbered sample headers and measures, replaced together or not at all. The
// samples are written in `order` (old column numbers by new position).
void FrmLfq::writeFile(const std::vector<int>& order) {
    LfqHeader h;
    h.speciesname = txtLFQ_[0]->text().toStdString();
    h.otherId = txtLFQ_[1]->text().toStdString();
    h.unitOfMeasurement = cmbLFQ_[0]->currentText().toStdString();
    h.typeOfMeasurement = cmbLFQ_[1]->currentText().toStdString();
    h.smallestMl = smallestMl_;
    h.classInterval = classInterval_;
    h.remarks = rtxtLFQ_->toPlainText().toStdString();
    std::vector<std::vector<double>> freq(grdData_->maxRows(),
                                          std::vector<double>(order.size(), 0.0));
    for (size_t pos = 0; pos < order.size(); ++pos) {
        const int col = order[pos] - 1;  // the grid's column, before the exchange
        for (int r = 0; r < grdData_->maxRows(); ++r)
            freq[r][pos] = grdData_->value(r, col).value_or(0.0);
    }
    const std::vector<int64_t> oldKeys(order.begin(), order.end());
    AtomicRewrite(path_.toStdString(), [&](const std::string& work) {
        RenumberKeys(work, kTableSampleLf, "SampleNo", oldKeys);
        WriteLfqFile(work, h, {}, freq);  // the sample headers stay as renumbered
    });
}

void FrmLfq::applyOrder(const std::vector<int>& order) {
    const int rows = grdData_->maxRows();
    std::vector<std::vector<std::optional<double>>> cells(order.size());
    std::vector<QString> headings(order.size());
    for (size_t pos = 0; pos < order.size(); ++pos) {
        const int col = order[pos] - 1;
        headings[pos] = grdData_->colHeading(col);
        for (int r = 0; r < rows; ++r) cells[pos].push_back(grdData_->value(r, col));
    }
    const QSignalBlocker block(grdData_);
    for (size_t pos = 0; pos < order.size(); ++pos) {
        grdData_->setColHeading(static_cast<int>(pos), headings[pos]);
        for (int r = 0; r < rows; ++r) grdData_->setValue(r, static_cast<int>(pos), cells[pos][r]);
    }
    grdData_->viewport()->update();
}

void FrmLfq::OpenFile() {
    const ReadResult<LfqSheet> read = ReadLfqSheet(path_.toStdString());
    if (!read) {
        ctx_.dialogs.notify(read.error().notice);
        unloadEditor();
        return;
    }
    const LfqSheet& sheet = *read;
    const LfqHeader& h = sheet.header;
    txtLFQ_[0]->setText(QString::fromStdString(h.speciesname));
    txtLFQ_[1]->setText(QString::fromStdString(h.otherId));
    const std::array<const std::string*, 2> comboTexts = {&h.unitOfMeasurement,
                                                          &h.typeOfMeasurement};
    for (int i = 0; i < 2; ++i) {
        const QString text = QString::fromStdString(*comboTexts[i]);
        if (cmbLFQ_[i]->findText(text) < 0) cmbLFQ_[i]->addItem(text);
        cmbLFQ_[i]->setCurrentText(text);
    }
    smallestMl_ = static_cast<float>(h.smallestMl);
    classInterval_ = static_cast<float>(h.classInterval);
    txtLFQ_[2]->setText(SingleText(smallestMl_));
    txtLFQ_[3]->setText(SingleText(classInterval_));
    rtxtLFQ_->setPlainText(QString::fromStdString(h.remarks));

    const QSignalBlocker block(grdData_);
    if (sheet.rows > 0) grdData_->setMaxRows(sheet.rows);
    grdData_->setMaxCols(static_cast<int>(sheet.columns.size()));
    for (int c = 0; c < static_cast<int>(sheet.columns.size()); ++c) {
        for (int r = 0; r < sheet.rows; ++r) {
            if (const auto& v = sheet.columns[c][r]) grdData_->setValue(r, c, *v);
        }
    }
    updateSampleButtons();
    UpdateClassMidlength();
    for (int c = 0; c < static_cast<int>(sheet.dates.size()); ++c) {
        if (!sheet.dates[c].empty())
            grdData_->setColHeading(c, QString::fromStdString(sheet.dates[c]));
    }
    grdData_->viewport()->update();
    setSavedFlag(true);
}

void FrmLfq::SaveFileAs(const QString& path) {
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

void FrmLfq::setFilePath(const QString& path) {
    path_ = path;
    setWindowTitle(path);
}

void FrmLfq::GenerateOutput() {
    DataGrid& out = *grdOutput_;
    const int samples = grdData_->maxCols();
    out.setMaxRows(0);
    out.setMaxCols(std::max(2, samples + 1));
    auto addRow = [&out](const QStringList& cells) {
        const int r = out.maxRows();
        out.setMaxRows(r + 1);
        for (int c = 0; c < cells.size(); ++c) out.setCellText(r, c, cells[c]);
    };
    addRow({"Norvo 2: Olmar-Tavesh Stock Assessment Tools"});
    addRow({"Grouped Length Frequency Data"});
    addRow({"Date generated: " + QDate::currentDate().toString("dd/MM/yyyy")});
    addRow({});
    addRow({"Species name:", txtLFQ_[0]->text()});
    addRow({"Other identifier:", txtLFQ_[1]->text()});
    addRow({"Unit of measurement:", cmbLFQ_[0]->currentText()});
    addRow({"Type of measurement:", cmbLFQ_[1]->currentText()});
    addRow({"Smallest class midlength:", txtLFQ_[2]->text()});
    addRow({"Class interval:", txtLFQ_[3]->text()});
    addRow({});
    QStringList heading{"ML"};
    for (int c = 0; c < samples; ++c) heading << grdData_->colHeading(c);
    addRow(heading);
    for (int r = 0; r < grdData_->maxRows(); ++r) {
        QStringList line{grdData_->rowHeading(r)};
        for (int c = 0; c < samples; ++c) line << grdData_->cellText(r, c);
        addRow(line);
    }
    addRow({});
    addRow({"Remarks: " + rtxtLFQ_->toPlainText()});
}

void FrmLfq::PrintFile() {
    QPrinter* printer = ctx_.printer();
    if (!printer) return;
    GenerateOutput();
    printer->setDocName(kReportTitle);
    grdOutput_->print(*printer, false, false);
}

void FrmLfq::Export() {
    FileDialogOptions o;
    o.title = kExportTitle;
    o.filter = kExportFilter;
    o.defaultExtension = "tab";
    o.initialName = "*.tab";
    o.overwritePrompt = true;
    const auto path = ctx_.dialogs.saveFile(o);
    if (!path || path->empty()) return;
    GenerateOutput();
    grdOutput_->saveTabDelimited(QString::fromStdString(*path), false);
}

void FrmLfq::tableCommand(int index) {
    switch (index) {
        case kTableInsertRow:
            InsertRow();
            break;
        case kTableInsertColumn:
            InsertCol();
            break;
        case kTableDeleteRow:
            DeleteRow();
            break;
        case kTableDeleteColumn:
            DeleteCol(activeColumn());
            break;
        case kTableEditSubheader:
            ctx_.session.sampleHeaderColumn = activeColumn();
            AccessSubheader();
            break;
        default:
            break;
    }
}

void FrmLfq::Activate() {
    ctx_.enableEditCommands(kLfqKind);
    ctx_.setEditorMenus(true);
    for (int i = 0; i < 7; ++i) grdData_->setTableMenuEnabled(i, true);
    ctx_.settings.setRunTime(kKeyLastActive, filePath().toStdString());
}

bool FrmLfq::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate && isWindow()) Activate();
    return QWidget::event(event);
}

void FrmLfq::showEvent(QShowEvent* event) {
    if (!activationHooked_) {
        if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
            connect(sub, &QMdiSubWindow::aboutToActivate, this, &FrmLfq::Activate);
            activationHooked_ = true;
        }
    }
    QWidget::showEvent(event);
}

void FrmLfq::unloadEditor() {
    unloading_ = true;
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        sub->close();
    } else {
        close();
    }
}

void FrmLfq::closeEvent(QCloseEvent* event) {
    if (!unloading_) {
        unloading_ = true;
        if (!savedFlag()) {
            const std::string question = kUnsavedText + filePath().toStdString();
            bool saveAsked = false;
            RunCommand(ctx_.dialogs, [&] {
                if (ctx_.dialogs.askYesNo(question, kUnsavedTitle)) {
                    saveAsked = true;
                    setSavedFlag(true);
                    SaveFile();
                } else {
                    OfferDeleteEmptyFile(filePath().toStdString(), grdData_->dataColumnCount(),
                                         ctx_.dialogs);
                }
            });
            // A save that was asked for and did not happen keeps the editor and its work open.
            if (saveAsked && !saveDone_) {
                unloading_ = false;
                event->ignore();
                return;
            }
        }
    }
    event->accept();
}

}  // namespace norvo::gui
