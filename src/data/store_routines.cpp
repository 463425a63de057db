#include "data/store_routines.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cctype>
#include <filesystem>

#include "base/settings_store.h"
#include "data/file_kind.h"

namespace fs = std::filesystem;

namespace norvo {

namespace {

std::string Trimmed(const std::string& s) {
    size_t b = 0, e = s.size();
    while (b < e && std::isspace(static_cast<unsigned char>(s[b]))) ++b;
    while (e > b && std::isspace(static_cast<unsigned char>(s[e - 1]))) --e;
    return s.substr(b, e - b);
}

std::string Upper(std::string s) {
    for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return s;
}

std::string FolderOf(const std::string& path) {
    const fs::path parent = fs::path(path).parent_path();
    return parent.empty() ? std::string(".") : parent.string();
}

// A journal left beside a file by a killed writer would be played back into whatever file
// stands there next; once the file is replaced whole, it no longer belongs to it.
void RemoveJournals(const std::string& path) {
    std::error_code ec;
    for (const char* suffix : {"-journal", "-wal", "-shm"}) fs::remove(path + suffix, ec);
}

// Replaces `target` with a copy of `source`. False on failure.
bool CopyOver(const std::string& source, const std::string& target) {
    std::error_code ec;
    RemoveJournals(target);
    fs::copy_file(source, target, fs::copy_options::overwrite_existing, ec);
    return !ec;
}

// A work file beside `path`, ending in the same three characters so that it has the same kind.
std::string WorkPathFor(const std::string& path) {
    static std::atomic<int> counter{0};
    const fs::path p(path);
    const std::string tail = path.size() >= 3 ? path.substr(path.size() - 3) : path;
    const std::string name = "~" + p.filename().string() + "." + std::to_string(::getpid()) + "-" +
                             std::to_string(counter++) + "." + tail;
    return (p.parent_path() / name).string();
}

// Flushes a finished work copy, so that the rename never publishes a half-written file.
bool FlushToDisk(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY);
    if (fd < 0) return false;
    const bool ok = ::fsync(fd) == 0;
    ::close(fd);
    return ok;
}

void Discard(const std::string& work) {
    std::error_code ec;
    fs::remove(work, ec);
    RemoveJournals(work);
}

void FillAndReplace(const std::string& work, const std::string& path,
                    const std::function<void(const std::string&)>& fill) {
    try {
        fill(work);
    } catch (...) {
        Discard(work);
        throw;
    }
    if (!FlushToDisk(work)) {
        Discard(work);
        throw StoreError("Cannot write " + work);
    }
    RemoveJournals(path);
    std::error_code ec;
    fs::rename(work, path, ec);
    if (ec) {
        Discard(work);
        throw StoreError("Cannot replace " + path + ": " + ec.message());
    }
}

}  // namespace

std::string TemplateMissingText(const std::string& templatePath, const std::string& path) {
    return "The required file (" + templatePath + ") to create " + path +
           " cannot be found. Please re-install Norvo or contact Olmar for assistance.";
}

std::string CreateFileQuestion(const std::string& path) {
    return "The file " + path + " will be created. Proceed?";
}

void DeleteAll(const std::string& path, const std::string& table) {
    const StoreSaving saving;
    DataStore::open(path).execute("DELETE * FROM [" + table + "];");
}

void DeleteWhere(const std::string& path, const std::string& table,
                 const std::vector<std::string>& fields, const std::vector<std::string>& operators,
                 const std::vector<std::string>& values) {
    const StoreSaving saving;
    if (fields.size() != operators.size() || fields.size() != values.size() || fields.empty()) {
        throw StoreError("DeleteWhere needs as many operators and values as fields");
    }
    std::string conditions;
    for (size_t i = 0; i < fields.size(); ++i) {
        if (i) conditions += " AND ";
        conditions += "[" + fields[i] + "] " + operators[i] + " " + values[i];
    }
    DataStore::open(path).execute("DELETE * FROM [" + table + "] WHERE " + conditions);
}

FieldValue MaxOfField(const std::string& path, const std::string& table, const std::string& field) {
    auto store = DataStore::open(path);
    auto rs = store.openRecords("SELECT Max([" + table + "].[" + field + "]) AS tblMax FROM [" +
                                table + "]");
    return rs.endOfRecords() ? FieldValue{} : rs.getField("tblMax");
}

void RenumberKeys(const std::string& path, const std::string& table, const std::string& field,
                  const std::vector<int64_t>& oldKeys) {
    const StoreSaving saving;
    const FieldValue max = MaxOfField(path, table, field);
    if (IsNull(max)) return;  // an empty table has nothing to renumber
    const int64_t base = AsInteger(max) + 10;
    SaveInTransaction(path, [&](DataStore& store) {
        // First pass: every listed record moves above the old keys, to its new key + base.
        auto rs = store.openRecords("SELECT * FROM [" + table + "]");
        for (size_t i = 0; i < oldKeys.size(); ++i) {
            rs.findFirst("[" + field + "] = " + std::to_string(oldKeys[i]));
            if (rs.noMatch()) continue;
            rs.edit();
            rs.setField(field, static_cast<int64_t>(i + 1) + base);
            rs.update();
        }
        rs.close();
        // Second pass: every key comes down by base.
        auto sorted =
            store.openRecords("SELECT * FROM [" + table + "] ORDER BY [" + field + "] ASC");
        for (sorted.moveFirst(); !sorted.endOfRecords(); sorted.moveNext()) {
            sorted.edit();
            sorted.setField(field, AsInteger(sorted.getField(field)) - base);
            sorted.update();
        }
    });
}

Outcome CheckRequired(const std::vector<RequiredBox>& boxes) {
    Outcome out;
    std::vector<std::string> empty;
    for (const auto& b : boxes) {
        if (Trimmed(b.text).empty()) empty.push_back(b.toolTip);
    }
    if (empty.empty()) return out;
    if (empty.size() == 1) {
        out.refuse("The field " + empty[0] + " is required. Please fill appropriate values.",
                   kAppTitle, Icon::Information);
        return out;
    }
    std::string names = empty[0];
    for (size_t i = 1; i < empty.size(); ++i) {
        names += (i + 1 == empty.size() ? " and " : ", ") + empty[i];
    }
    out.refuse("The fields " + names + " are required. Please fill appropriate values.", kAppTitle,
               Icon::Information);
    return out;
}

bool OfferDeleteEmptyFile(const std::string& path, int columnsWithData, DialogService& dialogs) {
    if (columnsWithData != 0) return false;
    if (!dialogs.askYesNo(kGridEmptyDelete, kAppTitle)) return false;
    std::error_code ec;
    fs::remove(path, ec);
    RemoveJournals(path);
    dialogs.inform("File " + path + " deleted.", kAppTitle, Icon::Information);
    return true;
}

bool CreateFromTemplate(const std::string& path, const std::string& programFolder,
                        DialogService& dialogs) {
    if (!FolderExists(FolderOf(path))) {
        dialogs.inform(kPathDoesNotExist, kAppTitle);
        return false;
    }
    const std::string extension = Upper(ExtensionOf(path));
    bool known = false;
    for (const char* e : kTemplateExtensions) known = known || extension == e;
    if (!known) {
        dialogs.inform(kWrongFileType, kAppTitle);
        return false;
    }
    const std::string templatePath =
        (fs::path(programFolder) / "Templates" / ("Template." + extension)).string();
    if (!FileExists(templatePath)) {
        dialogs.notify({TemplateMissingText(templatePath, path), kFileNotFoundTitle, Buttons::Ok,
                        Icon::Warning});
        return false;
    }
    if (dialogs.notify({CreateFileQuestion(path), kCreateFileTitle, Buttons::YesNo,
                        Icon::Information}) != Answer::Yes) {
        return false;
    }
    if (!CopyOver(templatePath, path)) {
        dialogs.inform(kFileSaveError, kAppTitle, Icon::Critical);
        return false;
    }
    return true;
}

bool CopyTemplate(const std::string& path, const std::string& programFolder) {
    const FileKind* kind = KindOfFile(path);
    if (!kind) return false;
    const std::string templatePath = TemplatePathOf(*kind, programFolder);
    return FileExists(templatePath) && CopyOver(templatePath, path);
}

bool FileExists(const std::string& path) {
    std::error_code ec;
    return !path.empty() && fs::exists(path, ec) && !fs::is_directory(path, ec);
}

bool FolderExists(const std::string& path) {
    std::error_code ec;
    return !path.empty() && fs::is_directory(path, ec);
}

std::string ExtensionOf(const std::string& path) {
    const size_t dot = path.rfind('.');
    return dot == std::string::npos ? std::string() : path.substr(dot + 1);
}

void AtomicRewrite(const std::string& path, const std::function<void(const std::string&)>& fill) {
    const StoreSaving saving;
    if (!FileExists(path)) throw StoreError("No such data file: " + path);
    const std::string work = WorkPathFor(path);
    if (!CopyOver(path, work)) {
        Discard(work);
        throw StoreError("Cannot make a work copy of " + path);
    }
    FillAndReplace(work, path, fill);
}

void AtomicRewriteFromTemplate(const std::string& path, const std::string& programFolder,
                               const std::function<void(const std::string&)>& fill) {
    const StoreSaving saving;
    const FileKind* kind = KindOfFile(path);
    if (!kind) throw StoreError("Not a data file kind: " + path);
    const std::string templatePath = TemplatePathOf(*kind, programFolder);
    const std::string work = WorkPathFor(path);
    if (!FileExists(templatePath) || !CopyOver(templatePath, work)) {
        Discard(work);
        throw StoreError("Cannot copy the template " + templatePath);
    }
    FillAndReplace(work, path, fill);
}

void SaveInTransaction(const std::string& path, const std::function<void(DataStore&)>& fill) {
    const StoreSaving saving;
    auto store = DataStore::open(path);
    store.beginTransaction();
    try {
        fill(store);
        store.commit();
    } catch (...) {
        store.rollback();
        throw;
    }
}

}  // namespace norvo
