#include "growth/screens/frm_shepherd.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStringList>
#include <QTabWidget>
#include <QTableWidget>
#include <cstdlib>

#include "data/lfq_file.h"
#include "growth/elefan_search_plot.h"
#include "growth/screens/elefan_general_page.h"
#include "growth/screens/shepherd_kscan_page.h"
#include "growth/screens/shepherd_surface_page.h"
#include "support/locale_text.h"
#include "support/screen_services.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"

namespace norvo::gui {
namespace {

struct FrmShepherdTest : ::testing::Test, test::ScreenServices {
    std::string file = (test::BinDir() / "Data" / "Simull01.LFQ").string();
    QString status;

    std::unique_ptr<FrmShepherd> Open() {
        settings.setRunTime(kKeyLastActive, file);
        ctx.showStatus = [this](const QString& s) { status = s; };
        return std::make_unique<FrmShepherd>(ctx);
    }
    static std::string Text(QLineEdit* e) { return e->text().toStdString(); }
};

int CountOps(const ChartCanvas& c, DrawOp op, Colour colour) {
    int n = 0;
    for (const auto& cmd : c.commands())
        if (cmd.op == op && cmd.colour == colour) ++n;
    return n;
}

TEST_F(FrmShepherdTest, LoadsTheLastActiveFileWithItsDefaults) {
    auto f = Open();
    EXPECT_EQ(f->windowTitle().toStdString(), "Shepherd's Method...");
    EXPECT_EQ(f->tabs()->count(), 3);
    EXPECT_EQ(f->tabs()->tabText(2), "Response &Surface");
    EXPECT_EQ(Text(f->general()->field(0)), "Simull01.LFQ");
    // Largest midlength 37.5: K-scan Loo 39.375, surface Loo 18.75 to 56.25, K 0.01 to 10.
    EXPECT_EQ(Text(f->kscan()->looField()), test::LocalStd("39.375"));
    EXPECT_EQ(Text(f->surface()->looField(0)), test::LocalStd("18.75"));
    EXPECT_EQ(Text(f->surface()->looField(1)), test::LocalStd("56.25"));
    EXPECT_EQ(Text(f->surface()->kField(0)), test::LocalStd("0.01"));
    EXPECT_EQ(Text(f->surface()->kField(1)), "10");
    EXPECT_FALSE(f->button(4)->isEnabled());
}

TEST_F(FrmShepherdTest, KScanBestPointTrendLinePlotAndReport) {
    auto f = Open();
    f->tabs()->setCurrentIndex(1);
    f->cmdShepherd(0);
    ShepherdKScanPage* k = f->kscan();
    ASSERT_TRUE(k->result());
    const ShepherdBest& best = k->result()->best;
    EXPECT_EQ(Text(k->bestFields()[0]), test::LocalStd("39.38"));
    EXPECT_EQ(Text(k->bestFields()[2]), "1");
    EXPECT_EQ(Text(k->bestFields()[4]), test::LocalStd(Format(best.score, "0.000")));
    // Loo 39.375 is above the top midlength 37.5: the curve has a starting length.
    ASSERT_TRUE(best.startLength);
    EXPECT_EQ(Text(k->bestFields()[3]), test::LocalStd(Format(*best.startLength, "0.0")));
    EXPECT_GT(CountOps(k->canvas(), DrawOp::Polyline, kRed), 0);

    k->trendLine()->setChecked(true);
    EXPECT_FALSE(k->trendFields()[1]->text().isEmpty());
    EXPECT_GT(CountOps(k->canvas(), DrawOp::Polyline, kKScanTrendColour), 0);
    k->span()->setValue(9);
    EXPECT_EQ(CountOps(k->canvas(), DrawOp::Polyline, kKScanTrendColour), 1);

    f->cmdShepherd(4);
    EXPECT_EQ(test::LocalStd(settings.runTime("LastK", "?")), Text(k->bestFields()[1]));
    EXPECT_EQ(settings.runTime("LastC", "?"), "0.00");
    EXPECT_EQ(settings.runTime("LastWP", "?"), "0.00");
    EXPECT_EQ(settings.runTime("LastSS", "?"), "1");
    EXPECT_EQ(test::LocalStd(settings.runTime("LastSL", "?")), Text(k->bestFields()[3]));
    EXPECT_EQ(status.toStdString(), kPlotStoredStatus);

    dialogs.printAnswers = {false};
    f->cmdShepherd(1);
    EXPECT_EQ(dialogs.printDialogs.size(), 1u);

    // A Loo at or below the top midlength has no starting length; a change clears the plot.
    k->looField()->setText(test::Local("30"));
    EXPECT_TRUE(k->canvas().commands().empty());
    EXPECT_FALSE(k->trendLine()->isChecked());
    f->cmdShepherd(0);
    EXPECT_EQ(Text(k->bestFields()[3]), "n.a.");
    k->looField()->setText("x");
    f->cmdShepherd(0);
    EXPECT_EQ(dialogs.last().text, kShepherdInvalidLoo);
}

TEST_F(FrmShepherdTest, SurfaceTableRefusalsAndWarning) {
    auto f = Open();
    f->tabs()->setCurrentIndex(2);
    ShepherdSurfacePage* s = f->surface();
    s->looField(1)->setText(s->looField(0)->text());
    f->cmdShepherd(0);
    EXPECT_EQ(dialogs.last().title, kTitleInvalidInput);
    EXPECT_FALSE(s->result());
    s->looField(0)->setText("0");
    f->cmdShepherd(0);
    EXPECT_EQ(dialogs.last().text, kShepherdInvalidLoo);

    s->looField(0)->setText(test::Local("30"));
    s->looField(1)->setText(test::Local("50"));
    s->kField(0)->setText(test::Local("0.2"));
    s->kField(1)->setText(test::Local("1.2"));
    f->cmdShepherd(0);
    ASSERT_TRUE(s->result());
    QTableWidget* g = s->grid();
    EXPECT_EQ(g->item(0, 0)->text(), "K\\Loo");
    EXPECT_EQ(g->item(0, 1)->text().toStdString(), test::LocalStd("30.00"));
    EXPECT_EQ(g->item(1, 0)->text().toStdString(), test::LocalStd("0.20"));
    const ShepherdData d = ShepherdDataOf(session.lfqData);
    EXPECT_EQ(g->item(1, 1)->text().toStdString(),
              test::LocalStd(Format(ShepherdScore(d, 30, 0.2f), "0.000")));
    EXPECT_GT(CountOps(s->canvas(), DrawOp::FilledBox, 0xFF0000), 0);

    dialogs.answers.push_back(Answer::No);
    settings.setRunTime("LastK", "unchanged");
    f->cmdShepherd(4);
    EXPECT_EQ(dialogs.last().title, "WARNING!");
    EXPECT_EQ(settings.runTime("LastK", ""), "unchanged");

    s->kField(0)->setText(test::Local("0.3"));
    EXPECT_FALSE(s->result());
    EXPECT_EQ(g->item(1, 1), nullptr);
}

TEST_F(FrmShepherdTest, NoFileComputesNothing) {
    auto f = std::make_unique<FrmShepherd>(ctx);
    for (int tab = 0; tab < 3; ++tab) {
        f->tabs()->setCurrentIndex(tab);
        f->cmdShepherd(0);
    }
    EXPECT_FALSE(f->kscan()->result());
    EXPECT_TRUE(dialogs.shown.empty());
}

// With NORVO_SHEPHERD_SCREENSHOT=/tmp/x set, saves a picture of each tab after a run.
TEST_F(FrmShepherdTest, ScreenshotsOfEveryTabOnRequest) {
    const char* shot = std::getenv("NORVO_SHEPHERD_SCREENSHOT");
    if (!shot) GTEST_SKIP() << "NORVO_SHEPHERD_SCREENSHOT not set";
    auto f = Open();
    f->resize(1100, 760);
    f->show();
    f->tabs()->setCurrentIndex(1);
    f->cmdShepherd(0);
    f->kscan()->trendLine()->setChecked(true);
    f->tabs()->setCurrentIndex(2);
    f->surface()->kField(0)->setText(test::Local("0.2"));
    f->surface()->kField(1)->setText(test::Local("1.2"));
    f->cmdShepherd(0);
    for (int tab = 0; tab < 3; ++tab) {
        f->tabs()->setCurrentIndex(tab);
        EXPECT_TRUE(f->grab().save(QString("%1_%2.png").arg(shot).arg(tab)));
    }
}

}  // namespace
}  // namespace norvo::gui
