#include "growth/screens/frm_elefan1.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStringList>
#include <QTabWidget>
#include <QTableWidget>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "base/format.h"
#include "growth/elefan_lfq.h"
#include "growth/elefan_search_plot.h"
#include "support/lfq_fixtures.h"
#include "support/locale_text.h"
#include "support/screen_services.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"

namespace norvo::gui {
namespace {

struct FrmElefan1Test : ::testing::Test, test::ScreenServices {
    std::string file = (test::BinDir() / "Data" / "Simull01.LFQ").string();
    QString status;

    std::unique_ptr<FrmElefan1> Open() {
        settings.setRunTime(kKeyLastActive, file);
        ctx.showStatus = [this](const QString& s) { status = s; };
        return std::make_unique<FrmElefan1>(ctx);
    }
    static std::string Text(QLineEdit* e) { return e->text().toStdString(); }
};

int CountOps(const ChartCanvas& c, DrawOp op, Colour colour) {
    int n = 0;
    for (const auto& cmd : c.commands())
        if (cmd.op == op && cmd.colour == colour) ++n;
    return n;
}

TEST_F(FrmElefan1Test, LoadsTheLastActiveFileWithItsDefaults) {
    auto f = Open();
    EXPECT_EQ(f->windowTitle().toStdString(), "ELEFAN I [" + file + "]...");
    EXPECT_EQ(f->tabs()->tabText(0), "&General");
    EXPECT_EQ(f->tabs()->tabText(3), "&Automatic Search");
    EXPECT_EQ(Text(f->txtELEFAN1(0)), "Simull01.LFQ");
    // Fields without a pattern show the 32-bit value: Loo 39.375, not 39.38.
    EXPECT_EQ(Text(f->txtELEFAN1(4)), test::LocalStd("37.5"));
    EXPECT_EQ(Text(f->txtLoo(2)), test::LocalStd("39.375"));
    EXPECT_EQ(Text(f->txtLoo(3)), test::LocalStd("39.375"));
    EXPECT_EQ(Text(f->txtLoo(0)), test::LocalStd("18.00"));
    EXPECT_EQ(Text(f->txtK(1)), "10");
    EXPECT_EQ(Text(f->txtLoo(4)), test::LocalStd("0.10"));
    EXPECT_EQ(f->txtSS()->count(), session.lfqData.noOfSamples);
    EXPECT_GT(f->txtSL()->count(), 2);
    EXPECT_FALSE(f->button(4)->isEnabled());
    f->tabs()->setCurrentIndex(1);
    EXPECT_TRUE(f->button(4)->isEnabled());
    EXPECT_FALSE(f->txtSS()->isEnabled());
    f->chkSP()->setChecked(true);
    EXPECT_TRUE(f->txtSS()->isEnabled());
}

TEST_F(FrmElefan1Test, KScanResultsTrendLinePlotAndClearing) {
    auto f = Open();
    f->tabs()->setCurrentIndex(1);
    f->chkSP()->setChecked(true);
    f->cmdELEFAN1(0);
    ASSERT_TRUE(f->kscanResult());
    for (int i = 6; i <= 12; ++i) EXPECT_FALSE(f->txtELEFAN1(i)->text().isEmpty()) << i;
    EXPECT_EQ(Text(f->txtELEFAN1(6)), test::LocalStd("39.38"));  // the result field's own pattern
    EXPECT_GT(CountOps(f->kscanCanvas(), DrawOp::Polyline, kRed), 0);

    f->chkELEFAN1()->setChecked(true);
    EXPECT_FALSE(f->txtELEFAN1(13)->text().isEmpty());
    EXPECT_GT(CountOps(f->kscanCanvas(), DrawOp::Polyline, kKScanTrendColour), 0);
    f->hscrELEFAN1()->setValue(9);
    EXPECT_EQ(CountOps(f->kscanCanvas(), DrawOp::Polyline, kKScanTrendColour), 1);
    f->chkELEFAN1()->setChecked(false);
    EXPECT_EQ(CountOps(f->kscanCanvas(), DrawOp::Polyline, kKScanTrendColour), 0);

    f->cmdELEFAN1(4);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(
            test::LocalStd(settings.runTime(
                std::array{"LastLoo", "LastK", "LastC", "LastWP", "LastSS", "LastSL"}[i], "?")),
            Text(f->txtELEFAN1(6 + i)));
    EXPECT_EQ(status.toStdString(), kPlotStoredStatus);

    dialogs.printAnswers = {false};
    f->cmdELEFAN1(1);
    EXPECT_EQ(dialogs.printDialogs.size(), 1u);

    f->chkELEFAN1()->setChecked(true);
    f->txtLoo(2)->setText("40");
    EXPECT_TRUE(f->txtELEFAN1(13)->text().isEmpty());
    EXPECT_FALSE(f->chkELEFAN1()->isChecked());
    EXPECT_TRUE(f->kscanCanvas().commands().empty());
}

TEST_F(FrmElefan1Test, CancelledKScanChangesNothing) {
    auto f = Open();
    f->tabs()->setCurrentIndex(1);
    f->chkSP()->setChecked(true);
    f->cmdELEFAN1(0);
    const std::string k = Text(f->txtELEFAN1(7));
    int steps = 0;
    f->onStep = [&] {
        if (++steps == 20) f->requestCancel();
    };
    f->txtC(2)->setText(test::Local("0.5"));
    f->cmdELEFAN1(0);
    EXPECT_FALSE(f->running());
    EXPECT_EQ(status.toStdString(), kRunCancelledStatus);
    EXPECT_EQ(f->kscanResult()->state.c, 0.0f);
    EXPECT_EQ(Text(f->txtELEFAN1(7)), k);
    EXPECT_TRUE(f->button(0)->isEnabled());
    EXPECT_TRUE(f->tabs()->isEnabled());
}

TEST_F(FrmElefan1Test, SurfaceGridBandsWarningAndClearing) {
    auto f = Open();
    f->tabs()->setCurrentIndex(2);
    f->txtSS2()->setCurrentText("");
    f->cmdELEFAN1(0);
    EXPECT_EQ(dialogs.last().title, "Invalid Action");
    EXPECT_EQ(f->grdELEFAN1()->item(1, 1), nullptr);

    f->txtSS2()->setCurrentText("1");
    f->txtSL2()->setCurrentText(test::Local("5.00"));
    f->txtK(0)->setText(test::Local("0.2"));
    f->txtK(1)->setText("2");
    f->cmdELEFAN1(0);
    auto* g = f->grdELEFAN1();
    ASSERT_NE(g->item(21, 21), nullptr);
    EXPECT_EQ(g->item(0, 0)->text(), "K\\Loo");
    EXPECT_EQ(g->item(1, 0)->text(), test::Local("0.20"));
    EXPECT_EQ(g->item(21, 0)->text(), test::Local("2.00"));
    EXPECT_EQ(g->item(0, 1)->text().toStdString(), Text(f->txtLoo(0)));
    bool sawRed = false;
    for (int i = 1; i <= 21; ++i)
        for (int j = 1; j <= 21; ++j)
            sawRed |= g->item(i, j)->background().color() == QColor(0xFF, 0, 0);
    EXPECT_TRUE(sawRed);
    EXPECT_GT(CountOps(f->surfaceCanvas(), DrawOp::FilledBox, 0xFF0000), 0);

    dialogs.answers.push_back(Answer::No);
    settings.setRunTime("LastK", "unchanged");
    f->cmdELEFAN1(4);
    EXPECT_EQ(dialogs.last().title, "WARNING!");
    EXPECT_EQ(dialogs.last().buttons, Buttons::YesNo);
    EXPECT_EQ(settings.runTime("LastK", ""), "unchanged");
    // Yes opens the plot with nothing stored, and the status line says so.
    dialogs.answers.push_back(Answer::Yes);
    f->cmdELEFAN1(4);
    EXPECT_EQ(settings.runTime("LastK", ""), "unchanged");
    EXPECT_EQ(status.toStdString(), kPlotNotStoredStatus);

    // The report prints first, then asks where the table and the picture go.
    test::TempDir dir;
    const std::string tab = dir.file("s.tab"), png = dir.file("s.png");
    dialogs.printAnswers = {true};
    dialogs.saveAnswers = {tab, png};
    f->cmdELEFAN1(1);
    EXPECT_EQ(dialogs.printDialogs.size(), 1u);
    EXPECT_EQ(dialogs.last().title, "Data Saved");
    EXPECT_EQ(dialogs.last().text, "The response surface table was saved in " + tab +
                                       " and the Response surface plot was saved in " + png + ".");
    std::ifstream in(tab);
    std::string first;
    std::getline(in, first);
    EXPECT_EQ(first.rfind("K\\Loo\t", 0), 0u);
    EXPECT_TRUE(std::filesystem::exists(png));

    f->txtK(1)->setText("3");
    EXPECT_EQ(g->item(21, 21), nullptr);
}

TEST_F(FrmElefan1Test, AFileWithoutFishIsRefusedOnLoading) {
    test::TempDir dir;
    file = test::MakeLfqFile(dir.file("none.lfq"), test::LfqHeaderOf("x", "cm", 5, 1),
                             test::MonthlySamples(2, 15, 2001), {{0, 0}, {0, 0}, {0, 0}, {0, 0}});
    auto f = Open();
    EXPECT_EQ(dialogs.last().text, kElefanNoFishText);
    EXPECT_EQ(dialogs.last().title, "Invalid Data");
    EXPECT_EQ(f->txtSS()->count(), 0);
    f->tabs()->setCurrentIndex(1);
    f->cmdELEFAN1(0);  // nothing loaded: nothing to run
    EXPECT_FALSE(f->kscanResult());
}

TEST_F(FrmElefan1Test, AutomaticSearchTableAndRefusal) {
    auto f = Open();
    f->tabs()->setCurrentIndex(3);
    f->txtK(2)->setText(test::Local("0.01"));
    f->cmdELEFAN1(0);
    EXPECT_EQ(dialogs.last().text, "Please check your input for K (0.01 to 10.0).");
    EXPECT_EQ(f->spdSearch()->rowCount(), 0);

    f->txtK(2)->setText("1");
    f->optSearch(1)->setChecked(true);
    f->sSample()->setCurrentText("1");
    f->sLength()->setCurrentText(test::Local("5.00"));
    f->txtLoo(4)->setText("1");
    f->cmdELEFAN1(0);
    auto* t = f->spdSearch();
    ASSERT_GE(t->rowCount(), 1);
    EXPECT_EQ(t->horizontalHeaderItem(6)->text(), "Rn");
    const int last = t->rowCount() - 1;
    EXPECT_EQ(t->item(last, 0)->background().color(), QColor(0xFF, 0xFF, 0));
    EXPECT_EQ(t->item(last, 0)->foreground().color(), QColor(0xFF, 0, 0));
    EXPECT_EQ(t->item(0, 4)->text(), "1");
    EXPECT_EQ(dialogs.last().text, "Search completed.");
    EXPECT_EQ(dialogs.last().title, "NOTE!");
    f->cmdELEFAN1(4);
    EXPECT_EQ(test::LocalStd(settings.runTime("LastLoo", "")),
              t->item(last, 0)->text().toStdString());
}

// With NORVO_ELEFAN_SCREENSHOT=/tmp/elefan, each tab after a run goes to /tmp/elefan_<tab>.png,
// to look at the screen as a user would.
TEST_F(FrmElefan1Test, ScreenshotsOfEveryTabOnRequest) {
    const char* shot = std::getenv("NORVO_ELEFAN_SCREENSHOT");
    if (!shot) GTEST_SKIP() << "NORVO_ELEFAN_SCREENSHOT not set";
    auto f = Open();
    const QStringList size = qEnvironmentVariable("NORVO_SHOT_SIZE", "1100x760").split('x');
    f->resize(size.value(0).toInt(), size.value(1).toInt());
    f->show();
    f->tabs()->setCurrentIndex(1);
    f->chkSP()->setChecked(true);
    f->cmdELEFAN1(0);
    f->chkELEFAN1()->setChecked(true);
    f->tabs()->setCurrentIndex(2);
    f->txtSS2()->setCurrentText("1");
    f->txtSL2()->setCurrentText(test::Local("5.00"));
    f->cmdELEFAN1(0);
    f->tabs()->setCurrentIndex(3);
    f->optSearch(1)->setChecked(true);
    f->sSample()->setCurrentText("1");
    f->sLength()->setCurrentText(test::Local("5.00"));
    f->txtLoo(4)->setText("1");
    f->cmdELEFAN1(0);
    for (int tab = 0; tab < 4; ++tab) {
        f->tabs()->setCurrentIndex(tab);
        EXPECT_TRUE(f->grab().save(QString("%1_%2.png").arg(shot).arg(tab)));
    }
}

}  // namespace
}  // namespace norvo::gui
