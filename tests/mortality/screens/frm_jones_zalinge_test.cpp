// The Jones and van Zalinge screen: the growth checks, the points, two picks, the read-outs and
// the stub command.
#include "mortality/screens/frm_jones_zalinge.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <cstdlib>

#include "base/format.h"
#include "data/lfq_file.h"
#include "mortality/jones_van_zalinge_plot.h"
#include "numerics/validators.h"
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

struct JvzScreen : ::testing::Test, test::ScreenServices {
    test::TempDir dir;

    std::string Write(const std::string& name, std::vector<double> freq) {
        const auto path = dir.file(name);
        test::MakeLfqFile(path, test::LfqHeaderOf("Fish", "cm", 11, 2),
                          test::MonthlySamples(1, 15, 2001), test::ByClass({freq}));
        return path;
    }
    void Click(FrmJonesZalinge& f, int i) {
        const UserPoint p = JonesVanZalingePositions(*f.run())[i];
        f.clickPlot(p.x, p.y);
    }
};

TEST_F(JvzScreen, ComputePickAndReadOuts) {
    settings.setRunTime(kKeyLastActive, Write("fish.lfq", {90, 70, 52, 38, 26, 16, 9, 4, 1}));
    FrmJonesZalinge f(ctx);
    EXPECT_EQ(f.windowTitle().toStdString(), "Jones & van Zalinge Plot...");
    f.field(0)->setText(test::Local("29.5"));
    f.field(1)->setText(test::Local("0.4"));
    f.command(4)->click();
    ASSERT_NE(f.run(), nullptr);
    EXPECT_EQ(f.run()->usable, 9);
    EXPECT_EQ(f.command(4)->text().toStdString(), "R&edo");
    EXPECT_EQ(f.tabs()->currentIndex(), 1);

    f.clickPlot(99, 1);
    EXPECT_EQ(dialogs.last().title, "No Selection");
    Click(f, 3);
    EXPECT_EQ(f.pointBox(0, 0)->text(), "3");
    Click(f, 4);
    EXPECT_EQ(dialogs.last().text, kJvzTooFewText);
    EXPECT_FALSE(f.run()->fitted());
    Click(f, 7);
    Click(f, 2);
    ASSERT_TRUE(f.run()->fitted());
    EXPECT_EQ(f.run()->first, 2);
    EXPECT_EQ(f.run()->last, 7);
    EXPECT_EQ(f.statistic(0)->text(), "6");
    EXPECT_EQ(f.zEstimate(0)->text().toStdString(), test::LocalStd(Format(f.run()->zk(), "0.000")));
    EXPECT_EQ(f.zEstimate(0)->text(), f.statistic(4)->text());
    EXPECT_EQ(f.pointBox(1, 0)->text(), "7");
    Shot(&f, "jvz_plot");
    f.tabs()->setCurrentIndex(2);
    Shot(&f, "jvz_stats");

    // The stub and the print leave the run as it is.
    f.command(5)->click();
    EXPECT_EQ(dialogs.last().text, "Sorry, not yet implemented...");
    EXPECT_EQ(dialogs.last().title, "WARNING!");
    dialogs.printAnswers.push_back(false);
    f.command(0)->click();
    ASSERT_NE(f.run(), nullptr);
    EXPECT_TRUE(f.run()->fitted());
}

TEST_F(JvzScreen, GrowthChecksAndTheEmptyTop) {
    settings.setRunTime(kKeyLastActive, Write("top.lfq", {90, 70, 52, 38, 26, 0, 0}));
    FrmJonesZalinge f(ctx);
    f.field(1)->setText(test::Local("0.4"));
    f.field(0)->setText("abc");
    f.command(4)->click();
    EXPECT_EQ(dialogs.last().text, kCcInvalidLooText);
    f.field(0)->setText("17");
    f.command(4)->click();
    EXPECT_EQ(dialogs.last().text, kJvzTooSmallText);
    f.field(0)->setText("30");
    f.field(1)->setText("0");
    f.command(4)->click();
    EXPECT_EQ(dialogs.last().text, kCcInvalidKText);
    f.field(1)->setText(test::Local("0.4"));
    f.command(4)->click();
    EXPECT_EQ(dialogs.last().text, JvzEmptyTopText(6, 7));
    EXPECT_EQ(f.run(), nullptr);
    EXPECT_EQ(f.tabs()->currentIndex(), 0);
}

}  // namespace
}  // namespace norvo::gui
