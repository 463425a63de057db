// norvo-cli lmax FILE.lfq [--plot OUT]: predicts the maximum length from the extreme lengths of
// the file's samples.
#include <QGuiApplication>
#include <memory>

#include "base/format.h"
#include "cli/cli_support.h"
#include "data/lfq_file.h"
#include "growth/lmax.h"
#include "plot/render/canvas_renderer.h"

namespace norvo::cli {
namespace {

struct LmaxOptions {
    std::string path;
    std::string plotPath;
};

// Painting text needs a GUI application object; a headless run takes the offscreen platform.
void EnsureGuiApplication() {
    if (QCoreApplication::instance() != nullptr) return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "norvo-cli";
    static char* argv[] = {name, nullptr};
    static QGuiApplication app(argc, argv);
}

void RunLmax(Context& ctx, const LmaxOptions& o) {
    const LfqData data = ctx.read(ReadLFQ(o.path));
    const auto extremes = ExtremeLengths(data);
    if (extremes.size() < 2) throw Refusal(kLmaxTooFewTitle, kLmaxTooFewMessage);
    const auto fit = GumbelFit(extremes);
    if (!fit.ok) throw Refusal(kLmaxCalcErrorTitle, kLmaxCalcErrorMessage);

    if (!o.plotPath.empty()) {
        EnsureGuiApplication();
        ChartCanvas canvas;
        GraphResults(canvas, fit, data.unitOfMeasurement);
        if (!SavePlot(canvas, o.plotPath)) {
            throw Refusal("Save image...", "The plot could not be written to " + o.plotPath + ".");
        }
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
