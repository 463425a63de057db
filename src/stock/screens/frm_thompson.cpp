#include "stock/screens/frm_thompson.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>
#include <optional>

#include "app/active_file.h"
#include "base/format.h"
#include "base/settings_store.h"
#include "stock/thompson_bell_plot.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

namespace {

constexpr int kSpeciesList = 0, kFleetList = 1;
constexpr int kCalculate = 0, kOpen = 1, kPrint = 2, kSavePlots = 3, kClose = 4;
constexpr int kGraphTab = 1;

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

}  // namespace

struct FrmThompson::State {
    std::string path;
    std::optional<ThompsonBellInputs> inputs;
    // By fleet, in the scenario's order: whether it varies, and its f-factor when it does not.
    std::vector<bool> vary;
    std::vector<double> fixed;
    std::optional<ThompsonBellResult> result;
};

FrmThompson::FrmThompson(ShellContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), st_(std::make_unique<State>()) {
    setObjectName("frmThompson");
    setWindowTitle(kTbCaption);
    auto* layout = new QVBoxLayout(this);

    auto* top = new QHBoxLayout;
    file_ = new QLineEdit(this);
    file_->setReadOnly(true);
    cmd_[kOpen] = new QPushButton(kTbCommands[kOpen], this);
    cmd_[kOpen]->setFixedWidth(32);
    top->addWidget(new QLabel("Scenario:", this));
    top->addWidget(file_, 1);
    top->addWidget(cmd_[kOpen]);
    layout->addLayout(top);
    title_ = new QLabel(this);
    layout->addWidget(title_);

    auto* pick = new QHBoxLayout;
    for (int i = 0; i < 2; ++i) {
        combos_[i] = new QComboBox(this);
        combos_[i]->setObjectName(QString("cmbThompson%1").arg(i));
        combos_[i]->setMinimumContentsLength(24);
        combos_[i]->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    }
    pick->addWidget(new QLabel("Species:", this));
    pick->addWidget(combos_[0], 1);
    pick->addWidget(new QLabel("Fleet:", this));
    pick->addWidget(combos_[1], 1);
    layout->addLayout(pick);

    tabs_ = new QTabWidget(this);
    auto* general = new QWidget;
    auto* graphs = new QWidget;
    auto* tables = new QWidget;
    buildGeneral(general);
    buildGraphs(graphs);
    buildTables(tables);
    tabs_->addTab(general, kTbTabs[0]);
    tabs_->addTab(graphs, kTbTabs[1]);
    tabs_->addTab(tables, kTbTabs[2]);
    layout->addWidget(tabs_, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (int i : {kCalculate, kPrint, kSavePlots, kClose}) {
        cmd_[i] = new QPushButton(kTbCommands[i], this);
        buttons->addWidget(cmd_[i]);
    }
    layout->addLayout(buttons);

    auto& d = ctx_.dialogs;
    connect(cmd_[kCalculate], &QPushButton::clicked, this, Guarded(d, [this] { Calculate(); }));
    connect(cmd_[kOpen], &QPushButton::clicked, this, Guarded(d, [this] {
                const auto path =
                    ctx_.dialogs.openFile({kTbOpenTitle, kTbOpenFilter, {}, "sce", {}, true});
                if (path) OpenScenario(*path);
            }));
    connect(cmd_[kPrint], &QPushButton::clicked, this, Guarded(d, [this] { PrintFile(); }));
    connect(cmd_[kSavePlots], &QPushButton::clicked, this, Guarded(d, [this] { SavePlots(); }));
    connect(cmd_[kClose], &QPushButton::clicked, this, Guarded(d, [this] { window()->close(); }));
    for (auto* combo : combos_)
        connect(combo, &QComboBox::currentIndexChanged, this, Guarded(d, [this] {
                    if (!filling_) PickCombination();
                }));
    connect(lists_[kFleetList], &QListWidget::itemChanged, this,
            Guarded(d, [this](QListWidgetItem* item) {
                if (filling_) return;
                FleetChecked(lists_[kFleetList]->row(item), item->checkState() == Qt::Checked);
            }));
    for (int i = 0; i < 2; ++i)
        connect(branches_[i], &QRadioButton::toggled, this, Guarded(d, [this, i](bool on) {
                    if (!on) return;
                    ctx_.session.thompsonBellSelection = i == 1;
                    clearResult();
                }));

    // The selectivity boxes start from the last values shown.
    for (int i = 0; i < 4; ++i)
        if (const auto v = ParseBoxText(Q(ctx_.settings.runTime(kTbSelectivityKeys[i], ""))))
            SetBoxNumber(selectivity_[i], *v, "0.00");
    clearResult();
    const ActiveFileSet active(ctx_.settings);
    if (active.serves("SCE")) OpenScenario(active.path());
}

FrmThompson::~FrmThompson() = default;

void FrmThompson::buildGeneral(QWidget* page) {
    auto* grid = new QGridLayout(page);
    const char* titles[] = {kThompsonBellSpeciesList, kThompsonBellFleetList};
    for (int i = 0; i < 2; ++i) {
        lists_[i] = new QListWidget(page);
        lists_[i]->setObjectName(QString("lstThompson%1").arg(i));
        grid->addWidget(new QLabel(titles[i], page), 0, i);
        grid->addWidget(lists_[i], 1, i);
    }
    auto* side = new QVBoxLayout;
    auto* branch = new QGroupBox(kTbBranchFrame, page);
    auto* branchLayout = new QVBoxLayout(branch);
    for (int i = 0; i < 2; ++i) {
        branches_[i] = new QRadioButton(kTbBranches[i], branch);
        branchLayout->addWidget(branches_[i]);
    }
    branches_[ctx_.session.thompsonBellSelection ? 1 : 0]->setChecked(true);
    side->addWidget(branch);
    auto* sel = new QGroupBox(kTbSelectivityFrame, page);
    auto* form = new QFormLayout(sel);
    for (int i = 0; i < 4; ++i) {
        selectivity_[i] = new QLineEdit(sel);
        selectivity_[i]->setReadOnly(true);
        selectivity_[i]->setMaximumWidth(90);
        form->addRow(kTbSelectivity[i], selectivity_[i]);
    }
    side->addWidget(sel);
    side->addStretch();
    grid->addLayout(side, 0, 2, 2, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
}

void FrmThompson::buildGraphs(QWidget* page) {
    auto* grid = new QGridLayout(page);
    graphTitle_ = new QLabel(page);
    grid->addWidget(graphTitle_, 0, 0, 1, 3);
    grid->addWidget(new QLabel(kThompsonBellCumulative, page), 2, 0, 1, 3);
    for (int i = 0; i < 6; ++i) {
        plots_[i] = new PlotView(page);
        plots_[i]->setMinimumSize(260, 200);
        grid->addWidget(plots_[i], i < 3 ? 1 : 3, i % 3);
        connect(plots_[i], &PlotView::resized, this,
                Guarded(ctx_.dialogs, [this] { showCombination(); }));
    }
}

void FrmThompson::buildTables(QWidget* page) {
    auto* grid = new QGridLayout(page);
    for (int i = 0; i < 2; ++i) {
        tableTitles_[i] = new QLabel(page);
        tables_[i] = new QTableWidget(0, 4, page);
        tables_[i]->setObjectName(QString("spdThompson%1").arg(i));
        tables_[i]->setEditTriggers(QAbstractItemView::NoEditTriggers);
        tables_[i]->verticalHeader()->setVisible(false);
        tables_[i]->verticalHeader()->setDefaultSectionSize(22);
        tables_[i]->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
        grid->addWidget(tableTitles_[i], 0, i);
        grid->addWidget(tables_[i], 1, i);
    }
    tableTitles_[1]->setText(kThompsonBellCumulative);
}

const ThompsonBellResult* FrmThompson::result() const {
    return st_->result ? &*st_->result : nullptr;
}

void FrmThompson::clearScenario() {
    filling_ = true;
    st_->path.clear();
    st_->inputs.reset();
    st_->vary.clear();
    st_->fixed.clear();
    file_->clear();
    title_->clear();
    for (auto* list : lists_) list->clear();
    for (auto* combo : combos_) combo->clear();
    filling_ = false;
    setWindowTitle(kTbCaption);
    clearResult();
}

void FrmThompson::clearResult() {
    st_->result.reset();
    fillTable(1, ThompsonBellTable{});
    showCombination();
    cmd_[kPrint]->setEnabled(false);
    cmd_[kSavePlots]->setEnabled(false);
}

void FrmThompson::OpenScenario(const std::string& path) {
    ThompsonBellInputs in = ReadThompsonBellInputs(path);
    if (!ShowNotices(in, ctx_.dialogs)) {
        // The routine starts again empty: the scenario must be rebuilt in its editor.
        clearScenario();
        return;
    }
    clearScenario();
    filling_ = true;
    st_->path = path;
    file_->setText(Q(path));
    title_->setText(Q(in.scenario.title));
    for (const auto& m : in.scenario.species) {
        lists_[kSpeciesList]->addItem(Q(MemberLabel(m)));
        combos_[0]->addItem(Q(MemberLabel(m)));
    }
    for (const auto& m : in.scenario.fleets) combos_[1]->addItem(Q(MemberLabel(m)));
    // Every fleet varies until the user fixes one.
    st_->vary.assign(in.scenario.fleets.size(), true);
    st_->fixed.assign(in.scenario.fleets.size(), 1.0);
    st_->inputs = std::move(in);
    filling_ = false;
    showFleets();
    setWindowTitle(QString(kTbCaption) + " [" + Q(path) + "]");
    showSelectivity();
}

void FrmThompson::showFleets() {
    if (!st_->inputs) return;
    filling_ = true;
    auto* list = lists_[kFleetList];
    const auto& fleets = st_->inputs->scenario.fleets;
    // The entries are updated in place: this runs inside the list's own item-changed signal.
    while (list->count() > static_cast<int>(fleets.size()))
        delete list->takeItem(list->count() - 1);
    for (std::size_t f = 0; f < fleets.size(); ++f) {
        const int row = static_cast<int>(f);
        if (row >= list->count()) {
            auto* added = new QListWidgetItem(list);
            added->setFlags(added->flags() | Qt::ItemIsUserCheckable);
        }
        const std::string state =
            st_->vary[f] ? std::string(kThompsonBellVaryMark)
                         : ThompsonBellFixedMark(
                               SingleText(static_cast<float>(st_->fixed[f])).toStdString());
        QListWidgetItem* item = list->item(row);
        item->setText(Q(MemberLabel(fleets[f]) + " " + state));
        item->setCheckState(st_->vary[f] ? Qt::Checked : Qt::Unchecked);
    }
    filling_ = false;
}

void FrmThompson::FleetChecked(int row, bool vary) {
    if (!st_->inputs || row < 0 || row >= static_cast<int>(st_->vary.size())) return;
    const auto f = static_cast<std::size_t>(row);
    const std::string name = st_->inputs->scenario.fleets[f].name;
    if (vary) {
        st_->vary[f] = true;
        ctx_.dialogs.inform(ThompsonBellVaryText(name), kThompsonBellVaryTitle, Icon::Information);
    } else {
        // Asked until a value in (0, 4] is given; a cancel leaves the fleet varying.
        for (;;) {
            const auto answer = ctx_.dialogs.inputBox(
                {ThompsonBellFixedPrompt(name), kThompsonBellFixedTitle,
                 SingleText(static_cast<float>(st_->fixed[f])).toStdString()});
            if (!answer) break;
            const double x = NumberOrNaN(Q(*answer));
            if (ShowNotices(CheckFixedFactor(x), ctx_.dialogs)) {
                st_->vary[f] = false;
                st_->fixed[f] = x;
                break;
            }
        }
    }
    showFleets();
    clearResult();
}

void FrmThompson::Calculate() {
    if (st_->path.empty()) return;
    // The files are read again: the scenario may have been edited since it was opened.
    ThompsonBellInputs in = ReadThompsonBellInputs(st_->path);
    if (!ShowNotices(in, ctx_.dialogs)) {
        clearScenario();
        return;
    }
    const bool sameMembers = st_->inputs && in.scenario.species == st_->inputs->scenario.species &&
                             in.scenario.fleets == st_->inputs->scenario.fleets;
    if (!sameMembers) {
        // The lists follow the file; the fleets' settings are kept by name.
        const auto old = st_->inputs ? st_->inputs->scenario.fleets : std::vector<ScenarioMember>{};
        const auto vary = st_->vary;
        const auto fixed = st_->fixed;
        OpenScenario(st_->path);
        for (std::size_t f = 0; f < st_->vary.size(); ++f)
            for (std::size_t o = 0; o < old.size(); ++o)
                if (old[o].name == st_->inputs->scenario.fleets[f].name) {
                    st_->vary[f] = vary[o];
                    st_->fixed[f] = fixed[o];
                }
        showFleets();
        if (!st_->inputs) return;
    } else {
        st_->inputs = std::move(in);
    }

    ThompsonBellOptions o;
    o.scenarioPath = st_->path;
    o.useSelection = branches_[1]->isChecked();
    const auto& fleets = st_->inputs->scenario.fleets;
    for (std::size_t f = 0; f < fleets.size(); ++f) {
        if (st_->vary[f])
            o.effort.vary.push_back(fleets[f].name);
        else
            o.effort.fixed[fleets[f].name] = st_->fixed[f];
    }
    ThompsonBellResult r = ThompsonBell(*st_->inputs, o);
    if (!ShowNotices(r, ctx_.dialogs)) {
        clearResult();
        return;
    }
    st_->result = std::move(r);
    fillTable(1, CumulativeTable(*st_->result));
    cmd_[kPrint]->setEnabled(true);
    cmd_[kSavePlots]->setEnabled(true);
    showCombination();
}

bool FrmThompson::combinationCaught(int species, int fleet) const {
    return st_->inputs && !st_->inputs->catches.at(static_cast<std::size_t>(species))
                               .at(static_cast<std::size_t>(fleet))
                               .empty();
}

std::string FrmThompson::combinationName() const {
    return MemberKey(combos_[0]->currentText().toStdString()) + " / " +
           MemberKey(combos_[1]->currentText().toStdString());
}

void FrmThompson::PickCombination() {
    const int s = combos_[0]->currentIndex(), f = combos_[1]->currentIndex();
    if (st_->inputs && s >= 0 && f >= 0 && !combinationCaught(s, f))
        ctx_.dialogs.inform(ThompsonBellNotCaughtByText(st_->inputs->scenario.species[s].name,
                                                        st_->inputs->scenario.fleets[f].name),
                            kThompsonBellNotCaughtTitle, Icon::Information);
    showCombination();
}

void FrmThompson::showCombination() {
    showSelectivity();
    const int s = combos_[0]->currentIndex(), f = combos_[1]->currentIndex();
    const bool shown = st_->result && s >= 0 && f >= 0 && combinationCaught(s, f);
    const ThompsonBellTable t = shown ? CombinationTable(*st_->result, s, f) : ThompsonBellTable{};
    fillTable(0, t);
    drawPlots(0, t, false);
    drawPlots(3, st_->result ? CumulativeTable(*st_->result) : ThompsonBellTable{}, true);
    const QString name = shown ? Q(combinationName()) : QString();
    graphTitle_->setText(name);
    tableTitles_[0]->setText(name);
}

void FrmThompson::showSelectivity() {
    const int s = combos_[0]->currentIndex(), f = combos_[1]->currentIndex();
    if (!st_->inputs || s < 0 || f < 0) return;
    const auto& sel =
        st_->inputs->selection.at(static_cast<std::size_t>(s)).at(static_cast<std::size_t>(f));
    if (!sel) return;
    const double v[] = {sel->l50, sel->l75, sel->r75, sel->r50};
    for (int i = 0; i < 4; ++i) {
        SetBoxNumber(selectivity_[i], v[i], "0.00");
        ctx_.settings.setRunTime(kTbSelectivityKeys[i], Format(v[i], "0.00"));
    }
}

void FrmThompson::fillTable(int index, const ThompsonBellTable& t) {
    QTableWidget* table = tables_[index];
    table->setRowCount(static_cast<int>(t.ffactor.size()));
    const std::string titles[] = {kThompsonBellFFactor,
                                  ThompsonBellColumnTitle(kThompsonBellYield, t.pYield),
                                  ThompsonBellColumnTitle(kThompsonBellBiomass, t.pBiomass),
                                  ThompsonBellColumnTitle(kThompsonBellValue, t.pValue)};
    for (int c = 0; c < 4; ++c)
        table->setHorizontalHeaderItem(c, new QTableWidgetItem(Q(titles[c])));
    for (std::size_t i = 0; i < t.ffactor.size(); ++i) {
        const int row = static_cast<int>(i);
        const QString cells[] = {
            NumberText(t.ffactor[i], kThompsonBellFFactorFormat),
            NumberText(ThompsonBellShown(t.yield[i], t.pYield), kThompsonBellResultFormat),
            NumberText(ThompsonBellShown(t.biomass[i], t.pBiomass), kThompsonBellResultFormat),
            NumberText(ThompsonBellShown(t.value[i], t.pValue), kThompsonBellResultFormat)};
        for (int c = 0; c < 4; ++c) {
            auto* item = new QTableWidgetItem(cells[c]);
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            table->setItem(row, c, item);
        }
    }
}

void FrmThompson::drawPlots(int first, const ThompsonBellTable& t, bool cumulative) {
    for (int k = 0; k < 3; ++k) {
        PlotView* view = plots_[first + k];
        DrawThompsonBellPlot(view->canvas(), t, kThompsonBellQuantities[k], cumulative);
        view->update();
    }
}

void FrmThompson::PrintFile() {
    if (!st_->result) return;
    ThompsonBellReportInput in;
    in.scenario = st_->path;
    const auto& fleets = st_->inputs->scenario.fleets;
    for (std::size_t f = 0; f < fleets.size(); ++f)
        in.fleetStates.push_back(fleets[f].name + " " +
                                 (st_->vary[f] ? std::string(kThompsonBellVaryMark)
                                               : ThompsonBellFixedMark(FormatSingle(
                                                     static_cast<float>(st_->fixed[f])))));
    // The picked combination's page when it has one, the cumulative page otherwise.
    const int s = combos_[0]->currentIndex(), f = combos_[1]->currentIndex();
    const bool single = s >= 0 && f >= 0 && combinationCaught(s, f);
    in.combination = single ? combinationName() : std::string();
    in.table = single ? CombinationTable(*st_->result, s, f) : CumulativeTable(*st_->result);
    PrintReport(ThompsonBellReport(in), plots_[single ? 0 : 3]->canvas(), ctx_.dialogs,
                ctx_.printer);
}

void FrmThompson::SavePlots() {
    if (!st_->result) return;
    std::vector<const ChartCanvas*> canvases;
    for (auto* view : plots_) canvases.push_back(&view->canvas());
    norvo::SavePlots(canvases, ctx_.dialogs, RenderedPlotSaver());
    // The pictures are drawn again as the screen shows them.
    showCombination();
}

}  // namespace norvo::gui
