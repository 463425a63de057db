#include "growth/shepherd_report.h"

#include "base/format.h"

namespace norvo {

std::array<std::optional<double>, 5> ShepherdBestValues(const ShepherdBest& b) {
    std::optional<double> sl;
    if (b.startLength) sl = *b.startLength;
    return {b.loo, b.k, b.startSample, sl, b.score};
}

std::array<std::string, 5> ShepherdBestTexts(const ShepherdBest& b) {
    const auto values = ShepherdBestValues(b);
    std::array<std::string, 5> texts;
    for (size_t i = 0; i < values.size(); ++i)
        texts[i] = values[i] ? Format(*values[i], kShepherdResultPatterns[i]) : kShepherdNoStart;
    return texts;
}

Elefan1ReportInfo ShepherdReportInfo(const std::optional<ElefanFileInfo>& file,
                                     const ShepherdBest* best) {
    Elefan1ReportInfo info = MakeElefan1ReportInfo(file, std::nullopt, std::nullopt);
    info.subtitle = kShepherdReportSubtitle;
    info.screenName = "frmOutShepherd";
    info.otherParameters = false;
    info.results.heading = kShepherdResultsHeading;
    if (best) {
        const auto texts = ShepherdBestTexts(*best);
        for (size_t i = 0; i < texts.size(); ++i)
            info.results.fields.push_back({kShepherdResultLabels[i], texts[i]});
    }
    return info;
}

GrowthParams ShepherdPlotParams(const ShepherdBest& b) {
    GrowthParams p;
    p.loo = b.loo;
    p.k = b.k;
    p.ss = b.startSample;
    p.sl = b.startLength.value_or(0);
    return p;
}

}  // namespace norvo
