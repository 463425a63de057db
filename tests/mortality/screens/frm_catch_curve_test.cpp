// The catch curve road through the screens: file, curve, default points, manual choice,
// extrapolation, probabilities, logits, a saved probabilities file and the trawl-type screen.
#include "mortality/catch_curve.h"
#include "mortality/catch_curve_plot.h"
#include "mortality/catch_curve_run.h"
#include "selection/selection.h"

#include "mortality/screens/frm_catch_curve.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStringList>
#include <QTabWidget>
#include <cstdlib>
#include <filesystem>

#include "base/error_report.h"
#include "base/format.h"
#include "data/lfq_file.h"
#include "data/store_routines.h"
#include "data/write_notices.h"
#include "mortality/screens/frm_prob_catch_curve.h"
#include "numerics/text_convert.h"
#include "selection/screens/frm_logits.h"
#include "selection/screens/frm_probability.h"
#include "selection/screens/frm_probability2.h"
#include "stock/simulation.h"
#include "support/decimal_separator.h"
#include "support/lfq_fixtures.h"
#include "support/locale_text.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/plot_view.h"
#include "widgets/sample_panel.h"

namespace norvo::gui {
namespace {

// Screenshots go where NORVO_SHOTS points, if set, at NORVO_SHOT_SIZE ("800x600") if set.
void Shot(QWidget* w, const std::string& name) {
    const char* dir = std::getenv("NORVO_SHOTS");
    if (!dir) return;
    const QStringList size = qEnvironmentVariable("NORVO_SHOT_SIZE", "900x620").split('x');
    w->resize(size.value(0).toInt(), size.value(1).toInt());
    w->grab().save(QString::fromStdString(std::string(dir) + "/" + name + ".png"));
}

struct CatchCurveRoad : ::testing::Test {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};
    test::TempDir dir;
    std::string path = dir.file("stock.lfq");

    void SetUp() override {
        SimulationInputs in = DefaultSimulationInputs();
        in.samples = 12;
        in.fishPerSample = 600;
        in.ageGroups = 6;
        in.loo = 60;
        in.looCv = 0;
        in.k = 0.5;
        in.kCv = 0;
        in.recruitment.fill(1.0);
        in.yearClasses = ResizeYearClasses({}, 6);
        for (auto& yc : in.yearClasses) yc.mortality = 0.4;
        in.selection = {SelectionRow{"A", 20.0, 24.0, 0, 0, 0.6, true}};
        const auto table = LengthFreq(Simulate(in), SimSet::Catch);
        test::MakeLfqFile(
            path, test::LfqHeaderOf("Simulated fish", "cm", table.smallestMl, table.classInterval),
            test::MonthlySamples(in.samples, 15, 2001), table.freq);
        settings.setRunTime(kKeyLastActive, path);
    }

    // Clicks the plot at the canvas position of class point i; gives the point that the click
    // hits (close points overlap, and the lowest class within reach wins).
    int ClickPoint(FrmCatchCurve& f, int i) {
        const auto s = CatchCurveScale(*f.run());
        const auto pts = CatchCurvePointPositions(*f.run(), s);
        const int hit =
            HitCatchCurvePoint(pts, f.run()->firstClass, f.run()->lastClass, pts[i].x, pts[i].y);
        f.clickPlot(pts[i].x, pts[i].y);
        return hit;
    }
};

TEST_F(CatchCurveRoad, FromFileToTrawlTypeSelection) {
    FrmCatchCurve f(ctx);
    EXPECT_EQ(f.windowTitle().toStdString(), "Length-converted Catch Curve [" + path + "]");
    EXPECT_EQ(f.samples()->list()->selectedItems().size(), 12);
    f.field(0)->setText("60");
    f.field(1)->setText(test::Local("0.5"));
    Shot(&f, "cc_data");

    f.command(4)->click();
    ASSERT_NE(f.run(), nullptr);
    EXPECT_FALSE(f.command(4)->isEnabled());
    EXPECT_TRUE(f.command(6)->isEnabled());
    EXPECT_GT(f.run()->firstPoint, 0);
    const double z = CatchCurveZ(*f.run());
    EXPECT_NEAR(z, 1.0, 0.15);
    EXPECT_EQ(f.statistic(6)->text().toStdString(), test::LocalStd(Format(z, "0.00")));
    // Z and r also stand beside the curve.
    EXPECT_EQ(f.curveZ()->text(), f.statistic(6)->text());
    EXPECT_EQ(f.curveR()->text().toStdString(), test::LocalStd(Format(f.run()->fit.r(), "0.0000")));
    Shot(&f, "cc_curve");

    // Clicks outside a selection round, off a point, and too close together.
    const int first = f.run()->firstPoint, last = f.run()->lastPoint;
    f.clickPlot(50, 50);
    EXPECT_EQ(dialogs.last().text, kCcResetFirstText);
    f.command(5)->click();
    EXPECT_EQ(dialogs.last().title, kCcSelectingTitle);
    EXPECT_FALSE(f.command(6)->isEnabled());
    f.clickPlot(99, 1);
    EXPECT_EQ(dialogs.last().text, kCcNoSelectionText);
    ClickPoint(f, first);
    ClickPoint(f, first);
    EXPECT_EQ(dialogs.last().text, kCcTooFewPickedText);
    const int hitLast = ClickPoint(f, last);
    const int hitFirst = ClickPoint(f, first);
    ASSERT_GE(hitLast - hitFirst, 2);
    EXPECT_EQ(f.run()->firstPoint, hitFirst);
    EXPECT_EQ(f.run()->lastPoint, hitLast);
    EXPECT_TRUE(f.command(6)->isEnabled());

    // Mortalities from the temperature, then the extrapolation.
    f.command(6)->click();
    auto* m = f.mortalityDialog();
    ASSERT_NE(m, nullptr);
    m->field(2)->setText("2");
    m->temperatureEntered();
    EXPECT_EQ(m->field(2)->text().toStdString(), test::LocalStd("6.389"));
    EXPECT_EQ(m->field(4)->text(), m->field(3)->text());
    m->proceedButton()->click();
    ASSERT_NE(f.extrapolation(), nullptr);
    EXPECT_EQ(f.command(6)->text().toStdString(), kCcCmdShowProb);
    Shot(&f, "cc_extrapolated");

    f.command(6)->click();
    auto* p = f.probabilityScreen();
    ASSERT_NE(p, nullptr);
    p->useLogits();
    auto* logits = p->logits();
    ASSERT_NE(logits, nullptr);
    EXPECT_TRUE(logits->fitted());
    Shot(logits, "cc_logits");
    // A click on a point toggles it; a click off the points is refused.
    const int count = logits->selectedCount();
    const int firstClass = f.run()->firstClass;
    logits->clickPlot(logits->pointX(firstClass), logits->pointY(firstClass));
    EXPECT_EQ(logits->selectedCount(), count > 3 ? count - 1 : count);
    logits->clickPlot(logits->pointX(firstClass), logits->pointY(firstClass));
    EXPECT_EQ(logits->selectedCount(), count);
    logits->clickPlot(99, 1);
    EXPECT_EQ(dialogs.last().text, kSelNoSelectionText);
    logits->proceedButton()->click();
    ASSERT_NE(p->curve(), nullptr);
    EXPECT_EQ(p->lengthLabel(1)->text().toStdString(),
              test::LocalStd(Format(p->curve()->l50, "0.00")));
    EXPECT_GT(p->curve()->l75, p->curve()->l25);
    Shot(p, "cc_probability");

    const std::string prb = dir.file("sel.prb");
    dialogs.saveAnswers.push_back(prb);
    p->saveProbabilities();
    ASSERT_TRUE(std::filesystem::exists(prb));
    // Another kind's extension, or a place that cannot be written, is told; nothing is written.
    dialogs.saveAnswers.push_back(dir.file("sel.txt"));
    p->saveProbabilities();
    EXPECT_EQ(dialogs.last().text, kWrongFileType);
    EXPECT_FALSE(std::filesystem::exists(dir.file("sel.txt")));
    const std::string blocked = prb + "/inside.prb";
    dialogs.saveAnswers.push_back(blocked);
    p->saveProbabilities();
    EXPECT_EQ(dialogs.last().text, CannotWriteText(blocked));

    settings.setRunTime(kKeyLastActive, prb);
    FrmProbability2 p2(ctx);
    EXPECT_TRUE(p2.command(0)->isEnabled());
    p2.useRunningAverage();
    ASSERT_NE(p2.curve(), nullptr);
    EXPECT_LE(p2.curve()->l25, p2.curve()->l50);
    EXPECT_LE(p2.curve()->l50, p2.curve()->l75);
    Shot(&p2, "cc_trawl");
}

// An extrapolation whose numbers overflow ends in the defect report: the screen stays, with
// its curve and without an extrapolation.
TEST_F(CatchCurveRoad, ExtremeMortalitiesEndInTheReport) {
    FrmCatchCurve f(ctx);
    f.field(0)->setText("60");
    f.field(1)->setText(test::Local("0.5"));
    f.command(4)->click();
    ASSERT_NE(f.run(), nullptr);
    ASSERT_GT(f.run()->firstPoint, 0);
    f.command(6)->click();
    auto* m = f.mortalityDialog();
    ASSERT_NE(m, nullptr);
    m->field(1)->setText("5000");
    m->field(4)->setText(test::Local("0.1"));
    m->proceedButton()->click();
    EXPECT_EQ(dialogs.last().title, kDefectTitle);
    EXPECT_EQ(f.extrapolation(), nullptr);
    EXPECT_NE(f.run(), nullptr);
}

TEST_F(CatchCurveRoad, GrowthFieldsAndSeasonalRefusal) {
    FrmCatchCurve f(ctx);
    f.field(0)->setText("");
    f.field(1)->setText(test::Local("0.5"));
    f.command(4)->click();
    EXPECT_EQ(dialogs.last().text, kCcInvalidLooText);
    EXPECT_EQ(f.tabs()->currentIndex(), 0);
    EXPECT_TRUE(f.command(4)->isEnabled());

    f.samples()->helpButton()->click();
    EXPECT_EQ(dialogs.last().title, kCcHelpTitle);
    EXPECT_EQ(dialogs.last().text, kCcTemporalHelpText);

    f.field(0)->setText("60");
    f.field(2)->setText(test::Local("0.5"));
    f.field(3)->setText(test::Local("0.3"));
    f.command(4)->click();
    ASSERT_NE(f.run(), nullptr);
    ASSERT_TRUE(f.run()->seasonal);
    if (f.run()->firstPoint > 0) {
        f.command(6)->click();
        EXPECT_EQ(f.mortalityDialog(), nullptr);
        EXPECT_EQ(dialogs.last().text, SeasonalExtrapolationText(CatchCurveZ(*f.run())));
    }
    // Editing a parameter clears the run and restores the compute command.
    f.field(1)->setText(test::Local("0.6"));
    Q_EMIT f.field(1)->textEdited(test::Local("0.6"));
    EXPECT_EQ(f.run(), nullptr);
    EXPECT_TRUE(f.command(4)->isEnabled());
}

// With a comma as decimal separator the mortality dialogue shows and reads back its numbers in
// that form, and hands the screen the figures the core computes.
TEST_F(CatchCurveRoad, MortalityDialogueInACommaLocale) {
    const test::ScopedDecimalSeparator comma(',');
    GrowthParams g;
    g.loo = 60;
    g.k = 0.5f;
    double z = 0, m = 0, t = 0;
    auto* d = new FrmProbCatchCurve(ctx, 1.25, g, [&](double zz, double mm, double tt) {
        z = zz;
        m = mm;
        t = tt;
    });
    EXPECT_EQ(d->field(1)->text().toStdString(), "1,25");
    d->field(2)->setText("2");
    d->temperatureEntered();
    EXPECT_EQ(d->field(2)->text().toStdString(), "6,389");
    const auto tm = MortalityAtTemperature(2, g);
    d->proceedButton()->click();
    EXPECT_EQ(z, 1.25);
    EXPECT_EQ(t, 6.389);
    EXPECT_EQ(m, AsShownInDialog(tm.m));
    EXPECT_GT(m, 0);
}

}  // namespace
}  // namespace norvo::gui
