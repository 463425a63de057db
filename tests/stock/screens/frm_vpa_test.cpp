#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <cstdlib>
#include <filesystem>

#include "data/record_kinds.h"
#include "data/species_files.h"
#include "stock/screens/frm_vpa1.h"
#include "stock/screens/frm_vpa2.h"
#include "stock/vpa_age.h"
#include "stock/vpa_length.h"
#include "support/lfq_fixtures.h"
#include "support/locale_text.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/plot_view.h"

namespace norvo::gui {
namespace {

struct Context {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};
};

QString Cell(const QTableWidget* t, int row, int col) {
    return t->item(row, col) ? t->item(row, col)->text() : QString();
}

// Screenshots for a look by eye when NORVO_SHOTS names a folder.
void Shot(QWidget& w, const char* name) {
    if (const char* dir = std::getenv("NORVO_SHOTS")) {
        w.resize(1150, 640);
        w.grab().save(QString(dir) + "/" + name + ".png");
    }
}

std::string LengthFile(const test::TempDir& dir) {
    return test::MakeLfqFile(
        dir.file("lca.lfq"), test::LfqHeaderOf("Lca fish", "cm", 15, 10),
        {test::SampleOn(1, 15, 3, 2001), test::SampleOn(2, 15, 9, 2001)},
        test::ByClass({{300, 900, 700, 400, 200, 90, 30}, {200, 800, 600, 300, 150, 60, 10}}));
}

TEST(FrmVpa2, ComputesAdjustsPlusGroupsPicksTerminalFAndSavesSpecies) {
    test::TempDir dir;
    Context c;
    c.settings.setRunTime(kKeyLastActive, LengthFile(dir));
    c.settings.setRunTime("LastLoo", "66");
    c.settings.setRunTime("LastK", "0.4");
    FrmVpa2 form(c.ctx);
    EXPECT_EQ(form.param(5)->text(), "66");
    EXPECT_EQ(form.param(1)->text(), test::Local("0.0001"));
    form.param(3)->setText(test::Local("0.3"));
    form.param(4)->setText(test::Local("0.5"));
    form.param(7)->setText("1");
    form.command(0)->click();
    ASSERT_TRUE(form.result());
    ASSERT_EQ(c.dialogs.shown.size(), 1u);
    EXPECT_EQ(c.dialogs.shown[0].text, kVpaPlusAdjustedText);
    EXPECT_EQ(form.param(7)->text(), "2");
    EXPECT_EQ(form.table()->rowCount(), 7);
    EXPECT_EQ(Cell(form.table(), 0, 0), test::Local("15.00"));
    EXPECT_EQ(form.table()->horizontalHeaderItem(4)->text(), "Steady-state Biomass (tonnes)");
    Shot(form, "frmVPA2");

    // A click with "Modify terminal F from graph": F from the height, plus-groups from the class.
    form.modifyBox()->click();
    EXPECT_EQ(c.dialogs.shown.back().text, kVpa2ModifyTip);
    const double w = 75.0 / 7;
    form.pressPlot(20 + 4.5 * w, 85 - 77.0 / 2);  // half way up an F axis topped at 1 or more
    EXPECT_EQ(form.param(7)->text(), "3");
    EXPECT_EQ(form.result()->nUsed, 4);
    EXPECT_NE(form.param(4)->text(), test::Local("0.5"));

    // Ft of 0 is refused with nothing shown.
    form.param(4)->setText("0");
    form.command(0)->click();
    EXPECT_EQ(c.dialogs.shown.back().text, kVpaLengthFtText);
    EXPECT_FALSE(form.result());
    EXPECT_FALSE(form.command(3)->isEnabled());

    form.param(4)->setText(test::Local("0.5"));
    form.command(0)->click();
    const std::string spc = dir.file("out.spc");
    c.dialogs.saveAnswers.push_back(spc);
    form.command(3)->click();
    EXPECT_EQ(c.dialogs.shown.back().text, SpeciesSavedText(spc));
    const auto species = ReadSpeciesFile(spc);
    ASSERT_TRUE(species.ok());
    EXPECT_EQ(species->header.noGroups, 7);
    EXPECT_FLOAT_EQ(static_cast<float>(species->header.recruit), form.result()->N[1]);
}

TEST(FrmVpa1, LoadsTheActiveFileAndRefusesBadIntervals) {
    test::TempDir dir;
    const std::string path = dir.file("a.caa");
    const RecordKind& kind = *FindRecordKind("CAA");
    RecordFile file;
    file.header["Speciesname"] = "Aged fish";
    file.header["Unit_Of_Age_Measurement"] = "years";
    for (double age : {1.0, 2.0, 3.0, 4.0}) {
        GridRow row(kind.columns.size());
        row[static_cast<size_t>(ColumnIndex(kind, "Age"))] = age;
        row[static_cast<size_t>(ColumnIndex(kind, "Catch"))] = 1000 / age;
        row[static_cast<size_t>(ColumnIndex(kind, "WF"))] = 1.0;
        file.rows.push_back(row);
    }
    WriteRecordFile(path, test::BinDir().string(), kind, file);
    Context c;
    c.settings.setRunTime(kKeyLastActive, path);
    FrmVpa1 form(c.ctx);
    ASSERT_TRUE(form.result());
    EXPECT_EQ(form.table()->rowCount(), 4);
    EXPECT_EQ(Cell(form.table(), 3, 3), test::Local("0.5000"));
    Shot(form, "frmVPA1");

    form.param(2)->setText(test::Local("1.5"));
    form.command(0)->click();
    EXPECT_EQ(c.dialogs.shown.back().text, kVpaDtLimitsText);
    EXPECT_FALSE(form.result());
    form.param(2)->setText("abc");
    form.command(0)->click();
    EXPECT_EQ(c.dialogs.shown.back().text, "Invalid number");
}

}  // namespace
}  // namespace norvo::gui
