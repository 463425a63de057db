#include "growth/screens/frm_gin_methods.h"

#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>

#include "base/format.h"
#include "growth/fabens.h"
#include "growth/gulland_holt.h"
#include "growth/increment_plots.h"
#include "growth/munro.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

namespace {
constexpr const char* kMeanLengthCaption = "Mean length:";
constexpr const char* kRateCaption = "Growth rate:";
constexpr const char* kAgeCaption = "Relative age:";
constexpr const char* kLengthCaption = "Length:";

// The regression slots as lines of text.
QString RegressionText(const GullandHoltLine& g) {
    static const char* names[] = {"n",        "a",        "b",        "s.e. of a", "s.e. of b",
                                  "a, lower", "a, upper", "b, lower", "b, upper",  "mean x",
                                  "mean y",   "s.d. x",   "s.d. y",   "r",         "r, lower",
                                  "r, upper", "F"};
    QString text;
    for (int i = 1; i <= RegressionResult::kSlots; ++i)
        text += QString("%1:\t%2\n").arg(names[i - 1], NumberText(g.regression[i], "0.00000"));
    return text;
}
}  // namespace

// Gulland and Holt.

FrmGulland::FrmGulland(ShellContext& ctx, QWidget* parent)
    : GrowthIncrementScreen(ctx, "frmGulland", kGhTitle, parent) {
    addPlot(kGhTitle, kMeanLengthCaption, kRateCaption, "0.00", "0.000");
    addPlot("Seasonal Oscillation", "Day:", "% Deviation:", "0", "0.00", false);
    loadLastActive();
}

FrmGulland::~FrmGulland() = default;

void FrmGulland::recompute() {
    GullandHoltOptions o;
    o.selected = flags();
    o.fixedLoo = fixedLoo();
    run_ = std::make_unique<GullandHoltResult>(GullandHolt(rows(), o));
    ShowNotices(*run_, ctx_.dialogs);
    const auto& r = *run_;
    const bool line = r.hasLine();
    setResult(line ? std::optional<float>(r.loo) : std::nullopt,
              line ? std::optional<float>(r.k) : std::nullopt);
    setMessage(r.noResult ? kGhTooFewText : line ? r.seasonal.text : "");
    setPickable(0, DrawRatePlot(plot(0)->canvas(), RowRates(rows(), false), flags(), line, r.a, r.b,
                                unit(), kGhTitle));
    plot(1)->canvas().Clear();
    if (line) DrawSeasonalPlot(plot(1)->canvas(), r.seasonal);
    plot(1)->refresh();
}

void FrmGulland::print() {
    if (!run_ || !run_->hasLine()) return;
    PrintReport(GullandHoltReport(header(), *run_), plot(0)->canvas(), ctx_.dialogs, ctx_.printer);
}

// Munro.

FrmMunro::FrmMunro(ShellContext& ctx, QWidget* parent)
    : GrowthIncrementScreen(ctx, "frmMunro", kMunroTitle, parent) {
    addPlot(kMunroTabs[0], kAgeCaption, kLengthCaption, "0.00", "0.00");
    addPlotBelow(0);  // the CV of each pass of the search
    addPlot(kMunroTabs[1], kMeanLengthCaption, kRateCaption, "0.00", "0.000");
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    regression_ = new QLabel(page);
    regression_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(regression_);
    layout->addStretch();
    tabs()->addTab(page, kMunroTabs[2]);
    loadLastActive();
}

FrmMunro::~FrmMunro() = default;

void FrmMunro::recompute() {
    MunroOptions o;
    o.selected = flags();
    o.fixedLoo = fixedLoo();
    run_ = std::make_unique<MunroResult>(Munro(rows(), o));
    ShowNotices(*run_, ctx_.dialogs);
    const auto& r = *run_;
    if (!r.selected.empty()) setFlags(r.selected);
    const bool ok = r.ok();
    setResult(ok ? std::optional<float>(r.loo) : std::nullopt,
              ok ? std::optional<float>(r.k) : std::nullopt);
    setMessage(ok && r.searched ? "Search stopped at pass " + std::to_string(r.passes) + ", CV " +
                                      Format(r.estimate.cv, "0.0000") + "."
                                : "");
    setPickable(0, DrawRelativeAgePlot(plot(0)->canvas(), rows(), flags(), ok ? r.loo : 0,
                                       ok ? r.k : 0, unit(), kMunroReportTitle));
    DrawMunroCvPlot(plot(1)->canvas(), r);
    plot(1)->refresh();
    const bool line = r.gh.hasLine();
    setPickable(2, DrawRatePlot(plot(2)->canvas(), RowRates(rows(), true), flags(), line, r.gh.a,
                                r.gh.b, unit(), kGhTitle));
    regression_->setText(r.gh.fitted ? RegressionText(r.gh) : QString());
}

void FrmMunro::print() {
    if (!run_ || !run_->ok()) return;
    PrintReport(MunroReport(header(), *run_), plot(0)->canvas(), ctx_.dialogs, ctx_.printer);
}

// Fabens.

FrmFaben::FrmFaben(ShellContext& ctx, QWidget* parent)
    : GrowthIncrementScreen(ctx, "frmFaben", kFabensTitle, parent) {
    addPlot("Growth Rate", kMeanLengthCaption, kRateCaption, "0.00", "0.000");
    addPlot("Relative Age", kAgeCaption, kLengthCaption, "0.00", "0.00");
    loadLastActive();
}

FrmFaben::~FrmFaben() = default;

void FrmFaben::recompute() {
    FabensOptions o;
    o.selected = flags();
    o.fixedLoo = fixedLoo();
    run_ = std::make_unique<FabensResult>(Fabens(rows(), o));
    ShowNotices(*run_, ctx_.dialogs);
    const auto& r = *run_;
    if (!r.selected.empty()) setFlags(r.selected);
    const bool ok = r.ok();
    setResult(ok ? std::optional<float>(r.loo) : std::nullopt,
              ok ? std::optional<float>(r.k) : std::nullopt);
    setMessage(ok ? "Iterations: " + std::to_string(r.iterations) : "");
    // The rate line of the fitted curve: dL/dt = K (Loo - L) / 365 per day.
    const double b = -static_cast<double>(r.k) / 365, a = -b * r.loo;
    setPickable(0, DrawRatePlot(plot(0)->canvas(), RowRates(rows(), false), flags(), ok, a, b,
                                unit(), kFabensTitle));
    const bool curve = ok && r.aboveLoo < static_cast<int>(r.data.l2.size());
    setPickable(1, DrawRelativeAgePlot(plot(1)->canvas(), rows(), flags(), curve ? r.loo : 0,
                                       curve ? r.k : 0, unit(), kFabensTitle));
}

void FrmFaben::print() {
    if (!run_ || !run_->ok()) return;
    PrintReport(FabensReport(header(), *run_), plot(1)->canvas(), ctx_.dialogs, ctx_.printer);
}

}  // namespace norvo::gui
