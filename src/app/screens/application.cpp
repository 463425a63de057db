#include "app/screens/application.h"

#include <QLocale>
#include <QPointer>
#include <QStringList>
#include <memory>

#include "app/screens/frm_main.h"
#include "app/screens/frm_splash.h"
#include "base/settings_store.h"
#include "widgets/command_boundary.h"
#include "widgets/number_locale.h"
#include "widgets/qt_dialog_service.h"
#include "widgets/qt_settings_store.h"

namespace norvo::gui {

namespace {

// "frmMain/mdiArea/.../frmLmax/cmdOpen": where a failure happened, for the log.
QString ObjectPath(const QObject* object) {
    QStringList names;
    for (; object; object = object->parent())
        names.prepend(object->objectName().isEmpty() ? object->metaObject()->className()
                                                     : object->objectName());
    return names.join('/');
}

}  // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    // Boxes, grids and conversions all follow the user's locale as Qt sees it.
    UseNumberLocale(QLocale::system());
}

bool Application::notify(QObject* receiver, QEvent* event) {
    const QPointer<QObject> target(receiver);  // a handler may have deleted its object
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        // The event may be a paint: the report waits until the event is done.
        ++escaped_;
        const UserNotice notice = CurrentFailureNotice();
        qWarning("%s: %s [%s]", kEscapedFailureLog, notice.text.c_str(),
                 qUtf8Printable(ObjectPath(target.data())));
        ShowFailureNoticeLater(notice);
        return false;
    }
}

int RunApplication(int argc, char** argv) {
    Application app(argc, argv);
    QApplication::setApplicationName(kAppTitle);
    QApplication::setOrganizationName("Norvo");

    Session session;
    QtSettingsStore settings;
    QtDialogService dialogs;
    SetProgramDialogs(&dialogs);
    std::unique_ptr<FrmMain> main;

    // The splash form comes first; its timer makes the main window and closes the splash.
    auto* splash = new FrmSplash([&] {
        RunCommand(dialogs, [&] {
            main = std::make_unique<FrmMain>(session, settings, dialogs,
                                             QApplication::applicationDirPath());
            dialogs.setParentWidget(main.get());
            main->context().printer = [&dialogs] { return dialogs.printer(); };
            main->show();
        });
    });
    splash->show();
    const int code = app.exec();
    main.reset();
    SetProgramDialogs(nullptr);
    return code;
}

}  // namespace norvo::gui
