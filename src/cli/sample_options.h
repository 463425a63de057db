#pragma once
// The sample options of the commands that work on a grouped file's samples, as the screens' sample
// panel offers them: which samples, the transformation and temporal weighting.
#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "cli/cli_support.h"
#include "mortality/catch_curve.h"

namespace norvo::cli {

struct SampleCliOptions {
    std::vector<int> samples;  // 1-based; empty takes every sample
    std::string transform = "raw";
    bool temporal = false;
};

inline void AddSampleOptions(CLI::App* cmd, SampleCliOptions& o) {
    cmd->add_option("--samples", o.samples, "Samples to include (1-based; default all)")
        ->delimiter(',');
    cmd->add_option("--transform", o.transform, "raw, percent or sqrt")
        ->check(CLI::IsMember({"raw", "percent", "sqrt"}));
    cmd->add_flag("--temporal", o.temporal, "Apply temporal weighting");
}

inline CcTransform TransformOf(const SampleCliOptions& o) {
    if (o.transform == "percent") return CcTransform::Percent;
    if (o.transform == "sqrt") return CcTransform::SquareRoot;
    return CcTransform::Raw;
}

// The selection by sample (0-based; empty selects all). A sample the file lacks is refused with
// the command's own notice title.
inline std::vector<bool> SelectedSamples(const SampleCliOptions& o, int noOfSamples,
                                         const std::string& refusalTitle) {
    std::vector<bool> selected;
    if (o.samples.empty()) return selected;
    selected.assign(static_cast<size_t>(noOfSamples), false);
    for (int s : o.samples) {
        if (s < 1 || s > noOfSamples)
            throw Refusal(refusalTitle,
                          "There is no sample " + std::to_string(s) + " in the file.");
        selected[static_cast<size_t>(s - 1)] = true;
    }
    return selected;
}

}  // namespace norvo::cli
