#include "data/dos_import.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "data/lfq_file.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

// Two samples: the first starts at the smallest class, the second two classes higher; years
// 95 and 105 (no century window).
constexpr const char* kTwoSamples =
    "Sardinella\nBay 3\ncentimetres\n2\n1 10 15\n"
    "3 10 4 12 95\n5\n7\n2\n"
    "2 12 11 3 105\n4\n1.5\n";

std::string Write(const test::TempDir& dir, const std::string& name, const std::string& text) {
    const std::string path = dir.file(name);
    std::ofstream(path, std::ios::binary) << text;
    return path;
}

TEST(DosImport, UnitLetter) {
    EXPECT_EQ(DosUnit("cm"), "cm");
    EXPECT_EQ(DosUnit("c"), "cm");
    EXPECT_EQ(DosUnit("Millimetres"), "mm");
    EXPECT_EQ(DosUnit("Inches"), "in");
    EXPECT_EQ(DosUnit("x"), "in");
    EXPECT_EQ(DosUnit(""), "in");
}

TEST(DosImport, GridOfTwoSamplesWithDifferentFirstClasses) {
    test::TempDir dir;
    const DosImport d = ReadDosFile(Write(dir, "old.txt", kTwoSamples));
    EXPECT_EQ(d.unit, "cm");
    EXPECT_EQ(d.headings, (std::vector<std::string>{"12/04/1995", "03/11/2005"}));
    ASSERT_EQ(d.grid.size(), 6u);  // (15 - 10) / 1 + 1
    EXPECT_EQ(d.grid[0][0], 5.0);
    EXPECT_EQ(d.grid[2][0], 2.0);
    EXPECT_FALSE(d.grid[3][0]);
    EXPECT_FALSE(d.grid[1][1]);
    EXPECT_EQ(d.grid[2][1], 4.0);
    EXPECT_EQ(d.grid[3][1], 1.5);

    const std::string out = dir.file("new.lfq");
    SaveDosImport(out, test::BinDir().string(), d);
    const ReadResult<LfqData> read = ReadLFQ(out);
    ASSERT_TRUE(read.ok());
    const LfqData& l = read.value();
    EXPECT_EQ(l.speciesname, "Sardinella");
    EXPECT_EQ(l.otherId, "Bay 3");
    EXPECT_EQ(l.remarks, kImportRemarks);
    EXPECT_EQ(l.typeOfMeasurement, "Total length (TL)");
    EXPECT_EQ(l.noOfSamples, 2);
    EXPECT_EQ(l.noOfClasses, 6);
    EXPECT_EQ(l.year[1], 2005);
    EXPECT_EQ(l.freq[0][1], 0.0);  // blank above the second sample's stretch saves as 0
    EXPECT_EQ(l.freq[3][1], 1.5);
}

TEST(DosImport, BrokenFilesFailAndWriteNothing) {
    test::TempDir dir;
    const std::string cases[] = {
        "Sp\nX\ncm\n2\n1 10 15\n",                             // no sample at all
        "Sp\nX\ncm\n1\n1 10 15\n3 10 4 12 95\n5\nseven\n2\n",  // not a number
        "Sp\nX\ncm\n1\n1 10 15\n3 14 4 12 95\n5\n7\n2\n",      // runs past the largest class
        "Sp\nX\ncm\n1\n1 10 15\n3 10 31 2 95\n5\n7\n2\n",      // 31 February
        "Sp\nX\n",                                             // header cut short
    };
    for (const std::string& text : cases) {
        EXPECT_THROW(ReadDosFile(Write(dir, "bad.txt", text)), DosFormatError) << text;
    }
    EXPECT_THROW(ReadDosFile(dir.file("missing.txt")), DosFormatError);
    EXPECT_TRUE(std::filesystem::is_empty(dir.path()) ||
                !std::filesystem::exists(dir.file("new.lfq")));
}

// The sample lines decide how many samples there are; a count on line 4 that differs is told.
TEST(DosImport, SamplesFoundAreImportedWhateverLineFourSays) {
    test::TempDir dir;
    const char* fewer = "Sp\nX\ncm\n3\n1 10 15\n3 10 4 12 95\n5\n7\n2\n";
    const DosImport d = ReadDosFile(Write(dir, "fewer.txt", fewer));
    ASSERT_TRUE(d.ok());
    EXPECT_EQ(d.headings.size(), 1u);
    EXPECT_EQ(d.grid[0].size(), 1u);
    ASSERT_EQ(d.notices.size(), 1u);
    EXPECT_EQ(d.notices[0].text,
              "The file announces 3 samples on line 4, but 1 were found. The 1 samples found "
              "were imported.");

    const char* more = "Sp\nX\ncm\n1\n1 10 15\n3 10 4 12 95\n5\n7\n2\n1 11 5 12 95\n9\n";
    const DosImport m = ReadDosFile(Write(dir, "more.txt", more));
    EXPECT_EQ(m.headings.size(), 2u);
    EXPECT_EQ(m.grid[1][1], 9.0);
    EXPECT_EQ(m.notices.size(), 1u);
    SaveDosImport(dir.file("more.lfq"), test::BinDir().string(), m);
    EXPECT_EQ(ReadLFQ(dir.file("more.lfq"))->noOfSamples, 2);

    const DosImport same = ReadDosFile(Write(dir, "old.txt", kTwoSamples));
    EXPECT_TRUE(same.notices.empty());
}

TEST(DosImport, NegativeFrequencyIsRefusedWithItsCell) {
    test::TempDir dir;
    const char* text = "Sp\nX\ncm\n2\n1 10 15\n3 10 4 12 95\n5\n7\n2\n2 12 11 3 96\n4\n-1.5\n";
    const DosImport d = ReadDosFile(Write(dir, "neg.txt", text));
    ASSERT_FALSE(d.ok());
    EXPECT_EQ(d.refusal()->title, "Invalid Data");
    EXPECT_EQ(d.refusal()->text,
              "The frequency in row 4, column 2 is negative. Frequencies cannot be negative. "
              "Import of data failed.");
}

}  // namespace
}  // namespace norvo
