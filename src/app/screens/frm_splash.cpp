#include "app/screens/frm_splash.h"

#include <QFrame>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

#include "app/shell_texts.h"
#include "app/version.h"
#include "base/settings_store.h"
#include "widgets/command_boundary.h"

namespace norvo::gui {

FrmSplash::FrmSplash(std::function<void()> loadMain, int delayMs, QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint), loadMain_(std::move(loadMain)) {
    setObjectName("frmSplash");
    setAttribute(Qt::WA_DeleteOnClose);

    auto* frame = new QFrame(this);
    frame->setObjectName("Frame1");
    frame->setFrameShape(QFrame::Box);
    auto* product = new QLabel(kAppTitle, frame);
    product->setObjectName("lblProductName");
    QFont big = product->font();
    big.setPointSizeF(big.pointSizeF() * 2.2);
    big.setBold(true);
    product->setFont(big);
    auto* subtitle = new QLabel("Fish Stock Assessment Toolbox", frame);
    subtitle->setObjectName("lblPlatform");
    auto* version = new QLabel(QString::fromStdString(VersionLabel()), frame);
    version->setObjectName("lblVersion");
    auto* notice = new QLabel(kSplashNotice, frame);
    notice->setObjectName("lblWarning");
    notice->setWordWrap(true);

    auto* inner = new QVBoxLayout(frame);
    inner->setContentsMargins(24, 20, 24, 20);
    inner->addWidget(product);
    inner->addWidget(subtitle);
    inner->addWidget(version);
    inner->addSpacing(16);
    inner->addWidget(notice);
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(frame);
    setFixedWidth(460);

    timer_ = new QTimer(this);
    timer_->setObjectName("Timer1");
    timer_->setSingleShot(true);
    timer_->setInterval(delayMs);
    connect(timer_, &QTimer::timeout, this, &FrmSplash::onTimer);
    timer_->start();
}

void FrmSplash::onTimer() {
    // The splash closes whatever becomes of the main window.
    if (loadMain_) RunCommand(loadMain_);
    close();
}

}  // namespace norvo::gui
