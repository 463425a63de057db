// norvo-cli recruitment FILE.lfq --loo L --k K [...] [--groups m1[,m2]] [--plot OUT]: the
// recruitment pattern by month and its decomposition into normal groups.
#include <limits>
#include <memory>

#include "base/format.h"
#include "cli/cli_support.h"
#include "cli/plot_output.h"
#include "cli/sample_options.h"
#include "data/lfq_file.h"
#include "numerics/text_convert.h"
#include "selection/recruitment.h"
#include "selection/recruitment_normsep.h"
#include "selection/recruitment_plot.h"

namespace norvo::cli {
namespace {

struct RecruitmentCliOptions {
    std::string path;
    float loo = 0, k = 0, c = 0, wp = 0, t0 = 0;
    SampleCliOptions sample;
    bool restructured = false;
    std::vector<double> groups;
    std::string plot;
};

void RunRecruitment(Context& ctx, const RecruitmentCliOptions& o) {
    const LfqData data = ctx.read(ReadLFQ(o.path));
    RecruitmentOptions opt;
    opt.growth.loo = o.loo;
    opt.growth.k = o.k;
    opt.growth.c = o.c;
    opt.growth.wp = o.wp;
    opt.growth.t0 = o.t0;
    opt.temporal = o.sample.temporal;
    opt.restructured = o.restructured;
    opt.transform = TransformOf(o.sample);
    opt.selected = SelectedSamples(o.sample, data.noOfSamples, kInvalidDataTitle);
    const RecruitmentResult r = DoRecruitment(data, opt);
    ctx.take(r);
    std::optional<RecruitmentGroupsResult> groups;
    if (!o.groups.empty()) {
        groups = DoNORMSEP(r.pattern, o.groups[0], o.groups.size() > 1 ? o.groups[1] : 0);
        ctx.take(*groups);
    }
    if (!o.plot.empty()) {
        ChartCanvas canvas;
        DrawRecruitment(canvas, r);
        if (groups) DrawRecruitmentGroups(canvas, r, *groups);
        SavePlotOrRefuse(canvas, o.plot);
    }
    if (ctx.json) {
        nlohmann::json j = {
            {"time_label", r.timeLabel},
            {"start_month", r.startMonth},
            {"labels", std::vector<std::string>(r.labels.begin() + 1, r.labels.end())},
            {"pattern", std::vector<float>(r.pattern.begin() + 1, r.pattern.end())},
            {"month_share", std::vector<float>(r.monthShare.begin() + 1, r.monthShare.end())}};
        if (groups) {
            nlohmann::json g = nlohmann::json::array();
            for (const auto& q : groups->groups)
                g.push_back({{"mean", q.mean}, {"sd", q.sd}, {"proportion", q.proportion}});
            j["groups"] = g;
        }
        ctx.print(j);
        return;
    }
    std::cout << "Month  "
              << (r.timeLabel == kRcRelativeTime ? kRcRelativeTimeColumn : kRcAbsoluteTime) << "  "
              << kRcPercentColumn << "\n";
    for (int p = 1; p <= 12; ++p)
        std::cout << "Month " << p << "  " << r.labels[p] << "  " << Format(r.pattern[p], "0.00")
                  << "\n";
    if (groups)
        for (size_t g = 0; g < groups->groups.size(); ++g)
            std::cout << "Group " << g + 1 << ": mean " << Format(groups->groups[g].mean, "0.00")
                      << "  sd " << Format(groups->groups[g].sd, "0.00") << "  proportion "
                      << Format(groups->groups[g].proportion, "0.000") << "\n";
}

RegisterCommand register_recruitment{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<RecruitmentCliOptions>();
    auto* cmd = app.add_subcommand("recruitment", "Recruitment pattern by month from a file");
    cmd->add_option("FILE", o->path, "Grouped length-frequency file (.lfq)")->required();
    cmd->add_option("--loo", o->loo, "Asymptotic length")->required();
    cmd->add_option("--k", o->k, "Growth constant K")->required();
    cmd->add_option("--c", o->c, "Amplitude of the seasonal oscillation (0 for none)");
    cmd->add_option("--wp", o->wp, "Winter point");
    cmd->add_option("--t0", o->t0, "Age at length zero");
    AddSampleOptions(cmd, o->sample);
    cmd->add_flag("--restructured", o->restructured, "Project the restructured data");
    cmd->add_option("--groups", o->groups, "Start positions of one or two normal groups")
        ->delimiter(',')
        ->expected(1, 2);
    cmd->add_option("--plot", o->plot, "Write the bar plot (.png, .svg, .bmp, .pdf)");
    cmd->callback([&ctx, o] { RunRecruitment(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
