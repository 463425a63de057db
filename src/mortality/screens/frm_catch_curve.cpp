#include "mortality/screens/frm_catch_curve.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <limits>
#include <optional>

#include "app/active_file.h"
#include "base/outcome.h"
#include "base/settings_store.h"
#include "data/lfq_file.h"
#include "mortality/catch_curve_plot.h"
#include "mortality/catch_curve_run.h"
#include "mortality/screens/frm_prob_catch_curve.h"
#include "selection/screens/frm_probability.h"
#include "selection/selection.h"
#include "widgets/command_boundary.h"
#include "widgets/file_name_row.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"
#include "widgets/sample_panel.h"

namespace norvo::gui {

namespace {
constexpr int kDataTab = 0, kCurveTab = 1;
constexpr std::array<const char*, 5> kFieldCaptions = {"Loo:", "K:", "C:", "WP:", "t0:"};
constexpr std::array<const char*, 20> kStatCaptions = {"First point:",
                                                       "Last point:",
                                                       "X (first):",
                                                       "Y (first):",
                                                       "X (last):",
                                                       "Y (last):",
                                                       "Z:",
                                                       "Z, 95% lower:",
                                                       "Z, 95% upper:",
                                                       "Intercept (a):",
                                                       "SE of a:",
                                                       "a, 95% lower:",
                                                       "a, 95% upper:",
                                                       "Slope (b):",
                                                       "SE of b:",
                                                       "b, 95% lower:",
                                                       "b, 95% upper:",
                                                       "Mean x / SD x:",
                                                       "Mean y / SD y:",
                                                       "Correlation coef. (r):"};
constexpr const char* kNotSet = "NotSet";

// A growth box as a 32-bit number: empty or "NotSet" is 0 (an optional parameter left out),
// text that is no number is NaN, which the check refuses with the parameter's notice.
float GrowthValue(const QLineEdit* box) {
    if (box->text().trimmed() == kNotSet) return 0;
    const auto v = BoxNumber(box);
    return v ? static_cast<float>(*v) : std::numeric_limits<float>::quiet_NaN();
}
}  // namespace

struct FrmCatchCurve::State {
    LfqData data;
    std::optional<CatchCurveRun> run;
    CcScale scale;
    std::vector<UserPoint> positions;
    bool selecting = false;
    int pick1 = 0;
};

FrmCatchCurve::FrmCatchCurve(ShellContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), st_(std::make_unique<State>()) {
    setObjectName("frmCatchCurve");
    auto* layout = new QVBoxLayout(this);
    tabs_ = new QTabWidget(this);
    layout->addWidget(tabs_);

    // Data and options.
    auto* dataTab = new QWidget;
    auto* dataLayout = new QVBoxLayout(dataTab);
    auto* form = new QFormLayout;
    const FileNameRow fileRow = AddFileNameRow(form, dataTab, kCcCmdOpen);
    file_ = fileRow.file;
    cmd_[2] = fileRow.open;
    species_ = AddSpeciesRow(form, dataTab);
    for (size_t i = 0; i < fields_.size(); ++i) {
        fields_[i] = new QLineEdit(dataTab);
        form->addRow(kFieldCaptions[i], fields_[i]);
    }
    for (int i = 2; i < 5; ++i) SetBoxNumber(fields_[i], 0, "0");
    dataLayout->addLayout(form);
    samples_ = new SamplePanel(ctx_.dialogs, dataTab);
    cmd_[3] = samples_->helpButton();
    dataLayout->addWidget(samples_, 1);
    tabs_->addTab(dataTab, kCcTabs[0]);

    // The curve.
    auto* curveTab = new QWidget;
    auto* curveLayout = new QVBoxLayout(curveTab);
    plot_ = new PlotView(curveTab);
    plot_->setMinimumSize(480, 360);
    curveLayout->addWidget(plot_, 1);
    auto* pointsRow = new QHBoxLayout;
    firstPoint_ = new QLineEdit(curveTab);
    lastPoint_ = new QLineEdit(curveTab);
    for (auto* e : {firstPoint_, lastPoint_}) {
        e->setReadOnly(true);
        e->setEnabled(false);
        e->setMaximumWidth(60);
    }
    pointsRow->addWidget(new QLabel("First point:", curveTab));
    pointsRow->addWidget(firstPoint_);
    pointsRow->addWidget(new QLabel("Last point:", curveTab));
    pointsRow->addWidget(lastPoint_);
    curveZ_ = new QLabel(curveTab);
    curveR_ = new QLabel(curveTab);
    pointsRow->addWidget(new QLabel(kStatCaptions[6], curveTab));
    pointsRow->addWidget(curveZ_);
    pointsRow->addWidget(new QLabel(kStatCaptions[19], curveTab));
    pointsRow->addWidget(curveR_);
    pointsRow->addStretch();
    curveLayout->addLayout(pointsRow);
    tabs_->addTab(curveTab, kCcTabs[1]);

    // Statistics.
    auto* statTab = new QWidget;
    auto* grid = new QGridLayout(statTab);
    for (size_t i = 0; i < stats_.size(); ++i) {
        stats_[i] = new QLabel(statTab);
        grid->addWidget(new QLabel(kStatCaptions[i], statTab), static_cast<int>(i % 10),
                        static_cast<int>(i / 10) * 2);
        grid->addWidget(stats_[i], static_cast<int>(i % 10), static_cast<int>(i / 10) * 2 + 1);
    }
    tabs_->addTab(statTab, kCcTabs[2]);

    auto* buttons = new QHBoxLayout;
    cmd_[4] = new QPushButton(kCcCmdCompute, this);
    cmd_[5] = new QPushButton(kCcCmdReset, this);
    cmd_[6] = new QPushButton(kCcCmdExtrapolate, this);
    cmd_[0] = new QPushButton(kCcCmdPrint, this);
    cmd_[1] = new QPushButton(kCcCmdClose, this);
    for (int i : {4, 5, 6, 0, 1}) buttons->addWidget(cmd_[i]);
    layout->addLayout(buttons);

    auto& dialogs = ctx_.dialogs;
    connect(cmd_[0], &QPushButton::clicked, this, Guarded(dialogs, [this] { print(); }));
    connect(cmd_[1], &QPushButton::clicked, this, Guarded(dialogs, [this] { window()->close(); }));
    connect(cmd_[2], &QPushButton::clicked, this, Guarded(dialogs, [this] {
                const auto path =
                    ctx_.dialogs.openFile({kCcOpenTitle, kCcLfqFilter, {}, "lfq", {}, true});
                if (path) Initialize(*path);
            }));
    connect(cmd_[4], &QPushButton::clicked, this, Guarded(dialogs, [this] { CatchCurveMethod(); }));
    connect(cmd_[5], &QPushButton::clicked, this, Guarded(dialogs, [this] { ResetSelections(); }));
    connect(cmd_[6], &QPushButton::clicked, this,
            Guarded(dialogs, [this] { ExtrapolateOrShow(); }));
    for (auto* f : fields_)
        connect(f, &QLineEdit::textEdited, this, Guarded(dialogs, [this] { clearForChange(); }));
    for (int i = 2; i < 5; ++i)
        connect(fields_[i], &QLineEdit::editingFinished, this, Guarded(dialogs, [this, i] {
                    if (fields_[i]->text().isEmpty()) SetBoxNumber(fields_[i], 0, "0");
                }));
    connect(samples_, &SamplePanel::changed, this, Guarded(dialogs, [this] { clearForChange(); }));
    connect(plot_, &PlotView::clickedAt, this,
            Guarded(dialogs, [this](double x, double y) { clickPlot(x, y); }));
    connect(plot_, &PlotView::mouseMovedTo, this, Guarded(dialogs, [this](double x, double y) {
                if (!st_->selecting || !st_->run) return;
                plot_->setHotCursor(HitCatchCurvePoint(st_->positions, st_->run->firstClass,
                                                       st_->run->lastClass, x, y) >= 0);
            }));
    connect(plot_, &PlotView::resized, this, Guarded(dialogs, [this] { redraw(); }));

    clearForChange();
    const ActiveFileSet active(ctx_.settings);
    if (active.serves("LFQ")) Initialize(active.path());
}

// The mortality dialogue may outlive this screen's own part of the object (it is parented to the
// window): cut its "destroyed" connection so that it never writes into a destroyed screen.
FrmCatchCurve::~FrmCatchCurve() {
    if (probDialog_) probDialog_->disconnect(this);
}

const CatchCurveRun* FrmCatchCurve::run() const {
    return st_->run ? &*st_->run : nullptr;
}
const Extrapolation* FrmCatchCurve::extrapolation() const {
    return st_->run && st_->run->extrapolation ? &*st_->run->extrapolation : nullptr;
}

void FrmCatchCurve::Initialize(const std::string& path) {
    if (!ReadLfqOnScreen(ctx_, path, st_->data, file_, species_, samples_)) return;
    clearForChange();
}

void FrmCatchCurve::clearForChange() {
    st_->run.reset();
    st_->selecting = false;
    st_->pick1 = 0;
    plot_->canvas().Clear();
    plot_->update();
    cmd_[4]->setText(kCcCmdCompute);
    cmd_[4]->setEnabled(true);
    cmd_[5]->setEnabled(false);
    cmd_[6]->setText(kCcCmdExtrapolate);
    cmd_[6]->setEnabled(false);
    firstPoint_->clear();
    lastPoint_->clear();
    for (auto* s : stats_) s->clear();
    curveZ_->clear();
    curveR_->clear();
    const std::string name = st_->data.path.empty() ? "" : st_->data.path;
    setWindowTitle(QString::fromStdString(kCcCaptionPrefix + name + "]"));
}

GrowthParams FrmCatchCurve::growth() const {
    GrowthParams g;
    g.loo = GrowthValue(fields_[0]);
    g.k = GrowthValue(fields_[1]);
    g.c = GrowthValue(fields_[2]);
    g.wp = GrowthValue(fields_[3]);
    g.t0 = GrowthValue(fields_[4]);
    return g;
}

void FrmCatchCurve::CatchCurveMethod() {
    CatchCurveOptions o;
    o.growth = growth();
    o.selected = samples_->selected();
    o.transform = samples_->transform();
    o.temporal = samples_->temporal();
    CatchCurveRun run = RunCatchCurve(st_->data, o);
    if (!ShowNotices(run, ctx_.dialogs)) {
        if (run.growthRefused) tabs_->setCurrentIndex(kDataTab);
        return;
    }
    cmd_[4]->setEnabled(false);
    cmd_[5]->setEnabled(true);
    st_->run = std::move(run);
    firstPoint_->setEnabled(true);
    lastPoint_->setEnabled(true);
    tabs_->setCurrentIndex(kCurveTab);
    if (!st_->run->fitted()) {
        redraw();
        ResetSelections();
        return;
    }
    DrawPointsAndCurve();
}

void FrmCatchCurve::redraw() {
    if (!st_->run) return;
    const bool fitted = st_->run->firstPoint > 0 && !st_->selecting;
    CatchCurveRun shown = *st_->run;
    if (!fitted) shown.firstPoint = shown.lastPoint = 0;
    st_->scale = DrawCatchCurve(plot_->canvas(), shown, st_->pick1, 0, extrapolation());
    st_->positions = CatchCurvePointPositions(*st_->run, st_->scale, extrapolation());
    plot_->update();
}

void FrmCatchCurve::DrawPointsAndCurve() {
    st_->selecting = false;
    st_->pick1 = 0;
    redraw();
    fillStatistics();
    cmd_[6]->setEnabled(true);
}

void FrmCatchCurve::fillStatistics() {
    const auto& run = *st_->run;
    const auto& f = run.fit;
    auto put = [this](int i, double value, std::string_view pattern) {
        stats_[i]->setText(NumberText(value, pattern));
    };
    using R = RegressionResult;
    SetBoxNumber(firstPoint_, run.firstPoint, "0");
    SetBoxNumber(lastPoint_, run.lastPoint, "0");
    put(0, run.firstPoint, "0");
    put(1, run.lastPoint, "0");
    put(2, run.X[run.firstPoint], "0.00");
    put(3, run.Y[run.firstPoint], "0.00");
    put(4, run.X[run.lastPoint], "0.00");
    put(5, run.Y[run.lastPoint], "0.00");
    put(6, -f.b(), "0.00");
    put(7, -f[R::kBHigh], "0.00");
    put(8, -f[R::kBLow], "0.00");
    const int slotIds[] = {R::kA, R::kSeA, R::kALow, R::kAHigh,
                           R::kB, R::kSeB, R::kBLow, R::kBHigh};
    for (int i = 0; i < 8; ++i) put(9 + i, f[slotIds[i]], "0.000");
    stats_[17]->setText(NumberText(f[R::kMeanX], "0.000") + " / " +
                        NumberText(f[R::kSdX], "0.000"));
    stats_[18]->setText(NumberText(f[R::kMeanY], "0.000") + " / " +
                        NumberText(f[R::kSdY], "0.000"));
    put(19, f.r(), "0.0000");
    curveZ_->setText(stats_[6]->text());
    curveR_->setText(stats_[19]->text());
}

void FrmCatchCurve::ResetSelections() {
    if (!st_->run) return;
    ctx_.dialogs.notify({kCcSelectingText, kCcSelectingTitle, Buttons::Ok, Icon::Information});
    st_->run->extrapolation.reset();
    st_->selecting = true;
    st_->pick1 = 0;
    cmd_[6]->setText(kCcCmdExtrapolate);
    cmd_[6]->setEnabled(false);
    redraw();
}

void FrmCatchCurve::clickPlot(double x, double y) {
    if (!st_->run) return;
    if (!st_->selecting) {
        ctx_.dialogs.notify(
            {kCcResetFirstText, kCcInvalidActionTitle, Buttons::Ok, Icon::Information});
        return;
    }
    const int hit =
        HitCatchCurvePoint(st_->positions, st_->run->firstClass, st_->run->lastClass, x, y);
    if (hit < 0) {
        ctx_.dialogs.notify(
            {kCcNoSelectionText, kCcNoSelectionTitle, Buttons::Ok, Icon::Information});
        return;
    }
    if (st_->pick1 == 0) {
        st_->pick1 = hit;
        redraw();
        return;
    }
    if (!ShowNotices(ChoosePoints(*st_->run, st_->pick1, hit), ctx_.dialogs)) {
        st_->pick1 = 0;
        cmd_[6]->setEnabled(false);
        redraw();
        return;
    }
    DrawPointsAndCurve();
}

void FrmCatchCurve::ExtrapolateOrShow() {
    if (!st_->run) return;
    const auto& run = *st_->run;
    if (cmd_[6]->text() == kCcCmdShowProb) {
        SelectionInput in;
        in.nC = run.nC;
        in.probability = st_->run->extrapolation->probability;
        in.firstClass = run.firstClass;
        in.firstPoint = run.firstPoint;
        in.w = run.w;
        in.firstMid = run.firstMid;
        probScreen_ = new FrmProbability(ctx_, in, st_->data, window());
        probScreen_->show();
        return;
    }
    if (!ShowNotices(CheckExtrapolation(run), ctx_.dialogs)) return;
    probDialog_ = new FrmProbCatchCurve(
        ctx_, CatchCurveZ(run), run.growth,
        [this](double z, double m, double t) { onProceed(z, m, t); }, window());
    connect(probDialog_, &QObject::destroyed, this, [this] { probDialog_ = nullptr; });
    probDialog_->show();
}

void FrmCatchCurve::onProceed(double z, double m, double t) {
    if (!st_->run) return;
    st_->run->extrapolation = ExtrapolateProb(*st_->run, z, m, t);
    redraw();
    cmd_[6]->setText(kCcCmdShowProb);
}

void FrmCatchCurve::print() {
    if (!st_->run || st_->run->firstPoint == 0) return;
    PrintReport(CatchCurveReport(st_->data, *st_->run), plot_->canvas(), ctx_.dialogs,
                ctx_.printer);
}

}  // namespace norvo::gui
