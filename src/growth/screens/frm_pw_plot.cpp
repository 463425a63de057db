#include "growth/screens/frm_pw_plot.h"

#include <QFormLayout>
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
#include "growth/powell_wetherall_plot.h"
#include "mortality/catch_curve_plot.h"
#include "widgets/command_boundary.h"
#include "widgets/file_name_row.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"
#include "widgets/sample_panel.h"

namespace norvo::gui {

namespace {
constexpr int kDataTab = 0, kGraphTab = 1;
}  // namespace

FrmPseudoCatch::FrmPseudoCatch(ShellContext& ctx, QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName("frmPseudoCatch");
    setWindowTitle(kPwPseudoCaption);
    auto* layout = new QVBoxLayout(this);
    plot_ = new PlotView(this);
    plot_->setMinimumSize(440, 330);
    layout->addWidget(plot_, 1);
    auto* note = new QLabel(kPwPseudoNote, this);
    note->setWordWrap(true);
    layout->addWidget(note);
    close_ = new QPushButton(kPwCmdCloseWindow, this);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(close_);
    layout->addLayout(row);
    connect(close_, &QPushButton::clicked, this, Guarded(ctx.dialogs, [this] { hide(); }));
}

struct FrmPwPlot::State {
    LfqData data;
    std::optional<PowellWetherallData> points;
    std::optional<PowellWetherallFit> fit;
    int picked = 0;
};

FrmPwPlot::FrmPwPlot(ShellContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), st_(std::make_unique<State>()) {
    setObjectName("frmPWPlot");
    setWindowTitle(kPwCaption);
    auto* layout = new QVBoxLayout(this);
    tabs_ = new QTabWidget(this);
    layout->addWidget(tabs_);

    auto* dataTab = new QWidget;
    auto* dataLayout = new QVBoxLayout(dataTab);
    auto* form = new QFormLayout;
    const FileNameRow fileRow = AddFileNameRow(form, dataTab, kPwCmdOpen);
    file_ = fileRow.file;
    cmd_[4] = fileRow.open;
    species_ = AddSpeciesRow(form, dataTab);
    dataLayout->addLayout(form);
    samples_ = new SamplePanel(ctx_.dialogs, dataTab);
    samples_->list()->setObjectName("lstPWPlot");
    samples_->list()->setToolTip(kPwListHint);
    dataLayout->addWidget(samples_, 1);
    tabs_->addTab(dataTab, kPwTabs[0]);

    auto* graphTab = new QWidget;
    auto* graphLayout = new QHBoxLayout(graphTab);
    plot_ = new PlotView(graphTab);
    plot_->setMinimumSize(480, 360);
    graphLayout->addWidget(plot_, 1);
    auto* side = new QVBoxLayout;
    auto* pointer = new QFormLayout;
    meanAt_ = new QLabel(kPwUnknown, graphTab);
    cutAt_ = new QLabel(kPwUnknown, graphTab);
    pointer->addRow("Mean L-L':", meanAt_);
    pointer->addRow("Cutoff length (L'):", cutAt_);
    side->addLayout(pointer);
    auto* estimates = new QGroupBox("Estimates", graphTab);
    auto* estForm = new QFormLayout(estimates);
    loo_ = new QLabel(estimates);
    zk_ = new QLabel(estimates);
    estForm->addRow("Loo :", loo_);
    estForm->addRow("Z/K:", zk_);
    side->addWidget(estimates);
    auto* function = new QGroupBox("Function", graphTab);
    auto* fnForm = new QFormLayout(function);
    function_ = new QLabel(function);
    r_ = new QLabel(function);
    fnForm->addRow(function_);
    fnForm->addRow("r:", r_);
    side->addWidget(function);
    side->addStretch();
    graphLayout->addLayout(side);
    tabs_->addTab(graphTab, kPwTabs[1]);

    auto* buttons = new QHBoxLayout;
    cmd_[0] = new QPushButton(kPwCmdPlot, this);
    cmd_[1] = new QPushButton(kPwCmdPseudo, this);
    cmd_[2] = new QPushButton(kPwCmdPrint, this);
    cmd_[3] = new QPushButton(kPwCmdClose, this);
    for (int i = 0; i < 4; ++i) buttons->addWidget(cmd_[i]);
    layout->addLayout(buttons);

    pseudo_ = new FrmPseudoCatch(ctx_, this);

    auto& dialogs = ctx_.dialogs;
    connect(cmd_[0], &QPushButton::clicked, this, Guarded(dialogs, [this] { PWMethod(); }));
    connect(cmd_[1], &QPushButton::clicked, this, Guarded(dialogs, [this] { openPseudoCatch(); }));
    connect(cmd_[2], &QPushButton::clicked, this, Guarded(dialogs, [this] { print(); }));
    connect(cmd_[3], &QPushButton::clicked, this, Guarded(dialogs, [this] { window()->close(); }));
    connect(cmd_[4], &QPushButton::clicked, this, Guarded(dialogs, [this] {
                const auto path =
                    ctx_.dialogs.openFile({kPwOpenTitle, kPwLfqFilter, {}, "lfq", {}, true});
                if (path) Initialize(*path);
            }));
    connect(samples_, &SamplePanel::changed, this, Guarded(dialogs, [this] { clearForChange(); }));
    for (const bool pseudo : {false, true}) {
        PlotView* view = pseudo ? pseudo_->plot() : plot_;
        connect(view, &PlotView::clickedAt, this,
                Guarded(dialogs, [this, pseudo](double x, double y) { clickPlot(x, y, pseudo); }));
        connect(view, &PlotView::mouseMovedTo, this,
                Guarded(dialogs, [this, pseudo](double x, double y) { hoverPlot(x, y, pseudo); }));
        connect(view, &PlotView::resized, this, Guarded(dialogs, [this] { redraw(); }));
    }

    clearForChange();
    const ActiveFileSet active(ctx_.settings);
    if (active.serves("LFQ")) Initialize(active.path());
}

FrmPwPlot::~FrmPwPlot() = default;

const PowellWetherallData* FrmPwPlot::points() const {
    return st_->points ? &*st_->points : nullptr;
}
const PowellWetherallFit* FrmPwPlot::fit() const {
    return st_->fit ? &*st_->fit : nullptr;
}
int FrmPwPlot::picked() const {
    return st_->picked;
}

void FrmPwPlot::Initialize(const std::string& path) {
    if (!ReadLfqOnScreen(ctx_, path, st_->data, file_, species_, samples_)) return;
    clearForChange();
}

void FrmPwPlot::clearForChange() {
    st_->points.reset();
    st_->fit.reset();
    st_->picked = 0;
    for (PlotView* view : {plot_, pseudo_->plot()}) {
        view->canvas().Clear();
        view->setHotCursor(false);
        view->update();
    }
    cmd_[0]->setEnabled(true);
    meanAt_->setText(kPwUnknown);
    cutAt_->setText(kPwUnknown);
    for (QLabel* l : {loo_, zk_, r_, function_}) l->clear();
}

void FrmPwPlot::PWMethod() {
    PowellWetherallOptions o;
    o.selected = samples_->selected();
    o.transform = samples_->transform();
    o.temporal = samples_->temporal();
    PowellWetherallData d = PowellWetherallMethod(st_->data, o);
    if (!ShowNotices(d, ctx_.dialogs)) {
        tabs_->setCurrentIndex(kDataTab);
        samples_->list()->setFocus();
        return;
    }
    clearForChange();
    st_->points = std::move(d);
    cmd_[0]->setEnabled(false);
    tabs_->setCurrentIndex(kGraphTab);
    redraw();
}

void FrmPwPlot::redraw() {
    if (!st_->points) return;
    const std::string& unit = st_->data.unitOfMeasurement;
    const PowellWetherallFit* fit = st_->fit && st_->fit->ok() ? &*st_->fit : nullptr;
    DrawPowellWetherall(plot_->canvas(), *st_->points, unit, st_->picked, fit);
    DrawPseudoCatch(pseudo_->plot()->canvas(), *st_->points, unit, st_->picked);
    plot_->update();
    pseudo_->plot()->update();
}

void FrmPwPlot::openPseudoCatch() {
    pseudo_->show();
    pseudo_->raise();
    redraw();
}

void FrmPwPlot::hoverPlot(double x, double y, bool pseudo) {
    int hit = -1;
    if (st_->points) {
        const auto& d = *st_->points;
        const auto pts = pseudo ? PseudoCatchPositions(d) : PowellWetherallPositions(d);
        hit = HitCatchCurvePoint(pts, 1, d.lastClass, x, y);
    }
    (pseudo ? pseudo_->plot() : plot_)->setHotCursor(hit > 0);
    if (hit <= 0) {
        meanAt_->setText(kPwUnknown);
        cutAt_->setText(kPwUnknown);
        return;
    }
    meanAt_->setText(NumberText(st_->points->meanAbove[hit], "0.00"));
    cutAt_->setText(NumberText(st_->points->cutOff[hit], "0.00"));
}

void FrmPwPlot::clickPlot(double x, double y, bool pseudo) {
    if (!st_->points) return;
    const auto& d = *st_->points;
    const auto pts = pseudo ? PseudoCatchPositions(d) : PowellWetherallPositions(d);
    const int hit = HitCatchCurvePoint(pts, 1, d.lastClass, x, y);
    if (hit <= 0) return;
    st_->picked = hit;
    st_->fit.reset();
    for (QLabel* l : {loo_, zk_, r_, function_}) l->clear();
    PowellWetherallFit fit = PowellWetherallFitFrom(d, hit);
    const bool fitted = fit.ok();
    if (fitted) st_->fit = std::move(fit);
    redraw();
    if (fitted) showFit();
    ShowNotices(fitted ? *st_->fit : fit, ctx_.dialogs);
}

void FrmPwPlot::showFit() {
    const auto& f = *st_->fit;
    function_->setText(QString::fromStdString(PwFunctionText(
        NumberText(f.a, "0.00").toStdString(), NumberText(f.b, "0.000").toStdString())));
    r_->setText(NumberText(f.r, "0.000"));
    if (f.loo) loo_->setText(NumberText(*f.loo, "0.00"));
    if (f.zk)
        zk_->setText(NumberText(*f.zk, "0.000"));
    else if (f.loo)
        zk_->setText(kPwZkUndefined);
}

void FrmPwPlot::print() {
    if (!st_->fit || !st_->fit->loo) return;
    PrintReport(PowellWetherallReport(st_->data, *st_->fit), plot_->canvas(), ctx_.dialogs,
                ctx_.printer);
}

}  // namespace norvo::gui
