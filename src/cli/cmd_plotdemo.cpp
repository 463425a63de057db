// norvo-cli plotdemo: draws the two sample plots, to check the picture output path.
#include <string>

#include "chart/demo_plots.h"
#include "cli/cli_support.h"
#include "cli/plot_output.h"

namespace norvo::cli {
namespace {

struct PlotDemoOptions {
    std::string plot;
    std::string kind = "A";
    int width = 800;
    int height = 600;
};

void RunPlotDemo(const PlotDemoOptions& o, Context& ctx) {
    if (o.width < 16 || o.height < 16 || o.width > 10000 || o.height > 10000) {
        throw Refusal("Invalid Size", "Width and height must be between 16 and 10000 pixels.");
    }
    ChartCanvas canvas(o.width, o.height);
    if (o.kind == "A" || o.kind == "a") {
        DrawPercentDemo(canvas);
    } else {
        ChartPlot plot;
        DrawEngineDemo(canvas, plot, MakeFrequencyDemo());
    }
    SavePlotOrRefuse(canvas, o.plot, o.width, o.height);
    if (ctx.json) {
        ctx.print({{"plot", o.plot}, {"kind", o.kind}, {"width", o.width}, {"height", o.height}});
    } else {
        std::cout << "The graphic output was saved in " << o.plot << ".\n";
    }
}

RegisterCommand register_plotdemo{[](CLI::App& app, Context& ctx) {
    auto opts = std::make_shared<PlotDemoOptions>();
    auto* cmd = app.add_subcommand("plotdemo", "Draw a sample plot (growth curve or frequencies)");
    cmd->add_option("--plot", opts->plot, "Output picture: .png, .bmp, .svg or .pdf")->required();
    cmd->add_option("--kind", opts->kind,
                    "A: growth curve on the percentage canvas; "
                    "B: frequencies on the axis engine")
        ->check(CLI::IsMember({"A", "B", "a", "b"}));
    cmd->add_option("--width", opts->width, "Width in pixels");
    cmd->add_option("--height", opts->height, "Height in pixels");
    cmd->callback([opts, &ctx] { RunPlotDemo(*opts, ctx); });
}};

}  // namespace
}  // namespace norvo::cli
