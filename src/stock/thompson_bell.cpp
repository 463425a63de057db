#include "stock/thompson_bell.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "base/checked.h"
#include "chart/kind_a.h"
#include "data/data_store.h"

namespace norvo {

namespace {

// ln(3): the selection limbs pass 50 % and 75 % at their two lengths.
const double kLn3 = std::log(3.0);

// A selection limb 1 / (1 + exp(t1 - t2 L)); an exponent beyond the double range means 0.
double Limb(double t1, double t2, double l) {
    const double e = t1 - t2 * l;
    if (e > 700) return 0;
    return 1 / (1 + std::exp(e));
}

// Whether a limb of the two-sided selection would divide by zero.
bool LimbDividesByZero(const ScenarioSelection& s) {
    const bool left = s.l75 != 0 && (s.l50 == 0 || s.l75 == s.l50);
    const bool right = s.r50 != 0 && s.r75 == s.r50;
    return left || right;
}

// S = SL x SR at mid-length L; a limb with L75 = 0 or R50 = 0 is 0.
double SelectionAt(const ScenarioSelection& s, double l) {
    if (s.l75 == 0 || s.r50 == 0) return 0;
    const double t1 = Div(s.l50 * kLn3, s.l75 - s.l50), t2 = Div(t1, s.l50);
    const double t1r = Div(s.r50 * kLn3, s.r75 - s.r50), t2r = Div(t1r, s.r50);
    return Limb(t1, t2, l) * Limb(t1r, t2r, l);
}

// Sums a combination's catches into the species' classes, pairing by mid-length as 32-bit
// values; rows of no class are left out.
std::vector<double> ClassCatches(const std::vector<CatchRow>& rows,
                                 const std::vector<double>& mid) {
    std::vector<double> c(mid.size(), 0.0);
    for (const CatchRow& row : rows)
        for (size_t i = 0; i < mid.size(); ++i)
            if (static_cast<float>(row.lengthGroup) == static_cast<float>(mid[i])) {
                c[i] += row.catchIndex;
                break;
            }
    return c;
}

bool Contains(const std::vector<std::string>& list, const std::string& name) {
    return std::find(list.begin(), list.end(), name) != list.end();
}

// The H, W and last class of a species from its growth and length-weight relation.
void GrowthTables(ThompsonBellSpecies& s) {
    const size_t n = static_cast<size_t>(s.n);
    s.H.assign(n, 0.0);
    s.W.assign(n, 0.0);
    s.lastClass = s.n;
    for (int i = 1; i <= s.n; ++i) {
        const double l1 = s.lowerLimit + (i - 1) * s.classSize, l2 = l1 + s.classSize;
        s.W[i - 1] = 0.5 * s.a * (Pow(l1, s.b) + Pow(l2, s.b));
        if (i > s.lastClass) continue;
        if (l2 >= s.loo) {
            s.lastClass = i;  // H stays 0: the survivors all die in this class
            continue;
        }
        s.H[i - 1] = Pow(Div(s.loo - l1, s.loo - l2), Div(s.m, 2 * s.k));
    }
}

}  // namespace

std::string ThompsonBellPathText(const std::string& scenarioFile) {
    return "The file paths are invalid. Please reconstruct the simulation scenario file. Open "
           "the " +
           scenarioFile +
           ", clear all species and fleet selected, establish the relationship again, and "
           "re-save the file. This routine will close and re-initialize.";
}

std::string ThompsonBellSpeciesNotCaughtText(const std::string& species) {
    return "Species, " + species + ", is not caught by any of the fleet. ";
}

std::string ThompsonBellFleetIdleText(const std::string& fleet) {
    return "Fleet, " + fleet + ", is not exploiting any of the species. ";
}

std::string ThompsonBellNoSelectionText(const std::string& species, const std::string& fleet) {
    return "Species, " + species + ", is caught by fleet, " + fleet +
           " but no selection data is recorded. ";
}

std::string ThompsonBellNotCaughtByText(const std::string& species, const std::string& fleet) {
    return "The species '" + species + "' is not caught by the fleet '" + fleet + "'.";
}

std::string ThompsonBellSpeciesDataText(const std::string& species) {
    return "The species file of " + species +
           " cannot be projected: its class size, M, K and Loo must be above 0, its lower "
           "limit not below 0 and its number of length groups at least 1. Please correct the "
           "species file.";
}

std::string ThompsonBellSelectionText(const std::string& fleet, const std::string& species) {
    return "The selection of fleet, " + fleet + ", on species, " + species +
           ", cannot be computed: L50 must be above 0 and differ from L75, and R75 must differ "
           "from R50. Please correct the selection parameters.";
}

std::string ThompsonBellVaryText(const std::string& fleet) {
    return "The " + fleet + " is set to vary from f-factor = 1 to 4.";
}

std::string ThompsonBellFixedPrompt(const std::string& fleet) {
    return "Enter the f-factor for " + fleet + " to be fixed.";
}

std::string ThompsonBellFixedMark(const std::string& shownValue) {
    return "(fixed at f-factor=" + shownValue + ")";
}

Outcome CheckFixedFactor(double ffactor) {
    Outcome o;
    if (!(ffactor > 0 && ffactor <= 4))
        o.refuse(kThompsonBellFixedRangeText, kThompsonBellFixedRangeTitle);
    return o;
}

double ThompsonBellFFactor(int p) {
    return (p - 1) / 10.0;
}

ThompsonBellInputs ReadThompsonBellInputs(const std::string& scenarioPath) {
    ThompsonBellInputs in;
    auto refuse = [&] {
        in.refuse(ThompsonBellPathText(scenarioPath), kThompsonBellPathTitle, Icon::Critical);
        return in;
    };
    auto scenario = ReadScenarioFile(scenarioPath);
    if (!scenario) return refuse();
    in.scenario = std::move(scenario).value();
    for (const ScenarioMember& m : in.scenario.species) {
        auto s = ReadSpeciesFile(m.filename);
        if (!s) return refuse();
        in.species.push_back(std::move(s).value());
    }
    for (const ScenarioMember& m : in.scenario.fleets) {
        auto f = ReadFleetFile(m.filename);
        if (!f) return refuse();
        in.fleets.push_back(std::move(f).value());
    }
    try {
        for (const ScenarioMember& s : in.scenario.species) {
            in.selection.emplace_back();
            in.catches.emplace_back();
            for (const ScenarioMember& f : in.scenario.fleets) {
                in.selection.back().push_back(ReadSelection(scenarioPath, f.name, s.name));
                in.catches.back().push_back(ReadCatches(scenarioPath, f.name, s.name));
            }
        }
    } catch (const StoreError&) {
        return refuse();
    }
    return in;
}

Outcome ValidateParams(const ThompsonBellInputs& in) {
    const auto& species = in.scenario.species;
    const auto& fleets = in.scenario.fleets;
    auto caught = [&](size_t s, size_t f) { return !in.catches[s][f].empty(); };
    std::string messages;
    for (size_t s = 0; s < species.size(); ++s) {
        bool any = false;
        for (size_t f = 0; f < fleets.size(); ++f) any = any || caught(s, f);
        if (!any) messages += ThompsonBellSpeciesNotCaughtText(species[s].name);
    }
    for (size_t f = 0; f < fleets.size(); ++f) {
        bool any = false;
        for (size_t s = 0; s < species.size(); ++s) any = any || caught(s, f);
        if (!any) messages += ThompsonBellFleetIdleText(fleets[f].name);
    }
    for (size_t s = 0; s < species.size(); ++s)
        for (size_t f = 0; f < fleets.size(); ++f)
            if (caught(s, f) && !in.selection[s][f])
                messages += ThompsonBellNoSelectionText(species[s].name, fleets[f].name);
    Outcome o;
    if (!messages.empty())
        o.refuse(kThompsonBellInsufficientHead + messages + kThompsonBellInsufficientTail,
                 kThompsonBellInsufficientTitle);
    return o;
}

ThompsonBellPrepared PrepareThompsonBell(const ThompsonBellInputs& in, bool useSelection) {
    ThompsonBellPrepared out;
    const size_t nF = in.scenario.fleets.size();
    for (const ScenarioMember& f : in.scenario.fleets) out.fleetNames.push_back(f.name);
    for (size_t s = 0; s < in.species.size(); ++s) {
        if (in.species[s].header.classSize != in.species[0].header.classSize) {
            out.refuse(kThompsonBellClassSizeText, kThompsonBellClassSizeTitle);
            return out;
        }
    }
    for (size_t si = 0; si < in.species.size(); ++si) {
        const SpeciesHeader& h = in.species[si].header;
        ThompsonBellSpecies sp;
        sp.name = in.scenario.species[si].name;
        if (!(h.classSize > 0 && h.lowerLimit >= 0 && h.m > 0 && h.k > 0 && h.loo > 0 &&
              h.noGroups >= 1)) {
            out.refuse(ThompsonBellSpeciesDataText(sp.name), kThompsonBellSpeciesDataTitle);
            return out;
        }
        sp.lowerLimit = h.lowerLimit;
        sp.classSize = h.classSize;
        sp.recruit = h.recruit;
        sp.m = h.m;
        sp.k = h.k;
        sp.loo = h.loo;
        sp.a = h.a;
        sp.b = h.b;
        sp.ft = h.ft;
        sp.n = h.noGroups;
        const size_t n = static_cast<size_t>(sp.n);
        const auto& rows = in.species[si].classes;
        sp.mid.resize(n);
        sp.value.resize(n);
        std::vector<double> arrayF(n, 0.0);
        for (size_t i = 0; i < n; ++i) {
            const bool stored = i < rows.size();
            sp.mid[i] = stored ? rows[i].lengthClass : h.lowerLimit + (i + 0.5) * h.classSize;
            sp.value[i] = stored ? rows[i].value : kDefaultClassValue;
            arrayF[i] = stored ? rows[i].f : 0.0;
        }
        if (si == 0 || h.lowerLimit < out.lowerLimit) out.lowerLimit = h.lowerLimit;
        out.upperLimit = std::max(out.upperLimit, h.lowerLimit + sp.n * h.classSize);

        // Catches by fleet and class, and their sum over the fleets.
        std::vector<std::vector<double>> byFleet;
        sp.catchTotal.assign(n, 0.0);
        for (size_t f = 0; f < nF; ++f) {
            byFleet.push_back(ClassCatches(in.catches[si][f], sp.mid));
            sp.caughtBy.push_back(!in.catches[si][f].empty());
            for (size_t i = 0; i < n; ++i) sp.catchTotal[i] += byFleet[f][i];
        }
        if (std::none_of(sp.caughtBy.begin(), sp.caughtBy.end(), [](bool b) { return b; })) {
            out.refuse(ThompsonBellSpeciesNotCaughtText(sp.name), kThompsonBellInsufficientTitle);
            return out;
        }
        if (useSelection) {
            for (size_t f = 0; f < nF; ++f) {
                const auto& sel = in.selection[si][f];
                if (sel && LimbDividesByZero(*sel)) {
                    out.refuse(ThompsonBellSelectionText(out.fleetNames[f], sp.name),
                               kThompsonBellSelectionTitle);
                    return out;
                }
            }
        }
        // F of each fleet by class: its share of the class's catch of the class's F.
        sp.F.assign(nF, std::vector<double>(n, 0.0));
        for (size_t f = 0; f < nF; ++f) {
            const auto& sel = in.selection[si][f];
            for (size_t i = 0; i < n; ++i) {
                if (sp.catchTotal[i] == 0) continue;
                const double share = byFleet[f][i] / sp.catchTotal[i];
                if (share == 0) continue;
                if (useSelection) {
                    const double sf = sel ? SelectionAt(*sel, sp.mid[i]) : 0.0;
                    sp.F[f][i] = sf * sp.ft * share;
                } else {
                    sp.F[f][i] = arrayF[i] * share;
                }
            }
        }
        GrowthTables(sp);
        out.species.push_back(std::move(sp));
    }
    return out;
}

ThompsonBellCohort ProjectThompsonBellSpecies(const ThompsonBellSpecies& s,
                                              const std::vector<double>& ff) {
    ThompsonBellCohort c;
    const size_t last = static_cast<size_t>(s.lastClass);
    for (auto* v : {&c.N, &c.nBar, &c.F, &c.catchN, &c.yield, &c.biomass, &c.value})
        v->assign(last, 0.0);
    double n = s.recruit;
    for (size_t i = 0; i < last; ++i) {
        double f = 0;
        for (size_t g = 0; g < ff.size(); ++g) f += ff[g] * s.F[g][i];
        const double z = f + s.m, e = Div(f, z);
        double nNext = 0, nBar = 0;
        if (i + 1 == last) {
            nBar = Div(n, z);  // every survivor dies in the last class
        } else {
            const double h = s.H[i];
            nNext = Div(n * (Div(1.0, h) - e), h - e);
            nBar = Div(n - nNext, z);
        }
        c.N[i] = n;
        c.nBar[i] = nBar;
        c.F[i] = f;
        c.catchN[i] = std::max(0.0, nBar * f);
        c.yield[i] = CheckFinite(c.catchN[i] * s.W[i]);
        c.value[i] = CheckFinite(c.yield[i] * s.value[i]);
        c.biomass[i] = CheckFinite(nBar * s.W[i]);
        n = nNext;
    }
    return c;
}

ThompsonBellResult ProjectThompsonBell(const ThompsonBellPrepared& prep,
                                       const ThompsonBellEffort& effort) {
    ThompsonBellResult r;
    r.absorb(prep);
    if (!r.ok()) return r;
    r.fleetNames = prep.fleetNames;
    r.species = prep.species;
    for (const auto& s : prep.species) r.speciesNames.push_back(s.name);
    const size_t nF = r.fleetNames.size();
    bool anyVaries = false;
    for (const std::string& name : r.fleetNames) {
        const bool v = Contains(effort.vary, name);
        anyVaries = anyVaries || v;
        r.vary.push_back(v);
        const auto fixed = effort.fixed.find(name);
        r.fixed.push_back(fixed == effort.fixed.end() ? 1.0 : fixed->second);
    }
    if (!anyVaries) return r;

    std::vector<double> ff(nF);
    for (int p = 1; p <= kThompsonBellSteps; ++p) {
        ThompsonBellStep step;
        step.p = p;
        step.ffactor = ThompsonBellFFactor(p);
        for (size_t f = 0; f < nF; ++f) ff[f] = r.vary[f] ? step.ffactor : r.fixed[f];
        for (const ThompsonBellSpecies& s : r.species) {
            const ThompsonBellCohort c = ProjectThompsonBellSpecies(s, ff);
            ThompsonBellSpeciesStep out;
            out.fleetYield.assign(nF, 0.0);
            out.fleetValue.assign(nF, 0.0);
            for (size_t i = 0; i < c.yield.size(); ++i) {
                out.yield += c.yield[i];
                out.value += c.value[i];
                out.biomass += c.biomass[i];
                if (c.F[i] <= 0) continue;
                // Each fleet takes the part of the catch its F has in the total.
                for (size_t f = 0; f < nF; ++f) {
                    const double share = ff[f] * s.F[f][i] / c.F[i];
                    out.fleetYield[f] += c.yield[i] * share;
                    out.fleetValue[f] += c.value[i] * share;
                }
            }
            step.yield += out.yield;
            step.biomass += out.biomass;
            step.value += out.value;
            step.species.push_back(std::move(out));
        }
        r.steps.push_back(std::move(step));
    }
    return r;
}

ThompsonBellResult ThompsonBell(const ThompsonBellInputs& in, const ThompsonBellOptions& o) {
    ThompsonBellResult r;
    r.absorb(in);
    if (!r.ok()) return r;
    r.absorb(ValidateParams(in));
    if (!r.ok()) return r;
    ThompsonBellResult projected =
        ProjectThompsonBell(PrepareThompsonBell(in, o.useSelection), o.effort);
    projected.notices.insert(projected.notices.begin(), r.notices.begin(), r.notices.end());
    return projected;
}

ThompsonBellResult RunThompsonBell(const ThompsonBellOptions& o) {
    return ThompsonBell(ReadThompsonBellInputs(o.scenarioPath), o);
}

ThompsonBellTable CombinationTable(const ThompsonBellResult& r, int species, int fleet) {
    ThompsonBellTable t;
    const size_t s = static_cast<size_t>(species), f = static_cast<size_t>(fleet);
    for (const ThompsonBellStep& step : r.steps) {
        const ThompsonBellSpeciesStep& x = step.species.at(s);
        t.ffactor.push_back(step.ffactor);
        t.yield.push_back(x.fleetYield.at(f));
        t.biomass.push_back(x.biomass);
        t.value.push_back(x.fleetValue.at(f));
    }
    auto power = [](const std::vector<double>& v) {
        return ThompsonBellPower(v.empty() ? 0.0 : *std::max_element(v.begin(), v.end()));
    };
    t.pYield = power(t.yield);
    t.pBiomass = power(t.biomass);
    t.pValue = power(t.value);
    return t;
}

ThompsonBellTable CumulativeTable(const ThompsonBellResult& r) {
    ThompsonBellTable t;
    for (const ThompsonBellStep& step : r.steps) {
        t.ffactor.push_back(step.ffactor);
        t.yield.push_back(step.yield);
        t.biomass.push_back(step.biomass);
        t.value.push_back(step.value);
    }
    auto power = [](const std::vector<double>& v) {
        return ThompsonBellPower(v.empty() ? 0.0 : *std::max_element(v.begin(), v.end()));
    };
    t.pYield = power(t.yield);
    t.pBiomass = power(t.biomass);
    t.pValue = power(t.value);
    return t;
}

int ThompsonBellPower(double largest) {
    return ReduceByPowerOfTen(largest).exponent;
}

std::string ThompsonBellColumnTitle(const std::string& name, int p) {
    return fmt::format("{} (10^{})", name, p);
}

double ThompsonBellShown(double v, int p) {
    return v / std::pow(10.0, p);
}

}  // namespace norvo
