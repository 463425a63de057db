#include "data/record_kinds.h"

#include <algorithm>
#include <cmath>

#include "base/checked.h"
#include "data/data_store.h"
#include "data/schema.h"
#include "data/store_routines.h"

namespace norvo {

namespace {

const std::vector<const char*> kUnitList = {"cm", "mm", "in"};
const std::vector<const char*> kUlfUnitList = {"cm", "mm", "in", "kg", "g"};
const std::vector<const char*> kLaaUnitList = {"cm", "mm", "in", "kg"};
const std::vector<const char*> kAgeUnits = {"years", "month"};
const std::vector<const char*> kCatchUnits = {"numbers", "tonnes", "kilograms", "grams"};

std::vector<const char*> TypeList(const char* last) {
    return {"Total length (TL)", "Standard length (SL)", "Fork length (FL)",
            "Shell length (SL)", "Mantle length (ML)",   last};
}

constexpr double kBig2 = 99999999.99;
constexpr double kBig3 = 99999999.999;

HeaderBox Species() {
    return {"Speciesname", "Species name", BoxType::Text, true, {}};
}
HeaderBox OtherId() {
    return {"Other_ID", "Other identifier", BoxType::Text, false, {}};
}
HeaderBox SamplingDate() {
    return {"Sampling_Date", "Sampling date", BoxType::Date, false, {}};
}
HeaderBox Remarks() {
    return {"Remarks", kRemarksCaption, BoxType::Remarks, false, {}};
}
HeaderBox Combo(const char* field, const char* caption, std::vector<const char*> choices) {
    return {field, caption, BoxType::Combo, false, std::move(choices)};
}

std::vector<RecordKind> Build() {
    const HeaderBox unit = Combo("Unit_Of_Measurement", "Unit of measurement", kUnitList);
    const HeaderBox age = Combo("Unit_Of_Age_Measurement", "Unit of age", kAgeUnits);
    const GridColumn day1{"Day1", "Day", 0, 1, 31, true};
    const GridColumn month1{"Month1", "Month", 0, 1, 12, true};
    const GridColumn year1{"Year1", "Year", 0, 1800, 2100, true};
    return {
        {"ULF",
         "Ungrouped_LF",
         "ULF_Measures",
         "Obs",
         "Ungrouped Length Frequency Data",
         {Species(), OtherId(), SamplingDate(),
          Combo("Unit_Of_Measurement", "Unit of measurement", kUlfUnitList),
          Combo("Type_Of_Measurement", "Type of measurement", TypeList("Others")), Remarks()},
         {{"Measure", "Length (cm)", 2, 0.01, kBig2}},
         {}},
        {"VLF",
         "Variable_LF",
         "VLF_Measures",
         "Obs",
         "Variable Class Grouping of Length Frequency Data",
         {Species(), OtherId(), SamplingDate(), unit,
          Combo("Type_Of_Measurement", "Type of measurement", TypeList("Others")), Remarks()},
         {{"Length1", "From", 2, 0.01, kBig2},
          {"Length2", "To", 2, 0.01, kBig2},
          {"Frequency", "Frequency", 2, 0.01, kBig2}},
         {}},
        {"LAA",
         "LAA",
         "LAA_Measures",
         "Obs",
         "Length-at-Age Data",
         {Species(), OtherId(), SamplingDate(),
          Combo("Unit_Of_Length_Measurement", "Unit of length", kLaaUnitList),
          Combo("Type_Of_Measurement", "Type of measurement", TypeList("Others/Unknown")), age,
          Remarks()},
         {{"Age", "Age", 3, 0.001, kBig3},
          {"Length", "Length", 3, 0.001, kBig3},
          {"WF", "W.F.", 2, 0.0, 999.0}},
         {}},
        {"GIN",
         "GIN",
         "GIN_Measures",
         "Obs.",
         "Growth Increment Data",
         {Species(), OtherId(), unit,
          Combo("Type_Of_Measurement", "Type of measurement", TypeList("Others/Unknown")),
          Remarks()},
         {day1,
          month1,
          year1,
          {"Length1", "Length", 2, 0.01, kBig2},
          {"Day2", "Day", 0, 1, 31, true},
          {"Month2", "Month", 0, 1, 12, true},
          {"Year2", "Year", 0, 1800, 2100, true},
          {"Length2", "Length", 2, 0.01, kBig2}},
         {{0, 4, kTaggingBand}, {4, 4, kRecapturedBand}}},
        {"CAA",
         "CAA",
         "CAA_Measures",
         "Obs",
         "Catch-at-Age Data",
         {Species(), OtherId(), SamplingDate(),
          Combo("Unit_Of_Weight_Measurement", "Unit of catch", kCatchUnits), age, Remarks()},
         {{"Age", "Age", 3, 0.001, kBig3},
          {"Catch", "Catch", 3, 0.001, kBig3},
          {"WF", "W.F.", 2, 0.0, 999.0}},
         {}},
        {"MSD",
         "MSD",
         "MSD_Measures",
         "Obs",
         "Mean Lengths and Standard Deviations",
         {Species(), OtherId(), unit, Remarks()},
         {{"DateDay", "Day", 0, 1, 31, true},
          {"DateMonth", "Month", 0, 1, 12, true},
          {"DateYear", "Year", 0, 1800, 2100, true},
          {"Length", "Mean", 2, 0.01, kBig2},
          {"SD", "s.d.", 5, 0.00001, 999.99999}},
         {}},
        {"PRB",
         "PRB",
         "PRB_Measures",
         "Obs",
         "Probabilities of Capture",
         {Species(), OtherId(), unit, Remarks()},
         {{"Length", "Midlength", 2, 0.01, kBig2}, {"Probability", "Probability", 5, 0.0, 1.0}},
         {}},
        {"XYF",
         "XYF",
         "XYF_Measures",
         "Obs",
         "XY Data",
         {{"Graph_Title", "Graph Title", BoxType::Text, false, {}},
          {"X_axis", "X-axis Label", BoxType::Text, false, {}},
          {"Y_axis", "Y-axis Label", BoxType::Text, false, {}},
          Remarks()},
         {{"X", "X", 3, 0.001, kBig3}, {"Y", "Y", 3, 0.001, kBig3}},
         {}},
        {"VAL",
         "VAL",
         "VAL_Measures",
         "Obs",
         "Value by Size Data",
         {Species(),
          OtherId(),
          unit,
          {"Currency", "Currency", BoxType::Text, false, {}},
          Remarks()},
         {{"Length", "Midlength", 2, 0.0, kBig2}, {"Value", "Value", 2, 0.0, kBig2}},
         {}},
    };
}

bool RowHasData(const GridRow& row) {
    return std::any_of(row.begin(), row.end(), [](const auto& c) { return c.has_value(); });
}

}  // namespace

const std::vector<RecordKind>& RecordKinds() {
    static const std::vector<RecordKind> kinds = Build();
    return kinds;
}

const RecordKind* FindRecordKind(const std::string& code) {
    for (const RecordKind& k : RecordKinds())
        if (SameName(k.code, code)) return &k;
    return nullptr;
}

int ColumnIndex(const RecordKind& kind, const std::string& field) {
    for (size_t i = 0; i < kind.columns.size(); ++i)
        if (SameName(kind.columns[i].field, field)) return static_cast<int>(i);
    return -1;
}

bool IsWeightUnit(const std::string& unit) {
    return unit == kWeightUnits[0] || unit == kWeightUnits[1];
}

std::string UlfColumnHeading(const std::string& unit) {
    return (IsWeightUnit(unit) ? kWeightColumnPrefix : kLengthColumnPrefix) + unit + ")";
}

int LastDataRow(const std::vector<GridRow>& rows) {
    for (int r = static_cast<int>(rows.size()); r >= 1; --r)
        if (RowHasData(rows[r - 1])) return r;
    return 0;
}

RecordFile ReadRecordFile(const std::string& path, const RecordKind& kind) {
    RecordFile file;
    DataStore store = DataStore::open(path);
    Records header = store.openRecords(std::string("SELECT * FROM [") + kind.headerTable + "]");
    if (header.endOfRecords()) throw StoreError("no header record");
    for (const HeaderBox& b : kind.boxes) file.header[b.field] = AsText(header.getField(b.field));
    header.close();
    Records rs = store.openRecords(std::string("SELECT * FROM [") + kind.measuresTable + "]");
    for (; !rs.endOfRecords(); rs.moveNext()) {
        GridRow row;
        for (const GridColumn& c : kind.columns) {
            const FieldValue v = rs.getField(c.field);
            row.push_back(IsNull(v) ? std::nullopt : std::optional<double>(AsDouble(v)));
        }
        file.rows.push_back(std::move(row));
    }
    rs.close();
    store.close();
    return file;
}

void WriteRecordFile(const std::string& path, const std::string& programFolder,
                     const RecordKind& kind, const RecordFile& file) {
    const int last = LastDataRow(file.rows);
    AtomicRewriteFromTemplate(path, programFolder, [&](const std::string& work) {
        SaveInTransaction(work, [&](DataStore& store) {
            Records h = store.openRecords(kind.headerTable);
            h.addNew();
            for (const HeaderBox& b : kind.boxes) {
                auto it = file.header.find(b.field);
                const std::string text = it == file.header.end() ? "" : it->second;
                if (b.type == BoxType::Date && text.empty()) continue;
                h.setField(b.field, text);
            }
            h.update();
            h.close();
            Records m = store.openRecords(kind.measuresTable);
            for (int r = 0; r < last; ++r) {
                m.addNew();
                for (size_t c = 0; c < kind.columns.size(); ++c) {
                    const GridRow& row = file.rows[r];
                    const double v = c < row.size() ? row[c].value_or(0.0) : 0.0;
                    if (kind.columns[c].whole) {
                        m.setField(kind.columns[c].field, static_cast<int64_t>(std::lround(v)));
                    } else {
                        m.setField(kind.columns[c].field, static_cast<double>(R4(v)));
                    }
                }
                m.update();
            }
            m.close();
        });
    });
}

std::optional<double> BlankCellValue(const RecordKind& kind, int row, int col,
                                     const std::function<std::optional<double>(int, int)>& cell,
                                     Today today) {
    const std::string code = kind.code;
    if (code == "VLF") {
        switch (col) {
            case 0:
                if (row == 0) return 0.01;
                return static_cast<double>(R4(cell(row - 1, 1).value_or(0.0) + 0.01));
            case 1:
                return std::floor(cell(row, 0).value_or(0.0) + 1.0);
            case 2:
                return 1.0;
            default:
                return std::nullopt;
        }
    }
    if (code == "LAA" || code == "CAA") {
        if (col == 0) return 0.001;
        if (col == 1 || col == 2) return 1.0;
        return std::nullopt;
    }
    if (code == "MSD" && col >= 0 && col <= 2) {
        if (row > 0) {
            if (auto above = cell(row - 1, col)) return above;
        }
        const int parts[] = {today.day, today.month, today.year};
        return parts[col];
    }
    return std::nullopt;
}

}  // namespace norvo
