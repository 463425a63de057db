#include "samples/sample_weight.h"

#include "base/checked.h"
#include "data/data_store.h"
#include "data/lfq_file.h"
#include "data/store_routines.h"
#include "samples/sample_tools.h"

namespace norvo {

std::string NamingSample(const char* text, int sampleNo) {
    return text + std::string(" (sample ") + std::to_string(sampleNo) + ")";
}

double ClassMeanWeight(double a, double b, double lower, double width) {
    const double p = b + 1;
    return Div(a, p * width) * (Pow(lower + width, p) - Pow(lower, p));
}

SampleWeightResult ComputeSampleWeights(const LfqData& data,
                                        const std::vector<LfqSample>& samples) {
    SampleWeightResult r;
    const double w = data.classInterval;
    r.smallestMl = data.smallestMl;
    r.classInterval = w;
    r.meanWeight.assign(data.noOfClasses, std::vector<double>(data.noOfSamples, 0.0));
    for (int s = 0; s < data.noOfSamples; ++s) {
        const LfqSample& rec = samples.at(s);
        if (!(rec.lwA > 0)) {
            r.refuse(NamingSample(kSwInvalidAText, s + 1), kInvalidDataTitle);
            return r;
        }
        if (!(rec.lwB > 0)) {
            r.refuse(NamingSample(kSwInvalidBText, s + 1), kInvalidDataTitle);
            return r;
        }
        SampleWeightRow row{data.day[s], data.month[s], data.year[s]};
        for (int c = 0; c < data.noOfClasses; ++c) {
            const double mw = ClassMeanWeight(rec.lwA, rec.lwB, data.midlength(c) - w / 2, w);
            r.meanWeight[c][s] = mw;
            row.sumF += data.freq[c][s];
            row.weight += data.freq[c][s] * mw;
        }
        row.meanWeight = row.sumF > 0 ? row.weight / row.sumF : 0.0;
        r.samples.push_back(row);
    }
    return r;
}

SampleWeightResult RunSampleWeight(const std::string& path) {
    SampleWeightResult r;
    if (!FileExists(path)) {
        r.refuse(kSourceNotFoundText, kSourceNotFoundTitle);
        return r;
    }
    auto data = ReadLFQ(path);
    if (!data) {
        const UserNotice& n = data.error().notice;
        r.refuse(n.text, n.title, n.icon);
        return r;
    }
    std::vector<LfqSample> samples = SampleRecordsOf(path, *data);
    r = ComputeSampleWeights(*data, samples);
    if (!r.ok()) return r;
    for (size_t s = 0; s < samples.size(); ++s) samples[s].wtSample = R4(r.samples[s].weight);
    try {
        AtomicRewrite(path, [&](const std::string& work) {
            const StoreSaving saving;
            WriteSampleHeaders(work, samples);
        });
    } catch (const StoreError&) {
        r.refuse(kFileSaveFailedText, kSaveFailedTitle, Icon::Critical);
        return r;
    }
    r.note(kSwDoneText, kSwDoneTitle, Icon::Information);
    return r;
}

}  // namespace norvo
