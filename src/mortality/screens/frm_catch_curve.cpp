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
#include <optional>

#include "base/format.h"
#include "base/settings_store.h"
#include "data/lfq_file.h"
#include "mortality/catch_curve.h"
#include "mortality/catch_curve_plot.h"
#include "mortality/screens/frm_prob_catch_curve.h"
#include "numerics/text_convert.h"
#include "selection/screens/frm_probability.h"
#include "selection/selection.h"
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
}  // namespace

struct FrmCatchCurve::State {
    LfqData data;
    std::optional<CatchCurveRun> run;
    std::optional<Extrapolation> ex;
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
    auto* fileRow = new QHBoxLayout;
    file_ = new QLineEdit(dataTab);
    file_->setReadOnly(true);
    cmd_[2] = new QPushButton(kCcCmdOpen, dataTab);
    cmd_[2]->setFixedWidth(32);
    fileRow->addWidget(file_);
    fileRow->addWidget(cmd_[2]);
    form->addRow("File name:", fileRow);
    species_ = new QLabel(dataTab);
    form->addRow("Species:", species_);
    for (size_t i = 0; i < fields_.size(); ++i) {
        fields_[i] = new QLineEdit(dataTab);
        form->addRow(kFieldCaptions[i], fields_[i]);
    }
    for (int i = 2; i < 5; ++i) fields_[i]->setText("0");
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

    connect(cmd_[0], &QPushButton::clicked, this, [this] { print(); });
    connect(cmd_[1], &QPushButton::clicked, this, [this] { window()->close(); });
    connect(cmd_[2], &QPushButton::clicked, this, [this] {
        const auto path = ctx_.dialogs.openFile({kCcOpenTitle, kCcLfqFilter, {}, "lfq", {}, true});
        if (path) Initialize(*path);
    });
    connect(cmd_[4], &QPushButton::clicked, this, [this] { CatchCurveMethod(); });
    connect(cmd_[5], &QPushButton::clicked, this, [this] { ResetSelections(); });
    connect(cmd_[6], &QPushButton::clicked, this, [this] { ExtrapolateOrShow(); });
    for (auto* f : fields_) connect(f, &QLineEdit::textEdited, this, [this] { clearForChange(); });
    for (int i = 2; i < 5; ++i)
        connect(fields_[i], &QLineEdit::editingFinished, this, [this, i] {
            if (fields_[i]->text().isEmpty()) fields_[i]->setText("0");
        });
    connect(samples_, &SamplePanel::changed, this, [this] { clearForChange(); });
    connect(plot_, &PlotView::clickedAt, this, [this](double x, double y) { clickPlot(x, y); });
    connect(plot_, &PlotView::mouseMovedTo, this, [this](double x, double y) {
        if (!st_->selecting || !st_->run) return;
        plot_->setHotCursor(HitCatchCurvePoint(st_->positions, st_->run->firstClass,
                                               st_->run->lastClass, x, y) >= 0);
    });
    connect(plot_, &PlotView::resized, this, [this] { redraw(); });

    clearForChange();
    const std::string last = ctx_.settings.runTime(kKeyLastActive, kNoActiveFile);
    if (last.size() > 4) {
        std::string ext = last.substr(last.size() - 4);
        for (auto& ch : ext) ch = static_cast<char>(std::toupper(static_cast<unsigned char>(ch)));
        if (ext == ".LFQ") Initialize(last);
    }
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
    return st_->ex ? &*st_->ex : nullptr;
}

void FrmCatchCurve::Initialize(const std::string& path) {
    ctx_.session.readLfq(path, ctx_.dialogs);
    if (ctx_.session.fileReadFailed) return;
    st_->data = ctx_.session.lfqData;
    file_->setText(QString::fromStdString(path));
    species_->setText(QString::fromStdString(st_->data.speciesname));
    samples_->setData(st_->data);
    clearForChange();
}

void FrmCatchCurve::clearForChange() {
    st_->run.reset();
    st_->ex.reset();
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
    const std::string name = st_->data.path.empty() ? "" : st_->data.path;
    setWindowTitle(QString::fromStdString(kCcCaptionPrefix + name + "]"));
}

void FrmCatchCurve::CatchCurveMethod() {
    GrowthFields g;
    std::string* texts[] = {&g.loo, &g.k, &g.c, &g.wp, &g.t0};
    for (size_t i = 0; i < fields_.size(); ++i) *texts[i] = fields_[i]->text().toStdString();
    if (!ValidateGrowthParams(g, true, true, ctx_.dialogs)) {
        tabs_->setCurrentIndex(kDataTab);
        return;
    }
    if (st_->data.path.empty()) {
        ctx_.dialogs.notify(
            {kCcNoDataSelectedText, kCcInvalidActionTitle, Buttons::Ok, Icon::Information});
        return;
    }
    CatchCurveOptions o;
    auto value = [](const std::string& t) {
        double v = 0;
        return ParseNumber(t, v) ? v : 0.0;
    };
    o.loo = value(g.loo);
    o.k = value(g.k);
    o.c = value(g.c);
    o.wp = value(g.wp);
    o.t0 = value(g.t0);
    o.selected = samples_->selected();
    o.transform = samples_->transform();
    o.temporal = samples_->temporal();
    CatchCurveRun run = norvo::CatchCurveMethod(st_->data, o, ctx_.dialogs);
    if (!run.usable) {
        if (st_->data.smallestMl > o.loo) tabs_->setCurrentIndex(kDataTab);
        return;
    }
    cmd_[4]->setEnabled(false);
    cmd_[5]->setEnabled(true);
    st_->run = std::move(run);
    firstPoint_->setEnabled(true);
    lastPoint_->setEnabled(true);
    ComputeDefaultPoints(*st_->run);
    tabs_->setCurrentIndex(kCurveTab);
    if (st_->run->firstPoint == 0) {
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
    st_->scale =
        DrawCatchCurve(plot_->canvas(), shown, st_->pick1, 0, st_->ex ? &*st_->ex : nullptr);
    st_->positions = CatchCurvePointPositions(*st_->run, st_->scale);
    plot_->update();
}

void FrmCatchCurve::DrawPointsAndCurve() {
    auto& run = *st_->run;
    FitPoints(run);
    st_->selecting = false;
    st_->pick1 = 0;
    redraw();
    fillStatistics();
    cmd_[6]->setEnabled(true);
}

void FrmCatchCurve::fillStatistics() {
    const auto& run = *st_->run;
    const auto& f = run.fit;
    auto put = [this](int i, const std::string& text) {
        stats_[i]->setText(QString::fromStdString(text));
    };
    using R = RegressionResult;
    firstPoint_->setText(QString::number(run.firstPoint));
    lastPoint_->setText(QString::number(run.lastPoint));
    put(0, std::to_string(run.firstPoint));
    put(1, std::to_string(run.lastPoint));
    put(2, Format(run.X[run.firstPoint], "0.00"));
    put(3, Format(run.Y[run.firstPoint], "0.00"));
    put(4, Format(run.X[run.lastPoint], "0.00"));
    put(5, Format(run.Y[run.lastPoint], "0.00"));
    put(6, Format(-f.b(), "0.00"));
    put(7, Format(-f[R::kBHigh], "0.00"));
    put(8, Format(-f[R::kBLow], "0.00"));
    const int slotIds[] = {R::kA, R::kSeA, R::kALow, R::kAHigh,
                           R::kB, R::kSeB, R::kBLow, R::kBHigh};
    for (int i = 0; i < 8; ++i) put(9 + i, Format(f[slotIds[i]], "0.000"));
    put(17, Format(f[R::kMeanX], "0.000") + " / " + Format(f[R::kSdX], "0.000"));
    put(18, Format(f[R::kMeanY], "0.000") + " / " + Format(f[R::kSdY], "0.000"));
    put(19, Format(f.r(), "0.0000"));
}

void FrmCatchCurve::ResetSelections() {
    if (!st_->run) return;
    ctx_.dialogs.notify({kCcSelectingText, kCcSelectingTitle, Buttons::Ok, Icon::Information});
    st_->ex.reset();
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
    const int a = std::min(st_->pick1, hit), b = std::max(st_->pick1, hit);
    if (b - a < 2) {
        ctx_.dialogs.notify(
            {kCcTooFewPickedText, kCcInvalidActionTitle, Buttons::Ok, Icon::Information});
        st_->pick1 = 0;
        cmd_[6]->setEnabled(false);
        redraw();
        return;
    }
    st_->run->firstPoint = a;
    st_->run->lastPoint = b;
    DrawPointsAndCurve();
}

void FrmCatchCurve::ExtrapolateOrShow() {
    if (!st_->run) return;
    const auto& run = *st_->run;
    if (cmd_[6]->text() == kCcCmdShowProb) {
        SelectionInput in;
        in.nC = run.nC;
        in.probability = st_->ex->probability;
        in.firstClass = run.firstClass;
        in.firstPoint = run.firstPoint;
        in.w = run.w;
        in.firstMid = run.firstMid;
        probScreen_ = new FrmProbability(ctx_, in, st_->data, window());
        probScreen_->show();
        return;
    }
    if (run.seasonal) {
        ctx_.dialogs.notify({SeasonalExtrapolationText(CatchCurveZ(run)), kCcInvalidActionTitle,
                             Buttons::Ok, Icon::Information});
        return;
    }
    probDialog_ = new FrmProbCatchCurve(
        ctx_, CatchCurveZ(run), run.loo, run.k,
        [this](double z, double m, double t) { onProceed(z, m, t); }, window());
    connect(probDialog_, &QObject::destroyed, this, [this] { probDialog_ = nullptr; });
    probDialog_->show();
}

void FrmCatchCurve::onProceed(double z, double m, double t) {
    if (!st_->run) return;
    st_->ex = ExtrapolateProb(*st_->run, z, m, t);
    redraw();
    cmd_[6]->setText(kCcCmdShowProb);
}

void FrmCatchCurve::print() {
    if (!st_->run || st_->run->firstPoint == 0) return;
    PrintReport(CatchCurveReport(st_->data, *st_->run), plot_->canvas(), ctx_.dialogs,
                ctx_.printer);
}

}  // namespace norvo::gui
