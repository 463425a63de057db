#include <gtest/gtest.h>
#include <sqlite3.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <random>

#include "data/data_store.h"
#include "data/file_kind.h"
#include "data/schema.h"
#include "data/store_routines.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

using test::RunCli;
using test::TempDir;

std::string Q(const std::string& path) {
    return "'" + path + "'";
}

// Rows of a query on a file, each row's columns joined by "|", read without the store.
std::vector<std::string> Query(const std::string& path, const std::string& sql) {
    sqlite3* db = nullptr;
    std::vector<std::string> rows;
    EXPECT_EQ(sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
    sqlite3_stmt* st = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(db, sql.c_str(), -1, &st, nullptr), SQLITE_OK) << sql;
    while (st && sqlite3_step(st) == SQLITE_ROW) {
        std::string row;
        for (int i = 0; i < sqlite3_column_count(st); ++i) {
            const auto* t = sqlite3_column_text(st, i);
            if (i) row += '|';
            if (t) row += reinterpret_cast<const char*>(t);
        }
        rows.push_back(row);
    }
    sqlite3_finalize(st);
    sqlite3_close(db);
    return rows;
}

// Every kind: a new file holds exactly the tables and fields of its schema, with their declared
// types, and no records; info reports the kind and the empty tables.
TEST(CliNew, EveryKindHoldsExactlyItsSchemaEmpty) {
    TempDir dir;
    for (const auto& kind : FileKinds()) {
        const std::string path = dir.file(std::string("new.") + kind.extension);
        const auto made = RunCli("new " + Q(path));
        ASSERT_EQ(made.exitCode, 0) << kind.code << made.err;

        std::vector<std::string> expectedTables;
        for (const auto& t : SchemaOf(kind.code)) expectedTables.push_back(t.name);
        std::sort(expectedTables.begin(), expectedTables.end());
        EXPECT_EQ(Query(path, "SELECT name FROM sqlite_master ORDER BY name"), expectedTables)
            << kind.code;
        for (const auto& t : SchemaOf(kind.code)) {
            std::vector<std::string> expectedFields;
            for (const auto& f : t.fields) {
                expectedFields.push_back(std::string(f.name) + "|" + DeclaredType(f.type));
            }
            EXPECT_EQ(Query(path, std::string("SELECT name, type FROM pragma_table_info('") +
                                      t.name + "')"),
                      expectedFields)
                << kind.code << " " << t.name;
            EXPECT_EQ(Query(path, std::string("SELECT count(*) FROM \"") + t.name + "\""),
                      std::vector<std::string>{"0"});
        }

        const auto info = RunCli("info " + Q(path) + " --json");
        ASSERT_EQ(info.exitCode, 0) << info.err;
        const auto j = nlohmann::json::parse(info.out);
        EXPECT_EQ(j["kind"], kind.code);
        EXPECT_TRUE(j["header"].is_null());
        EXPECT_EQ(j["tables"].size(), SchemaOf(kind.code).size());
        for (const auto& t : j["tables"]) EXPECT_EQ(t["records"], 0);
    }
}

TEST(CliInfo, ShowsHeaderAndCounts) {
    TempDir dir;
    const std::string path = dir.file("a.lfq");
    ASSERT_EQ(RunCli("new " + Q(path)).exitCode, 0);
    {
        auto store = DataStore::open(path);
        auto rs = store.openRecords("Grouped_LF");
        rs.addNew();
        rs.setField("Speciesname", std::string("Leiognathus"));
        rs.setField("Class_Interval", 0.1);
        rs.update();
        auto m = store.openRecords("GLF_Measures");
        for (int i = 0; i < 3; ++i) {
            m.addNew();
            m.update();
        }
    }
    const auto text = RunCli("info " + Q(path));
    ASSERT_EQ(text.exitCode, 0);
    EXPECT_NE(text.out.find("Kind: LFQ"), std::string::npos);
    EXPECT_NE(text.out.find("  Speciesname: Leiognathus\n"), std::string::npos);
    EXPECT_NE(text.out.find("  Class_Interval: 0.1\n"), std::string::npos);  // the float's digits
    EXPECT_NE(text.out.find("  GLF_Measures: 3\n"), std::string::npos);

    const auto j = nlohmann::json::parse(RunCli("--json info " + Q(path)).out);
    EXPECT_EQ(j["header"][0]["field"], "Speciesname");
    EXPECT_EQ(j["header"][0]["value"], "Leiognathus");
    EXPECT_TRUE(j["header"][1]["value"].is_null());
}

TEST(CliNewInfo, RefusalsUseTheSystemsMessages) {
    TempDir dir;
    const auto wrongType = RunCli("new " + Q(dir.file("a.txt")));
    EXPECT_EQ(wrongType.exitCode, 2);
    EXPECT_NE(wrongType.err.find(kWrongFileType), std::string::npos);

    const auto noFolder = RunCli("new " + Q(dir.file("no/such/a.lfq")));
    EXPECT_EQ(noFolder.exitCode, 2);
    EXPECT_NE(noFolder.err.find(kPathDoesNotExist), std::string::npos);

    EXPECT_EQ(RunCli("info " + Q(dir.file("a.doc"))).exitCode, 2);
    const auto missing = RunCli("info " + Q(dir.file("missing.lfq")));
    EXPECT_EQ(missing.exitCode, 2);
    EXPECT_NE(missing.err.find(kPathDoesNotExist), std::string::npos);

    // An empty store, a store of another kind, random bytes and truncated stores.
    std::ofstream(dir.file("empty.lfq")).close();
    ASSERT_EQ(RunCli("new " + Q(dir.file("g.gin"))).exitCode, 0);
    std::filesystem::copy_file(dir.file("g.gin"), dir.file("g.lfq"));
    std::mt19937 rng(7);
    std::string noise(5000, '\0');
    for (char& c : noise) c = static_cast<char>(rng());
    std::ofstream(dir.file("noise.msd"), std::ios::binary) << noise;
    std::ifstream in(dir.file("g.gin"), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    std::ofstream(dir.file("cut.gin"), std::ios::binary) << bytes.substr(0, bytes.size() / 2);
    std::ofstream(dir.file("head.gin"), std::ios::binary) << bytes.substr(0, 60);
    for (const char* name : {"empty.lfq", "g.lfq", "noise.msd", "cut.gin", "head.gin"}) {
        const auto r = RunCli("info " + Q(dir.file(name)));
        EXPECT_EQ(r.exitCode, 2) << name;
        EXPECT_EQ(r.err, std::string(kInvalidDataTitle) + ": " + kCorruptedOrWrongFormat + "\n")
            << name;
    }
}

}  // namespace
}  // namespace norvo
