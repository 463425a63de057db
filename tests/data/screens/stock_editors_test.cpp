#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <cstdlib>
#include <filesystem>

#include "data/screens/frm_flt.h"
#include "data/screens/frm_scenario.h"
#include "data/screens/frm_spc.h"
#include "data/screens/frm_tip1.h"
#include "data/species_files.h"
#include "data/store_routines.h"
#include "support/lfq_fixtures.h"
#include "support/locale_text.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/data_grid.h"

namespace norvo::gui {
namespace {

class StockEditorsTest : public ::testing::Test {
  protected:
    test::TempDir dir;
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};

    std::string newFile(const std::string& name) {
        const std::string path = dir.file(name);
        EXPECT_TRUE(CopyTemplate(path, test::BinDir().string()));
        return path;
    }
    std::string speciesFile(const std::string& name, const std::string& species) {
        const std::string path = newFile(name);
        SpeciesData d;
        d.header.speciesName = species;
        d.header.classSize = 2;
        d.classes = {{11, 0.1, 1}, {13, 0.2, 1}, {15, 0.4, 1}};
        WriteSpeciesFile(path, d);
        return path;
    }
    std::string fleetFile(const std::string& name, const std::string& fleet) {
        const std::string path = newFile(name);
        WriteFleetFile(path, {{}, fleet, ""});
        return path;
    }
    template <class E>
    std::unique_ptr<E> editorOn(const std::string& path, bool open = true) {
        auto e = std::make_unique<E>(ctx);
        e->setAttribute(Qt::WA_DeleteOnClose, false);
        e->setFilePath(QString::fromStdString(path));
        if (open) e->OpenFile();
        return e;
    }
};

TEST_F(StockEditorsTest, SpeciesEditorShowsAndSavesTheThreeTables) {
    const std::string path = speciesFile("a.spc", "Bream");
    auto e = editorOn<FrmSpc>(path);
    EXPECT_EQ(e->box(0)->text(), "Bream");
    EXPECT_EQ(e->box(3)->text(), test::Local("2.00"));
    EXPECT_EQ(e->grid()->maxRows(), 3);
    e->box(9)->setText(test::Local("0.75"));
    e->grid()->setValue(1, 2, 4.5);
    e->SaveFile();
    const auto r = ReadSpeciesFile(path);
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r->header.ft, 0.75);
    EXPECT_EQ(r->classes[1].value, 4.5);
    // A box that is no number stops the save.
    e->box(9)->setText("x");
    e->SaveFile();
    EXPECT_EQ(dialogs.shown.back().text, "Invalid number");
    EXPECT_EQ(ReadSpeciesFile(path)->header.ft, 0.75);

    // A file of another kind: the read error, and the editor closes.
    auto bad = editorOn<FrmSpc>(newFile("b.lfq"));
    EXPECT_EQ(dialogs.shown.back().text, kCorruptedOrWrongFormat);
}

TEST_F(StockEditorsTest, FleetEditorRoundTrip) {
    const std::string path = newFile("a.flt");
    auto e = editorOn<FrmFlt>(path, false);
    e->box(0)->setText("Hook 'n' line");
    e->SaveFile();
    auto again = editorOn<FrmFlt>(path);
    EXPECT_EQ(again->box(0)->text(), "Hook 'n' line");
}

TEST_F(StockEditorsTest, ScenarioMembersSelectionCatchesAndRemoval) {
    const std::string path = newFile("a.sce");
    auto e = editorOn<FrmScenario>(path);
    e->SaveHeader();
    EXPECT_EQ(e->titleBox()->text(), kNoTitle);
    EXPECT_EQ(ReadScenarioFile(path)->remarks, kNoRemarks);

    const std::string sp = speciesFile("b.spc", "O'Brien's bream");
    const std::string fl = fleetFile("f.flt", "Trawl");
    e->SaveSpecies(sp);
    e->SaveFleet(fl);
    e->SaveSpecies(sp);
    EXPECT_EQ(dialogs.shown.back().text, kSceAlreadySelected);
    EXPECT_EQ(e->speciesList()->count(), 1);
    EXPECT_EQ(e->speciesList()->item(0)->text().toStdString(), "O'Brien's bream (" + sp + ")");

    // Encoding a selection before a combination is picked is refused.
    e->speciesCombo()->setCurrentIndex(-1);
    e->SaveSelection();
    EXPECT_EQ(dialogs.shown.back().text, kScePickFirst);

    e->speciesCombo()->setCurrentIndex(0);
    e->fleetCombo()->setCurrentIndex(0);
    ASSERT_EQ(e->catches()->maxRows(), 3);
    EXPECT_EQ(e->catches()->value(2, 0), 15.0);
    const char* bad[] = {"20", "15", "30", "40"};
    for (int i = 0; i < 4; ++i) e->selectionBox(i)->setText(bad[i]);
    e->SaveSelection();
    EXPECT_EQ(dialogs.shown.back().text, kL50NotBelowL75);
    const char* good[] = {"10", "15", "30", "40"};
    for (int i = 0; i < 4; ++i) e->selectionBox(i)->setText(good[i]);
    e->SaveSelection();
    EXPECT_EQ(dialogs.shown.back().text, kSceSelectionSaved);
    e->catches()->setValue(1, 1, 7.5);
    // The tip after saving catches comes until the user asks not to see it again.
    int tips = 0;
    e->runTip = [&](FrmTip2& tip) {
        ++tips;
        tip.dontShowBox()->setChecked(true);
        tip.accept();
    };
    e->SaveCatches();
    EXPECT_EQ(dialogs.shown.back().text, kSceCatchesSaved);
    e->SaveCatches();
    EXPECT_EQ(tips, 1);
    EXPECT_EQ(settings.runTime(kTip2Key, kTipShow), kTipHide);
    // chkSelection is the session's choice of F for the Thompson and Bell prediction.
    EXPECT_FALSE(e->selectionCheck()->isChecked());
    e->selectionCheck()->click();
    EXPECT_TRUE(session.thompsonBellSelection);

    // A fresh editor shows what was saved for the combination.
    auto again = editorOn<FrmScenario>(path);
    again->speciesCombo()->setCurrentIndex(0);
    again->fleetCombo()->setCurrentIndex(0);
    EXPECT_EQ(again->selectionBox(1)->text(), test::Local("15.00"));
    EXPECT_EQ(again->catches()->value(1, 1), 7.5);
    if (const char* shots = std::getenv("NORVO_SHOTS")) {
        again->pages()->setCurrentIndex(2);
        again->resize(800, 420);
        again->grab().save(QString(shots) + "/frmScenario.png");
    }

    // Removing the species asks first, and then drops its selection and catches.
    dialogs.answers.push_back(Answer::No);
    again->speciesList()->setCurrentRow(0);
    again->RemoveSpecies();
    EXPECT_EQ(again->speciesList()->count(), 1);
    dialogs.answers.push_back(Answer::Yes);
    again->RemoveSpecies();
    EXPECT_EQ(dialogs.shown.back().text, RemoveMemberQuestion("O'Brien's bream"));
    EXPECT_EQ(again->speciesList()->count(), 0);
    EXPECT_TRUE(test::DumpTable(path, "Selection").empty());
    EXPECT_TRUE(test::DumpTable(path, "Catches").empty());
}

}  // namespace
}  // namespace norvo::gui
