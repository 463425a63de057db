#include "stock/screens/frm_simulate.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>
#include <cmath>

#include "base/format.h"
#include "stock/screens/frm_sim_select.h"
#include "stock/simulation_file.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/wait_cursor.h"

namespace norvo::gui {

namespace {

// Whole numbers only; anything else reads as -1, which every range check refuses.
int Whole(const QString& text) {
    const double v = NumberOrNaN(text);
    if (!std::isfinite(v) || v != std::floor(v) || std::fabs(v) > 1e9) return -1;
    return static_cast<int>(v);
}

QTableWidget* MakeTable(QWidget* parent, const char* name, const QStringList& columns) {
    auto* t = new QTableWidget(0, static_cast<int>(columns.size()), parent);
    t->setObjectName(name);
    t->setHorizontalHeaderLabels(columns);
    t->verticalHeader()->setVisible(false);
    t->verticalHeader()->setDefaultSectionSize(22);
    return t;
}

QStringList Labels(auto const& texts) {
    QStringList l;
    for (const char* t : texts) l << t;
    return l;
}

QTableWidgetItem* ReadOnly(const QString& text) {
    auto* item = new QTableWidgetItem(text);
    item->setFlags(item->flags() & ~Qt::ItemIsEditable);
    return item;
}

QString Cell(const QTableWidget* t, int row, int col) {
    const QTableWidgetItem* item = t->item(row, col);
    return item ? item->text() : QString();
}

}  // namespace

FrmSimulate::FrmSimulate(ShellContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
    setObjectName("frmSimulate");
    setWindowTitle(kSimCaption);

    auto* files = new QGridLayout;
    const QDir folder(ctx_.programFolder);
    const std::array<const char*, 2> defaults = {kSimStockFile, kSimCatchFile};
    for (int i = 0; i < 2; ++i) {
        auto& box = txtFile_[static_cast<size_t>(i)];
        box = new QLineEdit(QDir::toNativeSeparators(folder.filePath(defaults[i])), this);
        box->setObjectName(QString("txtFile_%1").arg(i));
        auto* more = new QPushButton("...", this);
        more->setObjectName(QString("cmdBrowse_%1").arg(i));
        more->setMaximumWidth(32);
        connect(more, &QPushButton::clicked, this, Guarded(ctx_.dialogs, [this, i] { browse(i); }));
        files->addWidget(new QLabel(kSimPathLabels[static_cast<size_t>(i)], this), i, 0);
        files->addWidget(box, i, 1);
        files->addWidget(more, i, 2);
    }

    tabs_ = new QTabWidget(this);
    tabs_->setObjectName("tabSimul");
    tabs_->addTab(buildFileTab(), kSimTabs[0]);
    tabs_->addTab(buildPopulationTab(), kSimTabs[1]);
    tabs_->addTab(buildYearTab(), kSimTabs[2]);
    tabs_->addTab(buildRecruitmentTab(), kSimTabs[3]);
    tabs_->addTab(buildSelectionTab(), kSimTabs[4]);
    tabs_->addTab(buildRouteTab(), kSimTabs[5]);
    tabs_->addTab(buildResultTab(), kSimTabs[6]);

    auto* run = new QPushButton(kSimCmdSimulate, this);
    run->setObjectName("cmdSimulate");
    connect(run, &QPushButton::clicked, this, Guarded(ctx_.dialogs, [this] { cmdSimulate(); }));
    auto* close = new QPushButton(kSimCmdClose, this);
    close->setObjectName("cmdClose");
    connect(close, &QPushButton::clicked, this, Guarded(ctx_.dialogs, [this] { closeScreen(); }));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(run);
    buttons->addWidget(close);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(files);
    layout->addWidget(tabs_, 1);
    layout->addLayout(buttons);

    showInputs(DefaultSimulationInputs());
    resize(940, 560);
}

QWidget* FrmSimulate::buildFileTab() {
    auto* page = new QWidget(this);
    auto* grid = new QGridLayout(page);
    for (size_t i = 0; i < txtSimul_.size(); ++i) {
        txtSimul_[i] = new QLineEdit(page);
        txtSimul_[i]->setObjectName(QString("txtSimul_%1").arg(i));
        grid->addWidget(new QLabel(kSimFileLabels[i], page), static_cast<int>(i), 0);
        grid->addWidget(txtSimul_[i], static_cast<int>(i), 1);
    }
    grid->setRowStretch(static_cast<int>(txtSimul_.size()), 1);
    connect(txtSimul_[4], &QLineEdit::editingFinished, this,
            Guarded(ctx_.dialogs, [this] { resizeYearTable(); }));
    return page;
}

QWidget* FrmSimulate::buildPopulationTab() {
    auto* page = new QWidget(this);
    auto* grid = new QGridLayout(page);
    grid->addWidget(new QLabel(kSimMeanHeading, page), 0, 1);
    grid->addWidget(new QLabel(kSimCvHeading, page), 0, 2);
    for (size_t i = 0; i < kSimPopulationLabels.size(); ++i) {
        const int row = static_cast<int>(i) + 1;
        grid->addWidget(new QLabel(kSimPopulationLabels[i], page), row, 0);
        for (size_t j = 0; j < 2; ++j) {
            auto*& box = txtPop_[2 * i + j];
            box = new QLineEdit(page);
            box->setObjectName(QString("txtPop_%1").arg(2 * i + j));
            grid->addWidget(box, row, static_cast<int>(j) + 1);
        }
    }
    grid->setRowStretch(static_cast<int>(kSimPopulationLabels.size()) + 1, 1);
    return page;
}

QWidget* FrmSimulate::buildYearTab() {
    auto* page = new QWidget(this);
    grdYear_ = MakeTable(page, "grdYear", Labels(kSimYearColumns));
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(grdYear_);
    return page;
}

QWidget* FrmSimulate::buildRecruitmentTab() {
    auto* page = new QWidget(this);
    auto* box = new QGroupBox(kSimRecruitmentBox, page);
    grdRecruit_ = MakeTable(box, "grdRecruit", Labels(kSimRecruitColumns));
    grdRecruit_->setRowCount(12);
    for (int m = 0; m < 12; ++m)
        grdRecruit_->setItem(m, 0, ReadOnly(kSimMonthNames[static_cast<size_t>(m)]));
    auto* inner = new QVBoxLayout(box);
    inner->addWidget(grdRecruit_);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(box);
    return page;
}

QWidget* FrmSimulate::buildSelectionTab() {
    auto* page = new QWidget(this);
    grdSelect_ = MakeTable(page, "grdSelect", Labels(kSimSelectColumns));
    grdSelect_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdSelect_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grdSelect_->setSelectionMode(QAbstractItemView::SingleSelection);
    connect(grdSelect_, &QTableWidget::cellDoubleClicked, this,
            Guarded(ctx_.dialogs, [this] { cmdSelect(1); }));
    auto* buttons = new QVBoxLayout;
    for (size_t i = 0; i < kSimSelectCommands.size(); ++i) {
        auto* b = new QPushButton(kSimSelectCommands[i], page);
        b->setObjectName(QString("cmdSelect_%1").arg(i));
        connect(b, &QPushButton::clicked, this,
                Guarded(ctx_.dialogs, [this, i] { cmdSelect(static_cast<int>(i)); }));
        buttons->addWidget(b);
    }
    buttons->addStretch();
    auto* layout = new QHBoxLayout(page);
    layout->addWidget(grdSelect_, 1);
    layout->addLayout(buttons);
    return page;
}

QWidget* FrmSimulate::buildRouteTab() {
    auto* page = new QWidget(this);
    chkSimul_ = new QCheckBox(kSimMigrate, page);
    chkSimul_->setObjectName("chkSimul");
    connect(chkSimul_, &QCheckBox::toggled, this,
            Guarded(ctx_.dialogs, [this](bool on) { onMigrateToggled(on); }));
    grdRoute_ = MakeTable(page, "grdRoute", Labels(kSimRouteColumns));
    grdRoute_->setRowCount(1);
    auto* grid = new QGridLayout;
    for (size_t i = 0; i < txtMigr_.size(); ++i) {
        txtMigr_[i] = new QLineEdit(page);
        txtMigr_[i]->setObjectName(QString("txtMigr_%1").arg(i));
        grid->addWidget(new QLabel(kSimMigrationLabels[i], page), static_cast<int>(i), 0);
        grid->addWidget(txtMigr_[i], static_cast<int>(i), 1);
    }
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(chkSimul_);
    layout->addWidget(grdRoute_, 1);
    layout->addLayout(grid);
    return page;
}

QWidget* FrmSimulate::buildResultTab() {
    auto* page = new QWidget(this);
    grdAgeDist_ =
        MakeTable(page, "grdAgeDist", {kSimYearColumns[0], kSimStockLabel, kSimCatchLabel});
    grdAgeDist_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (int c = 0; c < 3; ++c) grdAgeDist_->setColumnWidth(c, 64);
    grdAgeDist_->setFixedWidth(3 * 64 + 2 * grdAgeDist_->frameWidth() + 4);
    auto* left = new QVBoxLayout;
    left->addWidget(new QLabel(kSimAgeDistTitle, page));
    left->addWidget(grdAgeDist_);
    auto* right = new QVBoxLayout;
    for (SimSet set : {SimSet::Stock, SimSet::Catch}) {
        const size_t i = static_cast<size_t>(set);
        grdLf_[i] = MakeTable(page, i == 0 ? "grdLF_0" : "grdLF_1", Labels(kSimStatsColumns));
        grdLf_[i]->verticalHeader()->setVisible(true);
        grdLf_[i]->setEditTriggers(QAbstractItemView::NoEditTriggers);
        right->addWidget(new QLabel(i == 0 ? kSimStockLabel : kSimCatchLabel, page));
        right->addWidget(grdLf_[i], 1);
    }
    auto* layout = new QHBoxLayout(page);
    layout->addLayout(left);
    layout->addLayout(right, 1);
    return page;
}

void FrmSimulate::showInputs(const SimulationInputs& in) {
    txtSimul_[0]->setText(QString::number(in.samples));
    txtSimul_[1]->setText(QString::number(in.monthsBetween));
    txtSimul_[2]->setText(QString::number(in.fishPerSample));
    SetBoxNumber(txtSimul_[3], in.classInterval, "0.00");
    txtSimul_[4]->setText(QString::number(in.ageGroups));
    txtSimul_[5]->setText(QString::number(in.seed));
    const std::array<double, 8> pop = {in.loo, in.looCv, in.k,  in.kCv,
                                       in.c,   in.cCv,   in.wp, in.wpCv};
    for (size_t i = 0; i < pop.size(); ++i)
        SetBoxNumber(txtPop_[i], pop[i], i % 2 ? "0.000" : "0.00");

    grdYear_->setRowCount(static_cast<int>(in.yearClasses.size()));
    for (size_t a = 0; a < in.yearClasses.size(); ++a) {
        const int row = static_cast<int>(a);
        grdYear_->setItem(row, 0, ReadOnly(QString::number(in.yearClasses[a].age)));
        grdYear_->setItem(row, 1,
                          new QTableWidgetItem(NumberText(in.yearClasses[a].strength, "0.00")));
        grdYear_->setItem(row, 2,
                          new QTableWidgetItem(NumberText(in.yearClasses[a].mortality, "0.00")));
    }
    for (int m = 0; m < 12; ++m)
        grdRecruit_->setItem(
            m, 1, new QTableWidgetItem(NumberText(in.recruitment[static_cast<size_t>(m)], "0.00")));

    selection_ = in.selection;
    grdSelect_->setRowCount(static_cast<int>(selection_.size()));
    for (size_t r = 0; r < selection_.size(); ++r)
        setSelectionRow(static_cast<int>(r), selection_[r]);
    if (!selection_.empty()) grdSelect_->selectRow(0);

    grdRoute_->setItem(0, 0, new QTableWidgetItem(QString::fromStdString(in.route.route)));
    grdRoute_->setItem(0, 1, new QTableWidgetItem(QString::fromStdString(in.route.from)));
    grdRoute_->setItem(0, 2, new QTableWidgetItem(QString::fromStdString(in.route.to)));
    SetBoxNumber(txtMigr_[0], in.route.l50, "0.00");
    SetBoxNumber(txtMigr_[1], in.route.l75, "0.00");
    const QSignalBlocker block(chkSimul_);
    chkSimul_->setChecked(in.migrate);
    grdRoute_->setEnabled(in.migrate);
    for (auto* box : txtMigr_) box->setEnabled(in.migrate);
}

SimulationInputs FrmSimulate::inputs() const {
    SimulationInputs in;
    in.samples = Whole(txtSimul_[0]->text());
    in.monthsBetween = Whole(txtSimul_[1]->text());
    in.fishPerSample = Whole(txtSimul_[2]->text());
    in.classInterval = NumberOrNaN(txtSimul_[3]->text());
    in.ageGroups = Whole(txtSimul_[4]->text());
    in.seed = Whole(txtSimul_[5]->text());
    std::array<double*, 8> pop = {&in.loo, &in.looCv, &in.k,  &in.kCv,
                                  &in.c,   &in.cCv,   &in.wp, &in.wpCv};
    for (size_t i = 0; i < pop.size(); ++i) *pop[i] = NumberOrNaN(txtPop_[i]->text());
    for (int row = 0; row < grdYear_->rowCount(); ++row) {
        YearClass y;
        y.age = row;
        y.strength = NumberOrNaN(Cell(grdYear_, row, 1));
        y.mortality = NumberOrNaN(Cell(grdYear_, row, 2));
        in.yearClasses.push_back(y);
    }
    for (int m = 0; m < 12; ++m)
        in.recruitment[static_cast<size_t>(m)] = NumberOrNaN(Cell(grdRecruit_, m, 1));
    in.selection = selection_;
    in.migrate = chkSimul_->isChecked();
    in.route.route = Cell(grdRoute_, 0, 0).trimmed().toStdString();
    in.route.from = Cell(grdRoute_, 0, 1).trimmed().toStdString();
    in.route.to = Cell(grdRoute_, 0, 2).trimmed().toStdString();
    in.route.l50 = NumberOrNaN(txtMigr_[0]->text());
    in.route.l75 = NumberOrNaN(txtMigr_[1]->text());
    return in;
}

// The year-class table follows the number of age groups, keeping the rows it has.
void FrmSimulate::resizeYearTable() {
    const int n = Whole(txtSimul_[4]->text());
    if (n < 1 || n > 20 || n == grdYear_->rowCount()) return;
    const int old = grdYear_->rowCount();
    grdYear_->setRowCount(n);
    const YearClass fresh;
    for (int row = old; row < n; ++row) {
        grdYear_->setItem(row, 0, ReadOnly(QString::number(row)));
        grdYear_->setItem(row, 1, new QTableWidgetItem(NumberText(fresh.strength, "0.00")));
        grdYear_->setItem(row, 2, new QTableWidgetItem(NumberText(fresh.mortality, "0.00")));
    }
}

void FrmSimulate::onMigrateToggled(bool on) {
    if (on && !MigrationInputsValid(inputs())) {
        ctx_.dialogs.notify({kSimRecheckText, kSimRecheckTitle, Buttons::Ok, Icon::Warning});
        const QSignalBlocker block(chkSimul_);
        chkSimul_->setChecked(false);
        on = false;
    }
    grdRoute_->setEnabled(on);
    for (auto* box : txtMigr_) box->setEnabled(on);
}

void FrmSimulate::setSelectionRow(int row, const SelectionRow& v) {
    grdSelect_->setItem(row, 0, new QTableWidgetItem(QString::fromStdString(v.area)));
    const std::array<double, 5> values = {v.l50, v.l75, v.r75, v.r50, v.fmax};
    for (size_t i = 0; i < values.size(); ++i) {
        const bool notDrawn = v.deselectionNegligible && (i == 2 || i == 3);
        grdSelect_->setItem(
            row, static_cast<int>(i) + 1,
            new QTableWidgetItem(notDrawn ? QString(kSimNotDrawn) : NumberText(values[i], "0.00")));
    }
}

void FrmSimulate::cmdSelect(int index) {
    const int row = grdSelect_->currentRow();
    if (index == 2) {
        if (row < 0 || row >= static_cast<int>(selection_.size())) return;
        selection_.erase(selection_.begin() + row);
        grdSelect_->removeRow(row);
        return;
    }
    const bool adding = index == 0;
    if (!adding && (row < 0 || row >= static_cast<int>(selection_.size()))) return;
    SelectionRow start = adding ? SelectionRow{} : selection_[static_cast<size_t>(row)];
    if (adding) start.area = std::string(1, static_cast<char>('A' + selection_.size() % 26));
    auto* dlg = new FrmSimSelect(ctx_.dialogs, start, this);
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    connect(dlg, &QDialog::accepted, this, Guarded(ctx_.dialogs, [this, dlg, adding, row] {
                if (adding) {
                    selection_.push_back(dlg->row());
                    grdSelect_->setRowCount(static_cast<int>(selection_.size()));
                    setSelectionRow(grdSelect_->rowCount() - 1, dlg->row());
                    grdSelect_->selectRow(grdSelect_->rowCount() - 1);
                } else if (row < static_cast<int>(selection_.size())) {
                    selection_[static_cast<size_t>(row)] = dlg->row();
                    setSelectionRow(row, dlg->row());
                }
            }));
    dlg->setWindowModality(Qt::WindowModal);
    dlg->open();
}

void FrmSimulate::browse(int index) {
    FileDialogOptions o;
    o.title = kSimSaveTitle;
    o.filter = kSimSaveFilter;
    o.defaultExtension = "lfq";
    o.overwritePrompt = true;
    o.startFolder = QDir(ctx_.programFolder).filePath("Data").toStdString();
    o.initialName = txtFile_[static_cast<size_t>(index)]->text().toStdString();
    if (auto path = ctx_.dialogs.saveFile(o))
        txtFile_[static_cast<size_t>(index)]->setText(QString::fromStdString(*path));
}

void FrmSimulate::cmdSimulate() {
    const SimulationInputs in = inputs();
    SimulationRun run;
    {
        WaitCursor wait;
        run = RunSimulation(in, txtFile_[0]->text().trimmed().toStdString(),
                            txtFile_[1]->text().trimmed().toStdString(),
                            ctx_.programFolder.toStdString());
    }
    ShowNotices(run, ctx_.dialogs);
    if (run.result.dates.empty()) return;  // refused before simulating
    result_ = std::move(run.result);
    showResults(in);
    if (run.ok()) tabs_->setCurrentIndex(6);
}

void FrmSimulate::showResults(const SimulationInputs& in) {
    const auto ages = AgeDistSummary(result_, in.yearClasses);
    grdAgeDist_->setRowCount(static_cast<int>(ages.size()));
    for (size_t a = 0; a < ages.size(); ++a) {
        const int row = static_cast<int>(a);
        grdAgeDist_->setItem(row, 0, ReadOnly(QString::number(ages[a].age)));
        grdAgeDist_->setItem(row, 1, ReadOnly(QString::number(ages[a].stock)));
        grdAgeDist_->setItem(row, 2, ReadOnly(QString::number(ages[a].catchCount)));
    }
    for (SimSet set : {SimSet::Stock, SimSet::Catch}) {
        QTableWidget* t = grdLf_[static_cast<size_t>(set)];
        const LengthFreqTable lf = LengthFreq(result_, set);
        QStringList columns = Labels(kSimStatsColumns);
        for (int c = 0; c < lf.classes; ++c) columns << NumberText(lf.midlength(c), "0.00");
        QStringList rows;
        for (const auto& d : result_.dates)
            rows << QString::fromStdString(Format(d.day, "00") + "/" + Format(d.month, "00") + "/" +
                                           Format(d.year, "0000"));
        t->clear();
        t->setColumnCount(static_cast<int>(columns.size()));
        t->setRowCount(static_cast<int>(rows.size()));
        t->setHorizontalHeaderLabels(columns);
        t->setVerticalHeaderLabels(rows);
        for (int s = 0; s < t->rowCount(); ++s) {
            const SampleStats& st = lf.stats[static_cast<size_t>(s)];
            t->setItem(s, 0, ReadOnly(QString::number(st.count)));
            t->setItem(s, 1, ReadOnly(NumberText(st.mean, "0.00")));
            t->setItem(s, 2, ReadOnly(NumberText(st.sd, "0.000")));
            for (int c = 0; c < lf.classes; ++c)
                t->setItem(s, 3 + c,
                           ReadOnly(QString::number(
                               lf.freq[static_cast<size_t>(c)][static_cast<size_t>(s)])));
        }
        t->resizeColumnsToContents();
    }
}

void FrmSimulate::closeScreen() {
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        sub->close();
    } else {
        close();
    }
}

}  // namespace norvo::gui
