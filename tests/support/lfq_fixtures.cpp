#include "support/lfq_fixtures.h"

#include <filesystem>

#include "data/data_store.h"
#include "data/lfq_file.h"

namespace norvo::test {

namespace fs = std::filesystem;

std::string NewLfq(const TempDir& dir, const std::string& name) {
    const std::string path = dir.file(name);
    fs::copy_file(BinDir() / "Templates" / "Template.LFQ", path);
    return path;
}

LfqHeader LfqHeaderOf(const std::string& species, const std::string& unit, float smallestMl,
                      float classInterval, const std::string& typeOfMeasurement) {
    LfqHeader h;
    h.speciesname = species;
    h.unitOfMeasurement = unit;
    h.typeOfMeasurement = typeOfMeasurement;
    h.smallestMl = smallestMl;
    h.classInterval = classInterval;
    return h;
}

LfqSample SampleOn(int no, int day, int month, int year) {
    LfqSample s;
    s.sampleNo = static_cast<int16_t>(no);
    s.samplingDay = static_cast<int16_t>(day);
    s.samplingMonth = static_cast<int16_t>(month);
    s.samplingYear = year;
    return s;
}

std::vector<LfqSample> MonthlySamples(int n, int day, int firstYear) {
    std::vector<LfqSample> out;
    for (int s = 0; s < n; ++s) out.push_back(SampleOn(s + 1, day, s % 12 + 1, firstYear + s / 12));
    return out;
}

std::vector<std::vector<double>> ByClass(const std::vector<std::vector<double>>& bySample) {
    const size_t classes = bySample.empty() ? 0 : bySample.front().size();
    std::vector<std::vector<double>> freq(classes, std::vector<double>(bySample.size()));
    for (size_t s = 0; s < bySample.size(); ++s)
        for (size_t c = 0; c < classes; ++c) freq[c][s] = bySample[s].at(c);
    return freq;
}

std::string MakeLfqFile(const std::string& path, const LfqHeader& header,
                        const std::vector<LfqSample>& samples,
                        const std::vector<std::vector<double>>& freqByClass) {
    fs::copy_file(BinDir() / "Templates" / "Template.LFQ", path,
                  fs::copy_options::overwrite_existing);
    WriteLfqFile(path, header, samples, freqByClass);
    return path;
}

std::vector<std::string> DumpTable(const std::string& path, const std::string& table) {
    DataStore store = DataStore::open(path);
    Records rs = store.openRecords(table);
    std::vector<std::string> out;
    for (; !rs.endOfRecords(); rs.moveNext()) {
        std::string line;
        for (const auto& f : rs.fieldNames()) line += AsText(rs.getField(f)) + "|";
        out.push_back(line);
    }
    return out;
}

}  // namespace norvo::test
