#include "data/data_store.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>

#include "base/fault.h"
#include "data/store_routines.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

using test::TempDir;

// A fresh file of the path's kind, made from its template.
std::string NewFile(const TempDir& dir, const std::string& name) {
    const std::string path = dir.file(name);
    EXPECT_TRUE(CopyTemplate(path, test::BinDir().string())) << path;
    return path;
}

// Runs raw SQL on a file, bypassing the store's checks (for building hostile files).
void RawExec(const std::string& path, const std::string& sql) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
    char* err = nullptr;
    const int rc = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &err);
    sqlite3_free(err);
    sqlite3_close(db);
    ASSERT_EQ(rc, SQLITE_OK) << sql;
}

std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

int FaultNumberOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const Fault& e) {
        return e.number();
    }
    return 0;
}

TEST(TranslateDialect, BracketsQuotesAndDeleteStar) {
    EXPECT_EQ(TranslateDialect("SELECT * FROM [Sample_LF] ORDER BY [Sample_LF].[SampleNo]"),
              "SELECT * FROM \"Sample_LF\" ORDER BY \"Sample_LF\".\"SampleNo\"");
    EXPECT_EQ(TranslateDialect("DELETE * FROM [F-array];"), "DELETE FROM \"F-array\";");
    EXPECT_EQ(TranslateDialect("  delete *from [T]"), "DELETE FROM \"T\"");
    // Brackets and quotes inside string literals are text, not names.
    EXPECT_EQ(TranslateDialect("SELECT * FROM [Fleet] WHERE [Fleet Name]='a [b] \"c\" ''d'''"),
              "SELECT * FROM \"Fleet\" WHERE \"Fleet Name\"='a [b] \"c\" ''d'''");
    // The dialect's double-quoted text is a string literal.
    EXPECT_EQ(TranslateDialect("[Species]=\"O'Hara \"\"x\"\"\""), "\"Species\"='O''Hara \"x\"'");
}

TEST(FieldValues, Conversions) {
    EXPECT_EQ(AsDouble(FieldValue{}), 0.0);
    EXPECT_EQ(AsDouble(FieldValue{std::string(" 2.5 ")}), 2.5);
    EXPECT_EQ(AsInteger(FieldValue{2.5}), 2);  // half to even
    EXPECT_EQ(AsInteger(FieldValue{3.5}), 4);
    EXPECT_EQ(AsText(FieldValue{}), "");
    EXPECT_EQ(AsText(FieldValue{int64_t{42}}), "42");
    EXPECT_EQ(FaultNumberOf([] { AsDouble(FieldValue{std::string("12x")}); }), 13);
    EXPECT_EQ(FaultNumberOf([] { AsDouble(FieldValue{std::string("")}); }), 13);
    EXPECT_EQ(FaultNumberOf([] { AsFloat(FieldValue{1e39}); }), 6);
}

class StoreTest : public ::testing::Test {
  protected:
    TempDir dir;
};

TEST_F(StoreTest, RecordsRoundTripWithFieldWidths) {
    const std::string path = NewFile(dir, "a.lfq");
    const float smallest = 10.1f, interval = 0.3f;
    {
        auto store = DataStore::open(path);
        auto rs = store.openRecords("SELECT * FROM [Grouped_LF]");
        EXPECT_TRUE(rs.endOfRecords());
        rs.addNew();
        rs.setField("Speciesname", std::string("Sardinella"));
        rs.setField("smallest_ml", static_cast<double>(smallest));
        rs.setField("Class_Interval", 0.3);  // a double is stored as the nearest float
        rs.setField("Remarks", int64_t{7});  // numbers into text fields become text
        rs.update();
        auto samples = store.openRecords("Sample_LF");
        for (int i = 1; i <= 3; ++i) {
            samples.addNew();
            samples.setField("SampleNo", int64_t{i});
            samples.setField("Sampling_Year", 1990.0 + i);
            samples.setField("Sampling_Day", 2.5);  // rounds half to even
            samples.update();
        }
    }
    auto store = DataStore::open(path);
    auto rs = store.openRecords("SELECT * FROM [Grouped_LF]");
    ASSERT_EQ(rs.recordCount(), 1);
    EXPECT_EQ(AsText(rs.getField("SPECIESNAME")), "Sardinella");
    const float back = AsFloat(rs.getField("Smallest_ML"));
    EXPECT_EQ(std::memcmp(&back, &smallest, sizeof back), 0);
    EXPECT_EQ(AsFloat(rs.getField("Class_Interval")), interval);
    EXPECT_EQ(rs.getField("Remarks"), FieldValue{std::string("7")});
    EXPECT_TRUE(IsNull(rs.getField("Other_ID")));  // never set: null
    EXPECT_THROW(rs.getField("NoSuchField"), StoreError);

    auto samples = store.openRecords("SELECT * FROM [Sample_LF] ORDER BY [Sample_LF].[SampleNo]");
    samples.moveLast();
    EXPECT_EQ(samples.recordCount(), 3);
    EXPECT_EQ(samples.getField("Sampling_Year"), FieldValue{int64_t{1993}});
    EXPECT_EQ(samples.getField("Sampling_Day"), FieldValue{int64_t{2}});
    EXPECT_EQ(store.fieldType("sample_lf", "sampleno"), FieldType::Int16);
    EXPECT_EQ(store.fieldType("GLF_Measures", "Midlength"), FieldType::Float32);
    EXPECT_FALSE(store.fieldType("Grouped_LF", "Nope").has_value());
}

TEST_F(StoreTest, WidthOverflowIsAFault) {
    const std::string path = NewFile(dir, "a.lfq");
    auto store = DataStore::open(path);
    auto rs = store.openRecords("Sample_LF");
    rs.addNew();
    EXPECT_EQ(FaultNumberOf([&] { rs.setField("SampleNo", int64_t{32768}); }), 6);
    EXPECT_NO_THROW(rs.setField("SampleNo", int64_t{-32768}));
    EXPECT_EQ(FaultNumberOf([&] { rs.setField("Sampling_Year", 2147483648.0); }), 6);
    EXPECT_EQ(FaultNumberOf([&] { rs.setField("Depth", 4e38); }), 6);
    EXPECT_EQ(FaultNumberOf([&] { rs.setField("Depth", std::string("deep")); }), 13);
}

TEST_F(StoreTest, NavigationFindAndEdit) {
    const std::string path = NewFile(dir, "a.gin");
    {
        auto store = DataStore::open(path);
        auto rs = store.openRecords("GIN_Measures");
        EXPECT_THROW(rs.setField("Day1", int64_t{1}), StoreError);  // no addNew or edit
        for (int i = 1; i <= 5; ++i) {
            rs.addNew();
            rs.setField("Day1", int64_t{i});
            rs.setField("Length1", 10.0 * i);
            rs.update();
        }
        EXPECT_TRUE(rs.endOfRecords());  // adding leaves the cursor where it was
        rs.moveFirst();
        rs.findFirst("[Day1] = 3 AND Length1 > 25");
        ASSERT_FALSE(rs.noMatch());
        EXPECT_EQ(AsInteger(rs.getField("Day1")), 3);
        rs.edit();
        rs.setField("Length2", 99.5);
        rs.update();
        rs.findFirst("[Day1] > 5");
        EXPECT_TRUE(rs.noMatch());
        EXPECT_EQ(AsInteger(rs.getField("Day1")), 3);  // a failed find does not move
        rs.moveLast();
        EXPECT_EQ(AsInteger(rs.getField("Day1")), 5);
        rs.moveNext();
        EXPECT_TRUE(rs.endOfRecords());
        EXPECT_THROW(rs.moveNext(), StoreError);
        EXPECT_THROW(rs.getField("Day1"), StoreError);
    }
    auto store = DataStore::open(path);
    auto rs = store.openRecords("SELECT * FROM [GIN_Measures] WHERE [Length2] IS NOT NULL");
    ASSERT_EQ(rs.recordCount(), 1);
    EXPECT_EQ(AsDouble(rs.getField("length2")), 99.5);
    // Sets that are not a plain table cannot be written.
    auto distinct = store.openRecords("SELECT DISTINCT [Day1] FROM [GIN_Measures] WHERE [Day1]>2");
    EXPECT_EQ(distinct.recordCount(), 3);
    EXPECT_THROW(distinct.edit(), StoreError);
    EXPECT_THROW(distinct.addNew(), StoreError);
    store.execute("DELETE * FROM [GIN_Measures] WHERE [Day1] <= 4;");
    EXPECT_EQ(store.openRecords("GIN_Measures").recordCount(), 1);
    EXPECT_THROW(store.execute("DELETE FROM [GIN_Measures]; DROP TABLE [GIN]"), StoreError);
    EXPECT_THROW(store.openRecords("SELECT [Nonexistent] FROM [GIN]"), StoreError);
}

TEST_F(StoreTest, NamesWithBlanksDashesAndApostrophes) {
    const std::string spc = NewFile(dir, "s.spc");
    {
        auto store = DataStore::open(spc);
        auto rs = store.openRecords("SELECT * FROM [F-array]");
        rs.addNew();
        rs.setField("Length Class", 12.25);
        rs.setField("F", 0.123456789012);  // 64-bit: kept whole
        rs.update();
    }
    auto store = DataStore::open(spc);
    auto rs = store.openRecords("[F-array]");
    EXPECT_EQ(AsDouble(rs.getField("length class")), 12.25);
    EXPECT_EQ(AsDouble(rs.getField("F")), 0.123456789012);
    EXPECT_EQ(store.fieldType("Header", "NoGroups"), FieldType::Int16);

    const std::string sce = NewFile(dir, "x.sce");
    auto scenario = DataStore::open(sce);
    auto sel = scenario.openRecords("Selection");
    sel.addNew();
    sel.setField("Fleet", std::string("O'Brien trawl"));
    sel.setField("Species", std::string("Sardine"));
    sel.setField("L50", 10.0);
    sel.update();
    auto found = scenario.openRecords(
        "SELECT * FROM [Selection] WHERE [Fleet]='O''Brien trawl' AND [Species]='Sardine'");
    EXPECT_EQ(found.recordCount(), 1);
    sel.findFirst("[Fleet]='O''Brien trawl'");
    EXPECT_FALSE(sel.noMatch());
}

TEST_F(StoreTest, TransactionsAreAllOrNothing) {
    const std::string path = NewFile(dir, "a.prb");
    const std::string before = ReadBytes(path);
    {
        auto store = DataStore::open(path);
        store.beginTransaction();
        auto rs = store.openRecords("PRB_Measures");
        rs.addNew();
        rs.setField("Length", 1.0);
        rs.update();
        // Closed without commit: rolled back.
    }
    {
        auto store = DataStore::open(path);
        EXPECT_EQ(store.openRecords("PRB_Measures").recordCount(), 0);
        store.beginTransaction();
        store.execute("UPDATE [PRB_Measures] SET [Length] = 2");
        store.rollback();
        store.beginTransaction();
        auto rs = store.openRecords("PRB_Measures");
        rs.addNew();
        rs.update();
        store.commit();
    }
    EXPECT_EQ(DataStore::open(path).openRecords("PRB_Measures").recordCount(), 1);
    EXPECT_NE(ReadBytes(path), before);
}

TEST_F(StoreTest, RefusesMissingForeignAndHostileStores) {
    EXPECT_THROW(DataStore::open(dir.file("missing.lfq")), StoreError);
    EXPECT_THROW(DataStore::open(dir.path().string()), StoreError);
    EXPECT_FALSE(std::filesystem::exists(dir.file("missing.lfq")));  // open never creates

    WriteBytes(dir.file("text.lfq"), "Speciesname,Other_ID\nSardine,1\n");
    EXPECT_THROW(DataStore::open(dir.file("text.lfq")), StoreError);

    // A store of another kind under this kind's extension.
    std::filesystem::copy_file(test::BinDir() / "Templates" / "Template.GIN", dir.file("gin.lfq"));
    EXPECT_THROW(DataStore::open(dir.file("gin.lfq")), StoreError);

    const std::string hostile[] = {
        "CREATE TRIGGER t AFTER INSERT ON Grouped_LF BEGIN DELETE FROM Sample_LF; END",
        "CREATE VIEW v AS SELECT * FROM Sample_LF",
        "CREATE TABLE Extra (x)",
    };
    int n = 0;
    for (const auto& sql : hostile) {
        const std::string path = NewFile(dir, "h" + std::to_string(n++) + ".lfq");
        RawExec(path, sql);
        EXPECT_THROW(DataStore::open(path), StoreError) << sql;
    }
    // An index on its own table is harmless.
    const std::string indexed = NewFile(dir, "i.lfq");
    RawExec(indexed, "CREATE INDEX ix ON Sample_LF (SampleNo)");
    EXPECT_NO_THROW(DataStore::open(indexed));
}

// Random bytes, truncated and damaged stores: open and read either work or raise StoreError.
TEST_F(StoreTest, BrokenFilesNeverCrash) {
    const std::string good = NewFile(dir, "good.lfq");
    {
        auto store = DataStore::open(good);
        store.beginTransaction();
        auto rs = store.openRecords("GLF_Measures");
        for (int i = 0; i < 400; ++i) {
            rs.addNew();
            rs.setField("SampleNo", int64_t{i % 7 + 1});
            rs.setField("Midlength", 10.0 + i);
            rs.update();
        }
        store.commit();
    }
    const std::string bytes = ReadBytes(good);
    std::mt19937 rng(12345);
    auto tryRead = [&](const std::string& content, const std::string& name) {
        const std::string path = dir.file(name);
        WriteBytes(path, content);
        try {
            auto store = DataStore::open(path);
            for (const char* t : {"Grouped_LF", "Sample_LF", "GLF_Measures"}) {
                auto rs = store.openRecords(t);
                for (rs.moveFirst(); !rs.endOfRecords(); rs.moveNext()) rs.getField("SampleNo");
            }
        } catch (const StoreError&) {
        }
    };
    for (int i = 0; i < 40; ++i) {
        std::string noise(rng() % 9000, '\0');
        for (char& c : noise) c = static_cast<char>(rng());
        if (i % 2) noise.replace(0, std::min<size_t>(16, noise.size()), "SQLite format 3\0", 16);
        tryRead(noise, "noise.lfq");
    }
    for (size_t cut : {size_t{0}, size_t{50}, size_t{100}, size_t{4096}, size_t{5000},
                       bytes.size() / 2, bytes.size() - 1}) {
        tryRead(bytes.substr(0, cut), "cut.lfq");
    }
    for (int i = 0; i < 60; ++i) {
        std::string damaged = bytes;
        for (int k = 0; k < 8; ++k) damaged[rng() % damaged.size()] = static_cast<char>(rng());
        tryRead(damaged, "damaged.lfq");
    }
    tryRead(bytes.substr(0, bytes.size() / 2), "half.lfq");
    EXPECT_THROW(DataStore::open(dir.file("half.lfq")).openRecords("GLF_Measures"), StoreError);
}

}  // namespace
}  // namespace norvo
