#pragma once
// Pieces the three modal-progression screens share: the components grid and the file opened
// at start from "LastActive".
#include <QString>
#include <QTableWidget>
#include <array>
#include <optional>
#include <string>

#include "widgets/shell_context.h"

namespace norvo::gui {

inline constexpr std::array<const char*, 6> kComponentColumns = {
    "Group", "Approx. Mean", "Computed Mean", "S.D.", "Population", "S.I."};
inline constexpr const char* kModalLfqFilter =
    "Grouped frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*";
inline constexpr const char* kModalMsdFilter = "Means and s.d. (*.msd)|*.msd|All Files (*.*)|*.*";

// A grid of components with the six columns.
QTableWidget* MakeComponentGrid(QWidget* parent, int rows);
// Sets a cell's text (making the item when needed); read-only unless `editable`.
void SetCell(QTableWidget* grid, int row, int column, const QString& text, bool editable = false);
// "LastActive" when it names a file of `kind` ("LFQ", "MSD").
std::optional<std::string> LastActiveOfKind(const ShellContext& ctx, const std::string& kind);

}  // namespace norvo::gui
