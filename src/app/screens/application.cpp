#include "app/screens/application.h"

#include <QApplication>
#include <QMainWindow>

namespace norvo::gui {

int RunApplication(int argc, char** argv) {
    QApplication app(argc, argv);
    QMainWindow window;
    window.setWindowTitle("Norvo II");
    window.show();
    return app.exec();
}

}  // namespace norvo::gui
