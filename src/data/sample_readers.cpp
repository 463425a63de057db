#include "data/sample_readers.h"

#include <exception>
#include <functional>

#include "data/data_store.h"
#include "data/schema.h"
#include "data/store_routines.h"

namespace norvo {

namespace {

// Opens the file, copies the header record's text fields into `header` and hands the store to
// `body`. Any failure of the store is the "Invalid Data" read error.
template <class T>
ReadResult<T> ReadWith(const std::string& path, const char* headerTable,
                       const std::function<void(DataStore&, Records&, T&)>& body) {
    T out;
    try {
        DataStore store = DataStore::open(path);
        Records h = store.openRecords(std::string("SELECT * FROM [") + headerTable + "]");
        if (h.endOfRecords()) throw StoreError("no header record");
        LfqData& d = out.header;
        d.path = path;
        auto text = [&h](const char* field) {
            for (const std::string& name : h.fieldNames())
                if (SameName(name, field)) return AsText(h.getField(field));
            return std::string();
        };
        d.speciesname = text("Speciesname");
        d.otherId = text("Other_ID");
        d.unitOfMeasurement = text("Unit_Of_Measurement");
        if (d.unitOfMeasurement.empty()) d.unitOfMeasurement = text("Unit_Of_Length_Measurement");
        d.typeOfMeasurement = text("Type_Of_Measurement");
        d.remarks = text("Remarks");
        body(store, h, out);
        h.close();
        store.close();
        return out;
    } catch (const std::exception&) {
        return InvalidDataError(path);
    }
}

std::array<float, 3> Triple(const Records& rs, const char* a, const char* b, const char* c) {
    return {AsFloat(rs.getField(a)), AsFloat(rs.getField(b)), AsFloat(rs.getField(c))};
}

}  // namespace

ReadResult<PrbData> ReadPRB(const std::string& path) {
    return ReadWith<PrbData>(path, "PRB", [](DataStore& store, Records&, PrbData& out) {
        Records rs = store.openRecords("SELECT * FROM [PRB_Measures]");
        for (; !rs.endOfRecords(); rs.moveNext()) {
            out.length.push_back(AsFloat(rs.getField("Length")));
            out.probability.push_back(AsFloat(rs.getField("Probability")));
        }
        LfqData& d = out.header;
        d.noOfClasses = static_cast<int32_t>(out.length.size());
        d.smallestMl = out.length.empty() ? 0.0 : out.length.front();
        d.largestMl = out.length.empty() ? 0.0 : out.length.back();
    });
}

ReadResult<MsdData> ReadMSD(const std::string& path) {
    return ReadWith<MsdData>(path, "MSD", [](DataStore& store, Records&, MsdData& out) {
        Records rs = store.openRecords(
            "SELECT * FROM [MSD_Measures] ORDER BY DateYear, DateMonth, DateDay, Length");
        for (; !rs.endOfRecords(); rs.moveNext()) {
            MsdRow r;
            r.day = static_cast<int32_t>(AsInteger(rs.getField("DateDay")));
            r.month = static_cast<int32_t>(AsInteger(rs.getField("DateMonth")));
            r.year = static_cast<int32_t>(AsInteger(rs.getField("DateYear")));
            r.length = AsFloat(rs.getField("Length"));
            r.sd = AsFloat(rs.getField("SD"));
            r.population = AsFloat(rs.getField("Population"));
            out.rows.push_back(r);
        }
    });
}

ReadResult<GinData> ReadGIN(const std::string& path) {
    return ReadWith<GinData>(path, "GIN", [](DataStore& store, Records&, GinData& out) {
        static constexpr const char* kFields[] = {"Day1", "Month1", "Year1", "Length1",
                                                  "Day2", "Month2", "Year2", "Length2"};
        Records rs = store.openRecords("SELECT * FROM [GIN_Measures]");
        for (; !rs.endOfRecords(); rs.moveNext()) {
            GinRow row{};
            for (int i = 0; i < 8; ++i) row[i + 1] = AsFloat(rs.getField(kFields[i]));
            out.rows.push_back(row);
        }
        out.header.noOfSamples = static_cast<int32_t>(out.rows.size());
    });
}

ReadResult<CaaData> ReadCAA(const std::string& path) {
    return ReadWith<CaaData>(path, "CAA", [](DataStore& store, Records& h, CaaData& out) {
        out.unitOfWeight = AsText(h.getField("Unit_Of_Weight_Measurement"));
        out.unitOfAge = AsText(h.getField("Unit_Of_Age_Measurement"));
        Records rs = store.openRecords("SELECT * FROM [CAA_Measures]");
        for (; !rs.endOfRecords(); rs.moveNext())
            out.rows.push_back(Triple(rs, "Age", "Catch", "WF"));
    });
}

ReadResult<LaaData> ReadLAA(const std::string& path) {
    return ReadWith<LaaData>(path, "LAA", [](DataStore& store, Records& h, LaaData& out) {
        out.unitOfAge = AsText(h.getField("Unit_Of_Age_Measurement"));
        Records rs = store.openRecords("SELECT * FROM [LAA_Measures]");
        for (; !rs.endOfRecords(); rs.moveNext())
            out.rows.push_back(Triple(rs, "Age", "Length", "WF"));
    });
}

}  // namespace norvo
