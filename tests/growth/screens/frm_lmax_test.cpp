#include "growth/screens/frm_lmax.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <QTableWidget>
#include <filesystem>

#include "support/lfq_fixtures.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"

namespace norvo::gui {
namespace {

namespace fs = std::filesystem;

// Classes 40, 42, 44, 46 cm; one vector of frequencies per sample.
std::string WriteLfq(const test::TempDir& dir, const std::vector<std::vector<double>>& bySample) {
    return test::MakeLfqFile(
        dir.file("x.lfq"), test::LfqHeaderOf("Test fish", "cm", 40, 2, "Total length (TL)"),
        test::MonthlySamples(static_cast<int>(bySample.size()), 1, 2001), test::ByClass(bySample));
}

struct FrmLmaxTest : ::testing::Test {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};
    test::TempDir dir;
};

TEST_F(FrmLmaxTest, OpenFitsTheExtremesAndFillsTablesResultsAndPlot) {
    FrmLmax f(ctx);
    // Extremes 40, 42, 42, 46: the tie is kept.
    dialogs.openAnswers.push_back(
        WriteLfq(dir, {{3, 0, 0, 0}, {5, 2, 0, 0}, {1, 1, 0, 0}, {0, 4, 0, 1}}));
    f.cmdOpen();
    ASSERT_EQ(dialogs.fileDialogs.size(), 1u);
    EXPECT_EQ(dialogs.fileDialogs[0].title, "Open...");
    EXPECT_EQ(dialogs.fileDialogs[0].filter,
              "Grouped frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*");
    EXPECT_TRUE(dialogs.shown.empty());

    ASSERT_EQ(f.grdExtremes->rowCount(), 4);
    EXPECT_EQ(f.grdExtremes->item(2, 0)->text(), "42.00");
    EXPECT_EQ(f.grdExtremes->item(2, 1)->text(), "0.600");
    EXPECT_EQ(f.grdCurve->horizontalHeaderItem(0)->text(), "Cum. Prob.");
    EXPECT_EQ(f.grdCurve->horizontalHeaderItem(3)->text(), "Upper Limit");
    EXPECT_GT(f.grdCurve->rowCount(), 100);
    EXPECT_LE(f.grdCurve->rowCount(), 500);
    EXPECT_EQ(f.txtPredicted->text(), "54.88 cm");
    EXPECT_EQ(f.txtLower->text(), "47.63 cm - lower limit");
    EXPECT_EQ(f.txtUpper->text(), "62.13 cm - upper limit");

    // The plot carries the seven probability labels and both axis titles.
    std::vector<std::string> texts;
    for (const auto& c : f.canvas().commandsOf(DrawOp::Print)) texts.push_back(c.text);
    for (const char* label : {".001", ".1", ".5", ".9", ".96", ".99", ".999",
                              "Cumulative probability", "Extreme lengths (cm)"}) {
        EXPECT_NE(std::find(texts.begin(), texts.end(), label), texts.end()) << label;
    }
}

TEST_F(FrmLmaxTest, OneSampleAndEqualExtremesAreRefused) {
    FrmLmax f(ctx);
    f.loadFile(QString::fromStdString(WriteLfq(dir, {{3, 1, 0, 0}})));
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().title, "Invalid Data");
    EXPECT_FALSE(f.fit().has_value());

    test::TempDir other;
    f.loadFile(QString::fromStdString(WriteLfq(other, {{3, 1, 0, 0}, {0, 2, 0, 0}})));
    ASSERT_EQ(dialogs.shown.size(), 2u);
    EXPECT_EQ(dialogs.last().title, "Calculation Error");
    EXPECT_EQ(dialogs.last().text,
              "Calculation error. Please check data and if problem persist, please contact the "
              "authors.");
    EXPECT_EQ(f.grdExtremes->rowCount(), 0);
    EXPECT_TRUE(f.txtPredicted->text().isEmpty());
}

TEST_F(FrmLmaxTest, PrintToAFileSavesThePlotAndACancelShowsNothing) {
    FrmLmax f(ctx);
    EXPECT_FALSE(f.cmdPrintButton->isEnabled());
    f.loadFile(QString::fromStdString(
        WriteLfq(dir, {{3, 0, 0, 0}, {5, 2, 0, 0}, {1, 1, 0, 0}, {0, 4, 0, 1}})));
    ASSERT_TRUE(f.cmdPrintButton->isEnabled());

    dialogs.printAnswers.push_back(false);
    f.cmdPrint();
    EXPECT_EQ(dialogs.printDialogs.size(), 1u);
    EXPECT_TRUE(dialogs.shown.empty());

    // A printer set to print into a file: the picture is saved where the user says.
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(dir.file("page.pdf")));
    ctx.printer = [&printer] { return &printer; };
    const std::string image = dir.file("lmax.png");
    dialogs.printAnswers.push_back(true);
    dialogs.saveAnswers.push_back(image);
    f.cmdPrint();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().title, "Data Saved");
    EXPECT_EQ(dialogs.last().text, "The graphic output was saved in " + image + ".");
    EXPECT_GT(fs::file_size(image), 1000u);
}

TEST_F(FrmLmaxTest, CancelledOpenChangesNothing) {
    FrmLmax f(ctx);
    dialogs.openAnswers.push_back(std::nullopt);
    f.cmdOpen();
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_TRUE(f.txtFile->text().isEmpty());
}

}  // namespace
}  // namespace norvo::gui
