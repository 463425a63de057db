#include "samples/merge_pool.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "base/basic.h"
#include "base/checked.h"
#include "base/format.h"
#include "data/data_store.h"
#include "data/lfq_file.h"

namespace norvo {

namespace {

constexpr double kGridTolerance = 1e-4;

int64_t DateKey(const LfqSample& s) {
    return (static_cast<int64_t>(s.samplingYear) * 100 + s.samplingMonth) * 100 + s.samplingDay;
}

bool IsValidDate(int d, int m, int y) {
    if (y < 1 || y > 9999 || m < 1 || m > 12 || d < 1) return false;
    static const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
    return d <= days[m - 1] + (m == 2 && leap ? 1 : 0);
}

}  // namespace

bool GridsCompatible(float interval1, float smallest1, float interval2, float smallest2) {
    if (!(interval1 > 0) || !(interval2 > 0)) return false;
    if (std::fabs(static_cast<double>(interval1) - interval2) > kGridTolerance * interval1)
        return false;
    const double q = std::fabs(static_cast<double>(smallest1) - smallest2) / interval1;
    return std::fabs(q - std::round(q)) <= kGridTolerance;
}

SampleFileRun MergeData(const LfqData& a, const std::vector<LfqSample>& samplesA, const LfqData& b,
                        const std::vector<LfqSample>& samplesB) {
    SampleFileRun run;
    const float ia = R4(a.classInterval), ib = R4(b.classInterval);
    const float sa = R4(a.smallestMl), sb = R4(b.smallestMl);
    if (!GridsCompatible(ia, sa, ib, sb)) {
        run.refuse(kMergeIncompatibleText, kInvalidDataTitle);
        return run;
    }
    const double smallest = std::min(sa, sb);
    const double largestA = (a.noOfClasses - 1) * static_cast<double>(ia) + sa;
    const double largestB = (b.noOfClasses - 1) * static_cast<double>(ia) + sb;
    const int classes = CLng((std::max(largestA, largestB) - smallest) / ia) + 1;
    const int nA = a.noOfSamples, nB = b.noOfSamples;

    // Columns of `a` then `b`, each frequency in the row of its midlength.
    std::vector<std::vector<double>> grid(classes, std::vector<double>(nA + nB, 0.0));
    auto place = [&](const LfqData& d, float start, int firstCol) {
        const int offset = CLng((start - smallest) / ia);
        for (int c = 0; c < d.noOfClasses; ++c)
            for (int s = 0; s < d.noOfSamples; ++s) grid[offset + c][firstCol + s] = d.freq[c][s];
    };
    place(a, sa, 0);
    place(b, sb, nA);

    std::vector<LfqSample> records = samplesA;
    for (LfqSample s : samplesB) {
        s.sampleNo = static_cast<int16_t>(s.sampleNo + nA);
        records.push_back(std::move(s));
    }
    // Date order; equal dates stay in file order, so they end up adjacent.
    std::vector<int> order(records.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](int x, int y) { return DateKey(records[x]) < DateKey(records[y]); });

    LfqTable& t = run.table;
    t.header =
        HeaderFrom(a, kMergeRemarksPrefix + a.remarks + "; " + b.remarks, smallest, ia, classes);
    t.freq.assign(classes, std::vector<double>(order.size(), 0.0));
    for (size_t k = 0; k < order.size(); ++k) {
        LfqSample s = records[order[k]];
        s.sampleNo = static_cast<int16_t>(k + 1);
        t.samples.push_back(std::move(s));
        for (int c = 0; c < classes; ++c) t.freq[c][k] = grid[c][order[k]];
    }
    t.header.noOfSamples = static_cast<int32_t>(order.size());
    return run;
}

SampleFileRun RunMerge(const MergeOptions& o, const std::string& programFolder) {
    SampleFileRun run;
    PathTexts texts{kSmInvalidActionTitle, kCompleteTheInputsText, kMergeMissingText};
    run.absorb(CheckPaths({o.first, o.second}, o.destination, texts));
    if (!run.ok()) return run;
    SourceRead a = ReadSource(o.first, o.destination, texts);
    SourceRead b = a.ok() ? ReadSource(o.second, o.destination, texts) : a;
    for (const SourceRead* r : {&a, &b}) {
        if (!r->ok()) {
            run.absorb(*r);
            return run;
        }
    }
    run = MergeData(a.data, a.samples, b.data, b.samples);
    if (!run.ok()) return run;
    run.table.header.path = o.destination;
    SaveWithNotice(run, o.destination, programFolder,
                   kMergeDonePrefix + o.destination + kMergeDoneSuffix, kDoneTitle);
    return run;
}

std::string PoolListEntry(int sampleNo, int day, int month, int year) {
    return "Sample " + std::to_string(sampleNo) + " (" + Format(day, "00") + "/" +
           Format(month, "00") + "/" + Format(year, "0000") + ")";
}

std::string PoolDateHeading(int day, int month, int year) {
    return Format(day, "00") + "/" + Format(month, "00") + "/" + Format(year, "000");
}

Outcome PoolState::pool(const std::vector<int>& selected, int day, int month, int year) {
    Outcome out;
    for (int s : selected) {
        if (s < 0 || s >= sampleCount()) throw SubscriptFault("PoolState::pool");
        if (pooled_[s]) {
            out.refuse(kPoolPreviouslyPooledText, kPoolPreviouslyPooledTitle);
            return out;
        }
    }
    if (selected.empty()) {
        out.refuse(kPoolNoSamplesText, kPoolPreviouslyPooledTitle);
        return out;
    }
    if (!IsValidDate(day, month, year)) {
        out.refuse(kPoolBadDateText, kInvalidDataTitle);
        return out;
    }
    for (int s : selected) pooled_[s] = true;
    pools_.push_back({selected, day, month, year});
    return out;
}

SampleFileRun PoolData(const LfqData& data, const std::vector<PoolSpec>& pools) {
    SampleFileRun run;
    PoolState state(data.noOfSamples);
    for (const PoolSpec& p : pools) {
        run.absorb(state.pool(p.samples, p.day, p.month, p.year));
        if (!run.ok()) return run;
    }
    struct Column {
        std::vector<int> samples;
        int day, month, year;
    };
    std::vector<Column> cols;
    for (int s = 0; s < data.noOfSamples; ++s)
        if (!state.isPooled(s)) cols.push_back({{s}, data.day[s], data.month[s], data.year[s]});
    for (const PoolSpec& p : pools) cols.push_back({p.samples, p.day, p.month, p.year});

    LfqTable& t = run.table;
    t.header = HeaderFrom(data, data.remarks + kPoolRemarksSuffix, data.smallestMl,
                          data.classInterval, data.noOfClasses);
    t.header.noOfSamples = static_cast<int32_t>(cols.size());
    t.freq.assign(data.noOfClasses, std::vector<double>(cols.size(), 0.0));
    for (size_t k = 0; k < cols.size(); ++k) {
        LfqSample rec;  // dates only
        rec.sampleNo = static_cast<int16_t>(k + 1);
        rec.samplingDay = static_cast<int16_t>(cols[k].day);
        rec.samplingMonth = static_cast<int16_t>(cols[k].month);
        rec.samplingYear = cols[k].year;
        t.samples.push_back(rec);
        for (int c = 0; c < data.noOfClasses; ++c) {
            float sum = 0;  // the grid's cells are 32-bit
            for (int s : cols[k].samples) sum = R4(static_cast<double>(sum) + data.freq[c][s]);
            t.freq[c][k] = CutTwoDecimals(sum);
        }
    }
    return run;
}

SampleFileRun RunPool(const PoolOptions& o, const std::string& programFolder) {
    SampleFileRun run;
    SourceRead src = ReadSource(o.source, o.destination);
    run.absorb(src);
    if (!run.ok()) return run;
    run = PoolData(src.data, o.pools);
    if (!run.ok()) return run;
    run.table.header.path = o.destination;
    SaveWithNotice(run, o.destination, programFolder, kPoolSavedPrefix + o.destination,
                   kDataSavedTitle);
    return run;
}

}  // namespace norvo
