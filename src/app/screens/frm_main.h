#pragma once
// The main window: the multi-document area, the menu tree built from the command registry, the
// toolbar, the status bar and the two popups. It owns the shell context handed to every screen
// and routes the File and Edit commands to the editor in front.
#include <QMainWindow>
#include <QPointer>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "app/command_registry.h"
#include "app/edit_commands.h"
#include "widgets/shell_context.h"

class QAction;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QToolBar;

namespace norvo::gui {

class DataEditor;

class FrmMain : public QMainWindow {
    Q_OBJECT
  public:
    FrmMain(Session& session, SettingsStore& settings, DialogService& dialogs,
            QString programFolder, QWidget* parent = nullptr);
    ~FrmMain() override;

    // The screens and editors this window can open; tests put their own in.
    void setScreenFactories(std::map<std::string, ScreenFactory> factories);
    void setEditorFactories(std::map<std::string, EditorFactory> factories);

    ShellContext& context() { return ctx_; }
    QMdiArea* mdiArea() const { return mdi_; }
    // The menu action of a control (index -1 when the control is not an array), or null.
    QAction* command(const std::string& control, int index = -1) const;
    // A menu or popup by its registry key ("AssessMenu", "ZMenu(2)", "TableMenu"), or null.
    QMenu* menu(const std::string& key) const;
    QToolBar* toolbar() const { return toolbar_; }
    // The toolbar button with this key ("New" ... "Help").
    QAction* toolbarButton(const std::string& key) const;

    // Runs the handler of a command as its menu entry would (whether enabled or not), through
    // the command boundary: a failure ends it with its report and the window carries on.
    void runCommand(const std::string& control, int index = -1);

    // The editor of the active child, or null when none or when a screen is in front.
    DataEditor* activeEditor() const;
    // The open instance of a shared screen, or null.
    QWidget* screen(const std::string& name) const;
    // The window that shows a screen or an editor's widget.
    QMdiSubWindow* subWindowOf(QWidget* child) const;

    void EnableEditCommands(const std::string& token);
    void setEditorMenus(bool isGroupedFrequencyEditor);

    // Opens a help page named after a screen, or the contents for "".
    void showHelp(const QString& screenName);
    // The help page shown for a screen name: Help/<name>.html when it exists, else the contents.
    QString helpPageFor(const QString& screenName) const;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void buildMenus();
    void buildToolbar();
    void applyPlacement();
    void refreshBuiltState();
    void onChildActivated(QMdiSubWindow* sub);
    // The one way in for every menu entry, popup entry and toolbar button.
    void dispatch(const CommandEntry& entry);
    void handle(const CommandEntry& entry);
    void openScreen(const CommandEntry& entry);
    QWidget* showScreen(const std::string& name);
    DataEditor* openEditor(const std::string& kind, const std::string& path, bool readFile);

    void fileNew();
    void fileOpen();
    void fileSave();
    void fileSaveAs();
    void filePrint();
    void fileExport();
    void fileClose();
    void tableCommand(int index);
    void sampleHeader();
    void sendKeystroke(int key);
    void arrange(const std::string& how);

    QString activeChildPath() const;

    ShellContext ctx_;
    QString programFolder_;
    QMdiArea* mdi_ = nullptr;
    QToolBar* toolbar_ = nullptr;
    std::map<std::pair<std::string, int>, QAction*> actions_;
    std::map<std::string, QMenu*> menus_;
    std::map<std::string, QAction*> toolButtons_;
    std::map<std::string, ScreenFactory> screenFactories_;
    std::map<std::string, EditorFactory> editorFactories_;
    std::map<std::string, QPointer<QWidget>> screens_;
    std::map<QWidget*, DataEditor*> editors_;
    QPointer<QWidget> helpBrowser_;
};

}  // namespace norvo::gui
