// norvo-cli lmax FILE.lfq [--plot OUT]: predicts the maximum length from the extreme lengths of
// the file's samples.
#include <memory>

#include "base/format.h"
#include "cli/cli_support.h"
#include "cli/plot_output.h"
#include "data/lfq_file.h"
#include "growth/lmax.h"

namespace norvo::cli {
namespace {

struct LmaxOptions {
    std::string path;
    std::string plotPath;
};

void RunLmax(Context& ctx, const LmaxOptions& o) {
    const LfqData data = ctx.read(ReadLFQ(o.path));
    const auto extremes = ExtremeLengths(data);
    if (extremes.size() < 2) throw Refusal(kLmaxTooFewTitle, kLmaxTooFewMessage);
    const auto fit = GumbelFit(extremes);
    if (!fit.ok) throw Refusal(kLmaxCalcErrorTitle, kLmaxCalcErrorMessage);

    if (!o.plotPath.empty()) {
        ChartCanvas canvas;
        GraphResults(canvas, fit, data.unitOfMeasurement);
        SavePlotOrRefuse(canvas, o.plotPath);
    }

    if (ctx.json) {
        nlohmann::json curve = nlohmann::json::array();
        for (const auto& p : fit.curve) {
            curve.push_back({{"probability", p.probability},
                             {"predicted", p.predicted},
                             {"lower", p.lower},
                             {"upper", p.upper}});
        }
        ctx.print({{"extremes", fit.extremes},
                   {"u", fit.u},
                   {"beta", fit.beta},
                   {"lmax",
                    {{"predicted", fit.predicted},
                     {"standard_error", fit.standardError},
                     {"lower", fit.lower},
                     {"upper", fit.upper}}},
                   {"curve", curve}});
        return;
    }
    const std::string& unit = data.unitOfMeasurement;
    std::cout << kExtremeLengthsTable << "\t" << kCumulativeProbabilities << "\n";
    for (int i = 0; i < fit.n; ++i) {
        std::cout << Format(fit.extremes[i], "0.00") << "\t"
                  << Format(fit.probabilities[i], "0.000") << "\n";
    }
    std::cout << "u = " << Format(fit.u, "0.000") << "  beta = " << Format(fit.beta, "0.000")
              << "\n"
              << "Lmax = " << Format(fit.predicted, kLmaxValueFormat) << " " << unit << "\n"
              << Format(fit.lower, kLmaxValueFormat) << " " << unit << " - " << kLowerLimitText
              << "\n"
              << Format(fit.upper, kLmaxValueFormat) << " " << unit << " - " << kUpperLimitText
              << "\n";
}

RegisterCommand register_lmax{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<LmaxOptions>();
    auto* cmd =
        app.add_subcommand("lmax", "Predict the maximum length from the samples' extreme lengths");
    cmd->add_option("FILE", o->path, "Grouped length-frequency file (.lfq)")->required();
    cmd->add_option("--plot", o->plotPath,
                    "Also draw the plot into this file (.bmp .png .svg .pdf)");
    cmd->callback([&ctx, o] { RunLmax(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
