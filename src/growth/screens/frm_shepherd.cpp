#include "growth/screens/frm_shepherd.h"

#include <QTabWidget>

#include "app/active_file.h"
#include "growth/screens/elefan_general_page.h"
#include "growth/screens/frm_elefan1.h"
#include "growth/screens/shepherd_kscan_page.h"
#include "growth/screens/shepherd_surface_page.h"
#include "widgets/command_boundary.h"

namespace norvo::gui {

FrmShepherd::FrmShepherd(ShellContext& ctx, QWidget* parent)
    : TabbedRunScreen(ctx.dialogs, parent), ctx_(ctx), shared_(ctx, *this) {
    setObjectName("frmShepherd");
    setWindowTitle(kShepherdCaption);
    general_ = new ElefanGeneralPage;
    kscan_ = new ShepherdKScanPage(shared_);
    surface_ = new ShepherdSurfacePage(shared_);
    tabs_->addTab(general_, kTabGeneral);
    tabs_->addTab(kscan_, kTabKScan);
    tabs_->addTab(surface_, kTabSurface);

    addCommandRow("cmdShepherd", [this](int i) { cmdShepherd(i); });
    ReadDefaultsShepherd();

    const ActiveFileSet active(ctx_.settings);
    if (active.serves("LFQ")) RunCommand(ctx_.dialogs, [&] { Initialize(active.path()); });
}

FrmShepherd::~FrmShepherd() = default;

void FrmShepherd::ReadDefaultsShepherd() {
    const ShepherdDefaults d =
        norvo::ReadDefaultsShepherd(shared_.file ? shared_.file->largestClassSize : 0.0);
    kscan_->setDefaults(d);
    surface_->setDefaults(d);
}

void FrmShepherd::Initialize(const std::string& path) {
    ctx_.session.readLfq(path, ctx_.dialogs);
    if (ctx_.session.fileReadFailed) return;
    const LfqData& d = ctx_.session.lfqData;
    if (!ShowNotices(CheckShepherdFile(d), ctx_.dialogs)) return;
    shared_.file = ElefanFileInfoOf(path, d);
    general_->showFile(*shared_.file);
    ReadDefaultsShepherd();
    shared_.rn.reset();
    shared_.scorer = std::make_unique<ShepherdScorer>(ShepherdDataOf(d));
    shared_.rn = std::make_unique<ParallelRn>(*shared_.scorer, DefaultSearchThreads());
    shared_.k = 1;
    kscan_->load();
    surface_->load();
}

void FrmShepherd::cmdShepherd(int index) {
    if (running()) return;
    const int tab = tabs_->currentIndex();
    switch (index) {
        case 0:
            if (!shared_.loaded()) return;
            if (tab == kKScanTab) kscan_->compute();
            if (tab == kSurfaceTab) surface_->compute();
            break;
        case 1:
            // The General tab reports as the K Scan tab does.
            if (tab == kSurfaceTab) {
                surface_->report();
            } else {
                kscan_->report();
            }
            break;
        case 2:
            closeCommand();
            break;
        case 3:
            openCommand();
            break;
        case 4:
            if (tab == kKScanTab) kscan_->plot();
            if (tab == kSurfaceTab) surface_->plot();
            break;
        default:
            break;
    }
}

void FrmShepherd::openCommand() {
    FileDialogOptions o;
    o.title = kShepherdOpenTitle;
    o.filter = kShepherdLfqFilter;
    o.startFolder = ctx_.programFolder.toStdString();
    o.mustExist = true;
    if (const auto path = ctx_.dialogs.openFile(o)) Initialize(*path);
}

}  // namespace norvo::gui
