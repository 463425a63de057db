#include "data/schema.h"

#include <cctype>
#include <map>

namespace norvo {

namespace {

using T = FieldType;

TableSchema MeasuresTable(const char* name, std::vector<FieldSchema> fields) {
    return {name, std::move(fields)};
}

std::map<std::string, std::vector<TableSchema>> BuildSchemas() {
    std::map<std::string, std::vector<TableSchema>> s;

    s["LFQ"] = {
        {"Grouped_LF",
         {{"Speciesname", T::Text},
          {"Other_ID", T::Text},
          {"Unit_Of_Measurement", T::Text},
          {"Type_Of_Measurement", T::Text},
          {"Smallest_ML", T::Float32},
          {"Class_Interval", T::Float32},
          {"Remarks", T::Text}}},
        {"Sample_LF",
         {{"SampleNo", T::Int16},
          {"Sampling_Day", T::Int16},
          {"Sampling_Month", T::Int16},
          {"Sampling_Year", T::Int32},
          {"Sex", T::Text},
          {"Sampling_Time", T::Text},
          {"Area", T::Text},
          {"Latitude", T::Text},
          {"Longitude", T::Text},
          {"Depth", T::Float32},
          {"Bottom_Type", T::Text},
          {"LW_a", T::Float32},
          {"LW_b", T::Float32},
          {"Catch_Type", T::Text},
          {"Wt_Sample", T::Float32},
          {"TWt_Species", T::Float32},
          {"TWt_Catch", T::Float32},
          {"Effort", T::Float32},
          {"Vessel", T::Text},
          {"Gear_Type", T::Text},
          {"Mesh_Size", T::Float32},
          {"Gear_Characteristics", T::Text},
          {"Remarks", T::Text}}},
        MeasuresTable(
            "GLF_Measures",
            {{"SampleNo", T::Int16}, {"Midlength", T::Float32}, {"Frequency", T::Float32}}),
    };

    // Header of the ungrouped and variably grouped kinds.
    const std::vector<FieldSchema> lfHeader = {
        {"Speciesname", T::Text},         {"Other_ID", T::Text},
        {"Sampling_Date", T::Date},       {"Unit_Of_Measurement", T::Text},
        {"Type_Of_Measurement", T::Text}, {"Remarks", T::Text}};
    s["ULF"] = {{"Ungrouped_LF", lfHeader},
                MeasuresTable("ULF_Measures", {{"Measure", T::Float32}})};
    s["VLF"] = {{"Variable_LF", lfHeader},
                MeasuresTable(
                    "VLF_Measures",
                    {{"Length1", T::Float32}, {"Length2", T::Float32}, {"Frequency", T::Float32}})};
    s["LAA"] = {{"LAA",
                 {{"Speciesname", T::Text},
                  {"Other_ID", T::Text},
                  {"Sampling_Date", T::Date},
                  {"Unit_Of_Length_Measurement", T::Text},
                  {"Type_Of_Measurement", T::Text},
                  {"Unit_Of_Age_Measurement", T::Text},
                  {"Remarks", T::Text}}},
                MeasuresTable("LAA_Measures",
                              {{"Age", T::Float32}, {"Length", T::Float32}, {"WF", T::Float32}})};
    s["GIN"] = {{"GIN",
                 {{"Speciesname", T::Text},
                  {"Other_ID", T::Text},
                  {"Unit_Of_Measurement", T::Text},
                  {"Type_Of_Measurement", T::Text},
                  {"Remarks", T::Text}}},
                MeasuresTable("GIN_Measures", {{"Day1", T::Int32},
                                               {"Month1", T::Int32},
                                               {"Year1", T::Int32},
                                               {"Length1", T::Float32},
                                               {"Day2", T::Int32},
                                               {"Month2", T::Int32},
                                               {"Year2", T::Int32},
                                               {"Length2", T::Float32}})};
    s["CAA"] = {{"CAA",
                 {{"Speciesname", T::Text},
                  {"Other_ID", T::Text},
                  {"Sampling_Date", T::Date},
                  {"Unit_Of_Weight_Measurement", T::Text},
                  {"Unit_Of_Age_Measurement", T::Text},
                  {"Remarks", T::Text}}},
                MeasuresTable("CAA_Measures",
                              {{"Age", T::Float32}, {"Catch", T::Float32}, {"WF", T::Float32}})};
    // The modal-progression routines also write Type_Of_Measurement and Population; their
    // result files come from the same template, so it carries both.
    s["MSD"] = {{"MSD",
                 {{"Speciesname", T::Text},
                  {"Other_ID", T::Text},
                  {"Unit_Of_Measurement", T::Text},
                  {"Type_Of_Measurement", T::Text},
                  {"Remarks", T::Text}}},
                MeasuresTable("MSD_Measures", {{"DateDay", T::Int32},
                                               {"DateMonth", T::Int32},
                                               {"DateYear", T::Int32},
                                               {"Length", T::Float32},
                                               {"SD", T::Float32},
                                               {"Population", T::Float32}})};
    s["PRB"] = {
        {"PRB",
         {{"Speciesname", T::Text},
          {"Other_ID", T::Text},
          {"Unit_Of_Measurement", T::Text},
          {"Remarks", T::Text}}},
        MeasuresTable("PRB_Measures", {{"Length", T::Float32}, {"Probability", T::Float32}})};
    s["XYF"] = {{"XYF",
                 {{"Graph_Title", T::Text},
                  {"X_axis", T::Text},
                  {"Y_axis", T::Text},
                  {"Remarks", T::Text}}},
                MeasuresTable("XYF_Measures", {{"X", T::Float32}, {"Y", T::Float32}})};
    s["VAL"] = {{"VAL",
                 {{"Speciesname", T::Text},
                  {"Other_ID", T::Text},
                  {"Unit_Of_Measurement", T::Text},
                  {"Currency", T::Text},
                  {"Remarks", T::Text}}},
                MeasuresTable("VAL_Measures", {{"Length", T::Float32}, {"Value", T::Float32}})};

    // Species, fleet and scenario files: text and double-precision numbers.
    s["SPC"] = {{"Header",
                 {{"Species Name", T::Text},
                  {"Remarks", T::Text},
                  {"Lower Limit", T::Float64},
                  {"Class Size", T::Float64},
                  {"NoGroups", T::Int16},
                  {"Recruit", T::Float64},
                  {"a", T::Float64},
                  {"b", T::Float64},
                  {"M", T::Float64},
                  {"Ft", T::Float64},
                  {"Loo", T::Float64},
                  {"K", T::Float64}}},
                {"F-array", {{"Length Class", T::Float64}, {"F", T::Float64}}},
                {"Value", {{"Length Class", T::Float64}, {"Value", T::Float64}}}};
    s["FLT"] = {{"Header", {{"Fleet Name", T::Text}, {"Remarks", T::Text}}}};
    s["SCE"] = {{"Header", {{"Title", T::Text}, {"Remarks", T::Text}}},
                {"Species", {{"Species Name", T::Text}, {"Filename", T::Text}}},
                {"Fleet", {{"Fleet Name", T::Text}, {"Filename", T::Text}}},
                {"Selection",
                 {{"Fleet", T::Text},
                  {"Species", T::Text},
                  {"L50", T::Float64},
                  {"L75", T::Float64},
                  {"R75", T::Float64},
                  {"R50", T::Float64}}},
                {"Catches",
                 {{"Fleet", T::Text},
                  {"Species", T::Text},
                  {"Length Group", T::Float64},
                  {"Catch", T::Float64}}}};
    return s;
}

std::string Upper(std::string_view s) {
    std::string out(s);
    for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return out;
}

std::string Quote(std::string_view name) {
    std::string out = "\"";
    for (char c : name) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + "\"";
}

}  // namespace

bool SameName(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(a[i])) !=
            std::tolower(static_cast<unsigned char>(b[i])))
            return false;
    }
    return true;
}

const std::vector<TableSchema>& SchemaOf(std::string_view kindCode) {
    static const auto schemas = BuildSchemas();
    static const std::vector<TableSchema> none;
    const auto it = schemas.find(Upper(kindCode));
    return it == schemas.end() ? none : it->second;
}

const TableSchema* FindTable(std::string_view kindCode, std::string_view table) {
    for (const auto& t : SchemaOf(kindCode)) {
        if (SameName(t.name, table)) return &t;
    }
    return nullptr;
}

const FieldSchema* FindField(const TableSchema& table, std::string_view field) {
    for (const auto& f : table.fields) {
        if (SameName(f.name, field)) return &f;
    }
    return nullptr;
}

const char* DeclaredType(FieldType type) {
    switch (type) {
        case FieldType::Int16:
            return "SMALLINT";
        case FieldType::Int32:
            return "INTEGER";
        case FieldType::Float32:
            return "FLOAT4";
        case FieldType::Float64:
            return "DOUBLE";
        case FieldType::Date:
            return "DATE";
        case FieldType::Text:
            return "TEXT";
    }
    return "TEXT";
}

std::optional<FieldType> FieldTypeFromDeclared(std::string_view declared) {
    const std::string up = Upper(declared);
    for (FieldType t : {FieldType::Int16, FieldType::Int32, FieldType::Float32, FieldType::Float64,
                        FieldType::Date, FieldType::Text}) {
        if (up == DeclaredType(t)) return t;
    }
    return std::nullopt;
}

std::string CreateTableStatement(const TableSchema& table) {
    std::string sql = "CREATE TABLE " + Quote(table.name) + " (";
    for (size_t i = 0; i < table.fields.size(); ++i) {
        if (i) sql += ", ";
        sql += Quote(table.fields[i].name) + " " + DeclaredType(table.fields[i].type);
    }
    return sql + ")";
}

}  // namespace norvo
