#include "widgets/qt_dialog_service.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>

#include "app/file_filter.h"

namespace norvo::gui {

QtDialogService::QtDialogService()
    : printer_(std::make_unique<QPrinter>(QPrinter::ScreenResolution)) {}

QtDialogService::~QtDialogService() = default;

QWidget* QtDialogService::parentWidget() const {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (parent_) return parent_;
    return QApplication::activeWindow();
}

Answer QtDialogService::notify(const UserNotice& n) {
    QMessageBox box(parentWidget());
    box.setWindowTitle(QString::fromStdString(n.title));
    box.setText(QString::fromStdString(n.text));
    switch (n.icon) {
        case Icon::Critical:
            box.setIcon(QMessageBox::Critical);
            break;
        case Icon::Question:
            box.setIcon(QMessageBox::Question);
            break;
        case Icon::Warning:
            box.setIcon(QMessageBox::Warning);
            break;
        case Icon::Information:
            box.setIcon(QMessageBox::Information);
            break;
        case Icon::None:
            box.setIcon(QMessageBox::NoIcon);
            break;
    }
    using B = QMessageBox::StandardButton;
    switch (n.buttons) {
        case Buttons::Ok:
            box.setStandardButtons(B::Ok);
            break;
        case Buttons::OkCancel:
            box.setStandardButtons(B::Ok | B::Cancel);
            break;
        case Buttons::YesNo:
            box.setStandardButtons(B::Yes | B::No);
            break;
        case Buttons::YesNoCancel:
            box.setStandardButtons(B::Yes | B::No | B::Cancel);
            break;
        case Buttons::RetryCancel:
            box.setStandardButtons(B::Retry | B::Cancel);
            break;
        case Buttons::AbortRetryIgnore:
            box.setStandardButtons(B::Abort | B::Retry | B::Ignore);
            break;
    }
    switch (box.exec()) {
        case B::Ok:
            return Answer::Ok;
        case B::Yes:
            return Answer::Yes;
        case B::No:
            return Answer::No;
        case B::Retry:
            return Answer::Retry;
        case B::Abort:
            return Answer::Abort;
        case B::Ignore:
            return Answer::Ignore;
        default:
            // Closing the box: the Cancel or No answer, whichever the box offers.
            if (n.buttons == Buttons::YesNo) return Answer::No;
            if (n.buttons == Buttons::Ok) return Answer::Ok;
            return Answer::Cancel;
    }
}

std::optional<std::string> QtDialogService::fileDialog(const FileDialogOptions& o, bool save) {
    QFileDialog dlg(parentWidget(), QString::fromStdString(o.title),
                    QString::fromStdString(o.startFolder),
                    QString::fromStdString(ToToolkitFilter(o.filter)));
    dlg.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dlg.setFileMode(save || !o.mustExist ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (save && !o.overwritePrompt) dlg.setOption(QFileDialog::DontConfirmOverwrite);
    if (!o.defaultExtension.empty())
        dlg.setDefaultSuffix(QString::fromStdString(o.defaultExtension));
    if (!o.initialName.empty()) dlg.selectFile(QString::fromStdString(o.initialName));
    if (dlg.exec() != QDialog::Accepted || dlg.selectedFiles().isEmpty()) return std::nullopt;
    const QString path = dlg.selectedFiles().first();
    if (path.isEmpty()) return std::nullopt;
    return path.toStdString();
}

std::optional<std::string> QtDialogService::openFile(const FileDialogOptions& options) {
    return fileDialog(options, false);
}

std::optional<std::string> QtDialogService::saveFile(const FileDialogOptions& options) {
    return fileDialog(options, true);
}

bool QtDialogService::choosePrinter(const std::string& title) {
    QPrintDialog dlg(printer_.get(), parentWidget());
    dlg.setWindowTitle(QString::fromStdString(title));
    return dlg.exec() == QDialog::Accepted;
}

std::optional<std::string> QtDialogService::inputBox(const InputBoxOptions& o) {
    bool ok = false;
    const QString text = QInputDialog::getText(parentWidget(), QString::fromStdString(o.title),
                                               QString::fromStdString(o.prompt), QLineEdit::Normal,
                                               QString::fromStdString(o.defaultText), &ok);
    if (!ok) return std::nullopt;
    return text.toStdString();
}

}  // namespace norvo::gui
