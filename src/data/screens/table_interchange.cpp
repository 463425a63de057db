#include "data/screens/table_interchange.h"

#include <QAction>
#include <QMenu>
#include <algorithm>

#include "data/file_kind.h"
#include "data/record_kinds.h"
#include "data/store_routines.h"
#include "data/table_io.h"
#include "data/write_notices.h"
#include "widgets/command_boundary.h"

namespace norvo::gui {

namespace {

inline constexpr const char* kNoFileText = "No data file active. Please open a data file first.";

}  // namespace

bool ImportTableCommand(ShellContext& ctx) {
    FileDialogOptions in;
    in.title = kImportTableTitle;
    in.filter = kTableFilter;
    in.startFolder = ctx.programFolder.toStdString();
    in.mustExist = true;
    const auto table = ctx.dialogs.openFile(in);
    if (!table || table->empty()) return false;
    FileDialogOptions out;
    out.title = kTableSaveTitle;
    out.filter = AllKindsFilter(false);
    out.defaultExtension = kDefaultExtension;
    out.overwritePrompt = true;
    const auto target = ctx.dialogs.saveFile(out);
    if (!target || target->empty()) return false;
    const std::string code = KindOfPath(*target);
    const RecordKind* kind = FindRecordKind(code);
    if (code != "LFQ" && !kind) {
        ctx.dialogs.notify({kWrongFileType, kAppTitle, Buttons::Ok, Icon::Warning});
        return false;
    }
    TableImportOptions options;
    const bool hasSpecies =
        code == "LFQ" || std::any_of(kind->boxes.begin(), kind->boxes.end(), [](const auto& b) {
            return std::string(b.field) == "Speciesname";
        });
    if (hasSpecies) {
        const auto species = ctx.dialogs.inputBox({kSpeciesPrompt, kImportTableTitle, ""});
        if (!species) return false;
        options.speciesname = *species;
    }
    try {
        if (!ShowNotices(ImportTable(*table, *target, ctx.programFolder.toStdString(), options),
                         ctx.dialogs))
            return false;
    } catch (const TableFormatError& e) {
        ctx.dialogs.notify({e.what(), kInvalidDataTitle, Buttons::Ok, Icon::Warning});
        return false;
    } catch (const std::exception&) {
        ctx.dialogs.notify({kFileSaveError, kAppTitle, Buttons::Ok, Icon::Warning});
        return false;
    }
    ctx.dialogs.notify(
        {kTableImportDone + *target, kImportTableTitle, Buttons::Ok, Icon::Information});
    return true;
}

bool ExportTableCommand(ShellContext& ctx, const QString& path) {
    const std::string source = path.toStdString();
    if (source.empty() || !FileExists(source)) {
        ctx.dialogs.notify({kNoFileText, kExportTableTitle, Buttons::Ok, Icon::None});
        return false;
    }
    FileDialogOptions o;
    o.title = kExportTableTitle;
    o.filter = kTableFilter;
    o.defaultExtension = "csv";
    o.overwritePrompt = true;
    const auto out = ctx.dialogs.saveFile(o);
    if (!out || out->empty()) return false;
    try {
        ExportTable(source, *out, DelimiterFor(*out));
    } catch (const StoreError& e) {
        const bool write = e.access() == StoreAccess::Save;
        ctx.dialogs.notify({write ? CannotWriteText(*out) : kCorruptedOrWrongFormat,
                            write ? kAppTitle : kInvalidDataTitle, Buttons::Ok, Icon::Warning});
        return false;
    }
    ctx.dialogs.notify(
        {kTableExportDone + *out, kExportTableTitle, Buttons::Ok, Icon::Information});
    return true;
}

void AddTableInterchangeEntries(QMenu* fileMenu, QAction* before, ShellContext& ctx,
                                std::function<QString()> activePath) {
    auto* import = new QAction(kImportTableTitle, fileMenu);
    import->setObjectName("mnuImportTable");
    auto* exportTable = new QAction(kExportTableTitle, fileMenu);
    exportTable->setObjectName("mnuExportTable");
    QObject::connect(import, &QAction::triggered, fileMenu,
                     Guarded(ctx.dialogs, [&ctx] { ImportTableCommand(ctx); }));
    QObject::connect(
        exportTable, &QAction::triggered, fileMenu,
        Guarded(ctx.dialogs, [&ctx, activePath] { ExportTableCommand(ctx, activePath()); }));
    fileMenu->insertAction(before, import);
    fileMenu->insertAction(before, exportTable);
}

}  // namespace norvo::gui
