// The sample tool screens: "LastActive" as the source, a run from the boxes to the file, the
// pool list's marks and refusals, and sample weights written into the source.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include "app/active_file.h"
#include "data/lfq_file.h"
#include "data/store_routines.h"
#include "samples/adjust_smooth.h"
#include "samples/merge_pool.h"
#include "samples/screens/frm_adjust_smooth.h"
#include "samples/screens/frm_correct_convert.h"
#include "samples/screens/frm_merge_pool.h"
#include "samples/screens/frm_raise_sample_wt.h"
#include "support/lfq_fixtures.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/data_grid.h"

namespace norvo::gui {
namespace {

struct Fixture {
    test::TempDir dir;
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};
    std::string source;

    Fixture() {
        std::vector<LfqSample> samples = {test::SampleOn(1, 1, 1, 2020),
                                          test::SampleOn(2, 1, 2, 2020),
                                          test::SampleOn(3, 1, 3, 2020)};
        for (auto& s : samples) {
            s.lwA = 0.01f;
            s.lwB = 3;
        }
        source = test::MakeLfqFile(
            dir.file("src.lfq"), test::LfqHeaderOf("Sardine", "cm", 10.5f, 1), samples,
            test::ByClass({{1.234, 2, 3, 4, 5}, {2, 2, 2, 2, 2}, {0, 1, 0, 1, 0}}));
        ActiveFileSet(settings).setActive(source);
    }
};

TEST(SampleScreens, ToolsTakeLastActiveAndWriteTheirFile) {
    Fixture f;
    FrmSmooth smooth(f.ctx);
    EXPECT_EQ(smooth.sourceBox()->text().toStdString(), f.source);
    EXPECT_EQ(smooth.species()->text(), "Sardine");
    EXPECT_EQ(smooth.sourceGrid()->rowCount(), 5);
    const std::string out = f.dir.file("s.lfq");
    smooth.destinationBox()->setText(QString::fromStdString(out));
    smooth.option(1)->setChecked(true);
    smooth.proceed();
    EXPECT_EQ(f.dialogs.last().text, "The file has been saved to " + out);
    ASSERT_EQ(smooth.resultGrid()->rowCount(), 1);
    EXPECT_EQ(smooth.resultGrid()->value(0, 1), 2.0);
    EXPECT_TRUE(FileExists(out));
}

TEST(SampleScreens, AdjustChecksTheSizeBeforeAskingAndStopsOnNo) {
    Fixture f;
    FrmAdjust adjust(f.ctx);
    const std::string out = f.dir.file("a.lfq");
    adjust.destinationBox()->setText(QString::fromStdString(out));
    adjust.classSize()->setText("0.24");
    adjust.proceed();
    EXPECT_EQ(f.dialogs.last().text, kAdjustInvalidSizeText);
    adjust.classSize()->setText("2");
    f.dialogs.answers = {Answer::No};
    adjust.proceed();
    EXPECT_EQ(f.dialogs.last().title, kAdjustAskTitle);
    EXPECT_FALSE(FileExists(out));
    f.dialogs.answers = {Answer::Yes};
    adjust.proceed();
    EXPECT_EQ(f.dialogs.last().title, "Done!");
    EXPECT_EQ(ReadLFQ(out)->noOfClasses, 3);
}

TEST(SampleScreens, PoolMarksPooledEntriesAndRefusesThemAgain) {
    Fixture f;
    FrmPool pool(f.ctx);
    ASSERT_EQ(pool.list()->count(), 3);
    EXPECT_EQ(pool.list()->item(0)->text(), "Sample 1 (01/01/2020)");
    pool.list()->item(0)->setSelected(true);
    pool.list()->item(1)->setSelected(true);
    pool.datePicker()->setDate(QDate(2021, 3, 15));
    pool.poolSelected();
    EXPECT_EQ(pool.list()->item(0)->text(), "* Sample 1 (01/01/2020)");
    EXPECT_EQ(pool.resultGrid()->columnCount(), 2);
    EXPECT_EQ(pool.resultGrid()->value(0, 1), 3.23);

    pool.list()->item(1)->setSelected(true);
    pool.poolSelected();
    EXPECT_EQ(f.dialogs.last().text, kPoolPreviouslyPooledText);

    const std::string out = f.dir.file("p.lfq");
    pool.destinationBox()->setText(QString::fromStdString(out));
    pool.proceed();
    EXPECT_EQ(f.dialogs.last().title, "Data Saved");
    EXPECT_EQ(ReadLFQ(out)->noOfSamples, 2);
}

TEST(SampleScreens, MergeRefusesItsSourceAsDestination) {
    Fixture f;
    FrmMerge merge(f.ctx);
    merge.sourceBox(1)->setText(QString::fromStdString(f.source));
    merge.destinationBox()->setText(QString::fromStdString(f.source));
    merge.proceed();
    EXPECT_EQ(f.dialogs.last().title, "Invalid Inputs");
}

TEST(SampleScreens, CorrectConvertAndRaiseRefuseIncompleteInputs) {
    Fixture f;
    const std::string out = f.dir.file("o.lfq");
    FrmCorrect correct(f.ctx);
    correct.destinationBox()->setText(QString::fromStdString(out));
    correct.ogiveOption()->setChecked(true);
    correct.ogiveBox(0)->setText("12");
    correct.proceed();
    EXPECT_EQ(f.dialogs.last().text, "Invalid or incomplete input. Please check.");

    FrmConvert convert(f.ctx);
    convert.destinationBox()->setText(QString::fromStdString(out));
    convert.coefficient(0)->setText("2");
    convert.proceed();
    EXPECT_EQ(f.dialogs.last().text, "Please complete the inputs before proceeding.");

    FrmRaise raise(f.ctx);
    raise.destinationBox()->setText(QString::fromStdString(out));
    raise.selectAll()->setChecked(true);
    raise.proceed();  // option 1 with Wt_Sample 0
    EXPECT_EQ(f.dialogs.last().title, "Invalid Data...");
    EXPECT_FALSE(FileExists(out));
}

TEST(SampleScreens, SampleWeightFillsBothGridsAndWritesTheSource) {
    Fixture f;
    FrmSampleWt wt(f.ctx);
    EXPECT_EQ(wt.sampleGrid()->colHeading(0), "Sum F");
    wt.compute();
    EXPECT_EQ(f.dialogs.last().title, "Notice!");
    ASSERT_EQ(wt.sampleGrid()->rowCount(), 3);
    EXPECT_EQ(wt.sampleGrid()->value(1, 0), 10.0);
    EXPECT_GT(ReadSampleHeaders(f.source)[1].wtSample, 0);
}

}  // namespace
}  // namespace norvo::gui
