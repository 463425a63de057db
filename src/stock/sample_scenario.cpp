#include "stock/sample_scenario.h"

#include <filesystem>
#include <stdexcept>

#include "data/lfq_file.h"
#include "data/species_files.h"
#include "data/store_routines.h"
#include "stock/vpa_length.h"

namespace norvo {
namespace {

// The trawl takes the larger share of every class and its selection starts earlier.
constexpr double kTrawlShare = 0.7;
const ScenarioSelection kTrawlSelection{kSampleTrawlName, kSampleSpeciesName, 14, 18, 60, 70};
const ScenarioSelection kGillnetSelection{kSampleGillnetName, kSampleSpeciesName, 20, 24, 30, 34};

std::string Fail(const UserNotice* n) {
    return n ? n->title + ": " + n->text : "refused";
}

}  // namespace

void SaveSampleScenario(const std::string& programFolder, const std::string& catchFile) {
    const std::filesystem::path folder = programFolder;
    auto at = [&](const char* name) { return (folder / name).lexically_normal().string(); };

    auto lfq = ReadLFQ(catchFile);
    if (!lfq) throw std::runtime_error(lfq.error().notice.text);
    // The simulation's stock: M 1, Loo 30 on average with 20 % spread (so Loo 40 bounds the
    // largest fish), K 1.5.
    LengthVpaOptions vpa;
    vpa.m = 1.0f;
    vpa.ft = 1.0f;
    vpa.loo = 40;
    vpa.k = 1.5f;
    vpa.a = 0.01f;
    vpa.b = 3;
    vpa.plusGroups = 2;
    const LengthVpaResult r = RunLengthVpa(lfq.value(), vpa);
    if (!r.ok()) throw std::runtime_error(Fail(r.refusal()));
    SpeciesData species = LengthVpaSpecies(lfq.value(), vpa, r);
    species.header.speciesName = kSampleSpeciesName;
    std::filesystem::remove(at(kSampleSpeciesFile));
    SaveLengthVpaSpecies(at(kSampleSpeciesFile), programFolder, species);

    for (const auto& [file, name] : {std::pair{kSampleTrawlFile, kSampleTrawlName},
                                     std::pair{kSampleGillnetFile, kSampleGillnetName}}) {
        std::filesystem::remove(at(file));
        if (!CopyTemplate(at(file), programFolder))
            throw std::runtime_error("cannot create " + at(file));
        WriteFleetFile(at(file), {at(file), name, ""});
    }

    const std::string sce = at(kSampleScenarioFile);
    std::filesystem::remove(sce);
    if (!CopyTemplate(sce, programFolder)) throw std::runtime_error("cannot create " + sce);
    SaveScenarioHeader(sce, "Simulated stock, two fleets",
                       "Catches of Simull02.LFQ shared 70/30 by trawl and gillnet");
    SaveScenarioMembers(
        sce, {{kSampleSpeciesName, at(kSampleSpeciesFile)}},
        {{kSampleTrawlName, at(kSampleTrawlFile)}, {kSampleGillnetName, at(kSampleGillnetFile)}});
    std::vector<CatchRow> trawl, gillnet;
    // The run's catches are 1-based by class, the species file's classes 0-based.
    for (size_t i = 0; i < species.classes.size(); ++i) {
        const double total = i + 1 < r.C.size() ? r.C[i + 1] : 0;
        const double mid = species.classes[i].lengthClass;
        trawl.push_back({mid, kTrawlShare * total});
        gillnet.push_back({mid, (1 - kTrawlShare) * total});
    }
    for (const auto& [sel, rows] :
         {std::pair{kTrawlSelection, trawl}, std::pair{kGillnetSelection, gillnet}}) {
        if (const Outcome o = SaveSelection(sce, sel); !o.ok())
            throw std::runtime_error(Fail(o.refusal()));
        SaveCatches(sce, sel.fleet, sel.species, rows);
    }
}

}  // namespace norvo
