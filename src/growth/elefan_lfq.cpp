#include "growth/elefan_lfq.h"

#include "base/checked.h"
#include "base/fault.h"

namespace norvo {

Outcome CheckElefanFile(const LfqData& data) {
    Outcome o;
    for (const auto& row : data.freq)
        for (double f : row)
            if (f != 0) return o;
    o.refuse(kElefanNoFishText, kInvalidDataTitle);
    return o;
}

ElefanInput ElefanInputFromLfq(const LfqData& data) {
    ElefanInput in;
    in.nS = data.noOfSamples;
    in.nC = data.noOfClasses;
    in.firstMid = R4(data.smallestMl);
    in.ci = R4(data.classInterval);
    if (in.nS < 0 || in.nC < 0 || data.day.size() < static_cast<size_t>(in.nS) ||
        data.month.size() < static_cast<size_t>(in.nS) ||
        data.freq.size() < static_cast<size_t>(in.nC)) {
        throw SubscriptFault("ElefanInputFromLfq");
    }
    in.day.assign(data.day.begin(), data.day.begin() + in.nS);
    in.month.assign(data.month.begin(), data.month.begin() + in.nS);
    in.freq.resize(static_cast<size_t>(in.nS) * static_cast<size_t>(in.nC));
    for (int c = 0; c < in.nC; ++c) {
        const auto& row = data.freq[static_cast<size_t>(c)];
        if (row.size() < static_cast<size_t>(in.nS)) throw SubscriptFault("ElefanInputFromLfq");
        for (int s = 0; s < in.nS; ++s) {
            in.freq[static_cast<size_t>(s) * in.nC + c] = R4(row[static_cast<size_t>(s)]);
        }
    }
    return in;
}

}  // namespace norvo
