#pragma once
// File > "Import Table..." and "Export Table...": data files to and from comma- or
// tab-separated tables, for spreadsheets and R.
#include <QString>
#include <functional>

#include "widgets/shell_context.h"

class QAction;
class QMenu;

namespace norvo::gui {

inline constexpr const char* kSpeciesPrompt = "Species name for the imported file:";
inline constexpr const char* kTableSaveTitle = "Save As";

// Asks for a table, the data file to make and (for kinds with one) the species name, then
// imports. A malformed table is reported by row and column and makes no file. True on success.
bool ImportTableCommand(ShellContext& ctx);
// Writes the file at `path` (the active editor's, as last saved) as a table the user names.
bool ExportTableCommand(ShellContext& ctx, const QString& path);

// Puts both entries into the File menu before `before`; `activePath` gives the path of the
// editor in front (empty when none).
void AddTableInterchangeEntries(QMenu* fileMenu, QAction* before, ShellContext& ctx,
                                std::function<QString()> activePath);

}  // namespace norvo::gui
