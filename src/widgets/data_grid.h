#pragma once
// A spreadsheet-style grid for the data editors, on QTableWidget:
//  - row headings (the vertical header) with a titled corner, column headings;
//  - numeric cells with limits per column: a typed or pasted value outside them is refused
//    silently and the cell keeps what it had; cells show 0 or more decimals while the stored
//    value keeps its full precision; text columns for reports;
//  - Down or Enter past the last row adds a row; inserting and deleting the selected block of
//    rows; Delete clears the selection;
//  - copy, cut and paste of blocks as tab-separated text (spreadsheet compatible);
//  - the table popup menu on right-click; printing and tab-delimited saving.
// Rows and columns are numbered from 0 in this interface.
#include <QString>
#include <QStringList>
#include <QTableWidget>
#include <array>
#include <optional>

class QAction;
class QMenu;
class QPrinter;

namespace norvo::gui {

// What a column accepts and how wide it is (in characters).
struct ColumnFormat {
    bool numeric = true;
    double min = 0.0;
    double max = 99999999.99;
    int widthChars = 10;
};

// Entries of the table popup menu, by their index.
enum TableMenuIndex {
    kTableInsertRow = 0,
    kTableInsertColumn = 1,
    kTableDeleteRow = 3,
    kTableDeleteColumn = 4,
    kTableEditSubheader = 6,
};
inline constexpr const char* kTableMenuTitle = "Tables";
inline constexpr std::array<const char*, 7> kTableMenuCaptions = {
    "Insert Row", "Insert Column", "", "Delete Row", "Delete Column", "", "&Edit Subheader"};

class DataGrid : public QTableWidget {
    Q_OBJECT
  public:
    explicit DataGrid(QWidget* parent = nullptr);

    int maxRows() const { return rowCount(); }
    int maxCols() const { return columnCount(); }
    void setMaxRows(int rows);
    void setMaxCols(int cols);

    // The format used by new columns, and one column's own format.
    void setDefaultColumnFormat(const ColumnFormat& format) { defaultFormat_ = format; }
    void setColumnFormat(int col, const ColumnFormat& format);
    ColumnFormat columnFormat(int col) const;
    void setColumnWidthChars(int col, int chars);
    void setRowHeadingWidthChars(int chars);

    // Decimals shown in numeric cells.
    void setDisplayDecimals(int decimals);
    int displayDecimals() const { return decimals_; }

    void setCornerTitle(const QString& title);
    QString cornerTitle() const { return cornerTitle_; }
    void setRowHeading(int row, const QString& text);
    QString rowHeading(int row) const;
    void setColHeading(int col, const QString& text);
    QString colHeading(int col) const;

    // Numeric cells: nothing when blank. setValue ignores the limits (the program's own data).
    std::optional<double> value(int row, int col) const;
    void setValue(int row, int col, std::optional<double> v);
    // The cell as shown (numbers with the decimals setting), or a text cell's text.
    QString cellText(int row, int col) const;
    void setCellText(int row, int col, const QString& text);
    bool isBlank(int row, int col) const;
    bool columnIsBlank(int col) const;
    // Columns holding any data.
    int dataColumnCount() const;

    // Enter in this column (from 0) goes to column 0 of the next row; -1 turns it off.
    void setEnterWrapColumn(int col) { enterWrapColumn_ = col; }

    // The selected rows as one block (first row, count); the current row when none is selected.
    std::pair<int, int> selectedRowBlock() const;
    // Inserts as many empty rows as are selected, at the block's top.
    void insertRowsAtSelection();
    void deleteSelectedRows();
    void removeColumnAt(int col);

    // Tab-separated text of the selected block; pasting puts it at the current cell, adding rows
    // as needed but never columns. Values outside a column's limits are skipped.
    QString selectionAsText() const;
    void pasteText(const QString& text);
    void copySelection() const;
    void cutSelection();
    void pasteFromClipboard();
    void clearSelectionCells();

    // The popup menu's entries, by index (0..6).
    void setTableMenuEnabled(int index, bool enabled);
    bool tableMenuEnabled(int index) const;
    QMenu* tableMenu() const { return tableMenu_; }

    // Whole grid as text lines: headings line, then one line per row, cells tab-separated.
    QStringList tabDelimitedLines(bool withHeadings = true) const;
    bool saveTabDelimited(const QString& path, bool withHeadings = true) const;
    // Prints the grid as a table, with or without grid lines and headings.
    void print(QPrinter& printer, bool gridLines, bool headings, const QString& title = {}) const;

    // Called by the cell editor after Enter or an arrow key.
    void moveAfterKey(int key);

  Q_SIGNALS:
    // Any user change: a cell typed, pasted, cut or cleared, a key pressed, rows changed.
    void edited();
    // Rows added, inserted or deleted: headings may need recomputing.
    void rowsChanged();
    void headingDoubleClicked(int col);
    void tableCommand(int index);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void handleKey(QKeyEvent* event);
    void addRowAndMoveTo(int col);
    void applyWidth(int col);
    int charWidth() const;

    ColumnFormat defaultFormat_;
    QList<ColumnFormat> formats_;
    int decimals_ = 0;
    int enterWrapColumn_ = -1;
    QString cornerTitle_;
    QMenu* tableMenu_ = nullptr;
    std::array<QAction*, 7> tableActions_{};
};

}  // namespace norvo::gui
