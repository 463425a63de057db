#pragma once
// A length-frequency image built in memory for the catch curve tests.
#include <cstdint>
#include <vector>

#include "data/lfq_data.h"

namespace norvo::test {

// One sample (or several, one column each) with the given frequencies by class; days default to
// the 15th and months to one per sample from January.
inline LfqData MakeLfq(double firstMid, double w, const std::vector<std::vector<double>>& samples,
                       std::vector<int16_t> days = {}, std::vector<int16_t> months = {}) {
    LfqData d;
    d.smallestMl = firstMid;
    d.classInterval = w;
    d.noOfSamples = static_cast<int32_t>(samples.size());
    d.noOfClasses = static_cast<int32_t>(samples.front().size());
    d.freq.assign(samples.front().size(), std::vector<double>(samples.size()));
    for (size_t s = 0; s < samples.size(); ++s)
        for (size_t c = 0; c < samples[s].size(); ++c) d.freq[c][s] = samples[s][c];
    for (size_t s = 0; s < samples.size(); ++s) {
        d.day.push_back(s < days.size() ? days[s] : 15);
        d.month.push_back(s < months.size() ? months[s] : static_cast<int16_t>(s % 12 + 1));
        d.year.push_back(2001);
    }
    return d;
}

}  // namespace norvo::test
