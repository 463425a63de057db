// norvo-cli linking FILE.msd --links 1>4>7,2>5: means linked forward in time (points in date,
// then length order; a comma starts a new series), the growth from the links, and the links
// as growth increments and lengths at relative age.
#include <memory>

#include "base/format.h"
#include "cli/cli_support.h"
#include "cli/modal_cli.h"
#include "cli/plot_output.h"
#include "data/sample_readers.h"
#include "data/store_routines.h"
#include "modal/linking.h"
#include "modal/modal_plot.h"

namespace norvo::cli {
namespace {

struct LinkingCliOptions {
    std::string path;
    std::string links;
    std::string plot;
    std::string gin, laa;
};

inline constexpr const char* kExistsTitle = "File exists";

nlohmann::json Age(const AgeRecord& a) {
    return {{"age", a.age}, {"length", a.length}, {"wf", a.wf}};
}

void RunLinking(Context& ctx, const LinkingCliOptions& o) {
    const auto series = ParseSeries(o.links);
    for (const std::string* out : {&o.gin, &o.laa})
        if (!out->empty() && FileExists(*out))
            throw Refusal(kExistsTitle, "Not overwriting the existing file " + *out);
    const MsdData msd = ctx.read(ReadMSD(o.path));
    const LinkingRun run = LinkSeries(msd.rows, series);
    for (const UserNotice& n : run.notices) ctx.dialogs.notify(n);
    if (const UserNotice* r = run.refusal()) throw Refusal(r->title, r->text);
    const LinkGrowth g = ComputeLinkGrowth(run.state.links);
    if (!o.gin.empty() &&
        !SaveLinksAsGin(o.gin, ctx.programFolder, msd.header, run.state.links, ctx.dialogs))
        ctx.refuseWithLastNotice();
    if (!o.laa.empty()) {
        if (!g.possible()) throw Refusal(kLkImpossibleTitle, kLkImpossibleText);
        if (!SaveLinksAsLaa(o.laa, ctx.programFolder, msd.header, run.state.links, g, ctx.dialogs))
            ctx.refuseWithLastNotice();
    }
    if (!o.plot.empty()) {
        ChartCanvas canvas;
        DrawLinkingPlot(canvas, run.state);
        SavePlotOrRefuse(canvas, o.plot);
    }
    const auto ages = LinkAges(run.state.links, g);
    if (ctx.json) {
        nlohmann::json links = nlohmann::json::array(), refused = nlohmann::json::array();
        for (const LinkRow& r : run.state.links) {
            const GinRow gin = r.gin();
            links.push_back(std::vector<float>(gin.begin() + 1, gin.end()));
        }
        for (const auto& [from, to] : run.refused) refused.push_back({{"from", from}, {"to", to}});
        nlohmann::json rate = nlohmann::json::array(), mean = nlohmann::json::array();
        for (float v : g.rate) rate.push_back(v);
        for (float v : g.mean) mean.push_back(v);
        nlohmann::json agesJson;
        if (g.possible()) {
            agesJson = nlohmann::json::array();
            for (const auto& row : ages) {
                agesJson.push_back(row ? Age(row->first) : nlohmann::json());
                agesJson.push_back(row ? Age(row->second) : nlohmann::json());
            }
        }
        ctx.print({{"links", links},
                   {"refused", refused},
                   {"growth",
                    {{"loo", g.loo},
                     {"k", g.k},
                     {"a", g.a ? nlohmann::json(*g.a) : nlohmann::json()},
                     {"b", g.b ? nlohmann::json(*g.b) : nlohmann::json()},
                     {"rate", rate},
                     {"mean", mean}}},
                   {"ages", agesJson}});
        return;
    }
    for (const UserNotice& n : ctx.dialogs.shown()) std::cout << n.title << ": " << n.text << "\n";
    std::cout << "Day1 Month1 Year1 Length1 Day2 Month2 Year2 Length2  Rate  Mean\n";
    for (size_t i = 0; i < run.state.links.size(); ++i) {
        const LinkRow& r = run.state.links[i];
        std::cout << r.day1 << " " << r.month1 << " " << r.year1 << " " << Format(r.length1, "0.00")
                  << " " << r.day2 << " " << r.month2 << " " << r.year2 << " "
                  << Format(r.length2, "0.00") << "  " << Format(g.rate[i], "0.00") << "  "
                  << Format(g.mean[i], "0.00") << "\n";
    }
    std::cout << "Loo = " << Format(g.loo, "0.00") << "  K = " << Format(g.k, "0.000") << "\n";
}

RegisterCommand register_linking{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<LinkingCliOptions>();
    auto* cmd = app.add_subcommand("linking", "Linking of means from an MSD file");
    cmd->add_option("FILE", o->path, "Means and s.d. file (.msd)")->required();
    cmd->add_option("--links", o->links, "Series of point numbers, e.g. 1>4>7,2>5")->required();
    cmd->add_option("--plot", o->plot, "Write the linking plot (.png, .svg, .bmp, .pdf)");
    cmd->add_option("--save-gin", o->gin, "Save the links as a new growth increment file");
    cmd->add_option("--save-laa", o->laa, "Save the links as a new length-at-age file");
    cmd->callback([&ctx, o] { RunLinking(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
