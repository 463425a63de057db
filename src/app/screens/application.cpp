#include "app/screens/application.h"

#include <QApplication>
#include <memory>

#include "app/screens/frm_main.h"
#include "app/screens/frm_splash.h"
#include "base/settings_store.h"
#include "widgets/qt_dialog_service.h"
#include "widgets/qt_settings_store.h"

namespace norvo::gui {

int RunApplication(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(kAppTitle);
    QApplication::setOrganizationName("Norvo");

    Session session;
    QtSettingsStore settings;
    QtDialogService dialogs;
    std::unique_ptr<FrmMain> main;

    // The splash form comes first; its timer makes the main window and closes the splash.
    auto* splash = new FrmSplash([&] {
        main = std::make_unique<FrmMain>(session, settings, dialogs,
                                         QApplication::applicationDirPath());
        dialogs.setParentWidget(main.get());
        main->context().printer = [&dialogs] { return dialogs.printer(); };
        main->show();
    });
    splash->show();
    const int code = app.exec();
    main.reset();
    return code;
}

}  // namespace norvo::gui
