// The fault walk: every command of the main window and every button of every screen and editor
// the shell can make, each run through the event loop as a click would be, under fakes that fail
// at chosen moments. The program must live through each one and say what went wrong: the
// "Programming Defect..." report or a notice. A failure that reaches the application's last
// resort comes from a handler its screen did not wrap: the walk fails on it, naming it.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLocale>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QStandardPaths>
#include <QTabBar>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <set>

#include "app/command_registry.h"
#include "app/screens/application.h"
#include "app/screens/frm_main.h"
#include "base/error_report.h"
#include "base/fault.h"
#include "data/data_store.h"
#include "data/store_routines.h"
#include "support/test_paths.h"
#include "widgets/command_boundary.h"
#include "widgets/data_editor.h"
#include "widgets/number_locale.h"

namespace norvo::gui {
namespace {

namespace fs = std::filesystem;

// ---- fakes -----------------------------------------------------------------------------------

// What the fakes do during one step of the walk.
struct Faults {
    bool dialogs = false;   // the next dialog call throws (the failure notices excepted)
    bool settings = false;  // every settings read and write throws
    int fired = 0;          // faults thrown so far in the step
};

[[noreturn]] void Fire(Faults& faults) {
    ++faults.fired;
    throw ArithmeticFault(FaultNumber::Overflow, kOverflow);
}

// The notices a failure ends with: these are always shown, so that a fault can be seen.
bool IsFailureNotice(const UserNotice& n) {
    return n.title == kDefectTitle || n.text == kFileSaveError || n.text == kCorruptedOrWrongFormat;
}

class FaultingSettings : public MemorySettingsStore {
  public:
    explicit FaultingSettings(Faults& faults) : faults_(faults) {}
    std::string get(const std::string& app, const std::string& section, const std::string& key,
                    const std::string& fallback) const override {
        if (faults_.settings) Fire(faults_);
        return MemorySettingsStore::get(app, section, key, fallback);
    }
    void set(const std::string& app, const std::string& section, const std::string& key,
             const std::string& value) override {
        if (faults_.settings) Fire(faults_);
        MemorySettingsStore::set(app, section, key, value);
    }

  private:
    Faults& faults_;
};

// Answers every question with Yes (or its nearest), every file dialogue with the chosen paths,
// every print dialogue with Cancel; when armed, its next call throws instead.
class FaultingDialogs : public DialogService {
  public:
    explicit FaultingDialogs(Faults& faults) : faults_(faults) {}

    std::vector<UserNotice> shown;
    std::optional<std::string> openAnswer;
    std::optional<std::string> saveAnswer;

    Answer notify(const UserNotice& n) override {
        if (!IsFailureNotice(n)) failWhenArmed();
        shown.push_back(n);
        switch (n.buttons) {
            case Buttons::YesNo:
            case Buttons::YesNoCancel:
                return Answer::Yes;
            case Buttons::RetryCancel:
                return Answer::Cancel;
            case Buttons::AbortRetryIgnore:
                return Answer::Abort;
            default:
                return Answer::Ok;
        }
    }
    std::optional<std::string> openFile(const FileDialogOptions&) override {
        failWhenArmed();
        return openAnswer;
    }
    std::optional<std::string> saveFile(const FileDialogOptions&) override {
        failWhenArmed();
        return saveAnswer;
    }
    bool choosePrinter(const std::string&) override {
        failWhenArmed();
        return false;
    }
    std::optional<std::string> inputBox(const InputBoxOptions&) override {
        failWhenArmed();
        return std::nullopt;
    }

  private:
    void failWhenArmed() {
        if (!faults_.dialogs) return;
        faults_.dialogs = false;
        Fire(faults_);
    }
    Faults& faults_;
};

// ---- the last resort's log ---------------------------------------------------------------------

std::vector<std::string> escapeLog;
QtMessageHandler previousHandler = nullptr;

void CaptureEscapes(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (message.startsWith(kEscapedFailureLog)) {
        escapeLog.push_back(message.toStdString());
        return;
    }
    if (previousHandler) previousHandler(type, context, message);
}

Application& App() {
    return *static_cast<Application*>(QCoreApplication::instance());
}

// Runs what is queued, the reports that wait for the event loop and the deferred deletes.
void Settle() {
    for (int i = 0; i < 4; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
}

// ---- the walk ----------------------------------------------------------------------------------

enum class Files { None, Data, NotAStore, Vanished };

// The conditions of one round of the walk.
struct Mode {
    const char* name;
    bool dialogs;
    bool settings;
    Files files;
};
const Mode kModes[] = {
    {"calm", false, false, Files::None},
    {"dialogs fail", true, false, Files::None},
    {"settings fail", false, true, Files::None},
    {"dialogs fail, data loaded", true, false, Files::Data},
    {"store fails", false, false, Files::NotAStore},
};
// The editors' rounds: the last one takes their file (and its folder) away before each step.
const Mode kEditorModes[] = {
    {"calm", false, false, Files::None},
    {"dialogs fail", true, false, Files::None},
    {"settings fail", false, true, Files::None},
    {"file vanished", false, false, Files::Vanished},
};

// The screens of the shell itself; a failure that escapes them fails the walk.

class FaultWalk : public ::testing::Test {
  protected:
    void SetUp() override {
        data_ = dir_.file("catch.lfq");
        notAStore_ = dir_.file("notastore.lfq");
        std::ofstream(notAStore_) << "not a store";
        // Questions only: the tips would open modal forms.
        settings_.setRunTime("Tip1", "Hide");
        settings_.setRunTime("Tip2", "Hide");
        main_ = new FrmMain(session_, settings_, dialogs_,
                            QString::fromStdString(test::BinDir().string()));
        main_->show();
        QApplication::setActiveWindow(main_);
        SetProgramDialogs(&dialogs_);
        // Modal forms and popups opened by a step are closed at once, as a user would.
        watchdog_.setInterval(10);
        QObject::connect(&watchdog_, &QTimer::timeout, [] {
            if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
            if (QWidget* modal = QApplication::activeModalWidget()) modal->close();
        });
        watchdog_.start();
        // Every screen and editor once, so that the walk knows them by the names on a path.
        for (const auto& [name, factory] : ScreenFactories()) {
            RunCommand(dialogs_,
                       [&, name = name] { remember(main_->context().openScreen(name), name); });
            closeAll();
        }
        for (const auto& [kind, factory] : EditorFactories()) {
            dialogs_.saveAnswer = dir_.file("census." + kind);
            main_->runCommand("mnuFileNew");
            if (DataEditor* ed = main_->activeEditor()) remember(ed->widget(), "editor " + kind);
            closeAll();
        }
    }

    void TearDown() override {
        watchdog_.stop();
        faults_ = {};
        closeAll();
        delete main_.data();
        Settle();
        SetProgramDialogs(nullptr);
    }

    // Closes every child; one that refuses (unsaved work, a failing save) is taken away.
    void closeAll() {
        if (!main_) return;
        main_->mdiArea()->closeAllSubWindows();
        Settle();
        for (QMdiSubWindow* sub : main_->mdiArea()->subWindowList()) delete sub;
        Settle();
    }

    // The files and answers of a mode; runs calm.
    void prepare(const Mode& m) {
        faults_ = {};
        fs::copy_file(test::BinDir() / "Data" / "Simull01.LFQ", data_,
                      fs::copy_options::overwrite_existing);
        std::string active = kNoActiveFile;
        dialogs_.openAnswer.reset();
        dialogs_.saveAnswer.reset();
        if (m.files == Files::Data) {
            active = data_;
            dialogs_.openAnswer = data_;
            dialogs_.saveAnswer = dir_.file("saved" + std::to_string(saved_++) + ".lfq");
        } else if (m.files == Files::NotAStore || m.files == Files::Vanished) {
            active = notAStore_;
            dialogs_.openAnswer = notAStore_;
            dialogs_.saveAnswer = dir_.file("gone/new.lfq");
        }
        settings_.setRunTime(kKeyLastActive, active);
        if (main_ && !main_->isVisible()) main_->show();  // after File, Exit
    }

    // One step: arms the fakes, queues `post` (a click as the event loop delivers it), runs it
    // and checks the outcome. `owner` is whose handler the step runs.
    void step(const Mode& m, const std::string& owner, const std::string& what,
              const std::function<void()>& post) {
        const size_t shownBefore = dialogs_.shown.size();
        const size_t escapesBefore = escapeLog.size();
        faults_.fired = 0;
        faults_.dialogs = m.dialogs;
        faults_.settings = m.settings;
        post();
        Settle();
        faults_.dialogs = faults_.settings = false;
        Settle();
        ++steps_;

        if (faults_.fired > 0) ++faulted_;
        for (size_t i = shownBefore; i < dialogs_.shown.size(); ++i)
            if (IsFailureNotice(dialogs_.shown[i])) ++reports_;
        const std::string where = std::string(m.name) + ": " + what;
        ASSERT_FALSE(main_.isNull()) << where;
        for (size_t i = escapesBefore; i < escapeLog.size(); ++i) {
            const std::string escapeOwner = ownerOf(escapeLog[i], owner);
            ADD_FAILURE() << ownerOf(escapeLog[i], owner) << ": " << where << ": " << escapeLog[i];
        }
        if (faults_.fired > 0 && dialogs_.shown.size() == shownBefore) {
            ADD_FAILURE() << owner << ": " << where << ": a fault ended without a report";
        }
        if (m.files == Files::NotAStore && faults_.fired == 0) {
            for (size_t i = shownBefore; i < dialogs_.shown.size(); ++i) {
                // A file that is not a store is refused with a notice, never as a defect.
                if (dialogs_.shown[i].title == kDefectTitle)
                    ADD_FAILURE() << where << ": " << dialogs_.shown[i].text;
            }
        }
    }

    // The screen or editor a logged escape happened in: the first name on its path that belongs
    // to a screen the walk opened, else the step's owner.
    std::string ownerOf(const std::string& log, const std::string& stepOwner) const {
        const size_t open = log.rfind('[');
        if (open == std::string::npos) return stepOwner;
        const QStringList path = QString::fromStdString(log.substr(open + 1)).chopped(1).split('/');
        for (const QString& segment : path) {
            auto it = screenNames_.find(segment.toStdString());
            if (it != screenNames_.end()) return it->second;
        }
        return "frmMain";
    }

    // Notes the name by which a screen's widget shows on a logged path.
    void remember(QWidget* w, const std::string& owner) {
        if (!w) return;
        screenNames_[w->objectName().isEmpty() ? w->metaObject()->className()
                                               : w->objectName().toStdString()] = owner;
    }

    // Queues what a click on a menu entry or toolbar button does.
    void postCommand(const CommandEntry& e) {
        QAction* a = main_->command(e.control, e.index);
        if (a && a->isEnabled()) {
            QMetaObject::invokeMethod(a, "trigger", Qt::QueuedConnection);
        } else {
            // A disabled entry: its handler all the same, as runCommand gives it.
            QMetaObject::invokeMethod(
                main_, [this, &e] { main_->runCommand(e.control, e.index); }, Qt::QueuedConnection);
        }
    }

    // The buttons a user can press on a screen, by a key that finds them again after the screen
    // is made anew: their object path below the screen and their caption.
    static std::map<std::string, QPointer<QAbstractButton>> buttonsOf(QWidget* screen) {
        static const std::set<QString> internal = {"QTableCornerButton", "QToolBarExtension",
                                                   "QLineEditIconButton"};
        std::map<std::string, QPointer<QAbstractButton>> out;
        if (!screen) return out;
        int unnamed = 0;
        for (QAbstractButton* b : screen->findChildren<QAbstractButton*>()) {
            if (internal.count(b->metaObject()->className()) ||
                qobject_cast<QTabBar*>(b->parentWidget()) || b->isHidden() || !b->isEnabled())
                continue;
            QString key = b->objectName().isEmpty() ? QString("#%1").arg(unnamed++) : QString();
            for (QObject* o = b; o && o != screen; o = o->parent())
                key.prepend(
                    (o->objectName().isEmpty() ? o->metaObject()->className() : o->objectName()) +
                    QString("/"));
            out[(key + " \"" + b->text() + "\"").toStdString()] = b;
        }
        return out;
    }

    // Walks the buttons of a screen or editor that `open` makes (calm), in every mode.
    void walkButtons(const std::string& owner, const std::function<QWidget*()>& open,
                     const Mode* modes, size_t modeCount,
                     const std::function<void(const Mode&)>& beforeStep = {}) {
        for (size_t mi = 0; mi < modeCount; ++mi) {
            const Mode& m = modes[mi];
            closeAll();
            prepare(m);
            QPointer<QWidget> screen = open();
            remember(screen, owner);
            const auto keys = buttonsOf(screen);
            ASSERT_FALSE(screen.isNull() && mi == 0) << owner << " was not made";
            for (const auto& [key, first] : keys) {
                if (screen.isNull()) {
                    closeAll();
                    prepare(m);
                    screen = open();
                    remember(screen, owner);
                } else {
                    prepare(m);
                }
                auto now = buttonsOf(screen);
                auto it = now.find(key);
                if (it == now.end() || it->second.isNull()) continue;
                if (beforeStep) beforeStep(m);
                QPointer<QAbstractButton> button = it->second;
                step(m, owner, owner + " " + key, [button] {
                    if (button) QMetaObject::invokeMethod(button, "click", Qt::QueuedConnection);
                });
                ++buttons_;
            }
        }
    }

    void printFindings() {
        std::cout << "\nFault walk: " << steps_ << " steps (" << buttons_ << " button presses), "
                  << faulted_ << " with a fault, " << reports_ << " reports and store notices.\n";
        // A walk whose fakes never fired would prove nothing.
        EXPECT_GE(faulted_, 20);
        EXPECT_GE(reports_, faulted_);
    }

    test::TempDir dir_;
    std::string data_, notAStore_;
    int saved_ = 0;
    Faults faults_;
    FaultingSettings settings_{faults_};
    FaultingDialogs dialogs_{faults_};
    Session session_;
    QPointer<FrmMain> main_;
    QTimer watchdog_;
    std::map<std::string, std::string> screenNames_;
    int steps_ = 0, buttons_ = 0, faulted_ = 0, reports_ = 0;
};

TEST_F(FaultWalk, EveryCommandOfTheMainWindow) {
    for (const Mode& m : kModes) {
        for (const CommandEntry& e : CommandRegistry()) {
            if (e.kind == CommandKind::Menu || e.kind == CommandKind::Separator) continue;
            closeAll();
            prepare(m);
            // The command is the shell's; the handlers of the screen it opens are the screen's.
            step(m, "frmMain", MenuKey(e), [&] { postCommand(e); });
        }
        for (const ToolbarButton& b : ToolbarButtons()) {
            closeAll();
            prepare(m);
            QPointer<QAction> a = main_->toolbarButton(b.key);
            step(m, "frmMain", "toolbar " + b.key,
                 [a] { QMetaObject::invokeMethod(a, "trigger", Qt::QueuedConnection); });
        }
        closeAll();
        prepare(m);
        QPointer<QAction> help = main_->findChild<QAction*>("actContextHelp");
        ASSERT_FALSE(help.isNull());
        step(m, "frmMain", "F1",
             [help] { QMetaObject::invokeMethod(help, "trigger", Qt::QueuedConnection); });
    }
    printFindings();
}

TEST_F(FaultWalk, EveryButtonOfEveryScreen) {
    for (const auto& [name, factory] : ScreenFactories()) {
        SCOPED_TRACE(name);
        walkButtons(
            name,
            [this, name = name] {
                return RunCommand(dialogs_, [&] { main_->context().openScreen(name); })
                           ? main_->screen(name)
                           : nullptr;
            },
            kModes, std::size(kModes));
    }
    // The help pages' viewer.
    walkButtons(
        "frmBrowser",
        [this]() -> QWidget* {
            main_->runCommand("mnuHelpContents");
            QMdiSubWindow* sub = main_->mdiArea()->activeSubWindow();
            return sub ? sub->widget() : nullptr;
        },
        kModes, std::size(kModes));
    printFindings();
}

TEST_F(FaultWalk, EveryEditorItsButtonsAndTheCommandsRoutedToIt) {
    // The sample files: an editor on one of them has its required boxes filled, so that a save
    // reaches the store. The other kinds start from a new file.
    const std::map<std::string, std::string> samples = {{"LFQ", "Simull01.LFQ"},
                                                        {"ULF", "SimLen.ULF"},
                                                        {"LAA", "SimAge.LAA"},
                                                        {"GIN", "SimTag.GIN"}};
    int made = 0;
    for (const auto& [kind, factory] : EditorFactories()) {
        SCOPED_TRACE(kind);
        std::string folder;
        const auto open = [&, kind = kind]() -> QWidget* {
            // Each editor in a folder of its own, which the last round takes away.
            folder = dir_.file("editor" + std::to_string(made++));
            fs::create_directories(folder);
            const std::string path = folder + "/file." + kind;
            if (auto it = samples.find(kind); it != samples.end()) {
                fs::copy_file(test::BinDir() / "Data" / it->second, path);
                dialogs_.openAnswer = path;
                main_->runCommand("mnuFileOpen");
            } else {
                dialogs_.saveAnswer = path;
                main_->runCommand("mnuFileNew");
            }
            DataEditor* ed = main_->activeEditor();
            return ed ? ed->widget() : nullptr;
        };
        const auto vanish = [&](const Mode& m) {
            if (m.files == Files::Vanished) fs::remove_all(folder);
        };
        const std::string owner = "editor " + kind;
        walkButtons(owner, open, kEditorModes, std::size(kEditorModes), vanish);

        for (const Mode& m : kEditorModes) {
            for (const CommandEntry& e : CommandRegistry()) {
                if (e.kind != CommandKind::Routed) continue;
                closeAll();
                prepare(m);
                ASSERT_NE(open(), nullptr);
                vanish(m);
                const size_t before = dialogs_.shown.size();
                // The command is the shell's; what the editor does with it is the editor's.
                step(m, owner, owner + " " + MenuKey(e), [&] { postCommand(e); });
                if (m.files == Files::Vanished && e.control == "mnuFileSave") {
                    // A save into a folder that is gone says so (or names what it misses).
                    EXPECT_GT(dialogs_.shown.size(), before) << owner;
                    if (samples.count(kind)) {
                        EXPECT_EQ(dialogs_.shown.at(before).text, kFileSaveError) << owner;
                    }
                }
            }
        }
    }
    printFindings();
}

// The last resort itself: a failure that escapes every handler is reported once the event is
// done, and the program goes on.
class Thrower : public QWidget {
  public:
    std::function<void()> onUser;
    bool failPaint = false;
    int paints = 0;

  protected:
    bool event(QEvent* e) override {
        if (e->type() == QEvent::User && onUser) onUser();
        return QWidget::event(e);
    }
    void paintEvent(QPaintEvent*) override {
        ++paints;
        if (failPaint) ThrowDivisionByZero();
    }
};

TEST(LastResort, ReportsWhatEscapesAHandlerAndTheProgramGoesOn) {
    Faults faults;
    FaultingDialogs dialogs(faults);
    SetProgramDialogs(&dialogs);
    Thrower w;
    w.setObjectName("thrower");
    const int before = App().escapedFailures();

    w.onUser = [] { ThrowOverflow(); };
    QCoreApplication::postEvent(&w, new QEvent(QEvent::User));
    Settle();
    EXPECT_EQ(App().escapedFailures(), before + 1);
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown[0].text,
              "Programming defect detected. Overflow (Source:Norvo II; Number:6). Please notify "
              "the developer: the Norvo II development team. ");
    ASSERT_FALSE(escapeLog.empty());
    EXPECT_NE(escapeLog.back().find("[thrower]"), std::string::npos) << escapeLog.back();

    w.onUser = [] {
        const StoreSaving saving;
        throw StoreError("disk full");
    };
    QCoreApplication::postEvent(&w, new QEvent(QEvent::User));
    Settle();
    EXPECT_EQ(dialogs.shown.back().text, "File Save Error. File not saved!");

    // A paint that fails: reported after the paint, once while it waits.
    w.onUser = nullptr;
    w.resize(100, 80);
    w.show();
    Settle();
    w.failPaint = true;
    w.repaint();
    w.repaint();
    EXPECT_EQ(dialogs.shown.size(), 2u);
    Settle();
    EXPECT_EQ(dialogs.shown.size(), 3u);
    EXPECT_EQ(dialogs.shown.back().title, "Programming Defect...");
    EXPECT_GE(w.paints, 2);
    w.failPaint = false;
    w.repaint();  // the widget paints again once the fault is gone
    EXPECT_EQ(App().escapedFailures(), before + 4);
    SetProgramDialogs(nullptr);
}

}  // namespace
}  // namespace norvo::gui

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QStandardPaths::setTestModeEnabled(true);
    norvo::gui::Application app(argc, argv);
    QApplication::setApplicationName("Norvo II tests");
    QApplication::setQuitOnLastWindowClosed(false);
    norvo::gui::previousHandler = qInstallMessageHandler(norvo::gui::CaptureEscapes);
    if (const QByteArray locale = qgetenv("NORVO_TEST_LOCALE"); !locale.isEmpty())
        norvo::gui::UseNumberLocale(QLocale(QString::fromLatin1(locale)));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
