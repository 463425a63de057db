#include "mortality/screens/frm_jones_zalinge.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <optional>

#include "app/active_file.h"
#include "base/outcome.h"
#include "data/lfq_file.h"
#include "mortality/catch_curve_plot.h"
#include "mortality/jones_van_zalinge_plot.h"
#include "widgets/command_boundary.h"
#include "widgets/file_name_row.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"
#include "widgets/sample_panel.h"

namespace norvo::gui {

namespace {
constexpr int kDataTab = 0, kPlotTab = 1;
}  // namespace

struct FrmJonesZalinge::State {
    LfqData data;
    std::optional<JonesVanZalingeRun> run;
    int pick1 = 0;
};

FrmJonesZalinge::FrmJonesZalinge(ShellContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), st_(std::make_unique<State>()) {
    setObjectName("frmJonesZalinge");
    setWindowTitle(kJvzCaption);
    auto* layout = new QVBoxLayout(this);
    tabs_ = new QTabWidget(this);
    layout->addWidget(tabs_);

    // Data.
    auto* dataTab = new QWidget;
    auto* dataLayout = new QVBoxLayout(dataTab);
    auto* top = new QHBoxLayout;
    auto* form = new QFormLayout;
    const FileNameRow fileRow = AddFileNameRow(form, dataTab, kJvzCmdOpen);
    file_ = fileRow.file;
    cmd_[2] = fileRow.open;
    species_ = AddSpeciesRow(form, dataTab);
    top->addLayout(form, 1);
    auto* growth = new QGroupBox("Growth Parameters", dataTab);
    auto* growthForm = new QFormLayout(growth);
    for (size_t i = 0; i < fields_.size(); ++i) {
        fields_[i] = new QLineEdit(growth);
        fields_[i]->setObjectName(QString("txtJonZal%1").arg(i));
        growthForm->addRow(i == 0 ? "Loo:" : "K:", fields_[i]);
    }
    top->addWidget(growth);
    dataLayout->addLayout(top);
    samples_ = new SamplePanel(ctx_.dialogs, dataTab);
    samples_->list()->setObjectName("lstJonZal");
    cmd_[3] = samples_->helpButton();
    dataLayout->addWidget(samples_, 1);
    auto* note = new QLabel(kJvzNote, dataTab);
    note->setWordWrap(true);
    dataLayout->addWidget(note);
    tabs_->addTab(dataTab, kJvzTabs[0]);

    // The plot and the picks.
    auto* plotTab = new QWidget;
    auto* plotLayout = new QHBoxLayout(plotTab);
    plot_ = new PlotView(plotTab);
    plot_->setMinimumSize(480, 360);
    plotLayout->addWidget(plot_, 1);
    auto* picks = new QGroupBox("Point Parameters", plotTab);
    auto* pickGrid = new QGridLayout(picks);
    const char* columns[] = {"Class no.", "X value:", "Y value:"};
    for (int c = 0; c < 3; ++c) pickGrid->addWidget(new QLabel(columns[c], picks), 0, c + 1);
    for (int row = 0; row < 2; ++row) {
        pickGrid->addWidget(new QLabel(row == 0 ? "First" : "Last", picks), row + 1, 0);
        for (int c = 0; c < 3; ++c) {
            auto*& box = pointBoxes_[static_cast<size_t>(row * 3 + c)];
            box = new QLabel(picks);
            box->setMinimumWidth(50);
            pickGrid->addWidget(box, row + 1, c + 1);
        }
    }
    pickGrid->setRowStretch(3, 1);
    plotLayout->addWidget(picks);
    tabs_->addTab(plotTab, kJvzTabs[1]);

    // Statistics.
    auto* statTab = new QWidget;
    auto* statLayout = new QHBoxLayout(statTab);
    auto* statForm = new QFormLayout;
    for (size_t i = 0; i < stats_.size(); ++i) {
        stats_[i] = new QLabel(statTab);
        statForm->addRow(kJvzStatCaptions[i], stats_[i]);
    }
    statLayout->addLayout(statForm, 1);
    auto* zBox = new QGroupBox("Z Estimate", statTab);
    auto* zForm = new QFormLayout(zBox);
    for (auto*& l : z_) l = new QLabel(zBox);
    zForm->addRow("Z/K:", z_[0]);
    auto* ci = new QHBoxLayout;
    ci->addWidget(z_[1]);
    ci->addWidget(z_[2]);
    zForm->addRow("CI of Z:", ci);
    auto* zColumn = new QVBoxLayout;
    zColumn->addWidget(zBox);
    zColumn->addStretch();
    statLayout->addLayout(zColumn);
    tabs_->addTab(statTab, kJvzTabs[2]);

    auto* buttons = new QHBoxLayout;
    cmd_[4] = new QPushButton(kJvzCmdCompute, this);
    cmd_[5] = new QPushButton(kJvzCmdStub, this);
    cmd_[0] = new QPushButton(kJvzCmdPrint, this);
    cmd_[1] = new QPushButton(kJvzCmdClose, this);
    for (int i : {4, 5, 0, 1}) buttons->addWidget(cmd_[i]);
    layout->addLayout(buttons);

    auto& dialogs = ctx_.dialogs;
    connect(cmd_[0], &QPushButton::clicked, this, Guarded(dialogs, [this] { print(); }));
    connect(cmd_[1], &QPushButton::clicked, this, Guarded(dialogs, [this] { window()->close(); }));
    connect(cmd_[2], &QPushButton::clicked, this, Guarded(dialogs, [this] {
                const auto path =
                    ctx_.dialogs.openFile({kJvzOpenTitle, kJvzLfqFilter, {}, "lfq", {}, true});
                if (path) Initialize(*path);
            }));
    connect(cmd_[4], &QPushButton::clicked, this, Guarded(dialogs, [this] { compute(); }));
    connect(cmd_[5], &QPushButton::clicked, this, Guarded(dialogs, [this] {
                ctx_.dialogs.notify({kJvzStubText, kJvzStubTitle, Buttons::Ok, Icon::None});
            }));
    for (auto* f : fields_)
        connect(f, &QLineEdit::textEdited, this, Guarded(dialogs, [this] { clearForChange(); }));
    connect(samples_, &SamplePanel::changed, this, Guarded(dialogs, [this] { clearForChange(); }));
    connect(plot_, &PlotView::clickedAt, this,
            Guarded(dialogs, [this](double x, double y) { clickPlot(x, y); }));
    connect(plot_, &PlotView::mouseMovedTo, this, Guarded(dialogs, [this](double x, double y) {
                if (!st_->run) return;
                plot_->setHotCursor(HitCatchCurvePoint(JonesVanZalingePositions(*st_->run), 1,
                                                       st_->run->usable, x, y) > 0);
            }));
    connect(plot_, &PlotView::resized, this, Guarded(dialogs, [this] { redraw(); }));

    clearForChange();
    const ActiveFileSet active(ctx_.settings);
    if (active.serves("LFQ")) Initialize(active.path());
}

FrmJonesZalinge::~FrmJonesZalinge() = default;

const JonesVanZalingeRun* FrmJonesZalinge::run() const {
    return st_->run ? &*st_->run : nullptr;
}

void FrmJonesZalinge::Initialize(const std::string& path) {
    if (!ReadLfqOnScreen(ctx_, path, st_->data, file_, species_, samples_)) return;
    clearForChange();
}

void FrmJonesZalinge::clearReadOuts() {
    for (auto* l : stats_) l->clear();
    for (auto* l : z_) l->clear();
    for (auto* l : pointBoxes_) l->clear();
}

void FrmJonesZalinge::clearForChange() {
    st_->run.reset();
    st_->pick1 = 0;
    plot_->canvas().Clear();
    plot_->setHotCursor(false);
    plot_->update();
    cmd_[4]->setText(kJvzCmdCompute);
    clearReadOuts();
}

void FrmJonesZalinge::compute() {
    const auto loo = static_cast<float>(NumberOrNaN(fields_[0]));
    const auto k = static_cast<float>(NumberOrNaN(fields_[1]));
    if (!ShowNotices(CheckJonesVanZalingeInput(st_->data, loo, k), ctx_.dialogs)) {
        tabs_->setCurrentIndex(kDataTab);
        return;
    }
    JonZalMethod();
}

void FrmJonesZalinge::JonZalMethod() {
    clearReadOuts();
    JonesVanZalingeOptions o;
    o.loo = static_cast<float>(NumberOrNaN(fields_[0]));
    o.k = static_cast<float>(NumberOrNaN(fields_[1]));
    o.selected = samples_->selected();
    o.transform = samples_->transform();
    o.temporal = samples_->temporal();
    JonesVanZalingeRun run = JonesVanZalingeMethod(st_->data, o);
    if (!ShowNotices(run, ctx_.dialogs)) {
        tabs_->setCurrentIndex(kDataTab);
        return;
    }
    st_->run = std::move(run);
    st_->pick1 = 0;
    cmd_[4]->setText(kJvzCmdRedo);
    tabs_->setCurrentIndex(kPlotTab);
    redraw();
}

void FrmJonesZalinge::redraw() {
    if (!st_->run) return;
    DrawJonesVanZalinge(plot_->canvas(), *st_->run, st_->pick1);
    plot_->update();
}

void FrmJonesZalinge::showPick(int row, int cls) {
    const auto& run = *st_->run;
    pointBox(row, 0)->setText(NumberText(cls, "0"));
    pointBox(row, 1)->setText(NumberText(run.logLoo[cls], "0.000"));
    pointBox(row, 2)->setText(NumberText(run.logCum[cls], "0.000"));
}

void FrmJonesZalinge::clickPlot(double x, double y) {
    if (!st_->run) return;
    auto& run = *st_->run;
    const int hit = HitCatchCurvePoint(JonesVanZalingePositions(run), 1, run.usable, x, y);
    if (hit <= 0) {
        ctx_.dialogs.notify(
            {kCcNoSelectionText, kCcNoSelectionTitle, Buttons::Ok, Icon::Information});
        return;
    }
    if (st_->pick1 == 0) {
        // A first click starts a new selection.
        run.first = run.last = 0;
        clearReadOuts();
        st_->pick1 = hit;
        showPick(0, hit);
        redraw();
        return;
    }
    const int pick1 = st_->pick1;
    st_->pick1 = 0;
    if (!ShowNotices(JvzChoosePoints(run, pick1, hit), ctx_.dialogs)) {
        clearReadOuts();
        redraw();
        return;
    }
    showPick(0, run.first);
    showPick(1, run.last);
    fillStatistics();
    redraw();
}

void FrmJonesZalinge::fillStatistics() {
    const auto& f = st_->run->fit;
    using R = RegressionResult;
    auto text = [&](int slot) { return NumberText(f[slot], "0.000"); };
    stats_[0]->setText(NumberText(f[R::kN], "#0"));
    stats_[1]->setText(text(R::kA));
    stats_[2]->setText(text(R::kSeA));
    stats_[3]->setText(text(R::kALow) + " - " + text(R::kAHigh));
    stats_[4]->setText(text(R::kB));
    stats_[5]->setText(text(R::kSeB));
    stats_[6]->setText(text(R::kBLow) + " - " + text(R::kBHigh));
    stats_[7]->setText(text(R::kMeanX));
    stats_[8]->setText(text(R::kSdX));
    stats_[9]->setText(text(R::kMeanY));
    stats_[10]->setText(text(R::kSdY));
    stats_[11]->setText(NumberText(f[R::kR], "0.0000"));
    stats_[12]->setText(NumberText(static_cast<double>(f[R::kR]) * f[R::kR], "0.0000"));
    z_[0]->setText(text(R::kB));
    z_[1]->setText(text(R::kBLow));
    z_[2]->setText(text(R::kBHigh));
}

void FrmJonesZalinge::print() {
    if (!st_->run || !st_->run->fitted()) return;
    PrintReport(JonesVanZalingeReport(st_->data, *st_->run), plot_->canvas(), ctx_.dialogs,
                ctx_.printer);
}

}  // namespace norvo::gui
