#pragma once
// What a screen under test is given by the shell: a fresh session, settings in memory and
// scripted dialogs, with the test binaries' folder as the program folder. Also the optional
// screenshots the screen tests save on request.
#include <QString>
#include <QWidget>
#include <cstdlib>
#include <string>

#include "app/session.h"
#include "base/settings_store.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/shell_context.h"

namespace norvo::test {

struct ScreenServices {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    gui::ShellContext ctx{session, settings, dialogs, QString::fromStdString(BinDir().string())};
};

// With NORVO_SHOTS set to a folder, saves the widget at the given size as <folder>/<name>.png.
inline void SaveShot(QWidget* w, const std::string& name, int width, int height) {
    const char* dir = std::getenv("NORVO_SHOTS");
    if (!dir) return;
    w->resize(width, height);
    w->grab().save(QString::fromStdString(std::string(dir) + "/" + name + ".png"));
}

}  // namespace norvo::test
