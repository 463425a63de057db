#include "data/screens/record_editor.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDate>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "data/file_kind.h"
#include "data/record_checks.h"
#include "data/sample_readers.h"
#include "data/store_routines.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/data_grid.h"

namespace norvo::gui {
namespace {

namespace fs = std::filesystem;

class RecordEditorTest : public ::testing::Test {
  protected:
    test::TempDir dir;
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};

    std::string newFile(const std::string& code) {
        const std::string path = dir.file("f." + code);
        fs::copy_file(test::BinDir() / "Templates" / ("Template." + code), path,
                      fs::copy_options::overwrite_existing);
        return path;
    }

    std::unique_ptr<RecordEditor> editorOn(const std::string& code, const std::string& path,
                                           bool open) {
        auto e = std::make_unique<RecordEditor>(ctx, *FindRecordKind(code));
        e->setAttribute(Qt::WA_DeleteOnClose, false);
        e->setFilePath(QString::fromStdString(path));
        if (open) e->OpenFile();
        return e;
    }

    // Types into a cell through its editor and presses Enter, as the user would.
    static void typeCell(DataGrid* grid, int row, int col, const QString& text) {
        grid->setCurrentCell(row, col);
        grid->edit(grid->model()->index(row, col));
        auto* edit = grid->viewport()->findChild<QLineEdit*>();
        ASSERT_NE(edit, nullptr);
        edit->setText(text);
        QTest::keyClick(edit, Qt::Key_Return);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Two valid GIN rows typed into the grid.
    void typeGinRow(RecordEditor& e, int row, const QStringList& cells) {
        for (int c = 0; c < cells.size(); ++c) typeCell(e.grid(), row, c, cells[c]);
    }

    // Closes, declining to save and to delete.
    void discard(RecordEditor& e) {
        dialogs.defaultAnswer = Answer::No;
        e.close();
        dialogs.defaultAnswer.reset();
    }
};

// A value each column accepts; dates make the recapture a year after the tagging.
QString ValueFor(const GridColumn& c, int row, int col) {
    const std::string f = c.field;
    if (c.whole) {
        if (f.find("Year") != std::string::npos) return f.back() == '2' ? "2001" : "2000";
        if (f.find("Day") != std::string::npos) return QString::number(10 + row);
        return "3";
    }
    if (c.max <= 1) return "0.5";
    return QString::number(1.25 + row + col);
}

TEST_F(RecordEditorTest, EveryKindMadeFilledSavedAndReopened) {
    for (const RecordKind& k : RecordKinds()) {
        SCOPED_TRACE(k.code);
        const std::string path = newFile(k.code);
        auto e = editorOn(k.code, path, false);
        if (e->box("Speciesname")) e->setBoxText("Speciesname", "Sepia");
        e->setBoxText("Remarks", "two rows");
        for (int r = 0; r < 2; ++r)
            for (int c = 0; c < static_cast<int>(k.columns.size()); ++c)
                typeCell(e->grid(), r, c, ValueFor(k.columns[c], r, c));
        EXPECT_FALSE(e->saved());
        e->SaveFile();
        EXPECT_TRUE(dialogs.shown.empty()) << dialogs.last().text;
        EXPECT_TRUE(e->saved());

        auto again = editorOn(k.code, path, true);
        EXPECT_EQ(again->grid()->maxRows(), 2);
        for (int r = 0; r < 2; ++r)
            for (int c = 0; c < static_cast<int>(k.columns.size()); ++c)
                EXPECT_EQ(again->grid()->value(r, c), e->grid()->value(r, c)) << r << "," << c;
        EXPECT_EQ(again->boxText("Remarks"), "two rows");
        if (e->box("Speciesname")) {
            EXPECT_EQ(again->boxText("Speciesname"), "Sepia");
        }
        EXPECT_EQ(again->grid()->rowHeading(1), "2");
        EXPECT_EQ(again->grid()->cornerTitle(), k.rowHeading);
        EXPECT_TRUE(again->saved());
        dialogs.shown.clear();
    }
}

TEST_F(RecordEditorTest, CellsRefuseValuesOutsideTheirLimitsSilently) {
    auto e = editorOn("GIN", newFile("GIN"), false);
    typeCell(e->grid(), 0, 0, "32");
    typeCell(e->grid(), 0, 1, "12");
    typeCell(e->grid(), 0, 2, "1799");
    EXPECT_FALSE(e->grid()->value(0, 0));
    EXPECT_EQ(e->grid()->value(0, 1), 12.0);
    EXPECT_FALSE(e->grid()->value(0, 2));
    auto p = editorOn("PRB", newFile("PRB"), false);
    typeCell(p->grid(), 0, 1, "1.5");
    EXPECT_FALSE(p->grid()->value(0, 1));
    EXPECT_TRUE(dialogs.shown.empty());
    // Each column shows its own decimals.
    typeCell(p->grid(), 0, 1, "0.25");
    typeCell(e->grid(), 0, 3, "10.5");
    EXPECT_EQ(e->grid()->model()->index(0, 3).data(Qt::EditRole).toDouble(), 10.5);
    discard(*e);
    discard(*p);
}

TEST_F(RecordEditorTest, GrowthIncrementChecksInOrder) {
    const std::string path = newFile("GIN");
    auto e = editorOn("GIN", path, false);
    e->setBoxText("Speciesname", "Panulirus");
    typeGinRow(*e, 0, {"1", "2", "2000", "10", "1", "8", "2000", "12"});
    typeGinRow(*e, 1, {"5", "5", "", "11", "5", "9", "2000", "13"});
    e->SaveFile();
    EXPECT_EQ(dialogs.last().text, EmptyCellText(2, 3));
    EXPECT_EQ(dialogs.last().text,
              "The cell in row 2, column 3 is empty. Please correct the input.");
    EXPECT_FALSE(e->saved());

    // 31 February: every cell in range, the date is not.
    typeGinRow(*e, 1, {"31", "2", "2000", "11", "5", "9", "2000", "13"});
    e->SaveFile();
    EXPECT_EQ(dialogs.last().title, kInvalidDataTitle);
    EXPECT_EQ(dialogs.last().text,
              "Invalid date input for date on row 2. Please check before saving.");

    // Same day of tagging and recapture stops the save.
    typeGinRow(*e, 1, {"5", "9", "2000", "11", "5", "9", "2000", "13"});
    e->SaveFile();
    EXPECT_EQ(dialogs.last().text,
              "The date of recapture cannot be less than or equal to date of tagging. Please "
              "correct row 2 before saving.");
    EXPECT_FALSE(e->saved());

    // Shrinkage only warns; the file is saved.
    typeGinRow(*e, 1, {"5", "9", "2000", "14", "6", "9", "2000", "13"});
    const size_t before = dialogs.shown.size();
    e->SaveFile();
    ASSERT_EQ(dialogs.shown.size(), before + 1);
    EXPECT_EQ(dialogs.last().title, "Warning...");
    EXPECT_EQ(dialogs.last().text,
              "WARNING! Growth is either stunted or virtual shinkage occurred for observation "
              "no. 2");
    EXPECT_TRUE(e->saved());
    EXPECT_EQ(session.readGin(path, settings, dialogs)->rows.size(), 2u);
}

TEST_F(RecordEditorTest, MeansKeepTypedOrderAndCheckDates) {
    const std::string path = newFile("MSD");
    auto e = editorOn("MSD", path, false);
    e->setBoxText("Speciesname", "Upeneus");
    const QStringList rows[] = {{"1", "6", "2001", "20", "1.5"},
                                {"1", "2", "2001", "15", "1.2"},
                                {"1", "2", "2001", "9", "1.1"}};
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 5; ++c) typeCell(e->grid(), r, c, rows[r][c]);
    e->SaveFile();
    ASSERT_TRUE(e->saved());
    auto again = editorOn("MSD", path, true);
    EXPECT_EQ(again->grid()->value(0, 3), 20.0);  // the editor shows the typed order
    const auto sorted = session.readMsd(path, dialogs).value().rows;
    ASSERT_EQ(sorted.size(), 3u);
    EXPECT_FLOAT_EQ(sorted[0].length, 9.0f);
    EXPECT_FLOAT_EQ(sorted[2].length, 20.0f);

    typeCell(again->grid(), 1, 0, "31");
    again->SaveFile();
    EXPECT_EQ(dialogs.last().text,
              "The date entry 31/2/2001 for observation number 2 is invalid. Data will not be "
              "saved. Please correct data before saving.");
    EXPECT_FALSE(again->saved());
    again->grid()->setValue(1, 0, 1.0);
    discard(*again);
}

TEST_F(RecordEditorTest, ASaveThatFailsOnClosingKeepsTheEditorOpen) {
    const std::string folder = dir.file("gone");
    fs::create_directories(folder);
    const std::string path = folder + "/f.LAA";
    fs::copy_file(test::BinDir() / "Templates" / "Template.LAA", path);
    auto e = editorOn("LAA", path, false);
    e->setBoxText("Speciesname", "Upeneus");
    typeCell(e->grid(), 0, 0, "2");
    typeCell(e->grid(), 0, 1, "31.5");
    ASSERT_FALSE(e->saved());
    fs::remove_all(folder);  // the file's folder vanishes before the close

    dialogs.answers = {Answer::Yes};  // save the changes
    EXPECT_FALSE(e->close());
    EXPECT_EQ(dialogs.last().text, "File Save Error. File not saved!");
    EXPECT_EQ(e->grid()->value(0, 1), 31.5);  // the work is still there

    fs::create_directories(folder);  // with the folder back, the close saves and ends
    fs::copy_file(test::BinDir() / "Templates" / "Template.LAA", path);
    dialogs.answers = {Answer::Yes};
    EXPECT_TRUE(e->close());
    EXPECT_TRUE(e->saved());
}

TEST_F(RecordEditorTest, BlanksFilledOnLeavingACell) {
    auto e = editorOn("VLF", newFile("VLF"), false);
    DataGrid* g = e->grid();
    typeCell(g, 0, 0, "10.5");
    g->setCurrentCell(0, 1);
    g->setCurrentCell(0, 2);  // To left blank
    EXPECT_EQ(g->value(0, 1), 11.0);
    g->setCurrentCell(1, 0);
    g->setCurrentCell(1, 1);  // the next From left blank
    EXPECT_FLOAT_EQ(static_cast<float>(*g->value(1, 0)), 11.01f);
    // Passing through an empty row leaves it empty.
    g->setCurrentCell(3, 2);
    g->setCurrentCell(4, 2);
    EXPECT_TRUE(g->isBlank(3, 2));

    auto m = editorOn("MSD", newFile("MSD"), false);
    typeCell(m->grid(), 0, 3, "12");
    m->grid()->setCurrentCell(0, 0);
    m->grid()->setCurrentCell(0, 1);
    EXPECT_EQ(m->grid()->value(0, 0), QDate::currentDate().day());
    discard(*m);
    e->setBoxText("Speciesname", "x");
    discard(*e);
}

TEST_F(RecordEditorTest, VariableClassesCannotBeSavedAsGrouped) {
    const std::string path = newFile("VLF");
    auto e = editorOn("VLF", path, false);
    const std::string target = dir.file("g.lfq");
    e->SaveFileAs(QString::fromStdString(target));
    EXPECT_EQ(dialogs.last().title, "Missing Module...");
    EXPECT_EQ(dialogs.last().text, kMissingModuleText);
    EXPECT_FALSE(fs::exists(target));
    EXPECT_EQ(e->filePath().toStdString(), path);

    e->setBoxText("Speciesname", "x");
    const std::string copy = dir.file("h.vlf");
    e->SaveFileAs(QString::fromStdString(copy));
    EXPECT_TRUE(fs::exists(copy));
    EXPECT_EQ(e->filePath().toStdString(), copy);
    EXPECT_EQ(e->windowTitle().toStdString(), copy);  // the caption shows the new path
}

TEST_F(RecordEditorTest, WeightUnitsTurnTheUngroupedColumnIntoWeights) {
    auto e = editorOn("ULF", newFile("ULF"), false);
    EXPECT_EQ(e->grid()->colHeading(0), "Length (cm)");
    e->setBoxText("Unit_Of_Measurement", "kg");
    EXPECT_EQ(e->grid()->colHeading(0), "Weight (kg)");
    EXPECT_FALSE(e->box("Type_Of_Measurement")->isEnabled());
    e->setBoxText("Unit_Of_Measurement", "mm");
    EXPECT_EQ(e->grid()->colHeading(0), "Length (mm)");
    EXPECT_TRUE(e->box("Type_Of_Measurement")->isEnabled());
    e->setBoxText("Speciesname", "x");
    discard(*e);
}

TEST_F(RecordEditorTest, RequiredBoxAndUnsavedEmptyFile) {
    const std::string path = newFile("CAA");
    auto e = editorOn("CAA", path, false);
    typeCell(e->grid(), 0, 0, "2");
    e->SaveFile();
    EXPECT_NE(dialogs.last().text.find("Species name"), std::string::npos);
    EXPECT_FALSE(e->saved());
    e->grid()->setValue(0, 0, std::nullopt);
    // Leaving unsaved: No, then Yes to deleting the empty file.
    dialogs.answers = {Answer::No, Answer::Yes};
    e->close();
    EXPECT_EQ(dialogs.shown.at(dialogs.shown.size() - 3).title, kRecordUnsavedTitle);
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(RecordEditorTest, ExportWritesTheReportAsTabDelimitedText) {
    const std::string path = newFile("GIN");
    auto e = editorOn("GIN", path, false);
    e->setBoxText("Speciesname", "Haliotis");
    typeGinRow(*e, 0, {"1", "2", "2000", "10", "1", "8", "2000", "12.25"});
    dialogs.saveAnswers = {std::nullopt};
    e->Export();  // cancelled: nothing written
    const std::string out = dir.file("r.tab");
    dialogs.saveAnswers = {out};
    e->Export();
    EXPECT_EQ(dialogs.fileDialogs.back().title, "Export...");
    std::ifstream in(out);
    std::vector<std::string> lines;
    for (std::string l; std::getline(in, l);) lines.push_back(l);
    ASSERT_GE(lines.size(), 14u);
    EXPECT_EQ(lines[0].substr(0, 44), "Norvo 2: Olmar-Tavesh Stock Assessment Tools");
    EXPECT_EQ(lines[1].substr(0, 21), "Growth Increment Data");
    EXPECT_EQ(lines[4], "Species name:\tHaliotis\t\t\t\t\t\t\t");
    const auto band = std::find_if(lines.begin(), lines.end(), [](const std::string& l) {
        return l.find("Tagging") != l.npos;
    });
    ASSERT_NE(band, lines.end());
    EXPECT_EQ(*band, "\tTagging\t\t\t\tRecaptured\t\t\t");
    EXPECT_EQ(*(band + 1), "Obs.\tDay\tMonth\tYear\tLength\tDay\tMonth\tYear\tLength");
    EXPECT_EQ(*(band + 2), "1\t1\t2\t2000\t10.00\t1\t8\t2000\t12.25");
    EXPECT_EQ(lines.back().substr(0, 9), "Remarks: ");
    discard(*e);
}

}  // namespace
}  // namespace norvo::gui
