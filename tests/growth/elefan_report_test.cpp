#include "growth/elefan_report.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "support/report_fakes.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

using test::FakeOutput;
using test::FakeSaver;

TEST(ReportELEFAN1, PrintModeFillsTheElefanPageInOrder) {
    Elefan1ReportInfo info;
    info.fileName = "shrimp.LFQ";
    info.amplitude = "0.50";
    info.results.fields = {{"Loo: ", "45.00"}};
    ChartCanvas canvas;
    FakeOutput out;
    ScriptedDialogs dialogs;
    dialogs.printAnswers = {true};
    FakeSaver saver;
    EXPECT_TRUE(
        ReportELEFAN1(canvas, out, dialogs, Elefan1ReportMode::Print, info, {}, saver.fn()));
    const ReportDescriptor& r = out.filled;
    EXPECT_EQ(r.header1, "Norvo 2: Olmar-Tavesh Stock Assessment Tools");
    EXPECT_EQ(r.header2, "ELEFAN 1 Method");
    EXPECT_EQ(r.header3.rfind("Report Generated: ", 0), 0u);
    EXPECT_EQ(r.caption, r.header3);  // the output screen's caption
    ASSERT_EQ(r.sections.size(), 3u);
    EXPECT_EQ(r.sections[0].heading, "Parameters");
    std::vector<std::string> captions;
    for (const auto& f : r.sections[0].fields) captions.push_back(f.caption);
    EXPECT_EQ(captions, (std::vector<std::string>{
                            "Filename: ", "Species name: ", "Other identifier: ", "Class size: ",
                            "Largest class size: ", "Unit of measurement: "}));
    EXPECT_EQ(r.sections[2].heading, "Other Growth Parameters");
    EXPECT_EQ(r.sections[2].fields[0].caption, "Amplitute of oscillation (C): ");
    EXPECT_EQ(r.sections[2].fields[1].caption, "Winter Point (WP): ");
    EXPECT_EQ(out.calls.back(), "unload");
}

TEST(ReportELEFAN1, SurfacePrintsThenSavesTheTableAndPlot) {
    test::TempDir dir;
    ChartCanvas canvas;
    FakeOutput out;
    FakeSaver saver;
    ScriptedDialogs dialogs;
    dialogs.printAnswers = {true};
    const std::string table = dir.file("surface.tab");
    dialogs.saveAnswers = {table, dir.file("surface.bmp")};
    ASSERT_TRUE(ReportELEFAN1(canvas, out, dialogs, Elefan1ReportMode::Surface, {},
                              {{"K", "Loo"}, {"0.5", "40"}}, saver.fn()));
    // The page is printed before the file dialogues open.
    EXPECT_EQ(out.calls,
              (std::vector<std::string>{"fill", "picture", "picture", "print", "unload"}));
    ASSERT_EQ(dialogs.printDialogs.size(), 1u);
    EXPECT_EQ(dialogs.fileDialogs[0].title, "Save table...");
    EXPECT_EQ(dialogs.fileDialogs[0].filter,
              "Tab Delimited File (*.tab)|*.tab|All files (*.*)|*.*");
    EXPECT_EQ(dialogs.fileDialogs[1].title, "Save image...");
    EXPECT_EQ(dialogs.fileDialogs[1].filter.rfind("Windows Bitmap (*.bmp)|*.bmp|", 0), 0u);
    std::ifstream in(table, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    EXPECT_EQ(ss.str(), "K\tLoo\r\n0.5\t40\r\n");
    EXPECT_EQ(dialogs.last().text, "The response surface table was saved in " + table +
                                       " and the Response surface plot was saved in " +
                                       dir.file("surface.bmp") + ".");
    EXPECT_EQ(dialogs.last().title, "Data Saved");

    // Cancelling the table dialogue ends it before the picture is asked for.
    const auto before = dialogs.shown.size();
    dialogs.printAnswers = {true};
    dialogs.saveAnswers = {std::nullopt};
    EXPECT_FALSE(
        ReportELEFAN1(canvas, out, dialogs, Elefan1ReportMode::Surface, {}, {}, saver.fn()));
    EXPECT_EQ(dialogs.shown.size(), before);
    EXPECT_TRUE(dialogs.saveAnswers.empty());
}

TEST(ReportELEFAN1, KScanPrintToFileSavesThePlotWithItsOwnNotice) {
    ChartCanvas canvas;
    FakeOutput out;
    out.toFile = true;
    FakeSaver saver;
    ScriptedDialogs dialogs;
    dialogs.printAnswers = {true};
    dialogs.saveAnswers = {std::string("/k.bmp")};
    ASSERT_TRUE(ReportELEFAN1(canvas, out, dialogs, Elefan1ReportMode::KScan, {}, {}, saver.fn()));
    EXPECT_EQ(dialogs.last().text, "The K-scan plot was saved in /k.bmp.");
    EXPECT_EQ(dialogs.last().title, "Data Saved");
    EXPECT_EQ(out.calls.back(), "unload");
    // On paper it prints the page.
    out.toFile = false;
    out.calls.clear();
    dialogs.printAnswers = {true};
    ASSERT_TRUE(ReportELEFAN1(canvas, out, dialogs, Elefan1ReportMode::KScan, {}, {}, saver.fn()));
    EXPECT_EQ(out.calls, (std::vector<std::string>{"fill", "picture", "print", "unload"}));
}

TEST(ElefanReportInfo, FileFieldsAndParametersAsShown) {
    ElefanFileInfo file;
    file.fileName = "shrimp.LFQ";
    file.speciesName = "Penaeus";
    file.unit = "cm";
    file.classSize = 0.5;
    file.largestClassSize = 24.75;
    const Elefan1ReportInfo info = MakeElefan1ReportInfo(file, 0.125, 0.0);
    EXPECT_EQ(info.fileName, "shrimp.LFQ");
    EXPECT_EQ(info.classSize, "0.50");
    EXPECT_EQ(info.largestClassSize, "24.75");
    // C and WP keep every digit the user typed, with two decimals at least.
    EXPECT_EQ(info.amplitude, "0.125");
    EXPECT_EQ(info.winterPoint, "0.00");
    EXPECT_EQ(MakeElefan1ReportInfo(file, 0.5, 1.0).amplitude, "0.50");
    EXPECT_EQ(MakeElefan1ReportInfo(file, 0.5, 1.0).winterPoint, "1.00");

    // Before a file, and with fields that hold no number, the lines stay empty.
    const Elefan1ReportInfo empty = MakeElefan1ReportInfo(std::nullopt, std::nullopt, 0.3);
    EXPECT_EQ(empty.fileName, "");
    EXPECT_EQ(empty.classSize, "");
    EXPECT_EQ(empty.amplitude, "");
    EXPECT_EQ(empty.winterPoint, "0.30");
    EXPECT_TRUE(empty.results.fields.empty());
}

TEST(ElefanReportInfo, ResultFieldsOfAScanAndOfASearchRow) {
    ElefanBest best;
    best.params = {.loo = 52.5f, .k = 0.4567f, .c = 0.5f, .wp = 0.25f, .ss = 3, .sl = 12.25f};
    best.rn = 0.3456f;
    const auto scan = ElefanResultFields(best);
    ASSERT_EQ(scan.size(), 7u);
    EXPECT_EQ(scan[0].caption, "Loo:");
    EXPECT_EQ(scan[0].value, "52.50");
    EXPECT_EQ(scan[1].value, "0.457");
    EXPECT_EQ(scan[4].value, "3");
    EXPECT_EQ(scan[6].caption, "Rn:");
    EXPECT_EQ(scan[6].value, "0.346");

    SearchRow row{4, best.params, best.rn};
    const auto search = ElefanResultFields(row);
    ASSERT_EQ(search.size(), 7u);
    EXPECT_EQ(search[1].value, "0.46");  // the table's own patterns
    const auto texts = SearchRowTexts(row);
    for (size_t i = 0; i < search.size(); ++i) EXPECT_EQ(search[i].value, texts[i + 1]);
}

TEST(ElefanReportInfo, SurfaceTableHasItsCornerHeadingsAndScores) {
    SurfaceResult s;
    for (int i = 0; i < kSurfaceSize; ++i) {
        s.kHeadings[i] = 0.5 + i * 0.05;
        s.looHeadings[i] = 30 + i * 0.5;
        for (int j = 0; j < kSurfaceSize; ++j) s.grid[i][j] = 0.1f * static_cast<float>(i % 3);
    }
    const auto t = SurfaceTableTexts(s);
    ASSERT_EQ(t.size(), 22u);
    ASSERT_EQ(t[21].size(), 22u);
    EXPECT_EQ(t[0][0], "K\\Loo");
    EXPECT_EQ(t[1][0], "0.50");
    EXPECT_EQ(t[21][0], "1.50");
    EXPECT_EQ(t[0][21], "40.00");
    EXPECT_EQ(t[2][5], "0.100");
}

}  // namespace
}  // namespace norvo
