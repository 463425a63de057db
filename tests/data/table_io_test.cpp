#include "data/table_io.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "data/lfq_file.h"
#include "data/record_kinds.h"
#include "support/lfq_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

using Rows = std::vector<std::vector<std::string>>;

std::string ReadAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

TEST(TableIo, DelimitedTextWithQuotes) {
    const Rows rows = ParseDelimited("a,\"b,c\",\"say \"\"hi\"\"\"\r\n1,,3\n", ',');
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0], (std::vector<std::string>{"a", "b,c", "say \"hi\""}));
    EXPECT_EQ(rows[1], (std::vector<std::string>{"1", "", "3"}));
    EXPECT_EQ(ParseDelimited(FormatDelimited(rows, ','), ','), rows);
    EXPECT_EQ(ParseDelimited("x\ty\n", '\t')[0].size(), 2u);
    try {
        ParseDelimited("a,b\nc,\"open", ',');
        FAIL();
    } catch (const TableFormatError& e) {
        EXPECT_EQ(e.row, 2);
        EXPECT_EQ(e.column, 2);
    }
    EXPECT_EQ(DelimiterFor("x.TSV"), '\t');
    EXPECT_EQ(DelimiterFor("x.csv"), ',');
}

TEST(TableIo, LfqExportedAndImportedIsTheSameFile) {
    test::TempDir dir;
    const std::string original = dir.file("a.lfq");
    test::MakeLfqFile(original,
                      test::LfqHeaderOf("Nemipterus", "mm", 7.5f, 0.2f, "Total length (TL)"), {},
                      {{1, 0}, {2.5, 3}, {0, 7}, {4, 0}});
    WriteDatesOnly(original, {"3/4/1999", "28/11/2001"});

    for (char delimiter : {',', '\t'}) {
        const std::string table = dir.file(delimiter == ',' ? "a.csv" : "a.tab");
        ExportTable(original, table, delimiter);
        EXPECT_EQ(ReadAll(table).substr(0, 31), delimiter == ','
                                                    ? "Midlength,1999-04-03,2001-11-28"
                                                    : "Midlength\t1999-04-03\t2001-11-28");
        const std::string copy = dir.file(delimiter == ',' ? "b.lfq" : "c.lfq");
        TableImportOptions o;
        o.speciesname = "Nemipterus";
        o.unit = "mm";
        ImportTable(table, copy, test::BinDir().string(), o);
        for (const char* t : {"Grouped_LF", "Sample_LF", "GLF_Measures"})
            EXPECT_EQ(test::DumpTable(copy, t), test::DumpTable(original, t)) << t;
    }
}

TEST(TableIo, MalformedTablesNameTheCellAndWriteNothing) {
    test::TempDir dir;
    const std::string out = dir.file("x.lfq");
    const std::string root = test::BinDir().string();
    auto refused = [&](const Rows& rows, int row, int col) {
        try {
            ImportRows(rows, out, root, {});
            ADD_FAILURE() << "accepted";
        } catch (const TableFormatError& e) {
            EXPECT_EQ(e.row, row);
            EXPECT_EQ(e.column, col);
            EXPECT_NE(std::string(e.what()).find("Row " + std::to_string(row) + ", column " +
                                                 std::to_string(col)),
                      std::string::npos);
        }
        EXPECT_FALSE(std::filesystem::exists(out));
    };
    refused({{"Midlength", "1/2/2000"}, {"10", "1"}, {"11", "abc"}}, 3, 2);
    refused({{"Midlength", "31/2/2000"}, {"10", "1"}, {"11", "2"}}, 1, 2);
    refused({{"Midlength", "2000-02-01"}, {"10", "1"}, {"11", "2"}, {"12.5", "2"}}, 4, 1);
    refused({{"Midlength", "2000-02-01"}, {"10", "-1"}, {"11", "2"}}, 2, 2);
    // Day/month/year headings are read as well as ISO ones.
    ImportRows({{"Midlength", "1/2/2000", "2000-03-01"}, {"10", "1", ""}, {"11", "2", "4"}}, out,
               root, {});
    EXPECT_EQ(test::DumpTable(out, "Sample_LF").size(), 2u);

    const std::string gin = dir.file("x.gin");
    auto ginRefused = [&](const Rows& rows, int row, int col) {
        try {
            ImportRows(rows, gin, root, {});
            ADD_FAILURE() << "accepted";
        } catch (const TableFormatError& e) {
            EXPECT_EQ(e.row, row);
            EXPECT_EQ(e.column, col);
        }
        EXPECT_FALSE(std::filesystem::exists(gin));
    };
    const std::vector<std::string> fields = {"Day1", "Month1", "Year1", "Length1",
                                             "Day2", "Month2", "Year2", "Length2"};
    ginRefused({fields, {"1", "13", "2000", "10", "1", "2", "2001", "12"}}, 2, 2);
    ginRefused({fields, {"1.5", "1", "2000", "10", "1", "2", "2001", "12"}}, 2, 1);
    ginRefused({{"Day1", "Colour"}}, 1, 2);
    ginRefused({{"Day1"}}, 1, 2);
}

// A table gets the editor's checks: what the editor would refuse is not let in by an import.
TEST(TableIo, GrowthIncrementsAndMeansPassTheEditorsChecks) {
    test::TempDir dir;
    const std::string root = test::BinDir().string();
    const std::string gin = dir.file("x.gin");
    const std::vector<std::string> fields = {"Day1", "Month1", "Year1", "Length1",
                                             "Day2", "Month2", "Year2", "Length2"};
    const std::vector<std::string> good = {"1", "2", "2000", "10", "1", "8", "2000", "12"};
    auto refusal = [&](const std::vector<std::string>& second) {
        const Outcome o = ImportRows({fields, good, second}, gin, root, {});
        EXPECT_FALSE(std::filesystem::exists(gin));
        return o.refusal() ? o.refusal()->text : std::string("accepted");
    };
    EXPECT_EQ(refusal({"31", "2", "2000", "11", "5", "9", "2000", "13"}),
              "Invalid date input for date on row 2. Please check before saving.");
    EXPECT_EQ(refusal({"5", "9", "2000", "11", "5", "9", "2000", "13"}),
              "The date of recapture cannot be less than or equal to date of tagging. Please "
              "correct row 2 before saving.");
    EXPECT_EQ(refusal({"5", "9", "2000", "11", "5", "", "2000", "13"}),
              "The cell in row 2, column 6 is empty. Please correct the input.");

    // Shrinkage warns and the file is written.
    const Outcome shrunk =
        ImportRows({fields, good, {"5", "9", "2000", "14", "6", "9", "2000", "13"}}, gin, root, {});
    EXPECT_TRUE(shrunk.ok());
    ASSERT_EQ(shrunk.notices.size(), 1u);
    EXPECT_EQ(shrunk.notices[0].title, "Warning...");
    EXPECT_EQ(ReadRecordFile(gin, *FindRecordKind("GIN")).rows.size(), 2u);

    const std::string msd = dir.file("x.msd");
    const Outcome bad = ImportRows({{"DateDay", "DateMonth", "DateYear", "Length", "SD"},
                                    {"1", "2", "2001", "15", "1.2"},
                                    {"29", "2", "2001", "9", "1.1"}},
                                   msd, root, {});
    ASSERT_FALSE(bad.ok());
    EXPECT_EQ(bad.refusal()->text,
              "The date entry 29/2/2001 for observation number 2 is invalid. Data will not be "
              "saved. Please correct data before saving.");
    EXPECT_FALSE(std::filesystem::exists(msd));
}

TEST(TableIo, SampleKindByFieldNamesInAnyOrder) {
    test::TempDir dir;
    const std::string out = dir.file("v.val");
    TableImportOptions o;
    o.speciesname = "Penaeus";
    ImportRows({{"value", "Length"}, {"3.25", "10"}, {"", "11"}}, out, test::BinDir().string(), o);
    const RecordFile f = ReadRecordFile(out, *FindRecordKind("VAL"));
    EXPECT_EQ(f.header.at("Speciesname"), "Penaeus");
    ASSERT_EQ(f.rows.size(), 2u);
    EXPECT_EQ(f.rows[0][0], 10.0);
    EXPECT_EQ(f.rows[0][1], 3.25);
    EXPECT_EQ(f.rows[1][1], 0.0);
    EXPECT_EQ(TableOfFile(out), (Rows{{"Length", "Value"}, {"10", "3.25"}, {"11", "0"}}));
}

}  // namespace
}  // namespace norvo
