#include "cli/examples.h"

#include <map>
#include <string>

namespace norvo::cli {
namespace {

// By the command's path below norvo-cli.
const std::map<std::string, std::string>& Examples() {
    static const std::map<std::string, std::string> examples = {
        {"new", "norvo-cli new Data/Example.lfq"},
        {"appeldoorn", "norvo-cli appeldoorn Data/SimTag.GIN --plot appeldoorn.png"},
        {"bhattacharya", "norvo-cli bhattacharya Data/Simull01.LFQ --sample 1 --points 3:6,12:15"},
        {"normsep", "norvo-cli normsep Data/Simull01.LFQ --sample 1 --means 12,22"},
        {"linking", "norvo-cli linking Data/Means.msd --links '1>4>7,2>5' --json"},
        {"gulland", "norvo-cli gulland Data/SimTag.GIN --plot gulland.png"},
        {"munro", "norvo-cli munro Data/SimTag.GIN --fixed-loo 40"},
        {"fabens", "norvo-cli fabens Data/SimTag.GIN --deselect 1,4"},
        {"laa", "norvo-cli laa Data/SimAge.LAA --weights no --plot laa.png"},
        {"gillnet", "norvo-cli gillnet Data/Nets.lfq --small 1 --big 2 --mesh 5,6"},
        {"recruitment",
         "norvo-cli recruitment Data/Simull01.LFQ --loo 40 --k 0.5 --groups 3,9 --plot rec.png"},
        {"merge", "norvo-cli merge Data/North.lfq Data/South.lfq Data/Both.lfq"},
        {"pool",
         "norvo-cli pool Data/Simull01.LFQ Data/Pooled.lfq --samples 1,2 --date 15/03/2021"},
        {"adjust", "norvo-cli adjust Data/Simull01.LFQ Data/Wide.lfq --ci 2"},
        {"correct", "norvo-cli correct Data/Simull01.LFQ Data/Corrected.lfq --ogive 15,18"},
        {"smooth", "norvo-cli smooth Data/Simull01.LFQ Data/Smooth.lfq --window 5"},
        {"convert",
         "norvo-cli convert Data/Simull01.LFQ Data/Total.lfq --fn 2 --d 0.5 --e 1.1 --f 1"},
        {"raise", "norvo-cli raise Data/Simull01.LFQ Data/Raised.lfq --option 1 --constant 10"},
        {"sampleweight", "norvo-cli sampleweight Data/Simull01.LFQ --json"},
        {"vpa", "norvo-cli vpa age Data/Catch.caa --m 0.2 --ft 0.5"},
        {"vpa age", "norvo-cli vpa age Data/Catch.caa --m 0.2 --ft 0.5 --dt 1"},
        {"vpa length",
         "norvo-cli vpa length Data/Simull01.LFQ --m 0.8 --ft 0.5 --loo 40 --k 0.5 --plus 2"},
        {"tb", "norvo-cli tb Data/SimGulf.sce --vary Trawl --fix Gillnet=0.5 --plot tb.png"},
        {"ypr", "norvo-cli ypr knife --mk 1 --lc 0.4"},
        {"ypr knife", "norvo-cli ypr knife --mk 1 --lc 0.4 --surface --plot ypr.png"},
        {"ypr ogive", "norvo-cli ypr ogive --mk 1 --table Data/Ogive.prb --e 0.3,0.5"},
        {"info", "norvo-cli info Data/Simull01.LFQ --json"},
        {"import", "norvo-cli import catches.csv Data/Catches.lfq --species \"Sardinella\""},
        {"export", "norvo-cli export Data/Simull01.LFQ --csv simull01.csv"},
        {"import-dos", "norvo-cli import-dos OLDDATA.TXT Data/Old.lfq"},
        {"elefan", "norvo-cli elefan kscan Data/Simull01.LFQ --loo 40"},
        {"elefan rn", "norvo-cli elefan rn Data/Simull01.LFQ --loo 40 --k 0.5 --ss 1 --sl 10"},
        {"elefan kscan", "norvo-cli elefan kscan Data/Simull01.LFQ --loo 40 --plot kscan.png"},
        {"elefan surface",
         "norvo-cli elefan surface Data/Simull01.LFQ --loo 35:45 --k 0.3:0.8 --ss 1 --sl 10"},
        {"elefan search", "norvo-cli elefan search Data/Simull01.LFQ --loo 40:1 --k 0.5:0.05"},
        {"shepherd", "norvo-cli shepherd kscan Data/Simull01.LFQ --loo 40"},
        {"shepherd score", "norvo-cli shepherd score Data/Simull01.LFQ --loo 40 --k 0.5 --json"},
        {"shepherd kscan", "norvo-cli shepherd kscan Data/Simull01.LFQ --loo 40 --plot k.png"},
        {"shepherd surface",
         "norvo-cli shepherd surface Data/Simull01.LFQ --loo 35:45 --k 0.3:0.8 --json"},
        {"catchcurve",
         "norvo-cli catchcurve Data/Simull01.LFQ --loo 40 --k 0.5 --extrapolate --m 0.8"},
        {"pw", "norvo-cli pw Data/Simull01.LFQ --first 8 --plot pw.png"},
        {"jvz", "norvo-cli jvz catches.lfq --loo 40 --k 0.5 --points 8:14 --plot jvz.png"},
        {"lmax", "norvo-cli lmax Data/Simull01.LFQ --plot lmax.png"},
        {"mortality", "norvo-cli mortality pauly --length --size 40 --k 0.5 --t 27"},
        {"mortality bh", "norvo-cli mortality bh --loo 40 --k 0.5 --lmean 25 --lc 15"},
        {"mortality ault",
         "norvo-cli mortality ault --loo 40 --k 0.5 --lmean 25 --lc 15 --lmax 38"},
        {"mortality hoenig", "norvo-cli mortality hoenig --model1 --tmax 12"},
        {"mortality pauly", "norvo-cli mortality pauly --length --size 40 --k 0.5 --t 27"},
        {"mortality rikhter", "norvo-cli mortality rikhter --tm 2.5"},
        {"phi", "norvo-cli phi --k 0.5 --loo 40"},
        {"plotdemo", "norvo-cli plotdemo --plot demo.png"},
        {"regress", "norvo-cli regress Data/Pairs.xyf --json"},
        {"selection", "norvo-cli selection Data/Catch.prb --logit --save Data/Ogive.prb"},
        {"simulate", "norvo-cli simulate Data/Stock.lfq Data/Catch.lfq --seed 7 --samples 12"},
        {"vbgfplot",
         "norvo-cli vbgfplot Data/Simull01.LFQ --loo 40 --k 0.5 --ss 1 --sl 10 --plot vbgf.png"},
    };
    return examples;
}

void AddExamplesBelow(CLI::App& app, const std::string& prefix) {
    for (CLI::App* sub : app.get_subcommands({})) {
        const std::string path = prefix.empty() ? sub->get_name() : prefix + " " + sub->get_name();
        const auto it = Examples().find(path);
        if (it != Examples().end()) sub->footer("Example:\n  " + it->second);
        AddExamplesBelow(*sub, path);
    }
}

}  // namespace

void AddExamples(CLI::App& app) {
    AddExamplesBelow(app, "");
}

}  // namespace norvo::cli
