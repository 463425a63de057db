#include "app/screens/frm_browser.h"

#include <QAction>
#include <QComboBox>
#include <QDesktopServices>
#include <QLineEdit>
#include <QStyle>
#include <QTextBrowser>
#include <QToolBar>
#include <QVBoxLayout>

#include "app/shell_texts.h"
#include "widgets/command_boundary.h"

namespace norvo::gui {

namespace {

struct Key {
    const char* key;
    QStyle::StandardPixmap icon;
};
const Key kKeys[] = {
    {"Back", QStyle::SP_ArrowBack},
    {"Forward", QStyle::SP_ArrowForward},
    {"Refresh", QStyle::SP_BrowserReload},
    {"Home", QStyle::SP_DirHomeIcon},
    {"Search", QStyle::SP_FileDialogContentsView},
    {"Stop", QStyle::SP_BrowserStop},
};

bool IsWebAddress(const QUrl& url) {
    return url.scheme() == "http" || url.scheme() == "https";
}

}  // namespace

FrmBrowser::FrmBrowser(ShellContext& ctx, QUrl home, QWidget* parent)
    : QWidget(parent), ctx_(ctx), home_(std::move(home)) {
    setObjectName("frmBrowser");
    openExternal = [](const QUrl& url) { QDesktopServices::openUrl(url); };

    toolbar_ = new QToolBar(this);
    toolbar_->setObjectName("tbToolBar");
    toolbar_->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    for (const Key& k : kKeys) {
        QAction* a = toolbar_->addAction(style()->standardIcon(k.icon), k.key);
        a->setObjectName(k.key);
        connect(a, &QAction::triggered, this,
                Guarded(ctx_.dialogs, [this, key = QString(k.key)] { onKey(key); }));
    }
    button("Stop")->setEnabled(false);  // pages load at once; nothing to stop

    cboAddress_ = new QComboBox(this);
    cboAddress_->setObjectName("cboAddress");
    cboAddress_->setEditable(true);
    cboAddress_->setInsertPolicy(QComboBox::NoInsert);
    connect(cboAddress_->lineEdit(), &QLineEdit::returnPressed, this, Guarded(ctx_.dialogs, [this] {
                const QString text = cboAddress_->currentText().trimmed();
                if (text.isEmpty()) return;
                navigate(QUrl::fromUserInput(text));
            }));
    connect(cboAddress_, &QComboBox::activated, this,
            Guarded(ctx_.dialogs, [this](int i) { navigate(QUrl(cboAddress_->itemText(i))); }));

    view_ = new QTextBrowser(this);
    view_->setObjectName("brwWebBrowser");
    view_->setOpenLinks(false);
    connect(view_, &QTextBrowser::anchorClicked, this,
            Guarded(ctx_.dialogs,
                    [this](const QUrl& url) { navigate(view_->source().resolved(url)); }));
    connect(view_, &QTextBrowser::backwardAvailable, button("Back"), &QAction::setEnabled);
    connect(view_, &QTextBrowser::forwardAvailable, button("Forward"), &QAction::setEnabled);
    button("Back")->setEnabled(false);
    button("Forward")->setEnabled(false);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(toolbar_);
    layout->addWidget(cboAddress_);
    layout->addWidget(view_, 1);
    resize(640, 480);
    navigate(home_);
}

QAction* FrmBrowser::button(const QString& key) const {
    return toolbar_->findChild<QAction*>(key);
}

QUrl FrmBrowser::current() const {
    return view_->source();
}

void FrmBrowser::navigate(const QUrl& url) {
    if (IsWebAddress(url)) {
        // The viewer shows local pages only; web pages open in the desktop's browser.
        openExternal(url);
        return;
    }
    setWindowTitle(kBrowserWorking);
    if (url.isRelative() && !url.path().isEmpty())
        view_->setSource(view_->source().resolved(url));
    else
        view_->setSource(url);
    afterLoad();
}

void FrmBrowser::afterLoad() {
    const QString address =
        view_->source().isLocalFile() ? view_->source().toLocalFile() : view_->source().toString();
    const int at = cboAddress_->findText(address);
    if (at >= 0) cboAddress_->removeItem(at);
    cboAddress_->insertItem(0, address);
    cboAddress_->setCurrentIndex(0);
    const QString title = view_->documentTitle();
    setWindowTitle(title.isEmpty() ? address : title);
}

void FrmBrowser::onKey(const QString& key) {
    if (key == "Back") {
        view_->backward();
        afterLoad();
    } else if (key == "Forward") {
        view_->forward();
        afterLoad();
    } else if (key == "Refresh") {
        view_->reload();
        afterLoad();
    } else if (key == "Home") {
        navigate(home_);
    } else if (key == "Search") {
        const auto text = ctx_.dialogs.inputBox({kBrowserSearchPrompt, kBrowserSearchTitle, ""});
        if (text && !text->empty()) {
            // From the top of the page when nothing further down matches.
            if (!view_->find(QString::fromStdString(*text))) {
                view_->moveCursor(QTextCursor::Start);
                view_->find(QString::fromStdString(*text));
            }
        }
    }
}

}  // namespace norvo::gui
