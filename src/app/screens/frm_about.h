#pragma once
// The About box: the program's title, its version, a short description, the owner's warning and
// a button that starts the desktop's system-information tool when one is installed.
#include <QDialog>
#include <functional>

#include "base/user_notice.h"

class QPushButton;

namespace norvo::gui {

class FrmAbout : public QDialog {
    Q_OBJECT
  public:
    explicit FrmAbout(DialogService& dialogs, QWidget* parent = nullptr);

    // The system-information tool found on this machine, or empty.
    static QString FindSystemInfoTool();

    // Replaceable in tests: finding and starting the tool.
    std::function<QString()> findTool = &FrmAbout::FindSystemInfoTool;
    std::function<bool(const QString&)> startTool;

    void StartSysInfo();

  private:
    DialogService& dialogs_;
};

}  // namespace norvo::gui
