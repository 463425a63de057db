// norvo-cli catchcurve FILE.lfq --loo L --k K [...]: total mortality from the length-converted
// catch curve, and with --extrapolate the probabilities of capture.
#include <limits>
#include <memory>
#include <optional>
#include <sstream>

#include "base/format.h"
#include "cli/cli_support.h"
#include "cli/sample_options.h"
#include "data/lfq_file.h"
#include "mortality/catch_curve_run.h"
#include "numerics/text_convert.h"

namespace norvo::cli {
namespace {

struct CatchCurveCliOptions {
    std::string path;
    std::string loo, k, c = "0", wp = "0", t0 = "0";
    SampleCliOptions sample;
    std::string points;
    bool extrapolate = false;
    std::optional<double> z, m, temperature;
};

nlohmann::json Floats(const std::vector<float>& v, int first, int last) {
    nlohmann::json a = nlohmann::json::array();
    for (int i = first; i <= last && i < static_cast<int>(v.size()); ++i) a.push_back(v[i]);
    return a;
}

std::vector<std::string> NoticeTexts(const Outcome& outcome) {
    std::vector<std::string> t;
    for (const UserNotice& n : outcome.notices) t.push_back(n.text);
    return t;
}

// A growth parameter as given: empty or "NotSet" leaves an optional one out (0), text that is
// no number is NaN, which the check refuses with the parameter's notice.
float GrowthValue(const std::string& text) {
    if (text.empty() || text == "NotSet") return 0;
    double v = 0;
    if (!ParseNumber(text, v)) return std::numeric_limits<float>::quiet_NaN();
    return static_cast<float>(v);
}

void RunCatchCurve(Context& ctx, const CatchCurveCliOptions& o) {
    CatchCurveOptions opt;
    opt.growth.loo = GrowthValue(o.loo);
    opt.growth.k = GrowthValue(o.k);
    opt.growth.c = GrowthValue(o.c);
    opt.growth.wp = GrowthValue(o.wp);
    opt.growth.t0 = GrowthValue(o.t0);
    // The parameters are checked before the file is read.
    ctx.take(ValidateGrowthParams(opt.growth));
    const LfqData data = ctx.read(ReadLFQ(o.path));

    opt.temporal = o.sample.temporal;
    opt.transform = TransformOf(o.sample);
    opt.selected = SelectedSamples(o.sample, data.noOfSamples, kCcInvalidActionTitle);
    if (!o.points.empty()) {
        PointRange points;
        char colon = 0;
        std::istringstream in(o.points);
        if (!(in >> points.first >> colon >> points.last) || colon != ':')
            throw CLI::ValidationError("--points", "expected FIRST:LAST");
        opt.points = points;
    }
    if (o.extrapolate) opt.extrapolate = MortalityOptions{o.z, o.m, o.temperature};

    const CatchCurveRun run = norvo::RunCatchCurve(data, opt);
    ctx.take(run);
    const bool fitted = run.fitted();
    const auto& ex = run.extrapolation;

    const auto& f = run.fit;
    if (ctx.json) {
        nlohmann::json j = {{"usable", run.ok()},
                            {"first_class", run.firstClass},
                            {"last_class", run.lastClass},
                            {"default_points", {run.defaultPoints.first, run.defaultPoints.last}},
                            {"points", {run.firstPoint, run.lastPoint}},
                            {"notices", NoticeTexts(run)},
                            {"X", Floats(run.X, 1, run.lastClass)},
                            {"Y", Floats(run.Y, 1, run.lastClass)},
                            {"N", Floats(run.N, 1, run.lastClass)}};
        if (fitted) {
            using R = RegressionResult;
            j["fit"] = {{"n", f[R::kN]},         {"a", f[R::kA]},         {"b", f[R::kB]},
                        {"seA", f[R::kSeA]},     {"seB", f[R::kSeB]},     {"aLow", f[R::kALow]},
                        {"aHigh", f[R::kAHigh]}, {"bLow", f[R::kBLow]},   {"bHigh", f[R::kBHigh]},
                        {"meanX", f[R::kMeanX]}, {"meanY", f[R::kMeanY]}, {"sdX", f[R::kSdX]},
                        {"sdY", f[R::kSdY]},     {"r", f[R::kR]},         {"rLow", f[R::kRLow]},
                        {"rHigh", f[R::kRHigh]}, {"F", f[R::kF]}};
            j["Z"] = -f.b();
            j["Z_low"] = -f[R::kBHigh];
            j["Z_high"] = -f[R::kBLow];
        } else {
            j["fit"] = nullptr;
            j["Z"] = nullptr;
            j["Z_low"] = nullptr;
            j["Z_high"] = nullptr;
        }
        if (ex) {
            nlohmann::json ne = nlohmann::json::array();
            for (size_t i = 1; i < ex->ne.size(); ++i) ne.push_back(ex->ne[i]);
            j["extrapolation"] = {{"z", ex->z},
                                  {"m", ex->m},
                                  {"notices", NoticeTexts(*ex)},
                                  {"ne", ne},
                                  {"probability", Floats(ex->probability, 1, run.nC)}};
        }
        ctx.print(j);
        return;
    }
    for (const auto& text : NoticeTexts(run)) std::cout << text << "\n";
    std::cout << "Class  " << CatchCurveXLabel(run.growth.t0) << "  "
              << CatchCurveYLabel(run.growth.c) << "  N\n";
    for (int i = run.firstClass; i <= run.lastClass; ++i) {
        const bool chosen = fitted && i >= run.firstPoint && i <= run.lastPoint;
        std::cout << (chosen ? "* " : "  ") << i << "  " << Format(run.X[i], "0.00") << "  "
                  << Format(run.Y[i], "0.00") << "  " << Format(run.N[i], "0.00") << "\n";
    }
    if (!fitted) {
        std::cout << "No default points: choose them with --points FIRST:LAST.\n";
        return;
    }
    using R = RegressionResult;
    std::cout << "Points: " << run.firstPoint << " to " << run.lastPoint << "\n"
              << "Z = " << Format(-f.b(), "0.00") << " (" << Format(-f[R::kBHigh], "0.00") << " to "
              << Format(-f[R::kBLow], "0.00") << ")\n"
              << "a = " << Format(f.a(), "0.000") << "  b = " << Format(f.b(), "0.000")
              << "  r = " << Format(f.r(), "0.0000") << "\n";
    if (ex) {
        for (const auto& text : NoticeTexts(*ex)) std::cout << text << "\n";
        std::cout << ExtrapolationSubtitle(*ex) << "\nClass  Probability\n";
        for (int i = 1; i <= run.nC; ++i)
            std::cout << i << "  " << Format(ex->probability[i], "0.0000") << "\n";
    }
}

RegisterCommand register_catchcurve{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<CatchCurveCliOptions>();
    auto* cmd = app.add_subcommand("catchcurve", "Length-converted catch curve: Z from a file");
    cmd->add_option("FILE", o->path, "Grouped length-frequency file (.lfq)")->required();
    cmd->add_option("--loo", o->loo, "Asymptotic length")->required();
    cmd->add_option("--k", o->k, "Growth constant K")->required();
    cmd->add_option("--c", o->c, "Amplitude of the seasonal oscillation (0 for none)");
    cmd->add_option("--wp", o->wp, "Winter point");
    cmd->add_option("--t0", o->t0, "Age at length zero");
    AddSampleOptions(cmd, o->sample);
    cmd->add_option("--points", o->points, "First and last point of the fit, FIRST:LAST");
    auto* ex =
        cmd->add_flag("--extrapolate", o->extrapolate, "Extrapolate the probabilities of capture");
    cmd->add_option("--z", o->z, "Z to use (default: the catch curve's)")->needs(ex);
    auto* m = cmd->add_option("--m", o->m, "Natural mortality M")->needs(ex);
    auto* t =
        cmd->add_option("--temperature", o->temperature, "Mean water temperature (C)")->needs(ex);
    m->excludes(t);
    cmd->callback([&ctx, o] { RunCatchCurve(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
