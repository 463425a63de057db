#include "growth/screens/frm_vbgf_plot.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPixmap>
#include <QScrollBar>
#include <QStringList>
#include <QTabWidget>
#include <cstdlib>
#include <memory>

#include "growth/screens/frm_elefan1.h"
#include "support/locale_text.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/plot_view.h"

namespace norvo::gui {
namespace {

struct FrmVbgfPlotTest : ::testing::Test {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString()};
    std::string file = (test::BinDir() / "Data" / "Simull01.LFQ").string();
    std::unique_ptr<FrmVbgfPlot> plot;

    FrmVbgfPlotTest() {
        settings.setRunTime(kKeyLastActive, file);
        // The shell's hook, as the main window keeps one shared instance.
        ctx.openScreen = [this](const std::string& name) -> QWidget* {
            if (name != "frmVBGFPlot") return nullptr;
            if (!plot) plot = std::make_unique<FrmVbgfPlot>(ctx);
            return plot.get();
        };
    }
    static int Red(const ChartCanvas& c) {
        int n = 0;
        for (const auto& l : c.commandsOf(DrawOp::Line)) n += l.colour == kRed;
        return n;
    }
};

TEST_F(FrmVbgfPlotTest, MissingKeysShowTheirDefaults) {
    FrmVbgfPlot fresh(ctx);
    for (int i : {0, 1, 2, 3, 5}) EXPECT_EQ(fresh.box(i)->text().toStdString(), "0.00") << i;
    EXPECT_EQ(fresh.box(4)->text().toStdString(), "1");
}

TEST_F(FrmVbgfPlotTest, ElefanPlotCommandOpensTheScreenWithTheBestKScanParameters) {
    FrmElefan1 elefan(ctx);
    elefan.tabs()->setCurrentIndex(1);
    elefan.cmdELEFAN1(0);
    ASSERT_TRUE(elefan.kscanResult());
    elefan.cmdELEFAN1(4);
    ASSERT_TRUE(plot);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(plot->box(i)->text(), elefan.txtELEFAN1(6 + i)->text()) << i;
    EXPECT_TRUE(plot->hasFile());
    ASSERT_TRUE(plot->PlotVBGF());
    EXPECT_GT(plot->curveTable().cohorts, 1);
    EXPECT_GT(Red(plot->plotView()->canvas()), 0);
    // The settings are read, never written.
    plot->box(0)->setText("55");
    plot->PlotVBGF();
    // The key stays locale-free; the box shows the locale's separator.
    EXPECT_EQ(test::LocalStd(settings.runTime("LastLoo", "?")),
              elefan.txtELEFAN1(6)->text().toStdString());

    if (const char* shot = std::getenv("NORVO_VBGF_SCREENSHOT")) {
        const QStringList size = qEnvironmentVariable("NORVO_SHOT_SIZE", "900x700").split('x');
        plot->resize(size.value(0).toInt(), size.value(1).toInt());
        plot->tabs()->setCurrentIndex(1);
        plot->show();
        plot->grab().save(shot);
    }
}

TEST_F(FrmVbgfPlotTest, OptionsRedrawAndRefusalsKeepTheBars) {
    settings.setRunTime("LastLoo", "39");
    settings.setRunTime("LastK", "1.1");
    settings.setRunTime("LastSL", "2");
    FrmVbgfPlot f(ctx);
    const QString caption = QString(kVbgfPlotCaption) + " [" + QString::fromStdString(file) + "]";
    EXPECT_EQ(f.windowTitle(), caption);
    EXPECT_EQ(f.box(4)->text(), "1");  // a missing LastSS reads as sample 1
    ASSERT_TRUE(f.PlotVBGF());
    const ChartCanvas& c = f.plotView()->canvas();
    EXPECT_GT(Red(c), 0);
    f.plotCurve()->setChecked(false);
    EXPECT_EQ(Red(c), 0);
    f.plotCurve()->setChecked(true);
    f.solidBars()->setChecked(false);
    for (const auto& b : c.commandsOf(DrawOp::FilledBox)) EXPECT_EQ(b.colour, kWhite);
    EXPECT_FALSE(c.commandsOf(DrawOp::Box).empty());
    f.displayAll()->setChecked(true);
    EXPECT_FALSE(f.scrollBar()->isEnabled());

    f.box(4)->setText("0");
    EXPECT_FALSE(f.PlotVBGF());
    EXPECT_EQ(dialogs.last().text, kVbgfInvalidSS);
    f.box(4)->setText("1");
    f.box(5)->setText("99");
    EXPECT_FALSE(f.PlotVBGF());
    EXPECT_EQ(dialogs.last().text, kVbgfInvalidSL);
}

}  // namespace
}  // namespace norvo::gui
