#include "samples/adjust_smooth.h"

#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "data/lfq_file.h"
#include "numerics/validators.h"

namespace norvo {

SampleFileRun AdjustData(const LfqData& data, const std::vector<LfqSample>& samples,
                         double newInterval) {
    SampleFileRun run;
    if (!InRange(newInterval, kAdjustMinSize, kAdjustMaxSize)) {
        run.refuse(kAdjustInvalidSizeText, kAdjustInvalidSizeTitle);
        return run;
    }
    const double oldInterval = data.classInterval;
    const double newSmallest = data.smallestMl - oldInterval / 2 + newInterval / 2;
    const double newLow = newSmallest - newInterval / 2;
    // Enough rows to cover the source's range, with a spare one at each end.
    const double span = data.noOfClasses * oldInterval;
    const int capacity = static_cast<int>(std::ceil(Div(span, newInterval))) + 2;

    std::vector<std::vector<double>> cols(data.noOfSamples, std::vector<double>(capacity, 0.0));
    std::vector<bool> touched(capacity, false);
    for (int s = 0; s < data.noOfSamples; ++s) {
        for (int c = 0; c < data.noOfClasses; ++c) {
            const double mid = data.midlength(c);
            Redistribute(data.freq[c][s], mid - oldInterval / 2, mid + oldInterval / 2, newLow,
                         newInterval, cols[s], touched);
        }
    }
    int rows = capacity;
    while (rows > 0 && !touched[rows - 1]) --rows;

    LfqTable& t = run.table;
    t.header = HeaderFrom(data,
                          data.remarks + "; class size adjusted from " + RemarkNumber(oldInterval) +
                              " to " + RemarkNumber(newInterval) + ".",
                          newSmallest, newInterval, rows);
    t.header.noOfSamples = data.noOfSamples;
    t.samples = samples;
    t.freq.assign(rows, std::vector<double>(data.noOfSamples, 0.0));
    for (int c = 0; c < rows; ++c)
        for (int s = 0; s < data.noOfSamples; ++s) t.freq[c][s] = cols[s][c];
    return run;
}

SampleFileRun RunAdjust(const AdjustOptions& o, const std::string& programFolder) {
    SampleFileRun run;
    SourceRead src = ReadSource(o.source, o.destination);
    run.absorb(src);
    if (!run.ok()) return run;
    run = AdjustData(src.data, src.samples, o.newInterval);
    if (!run.ok()) return run;
    run.table.header.path = o.destination;
    SaveWithNotice(run, o.destination, programFolder, kAdjustDonePrefix + o.destination + ".",
                   kDoneTitle);
    return run;
}

SampleFileRun SmoothData(const LfqData& data, const std::vector<LfqSample>& samples, int window) {
    SampleFileRun run;
    if (window != 3 && window != 5) {
        run.refuse(kSmoothBadWindowText, kInvalidDataTitle);
        return run;
    }
    const int rows = data.noOfClasses - window + 1;
    if (rows < 1) {
        run.refuse(kSmoothTooFewText, kInvalidDataTitle);
        return run;
    }
    const double m1 = data.smallestMl;
    const double d = data.classInterval;
    LfqTable& t = run.table;
    t.header =
        HeaderFrom(data, data.remarks + "; File smoothed by " + std::to_string(window) + " classes",
                   m1 + ((window - 1) / 2) * d, d, rows);
    t.header.noOfSamples = data.noOfSamples;
    t.samples = samples;
    t.freq.assign(rows, std::vector<double>(data.noOfSamples, 0.0));
    for (int i = 0; i < rows; ++i) {
        for (int s = 0; s < data.noOfSamples; ++s) {
            double sum = 0;
            for (int k = 0; k < window; ++k) sum += data.freq[i + k][s];
            t.freq[i][s] = sum / window;
        }
    }
    return run;
}

SampleFileRun RunSmooth(const SmoothOptions& o, const std::string& programFolder) {
    SampleFileRun run;
    SourceRead src = ReadSource(o.source, o.destination);
    run.absorb(src);
    if (!run.ok()) return run;
    run = SmoothData(src.data, src.samples, o.window);
    if (!run.ok()) return run;
    run.table.header.path = o.destination;
    SaveWithNotice(run, o.destination, programFolder, kSmoothDonePrefix + o.destination,
                   kDataSavedTitle);
    return run;
}

}  // namespace norvo
