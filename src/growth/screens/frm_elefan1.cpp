#include "growth/screens/frm_elefan1.h"

#include <QPushButton>
#include <QTabWidget>

#include "data/file_kind.h"
#include "growth/elefan_defaults.h"
#include "growth/elefan_lfq.h"
#include "growth/screens/elefan_general_page.h"
#include "growth/screens/elefan_kscan_page.h"
#include "growth/screens/elefan_search_page.h"
#include "growth/screens/elefan_surface_page.h"
#include "widgets/command_boundary.h"

namespace norvo::gui {

FrmElefan1::FrmElefan1(ShellContext& ctx, QWidget* parent, ScorerFactory factory)
    : TabbedRunScreen(ctx.dialogs, parent),
      ctx_(ctx),
      factory_(std::move(factory)),
      shared_(ctx, *this) {
    setObjectName("frmELEFAN1");
    general_ = new ElefanGeneralPage;
    kscan_ = new ElefanKScanPage(shared_);
    surface_ = new ElefanSurfacePage(shared_);
    search_ = new ElefanSearchPage(shared_);
    tabs_->addTab(general_, kTabGeneral);
    tabs_->addTab(kscan_, kTabKScan);
    tabs_->addTab(surface_, kTabSurface);
    tabs_->addTab(search_, kTabSearch);

    txtLoo_ = {surface_->looField(0), surface_->looField(1), kscan_->looField(), search_->looSeed(),
               search_->looStep()};
    txtK_ = {surface_->kField(0), surface_->kField(1), search_->kSeed(), search_->kStep()};
    txtC_ = {surface_->cField(0), surface_->cField(1), kscan_->cField(), search_->cStep(),
             search_->cSeed()};
    txtWP_ = {surface_->wpField(0), surface_->wpField(1), kscan_->wpField(), search_->wpStep(),
              search_->wpSeed()};
    for (int i = 0; i < 6; ++i) txtElefan_[static_cast<size_t>(i)] = general_->field(i);
    for (size_t i = 0; i < 7; ++i) {
        txtElefan_[6 + i] = kscan_->bestFields()[i];
        txtElefan_[13 + i] = kscan_->trendFields()[i];
    }

    addCommandRow("cmdELEFAN1", [this](int i) { cmdELEFAN1(i); });
    setCaption();

    const std::string last = ctx_.settings.runTime(kKeyLastActive, kNoActiveFile);
    if (KindOfPath(last) == "LFQ") RunCommand(ctx_.dialogs, [&] { Initialize(last); });
}

FrmElefan1::~FrmElefan1() = default;

QComboBox* FrmElefan1::txtSS() const {
    return kscan_->ssList();
}
QComboBox* FrmElefan1::txtSL() const {
    return kscan_->slList();
}
QComboBox* FrmElefan1::txtSS2() const {
    return surface_->ssList();
}
QComboBox* FrmElefan1::txtSL2() const {
    return surface_->slList();
}
QComboBox* FrmElefan1::sSample() const {
    return search_->ssList();
}
QComboBox* FrmElefan1::sLength() const {
    return search_->slList();
}
QCheckBox* FrmElefan1::chkSP() const {
    return kscan_->fixStart();
}
QCheckBox* FrmElefan1::chkELEFAN1() const {
    return kscan_->trendLine();
}
QScrollBar* FrmElefan1::hscrELEFAN1() const {
    return kscan_->span();
}
QRadioButton* FrmElefan1::optSearch(int i) const {
    return search_->option(i);
}
QTableWidget* FrmElefan1::grdELEFAN1() const {
    return surface_->grid();
}
QTableWidget* FrmElefan1::spdSearch() const {
    return search_->table();
}
const ChartCanvas& FrmElefan1::kscanCanvas() const {
    return kscan_->canvas();
}
const ChartCanvas& FrmElefan1::surfaceCanvas() const {
    return surface_->canvas();
}
const std::optional<KScanResult>& FrmElefan1::kscanResult() const {
    return kscan_->result();
}

// ---- loading -------------------------------------------------------------------------------

void FrmElefan1::setCaption() {
    setWindowTitle(path_.empty() ? QString(kElefanCaptionEmpty)
                                 : QString::fromStdString(kElefanCaptionPrefix + path_ +
                                                          kElefanCaptionSuffix));
}

void FrmElefan1::ReadDefaultsELEFAN() {
    const ElefanDefaults d =
        DefaultElefanFields(shared_.file ? shared_.file->largestClassSize : 0.0);
    kscan_->setDefaults(d);
    surface_->setDefaults(d);
    search_->setDefaults(d);
}

void FrmElefan1::Initialize(const std::string& path) {
    ctx_.session.readLfq(path, ctx_.dialogs);
    if (ctx_.session.fileReadFailed) return;
    const LfqData& d = ctx_.session.lfqData;
    if (!ShowNotices(CheckElefanFile(d), ctx_.dialogs)) return;
    path_ = path;
    shared_.file = ElefanFileInfoOf(path, d);
    general_->showFile(*shared_.file);
    ReadDefaultsELEFAN();

    shared_.rn.reset();
    shared_.scorer = factory_(d);
    shared_.rn = std::make_unique<ParallelRn>(*shared_.scorer, DefaultSearchThreads());
    const float loo = kscan_->loo();
    const auto [ss, sl] = shared_.scorer->defaultStart(loo);
    shared_.state = {.loo = loo, .k = 1, .c = 0, .wp = 0, .ss = ss, .sl = sl};
    kscan_->load(ss, sl);
    surface_->load(ss, sl);
    search_->load(ss, sl);
    setCaption();
}

// ---- commands ------------------------------------------------------------------------------

void FrmElefan1::cmdELEFAN1(int index) {
    if (running()) return;
    switch (index) {
        case 0:
            computeCommand();
            break;
        case 1:
            reportCommand();
            break;
        case 2:
            closeCommand();
            break;
        case 3:
            openCommand();
            break;
        case 4:
            plotCommand();
            break;
        default:
            break;
    }
}

void FrmElefan1::computeCommand() {
    if (!shared_.loaded()) return;
    switch (tabs_->currentIndex()) {
        case kKScanTab:
            kscan_->compute();
            break;
        case kSurfaceTab:
            surface_->compute();
            break;
        case kSearchTab:
            search_->compute();
            break;
        default:
            break;
    }
}

void FrmElefan1::KScanSmooth() {
    kscan_->smooth();
}

void FrmElefan1::ComputeFinerSurface(int n) {
    if (!running()) surface_->computeFiner(n);
}

void FrmElefan1::openCommand() {
    FileDialogOptions o;
    o.title = kOpenTitle;
    o.filter = kLfqFilter;
    o.startFolder = ctx_.programFolder.toStdString();
    o.mustExist = true;
    if (const auto path = ctx_.dialogs.openFile(o)) Initialize(*path);
}

// The General tab reports as the K Scan tab does.
void FrmElefan1::reportCommand() {
    switch (tabs_->currentIndex()) {
        case kSurfaceTab:
            surface_->report();
            break;
        case kSearchTab:
            search_->report();
            break;
        default:
            kscan_->report();
            break;
    }
}

void FrmElefan1::plotCommand() {
    switch (tabs_->currentIndex()) {
        case kKScanTab:
            kscan_->plot();
            break;
        case kSurfaceTab:
            surface_->plot();
            break;
        case kSearchTab:
            search_->plot();
            break;
        default:
            break;
    }
}

}  // namespace norvo::gui
