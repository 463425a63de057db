// norvo-cli import TABLE OUT [--species NAME] [--unit cm]: makes a data file from a comma- or
// tab-separated table (LFQ in the wide layout, the other kinds one column per field).
// norvo-cli export FILE --csv|--tab OUT: writes a data file as such a table.
// norvo-cli import-dos TEXT OUT.lfq: imports the old DOS edition's text file.
#include "cli/cli_support.h"
#include "data/dos_import.h"
#include "data/file_kind.h"
#include "data/store_routines.h"
#include "data/table_io.h"
#include "data/write_notices.h"

namespace norvo::cli {
namespace {

struct ImportArgs {
    std::string table, out, species, unit = "cm", type = "Total length (TL)";
    bool force = false;
};
struct ExportArgs {
    std::string file, out;
    bool csv = false, tab = false, force = false;
};
struct DosArgs {
    std::string text, out;
    bool force = false;
};

void Done(Context& ctx, const std::string& what, const std::string& path) {
    if (ctx.json) {
        ctx.print({{what, path}});
    } else {
        std::cout << (what == "imported" ? kTableImportDone : kTableExportDone) << path << "\n";
    }
}

void RunImport(Context& ctx, const ImportArgs& a) {
    if (!FileExists(a.table)) throw Refusal(kAppTitle, kPathDoesNotExist);
    KeepExisting(a.out, a.force);
    TableImportOptions o;
    o.speciesname = a.species;
    o.unit = a.unit;
    o.typeOfMeasurement = a.type;
    try {
        ctx.take(ImportTable(a.table, a.out, ctx.programFolder, o));
    } catch (const TableFormatError& e) {
        throw Refusal(kInvalidDataTitle, e.what());
    } catch (const StoreError& e) {
        throw Refusal(kAppTitle, std::string(kFileSaveError) + " " + e.what());
    }
    Done(ctx, "imported", a.out);
}

void RunExport(Context& ctx, const ExportArgs& a) {
    if (!FileExists(a.file)) throw Refusal(kAppTitle, kPathDoesNotExist);
    KeepExisting(a.out, a.force);
    try {
        ExportTable(a.file, a.out, a.tab ? '\t' : ',');
    } catch (const StoreError& e) {
        if (e.access() == StoreAccess::Save) throw Refusal(kAppTitle, CannotWriteText(a.out));
        throw Refusal(kInvalidDataTitle, kCorruptedOrWrongFormat);
    }
    Done(ctx, "exported", a.out);
}

void RunDos(Context& ctx, const DosArgs& a) {
    KeepExisting(a.out, a.force);
    DosImport data;
    try {
        data = ReadDosFile(a.text);
    } catch (const std::exception&) {
        throw Refusal(kInvalidDataTitle, kImportFailedText);
    }
    ctx.take(data);
    try {
        SaveDosImport(a.out, ctx.programFolder, data);
    } catch (const std::exception&) {
        throw Refusal(kAppTitle, kFileSaveError);
    }
    if (ctx.json) {
        ctx.print({{"imported", a.out}});
    } else {
        std::cout << kImportDoneText << "\n";
    }
}

RegisterCommand register_import_export{[](CLI::App& app, Context& ctx) {
    auto im = std::make_shared<ImportArgs>();
    auto* i = app.add_subcommand("import", "Make a data file from a CSV or tab-separated table");
    i->add_option("TABLE", im->table, "Table (.csv, or .tab/.tsv/.txt for tabs)")->required();
    i->add_option("OUT", im->out, "Data file to make; its extension gives the kind")->required();
    i->add_option("--species", im->species, "Species name of the new file");
    i->add_option("--unit", im->unit, "Unit of measurement (cm, mm, in)")
        ->check(CLI::IsMember({"cm", "mm", "in", "kg", "g"}));
    i->add_option("--type", im->type, "Type of measurement");
    i->add_flag("--force", im->force, "Replace OUT if it exists");
    i->callback([&ctx, im] { RunImport(ctx, *im); });

    auto ex = std::make_shared<ExportArgs>();
    auto* e = app.add_subcommand("export", "Write a data file as a CSV or tab-separated table");
    e->add_option("FILE", ex->file, "Data file (LFQ or a sample kind)")->required();
    auto* csv = e->add_flag("--csv", ex->csv, "Comma-separated");
    auto* tab = e->add_flag("--tab", ex->tab, "Tab-separated");
    csv->excludes(tab);
    e->add_option("OUT", ex->out, "Table to write")->required();
    e->add_flag("--force", ex->force, "Replace OUT if it exists");
    e->callback([&ctx, ex] {
        if (!ex->csv && !ex->tab) throw CLI::ValidationError("export", "--csv or --tab needed");
        RunExport(ctx, *ex);
    });

    auto dos = std::make_shared<DosArgs>();
    auto* d = app.add_subcommand("import-dos", "Import the old DOS edition's text file");
    d->add_option("TEXT", dos->text, "Text file of the DOS edition")->required();
    d->add_option("OUT", dos->out, "Grouped file (.lfq) to make")->required();
    d->add_flag("--force", dos->force, "Replace OUT if it exists");
    d->callback([&ctx, dos] { RunDos(ctx, *dos); });
}};

}  // namespace
}  // namespace norvo::cli
