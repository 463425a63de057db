#pragma once
// A small page viewer for the help pages: an address box that keeps the visited addresses and
// a toolbar keyed "Back", "Forward", "Refresh", "Home", "Search", "Stop".
#include <QUrl>
#include <QWidget>
#include <functional>

#include "widgets/shell_context.h"

class QComboBox;
class QTextBrowser;
class QToolBar;

namespace norvo::gui {

class FrmBrowser : public QWidget {
    Q_OBJECT
  public:
    FrmBrowser(ShellContext& ctx, QUrl home, QWidget* parent = nullptr);

    void navigate(const QUrl& url);
    QUrl current() const;
    QComboBox* addressBox() const { return cboAddress_; }
    QTextBrowser* view() const { return view_; }
    QAction* button(const QString& key) const;

    // Web addresses go to the desktop's browser; tests replace this.
    std::function<void(const QUrl&)> openExternal;

  private:
    void onKey(const QString& key);
    void afterLoad();

    ShellContext& ctx_;
    QUrl home_;
    QComboBox* cboAddress_ = nullptr;
    QTextBrowser* view_ = nullptr;
    QToolBar* toolbar_ = nullptr;
};

}  // namespace norvo::gui
