#include "app/screens/frm_main.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>
#include <filesystem>
#include <fstream>

#include "base/fault.h"
#include "data/store_routines.h"
#include "data/write_notices.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/data_editor.h"

namespace norvo::gui {
namespace {

// An editor that records the calls the main window makes on it.
class FakeEditor : public QWidget, public DataEditor {
  public:
    FakeEditor(QString kind, std::vector<std::string>& log) : kind_(std::move(kind)), log_(log) {}
    QWidget* widget() override { return this; }
    QString kind() const override { return kind_; }
    QString filePath() const override { return windowTitle(); }
    void SaveFileAs(const QString& p) override { note("SaveFileAs " + p.toStdString()); }
    void SaveFile() override { note("SaveFile"); }
    void PrintFile() override { note("PrintFile"); }
    void Export() override { note("Export"); }
    void OpenFile() override { note("OpenFile"); }
    void InsertRow() override { note("InsertRow"); }
    void InsertCol() override { note("InsertCol"); }
    void DeleteRow() override { note("DeleteRow"); }
    void DeleteCol(int c) override { note("DeleteCol " + std::to_string(c)); }
    void GenerateOutput() override { note("GenerateOutput"); }
    void AccessSubheader() override { note("AccessSubheader"); }
    int activeColumn() const override { return 4; }

  private:
    void note(const std::string& what) {
        log_.push_back(windowTitle().toStdString() + ": " + what);
    }
    QString kind_;
    std::vector<std::string>& log_;
};

class MainWindowTest : public ::testing::Test {
  protected:
    void SetUp() override {
        settings.setRunTime("LastActive", "/left/over/from/last/run.lfq");
        makeMain();
    }
    void makeMain() {
        main = std::make_unique<FrmMain>(session, settings, dialogs,
                                         QString::fromStdString(test::BinDir().string()));
        std::map<std::string, EditorFactory> editors;
        for (const char* k : {"LFQ", "ULF", "VLF", "LAA", "GIN", "CAA", "MSD", "PRB", "XYF", "VAL",
                              "SPC", "FLT", "SCE"}) {
            editors[k] = [this, k](ShellContext&, QWidget*) -> DataEditor* {
                return new FakeEditor(k, log);
            };
        }
        main->setEditorFactories(editors);
        main->show();
        QApplication::setActiveWindow(main.get());
    }
    // Every screen of the registry built as a plain widget.
    void buildAllScreens() {
        std::map<std::string, ScreenFactory> screens;
        for (const CommandEntry& e : CommandRegistry()) {
            if (e.screen.empty()) continue;
            screens[e.screen] = [this, name = e.screen](ShellContext&, QWidget*) {
                ++made[name];
                auto* w = new QWidget;
                w->setWindowTitle(QString::fromStdString(name));
                return w;
            };
        }
        main->setScreenFactories(screens);
    }
    bool enabled(const char* control, int index = -1) {
        return main->command(control, index)->isEnabled();
    }
    std::string lastActive() { return settings.runTime("LastActive", "<none>"); }
    std::string file(const std::string& name, bool create = true) {
        const std::string p = dir.file(name);
        if (create) std::ofstream(p) << "x";
        return p;
    }
    DataEditor* openFile(const std::string& path) {
        dialogs.openAnswers.push_back(path);
        main->runCommand("mnuFileOpen");
        return main->activeEditor();
    }

    test::TempDir dir;
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    std::vector<std::string> log;
    std::map<std::string, int> made;
    std::unique_ptr<FrmMain> main;
};

TEST_F(MainWindowTest, LoadState) {
    EXPECT_EQ(main->windowTitle(), "Norvo II (Version 2.0.0)...");
    EXPECT_EQ(lastActive(), "No Active File");
    for (const char* c : {"mnuFileClose", "mnuFileSave", "mnuFileSaveAs", "mnuEditCut",
                          "mnuInsertRow", "mnuDeleteColumn"})
        EXPECT_FALSE(enabled(c)) << c;
    EXPECT_FALSE(main->toolbarButton("Save")->isEnabled());
    EXPECT_TRUE(main->toolbarButton("Open")->isEnabled());
    // 1900, 1200, 10000, 8000 twips at 15 twips a pixel.
    EXPECT_EQ(main->pos(), QPoint(127, 80));
    EXPECT_EQ(main->size(), QSize(667, 533));
    EXPECT_EQ(session.numericKeys.substr(0, 10), "0123456789");
    EXPECT_EQ(session.numericKeys.size(), 11u);
}

TEST_F(MainWindowTest, ClosingStoresGeometryAndTheMaximisedAsymmetry) {
    main->move(300, 150);
    main->resize(700, 500);
    ASSERT_TRUE(main->close());
    EXPECT_EQ(settings.get("Norvo II", "Settings", "MainLeft", ""), "4500");
    EXPECT_EQ(settings.get("Norvo II", "Settings", "MainWidth", ""), "10500");
    EXPECT_EQ(settings.get("Norvo II", "Settings", "WindowState", ""), "0");

    makeMain();
    EXPECT_EQ(main->pos(), QPoint(300, 150));
    main->setWindowState(Qt::WindowMaximized);
    ASSERT_TRUE(main->close());
    EXPECT_EQ(settings.get("Norvo II", "Settings", "WindowState", ""), "2");
    EXPECT_EQ(settings.get("Norvo II", "Settings", "MainLeft", ""), "4500");  // kept

    makeMain();
    EXPECT_TRUE(main->windowState() & Qt::WindowMaximized);
    EXPECT_EQ(main->normalGeometry().size(), QSize(667, 533));
}

TEST_F(MainWindowTest, MenuTreeFromTheRegistry) {
    main->setScreenFactories({});
    for (const CommandEntry& e : CommandRegistry()) {
        SCOPED_TRACE(MenuKey(e));
        if (e.kind == CommandKind::Menu) {
            QMenu* m = main->menu(MenuKey(e));
            ASSERT_NE(m, nullptr);
            EXPECT_EQ(m->objectName().toStdString(), e.control);
            EXPECT_EQ(m->title().toStdString(), e.caption);
            continue;
        }
        QAction* a = main->command(e.control, e.index);
        ASSERT_NE(a, nullptr);
        EXPECT_EQ(a->objectName().toStdString(), e.control);
        if (e.kind != CommandKind::Separator) {
            EXPECT_EQ(a->text().toStdString(), e.caption);
        }
    }
    // With no screen built, every screen entry stands disabled and says it is coming.
    QAction* elefan = main->command("LFMenu", 0);
    EXPECT_FALSE(elefan->isEnabled());
    EXPECT_EQ(elefan->statusTip(), "ELEFAN I is coming in a later version of Norvo II.");
    EXPECT_EQ(main->toolbar()->objectName(), "tbMain");
    for (const char* key : {"New", "Open", "Save", "Print", "Cut", "Copy", "Paste", "Help"})
        EXPECT_NE(main->toolbarButton(key), nullptr) << key;
    EXPECT_EQ(main->statusBar()->objectName(), "sbMain");
}

TEST_F(MainWindowTest, EveryGatedEntryAsksItsOwnQuestion) {
    buildAllScreens();
    settings.setRunTime("LastActive", "/data/other.zzz");
    for (const CommandEntry& e : CommandRegistry()) {
        if (e.kind != CommandKind::Screen) continue;
        SCOPED_TRACE(MenuKey(e));
        ASSERT_TRUE(main->command(e.control, e.index)->isEnabled());
        dialogs.shown.clear();
        if (!e.gated()) {
            main->runCommand(e.control, e.index);
            EXPECT_TRUE(dialogs.shown.empty());
            EXPECT_NE(main->screen(e.screen), nullptr);
            continue;
        }
        dialogs.answers = {Answer::No};
        main->runCommand(e.control, e.index);
        ASSERT_EQ(dialogs.shown.size(), 1u);
        EXPECT_EQ(dialogs.last().title, e.gateTitle);
        EXPECT_EQ(dialogs.last().text, e.gateText);
        EXPECT_EQ(dialogs.last().buttons, Buttons::YesNo);
        EXPECT_EQ(main->screen(e.screen), nullptr);  // No cancels

        dialogs.answers = {Answer::Yes};
        main->runCommand(e.control, e.index);
        EXPECT_NE(main->screen(e.screen), nullptr);  // Yes opens it without a file
    }
    // A repeated command shows the same shared instance again.
    settings.setRunTime("LastActive", "/data/catch.LFQ");
    QWidget* elefan = main->screen("frmELEFAN1");
    dialogs.shown.clear();
    main->runCommand("LFMenu", 0);
    EXPECT_TRUE(dialogs.shown.empty());  // the kind fits: no question
    EXPECT_EQ(main->screen("frmELEFAN1"), elefan);
    EXPECT_EQ(made["frmELEFAN1"], 1);
    // A screen in front turns the file commands off.
    EXPECT_FALSE(enabled("mnuFileSave"));
}

TEST_F(MainWindowTest, InertEntriesDoNothing) {
    buildAllScreens();
    main->runCommand("VPAMenu", 2);
    main->runCommand("mnuFileMRU", 0);
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_TRUE(main->mdiArea()->subWindowList().isEmpty());
    EXPECT_FALSE(main->command("mnuFileMRU", 0)->isVisible());
}

TEST_F(MainWindowTest, RegressionGateReadsLikeANoticeAndNoEndsIt) {
    buildAllScreens();
    dialogs.answers = {Answer::No};
    main->runCommand("RegressMenu");
    EXPECT_EQ(dialogs.last().text,
              "This routine requires two-column regression data file (XYF). Please load before "
              "proceeding.");
    EXPECT_EQ(dialogs.last().buttons, Buttons::YesNo);
    EXPECT_EQ(main->screen("frmRegress"), nullptr);
}

TEST_F(MainWindowTest, FailingScreenEndsInTheDefectReport) {
    main->setScreenFactories({{"frmHoenig", [](ShellContext&, QWidget*) -> QWidget* {
                                   throw ArithmeticFault(FaultNumber::Overflow, "Overflow");
                               }}});
    main->runCommand("ZMenu", 3);
    EXPECT_EQ(dialogs.last().title, "Programming Defect...");
    EXPECT_EQ(dialogs.last().text,
              "Programming defect detected. Overflow (Source:Norvo II; Number:6). Please notify "
              "the developer: the Norvo II development team. ");
    EXPECT_EQ(main->screen("frmHoenig"), nullptr);
    EXPECT_TRUE(main->isVisible());  // the program carries on
}

TEST_F(MainWindowTest, FileCommandsWithoutAChild) {
    main->runCommand("mnuFileSave");
    main->runCommand("mnuFileSaveAs");
    main->runCommand("mnuFilePrint");
    main->runCommand("mnuInsertRow");
    main->runCommand("mnuFileClose");
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_TRUE(dialogs.fileDialogs.empty());
    EXPECT_TRUE(dialogs.printDialogs.empty());
    EXPECT_FALSE(enabled("mnuFileSaveAs"));

    main->runCommand("mnuExport");
    EXPECT_EQ(dialogs.last().title, "Invalid Action");
    EXPECT_EQ(dialogs.last().text,
              "No data file is loaded and active, or file cannot be located. Please check.");
    main->runCommand("mnuSampleHeader");
    EXPECT_EQ(dialogs.last().text,
              "This routine requires length frequency data loaded and active. Please check the "
              "input.");
    main->runCommand("mnuViewRefresh");
    EXPECT_EQ(dialogs.last().text, "Add 'mnuViewRefresh_Click' code.");
}

TEST_F(MainWindowTest, OpenRefusesUnknownExtensionsQuietly) {
    EXPECT_EQ(openFile(file("notes.txt")), nullptr);
    EXPECT_TRUE(main->mdiArea()->subWindowList().isEmpty());
    EXPECT_TRUE(enabled("mnuFileSaveAs"));
    EXPECT_FALSE(enabled("mnuFileSave"));  // "WithFile" leaves the others as they were
    const FileDialogOptions& o = dialogs.fileDialogs.back();
    EXPECT_EQ(o.title, "Open...");
    EXPECT_EQ(o.defaultExtension, "lfq");
    EXPECT_TRUE(o.mustExist);
    EXPECT_EQ(o.startFolder, test::BinDir().string());
    EXPECT_EQ(o.filter.rfind("Grouped frequencies (*.lfq)|*.lfq|", 0), 0u);
}

TEST_F(MainWindowTest, EditorsSetLastActiveAndTheCommandsOnActivation) {
    const std::string a = file("a.lfq"), b = file("b.lfq"), x = file("c.xyf");
    DataEditor* ea = openFile(a);
    ASSERT_NE(ea, nullptr);
    EXPECT_EQ(ea->widget()->windowTitle().toStdString(), a);
    EXPECT_EQ(log.back(), a + ": OpenFile");
    DataEditor* eb = openFile(b);
    ASSERT_NE(eb, ea);
    EXPECT_EQ(lastActive(), b);
    EXPECT_TRUE(enabled("mnuFileSave") && enabled("mnuDeleteColumn") && enabled("mnuTable", 6));

    main->mdiArea()->setActiveSubWindow(main->subWindowOf(ea->widget()));
    EXPECT_EQ(lastActive(), a);
    main->mdiArea()->setActiveSubWindow(main->subWindowOf(eb->widget()));
    EXPECT_EQ(lastActive(), b);

    // A table-like kind: Close and Save off, yet Insert/Delete Row back on by the editor menus.
    openFile(x);
    EXPECT_EQ(lastActive(), x);
    EXPECT_FALSE(enabled("mnuFileClose") || enabled("mnuFileSave"));
    EXPECT_TRUE(main->toolbarButton("Save")->isEnabled());
    EXPECT_TRUE(enabled("mnuInsertRow") && enabled("mnuDeleteRow"));
    EXPECT_FALSE(enabled("mnuInsertColumn") || enabled("mnuSampleHeader") ||
                 enabled("mnuTable", 4));
}

TEST_F(MainWindowTest, ClosingTheLastEditorLeavesItsPathActive) {
    const std::string path = file("only.lfq");
    openFile(path);
    main->runCommand("mnuFileClose");
    QApplication::processEvents();
    EXPECT_TRUE(main->mdiArea()->subWindowList().isEmpty());
    EXPECT_EQ(lastActive(), path);  // closing writes nothing: the gate still passes
    EXPECT_FALSE(enabled("mnuFileSave"));

    // Exit closes the children first, then the main window.
    openFile(path);
    openFile(path);  // the same file twice: two editors, no warning
    EXPECT_EQ(main->mdiArea()->subWindowList().size(), 2);
    main->runCommand("mnuFileExit");
    EXPECT_FALSE(main->isVisible());
    EXPECT_EQ(settings.get("Norvo II", "Settings", "WindowState", ""), "0");
}

TEST_F(MainWindowTest, RoutingToTheEditorInFront) {
    const std::string path = file("s.lfq");
    openFile(path);
    log.clear();
    main->runCommand("mnuFileSave");
    dialogs.printAnswers = {false, true};
    main->runCommand("mnuFilePrint");  // cancelled: nothing
    main->runCommand("mnuFilePrint");
    main->runCommand("mnuExport");
    main->runCommand("mnuDeleteColumn");
    main->runCommand("mnuTable", 0);
    main->runCommand("mnuSampleHeader");
    EXPECT_EQ(log, (std::vector<std::string>{path + ": SaveFile", path + ": PrintFile",
                                             path + ": Export", path + ": DeleteCol 4",
                                             path + ": InsertRow", path + ": AccessSubheader"}));
    EXPECT_EQ(dialogs.printDialogs, (std::vector<std::string>{"Print", "Print"}));
    EXPECT_EQ(session.sampleHeaderColumn, 4);
    EXPECT_TRUE(dialogs.shown.empty());

    dialogs.saveAnswers = {std::nullopt, dir.file("t.lfq")};
    main->runCommand("mnuFileSaveAs");  // cancelled
    main->runCommand("mnuFileSaveAs");
    EXPECT_EQ(log.back(), path + ": SaveFileAs " + dir.file("t.lfq"));
    EXPECT_EQ(dialogs.fileDialogs.back().title, "Save As");
    EXPECT_TRUE(dialogs.fileDialogs.back().overwritePrompt);
    EXPECT_EQ(dialogs.fileDialogs.back().filter,
              "Grouped length frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*");
}

TEST_F(MainWindowTest, EditorWhoseFileIsGoneOrNotGrouped) {
    openFile(file("gone.lfq"));
    std::filesystem::remove(dir.file("gone.lfq"));
    main->runCommand("mnuExport");
    EXPECT_EQ(dialogs.last().title, "Invalid Action");
    main->runCommand("mnuSampleHeader");
    EXPECT_EQ(dialogs.shown.size(), 2u);

    openFile(file("u.ulf"));
    main->runCommand("mnuSampleHeader");
    EXPECT_EQ(dialogs.shown.size(), 3u);
    EXPECT_EQ(std::count_if(log.begin(), log.end(),
                            [](const std::string& l) {
                                return l.find("AccessSubheader") != std::string::npos;
                            }),
              0);
}

TEST_F(MainWindowTest, SaveAsFiltersOfTheSpecialKinds) {
    openFile(file("g.gin"));
    dialogs.saveAnswers = {std::nullopt};
    main->runCommand("mnuFileSaveAs");
    EXPECT_EQ(dialogs.fileDialogs.back().filter, "All Files (*.*)|*.*");

    openFile(file("v.vlf"));
    dialogs.saveAnswers = {std::nullopt};
    main->runCommand("mnuFileSaveAs");
    EXPECT_EQ(dialogs.fileDialogs.back().filter,
              "Variable grouping of frequencies (*.vlf)|*.vlf|Grouped frequencies "
              "(*.lfq)|*.lfq|All Files (*.*)|*.*");
}

TEST_F(MainWindowTest, NewCopiesTheTemplate) {
    const std::string path = dir.file("new.lfq");
    dialogs.saveAnswers = {path};
    main->runCommand("mnuFileNew");
    const FileDialogOptions& o = dialogs.fileDialogs.back();
    EXPECT_EQ(o.title, "New...");
    EXPECT_TRUE(o.overwritePrompt);
    EXPECT_NE(o.filter.find("Multi-species/Multi-fleet Scenario (*.sce)|*.sce|"),
              std::string::npos);
    EXPECT_TRUE(std::filesystem::exists(path));
    ASSERT_NE(main->activeEditor(), nullptr);
    EXPECT_EQ(main->activeEditor()->widget()->windowTitle().toStdString(), path);
    EXPECT_TRUE(log.empty());  // a new file is not read
    EXPECT_FALSE(enabled("mnuFileSaveAs"));
    EXPECT_TRUE(dialogs.shown.empty());

    // The species table asks first; No makes nothing.
    const std::string spc = dir.file("s.spc");
    dialogs.saveAnswers = {spc, spc};
    dialogs.answers = {Answer::No, Answer::Yes};
    main->runCommand("mnuFileNew");
    EXPECT_EQ(dialogs.last().title, "WARNING!");
    EXPECT_FALSE(std::filesystem::exists(spc));
    main->runCommand("mnuFileNew");
    EXPECT_TRUE(std::filesystem::exists(spc));

    dialogs.saveAnswers = {std::nullopt};
    main->runCommand("mnuFileNew");
    EXPECT_EQ(main->mdiArea()->subWindowList().size(), 2);
}

// A place that cannot be written (here inside a plain file, which stops root too) is told as
// such, not as a missing template to re-install.
TEST_F(MainWindowTest, NewInAnUnwritablePlaceSaysSo) {
    std::ofstream(dir.file("plain")) << "x";
    const std::string path = dir.file("plain") + "/new.lfq";
    dialogs.saveAnswers = {path};
    main->runCommand("mnuFileNew");
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().text, CannotWriteText(path));
    EXPECT_EQ(main->mdiArea()->subWindowList().size(), 0);
}

TEST_F(MainWindowTest, HelpOpensThePageOfTheScreenInFront) {
    main->setScreenFactories({{"frmHoenig", [](ShellContext&, QWidget*) { return new QWidget; }}});
    main->runCommand("mnuHelpContents");
    QWidget* browser = main->mdiArea()->activeSubWindow()->widget();
    EXPECT_EQ(browser->objectName(), "frmBrowser");
    EXPECT_TRUE(main->helpPageFor("frmNoSuchScreen").endsWith("Help/index.html"));
    EXPECT_TRUE(main->helpPageFor("").endsWith("Help/index.html"));
    EXPECT_FALSE(enabled("mnuFileSave"));

    main->runCommand("mnuHelpAbout");
    QWidget* about = nullptr;
    QTRY_VERIFY((about = QApplication::activeModalWidget()) != nullptr ||
                (about = main->findChild<QWidget*>("frmAbout")) != nullptr);
    EXPECT_EQ(about->windowTitle(), "About Norvo II");
    about->close();
}

}  // namespace
}  // namespace norvo::gui

namespace norvo::gui {
namespace {

// The program's own editors, as registered, opened through File, New.
TEST(MainWindowWithRealEditors, NewOpensEveryKindWithAnEditor) {
    test::TempDir dir;
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    dialogs.defaultAnswer = Answer::No;  // keep files, no further questions
    FrmMain main(session, settings, dialogs, QString::fromStdString(test::BinDir().string()));
    main.show();
    for (const auto& [kind, factory] : EditorFactories()) {
        SCOPED_TRACE(kind);
        const std::string path = dir.file("new." + kind);
        dialogs.saveAnswers = {path};
        // A new species file is made only after its warning is answered Yes.
        if (kind == "SPC") dialogs.answers.push_back(Answer::Yes);
        main.runCommand("mnuFileNew");
        ASSERT_NE(main.activeEditor(), nullptr);
        EXPECT_EQ(main.activeEditor()->kind().toStdString(), kind);
        EXPECT_EQ(settings.runTime("LastActive", ""), path);
        main.runCommand("mnuFileClose");
        QApplication::processEvents();
    }
    for (const UserNotice& n : dialogs.shown) EXPECT_NE(n.title, "Programming Defect...") << n.text;
    main.close();
}

}  // namespace
}  // namespace norvo::gui
