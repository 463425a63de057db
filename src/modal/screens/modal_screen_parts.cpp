#include "modal/screens/modal_screen_parts.h"

#include <QHeaderView>
#include <cctype>

#include "base/settings_store.h"

namespace norvo::gui {

QTableWidget* MakeComponentGrid(QWidget* parent, int rows) {
    auto* grid = new QTableWidget(rows, static_cast<int>(kComponentColumns.size()), parent);
    QStringList headers;
    for (const char* h : kComponentColumns) headers << h;
    grid->setHorizontalHeaderLabels(headers);
    grid->verticalHeader()->setVisible(false);
    // Columns as wide as their headings and numbers, so that no heading is cut.
    grid->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    grid->horizontalHeader()->setStretchLastSection(true);
    return grid;
}

void SetCell(QTableWidget* grid, int row, int column, const QString& text, bool editable) {
    if (row >= grid->rowCount()) grid->setRowCount(row + 1);
    auto* item = grid->item(row, column);
    if (!item) {
        item = new QTableWidgetItem;
        grid->setItem(row, column, item);
    }
    item->setText(text);
    const auto flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    item->setFlags(editable ? flags | Qt::ItemIsEditable : flags);
}

std::optional<std::string> LastActiveOfKind(const ShellContext& ctx, const std::string& kind) {
    const std::string last = ctx.settings.runTime(kKeyLastActive, kNoActiveFile);
    if (last.size() <= 4) return std::nullopt;
    std::string ext = last.substr(last.size() - 3);
    for (auto& ch : ext) ch = static_cast<char>(std::toupper(static_cast<unsigned char>(ch)));
    if (ext != kind || last[last.size() - 4] != '.') return std::nullopt;
    return last;
}

}  // namespace norvo::gui
