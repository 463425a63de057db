// The Powell-Wetherall screen: plot from a file, the first point picked on either plot, the
// read-outs, the refusals and the report.
#include "growth/screens/frm_pw_plot.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStringList>
#include <QTabWidget>
#include <cstdlib>

#include "base/format.h"
#include "data/lfq_file.h"
#include "growth/powell_wetherall_plot.h"
#include "support/lfq_fixtures.h"
#include "support/locale_text.h"
#include "support/screen_services.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/plot_view.h"
#include "widgets/sample_panel.h"

namespace norvo::gui {
namespace {

void Shot(QWidget* w, const std::string& name) {
    test::SaveShot(w, name, 900, 620);
}

struct PwScreen : ::testing::Test, test::ScreenServices {
    test::TempDir dir;
    std::string path = dir.file("fish.lfq");

    void SetUp() override {
        // Two samples; the second is empty, the top class too.
        test::MakeLfqFile(
            path, test::LfqHeaderOf("Fish", "cm", 11, 2), test::MonthlySamples(2, 15, 2001),
            test::ByClass({{60, 80, 50, 36, 25, 16, 10, 5, 2, 0}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0}}));
        settings.setRunTime(kKeyLastActive, path);
    }

    static UserPoint At(const FrmPwPlot& f, int i, bool pseudo) {
        const auto& d = *f.points();
        return (pseudo ? PseudoCatchPositions(d) : PowellWetherallPositions(d))[i];
    }
    void Click(FrmPwPlot& f, int i, bool pseudo = false) {
        const UserPoint p = At(f, i, pseudo);
        f.clickPlot(p.x, p.y, pseudo);
    }
};

TEST_F(PwScreen, PlotPickOnEitherPlotAndReadOuts) {
    FrmPwPlot f(ctx);
    EXPECT_EQ(f.windowTitle().toStdString(), kPwCaption);
    EXPECT_EQ(f.samples()->list()->selectedItems().size(), 2);
    f.command(0)->click();
    ASSERT_NE(f.points(), nullptr);
    EXPECT_EQ(f.points()->lastClass, 9);
    EXPECT_FALSE(f.command(0)->isEnabled());
    EXPECT_EQ(f.tabs()->currentIndex(), 1);

    // The pointer over point 3 shows its values; off the points "?".
    const UserPoint p3 = At(f, 3, false);
    f.hoverPlot(p3.x + 0.5, p3.y - 0.5);
    EXPECT_EQ(f.cutOffReadOut()->text(), test::Local("14.00"));
    EXPECT_TRUE(f.plot()->hotCursor());
    f.hoverPlot(99, 1);
    EXPECT_EQ(f.meanReadOut()->text(), "?");

    Click(f, 2);
    ASSERT_NE(f.fit(), nullptr);
    EXPECT_EQ(f.picked(), 2);
    ASSERT_TRUE(f.fit()->loo);
    EXPECT_EQ(f.looBox()->text().toStdString(), test::LocalStd(Format(*f.fit()->loo, "0.00")));
    EXPECT_EQ(f.rBox()->text().toStdString(), test::LocalStd(Format(f.fit()->r, "0.000")));
    EXPECT_TRUE(f.functionBox()->text().startsWith("Y ="));
    Shot(&f, "pw_plot");

    // The pseudo-catch curve shares the pick.
    f.command(1)->click();
    EXPECT_TRUE(f.pseudoCatch()->isVisible());
    Click(f, 1, true);
    EXPECT_EQ(f.picked(), 1);
    EXPECT_EQ(f.fit()->firstPoint, 1);
    Shot(f.pseudoCatch(), "pw_pseudo");
    f.pseudoCatch()->closeButton()->click();
    EXPECT_FALSE(f.pseudoCatch()->isVisible());

    // Too few points: the notice, no estimates.
    Click(f, 8);
    EXPECT_EQ(dialogs.last().text, kPwTooFewText);
    EXPECT_EQ(f.fit(), nullptr);
    EXPECT_TRUE(f.looBox()->text().isEmpty());

    // A change of input clears the plot and offers it again.
    f.samples()->setTemporal(true);
    EXPECT_EQ(f.points(), nullptr);
    EXPECT_TRUE(f.command(0)->isEnabled());
}

TEST_F(PwScreen, RefusalsLeaveTheDataTab) {
    FrmPwPlot f(ctx);
    f.samples()->setTransform(CcTransform::Percent);
    f.samples()->setSelected(1, false);
    f.command(0)->click();
    EXPECT_EQ(dialogs.last().text, EmptySampleText(2));
    EXPECT_EQ(f.points(), nullptr);
    f.samples()->setSelected(0, false);
    f.command(0)->click();
    EXPECT_EQ(dialogs.last().text, kPwNoDataText);
    EXPECT_EQ(f.tabs()->currentIndex(), 0);
}

TEST_F(PwScreen, ReportCarriesTheEstimates) {
    FrmPwPlot f(ctx);
    f.command(0)->click();
    Click(f, 1);
    ASSERT_NE(f.fit(), nullptr);
    const auto rep = PowellWetherallReport(session.lfqData, *f.fit());
    EXPECT_EQ(rep.header1, "Powell - Wetherall's Plot");
    const auto results = rep.resultFields();
    ASSERT_GE(results.size(), 2u);
    EXPECT_EQ(results[0].value, Format(*f.fit()->loo, "0.00"));
    dialogs.printAnswers.push_back(false);
    f.command(2)->click();
    EXPECT_EQ(dialogs.printDialogs.size(), 1u);
}

}  // namespace
}  // namespace norvo::gui
