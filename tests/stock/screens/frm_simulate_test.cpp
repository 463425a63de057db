#include "stock/screens/frm_simulate.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <filesystem>

#include "numerics/text_convert.h"
#include "stock/screens/frm_sim_select.h"
#include "support/decimal_separator.h"
#include "support/locale_text.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"

namespace norvo::gui {
namespace {

struct Fixture {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};
    FrmSimulate form{ctx};
};

QString Cell(const QTableWidget* t, int row, int col) {
    return t->item(row, col) ? t->item(row, col)->text() : QString();
}

// Opens frmSimSelect through the screen's command and returns it.
FrmSimSelect* OpenSelect(FrmSimulate& form, int command) {
    form.cmdSelect(command);
    FrmSimSelect* dlg = form.findChild<FrmSimSelect*>();
    EXPECT_TRUE(dlg);
    return dlg;
}

TEST(FrmSimulate, ShowsItsTabsAndDefaults) {
    Fixture f;
    ASSERT_EQ(f.form.tabs()->count(), 7);
    EXPECT_EQ(f.form.tabs()->tabText(1), "Population, mean and variability (s.d./mean)");
    EXPECT_EQ(f.form.tabs()->tabText(6), "&Length Frequencies");
    const QStringList file = {"12", "1", "50", "1.00", "3", "100"};
    for (int i = 0; i < 6; ++i) EXPECT_EQ(f.form.simulBox(i)->text(), test::Local(file[i]));
    const QStringList pop = {"30.00", "0.200", "1.50", "0.200", "0.00", "0.000", "0.00", "0.000"};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(f.form.populationBox(i)->text(), test::Local(pop[i]));
    EXPECT_EQ(f.form.yearTable()->rowCount(), 3);
    EXPECT_EQ(f.form.recruitmentTable()->horizontalHeaderItem(1)->text(), "Rel. Recruitment");
    EXPECT_EQ(Cell(f.form.recruitmentTable(), 11, 0), "December");
    const QStringList sel = {"A", "9.50", "12.00", "50.00", "51.00", "1.00"};
    for (int i = 0; i < 6; ++i) EXPECT_EQ(Cell(f.form.selectionTable(), 0, i), test::Local(sel[i]));
    EXPECT_EQ(f.form.selectionTable()->horizontalHeaderItem(5)->text(), "F(max)");
    EXPECT_EQ(f.form.migrationBox(0)->text(), test::Local("9.00"));
    EXPECT_EQ(f.form.migrationBox(1)->text(), test::Local("11.50"));
    EXPECT_FALSE(f.form.migrateBox()->isChecked());
    EXPECT_TRUE(f.form.fileBox(0)->text().endsWith("Simull01.LFQ"));
    EXPECT_TRUE(f.form.fileBox(1)->text().endsWith("Simull02.LFQ"));

    // The year-class table follows the number of age groups.
    f.form.simulBox(4)->setText("5");
    Q_EMIT f.form.simulBox(4)->editingFinished();
    EXPECT_EQ(f.form.yearTable()->rowCount(), 5);
    EXPECT_EQ(Cell(f.form.yearTable(), 4, 0), "4");
    EXPECT_EQ(f.form.inputs().yearClasses.size(), 5u);
}

TEST(FrmSimulate, MigrationNeedsASecondAreaFromTheSelectionDialogue) {
    Fixture f;
    f.form.migrateBox()->setChecked(true);
    ASSERT_EQ(f.dialogs.shown.size(), 1u);
    EXPECT_EQ(f.dialogs.last().title, "Re-check Inputs...");
    EXPECT_EQ(f.dialogs.last().text,
              "Please re-check inputs for the population selection and Fmax parameters.");
    EXPECT_FALSE(f.form.migrateBox()->isChecked());

    FrmSimSelect* dlg = OpenSelect(f.form, 0);
    ASSERT_TRUE(dlg);
    EXPECT_EQ(dlg->windowTitle(), "Selection Parameters");
    EXPECT_EQ(dlg->box(0)->text(), "B");
    dlg->box(2)->setText("8");  // L75 below L50
    dlg->accept();
    EXPECT_EQ(f.dialogs.shown.size(), 2u);
    EXPECT_TRUE(dlg->isVisible());
    dlg->box(2)->setText("14");
    dlg->box(5)->setText(test::Local("2.5"));
    dlg->negligibleBox()->setChecked(true);
    EXPECT_FALSE(dlg->box(3)->isEnabled());
    dlg->accept();
    ASSERT_EQ(f.form.selectionTable()->rowCount(), 2);
    EXPECT_EQ(Cell(f.form.selectionTable(), 1, 0), "B");
    EXPECT_EQ(Cell(f.form.selectionTable(), 1, 2), test::Local("14.00"));
    EXPECT_EQ(Cell(f.form.selectionTable(), 1, 3), "-");
    EXPECT_EQ(f.form.inputs().selection[1].fmax, 2.5);

    f.form.migrateBox()->setChecked(true);
    EXPECT_TRUE(f.form.migrateBox()->isChecked());
    EXPECT_EQ(f.dialogs.shown.size(), 2u);
    EXPECT_TRUE(f.form.inputs().migrate);

    // Deleting the current row takes it out of the run.
    f.form.selectionTable()->selectRow(1);
    f.form.cmdSelect(2);
    EXPECT_EQ(f.form.inputs().selection.size(), 1u);
}

TEST(FrmSimulate, SimulateWritesTheFilesAndFillsTheResultTables) {
    Fixture f;
    test::TempDir dir;
    f.form.fileBox(0)->setText(QString::fromStdString(dir.file("s.lfq")));
    f.form.fileBox(1)->setText(QString::fromStdString(dir.file("c.lfq")));
    f.form.simulBox(0)->setText("3");
    f.form.cmdSimulate();
    ASSERT_EQ(f.dialogs.shown.size(), 3u);
    EXPECT_EQ(f.dialogs.last().text, "Simulation was succesfully completed.");
    EXPECT_TRUE(std::filesystem::exists(dir.file("s.lfq")));
    EXPECT_TRUE(std::filesystem::exists(dir.file("c.lfq")));
    EXPECT_EQ(f.form.tabs()->currentIndex(), 6);

    const QTableWidget* ages = f.form.ageDistTable();
    ASSERT_EQ(ages->rowCount(), 3);
    int stock = 0, caught = 0;
    for (int r = 0; r < 3; ++r) {
        stock += Cell(ages, r, 1).toInt();
        caught += Cell(ages, r, 2).toInt();
    }
    EXPECT_EQ(stock, 150);
    EXPECT_EQ(caught, 150);
    const QTableWidget* lf = f.form.frequencyTable(SimSet::Stock);
    ASSERT_EQ(lf->rowCount(), 3);
    EXPECT_EQ(lf->verticalHeaderItem(0)->text(), "15/01/2001");
    EXPECT_EQ(lf->horizontalHeaderItem(2)->text(), "S.D.");
    EXPECT_EQ(lf->horizontalHeaderItem(3)->text(), test::Local("0.50"));
    EXPECT_EQ(Cell(lf, 0, 0), "50");
    EXPECT_EQ(Cell(lf, 0, 1), test::Local("19.28"));  // the seed-100 run's first sample
    EXPECT_EQ(Cell(lf, 0, 2), test::Local("3.892"));
}

TEST(FrmSimulate, TextThatIsNotANumberIsRefusedBeforeAnythingIsWritten) {
    Fixture f;
    test::TempDir dir;
    f.form.fileBox(0)->setText(QString::fromStdString(dir.file("s.lfq")));
    f.form.fileBox(1)->setText(QString::fromStdString(dir.file("c.lfq")));
    f.form.populationBox(0)->setText("thirty");
    f.form.cmdSimulate();
    ASSERT_EQ(f.dialogs.shown.size(), 1u);
    EXPECT_EQ(f.dialogs.last().title, "Invalid Input...");
    EXPECT_FALSE(std::filesystem::exists(dir.file("s.lfq")));
    EXPECT_EQ(f.form.ageDistTable()->rowCount(), 0);

    // A blank box is not 0: C may be 0, but a blank C is refused.
    f.form.populationBox(0)->setText("30");
    f.form.populationBox(4)->clear();
    f.form.cmdSimulate();
    ASSERT_EQ(f.dialogs.shown.size(), 2u);
    EXPECT_EQ(f.dialogs.last().text,
              "The amplitude of oscillation (C) should be within the range of 0.00 to 1.00. "
              "Please correct input.");
    EXPECT_FALSE(std::filesystem::exists(dir.file("s.lfq")));
}

TEST(FrmSimulate, BoxesShowAndReadNumbersWithTheLocaleSeparator) {
    const test::ScopedDecimalSeparator comma(',');
    Fixture f;
    EXPECT_EQ(f.form.populationBox(0)->text(), "30,00");
    EXPECT_EQ(f.form.populationBox(1)->text(), "0,200");
    f.form.populationBox(2)->setText("1,25");
    const SimulationInputs in = f.form.inputs();
    EXPECT_EQ(in.loo, 30.0);
    EXPECT_EQ(in.k, 1.25);
    EXPECT_FALSE(CheckSimulationInputs(in).has_value());
}

}  // namespace
}  // namespace norvo::gui
