#include "growth/screens/elefan_kscan_page.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QVBoxLayout>

#include "chart/kind_a.h"
#include "growth/elefan_search_plot.h"
#include "growth/growth_settings.h"
#include "growth/screens/scan_parts.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

namespace {

constexpr const char* kGroupResults = "Results";

// A K-scan on the screen: each finished column extends the score line on the picture.
class KScanRun : public ElefanRun {
  public:
    KScanRun(RunHost& host, PlotView& view) : ElefanRun(host), view_(view) {}
    void kscanColumn(int, float k, float rn) override {
        const UserPoint p{KScanX(k), KScanY(rn)};
        if (p.x > kFrameLeft && last_.x > kFrameLeft)
            view_.canvas().Line(last_.x, last_.y, p.x, p.y, kRed);
        last_ = p;
        view_.update();
    }

  private:
    PlotView& view_;
    UserPoint last_{0, 0};
};

ResultFields MakeResultFields(QWidget* parent, QFormLayout* form, int firstIndex) {
    ResultFields fields{};
    for (size_t i = 0; i < fields.size(); ++i) {
        fields[i] = MakeResultField(parent, firstIndex + static_cast<int>(i));
        form->addRow(kElefanResultLabels[i], fields[i]);
    }
    return fields;
}

}  // namespace

ElefanKScanPage::ElefanKScanPage(ElefanShared& shared, QWidget* parent)
    : QWidget(parent), shared_(shared) {
    auto* row = new QHBoxLayout(this);
    auto* left = new QVBoxLayout;
    auto* params = new QGroupBox(kGroupParameters, this);
    auto* pf = new QFormLayout(params);
    loo_ = MakeNumberField(params, "txtLoo_2");
    c_ = MakeNumberField(params, "txtC_2");
    wp_ = MakeNumberField(params, "txtWP_2");
    pf->addRow(kLabelLoo, loo_);
    pf->addRow(kLabelC, c_);
    pf->addRow(kLabelWP, wp_);
    chkSP_ = new QCheckBox(kFixStartingPoint, params);
    chkSP_->setObjectName("chkSP");
    pf->addRow(chkSP_);
    ss_ = MakeStartList(params, "txtSS");
    sl_ = MakeStartList(params, "txtSL");
    pf->addRow(kLabelSS, ss_);
    pf->addRow(kLabelSL, sl_);
    ss_->setEnabled(false);
    sl_->setEnabled(false);
    left->addWidget(params);

    auto* results = new QGroupBox(kGroupResults, this);
    best_ = MakeResultFields(results, new QFormLayout(results), 6);
    left->addWidget(results);

    const KScanTrendGroup trend = MakeKScanTrendGroup(this, "chkELEFAN1", "hscrELEFAN1");
    chkTrend_ = trend.apply;
    hscr_ = trend.span;
    spanLabel_ = trend.spanLabel;
    trend_ = MakeResultFields(trend.box, trend.form, 13);
    left->addWidget(trend.box);
    left->addStretch(1);
    row->addLayout(left);

    view_ = MakeScanView(this, "picELEFAN1", 400, 300);
    row->addWidget(view_, 1);

    DialogService& dialogs = shared_.ctx.dialogs;
    connect(chkSP_, &QCheckBox::toggled, this, Guarded(dialogs, [this](bool on) {
                ss_->setEnabled(on);
                sl_->setEnabled(on);
                clearPlot();
            }));
    connect(ss_, &QComboBox::currentTextChanged, this, Guarded(dialogs, [this] {
                if (filling_) return;
                if (shared_.scorer) FillLengths(ss_, sl_, shared_.scorer->layout());
                clearPlot();
            }));
    connect(sl_, &QComboBox::currentTextChanged, this, Guarded(dialogs, [this] {
                if (!filling_) clearPlot();
            }));
    for (QLineEdit* e : {loo_, c_, wp_})
        connect(e, &QLineEdit::textChanged, this, Guarded(dialogs, [this] {
                    if (!filling_) clearPlot();
                }));
    ConnectKScanTrend(this, dialogs, trend, view_, filling_, [this] { smooth(); });
}

const ChartCanvas& ElefanKScanPage::canvas() const {
    return view_->canvas();
}

float ElefanKScanPage::loo() const {
    return BoxSingle(loo_);
}

void ElefanKScanPage::setDefaults(const ElefanDefaults& d) {
    FlagScope filling(filling_);
    ShowNumber(loo_, d.kscanLoo);
    ShowNumber(c_, d.c);
    ShowNumber(wp_, d.wp);
}

void ElefanKScanPage::load(float ss, float sl) {
    {
        FlagScope filling(filling_);
        FillStartLists(ss_, sl_, shared_.scorer->layout(), ss, sl);
    }
    result_.reset();
    ClearFields(best_);
    clearPlot();
}

void ElefanKScanPage::clearPlot() {
    view_->canvas().Reset();
    view_->storeClean();
    view_->update();
    ClearFields(trend_);
    FlagScope filling(filling_);
    chkTrend_->setChecked(false);
}

void ElefanKScanPage::compute() {
    KScanInput in;
    in.loo = BoxSingle(loo_);
    in.c = BoxSingle(c_);
    in.wp = BoxSingle(wp_);
    in.fixedStart = chkSP_->isChecked();
    in.ss = BoxSingle(ss_);
    in.sl = BoxSingle(sl_);
    const CanvasImage before = view_->canvas().Image();
    std::optional<KScanResult> res;
    {
        KScanRun run(shared_.host, *view_);
        DrawKScanFrame(view_->canvas(), in.loo);
        res = KScan(*shared_.rn, in, run);
    }
    if (!res) {
        view_->canvas().PutImage(before);
        view_->update();
        shared_.ctx.showStatus(kRunCancelledStatus);
        return;
    }
    result_ = std::move(res);
    shared_.state = result_->state;
    ShowBest(best_, result_->best);
    ClearFields(trend_);
    drawScan(in.loo);
    FlagScope filling(filling_);
    chkTrend_->setChecked(false);
}

void ElefanKScanPage::drawScan(float loo) {
    ChartCanvas& c = view_->canvas();
    c.Reset();
    DrawKScanFrame(c, loo);
    DrawKScanLine(c, result_->table, result_->columns);
    view_->storeClean();
    view_->update();
}

void ElefanKScanPage::smooth() {
    if (!result_ || !view_->hasCleanCopy()) return;
    const int w = hscr_->value();
    const ElefanBest b =
        KScanSmooth(result_->table, w, BoxSingle(loo_), BoxSingle(c_), BoxSingle(wp_));
    GrowthParams& state = shared_.state;
    state.loo = b.params.loo;
    state.k = b.params.k;
    state.ss = b.params.ss;
    state.sl = b.params.sl;
    view_->restoreClean();
    DrawKScanTrend(view_->canvas(), result_->table, w);
    view_->update();
    ShowBest(trend_, b);
}

void ElefanKScanPage::plot() {
    StoreGrowthParams(shared_.ctx.settings, result_ ? &result_->best.params : nullptr,
                      kElefanResultPatterns);
    ShowVbgfPlot(shared_.ctx);
}

void ElefanKScanPage::report() {
    Elefan1ReportInfo info = MakeElefan1ReportInfo(shared_.file, BoxNumber(c_), BoxNumber(wp_));
    if (result_) info.results.fields = ElefanResultFields(result_->best);
    RunElefanReport(shared_.ctx, view_->canvas(), Elefan1ReportMode::KScan, info);
}

}  // namespace norvo::gui
