#include "mortality/length_samples.h"

#include "base/checked.h"

namespace norvo {

bool IsSampleSelected(const std::vector<bool>& selected, int s) {
    return selected.empty() || (s >= 0 && s < static_cast<int>(selected.size()) && selected[s]);
}

bool AnySampleSelected(const std::vector<bool>& selected, int noOfSamples) {
    for (int s = 0; s < noOfSamples; ++s)
        if (IsSampleSelected(selected, s)) return true;
    return false;
}

Outcome CheckSampleFrequencies(const LfqData& data, CcTransform kind) {
    Outcome o;
    for (size_t c = 0; c < data.freq.size(); ++c)
        for (size_t s = 0; s < data.freq[c].size(); ++s)
            if (data.freq[c][s] < 0) {
                o.refuse(
                    NegativeFrequencyText(static_cast<int>(s) + 1,
                                          data.midlength(static_cast<int>(c)), data.freq[c][s]),
                    kInvalidDataTitle, Icon::Information);
                return o;
            }
    if (kind == CcTransform::Raw) return o;
    for (int s = 0; s < data.noOfSamples; ++s) {
        double total = 0;
        for (const auto& row : data.freq)
            if (s < static_cast<int>(row.size())) total += row[static_cast<size_t>(s)];
        if (total == 0) {
            o.refuse(EmptySampleText(s + 1), kCcEmptySampleTitle, Icon::Information);
            break;
        }
    }
    return o;
}

std::vector<std::vector<double>> PreparedFrequencies(const LfqData& data, CcTransform kind,
                                                     bool temporal) {
    auto freq = data.freq;
    TransformSamples(freq, kind);
    if (temporal) {
        const auto weights = TemporalWeights(data);
        for (auto& row : freq)
            for (size_t s = 0; s < row.size() && s < weights.size(); ++s) row[s] *= weights[s];
    }
    return freq;
}

std::vector<float> PoolSelectedSamples(const std::vector<std::vector<double>>& freq,
                                       const std::vector<bool>& selected) {
    std::vector<float> pool(freq.size() + 1, 0.f);
    const size_t nS = freq.empty() ? 0 : freq.front().size();
    for (size_t s = 0; s < nS; ++s) {
        if (!IsSampleSelected(selected, static_cast<int>(s))) continue;
        for (size_t c = 0; c < freq.size(); ++c) pool[c + 1] = R4(pool[c + 1] + freq[c][s]);
    }
    return pool;
}

}  // namespace norvo
