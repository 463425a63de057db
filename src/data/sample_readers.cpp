#include "data/sample_readers.h"

#include <exception>
#include <functional>

#include "data/data_store.h"
#include "data/schema.h"
#include "data/store_routines.h"

namespace norvo {

namespace {

// Opens the file, copies the header record's text fields into the shared image and hands the
// store to `body`. Any failure shows the notice and sets the flag.
bool ReadWith(const std::string& path, const char* headerTable, Session& session,
              DialogService& dialogs, const std::function<void(DataStore&, Records&)>& body) {
    session.fileReadFailed = false;
    try {
        DataStore store = DataStore::open(path);
        Records h = store.openRecords(std::string("SELECT * FROM [") + headerTable + "]");
        if (h.endOfRecords()) throw StoreError("no header record");
        LfqData& d = session.lfqData;
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
        body(store, h);
        h.close();
        store.close();
        return true;
    } catch (const std::exception&) {
        session.fileReadFailed = true;
        dialogs.notify({kCorruptedOrWrongFormat, kInvalidDataTitle, Buttons::Ok, Icon::Warning});
        return false;
    }
}

std::array<float, 3> Triple(const Records& rs, const char* a, const char* b, const char* c) {
    return {AsFloat(rs.getField(a)), AsFloat(rs.getField(b)), AsFloat(rs.getField(c))};
}

}  // namespace

PrbData ReadPRB(const std::string& path, Session& session, DialogService& dialogs) {
    PrbData out;
    const bool ok = ReadWith(path, "PRB", session, dialogs, [&](DataStore& store, Records&) {
        Records rs = store.openRecords("SELECT * FROM [PRB_Measures]");
        for (; !rs.endOfRecords(); rs.moveNext()) {
            out.length.push_back(AsFloat(rs.getField("Length")));
            out.probability.push_back(AsFloat(rs.getField("Probability")));
        }
    });
    if (!ok) return {};
    LfqData& d = session.lfqData;
    d.noOfClasses = static_cast<int32_t>(out.length.size());
    d.smallestMl = out.length.empty() ? 0.0 : out.length.front();
    d.largestMl = out.length.empty() ? 0.0 : out.length.back();
    return out;
}

std::vector<MsdRow> ReadMSD(const std::string& path, Session& session, DialogService& dialogs) {
    std::vector<MsdRow> out;
    const bool ok = ReadWith(path, "MSD", session, dialogs, [&](DataStore& store, Records&) {
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
            out.push_back(r);
        }
    });
    return ok ? out : std::vector<MsdRow>{};
}

std::vector<GinRow> ReadGIN(const std::string& path, Session& session, SettingsStore& settings,
                            DialogService& dialogs) {
    std::vector<GinRow> out;
    const bool ok = ReadWith(path, "GIN", session, dialogs, [&](DataStore& store, Records&) {
        static constexpr const char* kFields[] = {"Day1", "Month1", "Year1", "Length1",
                                                  "Day2", "Month2", "Year2", "Length2"};
        Records rs = store.openRecords("SELECT * FROM [GIN_Measures]");
        for (; !rs.endOfRecords(); rs.moveNext()) {
            GinRow row{};
            for (int i = 0; i < 8; ++i) row[i + 1] = AsFloat(rs.getField(kFields[i]));
            out.push_back(row);
        }
    });
    if (!ok) return {};
    session.lfqData.noOfSamples = static_cast<int32_t>(out.size());
    // The growth screens can pick a file by hand; it becomes the active file.
    settings.setRunTime(kKeyLastActive, path);
    return out;
}

CaaData ReadCAA(const std::string& path, Session& session, DialogService& dialogs) {
    CaaData out;
    const bool ok = ReadWith(path, "CAA", session, dialogs, [&](DataStore& store, Records& h) {
        out.unitOfWeight = AsText(h.getField("Unit_Of_Weight_Measurement"));
        out.unitOfAge = AsText(h.getField("Unit_Of_Age_Measurement"));
        Records rs = store.openRecords("SELECT * FROM [CAA_Measures]");
        for (; !rs.endOfRecords(); rs.moveNext())
            out.rows.push_back(Triple(rs, "Age", "Catch", "WF"));
    });
    return ok ? out : CaaData{};
}

LaaData ReadLAA(const std::string& path, Session& session, DialogService& dialogs) {
    LaaData out;
    const bool ok = ReadWith(path, "LAA", session, dialogs, [&](DataStore& store, Records& h) {
        out.unitOfAge = AsText(h.getField("Unit_Of_Age_Measurement"));
        Records rs = store.openRecords("SELECT * FROM [LAA_Measures]");
        for (; !rs.endOfRecords(); rs.moveNext())
            out.rows.push_back(Triple(rs, "Age", "Length", "WF"));
    });
    return ok ? out : LaaData{};
}

}  // namespace norvo
