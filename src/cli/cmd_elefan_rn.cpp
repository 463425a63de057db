// norvo-cli elefan rn FILE.lfq --loo L --k K [--c C --wp WP] [--ss S --sl L]: the ELEFAN I score
// of one set of growth parameters.
#include <memory>
#include <optional>

#include "base/format.h"
#include "cli/cli_support.h"
#include "cli/cmd_elefan.h"
#include "data/lfq_file.h"
#include "growth/elefan.h"
#include "growth/elefan_lfq.h"

namespace norvo::cli {
namespace {

struct RnOptions {
    std::string path;
    float loo = 0, k = 0, c = 0, wp = 0;
    std::optional<float> ss, sl;
};

void RunRn(Context& ctx, const RnOptions& o) {
    const LfqData data = ctx.read(ReadLFQ(o.path));
    ctx.take(CheckElefanFile(data));
    const ElefanModel model = RestructureElefan(ElefanInputFromLfq(data));

    GrowthParams p;
    p.loo = o.loo;
    p.k = o.k;
    p.c = o.c;
    p.wp = o.wp;
    if (o.ss && o.sl) {
        p.ss = *o.ss;
        p.sl = *o.sl;
    } else {
        // The screen proposes its starting point against the K-scan's default Loo.
        const float defaultLoo = DefaultKScanLoo(data.midlength(data.noOfClasses - 1));
        const StartingPoint sp = DefaultStartingPoint(model, defaultLoo);
        p.ss = sp.ss;
        p.sl = sp.sl;
    }
    ElefanScratch scratch(model);
    float esp = 0;
    const float rn = ComputeRn(model, p, scratch, &esp);

    if (ctx.json) {
        ctx.print({{"rn", std::stod(Format(rn, "0.000"))},
                   {"esp", Shortest(esp)},
                   {"asp", Shortest(model.asp())},
                   {"ss", Shortest(p.ss)},
                   {"sl", Shortest(p.sl)},
                   {"loo", Shortest(p.loo)},
                   {"k", Shortest(p.k)},
                   {"c", Shortest(p.c)},
                   {"wp", Shortest(p.wp)}});
        return;
    }
    std::cout << "Starting sample: " << Format(p.ss, "0") << "\n"
              << "Starting length: " << Format(p.sl, "0.00") << "\n"
              << "ESP: " << Format(esp, "0.0000") << "\n"
              << "ASP: " << Format(model.asp(), "0.0000") << "\n"
              << "Rn: " << Format(rn, "0.000") << "\n";
}

RegisterCommand register_elefan_rn{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<RnOptions>();
    auto* cmd = ElefanCommand(app).add_subcommand("rn", "Score one set of growth parameters");
    cmd->add_option("FILE", o->path, "Grouped length-frequency file (.lfq)")->required();
    cmd->add_option("--loo", o->loo, "Asymptotic length")->required();
    cmd->add_option("--k", o->k, "Growth constant K")->required();
    cmd->add_option("--c", o->c, "Amplitude of the seasonal oscillation (0 for none)");
    cmd->add_option("--wp", o->wp, "Winter point");
    auto* ss = cmd->add_option("--ss", o->ss, "Starting sample (default: the proposed point)");
    auto* sl = cmd->add_option("--sl", o->sl, "Starting length");
    ss->needs(sl);
    sl->needs(ss);
    cmd->callback([&ctx, o] { RunRn(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
