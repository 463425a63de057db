#include "samples/raise.h"

#include "base/checked.h"
#include "numerics/validators.h"
#include "samples/adjust_smooth.h"

namespace norvo {

std::string RaiseNoFishText(int sampleNo) {
    return kRaiseNoFishPrefix + std::to_string(sampleNo) + kRaiseNoFishSuffix;
}

RaiseFactors ComputeRaiseFactors(const LfqData& data, const std::vector<LfqSample>& samples,
                                 const std::vector<bool>& selected, RaiseOption option,
                                 double constant) {
    RaiseFactors r;
    if (option == RaiseOption::Constant &&
        !InRange(constant, kRaiseConstantMin, kRaiseConstantMax)) {
        r.refuse(kRaiseConstantText, kInvalidDataTitle);
        return r;
    }
    for (int s = 0; s < data.noOfSamples; ++s) {
        if (!selected.at(s)) {
            r.factor.push_back(1.0);
            continue;
        }
        const LfqSample& rec = samples.at(s);
        double total = 0;
        for (int c = 0; c < data.noOfClasses; ++c) total += data.freq[c][s];
        double f = 1.0;
        switch (option) {
            case RaiseOption::CatchPerWeight:
                if (rec.twtCatch == 0 || rec.wtSample == 0) {
                    r.refuse(kRaiseZeroWeightText, kRaiseZeroTitle);
                    return r;
                }
                f = Div(rec.twtCatch, rec.wtSample);
                break;
            case RaiseOption::CatchPerEffort:
                if (rec.twtCatch == 0 || rec.effort == 0) {
                    r.refuse(kRaiseZeroEffortText, kRaiseZeroTitle);
                    return r;
                }
                f = Div(rec.twtCatch, rec.effort);
                break;
            case RaiseOption::Constant:
                f = constant;
                break;
            case RaiseOption::PercentOfTotal:
            case RaiseOption::SqrtOfTotal:
                if (!(total > 0)) {
                    r.refuse(RaiseNoFishText(s + 1), kRaiseZeroTitle);
                    return r;
                }
                f = option == RaiseOption::PercentOfTotal ? 1.0 / total : 1.0 / Sqrt(total);
                break;
        }
        r.factor.push_back(f);
    }
    return r;
}

SampleFileRun RaiseData(const LfqData& data, const std::vector<LfqSample>& samples,
                        const std::vector<bool>& selected, RaiseOption option, double constant) {
    SampleFileRun run;
    RaiseFactors factors = ComputeRaiseFactors(data, samples, selected, option, constant);
    run.absorb(factors);
    if (!run.ok()) return run;
    LfqTable& t = run.table;
    t.header = HeaderFrom(data, data.remarks + kRaiseRemarksSuffix, data.smallestMl,
                          data.classInterval, data.noOfClasses);
    t.header.noOfSamples = data.noOfSamples;
    t.samples = samples;
    t.freq = data.freq;
    for (auto& row : t.freq)
        for (int s = 0; s < data.noOfSamples; ++s) row[s] = CheckFinite(row[s] * factors.factor[s]);
    return run;
}

SampleFileRun RunRaise(const RaiseOptions& o, const std::string& programFolder) {
    SampleFileRun run;
    SourceRead src = ReadSource(o.source, o.destination,
                                {kSmInvalidActionTitle, kRaisePathsText, kSourceNotFoundText});
    run.absorb(src);
    if (!run.ok()) return run;
    std::vector<bool> selected(src.data.noOfSamples, o.samples.empty());
    for (int n : o.samples) {
        if (n < 1 || n > src.data.noOfSamples) {
            run.refuse("There is no sample " + std::to_string(n) + " in the source file.",
                       kInvalidDataTitle);
            return run;
        }
        selected[n - 1] = true;
    }
    run = RaiseData(src.data, src.samples, selected, o.option, o.constant);
    if (!run.ok()) return run;
    run.table.header.path = o.destination;
    SaveWithNotice(run, o.destination, programFolder, kRaiseSavedPrefix + o.destination,
                   kDataSavedTitle);
    return run;
}

}  // namespace norvo
