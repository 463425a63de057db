#include "app/screens/frm_about.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QStyle>
#include <QVBoxLayout>

#include "app/shell_texts.h"
#include "app/version.h"
#include "base/settings_store.h"
#include "widgets/command_boundary.h"

namespace norvo::gui {

namespace {
inline constexpr const char* kAboutDescription =
    "A toolbox for the assessment of fish stocks: growth, mortality, selection, recruitment, "
    "virtual population analysis and yield prediction from length-frequency and age data.";
}

FrmAbout::FrmAbout(DialogService& dialogs, QWidget* parent) : QDialog(parent), dialogs_(dialogs) {
    setObjectName("frmAbout");
    setWindowTitle(QString("About ") + kAppTitle);
    setModal(true);
    startTool = [](const QString& program) { return QProcess::startDetached(program, {}); };

    auto* icon = new QLabel(this);
    icon->setObjectName("picIcon");
    icon->setPixmap(style()->standardIcon(QStyle::SP_ComputerIcon).pixmap(48, 48));
    auto* title = new QLabel(kAppTitle, this);
    title->setObjectName("lblTitle");
    QFont big = title->font();
    big.setPointSizeF(big.pointSizeF() * 1.6);
    big.setBold(true);
    title->setFont(big);
    auto* version = new QLabel(QString::fromStdString(VersionLabel()), this);
    version->setObjectName("lblVersion");
    auto* description = new QLabel(kAboutDescription, this);
    description->setObjectName("lblDescription");
    description->setWordWrap(true);
    description->setFixedWidth(400);
    auto* line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    auto* warning = new QLabel(kAboutWarning, this);
    warning->setObjectName("lblDisclaimer");
    warning->setWordWrap(true);
    warning->setFixedWidth(380);

    auto* ok = new QPushButton("OK", this);
    ok->setObjectName("cmdOK");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* sysInfo = new QPushButton("&System Info...", this);
    sysInfo->setObjectName("cmdSysInfo");
    connect(sysInfo, &QPushButton::clicked, this, Guarded(dialogs_, [this] { StartSysInfo(); }));

    auto* head = new QVBoxLayout;
    head->addWidget(title);
    head->addWidget(version);
    head->addSpacing(8);
    head->addWidget(description);
    auto* top = new QHBoxLayout;
    top->addWidget(icon, 0, Qt::AlignTop);
    top->addSpacing(12);
    top->addLayout(head, 1);
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(ok);
    buttons->addWidget(sysInfo);
    buttons->addStretch();
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(warning, 1);
    bottom->addSpacing(12);
    bottom->addLayout(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(line);
    layout->addLayout(bottom);
    // Word-wrapped labels of fixed width give the box its size.
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QString FrmAbout::FindSystemInfoTool() {
    // Desktop system-information programs, most informative first.
    for (const char* name : {"hardinfo2", "hardinfo", "kinfocenter", "lshw-gtk"}) {
        const QString path = QStandardPaths::findExecutable(name);
        if (!path.isEmpty()) return path;
    }
    return {};
}

void FrmAbout::StartSysInfo() {
    const QString tool = findTool ? findTool() : QString();
    if (tool.isEmpty() || !startTool(tool)) dialogs_.inform(kSystemInfoUnavailable, kAppTitle);
}

}  // namespace norvo::gui
