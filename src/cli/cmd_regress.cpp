// norvo-cli regress FILE.xyf [--form 0..8] [--c C] [--functional] [--plot OUT]: a straight line
// through the pairs of a two-column file after one of the nine transformations, with the
// seventeen slots of the fit.
#include <array>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>

#include "chart/regress_plot.h"
#include "cli/cli_support.h"
#include "cli/plot_output.h"
#include "data/xyf_file.h"
#include "numerics/regression_tool.h"

namespace norvo::cli {
namespace {

constexpr std::array<const char*, 18> kSlotNames = {
    "",      "n",     "a",     "b",   "seA", "seB", "aLow", "aHigh", "bLow",
    "bHigh", "meanX", "meanY", "sdX", "sdY", "r",   "rLow", "rHigh", "F"};

struct RegressCliOptions {
    std::string path;
    int form = kFormLinear;
    std::optional<double> c;
    bool functional = false;
    std::string plot;
    int width = 800;
    int height = 600;
};

std::string FloatText(float v) {
    char buf[32];
    const auto res = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, res.ptr);
}

// A 32-bit value as JSON, by its shortest text: 1.1f prints as 1.1, not 1.100000023841858.
nlohmann::json FloatJson(float v) {
    double d = 0;
    const std::string t = FloatText(v);
    std::from_chars(t.data(), t.data() + t.size(), d);
    return d;
}

nlohmann::json FloatsJson(const std::vector<float>& v) {
    nlohmann::json a = nlohmann::json::array();
    for (float f : v) a.push_back(FloatJson(f));
    return a;
}

bool SamePath(const std::string& a, const std::string& b) {
    std::error_code ec;
    return std::filesystem::equivalent(a, b, ec);
}

void RunRegress(Context& ctx, const RegressCliOptions& o) {
    const int form = o.functional ? kFormFunctional : o.form;
    if (o.functional && o.form != kFormLinear && o.form != kFormFunctional)
        throw CLI::ValidationError("--functional", "is form 1; it cannot go with --form");
    if (FormNeedsConstant(form) && !o.c)
        throw CLI::ValidationError("--c", "forms 6, 7 and 8 need the constant C");
    if (!o.plot.empty() && SamePath(o.plot, o.path))
        throw CLI::ValidationError("--plot", "would overwrite the data file");

    const XyfData data = ctx.read(ReadXYF(o.path));
    RegressOptions opt;
    opt.form = form;
    opt.c = o.c.value_or(0.0);
    const RegressRun run = RunRegression(data.x, data.y, opt);
    ctx.take(run);

    if (!o.plot.empty()) {
        ChartCanvas canvas(o.width, o.height);
        DrawRegression(canvas, data, run);
        SavePlotOrRefuse(canvas, o.plot, o.width, o.height);
    }

    const RegressionResult& r = run.fit;
    if (ctx.json) {
        nlohmann::json slots = nlohmann::json::object();
        for (int i = 1; i <= RegressionResult::kSlots; ++i)
            slots[kSlotNames[static_cast<size_t>(i)]] = FloatJson(r[i]);
        nlohmann::json j = {{"form", form},
                            {"function", kRegressForms[static_cast<size_t>(form)]},
                            {"c", run.c ? FloatJson(*run.c) : nlohmann::json(nullptr)},
                            {"x", FloatsJson(run.x)},
                            {"y", FloatsJson(run.y)},
                            {"fit", slots},
                            // The slots under their first name, for scripts written before.
                            {"slots", slots}};
        if (!o.plot.empty()) j["plot"] = o.plot;
        ctx.print(j);
        return;
    }
    std::cout << FunctionTitle(form) << "\n";
    if (run.c) std::cout << "C = " << FloatText(*run.c) << "\n";
    for (int i = 1; i <= RegressionResult::kSlots; ++i) {
        char line[64];
        std::snprintf(line, sizeof line, "%2d  %-6s ", i, kSlotNames[static_cast<size_t>(i)]);
        std::cout << line << FloatText(r[i]) << "\n";
    }
    if (!o.plot.empty()) std::cout << kGraphicSavedPrefix << o.plot << ".\n";
}

RegisterCommand register_regress{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<RegressCliOptions>();
    auto* cmd = app.add_subcommand("regress", "Fit a straight line through the pairs of a file");
    cmd->add_option("FILE", o->path, "Two-column regression file (.xyf)")->required();
    cmd->add_option("--form", o->form,
                    "Function form: 0 Y=a+bX, 1 Y=a'+b'X, 2 log(Y)=a+b log(X), 3 ln(Y)=a+bX, "
                    "4 Y=a+b log(X), 5 Y/X=a+bX, 6 ln(1-Y/C)=a+bX, 7 Y^C=a+bX, 8 Y=a+bX^C")
        ->check(CLI::Range(0, kRegressFormCount - 1));
    cmd->add_option("--c", o->c, "The constant C of forms 6, 7 and 8");
    cmd->add_flag("--functional", o->functional, "Geometric-mean (functional) regression: form 1");
    cmd->add_option("--plot", o->plot, "Write the plot (.png, .bmp, .svg or .pdf)");
    cmd->add_option("--width", o->width, "Plot width in pixels")->check(CLI::Range(16, 10000));
    cmd->add_option("--height", o->height, "Plot height in pixels")->check(CLI::Range(16, 10000));
    cmd->callback([&ctx, o] { RunRegress(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
