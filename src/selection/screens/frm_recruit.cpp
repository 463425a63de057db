#include "selection/screens/frm_recruit.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>

#include "app/active_file.h"
#include "base/settings_store.h"
#include "selection/recruitment.h"
#include "selection/recruitment_normsep.h"
#include "selection/recruitment_plot.h"
#include "widgets/command_boundary.h"
#include "widgets/file_name_row.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"
#include "widgets/sample_panel.h"

namespace norvo::gui {

namespace {
constexpr int kGraphTab = 1;

// "The input for Loo: is not a number. Please check input."
std::string NotANumberText(const char* caption) {
    return std::string("The input for ") + caption + " is not a number. Please check input.";
}
}  // namespace

struct FrmRecruit::State {
    LfqData data;
    GrowthParams growth;
    std::optional<RecruitmentResult> run;
    std::optional<RecruitmentGroupsResult> groups;
};

FrmRecruit::FrmRecruit(ShellContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), st_(std::make_unique<State>()) {
    setObjectName("frmRecruit");
    setWindowTitle(kRcCaption);
    auto* layout = new QVBoxLayout(this);
    tabs_ = new QTabWidget(this);
    layout->addWidget(tabs_);

    // Data and options.
    auto* dataTab = new QWidget;
    auto* dl = new QVBoxLayout(dataTab);
    auto* form = new QFormLayout;
    const FileNameRow fileRow = AddFileNameRow(form, dataTab, kRcCommands[0]);
    file_ = fileRow.file;
    cmd_[0] = fileRow.open;
    species_ = AddSpeciesRow(form, dataTab);
    dl->addLayout(form);
    dl->addWidget(new QLabel(kRcSampleNote, dataTab));
    samples_ = new SamplePanel(ctx_.dialogs, dataTab);
    cmd_[1] = samples_->helpButton();
    dl->addWidget(samples_, 1);
    auto* source = new QGroupBox(kRcDataSource, dataTab);
    auto* sl = new QHBoxLayout(source);
    for (int i = 0; i < 2; ++i) {
        dataOptions_[i] = new QRadioButton(kRcDataOptions[i], source);
        sl->addWidget(dataOptions_[i]);
    }
    dataOptions_[0]->setChecked(true);
    dl->addWidget(source);
    tabs_->addTab(dataTab, kRcTabs[0]);

    // Growth parameters, the graph and the decomposition.
    auto* graphTab = new QWidget;
    auto* gl = new QHBoxLayout(graphTab);
    auto* side = new QVBoxLayout;
    auto* growthBox = new QGroupBox(kRcGrowthGroup, graphTab);
    auto* gf = new QFormLayout(growthBox);
    for (size_t i = 0; i < growth_.size(); ++i) {
        growth_[i] = new QLineEdit(growthBox);
        growth_[i]->setMaximumWidth(90);
        gf->addRow(kRcGrowthCaptions[i], growth_[i]);
    }
    side->addWidget(growthBox);
    auto* note = new QLabel(kRcDecomposeNote, graphTab);
    note->setWordWrap(true);
    side->addWidget(note);
    auto* groupForm = new QFormLayout;
    for (size_t i = 0; i < groups_.size(); ++i) {
        groups_[i] = new QLineEdit(graphTab);
        groups_[i]->setMaximumWidth(90);
        groupForm->addRow(kRcGroupCaptions[i], groups_[i]);
    }
    side->addLayout(groupForm);
    cmd_[5] = new QPushButton(kRcCommands[5], graphTab);
    side->addWidget(cmd_[5]);
    side->addStretch();
    gl->addLayout(side);
    plot_ = new PlotView(graphTab);
    plot_->setMinimumSize(480, 360);
    gl->addWidget(plot_, 1);
    tabs_->addTab(graphTab, kRcTabs[1]);

    // Numeric results.
    auto* numTab = new QWidget;
    auto* nl = new QVBoxLayout(numTab);
    nl->addWidget(new QLabel(kRcNumericHeading, numTab));
    table_ = new QTableWidget(12, 2, numTab);
    QStringList rows;
    for (int p = 1; p <= 12; ++p) rows << QString("Month %1").arg(p);
    table_->setVerticalHeaderLabels(rows);
    table_->setHorizontalHeaderLabels({kRcRelativeTimeColumn, kRcPercentColumn});
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    nl->addWidget(table_, 1);
    groupResults_ = new QLabel(numTab);
    nl->addWidget(groupResults_);
    tabs_->addTab(numTab, kRcTabs[2]);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (int i : {2, 3, 4}) {
        cmd_[i] = new QPushButton(kRcCommands[i], this);
        buttons->addWidget(cmd_[i]);
    }
    layout->addLayout(buttons);

    auto& dialogs = ctx_.dialogs;
    connect(cmd_[0], &QPushButton::clicked, this, Guarded(dialogs, [this] {
                const auto path =
                    ctx_.dialogs.openFile({kRcOpenTitle, kRcLfqFilter, {}, "lfq", {}, true});
                if (path) Initialize(*path);
            }));
    connect(cmd_[2], &QPushButton::clicked, this, Guarded(dialogs, [this] { DoRecruitment(); }));
    connect(cmd_[3], &QPushButton::clicked, this, Guarded(dialogs, [this] { print(); }));
    connect(cmd_[4], &QPushButton::clicked, this, Guarded(dialogs, [this] { window()->close(); }));
    connect(cmd_[5], &QPushButton::clicked, this, Guarded(dialogs, [this] { DoNORMSEP(); }));
    connect(plot_, &PlotView::resized, this, Guarded(dialogs, [this] {
                if (!st_->run) return;
                DrawRecruitment(plot_->canvas(), *st_->run);
                if (st_->groups) DrawRecruitmentGroups(plot_->canvas(), *st_->run, *st_->groups);
                plot_->update();
            }));

    clearResults();
    const ActiveFileSet active(ctx_.settings);
    if (active.serves("LFQ")) Initialize(active.path());
}

FrmRecruit::~FrmRecruit() = default;

const RecruitmentResult* FrmRecruit::run() const {
    return st_->run ? &*st_->run : nullptr;
}
const RecruitmentGroupsResult* FrmRecruit::decomposition() const {
    return st_->groups ? &*st_->groups : nullptr;
}

void FrmRecruit::Initialize(const std::string& path) {
    if (!ReadLfqOnScreen(ctx_, path, st_->data, file_, species_, samples_)) return;
    clearResults();
}

void FrmRecruit::clearResults() {
    st_->run.reset();
    st_->groups.reset();
    plot_->canvas().Clear();
    plot_->update();
    table_->clearContents();
    groupResults_->clear();
}

void FrmRecruit::DoRecruitment() {
    clearResults();
    RecruitmentOptions o;
    float* fields[] = {&o.growth.loo, &o.growth.k, &o.growth.c, &o.growth.wp, &o.growth.t0};
    for (size_t i = 0; i < growth_.size(); ++i) {
        const auto v = BoxNumber(growth_[i]);
        if (!v) {
            ctx_.dialogs.notify({NotANumberText(kRcGrowthCaptions[i]), kInvalidDataTitle,
                                 Buttons::Ok, Icon::Warning});
            return;
        }
        *fields[i] = static_cast<float>(*v);
    }
    o.selected = samples_->selected();
    if (st_->data.noOfSamples == 0 ||
        std::none_of(o.selected.begin(), o.selected.end(), [](bool b) { return b; })) {
        ctx_.dialogs.notify(
            {kCcNoDataSelectedText, kCcInvalidActionTitle, Buttons::Ok, Icon::Information});
        tabs_->setCurrentIndex(0);
        return;
    }
    o.transform = samples_->transform();
    o.temporal = samples_->temporal();
    o.restructured = dataOptions_[1]->isChecked();
    RecruitmentResult r = norvo::DoRecruitment(st_->data, o);
    if (!ShowNotices(r, ctx_.dialogs)) return;
    st_->growth = o.growth;
    st_->run = std::move(r);
    DrawRecruitment(plot_->canvas(), *st_->run);
    plot_->update();
    fillTable();
    tabs_->setCurrentIndex(kGraphTab);
}

void FrmRecruit::DoNORMSEP() {
    if (!st_->run) return;
    const auto g1 = BoxNumber(groups_[0]), g2 = BoxNumber(groups_[1]);
    if (!g1 || !g2) {
        ctx_.dialogs.notify({NotANumberText(kRcGroupCaptions[g1 ? 1 : 0]), kInvalidDataTitle,
                             Buttons::Ok, Icon::Warning});
        return;
    }
    RecruitmentGroupsResult groups = norvo::DoNORMSEP(st_->run->pattern, *g1, *g2);
    if (!ShowNotices(groups, ctx_.dialogs) || groups.groups.empty()) return;
    st_->groups = std::move(groups);
    DrawRecruitment(plot_->canvas(), *st_->run);
    DrawRecruitmentGroups(plot_->canvas(), *st_->run, *st_->groups);
    plot_->update();
    QString text;
    for (size_t g = 0; g < st_->groups->groups.size(); ++g) {
        const auto& q = st_->groups->groups[g];
        text += QString("Group %1: mean ").arg(g + 1) + NumberText(q.mean, "0.00") + ", SD " +
                NumberText(q.sd, "0.00") + ", proportion " + NumberText(q.proportion, "0.000") +
                "\n";
    }
    groupResults_->setText(text.trimmed());
}

void FrmRecruit::fillTable() {
    const RecruitmentResult& r = *st_->run;
    const bool relative = r.timeLabel == kRcRelativeTime;
    table_->setHorizontalHeaderLabels(
        {relative ? kRcRelativeTimeColumn : kRcAbsoluteTime, kRcPercentColumn});
    for (int p = 1; p <= 12; ++p) {
        table_->setItem(p - 1, 0, new QTableWidgetItem(QString::fromStdString(r.labels[p])));
        auto* value = new QTableWidgetItem(NumberText(r.pattern[p], "0.00"));
        value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        table_->setItem(p - 1, 1, value);
    }
}

void FrmRecruit::print() {
    if (!st_->run) return;
    PrintReport(
        RecruitmentReport(st_->data, st_->growth, *st_->run, st_->groups ? &*st_->groups : nullptr),
        plot_->canvas(), ctx_.dialogs, ctx_.printer);
}

}  // namespace norvo::gui
