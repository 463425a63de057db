#include "widgets/data_grid.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPrinter>
#include <QStyleOptionHeader>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <QTextStream>
#include <algorithm>
#include <string>

#include "base/format.h"
#include "numerics/text_convert.h"
#include "widgets/command_boundary.h"

namespace norvo::gui {

namespace {

// Parses a number typed or pasted into a cell; '.' or ',' as decimal point.
std::optional<double> ParseCell(QString text) {
    text = text.trimmed();
    if (text.isEmpty()) return std::nullopt;
    bool ok = false;
    double v = text.toDouble(&ok);
    if (!ok) v = QString(text).replace(',', '.').toDouble(&ok);
    if (!ok || !std::isfinite(v)) return std::nullopt;
    return v;
}

QString FormatNumber(double v, int decimals) {
    const std::string pattern = decimals > 0 ? "0." + std::string(decimals, '0') : "0";
    return QString::fromStdString(Format(v, pattern));
}

QString FullNumber(double v) {
    return QString::number(v, 'g', 15);
}

// What the user sees and edits in a cell: the locale's decimal separator. Texts that leave the
// grid (clipboard, exports) keep the point.
QString ShownNumber(double v, int decimals) {
    return FormatNumber(v, decimals).replace(QChar('.'), QChar(DecimalSeparator()));
}

QString EditedNumber(double v) {
    return FullNumber(v).replace(QChar('.'), QChar(DecimalSeparator()));
}

// Shows numbers with the grid's decimals, edits with a plain line edit, refuses values outside
// the column's limits, and turns Enter and Up/Down in an editor into grid moves.
class GridDelegate : public QStyledItemDelegate {
  public:
    explicit GridDelegate(DataGrid* grid) : QStyledItemDelegate(grid), grid_(grid) {}

    QString displayText(const QVariant& value, const QLocale& locale) const override {
        if (value.typeId() == QMetaType::Double) {
            return ShownNumber(value.toDouble(), grid_->displayDecimals());
        }
        return QStyledItemDelegate::displayText(value, locale);
    }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex&) const override {
        auto* edit = new QLineEdit(parent);
        edit->setFrame(false);
        return edit;
    }

    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        auto* edit = static_cast<QLineEdit*>(editor);
        const QVariant v = index.data(Qt::EditRole);
        edit->setText(v.typeId() == QMetaType::Double ? EditedNumber(v.toDouble()) : v.toString());
    }

    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override {
        const QString text = static_cast<QLineEdit*>(editor)->text();
        const ColumnFormat format = grid_->columnFormat(index.column());
        const QVariant old = index.data(Qt::EditRole);
        if (!format.numeric) {
            if (old.toString() != text) model->setData(index, text, Qt::EditRole);
            return;
        }
        if (text.trimmed().isEmpty()) {
            if (old.isValid()) model->setData(index, QVariant(), Qt::EditRole);
            return;
        }
        const auto v = ParseCell(text);
        if (!v || *v < format.min || *v > format.max) return;  // refused silently
        if (old.typeId() != QMetaType::Double || old.toDouble() != *v) {
            model->setData(index, *v, Qt::EditRole);
        }
    }

  protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down ||
                key == Qt::Key_Up) {
                auto* editor = qobject_cast<QWidget*>(object);
                Q_EMIT commitData(editor);
                Q_EMIT closeEditor(editor, QAbstractItemDelegate::NoHint);
                grid_->moveAfterKey(key);
                return true;
            }
        }
        return QStyledItemDelegate::eventFilter(object, event);
    }

  private:
    DataGrid* grid_;
};

}  // namespace

DataGrid::DataGrid(QWidget* parent) : QTableWidget(parent) {
    setObjectName("grdData");
    setItemDelegate(new GridDelegate(this));
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked |
                    QAbstractItemView::EditKeyPressed);
    verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);

    // The corner button paints the row-heading column's title.
    if (auto* corner = findChild<QAbstractButton*>()) corner->installEventFilter(this);

    // What the user does here runs through the command boundary, the owner's handlers with it.
    // Changes the program makes (itemChanged) reach the owner inside its own command.
    connect(horizontalHeader(), &QHeaderView::sectionDoubleClicked, this,
            [this](int col) { RunCommand([&] { Q_EMIT headingDoubleClicked(col); }); });
    connect(this, &QTableWidget::itemChanged, this, [this] { Q_EMIT edited(); });

    tableMenu_ = new QMenu(kTableMenuTitle, this);
    tableMenu_->setObjectName("TableMenu");
    for (int i = 0; i < static_cast<int>(kTableMenuCaptions.size()); ++i) {
        QAction* a = nullptr;
        if (i == 2 || i == 5) {
            a = tableMenu_->addSeparator();
        } else {
            a = tableMenu_->addAction(kTableMenuCaptions[i]);
            connect(a, &QAction::triggered, this,
                    [this, i] { RunCommand([this, i] { Q_EMIT tableCommand(i); }); });
        }
        a->setObjectName(QString("mnuTable_%1").arg(i));
        tableActions_[i] = a;
    }
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& p) { tableMenu_->popup(viewport()->mapToGlobal(p)); });
}

int DataGrid::charWidth() const {
    return fontMetrics().horizontalAdvance(QLatin1Char('0'));
}

void DataGrid::setMaxRows(int rows) {
    const int before = rowCount();
    setRowCount(std::max(0, rows));
    for (int r = before; r < rowCount(); ++r) setVerticalHeaderItem(r, new QTableWidgetItem(""));
}

void DataGrid::setMaxCols(int cols) {
    const int before = columnCount();
    setColumnCount(std::max(0, cols));
    while (formats_.size() > columnCount()) formats_.removeLast();
    while (formats_.size() < columnCount()) formats_.append(defaultFormat_);
    for (int c = before; c < columnCount(); ++c) {
        setHorizontalHeaderItem(c, new QTableWidgetItem(""));
        applyWidth(c);
    }
}

void DataGrid::setColumnFormat(int col, const ColumnFormat& format) {
    if (col < 0 || col >= formats_.size()) return;
    formats_[col] = format;
    applyWidth(col);
}

ColumnFormat DataGrid::columnFormat(int col) const {
    return col >= 0 && col < formats_.size() ? formats_[col] : defaultFormat_;
}

void DataGrid::setColumnWidthChars(int col, int chars) {
    if (col < 0 || col >= formats_.size()) return;
    formats_[col].widthChars = chars;
    applyWidth(col);
}

void DataGrid::applyWidth(int col) {
    setColumnWidth(col, formats_[col].widthChars * charWidth() + 12);
}

void DataGrid::setRowHeadingWidthChars(int chars) {
    verticalHeader()->setFixedWidth(chars * charWidth() + 12);
}

void DataGrid::setDisplayDecimals(int decimals) {
    decimals_ = std::max(0, decimals);
    viewport()->update();
}

void DataGrid::setCornerTitle(const QString& title) {
    cornerTitle_ = title;
    if (auto* corner = findChild<QAbstractButton*>()) corner->update();
}

void DataGrid::setRowHeading(int row, const QString& text) {
    if (row < 0 || row >= rowCount()) return;
    setVerticalHeaderItem(row, new QTableWidgetItem(text));
}

QString DataGrid::rowHeading(int row) const {
    const QTableWidgetItem* it = verticalHeaderItem(row);
    return it ? it->text() : QString();
}

void DataGrid::setColHeading(int col, const QString& text) {
    if (col < 0 || col >= columnCount()) return;
    setHorizontalHeaderItem(col, new QTableWidgetItem(text));
}

QString DataGrid::colHeading(int col) const {
    const QTableWidgetItem* it = horizontalHeaderItem(col);
    return it ? it->text() : QString();
}

std::optional<double> DataGrid::value(int row, int col) const {
    const QTableWidgetItem* it = item(row, col);
    if (!it) return std::nullopt;
    const QVariant v = it->data(Qt::EditRole);
    if (v.typeId() == QMetaType::Double) return v.toDouble();
    return ParseCell(v.toString());
}

void DataGrid::setValue(int row, int col, std::optional<double> v) {
    if (row < 0 || row >= rowCount() || col < 0 || col >= columnCount()) return;
    if (!v) {
        delete takeItem(row, col);
        return;
    }
    auto* it = item(row, col);
    if (!it) {
        it = new QTableWidgetItem;
        it->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        setItem(row, col, it);
    }
    it->setData(Qt::EditRole, *v);
}

QString DataGrid::cellText(int row, int col) const {
    const QTableWidgetItem* it = item(row, col);
    if (!it) return {};
    const QVariant v = it->data(Qt::EditRole);
    if (v.typeId() == QMetaType::Double) return FormatNumber(v.toDouble(), decimals_);
    return v.toString();
}

void DataGrid::setCellText(int row, int col, const QString& text) {
    if (row < 0 || row >= rowCount() || col < 0 || col >= columnCount()) return;
    if (text.isEmpty()) {
        delete takeItem(row, col);
        return;
    }
    auto* it = item(row, col);
    if (!it) {
        it = new QTableWidgetItem;
        setItem(row, col, it);
    }
    it->setData(Qt::EditRole, text);
}

bool DataGrid::isBlank(int row, int col) const {
    const QTableWidgetItem* it = item(row, col);
    if (!it) return true;
    const QVariant v = it->data(Qt::EditRole);
    return !v.isValid() || (v.typeId() != QMetaType::Double && v.toString().trimmed().isEmpty());
}

bool DataGrid::columnIsBlank(int col) const {
    for (int r = 0; r < rowCount(); ++r) {
        if (!isBlank(r, col)) return false;
    }
    return true;
}

int DataGrid::dataColumnCount() const {
    int n = 0;
    for (int c = 0; c < columnCount(); ++c) {
        if (!columnIsBlank(c)) ++n;
    }
    return n;
}

std::pair<int, int> DataGrid::selectedRowBlock() const {
    const QList<QTableWidgetSelectionRange> ranges = selectedRanges();
    if (!ranges.isEmpty()) {
        int top = ranges.front().topRow(), bottom = ranges.front().bottomRow();
        for (const auto& r : ranges) {
            top = std::min(top, r.topRow());
            bottom = std::max(bottom, r.bottomRow());
        }
        return {top, bottom - top + 1};
    }
    const int row = currentRow();
    return {row < 0 ? 0 : row, row < 0 ? 0 : 1};
}

void DataGrid::insertRowsAtSelection() {
    auto [top, count] = selectedRowBlock();
    if (count <= 0) {
        top = rowCount();
        count = 1;
    }
    for (int i = 0; i < count; ++i) {
        insertRow(top);
        setVerticalHeaderItem(top, new QTableWidgetItem(""));
    }
    Q_EMIT rowsChanged();
    Q_EMIT edited();
}

void DataGrid::deleteSelectedRows() {
    const auto [top, count] = selectedRowBlock();
    if (count <= 0 || top >= rowCount()) return;
    for (int i = 0; i < count && top < rowCount(); ++i) removeRow(top);
    Q_EMIT rowsChanged();
    Q_EMIT edited();
}

void DataGrid::removeColumnAt(int col) {
    if (col < 0 || col >= columnCount()) return;
    removeColumn(col);
    formats_.removeAt(col);
}

QString DataGrid::selectionAsText() const {
    const QList<QTableWidgetSelectionRange> ranges = selectedRanges();
    int top, left, bottom, right;
    if (ranges.isEmpty()) {
        if (currentRow() < 0 || currentColumn() < 0) return {};
        top = bottom = currentRow();
        left = right = currentColumn();
    } else {
        // The block that holds every selected range.
        top = ranges.front().topRow();
        bottom = ranges.front().bottomRow();
        left = ranges.front().leftColumn();
        right = ranges.front().rightColumn();
        for (const auto& r : ranges) {
            top = std::min(top, r.topRow());
            bottom = std::max(bottom, r.bottomRow());
            left = std::min(left, r.leftColumn());
            right = std::max(right, r.rightColumn());
        }
    }
    QStringList lines;
    for (int row = top; row <= bottom; ++row) {
        QStringList cells;
        for (int col = left; col <= right; ++col) {
            const QTableWidgetItem* it = item(row, col);
            const QVariant v = it ? it->data(Qt::EditRole) : QVariant();
            cells << (v.typeId() == QMetaType::Double ? FullNumber(v.toDouble()) : v.toString());
        }
        lines << cells.join('\t');
    }
    return lines.join('\n') + '\n';
}

void DataGrid::pasteText(const QString& text) {
    if (columnCount() == 0) return;
    const int top = std::max(0, currentRow());
    const int left = std::max(0, currentColumn());
    QStringList lines = QString(text).remove('\r').split('\n');
    if (!lines.isEmpty() && lines.back().isEmpty()) lines.removeLast();
    bool changed = false;
    blockSignals(true);
    for (int i = 0; i < lines.size(); ++i) {
        const int row = top + i;
        if (row >= rowCount()) setMaxRows(row + 1);
        const QStringList cells = lines[i].split('\t');
        for (int j = 0; j < cells.size(); ++j) {
            const int col = left + j;
            if (col >= columnCount()) break;
            const ColumnFormat format = columnFormat(col);
            if (!format.numeric) {
                setCellText(row, col, cells[j]);
                changed = true;
                continue;
            }
            if (cells[j].trimmed().isEmpty()) {
                setValue(row, col, std::nullopt);
                changed = true;
                continue;
            }
            const auto v = ParseCell(cells[j]);
            if (!v || *v < format.min || *v > format.max) continue;
            setValue(row, col, v);
            changed = true;
        }
    }
    blockSignals(false);
    viewport()->update();
    if (changed) {
        Q_EMIT rowsChanged();
        Q_EMIT edited();
    }
}

void DataGrid::copySelection() const {
    QApplication::clipboard()->setText(selectionAsText());
}

void DataGrid::cutSelection() {
    copySelection();
    clearSelectionCells();
}

void DataGrid::pasteFromClipboard() {
    pasteText(QApplication::clipboard()->text());
}

void DataGrid::clearSelectionCells() {
    const QList<QTableWidgetSelectionRange> ranges = selectedRanges();
    blockSignals(true);
    for (const auto& r : ranges) {
        for (int row = r.topRow(); row <= r.bottomRow(); ++row) {
            for (int col = r.leftColumn(); col <= r.rightColumn(); ++col) delete takeItem(row, col);
        }
    }
    if (ranges.isEmpty() && currentRow() >= 0 && currentColumn() >= 0) {
        delete takeItem(currentRow(), currentColumn());
    }
    blockSignals(false);
    viewport()->update();
    Q_EMIT edited();
}

void DataGrid::setTableMenuEnabled(int index, bool enabled) {
    if (index < 0 || index >= static_cast<int>(tableActions_.size())) return;
    tableActions_[index]->setEnabled(enabled);
}

bool DataGrid::tableMenuEnabled(int index) const {
    if (index < 0 || index >= static_cast<int>(tableActions_.size())) return false;
    return tableActions_[index]->isEnabled();
}

QStringList DataGrid::tabDelimitedLines(bool withHeadings) const {
    QStringList lines;
    if (withHeadings) {
        QStringList h{cornerTitle_};
        for (int c = 0; c < columnCount(); ++c) h << colHeading(c);
        lines << h.join('\t');
    }
    for (int r = 0; r < rowCount(); ++r) {
        QStringList cells;
        if (withHeadings) cells << rowHeading(r);
        for (int c = 0; c < columnCount(); ++c) cells << cellText(r, c);
        lines << cells.join('\t');
    }
    return lines;
}

bool DataGrid::saveTabDelimited(const QString& path, bool withHeadings) const {
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text)) return false;
    QTextStream out(&f);
    for (const QString& line : tabDelimitedLines(withHeadings)) out << line << '\n';
    out.flush();
    return f.error() == QFileDevice::NoError;
}

void DataGrid::print(QPrinter& printer, bool gridLines, bool headings, const QString& title) const {
    QString html = "<html><body>";
    if (!title.isEmpty()) html += "<h3>" + title.toHtmlEscaped() + "</h3>";
    html += QString("<table cellspacing='0' cellpadding='3' border='%1'>").arg(gridLines ? 1 : 0);
    if (headings) {
        html += "<tr><th>" + cornerTitle_.toHtmlEscaped() + "</th>";
        for (int c = 0; c < columnCount(); ++c) {
            html += "<th>" + colHeading(c).toHtmlEscaped() + "</th>";
        }
        html += "</tr>";
    }
    for (int r = 0; r < rowCount(); ++r) {
        html += "<tr>";
        if (headings) html += "<td align='right'>" + rowHeading(r).toHtmlEscaped() + "</td>";
        for (int c = 0; c < columnCount(); ++c) {
            const bool num = columnFormat(c).numeric;
            html += QString("<td%1>").arg(num ? " align='right'" : "") +
                    cellText(r, c).toHtmlEscaped() + "</td>";
        }
        html += "</tr>";
    }
    html += "</table></body></html>";
    QTextDocument doc;
    doc.setHtml(html);
    doc.print(&printer);
}

void DataGrid::addRowAndMoveTo(int col) {
    setMaxRows(rowCount() + 1);
    Q_EMIT rowsChanged();
    Q_EMIT edited();
    setCurrentCell(rowCount() - 1, std::max(0, col));
}

void DataGrid::moveAfterKey(int key) {
    const int row = currentRow(), col = currentColumn();
    if (row < 0 || col < 0) return;
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (key == Qt::Key_Up) {
        if (row > 0) setCurrentCell(row - 1, col);
        return;
    }
    const int targetCol = enter && col == enterWrapColumn_ ? 0 : col;
    if (row == rowCount() - 1) {
        addRowAndMoveTo(targetCol);
    } else {
        setCurrentCell(row + 1, targetCol);
    }
}

void DataGrid::keyPressEvent(QKeyEvent* event) {
    RunCommand([&] { handleKey(event); });
}

void DataGrid::handleKey(QKeyEvent* event) {
    Q_EMIT edited();
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
        return;
    }
    if (event->matches(QKeySequence::Cut)) {
        cutSelection();
        return;
    }
    if (event->matches(QKeySequence::Paste)) {
        pasteFromClipboard();
        return;
    }
    switch (event->key()) {
        case Qt::Key_Delete:
        case Qt::Key_Backspace:
            if (state() != QAbstractItemView::EditingState) {
                clearSelectionCells();
                return;
            }
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Down:
            if (state() != QAbstractItemView::EditingState &&
                event->modifiers() == Qt::NoModifier) {
                moveAfterKey(event->key());
                return;
            }
            break;
        default:
            break;
    }
    QTableWidget::keyPressEvent(event);
}

bool DataGrid::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Paint && watched == findChild<QAbstractButton*>()) {
        auto* corner = static_cast<QAbstractButton*>(watched);
        QStyleOptionHeader opt;
        opt.initFrom(corner);
        opt.state = QStyle::State_Enabled | QStyle::State_Raised;
        opt.rect = corner->rect();
        opt.text = cornerTitle_;
        opt.textAlignment = Qt::AlignCenter;
        opt.position = QStyleOptionHeader::OnlyOneSection;
        QPainter painter(corner);
        corner->style()->drawControl(QStyle::CE_Header, &opt, &painter, corner);
        return true;
    }
    return QTableWidget::eventFilter(watched, event);
}

}  // namespace norvo::gui
