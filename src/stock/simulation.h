#pragma once
// Simulation of length-frequency samples from a stock of individually drawn fish, with known
// growth, recruitment, mortality, selection and migration. The generator works on plain tables;
// writing the two files is in simulation_file.h.
//
// The monthly model (also told in the help page):
//  - Samples are taken on the 15th of the month, the first in January of kSimFirstYear, the next
//    ones "months separating samples" apart.
//  - Age group a of the year-class table is the cohort born a years before the calendar year of
//    the sample, at a birthday drawn from the monthly relative recruitment. A candidate fish picks
//    its age group by the groups' strengths; one not yet born at the sample date is discarded.
//  - From birth to the sample date the fish lives month by month: in each month (the last one
//    partial) its hazard is M of its age group plus F(max) x selection at its mid-month length,
//    taken from the area it is in. One uniform draw against the survival over the whole life
//    tells whether it is still alive at the sample date; a dead fish is discarded.
//  - A living fish enters the STOCK sample. It enters the CATCH sample when a further uniform
//    draw falls below the selection ogive of its area at its length on the sample date.
//  - Without migration every fish stays in the first area of the selection table. With
//    migration a fish starts in "From" and is in "To" while the migration ogive of its length
//    lies above the fish's own uniform draw: it moves as its length passes that threshold.
//  - Candidates are drawn until the sample holds "Number of fishes per sample" fish, or
//    kSimAttemptsPerFish times that number (at most kSimMaxAttempts) have been tried.
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace norvo {

// Texts of the simulation screen and its notices.
inline constexpr const char* kSimStockLabel = "STOCK";
inline constexpr const char* kSimCatchLabel = "CATCH";
inline constexpr const char* kSimRecheckTitle = "Re-check Inputs...";
inline constexpr const char* kSimRecheckText =
    "Please re-check inputs for the population selection and Fmax parameters.";
inline constexpr const char* kSimInvalidTitle = "Invalid Input...";
inline constexpr const char* kSimDoneTitle = "Done!";
inline constexpr const char* kSimDoneText = "Simulation was succesfully completed.";

inline constexpr int kSimFirstYear = 2001;
inline constexpr int kSimSampleDay = 15;
inline constexpr int kSimAttemptsPerFish = 200;
inline constexpr int kSimMaxAttempts = 200000;
inline constexpr double kSimTwoPi = 6.28318530717958;

// xoshiro256** (Blackman and Vigna), its 256-bit state filled from the seed by SplitMix64.
// Uniform() takes the top 53 bits of a draw times 2^-53: a double on [0, 1). Integer arithmetic
// only, so equal seeds give equal sequences on every machine and compiler.
class SimRandom {
  public:
    explicit SimRandom(uint64_t seed);
    uint64_t Next();
    double Uniform();

  private:
    std::array<uint64_t, 4> s_{};
};

// Standard normal deviate truncated at +-1.5: the sum of 48 uniforms each less 0.5, halved,
// drawn again while its absolute value exceeds 1.5.
double DrawFromNormal(SimRandom& rng);

struct YearClass {
    int age = 0;
    double strength = 1.0;   // relative number of recruits
    double mortality = 1.0;  // natural mortality M per year
};

// One row of the selection table: the two-sided ogive and the greatest F in an area.
struct SelectionRow {
    std::string area = "A";
    double l50 = 9.5;
    double l75 = 12.0;
    double r75 = 50.0;
    double r50 = 51.0;
    double fmax = 1.0;
    bool deselectionNegligible = false;  // the right limb is left out (taken as 1)
};

struct MigrationRoute {
    std::string route = "1";
    std::string from = "A";
    std::string to = "B";
    double l50 = 9.0;  // length at which half the fish have moved
    double l75 = 11.5;
};

struct SimulationInputs {
    int samples = 12;
    int monthsBetween = 1;
    int fishPerSample = 50;
    double classInterval = 1.0;
    int ageGroups = 3;
    int64_t seed = 100;

    double loo = 30.0, looCv = 0.2;
    double k = 1.5, kCv = 0.2;
    double c = 0.0, cCv = 0.0;
    double wp = 0.0, wpCv = 0.0;

    std::vector<YearClass> yearClasses;    // one row per age group
    std::array<double, 12> recruitment{};  // relative recruitment, January to December
    std::vector<SelectionRow> selection;
    bool migrate = false;
    MigrationRoute route;
};

// The screen's defaults: year classes 0, 1, 2 of equal strength with M = 1, a recruitment
// season from March to July peaking in May, one area "A".
SimulationInputs DefaultSimulationInputs();
// Year-class rows for n age groups, keeping the given rows and adding defaults.
std::vector<YearClass> ResizeYearClasses(std::vector<YearClass> rows, int n);
inline const std::array<const char*, 12> kSimMonthNames = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

// The message that refuses the inputs (text and title), if any.
struct SimInputProblem {
    std::string text;
    std::string title;
};
std::optional<SimInputProblem> CheckSimulationInputs(const SimulationInputs& in);
// A selection row as the screen accepts it: 0 < L50 < L75, F(max) from 0 to 10, and unless
// deselection is negligible L75 < R75 < R50.
bool SelectionRowValid(const SelectionRow& row);
// The migration check alone: the route's areas must be two different rows of the selection
// table, and the migration lengths must rise.
bool MigrationInputsValid(const SimulationInputs& in);

// A fish's own growth parameters.
struct FishParams {
    double k = 0, kMonthly = 0, loo = 0, c = 0, wp = 0;
};
// Four draws in the order K, Loo, C, WP, each (1 + z cv) x mean.
FishParams DrawFishParams(SimRandom& rng, const SimulationInputs& in);
// Date of birth within the year, in years from 1 January: a month by its relative recruitment,
// then a uniform position within that month (365-day year). Two draws.
double BirthDay(SimRandom& rng, const std::array<double, 12>& recruitment);
// Length at age t (years since birth) for a fish born at `birth` (years within the year). The
// seasonal term follows the calendar (ts = WP + 0.5) and is zero at birth.
double LengthAtAge(const FishParams& p, double birth, double t);
// The two-sided selection ogive: left limb by L50, L75; right limb by R75, R50; a zero L75 or
// R50 gives a zero limb.
double SelectionOgive(double length, double l50, double l75, double r75, double r50);
double SelectionOf(const SelectionRow& row, double length);
// Share of fish that have migrated at a length (the ogive of the 50% and 75% lengths).
double MigrationOgive(double length, double l50, double l75);

struct SimSampleDate {
    int day = 0, month = 0, year = 0;
};
std::vector<SimSampleDate> SimulationDates(const SimulationInputs& in);

enum class SimSet { Stock = 0, Catch = 1 };

struct SimulatedFish {
    double length = 0;
    int ageGroup = 0;
    bool inTo = false;  // in the "To" area of the migration route
};

struct SimulationResult {
    std::vector<SimSampleDate> dates;
    // fish[set][sample]
    std::array<std::vector<std::vector<SimulatedFish>>, 2> fish;
    int ageGroups = 0;
    double classInterval = 1.0;
};

// Runs the simulation; the inputs must have passed CheckSimulationInputs.
SimulationResult Simulate(const SimulationInputs& in);

// Fishes by age group for the two sets, over all samples.
struct AgeDistRow {
    int age = 0;
    int stock = 0;
    int catchCount = 0;
};
std::vector<AgeDistRow> AgeDistSummary(const SimulationResult& r,
                                       const std::vector<YearClass>& yearClasses);

// Length-frequency table of one set: classes of the width `classInterval` from the smallest to
// the greatest class met in either set (so both files share their classes), freq[class][sample].
struct SampleStats {
    int count = 0;
    double mean = 0;
    double sd = 0;  // with n - 1; 0 below two fish
};
struct LengthFreqTable {
    double smallestMl = 0;
    double classInterval = 1;
    int classes = 0;
    std::vector<std::vector<double>> freq;
    std::vector<SampleStats> stats;
    double midlength(int cls) const { return smallestMl + cls * classInterval; }
};
LengthFreqTable LengthFreq(const SimulationResult& r, SimSet set);

}  // namespace norvo
