// norvo-cli normsep FILE.lfq --sample S --means m1,m2,...: one sample separated into normal
// components by maximum likelihood.
#include <memory>
#include <optional>

#include "base/format.h"
#include "cli/cli_support.h"
#include "cli/modal_cli.h"
#include "cli/plot_output.h"
#include "data/lfq_file.h"
#include "modal/modal_plot.h"
#include "modal/normsep.h"

namespace norvo::cli {
namespace {

struct NormsepCliOptions {
    std::string path;
    int sample = 1;
    std::string means;
    std::string plot;
};

void RunNormsepCommand(Context& ctx, const NormsepCliOptions& o) {
    const std::vector<std::optional<double>> means = ParseMeans(o.means);
    const LfqData data = ctx.read(ReadLFQ(o.path));
    const NormsepResult r = RunNormsep(data, o.sample, means);
    ctx.take(r);
    if (!o.plot.empty()) {
        std::vector<NormalCurve> curves;
        for (const NsComponent& c : r.components) curves.push_back({c.mean, c.sd, c.population});
        ChartCanvas canvas;
        DrawSeparationHistogram(canvas, SampleFrequencies(data, o.sample), data.smallestMl,
                                data.classInterval, curves, kNsReportTitle);
        SavePlotOrRefuse(canvas, o.plot);
    }
    if (ctx.json) {
        nlohmann::json comps = nlohmann::json::array();
        for (const NsComponent& c : r.components)
            comps.push_back({{"mean", c.mean},
                             {"sd", c.sd},
                             {"proportion", c.proportion},
                             {"population", c.population},
                             {"si", c.si ? nlohmann::json(*c.si) : nlohmann::json()}});
        ctx.print({{"code", r.fit.code},
                   {"nll", r.fit.nll},
                   {"restarts", r.fit.restarts},
                   {"evaluations", r.fit.evaluations},
                   {"components", comps}});
        return;
    }
    std::cout << "Group  Computed Mean  S.D.  Population  S.I.\n";
    for (size_t k = 0; k < r.components.size(); ++k) {
        const NsComponent& c = r.components[k];
        std::cout << k + 1 << "  " << Format(c.mean, "0.00") << "  " << Format(c.sd, "0.00") << "  "
                  << Format(c.population, "0") << "  "
                  << (c.si ? Format(*c.si, "0.00") : std::string("n.a.")) << "\n";
    }
    std::cout << "-log likelihood " << Format(r.fit.nll, "0.000") << " after " << r.fit.evaluations
              << " evaluations, " << r.fit.restarts << " restarts\n";
}

RegisterCommand register_normsep{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<NormsepCliOptions>();
    auto* cmd = app.add_subcommand("normsep", "NORMSEP: normal components of a sample");
    cmd->add_option("FILE", o->path, "Grouped length-frequency file (.lfq)")->required();
    cmd->add_option("--sample", o->sample, "Sample number (1-based)");
    cmd->add_option("--means", o->means, "Start means, comma-separated")->required();
    cmd->add_option("--plot", o->plot, "Write the histogram and curves (.png, .svg, .bmp, .pdf)");
    cmd->callback([&ctx, o] { RunNormsepCommand(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
