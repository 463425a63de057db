#include "growth/screens/frm_gin_methods.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableWidget>

#include "growth/fabens.h"
#include "growth/growth_increments.h"
#include "growth/gulland_holt.h"
#include "growth/munro.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/plot_view.h"

namespace norvo::gui {
namespace {

struct GinScreensTest : ::testing::Test {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString()};
    std::string file = (test::BinDir() / "Data" / "SimTag.GIN").string();

    template <class Screen>
    std::unique_ptr<Screen> Open() {
        settings.setRunTime(kKeyLastActive, file);
        auto s = std::make_unique<Screen>(ctx);
        s->resize(1200, 800);
        return s;
    }
};

TEST_F(GinScreensTest, GullandClickOnAPointDeselectsItsRowAndRefits) {
    auto f = Open<FrmGulland>();
    ASSERT_NE(f->result(), nullptr);
    const int n = f->result()->n();
    EXPECT_GT(n, 3);
    EXPECT_FALSE(f->resultLabel(0)->text().isEmpty());
    // Click on the first row's point.
    const auto drawn = DrawRatePlot(f->plot(0)->canvas(), RowRates(f->rows(), false), f->flags(),
                                    true, f->result()->a, f->result()->b, f->unit(), kGhTitle);
    f->clickPlot(0, drawn.points[0].x, drawn.points[0].y);
    EXPECT_FALSE(f->flags()[0]);
    EXPECT_EQ(f->result()->n(), n - 1);
    EXPECT_EQ(f->table()->item(0, 8)->checkState(), Qt::Unchecked);
    // Beside every point: the notice, nothing changes.
    f->clickPlot(0, 99, 99);
    EXPECT_EQ(dialogs.shown.back().text, kGinClickOffText);
    EXPECT_EQ(f->result()->n(), n - 1);
    // Read-outs: "n.a." outside the frame.
    f->movePointer(0, 5, 95);
    EXPECT_EQ(f->readOut(0)->text(), "n.a.");
    f->movePointer(0, 50, 40);
    EXPECT_NE(f->readOut(0)->text(), "n.a.");
}

TEST_F(GinScreensTest, GullandFixedLooWithoutValueAndTooFewRows) {
    auto f = Open<FrmGulland>();
    f->fixedBox()->setChecked(true);
    EXPECT_EQ(dialogs.shown.back().text, kGhNoFixedText);
    EXPECT_TRUE(f->resultLabel(0)->text().isEmpty());
    f->fixedBox()->setChecked(false);
    std::vector<bool> two(f->rows().size(), false);
    two[0] = two[1] = true;
    const size_t before = dialogs.shown.size();
    f->setFlags(two);
    f->recompute();
    EXPECT_EQ(dialogs.shown.size(), before);  // no dialog
    EXPECT_EQ(f->messageLabel()->text().toStdString(), kGhTooFewText);
}

TEST_F(GinScreensTest, MunroAndFabensComputeOnOpen) {
    auto m = Open<FrmMunro>();
    ASSERT_NE(m->result(), nullptr);
    EXPECT_TRUE(m->result()->ok());
    EXPECT_EQ(m->tabs()->count(), 3);
    EXPECT_EQ(m->tabs()->tabText(1), kMunroTabs[1]);
    EXPECT_FALSE(m->regressionText()->text().isEmpty());
    auto f = Open<FrmFaben>();
    ASSERT_NE(f->result(), nullptr);
    EXPECT_TRUE(f->result()->converged);
    EXPECT_FALSE(f->resultLabel(1)->text().isEmpty());
}

}  // namespace
}  // namespace norvo::gui
