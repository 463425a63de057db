// norvo-cli selection FILE.prb --logit [--select 3,4,5] | --running-average [--save OUT.prb]:
// the selection lengths L25, L50 and L75 from probabilities of capture.
#include <memory>

#include "cli/cli_support.h"
#include "data/sample_readers.h"
#include "selection/selection.h"

namespace norvo::cli {
namespace {

struct SelectionCliOptions {
    std::string path;
    bool logit = false;
    bool runningAverage = false;
    std::vector<int> select;
    std::string save;
    bool force = false;
};

void RunSelection(Context& ctx, const SelectionCliOptions& o) {
    const PrbData prb = ctx.read(ReadPRB(o.path));
    if (prb.length.empty()) throw Refusal(kSelInvalidActionTitle, kSelTooFewPointsText);
    SelectionInput in = SelectionInputFromPrb(prb.length, prb.probability);

    SelectionCurve curve;
    if (o.logit) {
        LogitPoints pts = MakeLogitPoints(in);
        if (!o.select.empty()) {
            std::fill(pts.selected.begin(), pts.selected.end(), false);
            for (int i : o.select) {
                if (i < in.firstClass || i > in.nC)
                    throw Refusal(kSelNoSelectionTitle, kSelNoSelectionText);
                pts.selected[static_cast<size_t>(i)] = true;
            }
            if (SelectedCount(pts) < 3) throw Refusal(kSelInvalidActionTitle, kSelTooFewPointsText);
        }
        const LogitFit logit = Regress1(pts);
        ctx.take(logit);
        curve = LogisticCurve(in, pts, logit.fit.a(), logit.fit.b());
        curve.r = logit.fit.r();
    } else {
        curve = RunningAverage(in);
    }
    if (!o.save.empty()) {
        KeepExisting(o.save, o.force);
        ctx.take(SaveProbabilities(
            o.save, ctx.programFolder,
            {prb.header.speciesname, prb.header.otherId, prb.header.unitOfMeasurement}, in));
    }
    if (ctx.json) {
        ctx.print({{"L25", curve.l25},
                   {"L50", curve.l50},
                   {"L75", curve.l75},
                   {"a", curve.a},
                   {"b", curve.b},
                   {"r", curve.r}});
        return;
    }
    std::cout << "L25 = " << curve.l25 << "\nL50 = " << curve.l50 << "\nL75 = " << curve.l75
              << "\n";
    if (o.logit)
        std::cout << "a = " << curve.a << "  b = " << curve.b << "  r = " << curve.r << "\n";
}

RegisterCommand register_selection{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<SelectionCliOptions>();
    auto* cmd = app.add_subcommand("selection", "Trawl-type selection lengths from a PRB file");
    cmd->add_option("FILE", o->path, "Probabilities of capture file (.prb)")->required();
    auto* logit = cmd->add_flag("--logit", o->logit, "Logistic fit on the logits");
    auto* avg = cmd->add_flag("--running-average", o->runningAverage, "Running average");
    logit->excludes(avg);
    cmd->add_option("--select", o->select, "Classes in the logit fit (1-based)")
        ->delimiter(',')
        ->needs(logit);
    cmd->add_option("--save", o->save, "Write the probabilities to a PRB file");
    cmd->add_flag("--force", o->force, "Replace the PRB file when it exists");
    cmd->callback([&ctx, o] {
        if (!o->logit && !o->runningAverage)
            throw CLI::ValidationError("selection", "choose --logit or --running-average");
        RunSelection(ctx, *o);
    });
}};

}  // namespace
}  // namespace norvo::cli
