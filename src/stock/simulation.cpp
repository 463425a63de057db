#include "stock/simulation.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/checked.h"
#include "base/format.h"

namespace norvo {

namespace {

// Days before each month of a 365-day year, January first.
constexpr std::array<int, 13> kDaysBefore = {0,   31,  59,  90,  120, 151, 181,
                                             212, 243, 273, 304, 334, 365};

uint64_t SplitMix64(uint64_t& x) {
    uint64_t z = (x += 0x9e3779b97f4a7c15ULL);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
    return z ^ (z >> 31);
}

uint64_t Rotl(uint64_t x, int k) {
    return (x << k) | (x >> (64 - k));
}

// Logistic ogive through 50 % at l50 and 75 % at l75 (both limbs of the selection use it).
double Logistic(double length, double l50, double l75) {
    const double t1 = Div(l50 * std::log(3.0), l75 - l50);
    const double t2 = Div(t1, l50);
    const double e = t1 - t2 * length;
    if (e > 700.0) return 0.0;  // exp would overflow; the ogive is zero to double precision
    return 1.0 / (1.0 + std::exp(e));
}

std::string Range(double lo, double hi, const char* pattern) {
    return Format(lo, pattern) + " to " + Format(hi, pattern);
}

std::optional<SimInputProblem> OutOfRange(const std::string& name, double v, double lo, double hi,
                                          const char* pattern = "0.00") {
    if (std::isfinite(v) && v >= lo && v <= hi) return std::nullopt;
    return SimInputProblem{"The " + name + " should be within the range of " +
                               Range(lo, hi, pattern) + ". Please correct input.",
                           kSimInvalidTitle};
}

const SelectionRow* FindArea(const std::vector<SelectionRow>& rows, const std::string& area) {
    for (const auto& r : rows)
        if (r.area == area) return &r;
    return nullptr;
}

}  // namespace

SimRandom::SimRandom(uint64_t seed) {
    uint64_t x = seed;
    for (auto& w : s_) w = SplitMix64(x);
}

uint64_t SimRandom::Next() {
    const uint64_t result = Rotl(s_[1] * 5, 7) * 9;
    const uint64_t t = s_[1] << 17;
    s_[2] ^= s_[0];
    s_[3] ^= s_[1];
    s_[1] ^= s_[2];
    s_[0] ^= s_[3];
    s_[2] ^= t;
    s_[3] = Rotl(s_[3], 45);
    return result;
}

double SimRandom::Uniform() {
    return static_cast<double>(Next() >> 11) * 0x1.0p-53;
}

double DrawFromNormal(SimRandom& rng) {
    for (;;) {
        double sum = 0;
        for (int i = 0; i < 48; ++i) sum += rng.Uniform() - 0.5;
        const double z = sum / 2.0;
        if (std::fabs(z) <= 1.5) return z;
    }
}

SimulationInputs DefaultSimulationInputs() {
    SimulationInputs in;
    in.yearClasses = ResizeYearClasses({}, in.ageGroups);
    in.recruitment = {0, 0, 10, 30, 60, 30, 10, 0, 0, 0, 0, 0};
    in.selection = {SelectionRow{}};
    return in;
}

std::vector<YearClass> ResizeYearClasses(std::vector<YearClass> rows, int n) {
    n = std::max(n, 0);
    rows.resize(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) rows[static_cast<size_t>(i)].age = i;
    return rows;
}

bool SelectionRowValid(const SelectionRow& r) {
    auto ok = [](double v) { return std::isfinite(v); };
    if (!ok(r.l50) || !ok(r.l75) || !ok(r.fmax) || r.area.empty()) return false;
    if (!(r.l50 > 0 && r.l75 > r.l50 && r.fmax >= 0 && r.fmax <= 10)) return false;
    if (r.deselectionNegligible) return true;
    return ok(r.r75) && ok(r.r50) && r.r75 > r.l75 && r.r50 > r.r75;
}

bool MigrationInputsValid(const SimulationInputs& in) {
    const auto& r = in.route;
    if (r.from == r.to) return false;
    const SelectionRow* from = FindArea(in.selection, r.from);
    const SelectionRow* to = FindArea(in.selection, r.to);
    if (!from || !to || !SelectionRowValid(*from) || !SelectionRowValid(*to)) return false;
    return std::isfinite(r.l50) && std::isfinite(r.l75) && r.l50 > 0 && r.l75 > r.l50;
}

std::optional<SimInputProblem> CheckSimulationInputs(const SimulationInputs& in) {
    if (auto p = OutOfRange("number of monthly samples", in.samples, 1, 120, "0")) return p;
    if (auto p = OutOfRange("number of months separating samples", in.monthsBetween, 1, 12, "0"))
        return p;
    if (auto p = OutOfRange("number of fishes per sample", in.fishPerSample, 1, 10000, "0"))
        return p;
    if (auto p = OutOfRange("class interval", in.classInterval, 0.25, 999)) return p;
    if (auto p = OutOfRange("number of age groups", in.ageGroups, 1, 20, "0")) return p;
    if (auto p = OutOfRange("seed number", static_cast<double>(in.seed), 0, 2147483647.0, "0"))
        return p;
    if (auto p = OutOfRange("asymptotic length (Loo)", in.loo, 1, 999)) return p;
    if (auto p = OutOfRange("growth constant (K)", in.k, 0.01, 10)) return p;
    if (auto p = OutOfRange("amplitude of oscillation (C)", in.c, 0, 1)) return p;
    if (auto p = OutOfRange("winter point (WP)", in.wp, 0, 1)) return p;
    // Draws reach 1.5 standard deviations: keep every fish's Loo and K above zero.
    for (double cv : {in.looCv, in.kCv, in.cCv, in.wpCv})
        if (auto p = OutOfRange("variability (s.d./mean)", cv, 0, 0.6, "0.000")) return p;

    const SimInputProblem recheck{kSimRecheckText, kSimRecheckTitle};
    if (static_cast<int>(in.yearClasses.size()) != in.ageGroups)
        return SimInputProblem{"The year classes table should have one row for each age group.",
                               kSimInvalidTitle};
    double strength = 0;
    for (const auto& y : in.yearClasses) {
        if (auto p = OutOfRange("strength of a year class", y.strength, 0, 1e9)) return p;
        if (auto p = OutOfRange("mortality of a year class", y.mortality, 0, 10)) return p;
        strength += y.strength;
    }
    if (!(strength > 0))
        return SimInputProblem{"At least one year class should have a strength above 0.",
                               kSimInvalidTitle};
    double recruits = 0;
    for (double r : in.recruitment) {
        if (auto p = OutOfRange("relative recruitment", r, 0, 1e9)) return p;
        recruits += r;
    }
    if (!(recruits > 0))
        return SimInputProblem{"At least one month should have a relative recruitment above 0.",
                               kSimInvalidTitle};
    if (in.selection.empty()) return recheck;
    for (const auto& row : in.selection)
        if (!SelectionRowValid(row)) return recheck;
    if (in.migrate && !MigrationInputsValid(in)) return recheck;
    return std::nullopt;
}

FishParams DrawFishParams(SimRandom& rng, const SimulationInputs& in) {
    FishParams p;
    p.k = (1 + DrawFromNormal(rng) * in.kCv) * in.k;
    p.kMonthly = p.k / 12;
    p.loo = (1 + DrawFromNormal(rng) * in.looCv) * in.loo;
    p.c = (1 + DrawFromNormal(rng) * in.cCv) * in.c;
    p.wp = (1 + DrawFromNormal(rng) * in.wpCv) * in.wp;
    return p;
}

double BirthDay(SimRandom& rng, const std::array<double, 12>& recruitment) {
    double total = 0;
    for (double r : recruitment) total += r;
    const double pick = rng.Uniform() * total;
    const double within = rng.Uniform();
    int month = 11;
    double cum = 0;
    for (int m = 0; m < 12; ++m) {
        cum += recruitment[static_cast<size_t>(m)];
        if (pick < cum) {
            month = m;
            break;
        }
    }
    // Rounding could leave `pick` at the very top: take the last month with recruitment.
    while (month > 0 && recruitment[static_cast<size_t>(month)] <= 0) --month;
    const int start = kDaysBefore[static_cast<size_t>(month)];
    const int days = kDaysBefore[static_cast<size_t>(month) + 1] - start;
    return (start + within * days) / 365.0;
}

double LengthAtAge(const FishParams& p, double birth, double t) {
    double fraction;
    if (p.c == 0) {
        fraction = 1 - Exp(-p.k * t);
    } else {
        const double ts = p.wp + 0.5;
        const double amp = p.c * p.k / kSimTwoPi;
        const double s =
            amp * std::sin(kSimTwoPi * (birth + t - ts)) - amp * std::sin(kSimTwoPi * (birth - ts));
        fraction = 1 - Exp(-p.k * t - s);
    }
    return p.loo * fraction;
}

double SelectionOgive(double length, double l50, double l75, double r75, double r50) {
    const double left = l75 == 0 ? 0.0 : Logistic(length, l50, l75);
    const double right = r50 == 0 ? 0.0 : Logistic(length, r50, r75);
    return left * right;
}

double SelectionOf(const SelectionRow& row, double length) {
    if (row.deselectionNegligible) return row.l75 == 0 ? 0.0 : Logistic(length, row.l50, row.l75);
    return SelectionOgive(length, row.l50, row.l75, row.r75, row.r50);
}

double MigrationOgive(double length, double l50, double l75) {
    return Logistic(length, l50, l75);
}

std::vector<SimSampleDate> SimulationDates(const SimulationInputs& in) {
    std::vector<SimSampleDate> dates;
    for (int j = 0; j < in.samples; ++j) {
        const int months = j * in.monthsBetween;
        dates.push_back({kSimSampleDay, months % 12 + 1, kSimFirstYear + months / 12});
    }
    return dates;
}

namespace {

// Everything one run needs besides the generator.
struct Run {
    const SimulationInputs& in;
    const SelectionRow* home;  // area of a fish that has not migrated
    const SelectionRow* away;  // the "To" area, with migration
    double totalStrength = 0;

    int PickAgeGroup(SimRandom& rng) const {
        const double pick = rng.Uniform() * totalStrength;
        double cum = 0;
        int last = 0;
        for (size_t a = 0; a < in.yearClasses.size(); ++a) {
            if (in.yearClasses[a].strength <= 0) continue;
            last = static_cast<int>(a);
            cum += in.yearClasses[a].strength;
            if (pick < cum) return last;
        }
        return last;
    }

    bool Migrated(double length, double threshold) const {
        return away && MigrationOgive(length, in.route.l50, in.route.l75) > threshold;
    }

    // One candidate for a sample taken at `when` (years from 1 January of the first year).
    std::optional<SimulatedFish> Candidate(SimRandom& rng, double when, int sampleYear,
                                           SimSet set) const {
        const int group = PickAgeGroup(rng);
        const FishParams p = DrawFishParams(rng, in);
        const double birthDay = BirthDay(rng, in.recruitment);
        const double threshold = away ? rng.Uniform() : 1.0;
        const double born = (sampleYear - kSimFirstYear - in.yearClasses[group].age) + birthDay;
        const double age = when - born;
        if (age <= 0) return std::nullopt;

        // Alive while u < exp(-hazard), i.e. hazard < -ln u: the hazard is summed month by
        // month from birth, at each month's mid-point length, and a dead fish stops early.
        const double u = rng.Uniform();
        const double limit = u > 0 ? -std::log(u) : std::numeric_limits<double>::infinity();
        const double m = in.yearClasses[group].mortality;
        double hazard = 0;
        for (double start = 0; start < age; start += 1.0 / 12) {
            const double step = std::min(1.0 / 12, age - start);
            const double length = LengthAtAge(p, birthDay, start + step / 2);
            const SelectionRow& area = Migrated(length, threshold) ? *away : *home;
            hazard += (m + area.fmax * SelectionOf(area, length)) * step;
            if (hazard >= limit) return std::nullopt;
        }

        SimulatedFish fish;
        fish.length = LengthAtAge(p, birthDay, age);
        fish.ageGroup = group;
        fish.inTo = Migrated(fish.length, threshold);
        if (set == SimSet::Catch) {
            const SelectionRow& area = fish.inTo ? *away : *home;
            if (!(rng.Uniform() < SelectionOf(area, fish.length))) return std::nullopt;
        }
        return fish;
    }
};

}  // namespace

SimulationResult Simulate(const SimulationInputs& in) {
    Run run{in, &in.selection.front(), nullptr};
    if (in.migrate) {
        run.home = FindArea(in.selection, in.route.from);
        run.away = FindArea(in.selection, in.route.to);
        if (!run.home) run.home = &in.selection.front();
    }
    for (const auto& y : in.yearClasses) run.totalStrength += std::max(y.strength, 0.0);

    SimulationResult r;
    r.dates = SimulationDates(in);
    r.ageGroups = in.ageGroups;
    r.classInterval = in.classInterval;
    SimRandom rng(static_cast<uint64_t>(in.seed));
    const int64_t maxAttempts =
        std::min<int64_t>(int64_t{in.fishPerSample} * kSimAttemptsPerFish, kSimMaxAttempts);
    for (SimSet set : {SimSet::Stock, SimSet::Catch}) {
        auto& samples = r.fish[static_cast<size_t>(set)];
        for (const auto& d : r.dates) {
            const double when = (d.year - kSimFirstYear) +
                                (kDaysBefore[static_cast<size_t>(d.month) - 1] + d.day) / 365.0;
            std::vector<SimulatedFish> sample;
            for (int64_t tries = 0;
                 tries < maxAttempts && static_cast<int>(sample.size()) < in.fishPerSample;
                 ++tries) {
                if (auto f = run.Candidate(rng, when, d.year, set)) sample.push_back(*f);
            }
            samples.push_back(std::move(sample));
        }
    }
    return r;
}

std::vector<AgeDistRow> AgeDistSummary(const SimulationResult& r,
                                       const std::vector<YearClass>& yearClasses) {
    std::vector<AgeDistRow> rows(static_cast<size_t>(r.ageGroups));
    for (size_t a = 0; a < rows.size(); ++a)
        rows[a].age = a < yearClasses.size() ? yearClasses[a].age : static_cast<int>(a);
    for (size_t set = 0; set < 2; ++set)
        for (const auto& sample : r.fish[set])
            for (const auto& f : sample) {
                auto& row = rows.at(static_cast<size_t>(f.ageGroup));
                (set == 0 ? row.stock : row.catchCount)++;
            }
    return rows;
}

LengthFreqTable LengthFreq(const SimulationResult& r, SimSet set) {
    LengthFreqTable t;
    const double ci = r.classInterval;
    t.classInterval = ci;
    // The first class's midlength may not lie below 0.25: shorter fish join that class.
    const int lowest = std::max(0, static_cast<int>(std::ceil(0.25 / ci - 0.5)));
    auto classOf = [&](double length) {
        return std::max(lowest, static_cast<int>(std::floor(length / ci)));
    };
    int first = -1, last = -1;
    for (const auto& samples : r.fish)
        for (const auto& sample : samples)
            for (const auto& f : sample) {
                const int c = classOf(f.length);
                first = first < 0 ? c : std::min(first, c);
                last = std::max(last, c);
            }
    if (first < 0) first = last = lowest;
    t.smallestMl = (first + 0.5) * ci;
    t.classes = last - first + 1;

    const auto& samples = r.fish[static_cast<size_t>(set)];
    t.freq.assign(static_cast<size_t>(t.classes), std::vector<double>(samples.size(), 0.0));
    for (size_t j = 0; j < samples.size(); ++j) {
        SampleStats s;
        double sum = 0;
        for (const auto& f : samples[j]) {
            t.freq[static_cast<size_t>(classOf(f.length) - first)][j] += 1;
            sum += f.length;
        }
        s.count = static_cast<int>(samples[j].size());
        if (s.count > 0) s.mean = sum / s.count;
        if (s.count > 1) {
            double ss = 0;
            for (const auto& f : samples[j]) ss += (f.length - s.mean) * (f.length - s.mean);
            s.sd = std::sqrt(ss / (s.count - 1));
        }
        t.stats.push_back(s);
    }
    return t;
}

}  // namespace norvo
