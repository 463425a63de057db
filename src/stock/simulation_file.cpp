#include "stock/simulation_file.h"

#include <ctime>
#include <filesystem>
#include <fstream>

#include "base/checked.h"
#include "data/data_store.h"
#include "data/lfq_file.h"
#include "data/store_routines.h"

namespace norvo {

std::string SimulationDateText() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return FormatSampleDate(local.tm_mday, local.tm_mon + 1, local.tm_year + 1900);
}

void SaveLF(const std::string& path, const std::string& programFolder, const LengthFreqTable& table,
            const std::vector<SimSampleDate>& dates, const std::string& generatedOn) {
    LfqHeader header;
    header.speciesname = kSimSpeciesName;
    header.otherId = kSimOtherIdPrefix + generatedOn;
    header.unitOfMeasurement = kSimUnit;
    header.typeOfMeasurement = kSimMeasurement;
    header.remarks = kSimRemarks;
    header.path = path;
    // The file stores both as 32-bit floats; the measures are computed from the stored values.
    header.smallestMl = R4(table.smallestMl);
    header.classInterval = R4(table.classInterval);
    header.noOfClasses = table.classes;
    header.noOfSamples = static_cast<int32_t>(dates.size());
    header.largestMl = (table.classes - 1) * header.classInterval + header.smallestMl;

    std::vector<LfqSample> samples;
    for (size_t j = 0; j < dates.size(); ++j) {
        LfqSample s;
        s.sampleNo = static_cast<int16_t>(j + 1);
        s.samplingDay = static_cast<int16_t>(dates[j].day);
        s.samplingMonth = static_cast<int16_t>(dates[j].month);
        s.samplingYear = dates[j].year;
        samples.push_back(s);
    }

    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    std::error_code ec;
    if (!folder.empty() && !std::filesystem::exists(folder, ec))
        std::filesystem::create_directories(folder, ec);
    AtomicRewriteFromTemplate(path, programFolder, [&](const std::string& work) {
        WriteLfqFile(work, header, samples, table.freq);
    });
}

namespace {

// Whether a file can be written at `path`: its folder exists (it is made when missing) and takes
// a new file, and the path itself is not a folder. A probe file is made and removed.
bool CanWriteAt(const std::string& path) {
    namespace fs = std::filesystem;
    std::error_code ec;
    const fs::path target(path);
    fs::path folder = target.parent_path();
    if (folder.empty()) folder = ".";
    if (!fs::exists(folder, ec)) fs::create_directories(folder, ec);
    if (!fs::is_directory(folder, ec) || fs::is_directory(target, ec)) return false;
    const fs::path probe = folder / (".norvo-probe-" + target.filename().string());
    {
        std::ofstream out(probe);
        if (!out) return false;
    }
    fs::remove(probe, ec);
    return true;
}

}  // namespace

SimulationRun RunSimulation(const SimulationInputs& in, const std::string& stockPath,
                            const std::string& catchPath, const std::string& programFolder) {
    SimulationRun run;
    if (auto problem = CheckSimulationInputs(in)) {
        run.refuse(problem->text, problem->title, Icon::Warning);
        return run;
    }
    run.result = Simulate(in);
    const std::string today = SimulationDateText();
    const std::pair<const std::string*, SimSet> files[] = {{&stockPath, SimSet::Stock},
                                                           {&catchPath, SimSet::Catch}};
    // Both places are checked before either file is written: a bad second path must not leave
    // the first file replaced.
    for (const auto& [path, set] : files) {
        if (!CanWriteAt(*path)) {
            run.refuse(kFileSaveError, kSimSaveFailedTitle, Icon::Critical);
            return run;
        }
    }
    for (const auto& [path, set] : files) {
        try {
            SaveLF(*path, programFolder, LengthFreq(run.result, set), run.result.dates, today);
        } catch (const StoreError&) {
            run.refuse(kFileSaveError, kSimSaveFailedTitle, Icon::Critical);
            return run;
        }
        run.note(kSimSavedPrefix + *path, kSimSavedTitle, Icon::Information);
    }
    run.note(kSimDoneText, kSimDoneTitle, Icon::Information);
    return run;
}

}  // namespace norvo
