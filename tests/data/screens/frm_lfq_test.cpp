#include "data/screens/frm_lfq.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>
#include <algorithm>
#include <deque>
#include <filesystem>
#include <fstream>

#include "data/data_store.h"
#include "data/lfq_file.h"
#include "data/screens/frm_lfq_sub.h"
#include "data/screens/frm_tip1.h"
#include "numerics/text_convert.h"
#include "support/decimal_separator.h"
#include "support/lfq_fixtures.h"
#include "support/locale_text.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/data_grid.h"

namespace norvo::gui {
namespace {

namespace fs = std::filesystem;

// What the user types into the sub-header dialogue; an empty day cancels it.
struct SubFill {
    QString day, month, year;
    QString area;
};

class LfqEditorTest : public ::testing::Test {
  protected:
    test::TempDir dir;
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};
    std::deque<SubFill> fills;
    int tipsShown = 0;

    std::string newFile(const std::string& name = "new.lfq") { return test::NewLfq(dir, name); }

    std::unique_ptr<FrmLfq> editorOn(const std::string& path) {
        auto e = std::make_unique<FrmLfq>(ctx);
        e->setAttribute(Qt::WA_DeleteOnClose, false);
        e->setFilePath(QString::fromStdString(path));
        e->runTip = [this](FrmTip1& tip) {
            ++tipsShown;
            tip.dontShowBox()->setChecked(true);
            tip.accept();
        };
        e->runSubheader = [this](FrmLfqSub& sub) {
            ASSERT_FALSE(fills.empty()) << "unexpected sub-header dialogue";
            const SubFill f = fills.front();
            fills.pop_front();
            if (f.day.isEmpty()) {
                sub.findChild<QPushButton*>("cmdLFQ_1")->click();
                return;
            }
            sub.dayBox()->setCurrentText(f.day);
            sub.monthBox()->setCurrentText(f.month);
            sub.yearBox()->setText(f.year);
            sub.findChild<QLineEdit*>("txtArea")->setText(f.area);
            sub.findChild<QLineEdit*>("txtDepth")->setText(test::Local("12.5"));
            sub.findChild<QComboBox*>("cmbBottom")->setCurrentText("Silt");
            sub.findChild<QPushButton*>("cmdLFQ_0")->click();
        };
        return e;
    }

    // Types a value into a box and leaves it, as the user would.
    static void typeAndLeave(QLineEdit* box, const QString& text) {
        box->setText(text);
        QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(box, &out);
    }

    // Types into a grid cell through its editor and presses Enter.
    static void typeCell(DataGrid* grid, int row, int col, const QString& text) {
        grid->setCurrentCell(row, col);
        grid->edit(grid->model()->index(row, col));
        auto* edit = grid->viewport()->findChild<QLineEdit*>();
        ASSERT_NE(edit, nullptr);
        edit->setText(text);
        QTest::keyClick(edit, Qt::Key_Return);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // A saved file: header, `samples` columns dated the 1st of each month from January 2001,
    // `classes` rows of s*100+c.
    std::string savedFile(int samples, int classes, const std::string& name = "saved.lfq") {
        std::vector<std::vector<double>> freq(classes, std::vector<double>(samples));
        for (int j = 0; j < samples; ++j)
            for (int c = 0; c < classes; ++c) freq[c][j] = j * 100 + c;
        return test::MakeLfqFile(dir.file(name),
                                 test::LfqHeaderOf("Nemipterus", "cm", 7.5, 1, "Fork length (FL)"),
                                 test::MonthlySamples(samples, 1, 2001), freq);
    }
};

TEST_F(LfqEditorTest, NewFileToSavedChronologicalFileAndBack) {
    const std::string path = newFile();
    auto ed = editorOn(path);
    DataGrid* grid = ed->grid();
    EXPECT_EQ(grid->maxCols(), 0);
    EXPECT_EQ(grid->maxRows(), 10);
    EXPECT_EQ(grid->cornerTitle(), "ML");
    EXPECT_EQ(grid->rowHeading(0), "");
    EXPECT_FALSE(ed->cmdLFQ(0)->isEnabled());
    EXPECT_EQ(ed->cmbLFQ(0)->currentText(), "cm");
    EXPECT_EQ(ed->cmbLFQ(1)->currentText(), "Total length (TL)");
    EXPECT_EQ(ed->pages()->tabText(0), "Headers");
    EXPECT_EQ(ed->pages()->tabText(1), "Frequencies");

    ed->txtLFQ(0)->setText("Sardinella longiceps");
    ed->cmbLFQ(1)->setCurrentText("Standard length (SL)");
    typeAndLeave(ed->txtLFQ(2), test::Local("5.5"));
    EXPECT_EQ(grid->rowHeading(0), "");  // midlengths wait for both values
    typeAndLeave(ed->txtLFQ(3), "1");
    EXPECT_EQ(grid->rowHeading(0), "5.50");
    EXPECT_EQ(grid->rowHeading(9), "14.50");
    ed->remarksBox()->setPlainText("port sampling");

    // Three samples, out of date order; the first brings the tip.
    fills = {{"15", "6", "1998", "June"}, {"2", "3", "1998", "March"}, {"20", "1", "1999", "Jan"}};
    ed->InsertCol();
    ed->InsertCol();
    ed->InsertCol();
    EXPECT_EQ(tipsShown, 1);
    EXPECT_EQ(settings.runTime("Tip1", "Show"), "Hide");
    ASSERT_EQ(grid->maxCols(), 3);
    EXPECT_EQ(grid->colHeading(0), "15/06/1998");
    EXPECT_EQ(grid->colHeading(1), "02/03/1998");
    EXPECT_TRUE(ed->cmdLFQ(0)->isEnabled());
    // The sub-header reached the file at once.
    EXPECT_EQ(ReadSampleHeaders(path).size(), 3u);

    typeCell(grid, 0, 0, "1.5");
    typeCell(grid, 1, 0, "4");
    typeCell(grid, 0, 1, "7");
    typeCell(grid, 2, 2, "99");
    EXPECT_EQ(grid->cellText(0, 0), "2");  // shown rounded, stored whole
    EXPECT_EQ(grid->value(0, 0), 1.5);
    ed->decimalBox()->setChecked(true);
    EXPECT_EQ(grid->cellText(0, 0), "1.50");
    EXPECT_FALSE(FrmLfq::savedFlag());

    ed->SaveFile();
    EXPECT_TRUE(dialogs.shown.empty()) << dialogs.last().text;
    EXPECT_TRUE(FrmLfq::savedFlag());
    // The editor shows the date order too, and rows beyond the last value are gone.
    EXPECT_EQ(grid->colHeading(0), "02/03/1998");
    EXPECT_EQ(grid->maxRows(), 3);

    auto again = editorOn(path);
    again->OpenFile();
    EXPECT_TRUE(dialogs.shown.empty());
    DataGrid* g2 = again->grid();
    ASSERT_EQ(g2->maxCols(), 3);
    ASSERT_EQ(g2->maxRows(), 3);
    EXPECT_EQ(g2->colHeading(0), "2/3/1998");  // loaded headings carry no leading zeros
    EXPECT_EQ(g2->colHeading(1), "15/6/1998");
    EXPECT_EQ(g2->colHeading(2), "20/1/1999");
    EXPECT_EQ(g2->value(0, 0), 7.0);
    EXPECT_EQ(g2->value(0, 1), 1.5);
    EXPECT_EQ(g2->value(1, 1), 4.0);
    EXPECT_EQ(g2->value(2, 2), 99.0);
    EXPECT_EQ(g2->value(2, 0), 0.0);  // blank cells are stored as 0
    EXPECT_EQ(g2->rowHeading(2), "7.50");
    EXPECT_EQ(again->txtLFQ(0)->text(), "Sardinella longiceps");
    EXPECT_EQ(again->cmbLFQ(1)->currentText(), "Standard length (SL)");
    EXPECT_EQ(again->remarksBox()->toPlainText(), "port sampling");
    EXPECT_TRUE(again->cmdLFQ(2)->isEnabled());

    const auto samples = ReadSampleHeaders(path);
    ASSERT_EQ(samples.size(), 3u);
    const std::vector<std::string> areas = {"March", "June", "Jan"};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(samples[i].sampleNo, i + 1);
        EXPECT_EQ(samples[i].area, areas[i]);
        EXPECT_EQ(samples[i].depth, 12.5f);
        EXPECT_EQ(samples[i].bottomType, "Silt");
    }

    // The editor's file reads and rewrites to the same store.
    ASSERT_TRUE(session.readLfq(path, dialogs));
    const std::string copy = newFile("copy.lfq");
    LfqHeader h;
    h.speciesname = session.lfqData.speciesname;
    h.otherId = session.lfqData.otherId;
    h.unitOfMeasurement = session.lfqData.unitOfMeasurement;
    h.typeOfMeasurement = session.lfqData.typeOfMeasurement;
    h.remarks = session.lfqData.remarks;
    h.smallestMl = session.lfqData.smallestMl;
    h.classInterval = session.lfqData.classInterval;
    WriteLfqFile(copy, h, ReadSampleHeaders(path), session.lfqData.freq);
    // Sample_LF is renumbered in place, so only its keys, not its physical order, are kept.
    for (const char* t : {kTableGroupedLf, kTableSampleLf, kTableGlfMeasures}) {
        auto a = test::DumpTable(copy, t), b = test::DumpTable(path, t);
        if (t == std::string(kTableSampleLf)) {
            std::sort(a.begin(), a.end());
            std::sort(b.begin(), b.end());
        }
        EXPECT_EQ(a, b) << t;
    }
}

TEST_F(LfqEditorTest, HeaderChecksRefuseWhatCannotBeSaved) {
    auto ed = editorOn(newFile());
    // Class limits: the ends pass, just outside them the box is cleared with the message.
    for (const auto& [text, ok] : std::vector<std::pair<QString, bool>>{
             {"0.24", false}, {"999.01", false}, {"0.25", true}, {"999", true}}) {
        dialogs.shown.clear();
        typeAndLeave(ed->txtLFQ(3), test::Local(text));
        EXPECT_EQ(ed->txtLFQ(3)->text(), ok ? test::Local(text) : QString()) << text.toStdString();
        if (ok) {
            EXPECT_TRUE(dialogs.shown.empty());
        } else {
            ASSERT_EQ(dialogs.shown.size(), 1u);
            EXPECT_EQ(dialogs.last().text, kClassRangeMessage);
        }
    }

    dialogs.shown.clear();
    ed->txtLFQ(3)->setText("1");
    ed->SaveFile();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().text,
              "The fields Species name and Smallest class midlength are required. Please fill "
              "appropriate values.");
    EXPECT_TRUE(test::DumpTable(ed->filePath().toStdString(), kTableGroupedLf).empty());
}

TEST_F(LfqEditorTest, SubheaderRefusesAnInvalidDateAndWritesNothing) {
    const std::string path = newFile();
    FrmLfqSub sub(path, 1, dialogs, session.numericKeys);
    EXPECT_EQ(sub.findChild<QComboBox*>("cmbSex")->itemText(3), "unknown");
    EXPECT_EQ(sub.findChild<QComboBox*>("cmbBottom")->itemText(4), "Very couse sand");
    sub.dayBox()->setCurrentText("31");
    sub.monthBox()->setCurrentText("4");
    sub.yearBox()->setText("2001");
    sub.ok();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().title, "Invalid Data");
    EXPECT_EQ(dialogs.last().text, "The date input is invalid. Please correct input.");
    EXPECT_NE(sub.result(), QDialog::Accepted);
    EXPECT_EQ(sub.day(), 0);
    EXPECT_TRUE(ReadSampleHeaders(path).empty());

    sub.dayBox()->setCurrentText("30");
    sub.ok();
    EXPECT_EQ(sub.result(), QDialog::Accepted);
    const auto s = ReadSampleHeaders(path);
    ASSERT_EQ(s.size(), 1u);
    EXPECT_EQ(s[0].samplingDay, 30);
    EXPECT_EQ(s[0].lwA, 0.0f);  // empty numeric boxes store 0

    // Reopened, the dialogue shows the record.
    FrmLfqSub back(path, 1, dialogs, session.numericKeys);
    EXPECT_EQ(back.dayBox()->currentText(), "30");
    EXPECT_EQ(back.yearBox()->text(), "2001");
}

// With a comma separator the stored numbers come back into the boxes as the user types them,
// so that reopening and saving keeps them.
TEST_F(LfqEditorTest, StoredNumbersSurviveACommaSeparator) {
    const test::ScopedDecimalSeparator comma(',');
    const std::string path = savedFile(1, 3);
    LfqSample s = test::SampleOn(1, 1, 1, 2001);
    s.depth = 12.5f;
    WriteSampleHeader(path, s);
    FrmLfqSub sub(path, 1, dialogs, session.numericKeys);
    EXPECT_EQ(sub.findChild<QLineEdit*>("txtDepth")->text(), "12,5");
    EXPECT_EQ(sub.sampleFromBoxes().depth, 12.5f);

    auto ed = editorOn(path);
    ed->OpenFile();
    EXPECT_EQ(ed->txtLFQ(2)->text(), "7,5");
    ed->SaveFile();
    EXPECT_TRUE(dialogs.shown.empty()) << dialogs.last().text;
    EXPECT_EQ(ReadLfqHeader(path)->smallestMl, 7.5f);
}

TEST_F(LfqEditorTest, SampleWithoutDateStopsTheSave) {
    // Measures for two samples, but only one sample header left in the file.
    const std::string path = savedFile(2, 4);
    WriteDatesOnly(path, {"1/1/2001"});
    const auto measuresBefore = test::DumpTable(path, kTableGlfMeasures);
    auto ed = editorOn(path);
    ed->OpenFile();
    ASSERT_EQ(ed->grid()->maxCols(), 2);
    EXPECT_EQ(ed->grid()->colHeading(1), "");
    ed->txtLFQ(0)->setText("changed");
    ed->SaveFile();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().title, "Missing Sample Header");
    EXPECT_EQ(dialogs.last().text,
              "Sample No.2 does not have a sampling date. Data was not be saved to disk. Please "
              "correct the error and try again.");
    EXPECT_EQ(test::DumpTable(path, kTableGlfMeasures), measuresBefore);
    EXPECT_EQ(test::DumpTable(path, kTableGroupedLf).front().substr(0, 11), "Nemipterus|");
    EXPECT_FALSE(FrmLfq::savedFlag());

    // A damaged file's sample dated 0/0/0 has no sampling date either.
    WriteSampleHeader(path, test::SampleOn(2, 1, 2, 2001));
    DataStore::open(path).execute(
        "UPDATE [Sample_LF] SET [Sampling_Day]=0, [Sampling_Month]=0, [Sampling_Year]=0 WHERE "
        "[SampleNo]=2");
    auto again = editorOn(path);
    again->OpenFile();
    EXPECT_EQ(again->grid()->colHeading(1), "0/0/0");
    again->SaveFile();
    ASSERT_EQ(dialogs.shown.size(), 2u);
    EXPECT_EQ(dialogs.last().title, "Missing Sample Header");
    EXPECT_EQ(test::DumpTable(path, kTableGlfMeasures), measuresBefore);
}

// OK in the sample sub-header of a file that has been moved away tells that nothing was saved;
// the dialogue stays with what the user typed.
TEST_F(LfqEditorTest, SubheaderOkOnAMovedFileTellsAndStays) {
    const std::string path = newFile();
    FrmLfqSub sub(path, 1, dialogs, session.numericKeys);
    std::filesystem::rename(path, dir.file("moved.lfq"));
    sub.dayBox()->setCurrentText("30");
    sub.monthBox()->setCurrentText("4");
    sub.yearBox()->setText("2001");
    sub.findChild<QPushButton*>("cmdLFQ_0")->click();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().text, "File Save Error. File not saved!");
    EXPECT_NE(sub.result(), QDialog::Accepted);
    EXPECT_EQ(sub.yearBox()->text(), "2001");
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(LfqEditorTest, CorruptedFileIsReportedOnOpen) {
    const std::string path = dir.file("bad.lfq");
    std::ofstream(path) << "garbage";
    auto ed = editorOn(path);
    ed->OpenFile();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().title, "Invalid Data");
    EXPECT_EQ(dialogs.last().text,
              "The file is corrupted or has the wrong data format. Please check and try again.");
}

TEST_F(LfqEditorTest, DeletingSamplesChangesSampleHeadersAtOnceAndAnEmptyGridOffersDeletion) {
    const std::string path = savedFile(3, 5);
    const auto measuresBefore = test::DumpTable(path, kTableGlfMeasures);
    auto ed = editorOn(path);
    ed->OpenFile();
    dialogs.answers = {Answer::Yes};
    ed->DeleteCol(2);
    EXPECT_EQ(dialogs.last().text, "The sample of 1/2/2001 will be deleted. Are you sure?");
    auto s = ReadSampleHeaders(path);
    ASSERT_EQ(s.size(), 2u);  // renumbered without a gap
    EXPECT_EQ(s[1].sampleNo, 2);
    EXPECT_EQ(s[1].samplingMonth, 3);
    EXPECT_EQ(ed->grid()->colHeading(1), "1/3/2001");

    dialogs.answers = {Answer::No};  // a No keeps the sample
    ed->DeleteCol(1);
    EXPECT_EQ(ed->grid()->maxCols(), 2);

    dialogs.answers = {Answer::Yes, Answer::Yes, Answer::No};
    ed->DeleteCol(1);
    ed->DeleteCol(1);
    EXPECT_FALSE(ed->cmdLFQ(2)->isEnabled());
    EXPECT_TRUE(ReadSampleHeaders(path).empty());
    dialogs.shown.clear();
    ed->SaveFile();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().text, "The grid is empty. Do you wish to delete this file?");
    EXPECT_TRUE(fs::exists(path));
    EXPECT_EQ(test::DumpTable(path, kTableGlfMeasures), measuresBefore);  // nothing saved
    EXPECT_FALSE(FrmLfq::savedFlag());

    dialogs.answers = {Answer::Yes};
    ed->SaveFile();
    EXPECT_FALSE(fs::exists(path));
    EXPECT_EQ(dialogs.last().text, "File " + path + " deleted.");
}

TEST_F(LfqEditorTest, ClosingAsksAboutUnsavedChanges) {
    const std::string path = savedFile(1, 3);
    auto ed = editorOn(path);
    ed->OpenFile();
    EXPECT_TRUE(FrmLfq::savedFlag());
    ed->show();
    ed->txtLFQ(1)->setText("new id");
    dialogs.answers = {Answer::No};
    ed->close();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().title, "Unsaved Changes");
    EXPECT_EQ(dialogs.last().text, "Do you want to save changes you made to " + path);
    EXPECT_EQ(ReadLfqHeader(path)->otherId, "");

    auto second = editorOn(path);
    second->OpenFile();
    second->show();
    second->txtLFQ(1)->setText("kept");
    dialogs.answers = {Answer::Yes};
    second->close();
    EXPECT_EQ(ReadLfqHeader(path)->otherId, "kept");
}

TEST_F(LfqEditorTest, CancelledNewSampleDisappearsAndActivationMarksTheFile) {
    settings.setRunTime("Tip1", "Hide");
    const std::string path = savedFile(2, 3);
    auto ed = editorOn(path);
    ed->OpenFile();
    fills = {{}};
    ed->InsertCol();
    EXPECT_EQ(tipsShown, 0);
    EXPECT_EQ(ed->grid()->maxCols(), 2);
    EXPECT_EQ(session.sampleHeaderMode, 0);

    // A cancelled edit changes nothing.
    fills = {{}};
    ed->grid()->setCurrentCell(0, 1);
    ed->cmdLFQ(0)->click();
    EXPECT_EQ(ed->grid()->colHeading(1), "1/2/2001");
    EXPECT_EQ(session.sampleHeaderColumn, 2);

    std::string token;
    bool lfqMenus = false;
    ctx.enableEditCommands = [&](const std::string& t) { token = t; };
    ctx.setEditorMenus = [&](bool isLfq) { lfqMenus = isLfq; };
    ed->Activate();
    EXPECT_EQ(token, "LFQ");
    EXPECT_TRUE(lfqMenus);
    EXPECT_EQ(settings.runTime("LastActive", ""), path);
    EXPECT_TRUE(ed->grid()->tableMenuEnabled(kTableEditSubheader));
}

TEST_F(LfqEditorTest, ExportWritesTheReport) {
    const std::string path = savedFile(2, 3);
    auto ed = editorOn(path);
    ed->OpenFile();
    const std::string out = dir.file("report.tab");
    dialogs.saveAnswers = {out};
    ed->Export();
    EXPECT_EQ(dialogs.fileDialogs.back().title, "Export...");
    std::ifstream in(out);
    std::vector<std::string> lines;
    for (std::string l; std::getline(in, l);) lines.push_back(l);
    ASSERT_GE(lines.size(), 17u);
    EXPECT_EQ(lines[1].substr(0, 29), "Grouped Length Frequency Data");
    EXPECT_EQ(lines[4], "Species name:\tNemipterus\t");
    EXPECT_EQ(lines[11], "ML\t1/1/2001\t1/2/2001");
    EXPECT_EQ(lines[12], "7.50\t0\t100");
    EXPECT_EQ(lines.back().substr(0, 9), "Remarks: ");
}

TEST_F(LfqEditorTest, LargeFileShowsEveryHeadingUnclipped) {
    const std::string path = savedFile(12, 40);
    auto ed = editorOn(path);
    ed->resize(1000, 640);
    ed->OpenFile();
    ed->pages()->setCurrentIndex(1);
    ed->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(ed.get()));
    DataGrid* g = ed->grid();
    EXPECT_EQ(g->maxCols(), 12);
    EXPECT_EQ(g->maxRows(), 40);
    EXPECT_EQ(g->rowHeading(39), "46.50");
    const QFontMetrics fm(g->horizontalHeader()->font());
    for (int c = 0; c < g->maxCols(); ++c) {
        EXPECT_GT(g->columnWidth(c), fm.horizontalAdvance(g->colHeading(c))) << c;
    }
    EXPECT_GT(g->verticalHeader()->width(), fm.horizontalAdvance("999.00"));
    const QImage shot = ed->grab().toImage();
    EXPECT_FALSE(shot.isNull());
    if (qEnvironmentVariableIsSet("NORVO_SCREENSHOT_DIR")) {
        const QString folder = qEnvironmentVariable("NORVO_SCREENSHOT_DIR");
        shot.save(folder + "/frmLFQ.png");
        ed->pages()->setCurrentIndex(0);
        ed->grab().save(folder + "/frmLFQ_headers.png");
        FrmLfqSub sub(path, 3, dialogs, session.numericKeys);
        sub.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&sub));
        sub.grab().save(folder + "/frmLFQSub.png");
    }
}

}  // namespace
}  // namespace norvo::gui
