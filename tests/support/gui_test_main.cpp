// Test main for widget and rendering tests: an offscreen QApplication, test-mode settings.
// NORVO_TEST_LOCALE (say "de_DE") runs the tests in that locale, which needs no system locale.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>
#include <QStandardPaths>

#include "widgets/number_locale.h"

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QStandardPaths::setTestModeEnabled(true);
    QApplication app(argc, argv);
    QApplication::setApplicationName("Norvo II tests");
    const QByteArray locale = qgetenv("NORVO_TEST_LOCALE");
    norvo::gui::UseNumberLocale(locale.isEmpty() ? QLocale::system()
                                                 : QLocale(QString::fromLatin1(locale)));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
