#pragma once
// Small grouped files for the sample tools' tests, in memory and on disk.
#include <string>
#include <vector>

#include "data/lfq_data.h"
#include "data/lfq_file.h"
#include "samples/sample_tools.h"
#include "support/lfq_fixtures.h"

namespace norvo::test {

// freqBySample[s][c]; samples dated 1/1, 1/2, ... of 2020.
inline LfqData MakeData(double smallest, double interval,
                        const std::vector<std::vector<double>>& freqBySample,
                        const std::string& remarks = "r") {
    LfqData d;
    d.speciesname = "Sp";
    d.otherId = "id";
    d.unitOfMeasurement = "cm";
    d.remarks = remarks;
    d.smallestMl = static_cast<float>(smallest);
    d.classInterval = static_cast<float>(interval);
    d.noOfSamples = static_cast<int>(freqBySample.size());
    d.noOfClasses = freqBySample.empty() ? 0 : static_cast<int>(freqBySample[0].size());
    d.largestMl = d.midlength(d.noOfClasses - 1);
    for (int s = 0; s < d.noOfSamples; ++s) {
        d.day.push_back(1);
        d.month.push_back(static_cast<int16_t>(s + 1));
        d.year.push_back(2020);
    }
    d.freq = ByClass(freqBySample);
    return d;
}

inline std::vector<LfqSample> RecordsOf(const LfqData& d) {
    std::vector<LfqSample> out;
    for (int s = 0; s < d.noOfSamples; ++s)
        out.push_back(SampleOn(s + 1, d.day[s], d.month[s], d.year[s]));
    return out;
}

// freq of one sample of a table, by class.
inline std::vector<double> Column(const LfqTable& t, int s) {
    std::vector<double> out;
    for (const auto& row : t.freq) out.push_back(row[s]);
    return out;
}

inline double Sum(const std::vector<double>& v) {
    double s = 0;
    for (double x : v) s += x;
    return s;
}

inline std::string RefusalText(const Outcome& o) {
    return o.refusal() ? o.refusal()->text : "";
}

}  // namespace norvo::test
