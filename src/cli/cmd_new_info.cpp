// norvo-cli new PATH: makes a data file of the path's kind from its template.
// norvo-cli info PATH: the kind, the header record and the record counts of a data file.
#include <charconv>
#include <filesystem>

#include "cli/cli_support.h"
#include "cli/lfq_info.h"
#include "data/data_store.h"
#include "data/file_kind.h"
#include "data/schema.h"
#include "data/store_routines.h"
#include "data/write_notices.h"

namespace norvo::cli {
namespace {

// A 32-bit field prints as its shortest decimal form, not as the double that holds it.
nlohmann::json ToJson(const FieldValue& v, std::optional<FieldType> type) {
    if (IsNull(v)) return nullptr;
    if (const auto* i = std::get_if<int64_t>(&v)) return *i;
    if (const auto* d = std::get_if<double>(&v)) {
        if (type == FieldType::Float32) {
            char buf[32];
            const auto r = std::to_chars(buf, buf + sizeof buf, static_cast<float>(*d));
            return std::stod(std::string(buf, r.ptr));
        }
        return *d;
    }
    return std::get<std::string>(v);
}

std::string ToText(const nlohmann::json& j) {
    if (j.is_null()) return "";
    if (j.is_string()) return j.get<std::string>();
    return j.dump();
}

void RunNew(Context& ctx, const std::string& path, bool force) {
    // The "Create File" question is answered No for a file that exists, unless forced.
    KeepExisting(path, force);
    if (!CreateFromTemplate(path, ctx.programFolder, ctx.dialogs)) ctx.refuseWithLastNotice();
    const FileKind* kind = KindOfFile(path);
    if (ctx.json) {
        ctx.print({{"created", path}, {"kind", kind ? kind->code : ""}});
    } else {
        std::cout << "Created " << path << " (" << (kind ? kind->code : "") << ")\n";
    }
}

void RunInfo(Context& ctx, const std::string& path) {
    const FileKind* kind = KindOfFile(path);
    if (!kind) throw Refusal(kAppTitle, kWrongFileType);
    if (!FileExists(path)) throw Refusal(kAppTitle, kPathDoesNotExist);
    nlohmann::json header = nullptr;
    nlohmann::json counts = nlohmann::json::array();
    try {
        auto store = DataStore::open(path);
        auto rs = store.openRecords(std::string("SELECT * FROM [") + kind->headerTable + "]");
        if (!rs.endOfRecords()) {
            header = nlohmann::json::array();
            for (const auto& name : rs.fieldNames()) {
                header.push_back({{"field", name},
                                  {"value", ToJson(rs.getField(name),
                                                   store.fieldType(kind->headerTable, name))}});
            }
        }
        for (const auto& table : TablesOf(*kind)) {
            auto t = store.openRecords("SELECT * FROM [" + table + "]");
            counts.push_back({{"table", table}, {"records", t.recordCount()}});
        }
    } catch (const StoreError&) {
        throw Refusal(kInvalidDataTitle, kCorruptedOrWrongFormat);
    }
    const bool grouped = std::string(kind->code) == "LFQ" && !header.is_null();
    if (ctx.json) {
        nlohmann::json out = {{"path", path},
                              {"kind", kind->code},
                              {"headerTable", kind->headerTable},
                              {"header", header},
                              {"tables", counts}};
        if (grouped) out["lfq"] = LfqInfoJson(ctx, path);
        ctx.print(out);
        return;
    }
    std::cout << "Path: " << path << "\nKind: " << kind->code << "\nHeader (" << kind->headerTable
              << "):" << (header.is_null() ? " none" : "") << "\n";
    if (!header.is_null()) {
        for (const auto& f : header) {
            std::cout << "  " << f["field"].get<std::string>() << ": " << ToText(f["value"])
                      << "\n";
        }
    }
    std::cout << "Records:\n";
    for (const auto& c : counts) {
        std::cout << "  " << c["table"].get<std::string>() << ": " << c["records"].get<int>()
                  << "\n";
    }
    if (grouped) PrintLfqInfo(ctx, path);
}

RegisterCommand register_new_info{[](CLI::App& app, Context& ctx) {
    auto newPath = std::make_shared<std::string>();
    auto force = std::make_shared<bool>(false);
    auto* cmdNew =
        app.add_subcommand("new", "Make a data file of the path's kind from its template");
    cmdNew->add_option("PATH", *newPath, "File to create; its extension gives the kind")
        ->required();
    cmdNew->add_flag("--force", *force, "Replace an existing file with the empty template");
    cmdNew->callback([&ctx, newPath, force] { RunNew(ctx, *newPath, *force); });

    auto infoPath = std::make_shared<std::string>();
    auto* cmdInfo =
        app.add_subcommand("info", "Show a data file's kind, header record and record counts");
    cmdInfo->add_option("PATH", *infoPath, "Data file")->required();
    cmdInfo->callback([&ctx, infoPath] { RunInfo(ctx, *infoPath); });
}};

}  // namespace
}  // namespace norvo::cli
