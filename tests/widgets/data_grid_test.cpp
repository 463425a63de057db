#include "widgets/data_grid.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QPrinter>
#include <QSignalSpy>
#include <QTest>

#include "support/test_paths.h"

namespace norvo::gui {
namespace {

class DataGridTest : public ::testing::Test {
  protected:
    DataGrid grid;
    void SetUp() override {
        grid.setDefaultColumnFormat({true, 0.0, 100.0, 10});
        grid.setMaxRows(3);
        grid.setMaxCols(2);
    }
    // Types through the cell editor and ends with `key`.
    void type(int row, int col, const QString& text, Qt::Key key = Qt::Key_Return) {
        grid.setCurrentCell(row, col);
        grid.edit(grid.model()->index(row, col));
        auto* edit = grid.viewport()->findChild<QLineEdit*>();
        ASSERT_NE(edit, nullptr);
        edit->setText(text);
        QTest::keyClick(edit, key);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

TEST_F(DataGridTest, TypedValuesOutsideTheLimitsAreRefusedSilently) {
    QSignalSpy edits(&grid, &DataGrid::edited);
    type(0, 0, "12.25");
    EXPECT_EQ(grid.value(0, 0), 12.25);
    type(0, 0, "100.01");
    type(0, 0, "-1");
    type(0, 0, "abc");
    EXPECT_EQ(grid.value(0, 0), 12.25);
    type(0, 0, "100");
    EXPECT_EQ(grid.value(0, 0), 100.0);
    type(0, 0, "");
    EXPECT_TRUE(grid.isBlank(0, 0));
    EXPECT_GT(edits.count(), 0);

    grid.setValue(1, 1, 2.5);
    EXPECT_EQ(grid.cellText(1, 1), "3");  // half away from zero
    grid.setDisplayDecimals(2);
    EXPECT_EQ(grid.cellText(1, 1), "2.50");
    EXPECT_EQ(grid.value(1, 1), 2.5);
}

TEST_F(DataGridTest, DownOrEnterPastTheLastRowAddsARow) {
    QSignalSpy rows(&grid, &DataGrid::rowsChanged);
    type(2, 1, "5");  // Enter on the last row
    EXPECT_EQ(grid.maxRows(), 4);
    EXPECT_EQ(grid.currentRow(), 3);
    EXPECT_EQ(grid.currentColumn(), 1);
    QTest::keyClick(&grid, Qt::Key_Down);
    EXPECT_EQ(grid.maxRows(), 5);
    EXPECT_EQ(rows.count(), 2);

    // Enter in the wrap column goes to the start of the next row.
    grid.setMaxCols(3);
    grid.setEnterWrapColumn(2);
    type(0, 2, "1");
    EXPECT_EQ(grid.currentRow(), 1);
    EXPECT_EQ(grid.currentColumn(), 0);
    type(1, 1, "1", Qt::Key_Up);
    EXPECT_EQ(grid.currentRow(), 0);
}

TEST_F(DataGridTest, RowBlocksAreInsertedAndDeletedAtTheSelection) {
    for (int r = 0; r < 3; ++r) grid.setValue(r, 0, r + 1.0);
    grid.setRangeSelected(QTableWidgetSelectionRange(1, 0, 2, 1), true);
    grid.insertRowsAtSelection();
    ASSERT_EQ(grid.maxRows(), 5);
    EXPECT_EQ(grid.value(0, 0), 1.0);
    EXPECT_TRUE(grid.isBlank(1, 0));
    EXPECT_TRUE(grid.isBlank(2, 0));
    EXPECT_EQ(grid.value(3, 0), 2.0);  // the data slide down

    grid.clearSelection();
    grid.setRangeSelected(QTableWidgetSelectionRange(0, 0, 1, 0), true);
    grid.deleteSelectedRows();
    ASSERT_EQ(grid.maxRows(), 3);
    EXPECT_TRUE(grid.isBlank(0, 0));
    EXPECT_EQ(grid.value(1, 0), 2.0);
}

TEST_F(DataGridTest, BlocksCopyAndPasteAsTabSeparatedText) {
    grid.setValue(0, 0, 1.5);
    grid.setValue(0, 1, 2);
    grid.setValue(1, 1, 0.125);
    grid.setRangeSelected(QTableWidgetSelectionRange(0, 0, 1, 1), true);
    EXPECT_EQ(grid.selectionAsText(), "1.5\t2\n\t0.125\n");

    // A spreadsheet block: CR-LF lines, a value out of range skipped, rows added, extra
    // columns dropped.
    grid.clearSelection();
    grid.setCurrentCell(2, 0);
    grid.pasteText("7\t8\t9\r\n101\t4\r\n5,5\t\r\n");
    EXPECT_EQ(grid.maxRows(), 5);
    EXPECT_EQ(grid.maxCols(), 2);
    EXPECT_EQ(grid.value(2, 0), 7.0);
    EXPECT_EQ(grid.value(2, 1), 8.0);
    EXPECT_TRUE(grid.isBlank(3, 0));
    EXPECT_EQ(grid.value(3, 1), 4.0);
    EXPECT_EQ(grid.value(4, 0), 5.5);

    grid.clearSelection();
    grid.setRangeSelected(QTableWidgetSelectionRange(0, 0, 0, 1), true);
    grid.cutSelection();
    EXPECT_TRUE(grid.isBlank(0, 0));
    EXPECT_EQ(QApplication::clipboard()->text(), "1.5\t2\n");
    grid.clearSelection();
    grid.setCurrentCell(1, 0);
    grid.pasteFromClipboard();
    EXPECT_EQ(grid.value(1, 0), 1.5);
}

TEST_F(DataGridTest, TabDelimitedSaveAndTableMenu) {
    grid.setCornerTitle("ML");
    grid.setRowHeading(0, "10.00");
    grid.setColHeading(0, "1/2/2000");
    grid.setColHeading(1, "3/4/2000");
    grid.setValue(0, 0, 4);
    test::TempDir dir;
    const QString path = QString::fromStdString(dir.file("g.tab"));
    ASSERT_TRUE(grid.saveTabDelimited(path));
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(f.readAll()), "ML\t1/2/2000\t3/4/2000\n10.00\t4\t\n\t\t\n\t\t\n");

    // Printing goes through the same table; a PDF printer shows that it produces pages.
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    const QString pdf = QString::fromStdString(dir.file("g.pdf"));
    printer.setOutputFileName(pdf);
    grid.print(printer, true, true, "Report");
    EXPECT_GT(QFileInfo(pdf).size(), 0);

    QStringList captions;
    for (QAction* a : grid.tableMenu()->actions()) captions << a->text();
    EXPECT_EQ(captions, (QStringList{"Insert Row", "Insert Column", "", "Delete Row",
                                     "Delete Column", "", "&Edit Subheader"}));
    QSignalSpy commands(&grid, &DataGrid::tableCommand);
    grid.tableMenu()->actions()[kTableDeleteColumn]->trigger();
    ASSERT_EQ(commands.count(), 1);
    EXPECT_EQ(commands.front().front().toInt(), kTableDeleteColumn);
}

}  // namespace
}  // namespace norvo::gui
