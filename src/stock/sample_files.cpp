#include "stock/sample_files.h"

#include <cmath>
#include <filesystem>

#include "base/checked.h"
#include "base/format.h"
#include "data/data_store.h"
#include "data/store_routines.h"
#include "stock/simulation_file.h"

namespace norvo {

namespace {

// Separate streams from the length frequencies' run, so those files stay as they are.
constexpr uint64_t kTaggingStream = 0x7461676bULL;
constexpr uint64_t kAgeStream = 0x61676573ULL;

std::string DateText(const SimSampleDate& d) {
    return Format(d.year, "0000") + "-" + Format(d.month, "00") + "-" + Format(d.day, "00");
}

SimSampleDate MonthsLater(const SimSampleDate& d, int months) {
    const int m = d.month - 1 + months;
    return {kSimSampleDay, m % 12 + 1, d.year + m / 12};
}

double YearsOf(const SimSampleDate& d) {
    static constexpr int kDaysBefore[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    return d.year + (kDaysBefore[d.month - 1] + d.day) / 365.0;
}

void Prepare(const std::string& path) {
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    std::error_code ec;
    if (!folder.empty()) std::filesystem::create_directories(folder, ec);
}

void WriteHeader(DataStore& store, const std::string& table,
                 const std::vector<std::pair<std::string, FieldValue>>& fields) {
    store.execute("DELETE * FROM [" + table + "];");
    Records rs = store.openRecords(table);
    rs.addNew();
    for (const auto& [name, value] : fields) rs.setField(name, value);
    rs.update();
    rs.close();
}

}  // namespace

double ReadToTenth(double length) {
    return std::round(length * 10) / 10;
}

std::vector<TagRecord> SimulateTagging(const SimulationInputs& in, int fish) {
    SimRandom rng(static_cast<uint64_t>(in.seed) ^ kTaggingStream);
    const std::vector<SimSampleDate> dates = SimulationDates(in);
    std::vector<TagRecord> out;
    for (int i = 0; i < fish && !dates.empty(); ++i) {
        const FishParams p = DrawFishParams(rng, in);
        const double birth = BirthDay(rng, in.recruitment);
        const auto pick = static_cast<size_t>(rng.Uniform() * static_cast<double>(dates.size()));
        const double ageAtRelease = 0.3 + 1.2 * rng.Uniform();
        const int months = 1 + static_cast<int>(rng.Uniform() * 9);
        TagRecord r;
        r.release = dates[std::min(pick, dates.size() - 1)];
        r.recapture = MonthsLater(r.release, months);
        const double atLiberty = YearsOf(r.recapture) - YearsOf(r.release);
        r.length1 = ReadToTenth(LengthAtAge(p, birth, ageAtRelease));
        r.length2 = ReadToTenth(LengthAtAge(p, birth, ageAtRelease + atLiberty));
        out.push_back(r);
    }
    return out;
}

std::vector<AgeLengthRecord> SimulateAgeLength(const SimulationInputs& in, int fish) {
    SimRandom rng(static_cast<uint64_t>(in.seed) ^ kAgeStream);
    std::vector<AgeLengthRecord> out;
    for (int i = 0; i < fish; ++i) {
        const FishParams p = DrawFishParams(rng, in);
        const double birth = BirthDay(rng, in.recruitment);
        const double age = std::round((0.25 + 2.75 * rng.Uniform()) * 100) / 100;
        out.push_back({age, ReadToTenth(LengthAtAge(p, birth, age))});
    }
    return out;
}

void SaveTagging(const std::string& path, const std::string& programFolder,
                 const std::vector<TagRecord>& records, const std::string& generatedOn) {
    Prepare(path);
    AtomicRewriteFromTemplate(path, programFolder, [&](const std::string& work) {
        SaveInTransaction(work, [&](DataStore& store) {
            WriteHeader(store, "GIN",
                        {{"Speciesname", std::string(kSimSpeciesName)},
                         {"Other_ID", kSimOtherIdPrefix + generatedOn},
                         {"Unit_Of_Measurement", std::string(kSimUnit)},
                         {"Type_Of_Measurement", std::string(kSimMeasurement)},
                         {"Remarks", std::string(kSimRemarks)}});
            store.execute("DELETE * FROM [GIN_Measures];");
            Records rs = store.openRecords("GIN_Measures");
            for (const TagRecord& r : records) {
                rs.addNew();
                rs.setField("Day1", int64_t{r.release.day});
                rs.setField("Month1", int64_t{r.release.month});
                rs.setField("Year1", int64_t{r.release.year});
                rs.setField("Length1", static_cast<double>(R4(r.length1)));
                rs.setField("Day2", int64_t{r.recapture.day});
                rs.setField("Month2", int64_t{r.recapture.month});
                rs.setField("Year2", int64_t{r.recapture.year});
                rs.setField("Length2", static_cast<double>(R4(r.length2)));
                rs.update();
            }
            rs.close();
        });
    });
}

void SaveAgeLength(const std::string& path, const std::string& programFolder,
                   const std::vector<AgeLengthRecord>& records, const SimSampleDate& date,
                   const std::string& generatedOn) {
    Prepare(path);
    AtomicRewriteFromTemplate(path, programFolder, [&](const std::string& work) {
        SaveInTransaction(work, [&](DataStore& store) {
            WriteHeader(store, "LAA",
                        {{"Speciesname", std::string(kSimSpeciesName)},
                         {"Other_ID", kSimOtherIdPrefix + generatedOn},
                         {"Sampling_Date", DateText(date)},
                         {"Unit_Of_Length_Measurement", std::string(kSimUnit)},
                         {"Type_Of_Measurement", std::string(kSimMeasurement)},
                         {"Unit_Of_Age_Measurement", std::string(kSimAgeUnit)},
                         {"Remarks", std::string(kSimRemarks)}});
            store.execute("DELETE * FROM [LAA_Measures];");
            Records rs = store.openRecords("LAA_Measures");
            for (const AgeLengthRecord& r : records) {
                rs.addNew();
                rs.setField("Age", static_cast<double>(R4(r.age)));
                rs.setField("Length", static_cast<double>(R4(r.length)));
                rs.setField("WF", 1.0);
                rs.update();
            }
            rs.close();
        });
    });
}

void SaveUngrouped(const std::string& path, const std::string& programFolder,
                   const std::vector<double>& lengths, const SimSampleDate& date,
                   const std::string& generatedOn) {
    Prepare(path);
    AtomicRewriteFromTemplate(path, programFolder, [&](const std::string& work) {
        SaveInTransaction(work, [&](DataStore& store) {
            WriteHeader(store, "Ungrouped_LF",
                        {{"Speciesname", std::string(kSimSpeciesName)},
                         {"Other_ID", kSimOtherIdPrefix + generatedOn},
                         {"Sampling_Date", DateText(date)},
                         {"Unit_Of_Measurement", std::string(kSimUnit)},
                         {"Type_Of_Measurement", std::string(kSimMeasurement)},
                         {"Remarks", std::string(kSimRemarks)}});
            store.execute("DELETE * FROM [ULF_Measures];");
            Records rs = store.openRecords("ULF_Measures");
            for (double length : lengths) {
                rs.addNew();
                rs.setField("Measure", static_cast<double>(R4(ReadToTenth(length))));
                rs.update();
            }
            rs.close();
        });
    });
}

}  // namespace norvo
