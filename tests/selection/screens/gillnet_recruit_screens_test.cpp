// The gillnet and recruitment screens on files of their own: the checks' notices, the curves
// and their three files, the recruitment bars, table and decomposition.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <cstdlib>
#include <filesystem>

#include "base/fault.h"
#include "selection/gillnet.h"
#include "selection/recruitment.h"
#include "selection/recruitment_normsep.h"
#include "selection/screens/frm_gill_net.h"
#include "selection/screens/frm_recruit.h"
#include "support/lfq_fixtures.h"
#include "support/locale_text.h"
#include "support/screen_services.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/plot_view.h"
#include "widgets/sample_panel.h"

namespace norvo::gui {
namespace {

namespace fs = std::filesystem;

void Shot(QWidget* w, const std::string& name) {
    test::SaveShot(w, name, 1000, 700);
}

struct Screens : ::testing::Test {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};
    test::TempDir dir;

    std::string Nets() {
        return test::MakeLfqFile(dir.file("nets.lfq"), test::LfqHeaderOf("Net fish", "cm", 11, 2),
                                 {test::SampleOn(1, 10, 3, 2002), test::SampleOn(2, 10, 3, 2002)},
                                 test::ByClass({{2, 9, 31, 70, 101, 95, 60, 22, 8, 2, 0},
                                                {0, 1, 5, 19, 48, 83, 99, 77, 40, 15, 3}}));
    }
    std::string Monthly() {
        return test::MakeLfqFile(dir.file("r.lfq"), test::LfqHeaderOf("Recruit fish", "cm", 5, 5),
                                 test::MonthlySamples(3, 15, 2003),
                                 test::ByClass({{0, 3, 12, 30, 22, 9, 4, 6, 5, 2},
                                                {1, 8, 20, 14, 6, 3, 7, 9, 4, 2},
                                                {0, 0, 4, 16, 25, 12, 5, 3, 6, 4}}));
    }
};

TEST_F(Screens, GillnetChecksCurvesAndFiles) {
    settings.setRunTime(kKeyLastActive, Nets());
    FrmGillNet f(ctx);
    ASSERT_EQ(f.sample(0)->count(), 2);
    f.command(0)->click();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown.back().text, kGnIncompleteText);

    f.sample(0)->setCurrentIndex(0);
    f.sample(1)->setCurrentIndex(1);
    f.mesh(0)->setText("10");
    f.mesh(1)->setText("8");
    f.command(0)->click();
    EXPECT_EQ(dialogs.shown.back().text, kGnMeshSizesText);
    EXPECT_EQ(f.run(), nullptr);

    f.mesh(0)->setText("8");
    f.mesh(1)->setText("10");
    f.command(0)->click();
    ASSERT_NE(f.run(), nullptr);
    EXPECT_EQ(f.tabs()->currentIndex(), 1);
    EXPECT_EQ(f.result(2)->text(), test::Local("8.00"));
    EXPECT_FALSE(f.plot(1)->canvas().commandsOf(DrawOp::Polyline).empty());
    const double normalLA = f.run()->lA;
    Shot(&f, "gillnet_plot");

    // The log-normal option refits and redraws.
    f.option(1)->setChecked(true);
    EXPECT_TRUE(f.run()->logNormal);
    EXPECT_NE(f.run()->lA, normalLA);

    // Save: the question, then the three files; No writes nothing.
    dialogs.saveAnswers = {dir.file("sel.prb"), dir.file("none.prb")};
    dialogs.answers = {Answer::Yes, Answer::No};
    f.command(2)->click();
    EXPECT_EQ(dialogs.shown.back().text, GillnetSaveQuestion(dir.file("sel")));
    for (const char* name : {"sel.PRB", "sel1.PRB", "sel2.PRB"})
        EXPECT_TRUE(fs::exists(dir.path() / name)) << name;
    f.command(2)->click();
    EXPECT_FALSE(fs::exists(dir.path() / "none.PRB"));
}

TEST_F(Screens, RecruitmentBarsTableAndGroups) {
    settings.setRunTime(kKeyLastActive, Monthly());
    FrmRecruit f(ctx);
    f.growth(0)->setText("80");
    f.growth(1)->setText("0,6x");
    f.command(2)->click();
    EXPECT_EQ(dialogs.shown.back().title, kInvalidDataTitle);
    EXPECT_EQ(f.run(), nullptr);

    f.growth(1)->setText(QLocale().toString(0.6));
    f.samples()->setSelected(1, false);
    f.dataOption(1)->setChecked(true);
    f.command(2)->click();
    ASSERT_NE(f.run(), nullptr);
    EXPECT_EQ(f.tabs()->currentIndex(), 1);
    EXPECT_EQ(f.table()->item(0, 1)->text(), test::Local("0.00"));
    EXPECT_EQ(f.table()->item(0, 0)->text().toStdString(), f.run()->labels[1]);
    EXPECT_EQ(f.table()->horizontalHeaderItem(0)->text(), kRcRelativeTimeColumn);
    // One bar for each month above the lowest (the page's white box aside).
    const auto boxes = f.plot()->canvas().commandsOf(DrawOp::FilledBox);
    EXPECT_EQ(std::count_if(boxes.begin(), boxes.end(),
                            [](const DrawCommand& c) { return c.colour != kWhite; }),
              std::count_if(f.run()->pattern.begin() + 1, f.run()->pattern.end(),
                            [](float v) { return v > 0; }));

    f.group(0)->setText("4");
    f.command(5)->click();
    ASSERT_NE(f.decomposition(), nullptr);
    EXPECT_EQ(f.decomposition()->groups.size(), 1u);
    EXPECT_EQ(f.plot()->canvas().commandsOf(DrawOp::Polyline).size(), 1u);
    Shot(&f, "recruit_graph");

    // No sample selected: the catch curve's notice, nothing computed.
    for (int s = 0; s < 3; ++s) f.samples()->setSelected(s, false);
    f.command(2)->click();
    EXPECT_EQ(dialogs.shown.back().text, kCcNoDataSelectedText);
    EXPECT_EQ(f.run(), nullptr);
}

}  // namespace
}  // namespace norvo::gui
