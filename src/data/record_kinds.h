#pragma once
// The nine single-table sample kinds (ULF, VLF, LAA, GIN, CAA, MSD, PRB, XYF, VAL) as plain
// data: one header record of boxes and a measures table shown as a grid. One editor and the
// table import/export are driven by these descriptors; the file routines here read and write
// a whole file of any of these kinds.
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace norvo {

enum class BoxType { Text, Combo, Date, Remarks };

// One box of the header page, bound to a field of the header table.
struct HeaderBox {
    const char* field;
    const char* caption;  // label on the header page and in reports
    BoxType type = BoxType::Text;
    bool required = false;
    std::vector<const char*> choices;  // combo list, first entry the default
};

// One grid column, bound to a field of the measures table.
struct GridColumn {
    const char* field;
    const char* heading;
    int decimals;
    double min;
    double max;
    bool whole = false;  // day, month and year columns
};

struct RecordKind {
    const char* code;  // "GIN"
    const char* headerTable;
    const char* measuresTable;
    const char* rowHeading;  // "Obs" or "Obs."
    const char* dataTitle;   // second line of the printed report
    std::vector<HeaderBox> boxes;
    std::vector<GridColumn> columns;
    // Band headings over the grid's columns: (first column, count, text); GIN only.
    struct Band {
        int first;
        int count;
        const char* text;
    };
    std::vector<Band> bands;
};

inline constexpr const char* kRemarksCaption = "Remarks";
inline constexpr const char* kTaggingBand = "Tagging";
inline constexpr const char* kRecapturedBand = "Recaptured";
// The ULF weight units: choosing one turns the column into weights and the type list off.
inline constexpr const char* kWeightUnits[] = {"kg", "g"};
inline constexpr const char* kLengthColumnPrefix = "Length (";
inline constexpr const char* kWeightColumnPrefix = "Weight (";

// The nine kinds, in the order of the file lists.
const std::vector<RecordKind>& RecordKinds();
// The descriptor of a kind ("GIN", case ignored), or null (also for LFQ and the stock kinds).
const RecordKind* FindRecordKind(const std::string& code);
// Index of a column by field name, or -1.
int ColumnIndex(const RecordKind& kind, const std::string& field);

// The ULF column heading for a unit: "Length (cm)", or "Weight (kg)" for a weight unit.
std::string UlfColumnHeading(const std::string& unit);
bool IsWeightUnit(const std::string& unit);

// A whole file of one of the nine kinds in memory. Header values are texts (dates as
// "YYYY-MM-DD"); rows hold one cell per grid column, blank as nothing.
using GridRow = std::vector<std::optional<double>>;
struct RecordFile {
    std::map<std::string, std::string> header;
    std::vector<GridRow> rows;
};

// Reads the header record and the measures in table order. Throws StoreError when the file
// cannot be read or lacks its header record.
RecordFile ReadRecordFile(const std::string& path, const RecordKind& kind);
// Rebuilds the file from the kind's empty template: the header record, then one record for each
// row up to the last holding data (blank cells store 0). All or nothing: a failure leaves the
// file as it was and throws.
void WriteRecordFile(const std::string& path, const std::string& programFolder,
                     const RecordKind& kind, const RecordFile& file);
// Rows after the last one holding any data are dropped.
int LastDataRow(const std::vector<GridRow>& rows);

// What a cell left blank gets when the cursor leaves it, in the kinds that fill blanks (VLF,
// LAA, CAA, MSD); nothing otherwise. `cell(row, col)` reads the grid (0-based); `today` is
// {day, month, year} for the MSD date columns on the first row.
struct Today {
    int day, month, year;
};
std::optional<double> BlankCellValue(const RecordKind& kind, int row, int col,
                                     const std::function<std::optional<double>(int, int)>& cell,
                                     Today today);

}  // namespace norvo
