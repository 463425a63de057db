// norvo-cli ypr knife --mk M --lc LC [--e E,...] and norvo-cli ypr ogive --mk M --table FILE.prb
// [--l50loo X] [--loo L] [--l50 A --l75 B] [--e E,...]: Beverton and Holt relative yield and
// biomass per recruit with their reference points; --surface adds the grids, --plot draws the
// 2-D plot or, with --surface, the surface.
#include <memory>
#include <optional>

#include "base/checked.h"
#include "base/format.h"
#include "chart/surface3d.h"
#include "cli/cli_support.h"
#include "cli/plot_output.h"
#include "data/sample_readers.h"
#include "numerics/text_convert.h"
#include "stock/relative_ypr_knife.h"
#include "stock/relative_ypr_ogive.h"
#include "stock/relative_ypr_plot.h"

namespace norvo::cli {
namespace {

struct YprCliOptions {
    double mk = 1;
    double lc = 0.05;
    std::vector<double> e;
    bool surface = false;
    bool biomass = false;
    int rotation = 45;
    std::string plot;
    int width = 800;
    int height = 600;
    // Ogive only.
    std::string table;
    double l50Loo = 0.05;
    std::optional<double> loo, l50, l75;
};

nlohmann::json TableJson(const YieldCurveTable& t) {
    nlohmann::json e = nlohmann::json::array(), y = nlohmann::json::array(),
                   b = nlohmann::json::array();
    for (int i = 0; i <= 20; ++i) {
        e.push_back(i == 20 ? 0.99 : 0.05 * i);
        y.push_back(t.y[size_t(i)]);
        b.push_back(t.b[size_t(i)]);
    }
    return {{"e", e}, {"y", y}, {"b", b}};
}

nlohmann::json CurveJson(const std::vector<CurvePoint>& c) {
    nlohmann::json j = nlohmann::json::array();
    for (const auto& p : c) j.push_back({p.e, p.value});
    return j;
}

nlohmann::json RowsJson(const std::vector<YprRow>& rows) {
    nlohmann::json j = nlohmann::json::array();
    for (const auto& r : rows) j.push_back({{"e", r.e}, {"y", r.y}, {"b", r.b}});
    return j;
}

nlohmann::json GridJson(const std::vector<SurfaceRow>& rows) {
    nlohmann::json j = nlohmann::json::array();
    for (const auto& r : rows) j.push_back({{"e", r.e}, {"values", r.values}});
    return j;
}

template <class Analysis>
void SavePicture(const YprCliOptions& o, const Analysis& r, float yPrimeMax, bool ogive,
                 const std::vector<SurfaceRow>& surface) {
    if (o.plot.empty()) return;
    ChartCanvas canvas(o.width, o.height);
    if (o.surface) {
        SurfaceStyle style = YprSurfaceStyle(ogive, o.biomass);
        style.rotationDeg = o.rotation;
        style.floor = style.ceiling = style.isopleths = false;
        DrawSurface(canvas, YprSurfaceGrid(surface), style);
    } else {
        DrawYprPlot(canvas, {r.curveY, r.curveB, yPrimeMax, r.e10, r.e50, r.eMax, r.yAtE10,
                             r.bAtE50, r.yAtEmax});
    }
    SavePlotOrRefuse(canvas, o.plot, o.width, o.height);
}

void PrintText(const std::vector<YprRow>& rows, double e10, double e50, double eMax) {
    std::cout << "E-10 = " << Format(e10, "#0.000") << "\nE-50 = " << Format(e50, "#0.000")
              << "\nE-max = " << Format(eMax, "#0.000") << "\n\nE\tY'/R\tB'/R\n";
    for (const auto& r : rows)
        std::cout << Format(r.e, "0.00") << "\t" << Format(r.y, "#0.000") << "\t"
                  << Format(r.b, "#0.000") << "\n";
}

void RunKnife(Context& ctx, const YprCliOptions& o) {
    const float mk = R4(o.mk), lc = R4(o.lc);
    const KnifeAnalysis r = AnalyseKnife(mk, lc);
    ctx.take(r);
    const float top3d = YPrimeMaxFromSurface(mk);
    const float top2d = FindYPrimeMaxKnife(mk);
    std::vector<SurfaceRow> gridY, gridB;
    if (o.surface) {
        gridY = KnifeSurface(mk, false);
        gridB = KnifeSurface(mk, true);
    }
    SavePicture(o, r, top3d, false, o.biomass ? gridB : gridY);
    if (!ctx.json) {
        PrintText(r.report, r.e10, r.e50, r.eMax);
        return;
    }
    nlohmann::json points = nlohmann::json::array();
    for (double e : o.e) {
        const float in = R4(e);
        float ey = in, eb = in;
        const double y = RelativeYieldKnife(mk, lc, ey);
        const double b = RelativeBiomassKnife(mk, lc, eb);
        points.push_back({{"e", in},
                          {"y", y},
                          {"b", b},
                          {"e_after", ey},
                          {"y_at", RelativeYieldAt(in, mk, lc)}});
    }
    nlohmann::json j = {{"mk", mk},
                        {"lc_loo", lc},
                        {"points", points},
                        {"table", TableJson(r.table)},
                        {"e10", r.e10},
                        {"e50", r.e50},
                        {"emax", r.eMax},
                        {"yprime_max_3d", top3d},
                        {"yprime_max_2d", top2d},
                        {"report", RowsJson(r.report)},
                        {"curve_y", CurveJson(r.curveY)},
                        {"curve_b", CurveJson(r.curveB)}};
    if (o.surface) {
        j["grid_y"] = GridJson(gridY);
        j["grid_b"] = GridJson(gridB);
    }
    if (!o.plot.empty()) j["plot"] = o.plot;
    ctx.print(j);
}

void RunOgive(Context& ctx, const YprCliOptions& o) {
    const PrbData prb = ctx.read(ReadPRB(o.table));
    const OgiveLengths found = FindOgiveLengths(prb.length, prb.probability);
    // The boxes' texts: typed values, or those found in the table.
    const std::string l50Text = o.l50 ? Format(*o.l50, "#0.00") : found.l50Text;
    const std::string l75Text = o.l75 ? Format(*o.l75, "#0.00") : found.l75Text;
    const std::string looText = o.loo ? Format(*o.loo, "#0.00") : ProposedLooText(prb.length);
    const float l50Box = TextToSingle(l50Text), l75Box = TextToSingle(l75Text);
    const float loo = TextToSingle(looText);
    const float mk = R4(o.mk), l50Loo = R4(o.l50Loo);
    const OgiveClasses cls = ClassesOfTable(prb.length, l50Box, l75Box);
    const OgiveAnalysis r = AnalyseOgive(cls, mk, l50Loo, loo);
    ctx.take(r);
    const float top = FindYPrimeMaxSelection(cls, mk, loo);
    std::vector<SurfaceRow> gridY, gridB;
    if (o.surface) {
        gridY = OgiveSurface(cls, mk, loo, false);
        gridB = OgiveSurface(cls, mk, loo, true);
    }
    SavePicture(o, r, top, true, o.biomass ? gridB : gridY);
    if (!ctx.json) {
        std::cout << "L-50 = " << l50Text << "\nL-75 = " << l75Text << "\nLoo = " << looText
                  << "\n";
        PrintText(r.report, r.e10, r.e50, r.eMax);
        return;
    }
    nlohmann::json points = nlohmann::json::array();
    for (double e : o.e) {
        const float in = R4(e);
        float ey = in, eb = in;
        float a = mk, b = l50Loo, c = loo;
        const double y = RelativeYieldSelection(cls, a, b, c, ey);
        a = mk, b = l50Loo, c = loo;
        const double bio = RelativeBiomassSelection(cls, a, b, c, eb);
        points.push_back({{"e", in},
                          {"y", y},
                          {"b", bio},
                          {"e_after_y", ey},
                          {"e_after_b", eb},
                          {"y_at", RelativeYieldAt(in, mk, l50Loo)}});
    }
    nlohmann::json j = {{"mk", mk},
                        {"l50_loo", l50Loo},
                        {"loo", loo},
                        {"loo_text", looText},
                        {"l50_found", found.l50},
                        {"l75_found", found.l75},
                        {"l50_text", l50Text},
                        {"l75_text", l75Text},
                        {"points", points},
                        {"table", TableJson(r.table)},
                        {"e10", r.e10},
                        {"e50", r.e50},
                        {"emax", r.eMax},
                        {"yprime_max", top},
                        {"report", RowsJson(r.report)},
                        {"curve_y", CurveJson(r.curveY)},
                        {"curve_b", CurveJson(r.curveB)}};
    if (o.surface) {
        j["grid_y"] = GridJson(gridY);
        j["grid_b"] = GridJson(gridB);
    }
    if (!o.plot.empty()) j["plot"] = o.plot;
    ctx.print(j);
}

void AddCommon(CLI::App* cmd, YprCliOptions& o) {
    cmd->add_option("--mk", o.mk, "M/K")->required();
    cmd->add_option("--e", o.e, "Exploitation ratios to evaluate")->delimiter(',');
    cmd->add_flag("--surface", o.surface, "Add the surface's grids (the plot shows the surface)");
    cmd->add_flag("--biomass", o.biomass, "The surface plot shows B'/R instead of Y'/R");
    cmd->add_option("--rotation", o.rotation, "Rotation of the surface in degrees")
        ->check(CLI::Range(0, 359));
    cmd->add_option("--plot", o.plot, "Output picture: .png, .bmp, .svg or .pdf");
    cmd->add_option("--width", o.width, "Width in pixels")->check(CLI::Range(16, 10000));
    cmd->add_option("--height", o.height, "Height in pixels")->check(CLI::Range(16, 10000));
}

RegisterCommand register_ypr{[](CLI::App& app, Context& ctx) {
    auto* ypr = app.add_subcommand("ypr", "Relative yield and biomass per recruit");
    ypr->require_subcommand(1);

    auto k = std::make_shared<YprCliOptions>();
    auto* knife = ypr->add_subcommand("knife", "Knife-edge selection at Lc/Loo");
    AddCommon(knife, *k);
    knife->add_option("--lc", k->lc, "Lc/Loo")->required();
    knife->callback([k, &ctx] { RunKnife(ctx, *k); });

    auto g = std::make_shared<YprCliOptions>();
    auto* ogive = ypr->add_subcommand("ogive", "Selection ogive from a probabilities file");
    AddCommon(ogive, *g);
    ogive->add_option("--table", g->table, "Selection probabilities file (.prb)")->required();
    ogive->add_option("--l50loo", g->l50Loo, "L50/Loo (default 0.05)");
    ogive->add_option("--loo", g->loo, "Loo (default: last length x 1.05)");
    auto* l50 = ogive->add_option("--l50", g->l50, "L-50 (default: from the table)");
    auto* l75 = ogive->add_option("--l75", g->l75, "L-75 (default: from the table)");
    l50->needs(l75);
    l75->needs(l50);
    ogive->callback([g, &ctx] { RunOgive(ctx, *g); });
}};

}  // namespace
}  // namespace norvo::cli
