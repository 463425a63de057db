// The modal-progression screens driven as a user would: Bhattacharya's clicks, Continue and
// Save MSD; NORMSEP from the saved means; the saved means linked on the linking screen.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <cmath>
#include <cstdlib>

#include "modal/bhattacharya.h"
#include "modal/modal_plot.h"
#include "modal/msd_save.h"
#include "modal/screens/frm_bhattac_vrd.h"
#include "modal/screens/frm_linking.h"
#include "modal/screens/frm_normsep_simplex.h"
#include "mortality/make_lfq.h"
#include "support/lfq_fixtures.h"
#include "support/locale_text.h"
#include "support/screen_services.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/plot_view.h"

namespace norvo::gui {
namespace {

void Shot(QWidget* w, const std::string& name) {
    test::SaveShot(w, name, 1100, 640);
}

double Phi(double x, double mean, double sd) {
    return 0.5 * std::erfc(-(x - mean) / (sd * std::sqrt(2.0)));
}

std::vector<double> Cohorts(double m1, double m2) {
    std::vector<double> f;
    for (int i = 0; i < 45; ++i) {
        const double lo = 5 + i;
        f.push_back(std::round(600 * (Phi(lo + 1, m1, 2.5) - Phi(lo, m1, 2.5)) +
                               400 * (Phi(lo + 1, m2, 3.5) - Phi(lo, m2, 3.5))));
    }
    return f;
}

struct ModalRoad : ::testing::Test {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};
    test::TempDir dir;
    std::string path = dir.file("two.lfq");

    void SetUp() override {
        test::MakeLfqFile(path, test::LfqHeaderOf("Two", "cm", 5.5, 1),
                          {test::SampleOn(1, 15, 3, 2001), test::SampleOn(2, 15, 9, 2001)},
                          test::ByClass({Cohorts(18, 34), Cohorts(24, 38)}));
    }
};

// Canvas position of log point k of the sample as the screen holds it.
UserPoint LogPoint(const BhSample& sample, int k) {
    return *LogPointPositions(sample)[static_cast<size_t>(k)];
}

TEST_F(ModalRoad, BhattacharyaTakesTwoComponentsAndSavesThem) {
    FrmBhattacVRD screen(ctx);
    screen.Initialize(path);
    ASSERT_EQ(screen.sampleList()->count(), 2);
    BhSample sample = StartBhattacharya(session.lfqData, 1).sample;

    // A click beside any point does nothing; the hint says so.
    screen.hoverLog(1, 1);
    EXPECT_EQ(screen.hint()->text().toStdString(), "No point here: move onto a point of the plot.");
    const UserPoint a = LogPoint(sample, 9), b = LogPoint(sample, 17);
    screen.hoverLog(a.x, a.y);
    EXPECT_EQ(screen.hint()->text().toStdString(), "Click to start the line at point 9.");
    screen.clickLog(a.x, a.y);
    screen.clickLog(b.x, b.y);
    ASSERT_EQ(screen.grid()->rowCount(), 1);
    EXPECT_EQ(screen.command(4)->text().toStdString(), kBhCmdContinue);
    Shot(&screen, "bhattacharya_first");
    screen.command(4)->click();  // Continue: the component is taken off
    EXPECT_EQ(screen.componentCount(), 1);

    AcceptComponent(sample, PrepareComponent(sample, 9, 17).component);
    const UserPoint c = LogPoint(sample, 24), d = LogPoint(sample, 36);
    screen.clickLog(c.x, c.y);
    screen.clickLog(d.x, d.y);
    ASSERT_EQ(screen.grid()->rowCount(), 2);
    EXPECT_NE(screen.grid()->item(1, 5)->text().toStdString(), "n.a");
    screen.command(4)->click();
    Shot(&screen, "bhattacharya_second");

    dialogs.answers = {Answer::Yes, Answer::No};  // create the file; stay on this sample
    screen.command(4)->click();
    EXPECT_EQ(dialogs.last().text, MsdSavedText(1, false));
    const auto msd = ReadMSD(MsdPathOf(path));
    ASSERT_TRUE(msd);
    ASSERT_EQ(msd->rows.size(), 2u);
    EXPECT_NEAR(msd->rows[0].length, 18, 0.2);

    // Opened again, the screen warns of the existing file and shows the stored rows.
    FrmBhattacVRD again(ctx);
    dialogs.answers = {Answer::No};
    again.Initialize(path);
    EXPECT_EQ(dialogs.last().title, "WARNING!");
    EXPECT_EQ(again.grid()->rowCount(), 2);
    EXPECT_EQ(again.note()->text().toStdString(), kMsdPreviousNote);
    again.command(1)->click();  // Redo
    EXPECT_EQ(again.grid()->rowCount(), 0);
    EXPECT_TRUE(ReadMSD(MsdPathOf(path))->rows.empty());
}

TEST_F(ModalRoad, NormsepRefusesMissingMeansThenSeparates) {
    FrmNormsepSimplex screen(ctx);
    screen.Initialize(path);
    screen.command(1)->click();
    EXPECT_EQ(dialogs.last().text,
              "Please insert the start estimates for the means of the distributions");
    screen.grid()->item(0, 1)->setText("16");
    screen.command(1)->click();
    EXPECT_EQ(dialogs.last().text,
              "Please insert the start estimates for the means of  all the distributions");
    screen.grid()->item(1, 1)->setText("36");
    screen.command(1)->click();
    ASSERT_TRUE(screen.hasResult());
    EXPECT_NEAR(QString(screen.grid()->item(0, 2)->text()).replace(',', '.').toDouble(), 18, 0.05);
    EXPECT_EQ(screen.grid()->item(0, 5)->text().toStdString(), "n.a.");
    Shot(&screen, "normsep");
    dialogs.answers = {Answer::Yes, Answer::Yes};  // create; go on to sample 2
    screen.command(3)->click();
    EXPECT_EQ(screen.sampleList()->currentIndex(), 1);
    EXPECT_FALSE(screen.hasResult());
}

TEST_F(ModalRoad, LinkingClicksRefusalsAndSave) {
    LfqData data = test::MakeLfq(10, 1, {{1}, {1}, {1}}, {1, 1, 1}, {1, 7, 1});
    data.year = {2001, 2001, 2002};
    const std::string msd = dir.file("m.msd");
    dialogs.defaultAnswer = Answer::Yes;
    ASSERT_TRUE(SaveMsdSample(msd, ctx.programFolder.toStdString(), data, 1,
                              {{10, 1, 5}, {14, 1, 5}}, dialogs));
    ASSERT_TRUE(
        SaveMsdSample(msd, ctx.programFolder.toStdString(), data, 2, {{25, 1, 5}}, dialogs));
    ASSERT_TRUE(
        SaveMsdSample(msd, ctx.programFolder.toStdString(), data, 3, {{35, 1, 5}}, dialogs));
    dialogs.defaultAnswer.reset();

    FrmLinking screen(ctx);
    screen.Initialize(msd);
    LinkState s;
    s.points = ReadMSD(msd)->rows;
    const auto pts = LinkPointPositions(s.points);
    screen.hoverPlot(pts[1].x, pts[1].y);
    EXPECT_EQ(screen.hint()->text().toStdString(),
              "Click to start a series at 1/1/2001, " + test::LocalStd("10.00") + ".");
    screen.clickPlot(pts[1].x, pts[1].y);
    screen.clickPlot(pts[2].x, pts[2].y);  // same date: refused
    EXPECT_EQ(dialogs.last().text, "Linking of means to earlier or equal dates is not allowed.");
    screen.clickPlot(pts[3].x, pts[3].y);
    screen.clickPlot(pts[4].x, pts[4].y);
    EXPECT_EQ(screen.linkCount(), 2);
    screen.breakSeries();
    screen.clickPlot(pts[2].x, pts[2].y);
    screen.popupChoice(1);
    screen.clickPlot(pts[3].x, pts[3].y);
    EXPECT_EQ(screen.linkCount(), 2);  // a new series began at point 3
    Shot(&screen, "linking");

    const std::string gin = dir.file("l.gin"), laa = dir.file("l.laa");
    dialogs.answers = {Answer::Yes, Answer::Yes};
    dialogs.saveAnswers = {gin, laa};
    screen.command(2)->click();
    EXPECT_TRUE(ReadGIN(gin));
    ASSERT_TRUE(ReadLAA(laa));
    EXPECT_EQ(ReadLAA(laa)->rows.size(), 4u);
}

}  // namespace
}  // namespace norvo::gui
