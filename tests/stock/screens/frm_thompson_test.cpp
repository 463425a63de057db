#include <gtest/gtest.h>

#include <fmt/format.h>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <cstdlib>
#include <filesystem>

#include "stock/screens/frm_thompson.h"
#include "stock/thompson_bell_fixtures.h"
#include "stock/thompson_bell_plot.h"
#include "support/locale_text.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/number_box.h"
#include "widgets/plot_view.h"

namespace norvo::gui {
namespace {

namespace fs = std::filesystem;

struct Context {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};
};

QString Cell(const QTableWidget* t, int row, int col) {
    return t->item(row, col) ? t->item(row, col)->text() : QString();
}

QString Header(const QTableWidget* t, int col) {
    return t->horizontalHeaderItem(col)->text();
}

// A bream caught by a trawl and a seine, and a snapper caught by the trawl only.
class FrmThompsonTest : public ::testing::Test {
  protected:
    test::TempDir dir;
    test::TbScenarioFile sce{dir};
    Context c;

    void SetUp() override {
        const SpeciesData bream = test::TbSpecies("Bream", {0.1, 0.3, 0.6, 0.8, 0.8});
        const SpeciesData snapper = test::TbSpecies("Snapper", {0.2, 0.5, 0.7, 0.7, 0.7});
        sce.addSpecies(bream);
        sce.addSpecies(snapper);
        sce.addFleet("Trawl");
        sce.addFleet("Seine");
        sce.link("Trawl", "Bream", test::TbCatches(bream, {50, 300, 400, 200, 100}));
        sce.link("Seine", "Bream", test::TbCatches(bream, {0, 100, 300, 300, 100}));
        sce.link("Trawl", "Snapper", test::TbCatches(snapper, {80, 200, 200, 100, 50}));
        c.settings.setRunTime(kKeyLastActive, sce.path());
    }
};

TEST_F(FrmThompsonTest, CalculatesTablesAndPlotsForCombinationAndTotal) {
    FrmThompson form(c.ctx);
    ASSERT_EQ(form.lstThompson(0)->count(), 2);
    ASSERT_EQ(form.lstThompson(1)->count(), 2);
    EXPECT_TRUE(form.lstThompson(1)->item(0)->text().endsWith(" (vary f-factor)"));
    EXPECT_FALSE(form.command(2)->isEnabled());

    form.command(0)->click();
    ASSERT_TRUE(form.result());
    EXPECT_TRUE(c.dialogs.shown.empty());
    const QTableWidget* total = form.table(1);
    ASSERT_EQ(total->rowCount(), 41);
    const ThompsonBellTable cum = CumulativeTable(*form.result());
    EXPECT_EQ(Header(total, 0), "f-factor");
    EXPECT_EQ(Header(total, 1).toStdString(), fmt::format("Yield (10^{})", cum.pYield));
    EXPECT_EQ(Header(total, 2).toStdString(), fmt::format("Biomass (10^{})", cum.pBiomass));
    EXPECT_EQ(Cell(total, 0, 0), test::Local("0.0"));
    EXPECT_EQ(Cell(total, 0, 1), test::Local("0.000"));  // no fishing, no yield
    EXPECT_EQ(Cell(total, 10, 0), test::Local("1.0"));
    EXPECT_EQ(Cell(total, 40, 0), test::Local("4.0"));
    EXPECT_EQ(Cell(total, 10, 2),
              NumberText(ThompsonBellShown(cum.biomass[10], cum.pBiomass), "0.000"));

    // The first species and fleet are picked: the trawl's share of the bream.
    const ThompsonBellTable trawl = CombinationTable(*form.result(), 0, 0);
    ASSERT_EQ(form.table(0)->rowCount(), 41);
    EXPECT_EQ(Cell(form.table(0), 20, 1),
              NumberText(ThompsonBellShown(trawl.yield[20], trawl.pYield), "0.000"));
    for (int i = 0; i < 6; ++i)
        EXPECT_FALSE(form.plot(i)->canvas().commandsOf(DrawOp::Polyline).empty()) << i;
    EXPECT_TRUE(form.command(2)->isEnabled());

    // The seine's share of the bream: a different table, the same biomass.
    form.cmbThompson(1)->setCurrentIndex(1);
    const ThompsonBellTable seine = CombinationTable(*form.result(), 0, 1);
    EXPECT_EQ(Cell(form.table(0), 20, 1),
              NumberText(ThompsonBellShown(seine.yield[20], seine.pYield), "0.000"));
    EXPECT_EQ(Cell(form.table(0), 20, 2),
              NumberText(ThompsonBellShown(seine.biomass[20], seine.pBiomass), "0.000"));
    EXPECT_TRUE(c.dialogs.shown.empty());

    // The snapper is not caught by the seine: the notice, and no combination table.
    form.cmbThompson(0)->setCurrentIndex(1);
    ASSERT_EQ(c.dialogs.shown.size(), 1u);
    EXPECT_EQ(c.dialogs.shown[0].text, "The species 'Snapper' is not caught by the fleet 'Seine'.");
    EXPECT_EQ(form.table(0)->rowCount(), 0);
    EXPECT_EQ(form.table(1)->rowCount(), 41);

    if (const char* shots = std::getenv("NORVO_SHOTS")) {
        form.cmbThompson(1)->setCurrentIndex(0);
        form.resize(1150, 760);
        for (int tab = 0; tab < 3; ++tab) {
            form.tabs()->setCurrentIndex(tab);
            form.grab().save(QString(shots) + QString("/frmThompson%1.png").arg(tab));
        }
    }
}

TEST_F(FrmThompsonTest, FleetListVariesOrFixesEachFleet) {
    FrmThompson form(c.ctx);
    QListWidgetItem* trawl = form.lstThompson(1)->item(0);
    // Unticking asks for the fixed f-factor until it lies in (0, 4].
    c.dialogs.inputAnswers = {"5", test::LocalStd("0.5")};
    trawl->setCheckState(Qt::Unchecked);
    ASSERT_EQ(c.dialogs.inputBoxes.size(), 2u);
    EXPECT_EQ(c.dialogs.inputBoxes[0].title, "Fixed f-factor");
    EXPECT_EQ(c.dialogs.inputBoxes[0].prompt, "Enter the f-factor for Trawl to be fixed.");
    ASSERT_EQ(c.dialogs.shown.size(), 1u);
    EXPECT_EQ(c.dialogs.shown[0].text,
              "The f-factor can only be in the range from >0 to 4. Please try again.");
    EXPECT_EQ(c.dialogs.shown[0].title, "Invalid Input...");
    trawl = form.lstThompson(1)->item(0);
    EXPECT_TRUE(trawl->text().endsWith(test::Local(" (fixed at f-factor=0.5)")))
        << trawl->text().toStdString();
    EXPECT_EQ(trawl->checkState(), Qt::Unchecked);

    // A cancelled input box leaves the seine varying.
    c.dialogs.inputAnswers = {std::nullopt};
    form.lstThompson(1)->item(1)->setCheckState(Qt::Unchecked);
    EXPECT_EQ(form.lstThompson(1)->item(1)->checkState(), Qt::Checked);

    form.command(0)->click();
    ASSERT_TRUE(form.result());
    ASSERT_EQ(form.result()->steps.size(), 41u);
    EXPECT_EQ(form.result()->fixed[0], 0.5);
    // The fixed trawl keeps fishing at f-factor 0 of the seine.
    EXPECT_GT(form.result()->steps[0].yield, 0.0);

    // Every fleet fixed: nothing is projected and the tables stay empty.
    c.dialogs.inputAnswers = {"1"};
    form.lstThompson(1)->item(1)->setCheckState(Qt::Unchecked);
    form.command(0)->click();
    ASSERT_TRUE(form.result());
    EXPECT_TRUE(form.result()->steps.empty());
    EXPECT_EQ(form.table(1)->rowCount(), 0);

    // Ticking again says how the fleet varies.
    form.lstThompson(1)->item(0)->setCheckState(Qt::Checked);
    EXPECT_EQ(c.dialogs.shown.back().text, "The Trawl is set to vary from f-factor = 1 to 4.");
    EXPECT_TRUE(form.lstThompson(1)->item(0)->text().endsWith(" (vary f-factor)"));
    EXPECT_FALSE(form.result());
}

TEST_F(FrmThompsonTest, BranchIsTheSessionFlagAndSelectivityIsRemembered) {
    c.session.thompsonBellSelection = true;
    FrmThompson form(c.ctx);
    EXPECT_TRUE(form.branch(1)->isChecked());
    // The picked combination's selection shows and becomes the default.
    EXPECT_EQ(form.selectivity(0)->text(), test::Local("20.00"));
    EXPECT_EQ(c.settings.runTime("TBR50", ""), "300.00");
    form.command(0)->click();
    ASSERT_TRUE(form.result());
    const double bySelection = form.result()->steps[10].yield;

    form.branch(0)->click();
    EXPECT_FALSE(c.session.thompsonBellSelection);
    EXPECT_FALSE(form.result());
    form.command(0)->click();
    ASSERT_TRUE(form.result());
    EXPECT_NE(form.result()->steps[10].yield, bySelection);
}

TEST_F(FrmThompsonTest, SavesSixPlotsAndPrintsAfterTheRun) {
    FrmThompson form(c.ctx);
    form.command(0)->click();
    c.dialogs.saveAnswers = {dir.file("tb.bmp")};
    form.command(3)->click();
    for (int k = 0; k < 6; ++k) EXPECT_TRUE(fs::exists(dir.file(fmt::format("tb_{}.bmp", k)))) << k;
    ASSERT_FALSE(c.dialogs.shown.empty());
    EXPECT_EQ(c.dialogs.shown.back().title, "Plots Saved");
    EXPECT_EQ(c.dialogs.shown.back().text, "The plots were saved in " + dir.file("tb") +
                                               "_0.bmp to " + dir.file("tb") + "_5.bmp.");
    // A cancelled printer dialogue prints nothing and says nothing.
    const size_t before = c.dialogs.shown.size();
    c.dialogs.printAnswers = {false};
    form.command(2)->click();
    EXPECT_EQ(c.dialogs.printDialogs.size(), 1u);
    EXPECT_EQ(c.dialogs.shown.size(), before);
}

TEST_F(FrmThompsonTest, RefusalsLeaveTheScreenUsable) {
    // A combination with catches but no selection: the collected notice, no result.
    SpeciesData grouper = test::TbSpecies("Grouper", {0.2, 0.2, 0.2, 0.2, 0.2});
    sce.addSpecies(grouper);
    SaveCatches(sce.path(), "Seine", "Grouper", test::TbCatches(grouper, {1, 2, 3, 4, 5}));
    FrmThompson form(c.ctx);
    form.command(0)->click();
    EXPECT_FALSE(form.result());
    ASSERT_EQ(c.dialogs.shown.size(), 1u);
    EXPECT_EQ(c.dialogs.shown[0].title, "Invalid Data...");
    EXPECT_NE(c.dialogs.shown[0].text.find("Species, Grouper, is caught by fleet, Seine but no "
                                           "selection data is recorded. "),
              std::string::npos);

    // A species file that is gone: the invalid-path notice, and the screen starts empty.
    fs::remove(dir.file("Grouper.spc"));
    form.command(0)->click();
    EXPECT_EQ(c.dialogs.shown.back().title, "Invalid File Path");
    EXPECT_EQ(form.lstThompson(0)->count(), 0);
    EXPECT_TRUE(form.fileBox()->text().isEmpty());
    form.command(0)->click();  // nothing to calculate
    EXPECT_FALSE(form.result());
}

}  // namespace
}  // namespace norvo::gui
