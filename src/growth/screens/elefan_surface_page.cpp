#include "growth/screens/elefan_surface_page.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>

#include "growth/elefan_search_plot.h"
#include "growth/screens/scan_parts.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

namespace {

constexpr const char* kLabelFrom = "From";
constexpr const char* kLabelTo = "To";
constexpr const char* kLabelFineSize = "Points per axis:";

}  // namespace

ElefanSurfacePage::ElefanSurfacePage(ElefanShared& shared, QWidget* parent)
    : QWidget(parent), shared_(shared) {
    DialogService& dialogs = shared_.ctx.dialogs;
    auto* col = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    const std::array<const char*, 4> names = {"txtK_%1", "txtLoo_%1", "txtC_%1", "txtWP_%1"};
    const std::array<std::array<QLineEdit*, 2>*, 4> pairs = {&k_, &loo_, &c_, &wp_};
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
                                      {{{kLabelK, k_[0], k_[1]},
                                        {kLabelLoo, loo_[0], loo_[1]},
                                        {kLabelC, c_[0], c_[1]},
                                        {kLabelWP, wp_[0], wp_[1]}}});
    c_[1]->setEnabled(false);
    wp_[1]->setEnabled(false);
    top->addWidget(params);

    auto* start = new QGroupBox(kGroupStart, this);
    auto* sf = new QFormLayout(start);
    ss_ = MakeStartList(start, "txtSS2");
    sl_ = MakeStartList(start, "txtSL2");
    sf->addRow(kLabelSS, ss_);
    sf->addRow(kLabelSL, sl_);
    fineSize_ = new QSpinBox(start);
    fineSize_->setObjectName("spnFineSize");
    fineSize_->setRange(21, 201);
    fineSize_->setValue(101);
    sf->addRow(kLabelFineSize, fineSize_);
    auto* fine = new QPushButton(kCmdFineSurface, start);
    fine->setObjectName("cmdFineSurface");
    sf->addRow(fine);
    connect(fine, &QPushButton::clicked, this,
            Guarded(dialogs, [this] { computeFiner(fineSize_->value()); }));
    connect(ss_, &QComboBox::currentTextChanged, this, Guarded(dialogs, [this] {
                if (!filling_ && shared_.scorer) FillLengths(ss_, sl_, shared_.scorer->layout());
            }));
    top->addWidget(start);
    top->addStretch(1);
    col->addLayout(top);

    const SurfaceSplit split = MakeSurfaceSplit(this, "grdELEFAN1");
    grid_ = split.table;
    heatMap_ = split.heatMap;
    col->addWidget(split.split, 1);
    clearGrid();
}

const ChartCanvas& ElefanSurfacePage::canvas() const {
    return heatMap_->canvas();
}

void ElefanSurfacePage::setDefaults(const ElefanDefaults& d) {
    FlagScope filling(filling_);
    ShowNumber(loo_[0], d.surfaceLooFrom);
    ShowNumber(loo_[1], d.surfaceLooTo);
    ShowNumber(k_[0], d.surfaceKFrom);
    ShowNumber(k_[1], d.surfaceKTo);
    for (QLineEdit* e : c_) ShowNumber(e, d.c);
    for (QLineEdit* e : wp_) ShowNumber(e, d.wp);
}

void ElefanSurfacePage::load(float ss, float sl) {
    {
        FlagScope filling(filling_);
        FillStartLists(ss_, sl_, shared_.scorer->layout(), ss, sl);
    }
    clearGrid();
}

void ElefanSurfacePage::clearGrid() {
    result_.reset();
    ClearSurfaceTable(grid_);
    heatMap_->canvas().Reset();
    heatMap_->update();
}

SurfaceInput ElefanSurfacePage::input() const {
    SurfaceInput in;
    in.kFrom = BoxSingle(k_[0]);
    in.kTo = BoxSingle(k_[1]);
    in.looFrom = BoxSingle(loo_[0]);
    in.looTo = BoxSingle(loo_[1]);
    in.c = BoxSingle(c_[0]);
    in.wp = BoxSingle(wp_[0]);
    in.ss = BoxSingle(ss_);
    in.sl = BoxSingle(sl_);
    return in;
}

void ElefanSurfacePage::compute() {
    const SurfaceInput in = input();
    if (!ShowNotices(CheckSurfaceInput(in), shared_.ctx.dialogs)) return;
    std::optional<SurfaceResult> res;
    {
        ElefanRun run(shared_.host);
        res = ResponseSurface(*shared_.rn, in, shared_.state, run);
    }
    if (!res) {
        shared_.ctx.showStatus(kRunCancelledStatus);
        return;
    }
    shared_.state = res->state;
    showSurface(*res);
    result_ = std::move(res);
}

void ElefanSurfacePage::showSurface(const SurfaceResult& s) {
    ShowSurfaceTable(grid_, s);
    DrawSurfaceHeatMap(heatMap_->canvas(), s);
    heatMap_->update();
}

void ElefanSurfacePage::computeFiner(int n) {
    if (!shared_.loaded()) return;
    const SurfaceInput in = input();
    if (!ShowNotices(CheckSurfaceInput(in), shared_.ctx.dialogs)) return;
    std::optional<FineSurface> fs;
    {
        ElefanRun run(shared_.host);
        fs = ComputeFineSurface(*shared_.rn, in, n, run);
    }
    if (!fs) {
        shared_.ctx.showStatus(kRunCancelledStatus);
        return;
    }
    DrawSurfaceHeatMap(heatMap_->canvas(), *fs);
    heatMap_->update();
}

void ElefanSurfacePage::plot() {
    if (!shared_.ctx.dialogs.askYesNo(kSurfaceWarning, kSurfaceWarningTitle, Icon::Warning)) return;
    ShowVbgfPlot(shared_.ctx, false);
}

void ElefanSurfacePage::report() {
    if (!result_) return;
    const Elefan1ReportInfo info =
        MakeElefan1ReportInfo(shared_.file, BoxNumber(c_[0]), BoxNumber(wp_[0]));
    RunElefanReport(shared_.ctx, heatMap_->canvas(), Elefan1ReportMode::Surface, info,
                    SurfaceTableTexts(*result_));
}

}  // namespace norvo::gui
