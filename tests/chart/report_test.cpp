#include "chart/report.h"

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

TEST(PrintOrSaveImage, ACancelledPrintDialogueClosesTheScreenAndShowsNothing) {
    ChartCanvas canvas;
    FakeOutput out;
    ScriptedDialogs dialogs;
    dialogs.printAnswers = {false};
    FakeSaver saver;
    EXPECT_EQ(PrintOrSaveImage(canvas, out, dialogs, saver.fn()), PrintOutcome::Cancelled);
    EXPECT_EQ(out.calls, std::vector<std::string>{"unload"});
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_TRUE(dialogs.fileDialogs.empty());
    EXPECT_TRUE(saver.paths.empty());
}

TEST(PrintOrSaveImage, PrintsTheScreenWithThePictureThenUnloads) {
    ChartCanvas canvas;
    FakeOutput out;
    ScriptedDialogs dialogs;
    dialogs.printAnswers = {true};
    FakeSaver saver;
    EXPECT_EQ(PrintOrSaveImage(canvas, out, dialogs, saver.fn()), PrintOutcome::Printed);
    EXPECT_EQ(out.calls, (std::vector<std::string>{"picture", "print", "unload"}));
    EXPECT_TRUE(dialogs.shown.empty());

    // The maximum-length report's fork: any selector but 1 has the main screen print.
    FakeOutput lmax;
    dialogs.printAnswers = {true, true};
    std::vector<int> mainPrints;
    const PrintFork fork{0, [&](int arg) { mainPrints.push_back(arg); }};
    EXPECT_EQ(PrintOrSaveImage(canvas, lmax, dialogs, saver.fn(), fork),
              PrintOutcome::MainScreenPrinted);
    EXPECT_EQ(mainPrints, std::vector<int>{0});
    EXPECT_EQ(lmax.calls, std::vector<std::string>{"unload"});
    FakeOutput lmax1;
    EXPECT_EQ(PrintOrSaveImage(canvas, lmax1, dialogs, saver.fn(), PrintFork{1, {}}),
              PrintOutcome::Printed);
}

TEST(PrintOrSaveImage, PrintToFileSavesThePictureAndSaysWhere) {
    ChartCanvas canvas;
    FakeOutput out;
    out.toFile = true;
    ScriptedDialogs dialogs;
    dialogs.printAnswers = {true};
    dialogs.saveAnswers = {std::string("/data/plot.bmp")};
    FakeSaver saver;
    EXPECT_EQ(PrintOrSaveImage(canvas, out, dialogs, saver.fn()), PrintOutcome::Saved);
    EXPECT_EQ(saver.paths, std::vector<std::string>{"/data/plot.bmp"});
    ASSERT_EQ(dialogs.fileDialogs.size(), 1u);
    EXPECT_EQ(dialogs.fileDialogs[0].title, "Save image...");
    EXPECT_EQ(dialogs.fileDialogs[0].filter.rfind("Windows Bitmap (*.bmp)|*.bmp|", 0), 0u);
    EXPECT_NE(dialogs.fileDialogs[0].filter.find("*.svg"), std::string::npos);
    EXPECT_TRUE(dialogs.fileDialogs[0].overwritePrompt);
    EXPECT_EQ(dialogs.last().text, "The graphic output was saved in /data/plot.bmp.");
    EXPECT_EQ(dialogs.last().title, "Data Saved");
    EXPECT_EQ(out.calls, std::vector<std::string>{"unload"});

    // A cancelled save dialogue, or a picture that can't be written: closed, no notice.
    for (bool cancel : {true, false}) {
        FakeOutput again;
        again.toFile = true;
        ScriptedDialogs quiet;
        quiet.printAnswers = {true};
        quiet.saveAnswers = {cancel ? std::nullopt : std::optional<std::string>("/x.bmp")};
        FakeSaver failing;
        failing.ok = false;
        PrintOrSaveImage(canvas, again, quiet, failing.fn());
        EXPECT_TRUE(quiet.shown.empty());
        EXPECT_EQ(again.calls, std::vector<std::string>{"unload"});
    }
}

TEST(Report, HeadersSectionsAndTheFieldArrays) {
    std::tm tm{};
    tm.tm_year = 126;
    tm.tm_mon = 10;
    tm.tm_mday = 3;
    tm.tm_hour = 12;
    const std::time_t when = std::mktime(&tm);
    ReportDescriptor r = MakeReport("frmOutGulland", "Gulland and Holt Plot", "Growth", when);
    EXPECT_EQ(r.header2, "Report Generated: 03-Nov-2026");
    r.addSection("Input", false).fields.push_back({"Filename: ", "a.GIN"});
    r.addSection("Results", true).fields.push_back(NumberField("K: ", 0.4567, "0.000"));
    r.addSection("More input", false).fields.push_back({"Unit: ", "cm"});
    const auto data = r.dataFields();
    ASSERT_EQ(data.size(), 2u);
    EXPECT_EQ(data[1].value, "cm");
    ASSERT_EQ(r.resultFields().size(), 1u);
    EXPECT_EQ(r.resultFields()[0].value, "0.457");
}

TEST(SavePlots, NumbersTheFilesFromZeroAfterCuttingTheExtension) {
    ChartCanvas a, b, c;
    ScriptedDialogs dialogs;
    dialogs.saveAnswers = {std::string("/out/yield.bmp")};
    FakeSaver saver;
    const auto written = SavePlots({&a, &b, &c}, dialogs, saver.fn());
    EXPECT_EQ(written, (std::vector<std::string>{"/out/yield_0.bmp", "/out/yield_1.bmp",
                                                 "/out/yield_2.bmp"}));
    EXPECT_EQ(dialogs.fileDialogs[0].defaultExtension, "bmp");
    EXPECT_EQ(dialogs.last().text, "The plots were saved in /out/yield_0.bmp to /out/yield_2.bmp.");
    EXPECT_EQ(dialogs.last().title, "Plots Saved");

    dialogs.saveAnswers = {std::nullopt};
    EXPECT_TRUE(SavePlots({&a}, dialogs, saver.fn()).empty());
    EXPECT_EQ(dialogs.shown.size(), 1u);
}

}  // namespace
}  // namespace norvo
