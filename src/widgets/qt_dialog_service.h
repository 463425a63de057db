#pragma once
// The program's dialog service: message boxes, file dialogues, the print dialogue and the input
// box of the toolkit behind DialogService. The printer chosen last stays available for printing.
#include <QPointer>
#include <memory>

#include "base/user_notice.h"

class QPrinter;
class QWidget;

namespace norvo::gui {

class QtDialogService : public DialogService {
  public:
    QtDialogService();
    ~QtDialogService() override;

    Answer notify(const UserNotice& notice) override;
    std::optional<std::string> openFile(const FileDialogOptions& options) override;
    std::optional<std::string> saveFile(const FileDialogOptions& options) override;
    bool choosePrinter(const std::string& title) override;
    std::optional<std::string> inputBox(const InputBoxOptions& options) override;

    // The printer set up by the last print dialogue (screen resolution, so that pen widths and
    // text sized in pixels print at their size).
    QPrinter* printer() const { return printer_.get(); }
    // Dialogues are centred on this window (the main window); the active window otherwise.
    void setParentWidget(QWidget* parent) { parent_ = parent; }

  private:
    QWidget* parentWidget() const;
    std::optional<std::string> fileDialog(const FileDialogOptions& options, bool save);

    std::unique_ptr<QPrinter> printer_;
    QPointer<QWidget> parent_;
};

}  // namespace norvo::gui
