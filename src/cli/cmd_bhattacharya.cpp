// norvo-cli bhattacharya FILE.lfq --sample S --points A:B[,C:D...]: one sample split into
// normal components by Bhattacharya's method, one component per pair of log-difference points
// (point k lies between classes k and k + 1), each taken off before the next.
#include <memory>

#include "base/format.h"
#include "cli/cli_support.h"
#include "cli/modal_cli.h"
#include "cli/plot_output.h"
#include "data/lfq_file.h"
#include "modal/bhattacharya.h"
#include "modal/modal_plot.h"

namespace norvo::cli {
namespace {

struct BhattacharyaCliOptions {
    std::string path;
    int sample = 1;
    std::string points;
    std::string plot;
};

nlohmann::json Observed(const std::vector<float>& o) {
    nlohmann::json a = nlohmann::json::array();
    for (size_t k = 1; k < o.size(); ++k) a.push_back(o[k]);
    return a;
}

void RunBhattacharya(Context& ctx, const BhattacharyaCliOptions& o) {
    const auto pairs = ParsePointPairs(o.points);
    const LfqData data = ctx.read(ReadLFQ(o.path));
    BhStart start = StartBhattacharya(data, o.sample);
    ctx.take(start);
    BhSample& s = start.sample;
    nlohmann::json comps = nlohmann::json::array();
    for (const auto& [a, b] : pairs) {
        const BhTake t = PrepareComponent(s, a, b);
        ctx.take(t);
        AcceptComponent(s, t.component);
        const BhComponent& c = t.component;
        comps.push_back({{"points", {c.from, c.to}},
                         {"used", c.used},
                         {"a", c.a},
                         {"b", c.b},
                         {"mean", c.mean},
                         {"sd", c.sd},
                         {"population", c.population},
                         {"si", c.si ? nlohmann::json(*c.si) : nlohmann::json()},
                         {"warning", t.notices.empty() ? nlohmann::json()
                                                       : nlohmann::json(t.notices.back().text)},
                         {"observed_after", Observed(s.observed)}});
    }
    if (!o.plot.empty()) {
        std::vector<NormalCurve> curves;
        for (const BhComponent& c : s.components) curves.push_back({c.mean, c.sd, c.population});
        ChartCanvas canvas;
        DrawSeparationHistogram(canvas, SampleFrequencies(data, o.sample), data.smallestMl,
                                data.classInterval, curves, kBhReportTitle);
        SavePlotOrRefuse(canvas, o.plot);
    }
    if (ctx.json) {
        ctx.print({{"components", comps}});
        return;
    }
    std::cout << "Group  Points  Computed Mean  S.D.  Population  S.I.\n";
    for (size_t k = 0; k < s.components.size(); ++k) {
        const BhComponent& c = s.components[k];
        std::cout << k + 1 << "  " << c.from << "-" << c.to << "  " << Format(c.mean, "0.00")
                  << "  " << Format(c.sd, "0.00") << "  " << Format(c.population, "0") << "  "
                  << (c.si ? Format(*c.si, "0.00") : std::string(kBhNotAvailable)) << "\n";
    }
    for (const UserNotice& n : ctx.dialogs.shown()) std::cout << n.title << ": " << n.text << "\n";
}

RegisterCommand register_bhattacharya{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<BhattacharyaCliOptions>();
    auto* cmd = app.add_subcommand("bhattacharya", "Bhattacharya's method on one sample");
    cmd->add_option("FILE", o->path, "Grouped length-frequency file (.lfq)")->required();
    cmd->add_option("--sample", o->sample, "Sample number (1-based)");
    cmd->add_option("--points", o->points, "Log-difference points of each component, A:B,C:D")
        ->required();
    cmd->add_option("--plot", o->plot, "Write the histogram and curves (.png, .svg, .bmp, .pdf)");
    cmd->callback([&ctx, o] { RunBhattacharya(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
