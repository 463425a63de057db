#pragma once
// Helpers shared by the modal-progression subcommands.
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "chart/chart_canvas.h"
#include "data/lfq_data.h"

namespace norvo::cli {

// "12.5,30,,41": the start means, an empty entry being none. Text that is no number refuses.
std::vector<std::optional<double>> ParseMeans(const std::string& text);
// "3:9,14:20": pairs of point numbers. Refuses anything else.
std::vector<std::pair<int, int>> ParsePointPairs(const std::string& text);
// "1>4>7,2>5": series of point numbers. Refuses anything else.
std::vector<std::vector<int>> ParseSeries(const std::string& text);
// The frequencies of a sample, 1-based by class; empty for a sample not in the file.
std::vector<float> SampleFrequencies(const LfqData& data, int sample);

}  // namespace norvo::cli
