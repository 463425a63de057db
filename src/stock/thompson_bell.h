#pragma once
// Thompson and Bell yield-stock prediction for a multi-species, multi-fleet scenario: yield,
// biomass and value by species and fleet over 41 f-factors (0, 0.1, ..., 4.0), every fleet's
// fishing mortality multiplied by its f-factor. All arithmetic in 64 bits.
//
// The work runs in steps the screen takes one by one and RunThompsonBell takes in one call:
//   ReadThompsonBellInputs  the scenario and every file it names (refused on a bad path)
//   ValidateParams          catches and selection present for every member (collected notice)
//   PrepareThompsonBell     per species: class structure, F by fleet and class, H, W, values
//   ProjectThompsonBell     the projection over the f-factors
// Arrays by class are 0-based: class i (from 1) is at index i - 1.
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/species_files.h"

namespace norvo {

// Texts.
inline constexpr const char* kThompsonBellReportTitle = "Thompson and Bell Yield-Stock Prediction";
inline constexpr const char* kThompsonBellClassSizeTitle = "Invalid File...";
inline constexpr const char* kThompsonBellClassSizeText =
    "ERROR! The class intervals are not the same for all the species files. Please correct the "
    "files before proceeding.";
inline constexpr const char* kThompsonBellPathTitle = "Invalid File Path";
inline constexpr const char* kThompsonBellInsufficientTitle = "Invalid Data...";
inline constexpr const char* kThompsonBellInsufficientHead = "Insufficient Data! ";
inline constexpr const char* kThompsonBellInsufficientTail =
    " Please correct the data by deleting entities or by providiing data to the catches and "
    "selection parameters before proceeding.";
inline constexpr const char* kThompsonBellVaryMark = "(vary f-factor)";
inline constexpr const char* kThompsonBellVaryTitle = "Norvo II";
inline constexpr const char* kThompsonBellFixedTitle = "Fixed f-factor";
inline constexpr const char* kThompsonBellFixedRangeTitle = "Invalid Input...";
inline constexpr const char* kThompsonBellFixedRangeText =
    "The f-factor can only be in the range from >0 to 4. Please try again.";
inline constexpr const char* kThompsonBellNotCaughtTitle = "Norvo II";
inline constexpr const char* kThompsonBellSpeciesList = "Species List";
inline constexpr const char* kThompsonBellFleetList =
    "Fleet List (Check/uncheck to simulate effort change)";
inline constexpr const char* kThompsonBellCumulative = "Cummulative";
inline constexpr const char* kThompsonBellFFactor = "f-factor";
inline constexpr const char* kThompsonBellYield = "Yield";
inline constexpr const char* kThompsonBellBiomass = "Biomass";
inline constexpr const char* kThompsonBellValue = "Value";
// Our own refusals: species data the projection cannot use, selection limbs that divide by 0.
inline constexpr const char* kThompsonBellSpeciesDataTitle = "Invalid Data...";
inline constexpr const char* kThompsonBellSelectionTitle = "Invalid Data...";

// Messages of the checks, in the words the user sees.
std::string ThompsonBellPathText(const std::string& scenarioFile);
std::string ThompsonBellSpeciesNotCaughtText(const std::string& species);
std::string ThompsonBellFleetIdleText(const std::string& fleet);
std::string ThompsonBellNoSelectionText(const std::string& species, const std::string& fleet);
std::string ThompsonBellNotCaughtByText(const std::string& species, const std::string& fleet);
std::string ThompsonBellSpeciesDataText(const std::string& species);
std::string ThompsonBellSelectionText(const std::string& fleet, const std::string& species);
// The notice on ticking a fleet, the input box's prompt, and the fixed fleet's list mark.
std::string ThompsonBellVaryText(const std::string& fleet);
std::string ThompsonBellFixedPrompt(const std::string& fleet);
std::string ThompsonBellFixedMark(const std::string& shownValue);

// A fixed f-factor must lie in (0, 4]; refused with the range notice otherwise.
Outcome CheckFixedFactor(double ffactor);

// The f-factors: point p (1 to 41) at (p - 1) / 10.
inline constexpr int kThompsonBellSteps = 41;
double ThompsonBellFFactor(int p);

// Everything a scenario names, read once. By species s and fleet f in the scenario's order.
struct ThompsonBellInputs : Outcome {
    ScenarioData scenario;
    std::vector<SpeciesData> species;
    std::vector<FleetData> fleets;
    std::vector<std::vector<std::optional<ScenarioSelection>>> selection;  // [s][f]
    std::vector<std::vector<std::vector<CatchRow>>> catches;               // [s][f]
};
// Reads the scenario, its species and fleet files, and the Selection and Catches records of
// every combination. Refused with the invalid-path notice when any file cannot be read.
ThompsonBellInputs ReadThompsonBellInputs(const std::string& scenarioPath);

// The checks before a calculation: species without catches, fleets without catches,
// combinations with catches but no selection record, in that order, all collected into one
// "Insufficient Data! " refusal.
Outcome ValidateParams(const ThompsonBellInputs& inputs);

// One species made ready for the projection.
struct ThompsonBellSpecies {
    std::string name;  // the scenario's key of the species
    double lowerLimit = 0, classSize = 0;
    double recruit = 0, m = 0, k = 0, loo = 0, a = 0, b = 0, ft = 0;
    int n = 0;                // classes of the species file (NoGroups)
    int lastClass = 0;        // number (from 1) of the last class projected; later ones are not
    std::vector<double> mid;  // class mid-lengths, as the Catches rows name them
    std::vector<double> catchTotal;      // catch summed over the fleets
    std::vector<double> H;               // growth-time factor; 0 for the last class and beyond
    std::vector<double> W;               // mean weight
    std::vector<double> value;           // value per unit of weight
    std::vector<std::vector<double>> F;  // [fleet][class] at f-factor 1
    std::vector<bool> caughtBy;          // by fleet: the fleet has catch records of it
};

struct ThompsonBellPrepared : Outcome {
    std::vector<std::string> fleetNames;
    std::vector<ThompsonBellSpecies> species;
    double lowerLimit = 0, upperLimit = 0;  // span of all species' classes
};
// The preparation of every species: refused when class sizes differ, a species has no
// catches, its growth or mortality cannot be projected, or a selection limb divides by 0
// (selection branch only).
ThompsonBellPrepared PrepareThompsonBell(const ThompsonBellInputs& inputs, bool useSelection);

// The fleets' efforts: the named fleets vary with the f-factor, the others stay at their fixed
// f-factor (1 when not given).
struct ThompsonBellEffort {
    std::vector<std::string> vary;
    std::map<std::string, double> fixed;
};

struct ThompsonBellSpeciesStep {
    double yield = 0, biomass = 0, value = 0;
    std::vector<double> fleetYield, fleetValue;  // by fleet; they add up to yield and value
};
struct ThompsonBellStep {
    int p = 0;  // 1 to 41
    double ffactor = 0;
    std::vector<ThompsonBellSpeciesStep> species;
    double yield = 0, biomass = 0, value = 0;  // over all species (and fleets)
};

struct ThompsonBellResult : Outcome {
    std::vector<std::string> speciesNames, fleetNames;
    std::vector<bool> vary;     // by fleet
    std::vector<double> fixed;  // by fleet: the f-factor of a fleet that does not vary
    std::vector<ThompsonBellSpecies> species;
    std::vector<ThompsonBellStep> steps;  // 41, or none when no fleet varies
};

// One species' cohort through its classes 1..lastClass with the fleets' f-factors `ff` (by
// fleet): by class, the number entering, the mean number, F, the catch in numbers, and yield,
// biomass and value.
struct ThompsonBellCohort {
    std::vector<double> N, nBar, F, catchN, yield, biomass, value;
};
ThompsonBellCohort ProjectThompsonBellSpecies(const ThompsonBellSpecies& species,
                                              const std::vector<double>& ff);

// The projection of prepared species under the efforts.
ThompsonBellResult ProjectThompsonBell(const ThompsonBellPrepared& prepared,
                                       const ThompsonBellEffort& effort);

struct ThompsonBellOptions {
    std::string scenarioPath;
    ThompsonBellEffort effort;
    bool useSelection = false;  // F from the two-sided selection and Ft instead of the F-array
};
// Validation, preparation and projection of read inputs.
ThompsonBellResult ThompsonBell(const ThompsonBellInputs& inputs,
                                const ThompsonBellOptions& options);
// The whole run from the scenario's path.
ThompsonBellResult RunThompsonBell(const ThompsonBellOptions& options);

// The tables: f-factor, yield, biomass and value by step, each column with its power of ten.
struct ThompsonBellTable {
    std::vector<double> ffactor, yield, biomass, value;  // as computed
    int pYield = 0, pBiomass = 0, pValue = 0;
};
// Fleet f's yield and value of species s, with the species' biomass.
ThompsonBellTable CombinationTable(const ThompsonBellResult& r, int species, int fleet);
// Yield and value over all species and fleets, biomass over all species.
ThompsonBellTable CumulativeTable(const ThompsonBellResult& r);

// The number of divisions by 10 that bring `largest` to 10 or less.
int ThompsonBellPower(double largest);
// "Yield (10^p)": a column's title with its power of ten.
std::string ThompsonBellColumnTitle(const std::string& name, int p);
// A value as its column shows it: divided by 10^p.
double ThompsonBellShown(double v, int p);

}  // namespace norvo
