// norvo-cli mortality bh|ault|hoenig|pauly|rikhter: the mortality calculators on typed values.
// Omitted values count as 0, as an empty box does on the screens, and meet the same checks.
#include "cli/cmd_mortality.h"

#include <memory>
#include <optional>

#include "base/format.h"
#include "cli/cli_support.h"
#include "mortality/ault_ehrhardt.h"
#include "mortality/bh_mortality.h"
#include "mortality/hoenig.h"
#include "mortality/pauly_m.h"
#include "mortality/rikhter_efanov.h"

namespace norvo::cli {

CLI::App& MortalityCommand(CLI::App& app) {
    auto found =
        app.get_subcommands([](const CLI::App* s) { return s->get_name() == "mortality"; });
    if (!found.empty()) return *found.front();
    auto* cmd = app.add_subcommand("mortality", "Total and natural mortality estimates");
    cmd->require_subcommand(1);
    return *cmd;
}

namespace {

nlohmann::json Optional(const std::optional<double>& v) {
    return v ? nlohmann::json(*v) : nlohmann::json(nullptr);
}

void AddMeanLengthOptions(CLI::App* cmd, MeanLengthInput& in) {
    cmd->add_option("--loo", in.loo, "Asymptotic length (Loo)");
    cmd->add_option("--k", in.k, "Growth constant (K)");
    cmd->add_option("--lmean", in.lmean, "Mean length of the catch (Lmean)");
    cmd->add_option("--lc", in.lc, "Cut-off length (L')");
}

void RunBh(Context& ctx, const MeanLengthInput& in) {
    const auto r = ComputeBhMortality(in);
    ctx.take(r);
    if (ctx.json) {
        ctx.print({{"z", r.z}});
    } else {
        std::cout << kComputedZCaption << " " << Format(r.z, kZFormat) << " " << kPerYear << "\n";
    }
}

void RunAult(Context& ctx, const AultEhrhardtInput& in) {
    const auto r = ComputeAultEhrhardt(in);
    ctx.take(r);
    if (ctx.json) {
        ctx.print({{"z", r.z}, {"exact_root", Optional(r.exactRoot)}});
    } else {
        std::cout << kComputedZCaption << " " << Format(r.z, kZFormat) << " " << kPerYear << "\n";
        std::cout << kAultExactRootCaption << " "
                  << (r.exactRoot ? Format(*r.exactRoot, kZFormat) + " " + kPerYear : "none")
                  << "\n";
    }
}

void RunHoenig(Context& ctx, const HoenigInput& in) {
    const auto r = ComputeHoenig(in);
    ctx.take(r);
    if (ctx.json) {
        ctx.print({{"z1", Optional(r.z1)}, {"z2", Optional(r.z2)}, {"se2", Optional(r.se2)}});
        return;
    }
    if (r.z1) std::cout << kHoenigModel1Caption << ": Z = " << Format(*r.z1, kHoenigFormat) << "\n";
    if (r.z2) {
        std::cout << kHoenigModel2Caption << ": Z = " << Format(*r.z2, kHoenigFormat) << "  "
                  << kHoenigSeCaption << " " << Format(*r.se2, kHoenigFormat) << "\n";
    }
}

struct PaulyOptions {
    PaulyInput in;
    bool length = false;
    bool weight = false;
};

void RunPauly(Context& ctx, PaulyOptions& o) {
    o.in.form = o.weight ? PaulyForm::Weight : PaulyForm::Length;
    const auto r = ComputePaulyM(o.in);
    ctx.take(r);
    if (ctx.json) {
        ctx.print({{"m", r.m}});
    } else {
        std::cout << (o.weight ? kPaulyWeightFormula : kPaulyLengthFormula) << "\n"
                  << "M = " << Format(r.m, kPaulyMFormat) << " " << kPerYear << "\n";
    }
}

void RunRikhter(Context& ctx, const RikhterEfanovInput& in) {
    const auto r = ComputeRikhterEfanov(in);
    ctx.take(r);
    if (ctx.json) {
        ctx.print({{"m", r.m}});
    } else {
        std::cout << "M = " << Format(r.m, kRikhterMFormat) << " " << kPerYear << "\n";
    }
}

RegisterCommand register_mortality{[](CLI::App& app, Context& ctx) {
    CLI::App& mortality = MortalityCommand(app);

    auto bh = std::make_shared<MeanLengthInput>();
    auto* cmd = mortality.add_subcommand("bh", "Z from mean length (Beverton and Holt)");
    AddMeanLengthOptions(cmd, *bh);
    cmd->callback([&ctx, bh] { RunBh(ctx, *bh); });

    auto ault = std::make_shared<AultEhrhardtInput>();
    cmd = mortality.add_subcommand("ault", "Z from mean and maximum length (Ault and Ehrhardt)");
    AddMeanLengthOptions(cmd, ault->common);
    cmd->add_option("--lmax", ault->lmax, "Largest length (Lmax)");
    cmd->callback([&ctx, ault] { RunAult(ctx, *ault); });

    auto hoenig = std::make_shared<HoenigInput>();
    cmd = mortality.add_subcommand("hoenig", "Z from the oldest age (Hoenig's models)");
    cmd->add_option("--tmax", hoenig->tmax, "Oldest age (tmax)");
    cmd->add_option("--tc", hoenig->tc, "Mean age at first capture (tc), model 2");
    cmd->add_option("--n", hoenig->n, "Sample size of the old animals (N), model 2");
    cmd->add_flag("--model1", hoenig->model1, "Compute model 1");
    cmd->add_flag("--model2", hoenig->model2, "Compute model 2");
    cmd->callback([&ctx, hoenig] { RunHoenig(ctx, *hoenig); });

    auto pauly = std::make_shared<PaulyOptions>();
    cmd = mortality.add_subcommand("pauly", "Natural mortality from Pauly's equation");
    auto* length = cmd->add_flag("--length", pauly->length, "Length form, size = Loo in cm");
    auto* weight = cmd->add_flag("--weight", pauly->weight, "Weight form, size = Woo in g");
    length->excludes(weight);
    cmd->add_option("--size", pauly->in.size, "Asymptotic size (Loo or Woo)");
    cmd->add_option("--k", pauly->in.k, "Growth constant (K)");
    cmd->add_option("--t", pauly->in.t, "Mean habitat temperature (deg C)");
    cmd->callback([&ctx, pauly] { RunPauly(ctx, *pauly); });

    auto rikhter = std::make_shared<RikhterEfanovInput>();
    cmd = mortality.add_subcommand("rikhter", "Natural mortality from age at maturity");
    cmd->add_option("--tm", rikhter->tm, "Age at first maturity (years)");
    cmd->callback([&ctx, rikhter] { RunRikhter(ctx, *rikhter); });
}};

}  // namespace
}  // namespace norvo::cli
