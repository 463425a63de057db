#include "modal/msd_save.h"

#include <gtest/gtest.h>

#include "mortality/make_lfq.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

TEST(MsdSave, PathBesideTheLfqFileInTheSameCase) {
    EXPECT_EQ(MsdPathOf("/d/a.lfq"), "/d/a.msd");
    EXPECT_EQ(MsdPathOf("/d/Simull01.LFQ"), "/d/Simull01.MSD");
    EXPECT_EQ(MsdPathOf("/d.x/a"), "/d.x/a.MSD");
    EXPECT_EQ(MsdSavedText(2, false),
              "Parameters for sample 2 were saved to the file. Do you want to proceed to next "
              "sample?");
    EXPECT_EQ(MsdSavedText(3, true),
              "Parameters for sample 3 were saved to the file. All samples have been processed.");
}

TEST(MsdSave, CreatesAsksAndReplacesTheRowsOfTheSampleDate) {
    test::TempDir dir;
    LfqData data = test::MakeLfq(10, 1, {{1, 2}, {3, 4}}, {5, 6}, {1, 2});
    data.speciesname = "Leiognathus";
    data.remarks = "Bay";
    const std::string msd = dir.file("a.msd");
    const std::string program = test::BinDir().string();

    ScriptedDialogs no;
    no.answers = {Answer::No};
    EXPECT_FALSE(SaveMsdSample(msd, program, data, 1, {{12, 1, 30}}, no));
    EXPECT_EQ(no.last().title, "Create File");
    EXPECT_FALSE(std::filesystem::exists(msd));

    ScriptedDialogs yes;
    yes.answers = {Answer::Yes};
    ASSERT_TRUE(SaveMsdSample(msd, program, data, 1, {{12, 1, 30}, {20, 2, 40}}, yes));
    ASSERT_TRUE(SaveMsdSample(msd, program, data, 2, {{14, 1, 10}}, yes));
    ASSERT_TRUE(SaveMsdSample(msd, program, data, 1, {{13, 1.5f, 35}}, yes));
    const auto read = ReadMSD(msd);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->header.remarks, "Bay; Data computed from length frequencies");
    EXPECT_EQ(read->header.speciesname, "Leiognathus");
    const auto first = StoredRows(*read, data, 1);
    ASSERT_EQ(first.size(), 1u);
    EXPECT_FLOAT_EQ(first[0].length, 13);
    EXPECT_FLOAT_EQ(first[0].population, 35);
    EXPECT_EQ(StoredRows(*read, data, 2).size(), 1u);

    DeleteMsdDate(msd, 5, 1, 2001);
    EXPECT_TRUE(StoredRows(*ReadMSD(msd), data, 1).empty());
    EXPECT_EQ(StoredRows(*ReadMSD(msd), data, 2).size(), 1u);
}

}  // namespace
}  // namespace norvo
