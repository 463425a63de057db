// norvo-cli: runs the system's analyses headless on data files.
#include <filesystem>

#include "base/fault.h"
#include "cli/cli_support.h"

namespace norvo::cli {

std::vector<CommandSetup>& CommandRegistry() {
    static std::vector<CommandSetup> registry;
    return registry;
}

}  // namespace norvo::cli

int main(int argc, char** argv) {
    using namespace norvo::cli;
    Context ctx;
    {
        std::error_code ec;
        auto exe = std::filesystem::canonical("/proc/self/exe", ec);
        ctx.programFolder =
            ec ? std::filesystem::current_path().string() : exe.parent_path().string();
    }
    CLI::App app{"Norvo II headless front end: runs the toolbox's analyses on data files."};
    app.require_subcommand(1);
    app.add_flag("--json", ctx.json, "Print results as JSON");
    app.fallthrough();
    for (auto& setup : CommandRegistry()) setup(app, ctx);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        return app.exit(e);
    } catch (const Refusal& r) {
        if (ctx.json) {
            ctx.print({{"refused", {{"title", r.title}, {"message", r.what()}}}});
        } else {
            std::cerr << r.title << ": " << r.what() << "\n";
        }
        return kExitRefused;
    } catch (const norvo::Fault& f) {
        if (ctx.json) {
            ctx.print({{"fault", {{"description", f.description()}, {"number", f.number()}}}});
        } else {
            std::cerr << "Fault " << f.number() << ": " << f.description() << "\n";
        }
        return kExitFault;
    }
    return kExitOk;
}
