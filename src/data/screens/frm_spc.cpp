#include "data/screens/frm_spc.h"

#include <QDate>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QTabWidget>
#include <QVBoxLayout>

#include "data/species_files.h"
#include "numerics/validators.h"
#include "widgets/command_boundary.h"
#include "widgets/data_grid.h"
#include "widgets/number_box.h"

namespace norvo::gui {

namespace {
constexpr int kName = 0, kRemarks = 1, kFirstNumber = 2, kGroups = 4;
constexpr const char* kShown = "0.00";
}  // namespace

FrmSpc::FrmSpc(ShellContext& ctx, QWidget* parent) : StockFileEditor(ctx, "SPC", parent) {
    setObjectName("frmSPC");
    auto* layout = new QVBoxLayout(this);
    tabs_ = new QTabWidget(this);
    layout->addWidget(tabs_);

    auto* header = new QWidget;
    auto* headerLayout = new QVBoxLayout(header);
    auto* frame = new QGroupBox(kSpcFrame, header);
    auto* form = new QFormLayout(frame);
    for (size_t i = 0; i < boxes_.size(); ++i) {
        boxes_[i] = new QLineEdit(frame);
        form->addRow(kSpcCaptions[i], boxes_[i]);
        connect(boxes_[i], &QLineEdit::textEdited, this, [this] { markChanged(); });
    }
    headerLayout->addWidget(frame);
    headerLayout->addStretch();
    tabs_->addTab(header, "&Header");

    grid_ = new DataGrid;
    grid_->setMaxCols(3);
    grid_->setMaxRows(1);
    for (int c = 0; c < 3; ++c) grid_->setColHeading(c, kSpcColumns[c]);
    grid_->setDisplayDecimals(2);
    tabs_->addTab(grid_, "&Arrays");
    connect(grid_, &DataGrid::edited, this, [this] { markChanged(); });
    connect(grid_, &QTableWidget::currentCellChanged, this,
            Guarded(ctx_.dialogs, [this](int, int, int row, int) { CheckCellValues(row); }));
}

void FrmSpc::CheckCellValues(int row) {
    if (filling_ || row < 0 || row >= grid_->maxRows()) return;
    bool any = false;
    for (int c = 0; c < 3; ++c) any = any || !grid_->isBlank(row, c);
    if (!any) return;
    for (int c = 0; c < 3; ++c)
        if (grid_->isBlank(row, c)) grid_->setValue(row, c, 0.0);
}

void FrmSpc::OpenFile() {
    const auto read = ReadSpeciesFile(filePath().toStdString());
    if (!read) {
        failRead();
        return;
    }
    filling_ = true;
    const SpeciesHeader& h = read->header;
    boxes_[kName]->setText(QString::fromStdString(h.speciesName));
    boxes_[kRemarks]->setText(QString::fromStdString(h.remarks));
    const double numbers[] = {
        h.lowerLimit, h.classSize, static_cast<double>(h.noGroups), h.recruit, h.a, h.b, h.m, h.ft,
        h.loo,        h.k};
    for (int i = 0; i < 10; ++i)
        SetBoxNumber(boxes_[kFirstNumber + i], numbers[i],
                     i + kFirstNumber == kGroups ? "0" : kShown);
    grid_->clearContents();
    grid_->setMaxRows(std::max<int>(1, static_cast<int>(read->classes.size())));
    for (size_t r = 0; r < read->classes.size(); ++r) {
        const int row = static_cast<int>(r);
        grid_->setValue(row, 0, read->classes[r].lengthClass);
        grid_->setValue(row, 1, read->classes[r].f);
        grid_->setValue(row, 2, read->classes[r].value);
    }
    filling_ = false;
    saved_ = true;
}

void FrmSpc::SaveFile() {
    SpeciesData d;
    d.header.speciesName = boxes_[kName]->text().toStdString();
    d.header.remarks = boxes_[kRemarks]->text().toStdString();
    std::array<double, 10> v{};
    for (int i = 0; i < 10; ++i) {
        const auto x = BoxNumber(boxes_[kFirstNumber + i]);
        if (!x) {
            ctx_.dialogs.inform(kInvalidNumber, kValidatorTitle, Icon::Warning);
            tabs_->setCurrentIndex(0);
            boxes_[kFirstNumber + i]->setFocus();
            return;
        }
        v[i] = *x;
    }
    SpeciesHeader& h = d.header;
    h.lowerLimit = v[0];
    h.classSize = v[1];
    h.noGroups = static_cast<int>(v[2]);
    h.recruit = v[3];
    h.a = v[4];
    h.b = v[5];
    h.m = v[6];
    h.ft = v[7];
    h.loo = v[8];
    h.k = v[9];
    for (int r = 0; r < grid_->maxRows(); ++r) {
        if (grid_->isBlank(r, 0) && grid_->isBlank(r, 1) && grid_->isBlank(r, 2)) continue;
        d.classes.push_back({grid_->value(r, 0).value_or(0), grid_->value(r, 1).value_or(0),
                             grid_->value(r, 2).value_or(0)});
    }
    WriteSpeciesFile(filePath().toStdString(), d);
    saved_ = true;
}

void FrmSpc::InsertRow() {
    grid_->insertRowsAtSelection();
    markChanged();
}

void FrmSpc::DeleteRow() {
    grid_->deleteSelectedRows();
    markChanged();
}

std::vector<QStringList> FrmSpc::outputLines() const {
    std::vector<QStringList> lines;
    lines.push_back({"Species Table"});
    lines.push_back({"Date generated: " + QDate::currentDate().toString("dd/MM/yyyy")});
    lines.push_back({});
    for (size_t i = 0; i < boxes_.size(); ++i)
        lines.push_back({kSpcCaptions[i], boxes_[i]->text()});
    lines.push_back({});
    lines.push_back({kSpcColumns[0], kSpcColumns[1], kSpcColumns[2]});
    for (int r = 0; r < grid_->maxRows(); ++r)
        lines.push_back({grid_->cellText(r, 0), grid_->cellText(r, 1), grid_->cellText(r, 2)});
    return lines;
}

}  // namespace norvo::gui
