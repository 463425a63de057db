#pragma once
// What the shell hands to every screen and editor: the session, the settings and the dialogs.
#include <QString>
#include <functional>
#include <map>
#include <string>

#include "app/session.h"
#include "base/settings_store.h"
#include "base/user_notice.h"

class QPoint;
class QPrinter;
class QWidget;

namespace norvo::gui {

class DataEditor;

struct ShellContext {
    Session& session;
    SettingsStore& settings;
    DialogService& dialogs;
    QString programFolder;  // where Templates/, Help/ and Data/ stand
    // Applies an EnableEditCommands token to the main window (no-op without one).
    std::function<void(const std::string& token)> enableEditCommands = [](const std::string&) {};
    // Sets the popup and Edit menu entries for the editor in front.
    std::function<void(bool isLfqEditor)> setEditorMenus = [](bool) {};
    // Shows a text in the main window's status bar.
    std::function<void(const QString&)> showStatus = [](const QString&) {};
    // The printer chosen in the last print dialogue (null without one, e.g. in tests).
    std::function<QPrinter*()> printer = [] { return static_cast<QPrinter*>(nullptr); };
    // Shows the grids' popup "Tables" at a global position; its entries go to the editor in
    // front, as the Edit menu's Insert/Delete entries do.
    std::function<void(const QPoint&)> popupTableMenu = [](const QPoint&) {};
    // Shows the popup "Links" at a global position and returns the chosen index of `mnuLink`
    // (0 "Auto-connect from previous", 1 "Terminate connecton"), or -1 when none was chosen.
    std::function<int(const QPoint&)> popupLinkMenu = [](const QPoint&) { return -1; };
    // Opens a help page by screen name ("frmELEFAN1" -> Help/frmELEFAN1.html); "" the contents.
    std::function<void(const QString& screenName)> showHelp = [](const QString&) {};
    // Shows a screen by name ("frmVBGFPlot"), making it when it is not open; null when the
    // screen is unknown or there is no shell.
    std::function<QWidget*(const std::string& screenName)> openScreen = [](const std::string&) {
        return static_cast<QWidget*>(nullptr);
    };
};

// Makes an analysis or tool screen (a single shared instance is kept by the shell).
using ScreenFactory = std::function<QWidget*(ShellContext&, QWidget* parent)>;
// Makes a new editor for a file kind.
using EditorFactory = std::function<DataEditor*(ShellContext&, QWidget* parent)>;

// Screen name ("frmELEFAN1") -> factory, for every screen built so far.
const std::map<std::string, ScreenFactory>& ScreenFactories();
// Kind ("LFQ") -> editor factory, for every editor built so far.
const std::map<std::string, EditorFactory>& EditorFactories();

}  // namespace norvo::gui
