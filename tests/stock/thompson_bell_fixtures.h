#pragma once
// Scenarios for the Thompson and Bell tests: species and fleets in memory, and whole scenario
// files written through the data layer's writers.
#include <string>
#include <vector>

#include "data/species_files.h"
#include "data/store_routines.h"
#include "stock/thompson_bell.h"
#include "support/test_paths.h"

namespace norvo::test {

// A species of n classes of width 10 from 10, with the given F-array; values 2 throughout.
inline SpeciesData TbSpecies(const std::string& name, const std::vector<double>& fArray,
                             double loo = 100, double lowerLimit = 10, double classSize = 10) {
    SpeciesData d;
    d.header = {name, "",  lowerLimit, classSize, static_cast<int>(fArray.size()), 1000, 0.01, 3,
                0.4,  0.6, loo,        0.5};
    for (size_t i = 0; i < fArray.size(); ++i)
        d.classes.push_back({lowerLimit + (i + 0.5) * classSize, fArray[i], 2.0});
    return d;
}

// Catch rows at the species' mid-lengths, one for each class with a catch given.
inline std::vector<CatchRow> TbCatches(const SpeciesData& s, const std::vector<double>& c) {
    std::vector<CatchRow> rows;
    for (size_t i = 0; i < c.size() && i < s.classes.size(); ++i)
        rows.push_back({s.classes[i].lengthClass, c[i]});
    return rows;
}

// Inputs held in memory, with every combination empty until linked.
struct TbInputs {
    ThompsonBellInputs in;
    TbInputs(const std::vector<SpeciesData>& species, const std::vector<std::string>& fleets) {
        for (const auto& s : species) {
            in.scenario.species.push_back({s.header.speciesName, s.header.speciesName + ".spc"});
            in.species.push_back(s);
        }
        for (const auto& f : fleets) {
            in.scenario.fleets.push_back({f, f + ".flt"});
            in.fleets.push_back({f + ".flt", f, ""});
        }
        in.selection.assign(species.size(),
                            std::vector<std::optional<ScenarioSelection>>(fleets.size()));
        in.catches.assign(species.size(), std::vector<std::vector<CatchRow>>(fleets.size()));
    }
    void link(size_t s, size_t f, const std::vector<double>& catches,
              ScenarioSelection sel = {"", "", 20, 30, 200, 300}) {
        in.catches[s][f] = TbCatches(in.species[s], catches);
        sel.fleet = in.scenario.fleets[f].name;
        sel.species = in.scenario.species[s].name;
        in.selection[s][f] = sel;
    }
};

// A scenario file with its species and fleet files beside it.
class TbScenarioFile {
  public:
    explicit TbScenarioFile(const TempDir& dir) : dir_(dir), path_(dir.file("run.sce")) {
        CopyTemplate(path_, BinDir().string());
        SaveScenarioHeader(path_, "Test scenario", "");
    }
    const std::string& path() const { return path_; }
    void addSpecies(const SpeciesData& d) {
        const std::string file = dir_.file(d.header.speciesName + ".spc");
        CopyTemplate(file, BinDir().string());
        WriteSpeciesFile(file, d);
        addSpeciesFile(d.header.speciesName, file);
    }
    void addSpeciesFile(const std::string& name, const std::string& file) {
        species_.push_back({name, file});
        SaveScenarioMembers(path_, species_, fleets_);
    }
    void addFleet(const std::string& name) {
        const std::string file = dir_.file(name + ".flt");
        CopyTemplate(file, BinDir().string());
        WriteFleetFile(file, {file, name, ""});
        fleets_.push_back({name, file});
        SaveScenarioMembers(path_, species_, fleets_);
    }
    void link(const std::string& fleet, const std::string& species,
              const std::vector<CatchRow>& rows,
              ScenarioSelection sel = {"", "", 20, 30, 200, 300}) {
        sel.fleet = fleet;
        sel.species = species;
        SaveSelection(path_, sel);
        SaveCatches(path_, fleet, species, rows);
    }

  private:
    const TempDir& dir_;
    std::string path_;
    std::vector<ScenarioMember> species_, fleets_;
};

}  // namespace norvo::test
