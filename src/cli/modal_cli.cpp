#include "cli/modal_cli.h"

#include <charconv>

#include "cli/cli_support.h"
#include "numerics/text_convert.h"

namespace norvo::cli {

namespace {

inline constexpr const char* kBadListTitle = "Invalid Input";

std::vector<std::string> Split(const std::string& text, char sep) {
    std::vector<std::string> parts;
    size_t at = 0;
    for (;;) {
        const size_t next = text.find(sep, at);
        parts.push_back(text.substr(at, next == std::string::npos ? std::string::npos : next - at));
        if (next == std::string::npos) return parts;
        at = next + 1;
    }
}

int PointNumber(const std::string& text, const std::string& whole) {
    int v = 0;
    const auto r = std::from_chars(text.data(), text.data() + text.size(), v);
    if (text.empty() || r.ec != std::errc() || r.ptr != text.data() + text.size())
        throw Refusal(kBadListTitle, "Expected point numbers in " + whole);
    return v;
}

}  // namespace

std::vector<std::optional<double>> ParseMeans(const std::string& text) {
    std::vector<std::optional<double>> means;
    for (const std::string& part : Split(text, ',')) {
        if (part.empty()) {
            means.emplace_back();
            continue;
        }
        double v = 0;
        if (!ParseNumber(part, v)) throw Refusal(kBadListTitle, "Not a number in --means: " + part);
        means.emplace_back(v);
    }
    return means;
}

std::vector<std::pair<int, int>> ParsePointPairs(const std::string& text) {
    std::vector<std::pair<int, int>> pairs;
    for (const std::string& part : Split(text, ',')) {
        const auto ends = Split(part, ':');
        if (ends.size() != 2)
            throw Refusal(kBadListTitle, "Expected A:B pairs in --points: " + text);
        pairs.emplace_back(PointNumber(ends[0], text), PointNumber(ends[1], text));
    }
    return pairs;
}

std::vector<std::vector<int>> ParseSeries(const std::string& text) {
    std::vector<std::vector<int>> series;
    for (const std::string& part : Split(text, ',')) {
        std::vector<int> one;
        for (const std::string& p : Split(part, '>')) one.push_back(PointNumber(p, text));
        series.push_back(std::move(one));
    }
    return series;
}

std::vector<float> SampleFrequencies(const LfqData& data, int sample) {
    std::vector<float> f(1);
    if (sample < 1 || sample > data.noOfSamples) return f;
    for (int c = 0; c < data.noOfClasses; ++c)
        f.push_back(
            static_cast<float>(data.freq[static_cast<size_t>(c)][static_cast<size_t>(sample - 1)]));
    return f;
}

}  // namespace norvo::cli
