#include "growth/screens/frm_shepherd.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMdiSubWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "app/active_file.h"
#include "growth/screens/elefan_general_page.h"
#include "growth/screens/frm_elefan1.h"
#include "growth/screens/shepherd_kscan_page.h"
#include "growth/screens/shepherd_surface_page.h"
#include "widgets/command_boundary.h"

namespace norvo::gui {

FrmShepherd::FrmShepherd(ShellContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), shared_(ctx, *this) {
    setObjectName("frmShepherd");
    setWindowTitle(kShepherdCaption);
    auto* layout = new QVBoxLayout(this);
    tabs_ = new QTabWidget(this);
    general_ = new ElefanGeneralPage;
    kscan_ = new ShepherdKScanPage(shared_);
    surface_ = new ShepherdSurfacePage(shared_);
    tabs_->addTab(general_, kTabGeneral);
    tabs_->addTab(kscan_, kTabKScan);
    tabs_->addTab(surface_, kTabSurface);
    layout->addWidget(tabs_, 1);

    auto* buttons = new QHBoxLayout;
    const std::array<const char*, 5> texts = {kCmdCompute, kCmdReport, kCmdClose, kCmdOpen,
                                              kCmdPlot};
    for (int i = 0; i < 5; ++i) {
        auto* b = new QPushButton(texts[static_cast<size_t>(i)], this);
        b->setObjectName(QString("cmdShepherd_%1").arg(i));
        connect(b, &QPushButton::clicked, this,
                Guarded(ctx_.dialogs, [this, i] { cmdShepherd(i); }));
        buttons->addWidget(b);
        cmd_[static_cast<size_t>(i)] = b;
    }
    progress_ = new QProgressBar(this);
    progress_->setVisible(false);
    cancel_ = new QPushButton(kCmdCancel, this);
    cancel_->setObjectName("cmdCancel");
    cancel_->setVisible(false);
    connect(cancel_, &QPushButton::clicked, this,
            Guarded(ctx_.dialogs, [this] { cancelRequested_ = true; }));
    buttons->addWidget(progress_, 1);
    buttons->addWidget(cancel_);
    layout->addLayout(buttons);

    connect(tabs_, &QTabWidget::currentChanged, this,
            Guarded(ctx_.dialogs, [this](int tab) { cmd_[4]->setEnabled(tab != kGeneral); }));
    cmd_[4]->setEnabled(false);
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
    if (running_) return;
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

void FrmShepherd::closeCommand() {
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        sub->close();
    } else {
        close();
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

// ---- runs ----------------------------------------------------------------------------------

void FrmShepherd::beginRun() {
    running_ = true;
    cancelRequested_ = false;
    tabs_->setEnabled(false);
    for (auto* b : cmd_) b->setEnabled(false);
    progress_->setValue(0);
    progress_->setVisible(true);
    cancel_->setVisible(true);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    if (QWidget* w = window()) w->installEventFilter(this);
}

void FrmShepherd::endRun() {
    if (QWidget* w = window()) w->removeEventFilter(this);
    QApplication::restoreOverrideCursor();
    progress_->setVisible(false);
    cancel_->setVisible(false);
    tabs_->setEnabled(true);
    for (auto* b : cmd_) b->setEnabled(true);
    cmd_[4]->setEnabled(tabs_->currentIndex() != kGeneral);
    running_ = false;
}

void FrmShepherd::showProgress(int done, int total) {
    progress_->setRange(0, total);
    progress_->setValue(done);
    step();
}

bool FrmShepherd::cancelRequested() {
    step();
    return cancelRequested_;
}

void FrmShepherd::step() {
    if (onStep) onStep();
    QCoreApplication::processEvents();
}

// A window may not close under a running computation: closing asks for a cancel instead.
bool FrmShepherd::eventFilter(QObject* watched, QEvent* event) {
    if (running_ && event->type() == QEvent::Close) {
        cancelRequested_ = true;
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace norvo::gui
