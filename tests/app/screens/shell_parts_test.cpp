// The smaller shell windows and services: settings store, splash, About box, help viewer.
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>

#include "app/screens/frm_about.h"
#include "app/screens/frm_browser.h"
#include "app/screens/frm_splash.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/qt_settings_store.h"

namespace norvo::gui {
namespace {

TEST(QtSettingsStore, KeepsApplicationsAndSectionsApart) {
    test::TempDir dir;
    {
        QtSettingsStore s(QString::fromStdString(dir.path().string()));
        EXPECT_EQ(s.get("Norvo", "RunTime", "LastActive", "No Active File"), "No Active File");
        s.setRunTime("LastActive", "/d/a.lfq");
        s.set("Norvo II", "Settings", "MainLeft", "1900");
        s.set("Norvo II", "RunTime", "LastActive", "other");
    }
    QtSettingsStore again(QString::fromStdString(dir.path().string()));
    EXPECT_EQ(again.runTime("LastActive", ""), "/d/a.lfq");
    EXPECT_EQ(again.get("Norvo II", "RunTime", "LastActive", ""), "other");
    EXPECT_EQ(again.get("Norvo", "Settings", "MainLeft", "none"), "none");
    EXPECT_EQ(again.get("Norvo II", "Settings", "MainLeft", ""), "1900");
    EXPECT_NE(again.fileOf("Norvo"), again.fileOf("Norvo II"));
}

TEST(FrmSplash, TimerHandsOverToTheMainWindow) {
    int loaded = 0;
    auto* splash = new FrmSplash([&] { ++loaded; }, 10);
    QPointer<FrmSplash> alive(splash);
    splash->show();
    EXPECT_EQ(splash->findChild<QLabel*>("lblVersion")->text(), "(Version 2.0.0)");
    EXPECT_TRUE(splash->timer()->isSingleShot());
    QTRY_COMPARE(loaded, 1);
    QTRY_VERIFY(alive.isNull());  // the splash form is gone
}

TEST(FrmAbout, SystemInfoToolMissingOrFound) {
    ScriptedDialogs dialogs;
    FrmAbout about(dialogs);
    EXPECT_EQ(about.windowTitle(), "About Norvo II");
    EXPECT_EQ(about.findChild<QLabel*>("lblVersion")->text(), "(Version 2.0.0)");
    about.findTool = [] { return QString(); };
    QString started;
    about.startTool = [&](const QString& p) {
        started = p;
        return true;
    };
    about.findChild<QPushButton*>("cmdSysInfo")->click();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().text, "System Information Is Unavailable At This Time");
    EXPECT_TRUE(started.isEmpty());

    about.findTool = [] { return QString("/usr/bin/hardinfo"); };
    about.findChild<QPushButton*>("cmdSysInfo")->click();
    EXPECT_EQ(started, "/usr/bin/hardinfo");
    EXPECT_EQ(dialogs.shown.size(), 1u);
}

TEST(FrmBrowser, KeyedButtonsAddressesAndWebPages) {
    test::TempDir dir;
    auto write = [&](const char* name, const char* body) {
        QFile f(QString::fromStdString(dir.file(name)));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(body);
    };
    write("home.html", "<html><head><title>Home</title></head><body>start</body></html>");
    write("two.html", "<html><head><title>Two</title></head><body>growth</body></html>");
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    Session session;
    ShellContext ctx{session, settings, dialogs, {}};
    const QUrl home = QUrl::fromLocalFile(QString::fromStdString(dir.file("home.html")));
    FrmBrowser b(ctx, home);
    for (const char* key : {"Back", "Forward", "Refresh", "Home", "Search", "Stop"})
        EXPECT_NE(b.button(key), nullptr) << key;
    EXPECT_EQ(b.windowTitle(), "Home");

    b.navigate(QUrl::fromLocalFile(QString::fromStdString(dir.file("two.html"))));
    EXPECT_EQ(b.windowTitle(), "Two");
    EXPECT_EQ(b.addressBox()->count(), 2);
    EXPECT_EQ(b.addressBox()->itemText(0).toStdString(), dir.file("two.html"));
    b.button("Back")->trigger();
    EXPECT_EQ(b.windowTitle(), "Home");
    EXPECT_EQ(b.addressBox()->count(), 2);  // visited addresses are kept once

    QUrl external;
    b.openExternal = [&](const QUrl& u) { external = u; };
    b.navigate(QUrl("https://example.org/norvo"));
    EXPECT_EQ(external, QUrl("https://example.org/norvo"));
    EXPECT_EQ(b.windowTitle(), "Home");  // the viewer stays on its page

    dialogs.inputAnswers = {std::string("start")};
    b.button("Search")->trigger();
    EXPECT_EQ(b.view()->textCursor().selectedText(), "start");
}

}  // namespace
}  // namespace norvo::gui
