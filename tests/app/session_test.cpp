#include "app/session.h"

#include <gtest/gtest.h>

#include <fstream>

#include "data/record_kinds.h"
#include "data/store_routines.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

class SampleReaders : public ::testing::Test {
  protected:
    test::TempDir dir;
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;

    std::string write(const char* code, std::vector<GridRow> rows) {
        const RecordKind& k = *FindRecordKind(code);
        const std::string path = dir.file(std::string("f.") + code);
        RecordFile f;
        f.header["Speciesname"] = "Lutjanus";
        f.header["Unit_Of_Measurement"] = "mm";
        f.header["Unit_Of_Age_Measurement"] = "years";
        f.header["Unit_Of_Weight_Measurement"] = "tonnes";
        f.rows = std::move(rows);
        WriteRecordFile(path, test::BinDir().string(), k, f);
        return path;
    }
};

TEST_F(SampleReaders, MsdComesSortedByDateThenLength) {
    const std::string path = write("MSD", {{1.0, 5.0, 2001.0, 30.0, 2.0},
                                           {1.0, 3.0, 2001.0, 25.0, 2.0},
                                           {1.0, 3.0, 2001.0, 12.0, 1.0},
                                           {9.0, 12.0, 2000.0, 40.0, 3.0}});
    const auto msd = session.readMsd(path, dialogs);
    ASSERT_TRUE(msd);
    const auto& rows = msd->rows;
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(rows[0].year, 2000);
    EXPECT_FLOAT_EQ(rows[1].length, 12.0f);
    EXPECT_FLOAT_EQ(rows[2].length, 25.0f);
    EXPECT_EQ(rows[3].month, 5);
    EXPECT_EQ(session.lfqData.speciesname, "Lutjanus");
    EXPECT_FALSE(session.fileReadFailed);
}

TEST_F(SampleReaders, OnlyGinSetsTheActiveFile) {
    const std::string prb = write("PRB", {{10.0, 0.1}, {12.0, 0.5}, {14.0, 1.0}});
    const PrbData p = session.readPrb(prb, dialogs).value();
    EXPECT_EQ(session.lfqData.noOfClasses, 3);
    EXPECT_DOUBLE_EQ(session.lfqData.smallestMl, 10.0);
    EXPECT_DOUBLE_EQ(session.lfqData.largestMl, 14.0);
    EXPECT_FLOAT_EQ(p.probability[1], 0.5f);
    const std::string caa = write("CAA", {{1.5, 300.0, 1.0}});
    EXPECT_EQ(session.readCaa(caa, dialogs)->unitOfWeight, "tonnes");
    const std::string laa = write("LAA", {{2.0, 31.5, 1.0}});
    EXPECT_FLOAT_EQ(session.readLaa(laa, dialogs)->rows.at(0)[1], 31.5f);
    EXPECT_EQ(settings.runTime(kKeyLastActive, "none"), "none");

    const std::string gin = write("GIN", {{1.0, 2.0, 2000.0, 10.5, 1.0, 2.0, 2001.0, 14.0},
                                          {3.0, 4.0, 2000.0, 11.0, 5.0, 6.0, 2001.0, 13.0}});
    const auto g = session.readGin(gin, settings, dialogs).value().rows;
    ASSERT_EQ(g.size(), 2u);
    EXPECT_FLOAT_EQ(g[0][4], 10.5f);  // Length1 in column 4
    EXPECT_FLOAT_EQ(g[1][7], 2001.0f);
    EXPECT_EQ(session.lfqData.noOfSamples, 2);
    EXPECT_EQ(settings.runTime(kKeyLastActive, ""), gin);
}

TEST_F(SampleReaders, BrokenFileSetsTheFlagWithTheNotice) {
    const std::string path = dir.file("bad.gin");
    std::ofstream(path) << "not a store";
    EXPECT_FALSE(session.readGin(path, settings, dialogs));
    EXPECT_TRUE(session.fileReadFailed);
    EXPECT_EQ(dialogs.last().title, kInvalidDataTitle);
    EXPECT_EQ(dialogs.last().text, kCorruptedOrWrongFormat);
    EXPECT_EQ(settings.runTime(kKeyLastActive, "none"), "none");
    // The next good read clears the flag.
    session.readPrb(write("PRB", {{10.0, 0.5}}), dialogs);
    EXPECT_FALSE(session.fileReadFailed);
}

}  // namespace
}  // namespace norvo
