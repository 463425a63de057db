#pragma once
// Interchange of data files with spreadsheets and R as comma- or tab-separated tables.
//  - LFQ: the wide layout, a first column of midlengths headed "Midlength" and one column per
//    sample headed by its date (written YYYY-MM-DD; read as YYYY-MM-DD or day/month/year).
//  - The nine sample kinds: one column per measures field, headed by the field's name.
// An import reads and checks the whole table before anything is written; a malformed cell is
// reported by row and column (both from 1, the heading line being row 1) and no file is made.
#include <stdexcept>
#include <string>
#include <vector>

#include "base/outcome.h"

namespace norvo {

inline constexpr const char* kMidlengthHeading = "Midlength";
inline constexpr const char* kImportTableTitle = "Import Table...";
inline constexpr const char* kExportTableTitle = "Export Table...";
inline constexpr const char* kTableFilter =
    "Comma Separated (*.csv)|*.csv|Tab Delimited (*.tab;*.tsv;*.txt)|*.tab;*.tsv;*.txt|All Files "
    "(*.*)|*.*";
inline constexpr const char* kTableImportDone = "The table was imported into ";
inline constexpr const char* kTableExportDone = "The table was written to ";

class TableFormatError : public std::runtime_error {
  public:
    TableFormatError(int row, int column, const std::string& reason);
    int row;
    int column;
};

struct TableImportOptions {
    std::string speciesname;  // header's species name, where the kind has one
    std::string unit = "cm";
    std::string typeOfMeasurement = "Total length (TL)";
    std::string remarks;
};

// Tab for .tab, .tsv and .txt paths, comma otherwise.
char DelimiterFor(const std::string& path);

// Splits delimited text into rows of cells; double quotes enclose cells holding the delimiter,
// quotes or line breaks ("" is a quote). A cell that opens a quote and never closes it is
// reported by its row and column.
std::vector<std::vector<std::string>> ParseDelimited(const std::string& text, char delimiter);
// The reverse, quoting cells that need it, lines ended by "\n".
std::string FormatDelimited(const std::vector<std::vector<std::string>>& rows, char delimiter);

// The table of a data file (LFQ or one of the nine kinds). Throws StoreError when unreadable.
std::vector<std::vector<std::string>> TableOfFile(const std::string& path);
// Writes TableOfFile to `out`; throws StoreError when the file cannot be read, and a StoreError
// of a save when `out` cannot be written.
void ExportTable(const std::string& path, const std::string& out, char delimiter);

// Makes the data file `out` (its kind by extension) from a table. Throws TableFormatError for a
// malformed table and StoreError when writing fails; in both cases `out` is left untouched.
// The rows of a GIN or MSD table pass the editor's checks first: the result carries their
// notices (by observation number), and a refused result leaves `out` untouched too.
Outcome ImportTable(const std::string& tablePath, const std::string& out,
                    const std::string& programFolder, const TableImportOptions& options);
// The same from rows already split.
Outcome ImportRows(const std::vector<std::vector<std::string>>& rows, const std::string& out,
                   const std::string& programFolder, const TableImportOptions& options);

}  // namespace norvo
