#include "widgets/output_screen.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPointer>
#include <QPrinter>
#include <QTest>
#include <cstdlib>
#include <filesystem>

#include "chart/demo_plots.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/plot_view.h"

namespace norvo::gui {
namespace {

ReportDescriptor SampleReport() {
    ReportDescriptor r = MakeReport("frmOutVBGFPlot", "Growth Curve Report", "Seasonal VBGF");
    auto& in = r.addSection("Input", false);
    in.fields = {{"Filename: ", "shrimp.LFQ"}, NumberField("Class size: ", 0.5, "0.0")};
    auto& out = r.addSection("Results", true);
    out.fields = {NumberField("Loo (cm): ", 45.2, "0.00"),
                  NumberField("K (1/year): ", 0.62, "0.00"),
                  {"Rn: ", "0.731"}};
    r.note = "Values as fitted.";
    return r;
}

std::unique_ptr<QPrinter> PdfPrinter(const std::string& path) {
    auto printer = std::make_unique<QPrinter>(QPrinter::ScreenResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(QString::fromStdString(path));
    return printer;
}

TEST(OutputScreen, ACancelledPrintDialogueClosesTheScreenAndShowsNothing) {
    ChartCanvas canvas;
    DrawPercentDemo(canvas);
    ScriptedDialogs dialogs;
    dialogs.printAnswers = {false};
    int printerAsked = 0;
    auto* screen = new OutputScreen([&]() -> QPrinter* {
        ++printerAsked;
        return nullptr;
    });
    screen->show();
    QPointer<OutputScreen> alive(screen);
    EXPECT_EQ(RunReport(SampleReport(), canvas, *screen, dialogs, RenderedPlotSaver()),
              PrintOutcome::Cancelled);
    EXPECT_TRUE(QTest::qWaitFor([&] { return alive.isNull(); }, 2000));
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_TRUE(dialogs.fileDialogs.empty());
    EXPECT_EQ(printerAsked, 0);
}

TEST(OutputScreen, FillsHeadersAndTheValueArraysInOrder) {
    OutputScreen screen;
    screen.fill(SampleReport());
    EXPECT_EQ(screen.objectName(), "frmOutVBGFPlot");
    EXPECT_EQ(screen.lblHeader(1)->text(), "Growth Curve Report");
    EXPECT_TRUE(screen.lblHeader(2)->text().startsWith("Report Generated: "));
    EXPECT_EQ(screen.lblHeader(3)->text(), "Seasonal VBGF");
    ASSERT_EQ(screen.lblData().size(), 2u);
    EXPECT_EQ(screen.lblData()[1]->text(), "0.5");
    ASSERT_EQ(screen.lblResults().size(), 3u);
    EXPECT_EQ(screen.lblResults()[0]->text(), "45.20");
    EXPECT_EQ(screen.lblResults()[2]->objectName(), "lblResults_2");
    // A second report replaces the first one's labels.
    ReportDescriptor small = MakeReport("frmOutLmax", "Lmax", "");
    small.addSection("Results", true).fields = {{"Lmax: ", "12.0"}};
    screen.fill(small);
    EXPECT_TRUE(screen.lblData().empty());
    ASSERT_EQ(screen.lblResults().size(), 1u);
    EXPECT_EQ(screen.findChildren<QLabel*>("lblResults_2").size(), 0);
}

TEST(OutputScreen, PrintsHeadersValuesAndPlotOnOnePdfPage) {
    test::TempDir dir;
    const std::string pdf = dir.file("report.pdf");
    ChartCanvas canvas;
    DrawPercentDemo(canvas);
    auto printer = PdfPrinter(pdf);
    OutputScreen screen;
    // The PDF printer stands for a real one here, not for printing to a file.
    screen.setPrintToFileRule([](const QPrinter*) { return false; });
    screen.fill(SampleReport());
    screen.setPicture(canvas.Image());
    ASSERT_TRUE(screen.printOn(*printer));
    ASSERT_TRUE(std::filesystem::exists(pdf));

    const auto info = test::RunCommand("pdfinfo '" + pdf + "'");
    if (info.exitCode == 127) GTEST_SKIP() << "poppler-utils not installed";
    const auto pages = info.out.find("Pages:");
    ASSERT_NE(pages, std::string::npos) << info.out;
    EXPECT_EQ(std::stoi(info.out.substr(pages + 6)), 1);
    const auto text = test::RunCommand("pdftotext -layout '" + pdf + "' -");
    for (const char* expected : {"Growth Curve Report", "Report Generated: ", "Seasonal VBGF",
                                 "Filename:", "shrimp.LFQ", "Loo (cm):", "45.20", "0.731",
                                 "Values as fitted.", "Relative age (years)", "Length (cm)"}) {
        EXPECT_NE(text.out.find(expected), std::string::npos) << expected;
    }
    if (const char* keep = std::getenv("NORVO_TEST_OUTPUT")) {
        std::filesystem::copy_file(pdf, std::filesystem::path(keep) / "report.pdf",
                                   std::filesystem::copy_options::overwrite_existing);
        test::RunCommand("pdftoppm -png -r 60 '" + pdf + "' '" + keep + "/report'");
    }
}

TEST(OutputScreen, PrintToFileWritesThePictureAndSaysWhere) {
    test::TempDir dir;
    auto printer = PdfPrinter(dir.file("chosen.pdf"));
    ChartCanvas canvas;
    DrawPercentDemo(canvas);
    ScriptedDialogs dialogs;
    dialogs.printAnswers = {true};
    const std::string bmp = dir.file("plot.bmp");
    dialogs.saveAnswers = {bmp};
    EXPECT_TRUE(IsPrintToFile(printer.get()));
    EXPECT_EQ(PrintReport(SampleReport(), canvas, dialogs, [&] { return printer.get(); }),
              PrintOutcome::Saved);
    EXPECT_TRUE(std::filesystem::exists(bmp));
    EXPECT_FALSE(std::filesystem::exists(dir.file("chosen.pdf")));
    EXPECT_EQ(dialogs.last().text, "The graphic output was saved in " + bmp + ".");
    EXPECT_EQ(dialogs.last().title, "Data Saved");

    // Printing proper goes to the printer: here a PDF written as the page.
    auto device = PdfPrinter(dir.file("page.pdf"));
    dialogs.printAnswers = {true};
    auto* screen = new OutputScreen([&] { return device.get(); });
    screen->setPrintToFileRule([](const QPrinter*) { return false; });
    EXPECT_EQ(RunReport(SampleReport(), canvas, *screen, dialogs, RenderedPlotSaver()),
              PrintOutcome::Printed);
    EXPECT_TRUE(std::filesystem::exists(dir.file("page.pdf")));
}

}  // namespace
}  // namespace norvo::gui
