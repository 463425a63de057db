#include "app/screens/frm_main.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLocale>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QUrl>

#include "app/active_file.h"
#include "app/file_filter.h"
#include "app/main_geometry.h"
#include "app/screens/frm_about.h"
#include "app/screens/frm_browser.h"
#include "app/shell_texts.h"
#include "app/version.h"
#include "data/file_kind.h"
#include "data/screens/table_interchange.h"
#include "data/store_routines.h"
#include "data/write_notices.h"
#include "widgets/command_boundary.h"
#include "widgets/data_editor.h"

namespace norvo::gui {

namespace {

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

// The path an editor shows: its caption, which always holds the full path of its file.
std::string EditorPath(DataEditor* ed) {
    QString caption = ed->widget()->windowTitle();
    caption.remove("[*]");
    if (caption.isEmpty()) caption = ed->filePath();
    return caption.toStdString();
}

QKeySequence ShortcutOf(const std::string& control) {
    static const std::map<std::string, QKeySequence> keys = {
        {"mnuFileNew", QKeySequence::New},     {"mnuFileOpen", QKeySequence::Open},
        {"mnuFileSave", QKeySequence::Save},   {"mnuFilePrint", QKeySequence::Print},
        {"mnuEditCut", QKeySequence::Cut},     {"mnuEditCopy", QKeySequence::Copy},
        {"mnuEditPaste", QKeySequence::Paste}, {"mnuHelpContents", QKeySequence(Qt::Key_F1)},
    };
    auto it = keys.find(control);
    return it == keys.end() ? QKeySequence() : it->second;
}

// Toolbar pictures: the desktop theme's where it has them, else the style's own; Cut, Copy and
// Paste show their names when neither has a picture.
QIcon IconOf(const QStyle* style, const std::string& key) {
    static const std::map<std::string, std::pair<const char*, int>> icons = {
        {"New", {"document-new", QStyle::SP_FileIcon}},
        {"Open", {"document-open", QStyle::SP_DialogOpenButton}},
        {"Save", {"document-save", QStyle::SP_DialogSaveButton}},
        {"Print", {"document-print", -1}},
        {"Cut", {"edit-cut", -1}},
        {"Copy", {"edit-copy", -1}},
        {"Paste", {"edit-paste", -1}},
        {"Help", {"help-contents", QStyle::SP_DialogHelpButton}},
    };
    const auto& [theme, standard] = icons.at(key);
    QIcon icon = QIcon::fromTheme(theme);
    if (icon.isNull() && standard >= 0)
        icon = style->standardIcon(static_cast<QStyle::StandardPixmap>(standard));
    return icon;
}

}  // namespace

FrmMain::FrmMain(Session& session, SettingsStore& settings, DialogService& dialogs,
                 QString programFolder, QWidget* parent)
    : QMainWindow(parent),
      ctx_{session, settings, dialogs, programFolder},
      programFolder_(std::move(programFolder)),
      screenFactories_(ScreenFactories()),
      editorFactories_(EditorFactories()) {
    setObjectName("frmMain");
    ctx_.enableEditCommands = [this](const std::string& token) { EnableEditCommands(token); };
    ctx_.setEditorMenus = [this](bool isLfq) { setEditorMenus(isLfq); };
    ctx_.showStatus = [this](const QString& text) { statusBar()->showMessage(text, 5000); };
    ctx_.popupTableMenu = [this](const QPoint& at) { menu(kPopupTable)->popup(at); };
    ctx_.popupLinkMenu = [this](const QPoint& at) {
        QAction* chosen = menu(kPopupLinks)->exec(at);
        return chosen ? chosen->property("index").toInt() : -1;
    };
    ctx_.showHelp = [this](const QString& name) { showHelp(name); };
    ctx_.openScreen = [this](const std::string& name) { return showScreen(name); };

    mdi_ = new QMdiArea(this);
    mdi_->setObjectName("mdiArea");
    mdi_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdi_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(mdi_);
    connect(mdi_, &QMdiArea::subWindowActivated, this,
            Guarded(ctx_.dialogs, [this](QMdiSubWindow* sub) { onChildActivated(sub); }));

    buildMenus();
    buildToolbar();
    statusBar()->setObjectName("sbMain");

    // Load: placement, caption, no active file, commands off, numeric keys.
    applyPlacement();
    setWindowTitle(Q(MainCaption()));
    ActiveFileSet(ctx_.settings).reset();
    EnableEditCommands(kTokenNoActiveForm);
    command("mnuFileSaveAs")->setEnabled(false);
    const QString tenth = QLocale().toString(0.1, 'f', 1);
    ctx_.session.numericKeys = MakeNumericKeys(tenth.size() > 1 ? tenth.at(1).toLatin1() : '.');
    refreshBuiltState();
}

FrmMain::~FrmMain() {
    // Children hold references into the context: tear them down while it still stands.
    editors_.clear();
    delete mdi_;
    mdi_ = nullptr;
}

void FrmMain::setScreenFactories(std::map<std::string, ScreenFactory> factories) {
    screenFactories_ = std::move(factories);
    refreshBuiltState();
}

void FrmMain::setEditorFactories(std::map<std::string, EditorFactory> factories) {
    editorFactories_ = std::move(factories);
}

QAction* FrmMain::command(const std::string& control, int index) const {
    auto it = actions_.find({control, index});
    return it == actions_.end() ? nullptr : it->second;
}

QMenu* FrmMain::menu(const std::string& key) const {
    auto it = menus_.find(key);
    return it == menus_.end() ? nullptr : it->second;
}

QAction* FrmMain::toolbarButton(const std::string& key) const {
    auto it = toolButtons_.find(key);
    return it == toolButtons_.end() ? nullptr : it->second;
}

void FrmMain::buildMenus() {
    for (const CommandEntry& e : CommandRegistry()) {
        QMenu* parent = e.parent.empty() ? nullptr : menu(e.parent);
        if (e.kind == CommandKind::Menu) {
            QMenu* m = nullptr;
            if (e.popup) {
                m = new QMenu(Q(e.caption), this);
            } else if (parent) {
                m = parent->addMenu(Q(e.caption));
            } else {
                m = menuBar()->addMenu(Q(e.caption));
            }
            m->setObjectName(Q(e.control));
            m->setToolTipsVisible(true);
            if (e.isArray()) m->setProperty("index", e.index);
            menus_[MenuKey(e)] = m;
            continue;
        }
        if (!parent) continue;
        QAction* a = nullptr;
        if (e.kind == CommandKind::Separator) {
            a = parent->addSeparator();
        } else {
            a = parent->addAction(Q(e.caption));
            const CommandEntry* entry = &e;
            connect(a, &QAction::triggered, this, [this, entry] { dispatch(*entry); });
        }
        a->setObjectName(Q(e.control));
        if (e.isArray()) a->setProperty("index", e.index);
        if (const QKeySequence keys = ShortcutOf(e.control); !keys.isEmpty()) a->setShortcut(keys);
        actions_[{e.control, e.index}] = a;
    }
    // The recent-file slots and their separator stay blank: they show nothing.
    for (int i = 0; i < 3; ++i) command("mnuFileMRU", i)->setVisible(false);
    command("mnuFileBar4")->setVisible(false);
    // Table interchange with spreadsheets stands beside the other ways in and out of files.
    AddTableInterchangeEntries(menu(kMenuFile), command("mnuFileBar3"), ctx_,
                               [this] { return activeChildPath(); });

    // The Window menu lists the open children below its four commands.
    QMenu* window = menu(kMenuWindow);
    connect(window, &QMenu::aboutToShow, this, Guarded(ctx_.dialogs, [this, window] {
                for (QAction* a : window->actions()) {
                    if (!a->property("windowList").toBool()) continue;
                    window->removeAction(a);
                    a->deleteLater();
                }
                const auto subs = mdi_->subWindowList();
                if (subs.isEmpty()) return;
                QAction* bar = window->addSeparator();
                bar->setProperty("windowList", true);
                for (int i = 0; i < subs.size(); ++i) {
                    QPointer<QMdiSubWindow> sub = subs[i];
                    QAction* a =
                        window->addAction(QString("&%1 %2").arg(i + 1).arg(sub->windowTitle()));
                    a->setProperty("windowList", true);
                    a->setCheckable(true);
                    a->setChecked(sub == mdi_->activeSubWindow());
                    connect(a, &QAction::triggered, this, Guarded(ctx_.dialogs, [this, sub] {
                                if (sub) mdi_->setActiveSubWindow(sub);
                            }));
                }
            }));

    for (const char* view : {"mnuViewToolbar", "mnuViewStatusBar"}) {
        command(view)->setCheckable(true);
        command(view)->setChecked(true);
    }
    // F1 opens the page of the window in front; Help, Contents opens the contents.
    auto* f1 = new QAction(this);
    f1->setObjectName("actContextHelp");
    f1->setShortcut(QKeySequence::HelpContents);
    f1->setShortcutContext(Qt::ApplicationShortcut);
    addAction(f1);
    command("mnuHelpContents")->setShortcut(QKeySequence());
    connect(f1, &QAction::triggered, this, Guarded(ctx_.dialogs, [this] {
                QMdiSubWindow* sub = mdi_->activeSubWindow();
                QString name;
                if (sub && sub->widget()) name = sub->widget()->property("screenName").toString();
                showHelp(name);
            }));
}

void FrmMain::buildToolbar() {
    toolbar_ = addToolBar("Toolbar");
    toolbar_->setObjectName("tbMain");
    toolbar_->setMovable(false);
    toolbar_->setIconSize(QSize(20, 20));
    for (const ToolbarButton& b : ToolbarButtons()) {
        if (b.key == "Cut" || b.key == "Help") toolbar_->addSeparator();
        QAction* a = toolbar_->addAction(IconOf(style(), b.key), Q(b.key));
        a->setObjectName(Q(b.key));
        a->setToolTip(Q(PlainCaption(FindCommand(b.control)->caption)));
        const std::string control = b.control;
        connect(a, &QAction::triggered, this, [this, control] { runCommand(control); });
        toolButtons_[b.key] = a;
    }
}

void FrmMain::refreshBuiltState() {
    for (const CommandEntry& e : CommandRegistry()) {
        if (e.kind != CommandKind::Screen) continue;
        QAction* a = command(e.control, e.index);
        const bool built = screenFactories_.count(e.screen) != 0;
        a->setEnabled(built);
        const QString tip = built ? QString() : Q(ComingTip(e));
        a->setStatusTip(tip);
        a->setToolTip(built ? Q(PlainCaption(e.caption)) : tip);
    }
}

void FrmMain::applyPlacement() {
    const MainPlacement p = LoadMainPlacement(ctx_.settings);
    move(TwipsToPixels(p.left), TwipsToPixels(p.top));
    resize(TwipsToPixels(p.width), TwipsToPixels(p.height));
    if (p.windowState == kWindowMaximized) setWindowState(Qt::WindowMaximized);
    if (p.windowState == kWindowMinimized) setWindowState(Qt::WindowMinimized);
}

void FrmMain::closeEvent(QCloseEvent* event) {
    // Children first: an editor with unsaved changes may ask, and may stay open.
    RunCommand(ctx_.dialogs, [this] { mdi_->closeAllSubWindows(); });
    if (!mdi_->subWindowList().isEmpty()) {
        event->ignore();
        return;
    }
    // A placement that cannot be kept is reported and does not keep the program open.
    RunCommand(ctx_.dialogs, [this] {
        MainPlacement p;
        p.windowState = isMinimized()   ? kWindowMinimized
                        : isMaximized() ? kWindowMaximized
                                        : kWindowNormal;
        p.left = PixelsToTwips(pos().x());
        p.top = PixelsToTwips(pos().y());
        p.width = PixelsToTwips(width());
        p.height = PixelsToTwips(height());
        SaveMainPlacement(ctx_.settings, p);
    });
    event->accept();
}

void FrmMain::EnableEditCommands(const std::string& token) {
    const auto state = EditCommandsFor(token);
    if (!state) return;
    command("mnuFileClose")->setEnabled(state->close);
    command("mnuFileSave")->setEnabled(state->save);
    command("mnuEditCut")->setEnabled(state->cut);
    command("mnuEditCopy")->setEnabled(state->copy);
    command("mnuEditPaste")->setEnabled(state->paste);
    command("mnuInsertRow")->setEnabled(state->insertRow);
    command("mnuInsertColumn")->setEnabled(state->insertColumn);
    command("mnuDeleteRow")->setEnabled(state->deleteRow);
    command("mnuDeleteColumn")->setEnabled(state->deleteColumn);
    toolbarButton("Save")->setEnabled(state->toolbarSave);
}

void FrmMain::setEditorMenus(bool isLfq) {
    const EditorMenuState s = EditorMenusFor(isLfq);
    command("mnuTable", 0)->setEnabled(s.tableInsertRow);
    command("mnuTable", 1)->setEnabled(s.tableInsertColumn);
    command("mnuTable", 3)->setEnabled(s.tableDeleteRow);
    command("mnuTable", 4)->setEnabled(s.tableDeleteColumn);
    command("mnuTable", 5)->setVisible(s.tableSeparator2);
    command("mnuTable", 6)->setEnabled(s.tableSubheader);
    command("mnuInsertRow")->setEnabled(s.insertRow);
    command("mnuInsertColumn")->setEnabled(s.insertColumn);
    command("mnuDeleteRow")->setEnabled(s.deleteRow);
    command("mnuDeleteColumn")->setEnabled(s.deleteColumn);
    command("mnuSampleHeader")->setEnabled(s.sampleHeader);
}

void FrmMain::onChildActivated(QMdiSubWindow* sub) {
    if (!sub || !sub->widget()) {
        if (mdi_->subWindowList().isEmpty()) EnableEditCommands(kTokenNoActiveForm);
        return;
    }
    auto it = editors_.find(sub->widget());
    DataEditor* ed = it != editors_.end() ? it->second : dynamic_cast<DataEditor*>(sub->widget());
    if (!ed) {
        EnableEditCommands(kTokenNoActiveForm);
        return;
    }
    // An editor in front: its kind sets the commands, its path becomes "LastActive".
    const std::string path = EditorPath(ed);
    EnableEditCommands(ed->kind().toStdString());
    ActiveFileSet(ctx_.settings).setActive(path);
    setEditorMenus(ed->kind() == "LFQ");
}

DataEditor* FrmMain::activeEditor() const {
    QMdiSubWindow* sub = mdi_ ? mdi_->activeSubWindow() : nullptr;
    if (!sub && mdi_ && mdi_->subWindowList().size() == 1) sub = mdi_->subWindowList().first();
    if (!sub || !sub->widget()) return nullptr;
    auto it = editors_.find(sub->widget());
    return it != editors_.end() ? it->second : dynamic_cast<DataEditor*>(sub->widget());
}

QWidget* FrmMain::screen(const std::string& name) const {
    auto it = screens_.find(name);
    return it == screens_.end() ? nullptr : it->second.data();
}

QMdiSubWindow* FrmMain::subWindowOf(QWidget* child) const {
    for (QMdiSubWindow* s : mdi_->subWindowList())
        if (s->widget() == child) return s;
    return nullptr;
}

void FrmMain::runCommand(const std::string& control, int index) {
    if (const CommandEntry* e = FindCommand(control, index)) dispatch(*e);
}

void FrmMain::dispatch(const CommandEntry& e) {
    RunCommand(ctx_.dialogs, [&] { handle(e); });
}

void FrmMain::handle(const CommandEntry& e) {
    const std::string& c = e.control;
    switch (e.kind) {
        case CommandKind::Menu:
        case CommandKind::Separator:
        case CommandKind::Inert:
            return;
        case CommandKind::Screen:
            openScreen(e);
            return;
        default:
            break;
    }
    if (c == "mnuFileNew") {
        fileNew();
    } else if (c == "mnuFileOpen") {
        fileOpen();
    } else if (c == "mnuFileClose") {
        fileClose();
    } else if (c == "mnuFileSave") {
        fileSave();
    } else if (c == "mnuFileSaveAs") {
        fileSaveAs();
    } else if (c == "mnuFilePrintSetup") {
        ctx_.dialogs.choosePrinter(kPrinterSetupTitle);
    } else if (c == "mnuFilePrint") {
        filePrint();
    } else if (c == "mnuExport") {
        fileExport();
    } else if (c == "mnuFileExit") {
        close();
    } else if (c == "mnuEditCut") {
        sendKeystroke(Qt::Key_X);
    } else if (c == "mnuEditCopy") {
        sendKeystroke(Qt::Key_C);
    } else if (c == "mnuEditPaste") {
        sendKeystroke(Qt::Key_V);
    } else if (c == "mnuViewToolbar") {
        toolbar_->setVisible(!toolbar_->isVisible());
        command(c)->setChecked(toolbar_->isVisible());
    } else if (c == "mnuViewStatusBar") {
        statusBar()->setVisible(!statusBar()->isVisible());
        command(c)->setChecked(statusBar()->isVisible());
    } else if (c == "mnuInsertRow") {
        tableCommand(0);
    } else if (c == "mnuInsertColumn") {
        tableCommand(1);
    } else if (c == "mnuDeleteRow") {
        tableCommand(3);
    } else if (c == "mnuDeleteColumn") {
        tableCommand(4);
    } else if (c == "mnuTable") {
        tableCommand(e.index);
    } else if (c == "mnuViewRefresh") {
        ctx_.dialogs.inform(kRefreshPlaceholder);
    } else if (c == "mnuSampleHeader") {
        sampleHeader();
    } else if (c == "mnuWindowCascade" || c == "mnuWindowTileHorizontal" ||
               c == "mnuWindowTileVertical" || c == "mnuWindowArrangeIcons") {
        arrange(c);
    } else if (c == "mnuHelpContents") {
        showHelp({});
    } else if (c == "mnuHelpWeb") {
        auto* browser = new FrmBrowser(ctx_, QUrl::fromLocalFile(helpPageFor("web")));
        browser->setAttribute(Qt::WA_DeleteOnClose);
        browser->setProperty("screenName", "frmBrowser");
        mdi_->addSubWindow(browser)->show();
    } else if (c == "mnuHelpAbout") {
        auto* about = new FrmAbout(ctx_.dialogs, this);
        about->setAttribute(Qt::WA_DeleteOnClose);
        about->setWindowModality(Qt::ApplicationModal);
        about->show();
    }
}

void FrmMain::openScreen(const CommandEntry& e) {
    if (e.gated() &&
        !GateCheck(ctx_.settings, ctx_.dialogs, e.requiredKind, e.gateTitle, e.gateText))
        return;
    showScreen(e.screen);
}

QWidget* FrmMain::showScreen(const std::string& name) {
    // One shared instance per screen: a repeated command shows the same form again.
    if (QWidget* open = screen(name)) {
        if (QMdiSubWindow* sub = subWindowOf(open)) {
            sub->showNormal();
            mdi_->setActiveSubWindow(sub);
        }
        return open;
    }
    auto it = screenFactories_.find(name);
    if (it == screenFactories_.end()) return nullptr;
    QWidget* w = it->second(ctx_, nullptr);
    if (!w) return nullptr;
    w->setProperty("screenName", Q(name));
    w->setAttribute(Qt::WA_DeleteOnClose);
    QMdiSubWindow* sub = mdi_->addSubWindow(w);
    sub->setAttribute(Qt::WA_DeleteOnClose);
    screens_[name] = w;
    sub->show();
    mdi_->setActiveSubWindow(sub);
    return w;
}

DataEditor* FrmMain::openEditor(const std::string& kind, const std::string& path, bool readFile) {
    auto it = editorFactories_.find(kind);
    if (it == editorFactories_.end()) {
        statusBar()->showMessage(Q(kind + kEditorComingSuffix), 8000);
        return nullptr;
    }
    DataEditor* ed = it->second(ctx_, nullptr);
    if (!ed) return nullptr;
    QWidget* w = ed->widget();
    if (const FileKind* k = FindKind(kind)) w->setProperty("screenName", k->editor);
    // The editor has its file, shown in its caption, before anything can reach it.
    ed->setFilePath(Q(path));
    w->setAttribute(Qt::WA_DeleteOnClose);
    editors_[w] = ed;
    connect(w, &QObject::destroyed, this, [this, w] { editors_.erase(w); });
    QMdiSubWindow* sub = mdi_->addSubWindow(w);
    sub->setAttribute(Qt::WA_DeleteOnClose);
    sub->show();
    mdi_->setActiveSubWindow(sub);
    if (readFile) ed->OpenFile();
    return ed;
}

void FrmMain::fileNew() {
    FileDialogOptions o;
    o.title = kNewDialogTitle;
    o.filter = AllKindsFilter(false);
    o.startFolder = programFolder_.toStdString();
    o.defaultExtension = kDefaultExtension;
    o.overwritePrompt = true;
    const auto path = ctx_.dialogs.saveFile(o);
    if (!path || path->empty()) return;
    EnableEditCommands(kTokenWithFile);
    command("mnuFileSaveAs")->setEnabled(false);
    const FileKind* kind = KindOfFile(*path);
    if (!kind) return;
    const std::string code = kind->code;
    if (code == "SPC" &&
        !ctx_.dialogs.askYesNo(kSpeciesWarningText, kSpeciesWarningTitle, Icon::Warning))
        return;
    if (!CopyTemplate(*path, programFolder_.toStdString())) {
        // The template is there: it is the chosen place that cannot be written.
        const std::string templ = TemplatePathOf(*kind, programFolder_.toStdString());
        if (FileExists(templ))
            ctx_.dialogs.notify({CannotWriteText(*path), kAppTitle, Buttons::Ok, Icon::Warning});
        else
            ctx_.dialogs.notify({TemplateMissingText(templ, *path), kFileNotFoundTitle, Buttons::Ok,
                                 Icon::Warning});
        return;
    }
    openEditor(code, *path, false);
}

void FrmMain::fileOpen() {
    FileDialogOptions o;
    o.title = kOpenDialogTitle;
    o.filter = AllKindsFilter(true);
    o.startFolder = programFolder_.toStdString();
    o.defaultExtension = kDefaultExtension;
    o.mustExist = true;
    const auto path = ctx_.dialogs.openFile(o);
    if (!path || path->empty()) return;
    EnableEditCommands(kTokenWithFile);
    command("mnuFileSaveAs")->setEnabled(true);
    const FileKind* kind = KindOfFile(*path);
    if (!kind) return;  // any other extension does nothing
    openEditor(kind->code, *path, true);
}

void FrmMain::fileSave() {
    DataEditor* ed = activeEditor();
    if (!ed) return;
    command("mnuFileSaveAs")->setEnabled(true);
    ed->SaveFile();
}

void FrmMain::fileSaveAs() {
    DataEditor* ed = activeEditor();
    if (!ed) return;
    const std::string current = EditorPath(ed);
    const std::string code = RightmostThreeUpper(current);
    const FileKind* kind = FindKind(code);
    FileDialogOptions o;
    o.title = kSaveAsDialogTitle;
    o.filter = SaveAsFilterFor(kind ? code : std::string());
    o.startFolder = QFileInfo(Q(current)).absolutePath().toStdString();
    o.defaultExtension = kind ? kind->extension : "";
    o.overwritePrompt = true;
    const auto path = ctx_.dialogs.saveFile(o);
    if (!path || path->empty()) return;
    ed->SaveFileAs(Q(*path));
}

void FrmMain::filePrint() {
    DataEditor* ed = activeEditor();
    if (!ed) return;
    // A cancelled print dialogue ends the command quietly.
    if (!ctx_.dialogs.choosePrinter(kPrintDialogTitle)) return;
    ed->PrintFile();
}

QString FrmMain::activeChildPath() const {
    if (DataEditor* ed = activeEditor()) return Q(EditorPath(ed));
    QMdiSubWindow* sub = mdi_->activeSubWindow();
    return sub && sub->widget() ? sub->widget()->windowTitle() : QString();
}

void FrmMain::fileExport() {
    DataEditor* ed = activeEditor();
    if (mdi_->subWindowList().isEmpty() || !ed || !FileExists(activeChildPath().toStdString())) {
        ctx_.dialogs.notify({kNoDataFileActive, kInvalidActionTitle, Buttons::Ok, Icon::None});
        return;
    }
    ed->Export();
}

void FrmMain::fileClose() {
    if (QMdiSubWindow* sub = mdi_->activeSubWindow()) sub->close();
}

void FrmMain::tableCommand(int index) {
    DataEditor* ed = activeEditor();
    if (!ed) return;
    switch (index) {
        case 0:
            ed->InsertRow();
            break;
        case 1:
            ed->InsertCol();
            break;
        case 3:
            ed->DeleteRow();
            break;
        case 4:
            ed->DeleteCol(ed->activeColumn());
            break;
        case 6:
            ed->AccessSubheader();
            break;
        default:
            break;
    }
}

void FrmMain::sampleHeader() {
    DataEditor* ed = activeEditor();
    const std::string path = activeChildPath().toStdString();
    if (mdi_->subWindowList().isEmpty() || !ed || !FileExists(path) ||
        RightmostThreeUpper(path) != "LFQ") {
        ctx_.dialogs.notify({kSampleHeaderNeedsLfq, kInvalidActionTitle, Buttons::Ok, Icon::None});
        return;
    }
    ctx_.session.sampleHeaderColumn = ed->activeColumn();
    ed->AccessSubheader();
}

void FrmMain::sendKeystroke(int key) {
    // The control in focus does the work, as if the user had pressed Ctrl with the key.
    QWidget* target = QApplication::focusWidget();
    if (!target) return;
    QKeyEvent press(QEvent::KeyPress, key, Qt::ControlModifier);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::ControlModifier);
    QApplication::sendEvent(target, &press);
    QApplication::sendEvent(target, &release);
}

void FrmMain::arrange(const std::string& how) {
    if (how == "mnuWindowCascade") {
        mdi_->cascadeSubWindows();
        return;
    }
    const QRect area = mdi_->viewport()->rect();
    if (how == "mnuWindowArrangeIcons") {
        // Minimised children in a row along the bottom edge.
        int x = 0;
        for (QMdiSubWindow* s : mdi_->subWindowList()) {
            if (!s->isMinimized()) continue;
            s->move(x, area.height() - s->height());
            x += s->width();
        }
        return;
    }
    QList<QMdiSubWindow*> windows;
    for (QMdiSubWindow* s : mdi_->subWindowList())
        if (!s->isMinimized() && s->isVisible()) windows.append(s);
    if (windows.isEmpty()) return;
    const int n = static_cast<int>(windows.size());
    for (int i = 0; i < n; ++i) {
        windows[i]->showNormal();
        if (how == "mnuWindowTileHorizontal") {
            // One above the other, each the full width.
            const int h = area.height() / n;
            windows[i]->setGeometry(0, i * h, area.width(), h);
        } else {
            // Side by side, each the full height.
            const int w = area.width() / n;
            windows[i]->setGeometry(i * w, 0, w, area.height());
        }
    }
}

QString FrmMain::helpPageFor(const QString& screenName) const {
    const QDir help(QDir(programFolder_).filePath("Help"));
    if (!screenName.isEmpty() && QFileInfo::exists(help.filePath(screenName + ".html")))
        return help.filePath(screenName + ".html");
    return help.filePath("index.html");
}

void FrmMain::showHelp(const QString& screenName) {
    const QUrl page = QUrl::fromLocalFile(helpPageFor(screenName));
    auto* browser = qobject_cast<FrmBrowser*>(helpBrowser_.data());
    if (!browser) {
        browser = new FrmBrowser(ctx_, QUrl::fromLocalFile(helpPageFor({})));
        browser->setAttribute(Qt::WA_DeleteOnClose);
        browser->setProperty("screenName", "frmBrowser");
        helpBrowser_ = browser;
        QMdiSubWindow* sub = mdi_->addSubWindow(browser);
        sub->setAttribute(Qt::WA_DeleteOnClose);
        sub->resize(std::min(680, mdi_->viewport()->width()),
                    std::min(520, mdi_->viewport()->height()));
        sub->show();
    }
    browser->navigate(page);
    if (QMdiSubWindow* sub = subWindowOf(browser)) {
        sub->showNormal();
        mdi_->setActiveSubWindow(sub);
    }
}

}  // namespace norvo::gui
