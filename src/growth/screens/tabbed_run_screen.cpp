#include "growth/screens/tabbed_run_screen.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMdiSubWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "widgets/command_boundary.h"

namespace norvo::gui {

namespace {
constexpr int kGeneralTab = 0;
constexpr size_t kPlotButton = 4;
}  // namespace

TabbedRunScreen::TabbedRunScreen(DialogService& dialogs, QWidget* parent)
    : QWidget(parent), dialogs_(dialogs) {
    layout_ = new QVBoxLayout(this);
    tabs_ = new QTabWidget(this);
    layout_->addWidget(tabs_, 1);
}

void TabbedRunScreen::addCommandRow(const QString& namePrefix, std::function<void(int)> command) {
    auto* buttons = new QHBoxLayout;
    const std::array<const char*, 5> texts = {kCmdCompute, kCmdReport, kCmdClose, kCmdOpen,
                                              kCmdPlot};
    for (int i = 0; i < 5; ++i) {
        auto* b = new QPushButton(texts[static_cast<size_t>(i)], this);
        b->setObjectName(QString("%1_%2").arg(namePrefix).arg(i));
        connect(b, &QPushButton::clicked, this, Guarded(dialogs_, [command, i] { command(i); }));
        buttons->addWidget(b);
        cmd_[static_cast<size_t>(i)] = b;
    }
    progress_ = new QProgressBar(this);
    progress_->setVisible(false);
    cancel_ = new QPushButton(kCmdCancel, this);
    cancel_->setObjectName("cmdCancel");
    cancel_->setVisible(false);
    connect(cancel_, &QPushButton::clicked, this,
            Guarded(dialogs_, [this] { cancelRequested_ = true; }));
    buttons->addWidget(progress_, 1);
    buttons->addWidget(cancel_);
    layout_->addLayout(buttons);

    connect(tabs_, &QTabWidget::currentChanged, this,
            Guarded(dialogs_, [this](int) { enablePlot(); }));
    cmd_[kPlotButton]->setEnabled(false);
}

void TabbedRunScreen::enablePlot() {
    cmd_[kPlotButton]->setEnabled(tabs_->currentIndex() != kGeneralTab);
}

void TabbedRunScreen::beginRun() {
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

void TabbedRunScreen::endRun() {
    if (QWidget* w = window()) w->removeEventFilter(this);
    QApplication::restoreOverrideCursor();
    progress_->setVisible(false);
    cancel_->setVisible(false);
    tabs_->setEnabled(true);
    for (auto* b : cmd_) b->setEnabled(true);
    enablePlot();
    running_ = false;
}

void TabbedRunScreen::showProgress(int done, int total) {
    progress_->setRange(0, total);
    progress_->setValue(done);
    step();
}

bool TabbedRunScreen::cancelRequested() {
    step();
    return cancelRequested_;
}

void TabbedRunScreen::step() {
    if (onStep) onStep();
    QCoreApplication::processEvents();
}

// A window may not close under a running computation: closing asks for a cancel instead.
bool TabbedRunScreen::eventFilter(QObject* watched, QEvent* event) {
    if (running_ && event->type() == QEvent::Close) {
        cancelRequested_ = true;
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void TabbedRunScreen::closeCommand() {
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        sub->close();
    } else {
        close();
    }
}

}  // namespace norvo::gui
