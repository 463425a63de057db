#include "growth/screens/frm_appledoorn.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <cstdlib>

#include "growth/appeldoorn.h"
#include "support/growth_fit_fixtures.h"
#include "support/locale_text.h"
#include "support/screen_services.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/plot_view.h"

namespace norvo::gui {
namespace {

void Shot(QWidget* w, const std::string& name) {
    test::SaveShot(w, name, 1100, 760);
}

struct FrmAppledoornTest : ::testing::Test {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};
    test::TempDir dir;
};

TEST_F(FrmAppledoornTest, ComputesFromTheMatrixAndFillsTheSummary) {
    const auto path = test::MakeGinFile(dir.file("t.gin"), test::SeasonalGinRows(12));
    settings.setRunTime(kKeyLastActive, path);
    FrmAppledoorn f(ctx);
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_EQ(f.tabs()->tabText(0), kApParametersTab);
    EXPECT_EQ(f.txtParam(0)->text(), test::Local("81.00"));  // the largest tagged length
    EXPECT_EQ(f.txtParam(3)->text(), test::Local("0.01"));
    f.computeButton()->click();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown[0].title, kApSuccessTitle);
    ASSERT_NE(f.result(), nullptr);
    EXPECT_NEAR(f.result()->fit.b[kApLoo], 90, 0.5);
    EXPECT_EQ(f.summary()->item(0, 0)->text(), "Loo");
    EXPECT_FALSE(f.rBox()->text().isEmpty());
    EXPECT_TRUE(f.txtRemarks()->toPlainText().endsWith("marked ***."));
    f.selectParameter(kApWP);
    EXPECT_EQ(f.selectedBox(0)->text(), f.summary()->item(kApWP, 1)->text().trimmed());
    f.tabs()->setCurrentIndex(2);
    Shot(&f, "appledoorn_summary");
    f.tabs()->setCurrentIndex(1);
    Shot(&f, "appledoorn_curve");

    // Fixed C and WP: constants with "n.a."; then a check that fails keeps its own words.
    dialogs.shown.clear();
    for (int i : {6, 7, 8, 9, 10, 11}) f.txtParam(i)->setText("0");
    f.computeButton()->click();
    ASSERT_NE(f.result(), nullptr);
    EXPECT_EQ(f.summary()->item(kApC, 1)->text().right(3), "***");
    EXPECT_EQ(f.summary()->item(kApC, 2)->text(), "n.a.");
    EXPECT_EQ(f.summary()->item(kApWP, 3)->text(), "n.a.");
    dialogs.shown.clear();
    f.txtParam(3)->setText("5");
    f.computeButton()->click();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown[0].text, kApKOrderText);
    EXPECT_EQ(f.result(), nullptr);
}

TEST_F(FrmAppledoornTest, TooFewRowsShowTheRefusalThenTheClosingNotice) {
    const auto path = test::MakeGinFile(dir.file("f.gin"), test::SeasonalGinRows(4));
    settings.setRunTime(kKeyLastActive, path);
    FrmAppledoorn f(ctx);
    f.computeButton()->click();
    ASSERT_EQ(dialogs.shown.size(), 2u);
    EXPECT_EQ(dialogs.shown[0].text, kMoreParamsText);
    EXPECT_EQ(dialogs.shown[1].text, kApSuccessText);
    EXPECT_EQ(f.result(), nullptr);
}

}  // namespace
}  // namespace norvo::gui
