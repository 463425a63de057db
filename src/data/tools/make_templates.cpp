// Writes the empty template store of every file kind: <folder>/Template.<CODE>.
// Each store holds its kind's tables with declared field types, and no records.
#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "data/file_kind.h"
#include "data/schema.h"

namespace {

bool Exec(sqlite3* db, const std::string& sql) {
    char* error = nullptr;
    if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
        std::fprintf(stderr, "make_templates: %s: %s\n", sql.c_str(), error ? error : "?");
        sqlite3_free(error);
        return false;
    }
    return true;
}

bool MakeTemplate(const norvo::FileKind& kind, const std::filesystem::path& folder) {
    const auto target = folder / (std::string("Template.") + kind.code);
    const auto work = folder / (std::string(".Template.") + kind.code + ".new");
    std::error_code ec;
    std::filesystem::remove(work, ec);
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(work.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) !=
        SQLITE_OK) {
        std::fprintf(stderr, "make_templates: cannot create %s\n", work.c_str());
        sqlite3_close(db);
        return false;
    }
    bool ok = Exec(db, "BEGIN");
    for (const auto& table : norvo::SchemaOf(kind.code)) {
        ok = ok && Exec(db, norvo::CreateTableStatement(table));
    }
    ok = ok && Exec(db, "COMMIT");
    sqlite3_close(db);
    if (ok) std::filesystem::rename(work, target, ec);
    if (!ok || ec) {
        std::filesystem::remove(work, ec);
        return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: norvo_make_templates FOLDER\n");
        return 1;
    }
    const std::filesystem::path folder = argv[1];
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    for (const auto& kind : norvo::FileKinds()) {
        if (!MakeTemplate(kind, folder)) return 1;
    }
    return 0;
}
