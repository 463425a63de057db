// Pictures of the main window, the open Assess menu and the About box for a visual check.
// Disabled in normal runs; run under a virtual X server (xvfb-run, QT_QPA_PLATFORM=xcb) with
// --gtest_also_run_disabled_tests --gtest_filter='*Screenshot*'; pictures go to
// $NORVO_SCREENSHOT_DIR.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTest>

#include "app/screens/frm_main.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"

namespace norvo::gui {
namespace {

void Shoot(const QString& name) {
    QApplication::processEvents();
    QTest::qWait(300);
    const QString dir = qEnvironmentVariable("NORVO_SCREENSHOT_DIR", "/tmp");
    QApplication::primaryScreen()->grabWindow(0).save(dir + "/" + name + ".png");
}

TEST(Screenshot, DISABLED_MainWindowAssessMenuAndAbout) {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    FrmMain main(session, settings, dialogs, QString::fromStdString(test::BinDir().string()));
    main.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&main));
    Shoot("main_window");

    QMenu* assess = main.menu("AssessMenu");
    main.menuBar()->setActiveAction(assess->menuAction());
    QTest::qWait(200);
    QMenu* mortality = main.menu("MortalityMenu");
    assess->setActiveAction(mortality->menuAction());
    QTest::keyClick(assess, Qt::Key_Right);
    QTest::qWait(200);
    Shoot("assess_menu");
    assess->hide();
    main.menuBar()->setActiveAction(nullptr);

    main.runCommand("mnuHelpAbout");
    QTest::qWait(300);
    Shoot("about_box");
    if (QWidget* about = main.findChild<QWidget*>("frmAbout")) about->close();

    main.runCommand("mnuHelpContents");
    Shoot("help_contents");
}

}  // namespace
}  // namespace norvo::gui
