#pragma once
// Writing a command's plot (--plot FILE): every command refuses a file it cannot write the same
// way.
#include <string>

#include "chart/chart_canvas.h"

namespace norvo::cli {

inline constexpr const char* kPlotNotSavedTitle = "Plot Not Saved";
inline constexpr const char* kPlotNotSavedText = "The plot could not be written to {}.";

// Writes the plot, its kind taken from the file's extension, at the given size in pixels (0:
// the canvas's own); refuses when the file cannot be written.
void SavePlotOrRefuse(const ChartCanvas& canvas, const std::string& path, int widthPx = 0,
                      int heightPx = 0);

}  // namespace norvo::cli
