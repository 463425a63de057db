// norvo-cli phi --k K [--loo L] [--woo W]: the growth performance indices.
#include <memory>

#include "base/format.h"
#include "cli/cli_support.h"
#include "growth/phi_prime.h"

namespace norvo::cli {
namespace {

nlohmann::json Optional(const std::optional<double>& v) {
    return v ? nlohmann::json(*v) : nlohmann::json(nullptr);
}

void RunPhi(Context& ctx, const PhiPrimeInput& in) {
    const auto r = ComputeParameters(in);
    if (ctx.json) {
        ctx.print({{"phi_prime", Optional(r.phiPrime)}, {"phi", Optional(r.phi)}});
        return;
    }
    std::cout << "phi' = " << (r.phiPrime ? Format(*r.phiPrime, kPhiFormat) : "") << "\n"
              << "phi  = " << (r.phi ? Format(*r.phi, kPhiFormat) : "") << "\n";
}

RegisterCommand register_phi{[](CLI::App& app, Context& ctx) {
    auto in = std::make_shared<PhiPrimeInput>();
    auto* cmd = app.add_subcommand("phi", "Growth performance indices phi' (Loo, K), phi (Woo, K)");
    cmd->add_option("--k", in->k, "Curvature parameter (K)")->required();
    cmd->add_option("--loo", in->loo, "Asymptotic length (Loo)");
    cmd->add_option("--woo", in->woo, "Asymptotic weight (Woo)");
    cmd->callback([&ctx, in] { RunPhi(ctx, *in); });
}};

}  // namespace
}  // namespace norvo::cli
