#include "growth/screens/shepherd_kscan_page.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QVBoxLayout>

#include "growth/elefan_search_plot.h"
#include "growth/growth_settings.h"
#include "growth/screens/elefan_kscan_page.h"
#include "growth/screens/scan_parts.h"
#include "growth/shepherd_report.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

namespace {

ShepherdFields MakeFields(QWidget* parent, QFormLayout* form, int firstIndex) {
    ShepherdFields fields{};
    for (size_t i = 0; i < fields.size(); ++i) {
        auto* e = new QLineEdit(parent);
        e->setObjectName(QString("txtShepherd_%1").arg(firstIndex + static_cast<int>(i)));
        e->setReadOnly(true);
        e->setMaximumWidth(110);
        form->addRow(kShepherdResultLabels[i], e);
        fields[i] = e;
    }
    return fields;
}

void ShowShepherdBest(const ShepherdFields& fields, const ShepherdBest& best) {
    const auto values = ShepherdBestValues(best);
    for (size_t i = 0; i < fields.size(); ++i) {
        if (values[i]) {
            SetBoxNumber(fields[i], *values[i], kShepherdResultPatterns[i]);
        } else {
            fields[i]->setText(kShepherdNoStart);
        }
    }
}

void ClearShepherdFields(const ShepherdFields& fields) {
    for (QLineEdit* f : fields) f->clear();
}

}  // namespace

ShepherdKScanPage::ShepherdKScanPage(ShepherdShared& shared, QWidget* parent)
    : QWidget(parent), shared_(shared) {
    auto* row = new QHBoxLayout(this);
    auto* left = new QVBoxLayout;
    auto* params = new QGroupBox(kGroupParameters, this);
    auto* pf = new QVBoxLayout(params);
    pf->addWidget(new QLabel(kShepherdKScanLoo, params));
    loo_ = MakeNumberField(params, "txtLoo_2");
    pf->addWidget(loo_);
    left->addWidget(params);

    auto* results = new QGroupBox(kShepherdResultsHeading, this);
    best_ = MakeFields(results, new QFormLayout(results), 0);
    left->addWidget(results);

    const KScanTrendGroup trend = MakeKScanTrendGroup(this, "chkShepherd", "hscrShepherd");
    chkTrend_ = trend.apply;
    hscr_ = trend.span;
    spanLabel_ = trend.spanLabel;
    trend_ = MakeFields(trend.box, trend.form, 5);
    left->addWidget(trend.box);
    left->addStretch(1);
    row->addLayout(left);

    view_ = MakeScanView(this, "picShepherd", 400, 300);
    row->addWidget(view_, 1);

    DialogService& dialogs = shared_.ctx.dialogs;
    connect(loo_, &QLineEdit::textChanged, this, Guarded(dialogs, [this] {
                if (!filling_) clearPlot();
            }));
    ConnectKScanTrend(this, dialogs, trend, view_, filling_, [this] { smooth(); });
}

const ChartCanvas& ShepherdKScanPage::canvas() const {
    return view_->canvas();
}

void ShepherdKScanPage::setDefaults(const ShepherdDefaults& d) {
    FlagScope filling(filling_);
    ShowNumber(loo_, d.kscanLoo);
}

void ShepherdKScanPage::load() {
    result_.reset();
    ClearShepherdFields(best_);
    clearPlot();
}

// A change of the Loo: the picture, the trend fields and the trend box are cleared.
void ShepherdKScanPage::clearPlot() {
    view_->canvas().Reset();
    view_->storeClean();
    view_->update();
    ClearShepherdFields(trend_);
    FlagScope filling(filling_);
    chkTrend_->setChecked(false);
}

void ShepherdKScanPage::compute() {
    const float loo = static_cast<float>(NumberOrNaN(loo_));
    if (!ShowNotices(CheckShepherdLoo(loo), shared_.ctx.dialogs)) return;
    std::optional<ShepherdKScanResult> res;
    {
        ElefanRun run(shared_.host);
        res = ShepherdKScan(*shared_.rn, shared_.scorer->data(), loo, run);
    }
    if (!res) {
        shared_.ctx.showStatus(kRunCancelledStatus);
        return;
    }
    result_ = std::move(res);
    shared_.k = result_->best.k;
    ShowShepherdBest(best_, result_->best);
    ClearShepherdFields(trend_);
    ChartCanvas& c = view_->canvas();
    c.Reset();
    DrawKScanFrame(c, loo);
    const KScanResult& scan = result_->scan;
    DrawKScanLine(c, scan.table, scan.columns, ShepherdPlotScale(scan.table, scan.columns));
    view_->storeClean();
    view_->update();
    FlagScope filling(filling_);
    chkTrend_->setChecked(false);
}

void ShepherdKScanPage::smooth() {
    if (!result_ || !view_->hasCleanCopy()) return;
    const int w = hscr_->value();
    KScanResult& scan = result_->scan;
    const float loo = result_->best.loo;
    const ElefanBest chosen = KScanSmooth(scan.table, w, loo, 0, 0);
    const ShepherdBest b = ShepherdBestOf(shared_.scorer->data(), scan.table, chosen.column, loo);
    view_->restoreClean();
    DrawKScanTrend(view_->canvas(), scan.table, w, ShepherdPlotScale(scan.table, scan.columns));
    view_->update();
    ShowShepherdBest(trend_, b);
}

void ShepherdKScanPage::plot() {
    GrowthParams p;
    if (result_) p = ShepherdPlotParams(result_->best);
    StoreGrowthParams(shared_.ctx.settings, result_ ? &p : nullptr, kShepherdStorePatterns);
    ShowVbgfPlot(shared_.ctx);
}

void ShepherdKScanPage::report() {
    const Elefan1ReportInfo info =
        ShepherdReportInfo(shared_.file, result_ ? &result_->best : nullptr);
    RunElefanReport(shared_.ctx, view_->canvas(), Elefan1ReportMode::KScan, info);
}

}  // namespace norvo::gui
