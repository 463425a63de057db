#include "data/record_kinds.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "data/data_store.h"
#include "data/schema.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

TEST(RecordKinds, EveryDescriptorMatchesItsSchema) {
    ASSERT_EQ(RecordKinds().size(), 9u);
    for (const RecordKind& k : RecordKinds()) {
        const TableSchema* header = FindTable(k.code, k.headerTable);
        const TableSchema* measures = FindTable(k.code, k.measuresTable);
        ASSERT_NE(header, nullptr) << k.code;
        ASSERT_NE(measures, nullptr) << k.code;
        for (const HeaderBox& b : k.boxes)
            EXPECT_NE(FindField(*header, b.field), nullptr) << b.field;
        for (const GridColumn& c : k.columns)
            EXPECT_NE(FindField(*measures, c.field), nullptr) << c.field;
    }
    EXPECT_EQ(FindRecordKind("lfq"), nullptr);
}

TEST(RecordKinds, UlfHeadingFollowsTheUnit) {
    EXPECT_EQ(UlfColumnHeading("cm"), "Length (cm)");
    EXPECT_EQ(UlfColumnHeading("kg"), "Weight (kg)");
    EXPECT_EQ(UlfColumnHeading("g"), "Weight (g)");
    EXPECT_FALSE(IsWeightUnit("mm"));
}

// Every kind: a file written with data, a blank cell and trailing empty rows reads back with
// the blank as 0 and the empty rows gone.
TEST(RecordKinds, WriteThenReadEveryKind) {
    test::TempDir dir;
    for (const RecordKind& k : RecordKinds()) {
        const std::string path = dir.file(std::string("f.") + k.code);
        RecordFile f;
        for (const HeaderBox& b : k.boxes)
            f.header[b.field] =
                b.type == BoxType::Date ? "2003-07-15" : std::string("v ") + b.field;
        for (int r = 0; r < 3; ++r) {
            GridRow row;
            for (const GridColumn& c : k.columns)
                row.push_back(c.whole ? c.min + r : c.max > 1 ? 1.5 + r : 0.25);
            f.rows.push_back(row);
        }
        f.rows[1][0].reset();
        f.rows.push_back(GridRow(k.columns.size()));
        WriteRecordFile(path, test::BinDir().string(), k, f);
        const RecordFile back = ReadRecordFile(path, k);
        EXPECT_EQ(back.header, f.header) << k.code;
        ASSERT_EQ(back.rows.size(), 3u) << k.code;
        EXPECT_EQ(back.rows[1][0], 0.0) << k.code;
        for (size_t c = 1; c < k.columns.size(); ++c) EXPECT_EQ(back.rows[2][c], f.rows[2][c]);
    }
}

TEST(RecordKinds, FailedWriteLeavesTheFileAlone) {
    test::TempDir dir;
    const RecordKind& k = *FindRecordKind("PRB");
    const std::string path = dir.file("p.prb");
    RecordFile f;
    f.rows = {{10.0, 0.5}};
    WriteRecordFile(path, test::BinDir().string(), k, f);
    const auto before = std::filesystem::file_size(path);
    f.rows = {{1e40, 0.5}};  // overflows a 32-bit float
    EXPECT_ANY_THROW(WriteRecordFile(path, test::BinDir().string(), k, f));
    EXPECT_EQ(std::filesystem::file_size(path), before);
    EXPECT_EQ(ReadRecordFile(path, k).rows.at(0).at(0), 10.0);
}

TEST(RecordKinds, BlankCellRules) {
    std::vector<GridRow> g = {{10.5, {}, {}}, {{}, {}, {}}};
    auto cell = [&g](int r, int c) { return g[r][c]; };
    const RecordKind& vlf = *FindRecordKind("VLF");
    const Today t{5, 6, 2020};
    EXPECT_EQ(BlankCellValue(vlf, 0, 1, cell, t), 11.0);
    g[0][1] = 11.0;
    EXPECT_FLOAT_EQ(static_cast<float>(*BlankCellValue(vlf, 1, 0, cell, t)), 11.01f);
    EXPECT_EQ(BlankCellValue(vlf, 0, 0, cell, t), 0.01);
    EXPECT_EQ(BlankCellValue(vlf, 1, 2, cell, t), 1.0);

    const RecordKind& laa = *FindRecordKind("LAA");
    EXPECT_EQ(BlankCellValue(laa, 0, 0, cell, t), 0.001);
    EXPECT_EQ(BlankCellValue(laa, 0, 2, cell, t), 1.0);
    EXPECT_FALSE(BlankCellValue(*FindRecordKind("XYF"), 0, 0, cell, t));

    std::vector<GridRow> m = {{3.0, 4.0, 1999.0, 20.0, 1.0}, GridRow(5)};
    auto mcell = [&m](int r, int c) { return m[r][c]; };
    const RecordKind& msd = *FindRecordKind("MSD");
    EXPECT_EQ(BlankCellValue(msd, 0, 2, mcell, t), 2020.0);  // first row: today
    EXPECT_EQ(BlankCellValue(msd, 1, 1, mcell, t), 4.0);     // later rows: the row above
    EXPECT_FALSE(BlankCellValue(msd, 1, 3, mcell, t));
}

}  // namespace
}  // namespace norvo
