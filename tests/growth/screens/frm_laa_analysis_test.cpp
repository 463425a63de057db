#include "growth/screens/frm_laa_analysis.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <cstdlib>

#include "growth/growth_fit_plot.h"
#include "growth/length_at_age.h"
#include "numerics/text_convert.h"
#include "support/growth_fit_fixtures.h"
#include "support/screen_services.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/plot_view.h"

namespace norvo::gui {
namespace {

void Shot(QWidget* w, const std::string& name) {
    test::SaveShot(w, name, 900, 860);
}

bool PlotHas(PlotView* plot, const std::string& text) {
    for (const auto& p : plot->canvas().commandsOf(DrawOp::Print))
        if (p.text == text) return true;
    return false;
}

struct FrmLaaTest : ::testing::Test {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};
    test::TempDir dir;

    std::string file(const std::vector<test::LaaRowIn>& rows, const std::string& unit = "year") {
        const auto path = test::MakeLaaFile(dir.file(fmt::format("f{}.laa", ++count)), rows, unit);
        settings.setRunTime(kKeyLastActive, path);
        return path;
    }
    int count = 0;
    void TearDown() override { ResetDecimalSeparator(); }
};

TEST_F(FrmLaaTest, FitsTheActiveFileAndShowsEstimatesPlotsAndRemarks) {
    SetDecimalSeparator(',');
    file(test::ExactLaaRows(80, 0.4, -0.3, 10));
    FrmLaaAnalysis f(ctx);
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_TRUE(f.cmdLAA(1)->isEnabled());
    EXPECT_EQ(f.txtLAA(4)->text(), "0,01");  // K minimum, in the locale's form
    EXPECT_EQ(f.txtLAA(14)->text(), "10,00");
    f.txtLAA(7)->setText("-2");
    f.txtLAA(17)->setText("2");
    f.cmdLAA(1)->click();
    EXPECT_TRUE(dialogs.shown.empty());
    ASSERT_NE(f.run(), nullptr);
    EXPECT_EQ(f.estimateBox(kLaaLoo)->text(), "80,00");
    EXPECT_EQ(f.estimateBox(kLaaT0)->text(), "-0,30");
    EXPECT_EQ(f.stdErrBox(kLaaC)->text(), "n.a.");
    EXPECT_EQ(f.starsLabel(kLaaWP)->text(), "***");
    EXPECT_TRUE(f.txtRemarks()->toPlainText().startsWith(kMqConverged));
    EXPECT_TRUE(PlotHas(f.picLAA(), "Parameters: Loo=80,00 ; K=0,40 ;and to=-0,30"));
    EXPECT_TRUE(PlotHas(f.picLAA(), "Species: Fish (Test)"));
    EXPECT_TRUE(PlotHas(f.residualPlot(), kLaaResidualTitle));
    EXPECT_TRUE(f.cmdLAA(2)->isEnabled());
    Shot(&f, "laa_fit");
    f.tabs()->setCurrentIndex(1);
    Shot(&f, "laa_residuals");
}

TEST_F(FrmLaaTest, WeightsQuestionRefusalsAndSmallFiles) {
    auto rows = test::ExactLaaRows(60, 0.5, 0, 9);
    rows[0][2] = 0.5f;
    file(rows);
    FrmLaaAnalysis f(ctx);
    dialogs.answers = {Answer::No};
    f.cmdLAA(1)->click();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown[0].title, kLaaWeightsTitle);
    EXPECT_EQ(dialogs.shown[0].text, kLaaWeightsQuestion);
    ASSERT_NE(f.run(), nullptr);
    EXPECT_EQ(f.run()->table.size(), 9u);

    // A constraint out of order: the notice, no question, the results cleared of nothing.
    dialogs.shown.clear();
    f.txtLAA(4)->setText("abc");
    f.cmdLAA(1)->click();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown[0].text, kLaaInvalidInputText);

    // Six rows: the notice on opening and no compute.
    dialogs.shown.clear();
    dialogs.openAnswers = {file(test::ExactLaaRows(60, 0.5, 0, 6))};
    f.cmdLAA(0)->click();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown[0].title, kLaaInsufficientTitle);
    EXPECT_FALSE(f.cmdLAA(1)->isEnabled());
    EXPECT_EQ(f.run(), nullptr);
    EXPECT_FALSE(f.cmdLAA(2)->isEnabled());
}

}  // namespace
}  // namespace norvo::gui
