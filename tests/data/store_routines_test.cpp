#include "data/store_routines.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "data/file_kind.h"
#include "data/schema.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

using test::TempDir;
namespace fs = std::filesystem;

std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

class RoutinesTest : public ::testing::Test {
  protected:
    TempDir dir;
    std::string program = test::BinDir().string();
    int files = 0;

    std::string newFile(const std::string& name) {
        const std::string path = dir.file(name);
        EXPECT_TRUE(CopyTemplate(path, program));
        return path;
    }
    // Sample records with keys `keys`, each marked in Sampling_Day by its position (from 1).
    std::string samplesFile(const std::vector<int>& keys) {
        const std::string path = newFile("s" + std::to_string(files++) + ".lfq");
        auto store = DataStore::open(path);
        auto rs = store.openRecords("Sample_LF");
        for (size_t i = 0; i < keys.size(); ++i) {
            rs.addNew();
            rs.setField("SampleNo", int64_t{keys[i]});
            rs.setField("Sampling_Day", static_cast<int64_t>(i + 1));
            rs.update();
        }
        return path;
    }
    // (SampleNo, Sampling_Day) pairs in key order.
    std::vector<std::pair<int64_t, int64_t>> keysAndMarks(const std::string& path) {
        auto store = DataStore::open(path);
        auto rs = store.openRecords("SELECT * FROM [Sample_LF] ORDER BY [SampleNo]");
        std::vector<std::pair<int64_t, int64_t>> out;
        for (; !rs.endOfRecords(); rs.moveNext()) {
            out.emplace_back(AsInteger(rs.getField("SampleNo")),
                             AsInteger(rs.getField("Sampling_Day")));
        }
        return out;
    }
};

TEST_F(RoutinesTest, DeleteAllDeleteWhereAndMax) {
    const std::string path = samplesFile({1, 2, 3, 4, 5});
    EXPECT_EQ(AsInteger(MaxOfField(path, "Sample_LF", "SampleNo")), 5);
    DeleteWhere(path, "Sample_LF", {"SampleNo"}, {">"}, {"3"});
    EXPECT_EQ(keysAndMarks(path).size(), 3u);
    DeleteWhere(path, "Sample_LF", {"SampleNo", "Sampling_Day"}, {">=", "<"}, {"2", "3"});
    EXPECT_EQ(keysAndMarks(path), (std::vector<std::pair<int64_t, int64_t>>{{1, 1}, {3, 3}}));
    DeleteAll(path, "Sample_LF");
    EXPECT_TRUE(IsNull(MaxOfField(path, "Sample_LF", "SampleNo")));
    EXPECT_TRUE(IsNull(MaxOfField(newFile("e.spc"), "F-array", "Length Class")));
}

TEST_F(RoutinesTest, RenumberKeysFollowsThePermutation) {
    // Old keys 10, 20, 30, 40 (marks 1..4); new order: 30, 10, 40, 20.
    const std::string path = samplesFile({10, 20, 30, 40});
    RenumberKeys(path, "Sample_LF", "SampleNo", {30, 10, 40, 20});
    EXPECT_EQ(keysAndMarks(path),
              (std::vector<std::pair<int64_t, int64_t>>{{1, 3}, {2, 1}, {3, 4}, {4, 2}}));

    // Keys that overlap the new ones (a swap of 1 and 2) do not collide.
    const std::string swap = samplesFile({1, 2, 3});
    RenumberKeys(swap, "Sample_LF", "SampleNo", {2, 1, 3});
    EXPECT_EQ(keysAndMarks(swap),
              (std::vector<std::pair<int64_t, int64_t>>{{1, 2}, {2, 1}, {3, 3}}));

    const std::string empty = newFile("empty.lfq");
    EXPECT_NO_THROW(RenumberKeys(empty, "Sample_LF", "SampleNo", {1}));
}

TEST(CheckRequired, ThreeMessageForms) {
    const Outcome filled = CheckRequired({{"Species name", "x"}, {"Smallest", " 1 "}});
    EXPECT_TRUE(filled.ok());
    EXPECT_TRUE(filled.notices.empty());

    auto refusal = [](const std::vector<RequiredBox>& boxes) {
        const Outcome o = CheckRequired(boxes);
        EXPECT_FALSE(o.ok());
        EXPECT_EQ(o.notices.size(), 1u);
        return o.refusal() ? o.refusal()->text : std::string();
    };
    EXPECT_EQ(refusal({{"Species name", "  "}, {"Smallest", "1"}}),
              "The field Species name is required. Please fill appropriate values.");
    EXPECT_EQ(refusal({{"A", ""}, {"B", "b"}, {"C", "\t"}}),
              "The fields A and C are required. Please fill appropriate values.");
    EXPECT_EQ(refusal({{"A", ""}, {"B", ""}, {"C", ""}, {"D", ""}}),
              "The fields A, B, C and D are required. Please fill appropriate values.");
}

TEST_F(RoutinesTest, OfferDeleteEmptyFile) {
    const std::string path = newFile("g.gin");
    ScriptedDialogs d;
    EXPECT_FALSE(OfferDeleteEmptyFile(path, 2, d));  // data: no question
    EXPECT_TRUE(d.shown.empty());
    d.answers = {Answer::No};
    EXPECT_FALSE(OfferDeleteEmptyFile(path, 0, d));
    EXPECT_EQ(d.last().text, kGridEmptyDelete);
    EXPECT_TRUE(fs::exists(path));
    d.answers = {Answer::Yes};
    EXPECT_TRUE(OfferDeleteEmptyFile(path, 0, d));
    EXPECT_FALSE(fs::exists(path));
    EXPECT_EQ(d.last().text, "File " + path + " deleted.");
}

TEST_F(RoutinesTest, CreateFromTemplateChecksInOrder) {
    ScriptedDialogs d;
    // Folder first: a missing folder wins over a wrong extension.
    const std::string noFolder = dir.file("nowhere/x.txt");
    EXPECT_FALSE(CreateFromTemplate(noFolder, program, d));
    EXPECT_EQ(d.last().text, kPathDoesNotExist);
    EXPECT_FALSE(fs::exists(noFolder));

    for (const char* name : {"x.TXT", "x.bmp", "noextension"}) {
        EXPECT_FALSE(CreateFromTemplate(dir.file(name), program, d)) << name;
        EXPECT_EQ(d.last().text, kWrongFileType) << name;
        EXPECT_FALSE(fs::exists(dir.file(name)));
    }

    // No template under this program folder.
    const std::string target = dir.file("x.lfq");
    EXPECT_FALSE(CreateFromTemplate(target, dir.path().string(), d));
    EXPECT_EQ(d.last().title, kFileNotFoundTitle);
    EXPECT_EQ(d.last().text, "The required file (" + dir.file("Templates/Template.LFQ") +
                                 ") to create " + target +
                                 " cannot be found. Please re-install Norvo or contact Olmar for "
                                 "assistance.");
    EXPECT_FALSE(fs::exists(target));

    d.answers = {Answer::No};
    EXPECT_FALSE(CreateFromTemplate(target, program, d));
    EXPECT_EQ(d.last().title, kCreateFileTitle);
    EXPECT_EQ(d.last().text, "The file " + target + " will be created. Proceed?");
    EXPECT_EQ(d.last().buttons, Buttons::YesNo);
    EXPECT_FALSE(fs::exists(target));

    // Yes copies the template, also over an existing file, whatever the extension's case.
    std::ofstream(target) << "old";
    d.answers = {Answer::Yes};
    EXPECT_TRUE(CreateFromTemplate(target, program, d));
    EXPECT_EQ(ReadBytes(target), ReadBytes(program + "/Templates/Template.LFQ"));
    d.answers = {Answer::Yes};
    EXPECT_TRUE(CreateFromTemplate(dir.file("lower.Sce"), program, d));
    EXPECT_EQ(DataStore::open(dir.file("lower.Sce")).openRecords("Catches").recordCount(), 0);
}

// A save that fails halfway leaves the file byte for byte as it was, and no work file behind.
TEST_F(RoutinesTest, FailedSavesLeaveTheFileUnchanged) {
    const std::string path = samplesFile({1, 2, 3});
    const std::string before = ReadBytes(path);
    auto writeThenFail = [](const std::string& work, int failAfter) {
        DeleteAll(work, "Sample_LF");
        auto store = DataStore::open(work);
        auto rs = store.openRecords("Sample_LF");
        for (int i = 1; i <= 10; ++i) {
            if (i == failAfter) throw std::runtime_error("disk full");
            rs.addNew();
            rs.setField("SampleNo", int64_t{i});
            rs.update();
        }
    };
    EXPECT_THROW(AtomicRewrite(path, [&](const std::string& w) { writeThenFail(w, 5); }),
                 std::runtime_error);
    EXPECT_EQ(ReadBytes(path), before);
    EXPECT_THROW(AtomicRewriteFromTemplate(path, program,
                                           [&](const std::string& w) { writeThenFail(w, 5); }),
                 std::runtime_error);
    EXPECT_EQ(ReadBytes(path), before);
    EXPECT_THROW(SaveInTransaction(path,
                                   [&](DataStore& store) {
                                       store.execute("DELETE * FROM [Sample_LF]");
                                       throw std::runtime_error("killed");
                                   }),
                 std::runtime_error);
    EXPECT_EQ(ReadBytes(path), before);
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.path()), fs::directory_iterator()), 1);

    // The same saves, run to their end, replace the content.
    AtomicRewrite(path, [&](const std::string& w) { writeThenFail(w, 0); });
    EXPECT_EQ(keysAndMarks(path).size(), 10u);
    AtomicRewriteFromTemplate(path, program, [](const std::string& w) {
        auto store = DataStore::open(w);
        EXPECT_EQ(store.openRecords("Sample_LF").recordCount(), 0);
        auto rs = store.openRecords("Grouped_LF");
        rs.addNew();
        rs.setField("Speciesname", std::string("new"));
        rs.update();
    });
    EXPECT_EQ(keysAndMarks(path).size(), 0u);
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.path()), fs::directory_iterator()), 1);
}

// A store error knows whether a save was under way: the user is told "not saved" for a save
// that failed, even when it failed while opening or reading.
TEST_F(RoutinesTest, StoreErrorsTellASaveFromARead) {
    const auto accessOf = [](const std::function<void()>& f) {
        try {
            f();
        } catch (const StoreError& e) {
            return e.access();
        }
        ADD_FAILURE() << "no store error";
        return StoreAccess::Read;
    };
    const std::string text = dir.file("text.lfq");
    std::ofstream(text) << "not a store";
    const std::string gone = dir.file("gone/missing.lfq");
    EXPECT_EQ(accessOf([&] { DataStore::open(text); }), StoreAccess::Read);
    EXPECT_EQ(accessOf([&] { DataStore::open(gone); }), StoreAccess::Read);
    EXPECT_EQ(accessOf([&] { MaxOfField(gone, "Sample_LF", "SampleNo"); }), StoreAccess::Read);

    EXPECT_EQ(accessOf([&] { DeleteAll(gone, "Sample_LF"); }), StoreAccess::Save);
    EXPECT_EQ(accessOf([&] { AtomicRewrite(gone, [](const std::string&) {}); }), StoreAccess::Save);
    EXPECT_EQ(
        accessOf([&] { AtomicRewriteFromTemplate(gone, program, [](const std::string&) {}); }),
        StoreAccess::Save);
    const std::string path = samplesFile({1});
    EXPECT_EQ(accessOf([&] {
                  AtomicRewrite(path, [](const std::string& w) {
                      DataStore::open(w).openRecords("SELECT [Nonexistent] FROM [Sample_LF]");
                  });
              }),
              StoreAccess::Save);
    auto store = DataStore::open(path);
    EXPECT_EQ(accessOf([&] { store.execute("DELETE * FROM [NoSuchTable]"); }), StoreAccess::Save);
    EXPECT_EQ(accessOf([&] { store.openRecords("SELECT [Nonexistent] FROM [Sample_LF]"); }),
              StoreAccess::Read);
}

TEST(FileKinds, TableAgreesWithSchemas) {
    ASSERT_EQ(FileKinds().size(), 13u);
    for (const auto& k : FileKinds()) {
        const auto& schema = SchemaOf(k.code);
        const auto tables = TablesOf(k);
        ASSERT_EQ(schema.size(), tables.size()) << k.code;
        for (size_t i = 0; i < tables.size(); ++i) EXPECT_EQ(schema[i].name, tables[i]);
        EXPECT_EQ(std::string(k.templateName), std::string("\\Templates\\Template.") + k.code);
        EXPECT_EQ(KindOfFile(std::string("/x/y.") + k.extension), &k);
    }
    EXPECT_EQ(KindOfPath("ab"), "AB");
    EXPECT_EQ(KindOfPath("/data/file.Lfq"), "LFQ");
    EXPECT_EQ(KindOfFile("file.lfqx"), nullptr);
    const std::string filter = AllKindsFilter(true);
    EXPECT_EQ(filter.rfind("Grouped frequencies (*.lfq)|*.lfq|", 0), 0u);
    EXPECT_EQ(filter.substr(filter.size() - 19), "All Files (*.*)|*.*");
}

}  // namespace
}  // namespace norvo
