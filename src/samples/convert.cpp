#include "samples/convert.h"

#include <algorithm>
#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "samples/adjust_smooth.h"

namespace norvo {

double ConvertFunction::operator()(double x) const {
    if (function == 1) return d * Pow(x, e);
    return d + e * Pow(x, f);
}

double RoundInterval(double span, int classes) {
    const double raw = Div(span, std::max(classes, 1));
    const double decade = std::pow(10.0, std::floor(std::log10(raw)));
    for (double step : {1.0, 2.0, 2.5, 5.0, 10.0})
        if (raw <= step * decade * (1 + 1e-9)) return step * decade;
    return 10 * decade;
}

SampleFileRun ConvertData(const LfqData& data, const std::vector<LfqSample>& samples,
                          const ConvertFunction& fn) {
    SampleFileRun run;
    const double w = data.classInterval;
    const bool fractional = (fn.function == 1 && fn.e != std::floor(fn.e)) ||
                            (fn.function == 2 && fn.f != std::floor(fn.f));
    if (fractional && data.smallestMl - w / 2 < 0) {
        run.refuse(kConvertNegativeText, kInvalidDataTitle);
        return run;
    }
    // Converted limits of each class, low below high.
    std::vector<double> low(data.noOfClasses), high(data.noOfClasses);
    double lowest = 0, highest = 0;
    for (int c = 0; c < data.noOfClasses; ++c) {
        const double a = fn(data.midlength(c) - w / 2);
        const double b = fn(data.midlength(c) + w / 2);
        low[c] = std::min(a, b);
        high[c] = std::max(a, b);
        if (!(high[c] > low[c])) {
            run.refuse(kConvertFlatText, kInvalidDataTitle);
            return run;
        }
        lowest = c == 0 ? low[c] : std::min(lowest, low[c]);
        highest = c == 0 ? high[c] : std::max(highest, high[c]);
    }
    const double interval = RoundInterval(highest - lowest, data.noOfClasses);
    const double gridLow = Int(lowest / interval) * interval;
    const int capacity = static_cast<int>(std::ceil((highest - gridLow) / interval)) + 1;

    std::vector<std::vector<double>> cols(data.noOfSamples, std::vector<double>(capacity, 0.0));
    std::vector<bool> touched(capacity, false);
    for (int s = 0; s < data.noOfSamples; ++s)
        for (int c = 0; c < data.noOfClasses; ++c)
            Redistribute(data.freq[c][s], low[c], high[c], gridLow, interval, cols[s], touched);
    int rows = capacity;
    while (rows > 0 && !touched[rows - 1]) --rows;

    LfqTable& t = run.table;
    t.header = HeaderFrom(data, data.remarks + kConvertRemarksSuffix, gridLow + interval / 2,
                          interval, rows);
    t.header.noOfSamples = data.noOfSamples;
    // The dates go across; the other sample fields belonged to the old measure.
    for (const LfqSample& s : samples) {
        LfqSample rec;
        rec.sampleNo = s.sampleNo;
        rec.samplingDay = s.samplingDay;
        rec.samplingMonth = s.samplingMonth;
        rec.samplingYear = s.samplingYear;
        t.samples.push_back(rec);
    }
    t.freq.assign(rows, std::vector<double>(data.noOfSamples, 0.0));
    for (int c = 0; c < rows; ++c)
        for (int s = 0; s < data.noOfSamples; ++s) t.freq[c][s] = CutTwoDecimals(cols[s][c]);
    return run;
}

SampleFileRun RunConvert(const ConvertOptions& o, const std::string& programFolder) {
    SampleFileRun run;
    SourceRead src =
        ReadSource(o.source, o.destination,
                   {kSmInvalidActionTitle, kCompleteTheInputsText, kSourceNotFoundText});
    run.absorb(src);
    if (!run.ok()) return run;
    run = ConvertData(src.data, src.samples, o.fn);
    if (!run.ok()) return run;
    run.table.header.path = o.destination;
    SaveWithNotice(run, o.destination, programFolder, kConvertSavedPrefix + o.destination,
                   kDataSavedTitle);
    return run;
}

}  // namespace norvo
