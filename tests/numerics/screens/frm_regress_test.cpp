#include "numerics/screens/frm_regress.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <cmath>
#include <cstdlib>

#include "chart/regress_plot.h"
#include "numerics/regression_tool.h"
#include "numerics/text_convert.h"
#include "support/locale_text.h"
#include "support/screen_services.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "support/xyf_fixtures.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"

namespace norvo::gui {
namespace {

void Shot(QWidget* w, const std::string& name) {
    test::SaveShot(w, name, 900, 700);
}

std::vector<std::string> PlotTexts(FrmRegress& f) {
    std::vector<std::string> t;
    for (const auto& p : f.plot()->canvas().commandsOf(DrawOp::Print)) t.push_back(p.text);
    return t;
}

struct FrmRegressTest : ::testing::Test {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};
    test::TempDir dir;
    std::string path;

    void SetUp() override {
        // W = 0.01 L^3 at lengths 10..40, the lightest fish a little heavy.
        path = test::MakeXyfFile(
            dir.file("lw.xyf"),
            {{10, 12}, {15, 33.75f}, {20, 80}, {25, 156.25f}, {30, 270}, {35, 428.75f}, {40, 640}},
            {"Length-weight", "Length (cm)", "Weight (g)", "Survey 1999"});
        settings.setRunTime(kKeyLastActive, path);
    }
    void TearDown() override { ResetDecimalSeparator(); }
};

TEST_F(FrmRegressTest, OpensTheActiveFileWithTheStraightLine) {
    FrmRegress f(ctx);
    EXPECT_TRUE(dialogs.shown.empty());
    ASSERT_NE(f.run(), nullptr);
    EXPECT_EQ(f.cmbRegress()->count(), 9);
    EXPECT_EQ(f.cmbRegress()->currentIndex(), 0);
    EXPECT_EQ(f.lblFunction()->text(), "Function: Y = a + b * X");
    EXPECT_EQ(f.txtTitle(0)->text(), "Length-weight");
    EXPECT_EQ(f.txtTitle(3)->text(), "Survey 1999");
    EXPECT_EQ(f.txtRegress(0)->text(), "7");
    EXPECT_TRUE(f.txtConstant()->text().isEmpty());
    EXPECT_EQ(f.windowTitle().toStdString(), "Regression Analysis [" + path + "]");

    // Log-log: b below 3 for the heavy small fish, axes titled with their logs; the read-outs
    // in their patterns.
    f.pickForm(kFormLogLog);
    EXPECT_EQ(f.cmbRegress()->currentIndex(), kFormLogLog);
    EXPECT_EQ(f.txtRegress(3)->text(), test::Local("2.8970"));
    EXPECT_EQ(f.txtRegress(5)->text(), test::Local("0.999"));
    const auto texts = PlotTexts(f);
    EXPECT_NE(std::find(texts.begin(), texts.end(), "log(Weight (g))"), texts.end());
    EXPECT_NE(std::find(texts.begin(), texts.end(), "log(Length (cm))"), texts.end());
    Shot(&f, "regress_loglog");
}

TEST_F(FrmRegressTest, TheConstantIsAskedUntilItPassesOrTheAnswerIsEmpty) {
    FrmRegress f(ctx);
    // C at the largest Y is refused and asked again; an empty answer keeps the earlier pick.
    dialogs.inputAnswers = {"640", ""};
    f.pickForm(kFormLnOneMinus);
    ASSERT_EQ(dialogs.inputBoxes.size(), 2u);
    EXPECT_EQ(dialogs.inputBoxes[0].prompt, "Enter constant (C) to use.");
    EXPECT_EQ(dialogs.inputBoxes[0].title, "Function: ln(1-Y/C) = a + b * X");
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().title, "invalid Input");
    EXPECT_EQ(dialogs.last().text,
              "Input caused an undefined results. Constant should be greater than 640.000. "
              "Please try again.");
    EXPECT_EQ(f.cmbRegress()->currentIndex(), kFormLinear);
    EXPECT_EQ(f.run()->form, kFormLinear);

    // In a comma locale: text that is no number is asked again, 0,5 is taken for form 7.
    SetDecimalSeparator(',');
    dialogs.inputAnswers = {"abc", "32", "0,5"};
    f.pickForm(kFormPowerY);
    ASSERT_EQ(dialogs.shown.size(), 3u);
    EXPECT_EQ(dialogs.shown[1].text, kRegressConstantNotNumber);
    EXPECT_EQ(dialogs.shown[2].text,
              "Input caused undefined results. Constant should less than 32. Please try again.");
    EXPECT_EQ(f.cmbRegress()->currentIndex(), kFormPowerY);
    EXPECT_EQ(f.txtConstant()->text(), "0,500");
    EXPECT_FLOAT_EQ(f.run()->y[6], std::sqrt(640.0f));
    EXPECT_EQ(f.lblFunction()->text(), "Function: Y^C = a + b * X");
    Shot(&f, "regress_power");
}

TEST_F(FrmRegressTest, RefusedPairsAndAFailingFitLeaveTheEarlierResults) {
    const std::string zero = test::MakeXyfFile(dir.file("zero.xyf"), {{1, 2}, {0, 3}, {2, 5}});
    FrmRegress f(ctx);
    f.Initialize(zero);
    const float b = f.run()->fit.b();
    f.pickForm(kFormRatio);
    EXPECT_EQ(dialogs.last().text,
              "Pair 2 (X = 0.000, Y = 3.000) cannot be transformed: Y/X is undefined for X = 0.");
    EXPECT_EQ(f.cmbRegress()->currentIndex(), kFormLinear);

    // C = 0 in form 8, picked from the list: the fit's fault is reported, the screen stays.
    dialogs.inputAnswers = {"0"};
    Q_EMIT f.cmbRegress()->activated(kFormPowerX);
    EXPECT_EQ(dialogs.last().title, "Programming Defect...");
    EXPECT_EQ(f.cmbRegress()->currentIndex(), kFormLinear);
    EXPECT_EQ(f.run()->fit.b(), b);

    // The report goes to the print dialogue; a cancel there ends it quietly.
    dialogs.printAnswers = {false};
    f.command(0)->click();
    EXPECT_EQ(dialogs.printDialogs.size(), 1u);
}

TEST_F(FrmRegressTest, TheReportPageHoldsThePlotAndTheReadOuts) {
    FrmRegress f(ctx);
    dialogs.inputAnswers = {"700"};
    f.pickForm(kFormLnOneMinus);
    OutputScreen page;
    page.fill(RegressionReport(ReadXYF(path).value(), *f.run()));
    page.setPicture(f.plot()->canvas().Image());
    EXPECT_EQ(page.lblHeader(1)->text(), "Regression Analysis (Function: ln(1-Y/C) = a + b * X)");
    EXPECT_EQ(page.lblResults().size(), 7u);
    if (const char* dir = std::getenv("NORVO_SHOTS")) {
        page.resize(OutputScreen::kPageWidth, OutputScreen::kPageHeight);
        page.grab().save(QString(dir) + "/regress_report.png");
    }
}

}  // namespace
}  // namespace norvo::gui
