#include "modal/bhattacharya.h"

#include <algorithm>
#include <cmath>

#include "base/checked.h"
#include "base/format.h"
#include "numerics/normal_dist.h"
#include "numerics/series.h"

namespace norvo {

std::string SeparationWarningText(float si) {
    return "WARNING! The separation index (SI=" + Format(si, "0.00") +
           ") is less than 2, indicating substantial overlap between classes.";
}

std::string PointRangeText(int points) {
    return "Point numbers run from 1 to " + std::to_string(points) + ".";
}

std::string NoSampleText(int sample) {
    return "There is no sample " + std::to_string(sample) + " in the file.";
}

std::vector<float> ClassBoundaries(float start, float w, int n) {
    std::vector<float> x(1);
    if (n > 1) MakeSeries(start + w, w, n - 1, 1, SeriesKind::Arithmetic, x);
    return x;
}

std::vector<std::optional<float>> LogDifferences(const std::vector<float>& f) {
    const int nC = static_cast<int>(f.size()) - 1;
    std::vector<std::optional<float>> d(static_cast<size_t>(std::max(nC, 1)));
    for (int k = 1; k < nC; ++k)
        if (f[k] > 0 && f[k + 1] > 0)
            d[k] =
                R4(std::log(static_cast<double>(f[k + 1])) - std::log(static_cast<double>(f[k])));
    return d;
}

float SeparationIndex(float m1, float s1, float m2, float s2) {
    const float d = (s1 + s2) / 2;
    if (d <= 0) return -9999.0f;
    return std::fabs(m1 - m2) / d;
}

LogLine FitLogLine(const std::vector<float>& x, const std::vector<std::optional<float>>& y,
                   int first, int second) {
    LogLine line;
    const int points = static_cast<int>(y.size()) - 1;
    if (first > second) std::swap(first, second);
    if (first < 1 || second > points) {
        line.refuse(PointRangeText(points), kBhPointTitle, Icon::Information);
        return line;
    }
    if (!y[first] || !y[second]) {
        line.refuse(kBhAbsentPointText, kBhPointTitle, Icon::Information);
        return line;
    }
    line.from = first;
    line.to = second;
    std::vector<float> xs, ys;
    for (int k = first; k <= second; ++k) {
        if (!y[k]) continue;
        line.used.push_back(k);
        xs.push_back(x[k]);
        ys.push_back(*y[k]);
    }
    if (xs.size() < 2) {
        line.refuse(kBhTooFewPointsText, kBhPointTitle, Icon::Information);
        return line;
    }
    LinearRegression(xs, ys, 0, static_cast<int32_t>(xs.size()) - 1, line.fit);
    return line;
}

BhComponent ComputeComponent(float a, float b, float start, float w,
                             const std::vector<float>& observed, int from, int to) {
    BhComponent c;
    c.from = from;
    c.to = to;
    c.a = a;
    c.b = b;
    c.mean = R4(Div(-a, b));
    c.sd = R4(Sqrt(Div(-w, b)));
    const float l0 = start + static_cast<float>(from - 1) * w;
    for (int i = 0; i <= to - from; ++i) {
        const float lower = l0 + static_cast<float>(i) * w;
        const float upper = lower + w;
        c.p = c.p + (NormalCdf32(upper, c.mean, c.sd) - NormalCdf32(lower, c.mean, c.sd));
        c.sumF = c.sumF + observed.at(static_cast<size_t>(from + i));
    }
    c.population = R4(Div(c.sumF, c.p));
    return c;
}

void SubtractComponent(std::vector<float>& observed, const BhComponent& c, float start, float w) {
    const float l0 = start + static_cast<float>(c.from - 1) * w;
    for (int i = 0; i <= c.to - c.from; ++i) {
        const float lower = l0 + static_cast<float>(i) * w;
        const float upper = lower + w;
        const float e =
            c.population * (NormalCdf32(upper, c.mean, c.sd) - NormalCdf32(lower, c.mean, c.sd));
        float& o = observed.at(static_cast<size_t>(c.from + i));
        o = std::max(o - e, 0.0f);
    }
}

BhStart StartBhattacharya(const LfqData& data, int sample) {
    BhStart r;
    if (sample < 1 || sample > data.noOfSamples) {
        r.refuse(NoSampleText(sample), kBhNoSampleTitle, Icon::Information);
        return r;
    }
    BhSample& s = r.sample;
    s.sample = sample;
    s.w = static_cast<float>(data.classInterval);
    s.start = static_cast<float>(data.smallestMl) - s.w / 2;
    s.nC = data.noOfClasses;
    s.observed.assign(static_cast<size_t>(s.nC) + 1, 0.0f);
    for (int c = 0; c < s.nC; ++c)
        s.observed[static_cast<size_t>(c) + 1] =
            static_cast<float>(data.freq[static_cast<size_t>(c)][static_cast<size_t>(sample - 1)]);
    s.logX = ClassBoundaries(s.start, s.w, s.nC);
    s.logDiff = LogDifferences(s.observed);
    return r;
}

BhTake PrepareComponent(const BhSample& s, int first, int second) {
    BhTake t;
    t.line = FitLogLine(s.logX, s.logDiff, first, second);
    t.absorb(t.line);
    if (!t.ok()) return t;
    t.component = ComputeComponent(t.line.fit.a(), t.line.fit.b(), s.start, s.w, s.observed,
                                   t.line.from, t.line.to);
    t.component.used = t.line.used;
    if (!s.components.empty()) {
        const float si =
            SeparationIndex(t.component.mean, t.component.sd, s.prevMean(), s.prevSD());
        t.component.si = si;
        if (si < 2) t.note(SeparationWarningText(si), kBhSiWarningTitle, Icon::Warning);
    }
    return t;
}

void AcceptComponent(BhSample& s, const BhComponent& c) {
    s.components.push_back(c);
    SubtractComponent(s.observed, c, s.start, s.w);
    s.logDiff = LogDifferences(s.observed);
}

}  // namespace norvo
