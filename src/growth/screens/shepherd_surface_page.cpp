#include "growth/screens/shepherd_surface_page.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>

#include "growth/elefan_search_plot.h"
#include "growth/screens/elefan_surface_page.h"
#include "growth/screens/scan_parts.h"
#include "growth/shepherd_report.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

namespace {

constexpr const char* kLabelFrom = "From";
constexpr const char* kLabelTo = "To";

}  // namespace

ShepherdSurfacePage::ShepherdSurfacePage(ShepherdShared& shared, QWidget* parent)
    : QWidget(parent), shared_(shared) {
    DialogService& dialogs = shared_.ctx.dialogs;
    auto* col = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    const std::array<const char*, 2> names = {"txtK_%1", "txtLoo_%1"};
    const std::array<std::array<QLineEdit*, 2>*, 2> pairs = {&k_, &loo_};
    for (size_t r = 0; r < pairs.size(); ++r) {
        for (int i = 0; i < 2; ++i) {
            QLineEdit* e = MakeNumberField(this, QString(names[r]).arg(i));
            (*pairs[r])[static_cast<size_t>(i)] = e;
            connect(e, &QLineEdit::textChanged, this, Guarded(dialogs, [this] {
                        if (!filling_) clearGrid();
                    }));
        }
    }
    auto* params = MakeParameterGroup(this, {kLabelFrom, kLabelTo},
                                      {{kLabelK, k_[0], k_[1]}, {kLabelLoo, loo_[0], loo_[1]}});
    top->addWidget(params);
    top->addStretch(1);
    col->addLayout(top);

    const SurfaceSplit split = MakeSurfaceSplit(this, "grdShepherd");
    grid_ = split.table;
    heatMap_ = split.heatMap;
    col->addWidget(split.split, 1);
    clearGrid();
}

const ChartCanvas& ShepherdSurfacePage::canvas() const {
    return heatMap_->canvas();
}

void ShepherdSurfacePage::setDefaults(const ShepherdDefaults& d) {
    FlagScope filling(filling_);
    ShowNumber(loo_[0], d.surfaceLooFrom);
    ShowNumber(loo_[1], d.surfaceLooTo);
    ShowNumber(k_[0], d.surfaceKFrom);
    ShowNumber(k_[1], d.surfaceKTo);
}

void ShepherdSurfacePage::load() {
    clearGrid();
}

void ShepherdSurfacePage::clearGrid() {
    result_.reset();
    ClearSurfaceTable(grid_);
    heatMap_->canvas().Reset();
    heatMap_->update();
}

void ShepherdSurfacePage::compute() {
    const float looFrom = static_cast<float>(NumberOrNaN(loo_[0]));
    const float looTo = static_cast<float>(NumberOrNaN(loo_[1]));
    if (!ShowNotices(CheckShepherdSurface(looFrom, looTo), shared_.ctx.dialogs)) return;
    const float kFrom = BoxSingle(k_[0]), kTo = BoxSingle(k_[1]);
    std::optional<SurfaceResult> res;
    {
        ElefanRun run(shared_.host);
        res = ShepherdSurface(*shared_.rn, kFrom, kTo, looFrom, looTo, shared_.k, run);
    }
    if (!res) {
        shared_.ctx.showStatus(kRunCancelledStatus);
        return;
    }
    shared_.k = res->state.k;
    ShowSurfaceTable(grid_, *res);
    DrawSurfaceHeatMap(heatMap_->canvas(), *res);
    heatMap_->update();
    result_ = std::move(res);
}

void ShepherdSurfacePage::plot() {
    if (!shared_.ctx.dialogs.askYesNo(kSurfaceWarning, kSurfaceWarningTitle, Icon::Warning)) return;
    ShowVbgfPlot(shared_.ctx, false);
}

void ShepherdSurfacePage::report() {
    if (!result_) return;
    RunElefanReport(shared_.ctx, heatMap_->canvas(), Elefan1ReportMode::Surface,
                    ShepherdReportInfo(shared_.file, nullptr), SurfaceTableTexts(*result_));
}

}  // namespace norvo::gui
