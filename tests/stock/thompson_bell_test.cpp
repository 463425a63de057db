#include "stock/thompson_bell.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "../mortality/make_lfq.h"
#include "stock/thompson_bell_fixtures.h"
#include "stock/vpa_length.h"

namespace norvo {
namespace {

using test::TbInputs;
using test::TbSpecies;

std::string RefusalText(const Outcome& o) {
    return o.refusal() ? o.refusal()->text : "";
}

ThompsonBellEffort Vary(std::vector<std::string> fleets, std::map<std::string, double> fixed = {}) {
    return {std::move(fleets), std::move(fixed)};
}

ThompsonBellResult Project(const ThompsonBellInputs& in, const ThompsonBellEffort& effort,
                           bool useSelection = false) {
    ThompsonBellOptions o;
    o.effort = effort;
    o.useSelection = useSelection;
    return ThompsonBell(in, o);
}

std::string Slurp(const std::string& path) {
    std::ifstream f(path, std::ios::binary);
    std::stringstream s;
    s << f.rdbuf();
    return s.str();
}

// Length VPA -> species file -> scenario -> Thompson and Bell at f-factor 1 gives back the
// VPA's catches, split over two fleets: the projection and the VPA differ only by Pope's
// approximation, which H carries.
TEST(ThompsonBell, LengthVpaCatchesComeBackAtFFactorOne) {
    // Catches of a steady-state cohort under a trawl-like ogive of F up to 0.6 (M = 0.5,
    // Loo = 100, K = 0.4), in 15 classes of 4 from 10; one class left empty.
    std::vector<double> catches;
    double n = 1e5;
    for (int i = 0; i < 15; ++i) {
        const double lower = 10 + 4.0 * i, mid = lower + 2;
        const double f = i == 9 ? 0 : 0.6 / (1 + std::exp(-(mid - 30) / 3));
        const double z = 0.5 + f;
        const double next = i < 14 ? n * std::pow((100 - lower - 4) / (100 - lower), z / 0.4) : 0;
        catches.push_back(std::round(f / z * (n - next)));
        n = next;
    }
    const LfqData lfq = test::MakeLfq(12, 4, {catches});
    LengthVpaOptions vpa;
    vpa.m = 0.5f;
    vpa.ft = 0.6f;
    vpa.loo = 100;
    vpa.k = 0.4f;
    vpa.a = 1;  // W = 1: yield is the catch in numbers
    vpa.b = 0;
    const LengthVpaResult r = RunLengthVpa(lfq, vpa);
    ASSERT_TRUE(r.ok()) << RefusalText(r);
    SpeciesData spc = LengthVpaSpecies(lfq, vpa, r);
    spc.header.speciesName = "Cohort fish";

    test::TempDir dir;
    const std::string spcPath = dir.file("cohort.spc");
    SaveLengthVpaSpecies(spcPath, test::BinDir().string(), spc);
    test::TbScenarioFile sce(dir);
    sce.addSpeciesFile("Cohort fish", spcPath);
    sce.addFleet("Trawl");
    sce.addFleet("Gillnet");
    std::vector<CatchRow> trawl, gillnet;
    for (int i = 1; i <= r.n; ++i) {
        trawl.push_back({r.mid[i], 0.7 * r.C[i]});
        gillnet.push_back({r.mid[i], 0.3 * r.C[i]});
    }
    sce.link("Trawl", "Cohort fish", trawl);
    sce.link("Gillnet", "Cohort fish", gillnet);

    ThompsonBellOptions o;
    o.scenarioPath = sce.path();
    o.effort = Vary({"Trawl", "Gillnet"});
    const ThompsonBellResult tb = RunThompsonBell(o);
    ASSERT_TRUE(tb.ok()) << RefusalText(tb);
    ASSERT_EQ(tb.steps.size(), 41u);
    const ThompsonBellStep& one = tb.steps[10];
    EXPECT_EQ(one.p, 11);
    EXPECT_EQ(one.ffactor, 1.0);

    const ThompsonBellCohort c = ProjectThompsonBellSpecies(tb.species[0], {1.0, 1.0});
    ASSERT_EQ(c.catchN.size(), 15u);
    double total = 0;
    for (int i = 1; i <= r.n; ++i) {
        EXPECT_NEAR(c.catchN[i - 1], r.C[i], 0.02 * r.C[i]) << "class " << i;
        total += r.C[i];
    }
    EXPECT_EQ(c.catchN[9], 0);  // the empty class stays empty
    const ThompsonBellSpeciesStep& s = one.species[0];
    EXPECT_NEAR(s.yield, total, 0.02 * total);
    EXPECT_NEAR(s.fleetYield[0], 0.7 * total, 0.02 * 0.7 * total);
    EXPECT_NEAR(s.fleetYield[1], 0.3 * total, 0.02 * 0.3 * total);
}

// The projection inverts a cohort analysis done with Pope's step on the same H exactly:
// N[i] = (N[i+1] H + C) H, F = M C / (N[i] - N[i+1] - C).
TEST(ThompsonBell, ProjectionInvertsPopesCohortAnalysis) {
    TbInputs t({TbSpecies("Snapper", {1, 1, 1, 1, 1, 1}, 90)}, {"Line"});
    t.link(0, 0, {1, 1, 1, 1, 1, 1});
    ThompsonBellSpecies s = PrepareThompsonBell(t.in, false).species[0];
    const std::vector<double> c = {50, 400, 900, 600, 250, 120};
    const double ft = 0.8, m = s.m;
    std::vector<double> n(6);
    n[5] = c[5] * (ft + m) / ft;
    s.F[0][5] = ft;
    for (int i = 4; i >= 0; --i) {
        n[i] = (n[i + 1] * s.H[i] + c[i]) * s.H[i];
        s.F[0][i] = m * c[i] / (n[i] - n[i + 1] - c[i]);
    }
    s.recruit = n[0];
    const ThompsonBellCohort back = ProjectThompsonBellSpecies(s, {1});
    for (size_t i = 0; i < 6; ++i) {
        EXPECT_NEAR(back.catchN[i], c[i], 1e-9 * c[i]);
        EXPECT_NEAR(back.N[i], n[i], 1e-9 * n[i]);
    }
}

// A class without catch has F = 0 for every fleet and passes the cohort on with natural losses
// only; f-factor 0 gives no yield and the unexploited biomass.
TEST(ThompsonBell, EmptyClassAndUnexploitedStock) {
    TbInputs t({TbSpecies("Sardine", {0.2, 0.5, 0.8, 0.8, 0.8})}, {"Purse", "Trawl"});
    t.link(0, 0, {10, 0, 30, 40, 50});
    t.link(0, 1, {30, 0, 10, 0, 50});
    const ThompsonBellResult r = Project(t.in, Vary({"Purse", "Trawl"}));
    ASSERT_TRUE(r.ok()) << RefusalText(r);
    const ThompsonBellSpecies& s = r.species[0];
    EXPECT_EQ(s.F[0][1], 0);
    EXPECT_EQ(s.F[1][1], 0);
    EXPECT_DOUBLE_EQ(s.F[0][0], 0.05);  // a quarter of the catch, a quarter of F
    EXPECT_DOUBLE_EQ(s.F[1][2], 0.2);
    EXPECT_EQ(s.F[1][3], 0);

    const ThompsonBellCohort c = ProjectThompsonBellSpecies(s, {1, 1});
    EXPECT_EQ(c.catchN[1], 0);
    EXPECT_NEAR(c.N[2], c.N[1] / (s.H[1] * s.H[1]), 1e-9 * c.N[1]);

    // Unexploited: N falls by ((Loo - L2) / (Loo - L1))^(M/K) a class; the last class keeps
    // its survivors for good (mean number N / M).
    const ThompsonBellStep& zero = r.steps[0];
    EXPECT_EQ(zero.ffactor, 0);
    EXPECT_EQ(zero.yield, 0);
    EXPECT_EQ(zero.value, 0);
    double n = 1000, biomass = 0;
    for (int i = 0; i < 5; ++i) {
        const double l1 = 10 + 10.0 * i, l2 = l1 + 10;
        const double w = 0.5 * 0.01 * (std::pow(l1, 3) + std::pow(l2, 3));
        const double next = i < 4 ? n * std::pow((100 - l2) / (100 - l1), 0.4 / 0.5) : 0;
        biomass += (n - next) / 0.4 * w;
        n = next;
    }
    EXPECT_NEAR(zero.biomass, biomass, 1e-9 * biomass);
    EXPECT_NEAR(zero.species[0].biomass, biomass, 1e-9 * biomass);
    // More effort, less stock.
    EXPECT_LT(r.steps[40].biomass, r.steps[10].biomass);
    EXPECT_GT(r.steps[10].yield, 0);
}

// Each fleet's yield and value add up to the species' at every step, whichever fleets vary;
// with no fleet varying there is nothing to project.
TEST(ThompsonBell, FleetSharesAddUpAndFixedFleetsKeepFishing) {
    TbInputs t({TbSpecies("Hake", {0.3, 0.6, 0.9, 0.9}), TbSpecies("Squid", {0.1, 0.4, 0.4})},
               {"Trawl", "Longline"});
    t.link(0, 0, {50, 80, 20, 5});
    t.link(0, 1, {0, 20, 60, 60});
    t.link(1, 0, {10, 10, 10});
    const ThompsonBellResult r = Project(t.in, Vary({"Longline"}, {{"Trawl", 0.5}}), true);
    ASSERT_TRUE(r.ok()) << RefusalText(r);
    EXPECT_EQ(r.vary, (std::vector<bool>{false, true}));
    EXPECT_EQ(r.fixed[0], 0.5);
    ASSERT_EQ(r.steps.size(), 41u);
    for (const ThompsonBellStep& step : r.steps) {
        double yield = 0, value = 0, biomass = 0;
        for (const ThompsonBellSpeciesStep& s : step.species) {
            EXPECT_NEAR(s.fleetYield[0] + s.fleetYield[1], s.yield, 1e-9 * (1 + s.yield));
            EXPECT_NEAR(s.fleetValue[0] + s.fleetValue[1], s.value, 1e-9 * (1 + s.value));
            yield += s.yield;
            value += s.value;
            biomass += s.biomass;
        }
        EXPECT_NEAR(step.yield, yield, 1e-9 * yield);
        EXPECT_NEAR(step.value, value, 1e-9 * value);
        EXPECT_NEAR(step.biomass, biomass, 1e-9 * biomass);
    }
    // At f-factor 0 only the fixed trawlers fish; the longliners never touch the squid.
    EXPECT_EQ(r.steps[0].species[0].fleetYield[1], 0);
    EXPECT_GT(r.steps[0].species[0].fleetYield[0], 0);
    EXPECT_EQ(r.steps[40].species[1].fleetYield[1], 0);

    const ThompsonBellResult none = Project(t.in, Vary({}, {{"Longline", 2}}));
    ASSERT_TRUE(none.ok());
    EXPECT_TRUE(none.steps.empty());
    EXPECT_EQ(none.species.size(), 2u);
}

// The selection branch: F = SL x SR x Ft x share, each limb passing 50 % at L50 and R50; a limb
// with L75 = 0 or R50 = 0 is 0; a limb that would divide by zero is refused by name.
TEST(ThompsonBell, SelectionBranch) {
    TbInputs t({TbSpecies("Bream", {9, 9, 9, 9, 9, 9})}, {"Trap", "Net"});
    // Mid-lengths 15 .. 65: L50 at 25, R50 at 55.
    t.link(0, 0, {1, 1, 1, 1, 1, 1}, {"", "", 25, 35, 45, 55});
    t.link(0, 1, {1, 1, 1, 1, 1, 1}, {"", "", -5, 0, 45, 55});
    auto prepared = PrepareThompsonBell(t.in, true);
    ASSERT_TRUE(prepared.ok()) << RefusalText(prepared);
    const auto& f = prepared.species[0].F;
    const double ft = 0.6;
    const double t1 = 25 * std::log(3.0) / 10, t1r = 55 * std::log(3.0) / -10;
    auto s = [&](double l) {
        return 1 / (1 + std::exp(t1 - t1 / 25 * l)) * 1 / (1 + std::exp(t1r - t1r / 55 * l));
    };
    EXPECT_NEAR(f[0][1], s(25) * ft * 0.5, 1e-12);
    EXPECT_NEAR(f[0][4], s(55) * ft * 0.5, 1e-12);
    EXPECT_NEAR(f[0][3], s(45) * ft * 0.5, 1e-12);
    for (double x : f[1]) EXPECT_EQ(x, 0);  // L75 = 0: no left limb, no selection
    // The F-array branch ignores the selection.
    EXPECT_DOUBLE_EQ(PrepareThompsonBell(t.in, false).species[0].F[1][2], 4.5);

    t.link(0, 1, {1, 1, 1, 1, 1, 1}, {"", "", 0, 30, 45, 55});
    auto zeroL50 = PrepareThompsonBell(t.in, true);
    EXPECT_EQ(RefusalText(zeroL50), ThompsonBellSelectionText("Net", "Bream"));
    EXPECT_EQ(zeroL50.refusal()->title, "Invalid Data...");
    t.link(0, 1, {1, 1, 1, 1, 1, 1}, {"", "", 20, 30, 50, 50});
    EXPECT_FALSE(PrepareThompsonBell(t.in, true).ok());
    EXPECT_TRUE(PrepareThompsonBell(t.in, false).ok());
}

// ValidateParams collects species without catches, idle fleets and missing selection records,
// in that order, under one notice.
TEST(ThompsonBell, ValidateParamsCollectsEveryGap) {
    TbInputs t({TbSpecies("Anchovy", {0.5}), TbSpecies("Mackerel", {0.5})}, {"Seine", "Handline"});
    t.link(0, 0, {5});
    t.in.selection[0][0].reset();
    const Outcome o = ValidateParams(t.in);
    ASSERT_FALSE(o.ok());
    EXPECT_EQ(o.refusal()->title, "Invalid Data...");
    EXPECT_EQ(o.refusal()->text,
              "Insufficient Data! Species, Mackerel, is not caught by any of the fleet. Fleet, "
              "Handline, is not exploiting any of the species. Species, Anchovy, is caught by "
              "fleet, Seine but no selection data is recorded.  Please correct the data by "
              "deleting entities or by providiing data to the catches and selection parameters "
              "before proceeding.");
    // The whole run stops there, before any preparation.
    EXPECT_EQ(RefusalText(Project(t.in, Vary({"Seine"}))), o.refusal()->text);
}

TEST(ThompsonBell, ClassStructureRules) {
    // Class sizes must agree across species.
    TbInputs mixed({TbSpecies("A", {0.5, 0.5}), TbSpecies("B", {0.5, 0.5}, 100, 10, 5)}, {"X"});
    mixed.link(0, 0, {1, 1});
    mixed.link(1, 0, {1, 1});
    const auto refused = Project(mixed.in, Vary({"X"}));
    EXPECT_EQ(RefusalText(refused),
              "ERROR! The class intervals are not the same for all the species files. Please "
              "correct the files before proceeding.");
    EXPECT_EQ(refused.refusal()->title, "Invalid File...");

    // The first class reaching Loo is the last; later classes are not projected.
    TbInputs early({TbSpecies("C", {0.5, 0.5, 0.5, 0.5, 0.5}, 45)}, {"X"});
    early.link(0, 0, {1, 1, 1, 1, 1});
    const auto prepared = PrepareThompsonBell(early.in, false);
    ASSERT_TRUE(prepared.ok());
    const ThompsonBellSpecies& s = prepared.species[0];
    EXPECT_EQ(s.lastClass, 4);
    EXPECT_EQ(s.H, (std::vector<double>{s.H[0], s.H[1], s.H[2], 0, 0}));
    EXPECT_NEAR(s.H[0], std::pow(35.0 / 25.0, 0.4), 1e-12);
    const auto c = ProjectThompsonBellSpecies(s, {1});
    ASSERT_EQ(c.N.size(), 4u);
    EXPECT_NEAR(c.nBar[3], c.N[3] / 0.9, 1e-9);  // N / Z

    // Classes that stop before Loo: the last one takes every survivor.
    TbInputs late({TbSpecies("D", {0.5, 0.5, 0.5})}, {"X"});
    late.link(0, 0, {1, 1, 1});
    const auto p2 = PrepareThompsonBell(late.in, false);
    EXPECT_EQ(p2.species[0].lastClass, 3);
    EXPECT_GT(p2.species[0].H[2], 1);
    EXPECT_NEAR(ProjectThompsonBellSpecies(p2.species[0], {2}).nBar[2],
                ProjectThompsonBellSpecies(p2.species[0], {2}).N[2] / 1.4, 1e-9);

    // Catch rows pair with the classes by their mid-length in 32 bits; others are left out.
    TbInputs odd({TbSpecies("E", {0.5, 0.5}, 100, 10.1, 0.1)}, {"X"});
    odd.link(0, 0, {});
    odd.in.catches[0][0] = {{double(float(10.15)), 3}, {10.2, 7}, {10.25, 1}};
    const auto p3 = PrepareThompsonBell(odd.in, false);
    ASSERT_TRUE(p3.ok());
    EXPECT_EQ(p3.species[0].catchTotal, (std::vector<double>{3, 1}));

    // Mortality and growth that cannot be projected are refused by name.
    TbInputs noM({TbSpecies("F", {0.5})}, {"X"});
    noM.in.species[0].header.m = 0;
    noM.link(0, 0, {1});
    EXPECT_EQ(RefusalText(PrepareThompsonBell(noM.in, false)), ThompsonBellSpeciesDataText("F"));
}

// A scenario whose files are gone is refused with the path notice; nothing is written.
TEST(ThompsonBell, InvalidPathsAreRefusedAndNothingChanges) {
    test::TempDir dir;
    test::TbScenarioFile sce(dir);
    sce.addSpecies(TbSpecies("Tuna", {0.3, 0.3}));
    sce.addFleet("Pole");
    sce.link("Pole", "Tuna", test::TbCatches(TbSpecies("Tuna", {0.3, 0.3}), {4, 4}));
    ThompsonBellOptions o;
    o.scenarioPath = sce.path();
    o.effort = Vary({"Pole"});
    ASSERT_TRUE(RunThompsonBell(o).ok());

    std::filesystem::remove(dir.file("Tuna.spc"));
    const std::string before = Slurp(sce.path());
    const auto r = RunThompsonBell(o);
    EXPECT_EQ(RefusalText(r), ThompsonBellPathText(sce.path()));
    EXPECT_EQ(r.refusal()->title, "Invalid File Path");
    EXPECT_EQ(Slurp(sce.path()), before);
    o.scenarioPath = dir.file("none.sce");
    EXPECT_FALSE(RunThompsonBell(o).ok());
}

TEST(ThompsonBell, TablesAndTheirPowersOfTen) {
    EXPECT_EQ(ThompsonBellPower(0), 0);
    EXPECT_EQ(ThompsonBellPower(10), 0);
    EXPECT_EQ(ThompsonBellPower(10.5), 1);
    EXPECT_EQ(ThompsonBellPower(100), 1);
    EXPECT_EQ(ThompsonBellPower(100.01), 2);
    EXPECT_EQ(ThompsonBellColumnTitle("Yield", 3), "Yield (10^3)");
    EXPECT_EQ(ThompsonBellShown(12345, 3), 12.345);
    EXPECT_EQ(ThompsonBellFFactor(1), 0);
    EXPECT_EQ(ThompsonBellFFactor(4), 0.3);
    EXPECT_EQ(ThompsonBellFFactor(41), 4);
    EXPECT_TRUE(CheckFixedFactor(4).ok());
    EXPECT_EQ(RefusalText(CheckFixedFactor(0)),
              "The f-factor can only be in the range from >0 to 4. Please try again.");
    EXPECT_FALSE(CheckFixedFactor(4.01).ok());

    TbInputs t({TbSpecies("Hake", {0.3, 0.6, 0.9}), TbSpecies("Cod", {0.3, 0.6, 0.9})},
               {"Trawl", "Line"});
    t.link(0, 0, {5, 5, 5});
    t.link(0, 1, {5, 5, 5});
    t.link(1, 1, {5, 5, 5});
    const auto r = Project(t.in, Vary({"Trawl", "Line"}));
    const ThompsonBellTable one = CombinationTable(r, 0, 1);
    ASSERT_EQ(one.yield.size(), 41u);
    EXPECT_EQ(one.ffactor[40], 4);
    EXPECT_EQ(one.yield[20], r.steps[20].species[0].fleetYield[1]);
    EXPECT_EQ(one.biomass[20], r.steps[20].species[0].biomass);  // not split between fleets
    EXPECT_EQ(one.value[20], r.steps[20].species[0].fleetValue[1]);
    const ThompsonBellTable all = CumulativeTable(r);
    EXPECT_EQ(all.biomass[0], r.steps[0].biomass);
    double largest = 0;
    for (double y : all.yield) largest = std::max(largest, y);
    EXPECT_EQ(all.pYield, ThompsonBellPower(largest));
    EXPECT_LE(ThompsonBellShown(largest, all.pYield), 10);
}

}  // namespace
}  // namespace norvo
