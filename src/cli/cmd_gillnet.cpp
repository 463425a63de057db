// norvo-cli gillnet FILE.lfq --small S1 --big S2 --mesh A,B [--lognormal] [--save BASE]
// [--plot OUT]: selection curves of two gillnets from their catches.
#include <filesystem>
#include <memory>

#include "base/format.h"
#include "cli/cli_support.h"
#include "cli/plot_output.h"
#include "data/lfq_file.h"
#include "numerics/text_convert.h"
#include "selection/gillnet.h"
#include "selection/gillnet_plot.h"

namespace norvo::cli {
namespace {

struct GillnetCliOptions {
    std::string path;
    int small = 0, big = 0;
    std::vector<std::string> mesh;
    bool logNormal = false;
    std::string save, plot;
    bool force = false;
};

std::optional<float> Mesh(const std::vector<std::string>& mesh, size_t i) {
    if (i >= mesh.size() || mesh[i].empty()) return std::nullopt;
    double v = 0;
    if (!ParseNumber(mesh[i], v)) throw CLI::ValidationError("--mesh", "not a number: " + mesh[i]);
    return static_cast<float>(v);
}

// OUT.png -> OUT_ratio.png
std::string Beside(const std::string& path, const std::string& tag) {
    const std::filesystem::path p(path);
    return (p.parent_path() / (p.stem().string() + tag + p.extension().string())).string();
}

nlohmann::json Rows(const std::vector<std::pair<double, double>>& rows) {
    nlohmann::json a = nlohmann::json::array();
    for (const auto& [l, p] : rows) a.push_back({l, p});
    return a;
}

nlohmann::json Span(const std::vector<float>& v, int last) {
    return nlohmann::json(std::vector<float>(v.begin() + 1, v.begin() + 1 + last));
}

void RunGillnet(Context& ctx, const GillnetCliOptions& o) {
    const LfqData data = ctx.read(ReadLFQ(o.path));
    for (int s : {o.small, o.big})
        if (s > data.noOfSamples)
            throw Refusal(kGnInvalidInputsTitle,
                          "There is no sample " + std::to_string(s) + " in the file.");
    GillnetOptions opt;
    opt.sampleA = o.small;
    opt.sampleB = o.big;
    opt.meshA = Mesh(o.mesh, 0);
    opt.meshB = Mesh(o.mesh, 1);
    opt.logNormal = o.logNormal;
    const GillnetResult r = ComputeGillnet(data, opt);
    ctx.take(r);

    if (!o.save.empty()) {
        const GillnetFiles files = GillnetFileNames(o.save);
        for (const auto* p : {&files.sum, &files.net1, &files.net2}) KeepExisting(*p, o.force);
        SavePRBAll(files, ctx.programFolder, data, r);
    }
    if (!o.plot.empty()) {
        const std::string unit = data.unitOfMeasurement;
        ChartCanvas curves, ratio, catches;
        DrawGillnetCurves(curves, r, unit);
        DrawGillnetRatio(ratio, r, unit);
        DrawGillnetCatches(catches, r, unit);
        for (const auto& [canvas, path] : {std::pair{&curves, o.plot},
                                           {&ratio, Beside(o.plot, "_ratio")},
                                           {&catches, Beside(o.plot, "_catch")}})
            SavePlotOrRefuse(*canvas, path);
    }
    if (ctx.json) {
        ctx.print({{"points", r.points},
                   {"x", Span(r.lengthX, r.points)},
                   {"y", Span(r.lnRatio, r.points)},
                   {"a", r.fit.a()},
                   {"b", r.fit.b()},
                   {"l_a", r.lA},
                   {"l_b", r.lB},
                   {"s", r.s},
                   {"selection_a", Span(r.selectionA, r.nC)},
                   {"selection_b", Span(r.selectionB, r.nC)},
                   {"prb",
                    {{"sum", Rows(GillnetPrbRows(r, 0))},
                     {"net1", Rows(GillnetPrbRows(r, 1))},
                     {"net2", Rows(GillnetPrbRows(r, 2))}}}});
        return;
    }
    std::cout << "Points: " << r.points << "  a = " << Format(r.fit.a(), "0.0000")
              << "  b = " << Format(r.fit.b(), "0.0000") << "\n"
              << "L(A): " << Format(r.lA, "0.00") << "  L(B): " << Format(r.lB, "0.00")
              << "  m(A): " << Format(r.meshA, "0.00") << "  m(B): " << Format(r.meshB, "0.00")
              << "  s: " << Format(r.s, "0.0000") << "\n"
              << "Length  Net 1  Net 2\n";
    for (int i = 1; i <= r.nC; ++i)
        std::cout << Format(r.midlength(i), "0.00") << "  " << Format(r.selectionA[i], "0.0000")
                  << "  " << Format(r.selectionB[i], "0.0000") << "\n";
}

RegisterCommand register_gillnet{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<GillnetCliOptions>();
    auto* cmd = app.add_subcommand("gillnet", "Gillnet selection from the catches of two nets");
    cmd->add_option("FILE", o->path, "Grouped length-frequency file (.lfq)")->required();
    cmd->add_option("--small", o->small, "Sample of the smaller mesh (1-based)");
    cmd->add_option("--big", o->big, "Sample of the bigger mesh (1-based)");
    cmd->add_option("--mesh", o->mesh, "Mesh sizes of the smaller and the bigger net, A,B")
        ->delimiter(',');
    cmd->add_flag("--lognormal", o->logNormal, "Regress on the log of the midlengths");
    cmd->add_option("--save", o->save, "Write BASE.PRB, BASE1.PRB and BASE2.PRB");
    cmd->add_flag("--force", o->force, "Replace the PRB files when they exist");
    cmd->add_option("--plot", o->plot,
                    "Write the curves here, the ratio and catch plots beside it (_ratio, _catch)");
    cmd->callback([&ctx, o] { RunGillnet(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
