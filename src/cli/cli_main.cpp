// norvo-cli: runs the system's analyses headless on data files.
#include <algorithm>
#include <filesystem>

#include "base/fault.h"
#include "cli/cli_support.h"
#include "cli/examples.h"
#include "cli/interrupt.h"
#include "data/data_store.h"
#include "data/store_routines.h"

namespace norvo::cli {

std::vector<RegisteredCommand>& CommandRegistry() {
    static std::vector<RegisteredCommand> registry;
    return registry;
}

namespace {

constexpr int kExitUsage = 1;  // the arguments were wrong: CLI11's message on stderr
constexpr const char* kExitCodesFooter =
    "Exit codes: 0 a result, 1 wrong arguments, 2 the input was refused (the notice on stderr),\n"
    "3 an arithmetic fault, 130 stopped with Ctrl-C.";

int Refused(const Context& ctx, const std::string& title, const std::string& message) {
    if (ctx.json) {
        ctx.print({{"refused", {{"title", title}, {"message", message}}}});
    } else {
        std::cerr << title << ": " << message << "\n";
    }
    return kExitRefused;
}

int Faulted(const Context& ctx, const std::string& description, long number) {
    if (ctx.json) {
        ctx.print({{"fault", {{"description", description}, {"number", number}}}});
    } else {
        std::cerr << "Fault " << number << ": " << description << "\n";
    }
    return kExitFault;
}

}  // namespace
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
    app.footer(kExitCodesFooter);
    auto& commands = CommandRegistry();
    std::stable_sort(commands.begin(), commands.end(),
                     [](const auto& a, const auto& b) { return a.file < b.file; });
    for (auto& command : commands) command.setup(app, ctx);
    AddExamples(app);
    InstallInterruptFlag();
    try {
        app.parse(argc, argv);
    } catch (const CLI::RuntimeError& e) {
        // A command that ends on purpose with its own code (a refusal whose output is printed).
        return e.get_exit_code();
    } catch (const CLI::ParseError& e) {
        // Help and version are not errors; every usage error has the one documented code.
        const int code = app.exit(e);
        return code == 0 ? kExitOk : kExitUsage;
    } catch (const Refusal& r) {
        return Refused(ctx, r.title, r.what());
    } catch (const Stopped&) {
        std::cerr << kStoppedText << "\n";
        return kExitStopped;
    } catch (const norvo::Fault& f) {
        return Faulted(ctx, f.description(), f.number());
    } catch (const norvo::StoreError& e) {
        // A store that could not be written or read: the notice the screens give.
        if (e.access() == norvo::StoreAccess::Save)
            return Refused(ctx, norvo::kAppTitle, norvo::kFileSaveError);
        return Refused(ctx, norvo::kInvalidDataTitle, norvo::kCorruptedOrWrongFormat);
    } catch (const std::exception& e) {
        // Whatever else ends a command ends it with a report, never with an abort.
        return Faulted(ctx, e.what(), 0);
    }
    return kExitOk;
}
