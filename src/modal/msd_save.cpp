#include "modal/msd_save.h"

#include <cctype>

#include "base/checked.h"
#include "data/data_store.h"
#include "data/store_routines.h"

namespace norvo {

std::string MsdSavedText(int sample, bool last) {
    return "Parameters for sample " + std::to_string(sample) + " were saved to the file. " +
           (last ? "All samples have been processed." : "Do you want to proceed to next sample?");
}

std::string MsdDuplicateText(const std::string& path) {
    return "A duplicate data file was saved to " + path;
}

std::string MsdPathOf(const std::string& lfqPath) {
    const auto dot = lfqPath.find_last_of('.');
    const auto slash = lfqPath.find_last_of("/\\");
    const bool hasExt = dot != std::string::npos && (slash == std::string::npos || dot > slash);
    const std::string stem = hasExt ? lfqPath.substr(0, dot) : lfqPath;
    const bool lower = hasExt && dot + 1 < lfqPath.size() &&
                       std::islower(static_cast<unsigned char>(lfqPath.back()));
    return stem + (lower ? ".msd" : ".MSD");
}

namespace {

std::string DateWhere(int day, int month, int year) {
    return " WHERE [DateDay] = " + std::to_string(day) +
           " AND [DateMonth] = " + std::to_string(month) +
           " AND [DateYear] = " + std::to_string(year) + ";";
}

}  // namespace

bool SaveMsdSample(const std::string& msdPath, const std::string& programFolder,
                   const LfqData& data, int sample, const std::vector<MsdComponent>& components,
                   DialogService& dialogs) {
    if (!FileExists(msdPath) && !CreateFromTemplate(msdPath, programFolder, dialogs)) return false;
    const auto s = static_cast<size_t>(sample - 1);
    const int day = data.day.at(s), month = data.month.at(s), year = data.year.at(s);
    AtomicRewrite(msdPath, [&](const std::string& work) {
        SaveInTransaction(work, [&](DataStore& store) {
            store.execute("DELETE * FROM [MSD];");
            Records head = store.openRecords("MSD");
            head.addNew();
            head.setField("Speciesname", data.speciesname);
            head.setField("Other_ID", data.otherId);
            head.setField("Unit_Of_Measurement", data.unitOfMeasurement);
            head.setField("Type_Of_Measurement", data.typeOfMeasurement);
            head.setField("Remarks", data.remarks + kMsdRemarksSuffix);
            head.update();
            head.close();
            store.execute("DELETE * FROM [MSD_Measures]" + DateWhere(day, month, year));
            Records rs = store.openRecords("MSD_Measures");
            for (const MsdComponent& c : components) {
                rs.addNew();
                rs.setField("DateDay", int64_t{day});
                rs.setField("DateMonth", int64_t{month});
                rs.setField("DateYear", int64_t{year});
                rs.setField("Length", static_cast<double>(c.mean));
                rs.setField("SD", static_cast<double>(c.sd));
                rs.setField("Population", static_cast<double>(c.population));
                rs.update();
            }
            rs.close();
        });
    });
    return true;
}

void DeleteMsdDate(const std::string& msdPath, int day, int month, int year) {
    AtomicRewrite(msdPath, [&](const std::string& work) {
        SaveInTransaction(work, [&](DataStore& store) {
            store.execute("DELETE * FROM [MSD_Measures]" + DateWhere(day, month, year));
        });
    });
}

std::vector<MsdRow> StoredRows(const MsdData& msd, const LfqData& data, int sample) {
    std::vector<MsdRow> rows;
    const auto s = static_cast<size_t>(sample - 1);
    if (sample < 1 || s >= data.day.size()) return rows;
    for (const MsdRow& r : msd.rows)
        if (r.day == data.day[s] && r.month == data.month[s] && r.year == data.year[s])
            rows.push_back(r);
    return rows;
}

}  // namespace norvo
