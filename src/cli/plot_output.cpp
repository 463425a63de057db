#include "cli/plot_output.h"

#include <fmt/format.h>

#include "cli/cli_support.h"
#include "plot/render/canvas_renderer.h"

namespace norvo::cli {

void SavePlotOrRefuse(const ChartCanvas& canvas, const std::string& path, int widthPx,
                      int heightPx) {
    if (!SavePlot(canvas, path, widthPx, heightPx))
        throw Refusal(kPlotNotSavedTitle, fmt::format(fmt::runtime(kPlotNotSavedText), path));
}

}  // namespace norvo::cli
