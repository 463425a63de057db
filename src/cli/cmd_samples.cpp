// norvo-cli merge, pool, adjust, correct, smooth, convert, raise: each writes a new grouped
// length-frequency file from one or two sources; sampleweight writes Wt_Sample into its file.
#include <memory>

#include "base/format.h"
#include "cli/cli_support.h"
#include "data/lfq_file.h"
#include "data/store_routines.h"
#include "samples/adjust_smooth.h"
#include "samples/convert.h"
#include "samples/correct.h"
#include "samples/merge_pool.h"
#include "samples/raise.h"
#include "samples/sample_weight.h"

namespace norvo::cli {
namespace {

inline constexpr const char* kUsageTitle = "Invalid Action";

struct ToolArgs {
    std::vector<std::string> sources = std::vector<std::string>(2);
    std::string destination;
    bool overwrite = false;
    // pool
    std::vector<std::string> poolSamples, poolDates;
    // adjust, smooth, convert, raise, correct
    double ci = 0;
    int window = 3;
    int fn = 1;
    double d = 0, e = 0, f = 1;
    int option = 3;
    double constant = 1;
    std::string raiseSamples;
    std::string prb, ogive;
};

std::vector<double> NumberList(const std::string& text, const char* what) {
    std::vector<double> out;
    size_t start = 0;
    while (start <= text.size()) {
        const size_t comma = text.find(',', start);
        const std::string piece = text.substr(start, comma - start);
        try {
            size_t used = 0;
            out.push_back(std::stod(piece, &used));
            if (used != piece.size()) throw std::invalid_argument(piece);
        } catch (const std::exception&) {
            throw Refusal(kUsageTitle, std::string("Cannot read ") + what + ": " + text);
        }
        if (comma == std::string::npos) break;
        start = comma + 1;
    }
    return out;
}

std::vector<int> SampleList(const std::string& text) {
    std::vector<int> out;
    for (double v : NumberList(text, "the sample numbers")) {
        if (v != static_cast<int>(v)) throw Refusal(kUsageTitle, "Sample numbers are whole.");
        out.push_back(static_cast<int>(v));
    }
    return out;
}

void CheckDestination(const ToolArgs& a) {
    KeepExisting(a.destination, a.overwrite);
}

void PrintTable(Context& ctx, const SampleFileRun& run, const std::string& path) {
    const LfqTable& t = run.table;
    if (ctx.json) {
        nlohmann::json j;
        j["path"] = path;
        j["first_mid"] = t.header.smallestMl;
        j["class_width"] = t.header.classInterval;
        j["dates"] = nlohmann::json::array();
        for (const LfqSample& s : t.samples)
            j["dates"].push_back(
                {{"day", s.samplingDay}, {"month", s.samplingMonth}, {"year", s.samplingYear}});
        j["freq"] = t.freq;
        j["remarks"] = t.header.remarks;
        ctx.print(j);
        return;
    }
    for (const auto& n : ctx.dialogs.shown()) std::cout << n.title << ": " << n.text << "\n";
    std::cout << "\nClass";
    for (const LfqSample& s : t.samples)
        std::cout << "\t" << FormatSampleDate(s.samplingDay, s.samplingMonth, s.samplingYear);
    std::cout << "\n";
    for (int c = 0; c < t.classes(); ++c) {
        std::cout << Format(t.midlength(c), "0.00");
        for (double f : t.freq[c]) std::cout << "\t" << Format(f, "0.00");
        std::cout << "\n";
    }
}

void Finish(Context& ctx, const ToolArgs& a, const SampleFileRun& run) {
    ctx.take(run);
    PrintTable(ctx, run, a.destination);
}

CLI::App* AddTool(CLI::App& app, const char* name, const char* help,
                  const std::shared_ptr<ToolArgs>& a, int sources) {
    auto* cmd = app.add_subcommand(name, help);
    if (sources == 2) {
        cmd->add_option("A", a->sources[0], "First source file (.lfq)")->required();
        cmd->add_option("B", a->sources[1], "Second source file (.lfq)")->required();
    } else {
        cmd->add_option("SOURCE", a->sources[0], "Source file (.lfq)")->required();
    }
    cmd->add_option("OUT", a->destination, "The new file (.lfq)")->required();
    cmd->add_flag("--force", a->overwrite, "Replace OUT when it exists");
    return cmd;
}

RegisterCommand regMerge{[](CLI::App& app, Context& ctx) {
    auto a = std::make_shared<ToolArgs>();
    auto* cmd = AddTool(app, "merge", "Merge two grouped files into a new one", a, 2);
    cmd->callback([&ctx, a] {
        CheckDestination(*a);
        Finish(ctx, *a,
               RunMerge({a->sources[0], a->sources[1], a->destination}, ctx.programFolder));
    });
}};

RegisterCommand regPool{[](CLI::App& app, Context& ctx) {
    auto a = std::make_shared<ToolArgs>();
    auto* cmd = AddTool(app, "pool", "Pool samples of a file into single dated samples", a, 1);
    cmd->add_option("--samples", a->poolSamples, "Samples of one pool, e.g. 1,2 (repeatable)")
        ->required();
    cmd->add_option("--date", a->poolDates, "Date of each pool, dd/mm/yyyy (one per --samples)")
        ->required();
    cmd->callback([&ctx, a] {
        if (a->poolSamples.size() != a->poolDates.size())
            throw Refusal(kUsageTitle, "Give one --date for each --samples.");
        PoolOptions o{a->sources[0], a->destination, {}};
        for (size_t k = 0; k < a->poolSamples.size(); ++k) {
            PoolSpec p;
            for (int n : SampleList(a->poolSamples[k])) p.samples.push_back(n - 1);
            if (!ParseSampleDate(a->poolDates[k], p.day, p.month, p.year))
                throw Refusal(kInvalidDataTitle, kPoolBadDateText);
            o.pools.push_back(p);
        }
        CheckDestination(*a);
        Finish(ctx, *a, RunPool(o, ctx.programFolder));
    });
}};

RegisterCommand regAdjust{[](CLI::App& app, Context& ctx) {
    auto a = std::make_shared<ToolArgs>();
    auto* cmd = AddTool(app, "adjust", "Change the class interval of a file", a, 1);
    cmd->add_option("--ci", a->ci, "The new class size (0.25 to 10)")->required();
    cmd->callback([&ctx, a] {
        CheckDestination(*a);
        Finish(ctx, *a, RunAdjust({a->sources[0], a->destination, a->ci}, ctx.programFolder));
    });
}};

RegisterCommand regCorrect{[](CLI::App& app, Context& ctx) {
    auto a = std::make_shared<ToolArgs>();
    auto* cmd = AddTool(app, "correct", "Correct frequencies for probabilities of capture", a, 1);
    auto* prb = cmd->add_option("--prb", a->prb, "Probability file (.prb)");
    auto* ogive = cmd->add_option("--ogive", a->ogive,
                                  "Selection ogive L50,L75,R75,R50 (R75,R50 0,0 for none)");
    prb->excludes(ogive);
    cmd->callback([&ctx, a] {
        CorrectOptions o{a->sources[0], a->destination, a->prb, std::nullopt};
        if (!a->ogive.empty()) {
            const auto v = NumberList(a->ogive, "the ogive");
            if (v.size() != 4) throw Refusal(kInvalidDataTitle, kCorrectIncompleteText);
            o.ogive = Ogive{v[0], v[1], v[2], v[3]};
        }
        CheckDestination(*a);
        Finish(ctx, *a, RunCorrect(o, ctx.programFolder));
    });
}};

RegisterCommand regSmooth{[](CLI::App& app, Context& ctx) {
    auto a = std::make_shared<ToolArgs>();
    auto* cmd = AddTool(app, "smooth", "Running average over 3 or 5 classes", a, 1);
    cmd->add_option("--window", a->window, "3 or 5 classes")
        ->check(CLI::IsMember({3, 5}))
        ->capture_default_str();
    cmd->callback([&ctx, a] {
        CheckDestination(*a);
        Finish(ctx, *a, RunSmooth({a->sources[0], a->destination, a->window}, ctx.programFolder));
    });
}};

RegisterCommand regConvert{[](CLI::App& app, Context& ctx) {
    auto a = std::make_shared<ToolArgs>();
    auto* cmd = AddTool(app, "convert", "Convert frequencies to another length measure", a, 1);
    cmd->add_option("--fn", a->fn, "1: L(new) = d * W ^ e, 2: L(new) = d + e * L(old) ^ f")
        ->check(CLI::IsMember({1, 2}))
        ->required();
    cmd->add_option("--d", a->d, "d")->required();
    cmd->add_option("--e", a->e, "e")->required();
    auto* f = cmd->add_option("--f", a->f, "f (function 2)");
    cmd->callback([&ctx, a, f] {
        if (a->fn == 2 && f->count() == 0)
            throw Refusal(kSmInvalidActionTitle, kCompleteTheInputsText);
        CheckDestination(*a);
        Finish(ctx, *a,
               RunConvert({a->sources[0], a->destination, {a->fn, a->d, a->e, a->f}},
                          ctx.programFolder));
    });
}};

RegisterCommand regRaise{[](CLI::App& app, Context& ctx) {
    auto a = std::make_shared<ToolArgs>();
    auto* cmd = AddTool(app, "raise", "Raise sample frequencies to the catch", a, 1);
    cmd->add_option("--option", a->option,
                    "1 catch/sample weight, 2 C/f, 3 constant, 4 % of sample total, 5 square "
                    "root of sample total")
        ->check(CLI::Range(1, 5))
        ->required();
    cmd->add_option("--constant", a->constant, "The constant (option 3)")->capture_default_str();
    cmd->add_option("--samples", a->raiseSamples, "Selected samples, e.g. 1,3 (default all)");
    cmd->callback([&ctx, a] {
        RaiseOptions o{
            a->sources[0], a->destination, static_cast<RaiseOption>(a->option), a->constant, {}};
        if (!a->raiseSamples.empty()) o.samples = SampleList(a->raiseSamples);
        CheckDestination(*a);
        Finish(ctx, *a, RunRaise(o, ctx.programFolder));
    });
}};

RegisterCommand regSampleWeight{[](CLI::App& app, Context& ctx) {
    auto path = std::make_shared<std::string>();
    auto* cmd = app.add_subcommand(
        "sampleweight", "Compute each sample's weight and write it into the file's Wt_Sample");
    cmd->add_option("FILE", *path, "Grouped length-frequency file (.lfq)")->required();
    cmd->callback([&ctx, path] {
        const SampleWeightResult r = RunSampleWeight(*path);
        ctx.take(r);
        if (ctx.json) {
            nlohmann::json j;
            j["path"] = *path;
            j["mean_weight"] = r.meanWeight;
            j["samples"] = nlohmann::json::array();
            for (const auto& s : r.samples)
                j["samples"].push_back({{"date", FormatSampleDate(s.day, s.month, s.year)},
                                        {"sum_f", s.sumF},
                                        {"weight", s.weight},
                                        {"mean_weight", s.meanWeight}});
            ctx.print(j);
            return;
        }
        for (const auto& n : ctx.dialogs.shown()) std::cout << n.title << ": " << n.text << "\n";
        std::cout << "\n" << kSwSampleHeadings[0];
        for (int k = 1; k < 4; ++k) std::cout << "\t" << kSwSampleHeadings[k];
        std::cout << "\n";
        for (const auto& s : r.samples)
            std::cout << FormatSampleDate(s.day, s.month, s.year) << "\t" << Format(s.sumF, "0.00")
                      << "\t" << Format(s.weight, "0.000") << "\t" << Format(s.meanWeight, "0.000")
                      << "\n";
    });
}};

}  // namespace
}  // namespace norvo::cli
