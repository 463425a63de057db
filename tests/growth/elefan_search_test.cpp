// The search procedures against a scorer whose scores are a known function of the parameters,
// so that ties, records and clamps can be set up exactly.
#include "growth/elefan_search.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <functional>
#include <mutex>

#include "base/fault.h"

namespace norvo {
namespace {

// A query: growth parameters with the starting point.
GrowthParams Query(float loo, float k, float c, float wp, float ss, float sl) {
    return {.loo = loo, .k = k, .c = c, .wp = wp, .ss = ss, .sl = sl};
}

using ScoreFn = std::function<float(const GrowthParams&)>;

class FakeScorer : public RnScorer {
  public:
    FakeScorer(RnLayout layout, ScoreFn fn) : layout_(std::move(layout)), fn_(std::move(fn)) {}
    const RnLayout& layout() const override { return layout_; }
    std::unique_ptr<RnWorker> newWorker() const override {
        return std::make_unique<Worker>(const_cast<FakeScorer&>(*this));
    }
    std::vector<GrowthParams> seen() {
        std::lock_guard lock(mutex_);
        return seen_;
    }
    void forget() {
        std::lock_guard lock(mutex_);
        seen_.clear();
    }

  private:
    struct Worker : RnWorker {
        explicit Worker(FakeScorer& s) : owner(s) {}
        float score(const GrowthParams& q) override {
            {
                std::lock_guard lock(owner.mutex_);
                owner.seen_.push_back(q);
            }
            return owner.fn_(q);
        }
        FakeScorer& owner;
    };
    RnLayout layout_;
    ScoreFn fn_;
    std::mutex mutex_;
    std::vector<GrowthParams> seen_;
};

// Two samples over classes 10..40 by 5 (sample 2 occupies 20..30 only).
RnLayout SmallLayout() {
    RnLayout l;
    l.nS = 2;
    l.nC = 7;
    l.firstMid = 10;
    l.lastMid = 40;
    l.ci = 5;
    l.sampleFirstMid = {10, 20};
    l.sampleLastMid = {40, 30};
    return l;
}

TEST(StartingLengths, HalfClassStepsAcrossTheChosenSample) {
    const RnLayout lay = SmallLayout();
    // Sample 2 spans 20..30: from 17.5 to 32.5 by 2.5.
    EXPECT_EQ(StartingLengths(lay, 2),
              (std::vector<float>{17.5f, 20, 22.5f, 25, 27.5f, 30, 32.5f}));
    // The number is cut to a whole sample, after its 32-bit store.
    EXPECT_EQ(StartingLengths(lay, 2.7), StartingLengths(lay, 2));
    EXPECT_EQ(StartingLengths(lay, 1.9999999999).front(), 17.5f);
    EXPECT_EQ(StartingLengths(lay, 1).size(), 15u);
    for (double none : {0.0, 0.99, -1.0, 3.0, 1e300, std::nan("")})
        EXPECT_TRUE(StartingLengths(lay, none).empty()) << none;
}

struct CancelAfter : SearchSink {
    int columnsLeft;
    explicit CancelAfter(int n) : columnsLeft(n) {}
    void kscanColumn(int, float, float) override { --columnsLeft; }
    bool cancelled() override { return columnsLeft <= 0; }
};

TEST(ForSingle, InclusiveEndBothDirectionsAndStuckCounter) {
    std::vector<float> up, down;
    ForSingle(1.0f, 2.0f, 0.5f, [&](float x) { up.push_back(x); });
    ForSingle(2.0f, 1.0f, -0.5f, [&](float x) { down.push_back(x); });
    EXPECT_EQ(up, (std::vector<float>{1.0f, 1.5f, 2.0f}));
    EXPECT_EQ(down, (std::vector<float>{2.0f, 1.5f, 1.0f}));
    int never = 0;
    ForSingle(2.0f, 1.0f, 0.5f, [&](float) { ++never; });
    EXPECT_EQ(never, 0);
    EXPECT_THROW(ForSingle(1.0f, 2.0f, 0.0f, [](float) {}), ArithmeticFault);
    EXPECT_THROW(ForSingle(1e8f, 2e8f, 1.0f, [](float) {}), ArithmeticFault);
}

TEST(KScan, ColumnsAndFixedStartingPoint) {
    FakeScorer fake(SmallLayout(), [](const GrowthParams& q) { return 0.2f + q.k / 100; });
    ParallelRn rn(fake, 2);
    SearchSink sink;
    KScanInput in{50, 0.3f, 0.4f, true, 2, 22.5f};
    auto res = KScan(rn, in, sink);
    ASSERT_TRUE(res);
    ASSERT_EQ(res->columns, 190);
    EXPECT_FLOAT_EQ(res->table[2][1], 0.01f);
    EXPECT_FLOAT_EQ(res->table[2][100], 1.00f);
    EXPECT_FLOAT_EQ(res->table[2][101], 1.1f);
    EXPECT_FLOAT_EQ(res->table[2][190], 10.0f);
    EXPECT_EQ(res->table[2][191], 0.0f);
    // One score per K, all at the fields' starting point and parameters.
    const auto seen = fake.seen();
    ASSERT_EQ(seen.size(), 190u);
    for (const auto& q : seen) {
        EXPECT_EQ(q.ss, 2);
        EXPECT_EQ(q.sl, 22.5f);
        EXPECT_EQ(q.loo, 50);
        EXPECT_EQ(q.c, 0.3f);
        EXPECT_EQ(q.wp, 0.4f);
    }
    EXPECT_EQ(res->best.column, 190);
    EXPECT_EQ(res->state.k, res->table[2][190]);
}

TEST(KScan, EqualBestScoresGiveTheLowerK) {
    FakeScorer fake(SmallLayout(), [](const GrowthParams& q) {
        const int hundredths = static_cast<int>(std::lround(q.k * 100));
        return (hundredths == 30 || hundredths == 200) ? 0.6f : 0.3f;
    });
    ParallelRn rn(fake, 1);
    SearchSink sink;
    auto res = KScan(rn, {50, 0, 0, true, 1, 20}, sink);
    ASSERT_TRUE(res);
    EXPECT_EQ(res->best.column, 30);
    EXPECT_FLOAT_EQ(res->best.params.k, 0.30f);
    EXPECT_EQ(res->best.rn, 0.6f);
}

TEST(KScan, StartingPointScanKeepsTheRecordHolderOverAllK) {
    // Length 20 in sample 1 is best below K = 0.5; above it length 30 is best but scores less
    // than the earlier record, so the record holder's pair is kept.
    FakeScorer fake(SmallLayout(), [](const GrowthParams& q) {
        if (q.k < 0.5f) return q.sl == 20 && q.ss == 1 ? 0.9f : 0.4f;
        return q.sl == 30 ? 0.8f : 0.3f;
    });
    ParallelRn rn(fake, 2);
    SearchSink sink;
    auto res = KScan(rn, {50, 0, 0, false, 2, 25}, sink);
    ASSERT_TRUE(res);
    for (int c = 1; c <= 190; ++c) {
        EXPECT_EQ(res->table[3][c], 1) << c;
        EXPECT_EQ(res->table[4][c], 20) << c;
    }
    EXPECT_EQ(res->table[1][60], 0.3f);  // scored at the kept pair, not at the better one
    // Pairs tried: sample 1 from 7.5 to 42.5 and sample 2 from 17.5 to 32.5, by 2.5, all < Loo.
    EXPECT_EQ(fake.seen().size(), 190u * (15 + 7 + 1));
}

TEST(KScan, LooBelowEveryClassKeepsTheStartingPointInForce) {
    FakeScorer fake(SmallLayout(), [](const GrowthParams&) { return 0.5f; });
    ParallelRn rn(fake, 2);
    SearchSink sink;
    auto res = KScan(rn, {7, 0, 0, false, 2, 3.5f}, sink);
    ASSERT_TRUE(res);
    EXPECT_EQ(fake.seen().size(), 190u);
    EXPECT_EQ(res->best.params.ss, 2);
    EXPECT_EQ(res->best.params.sl, 3.5f);
}

TEST(KScan, CancelLeavesNoResult) {
    FakeScorer fake(SmallLayout(), [](const GrowthParams&) { return 0.5f; });
    ParallelRn rn(fake, 2);
    CancelAfter sink(5);
    EXPECT_FALSE(KScan(rn, {50, 0, 0, true, 1, 20}, sink));
    EXPECT_EQ(fake.seen().size(), 5u);
}

TEST(KScanSmooth, EndsRoundingAndTheMixedComparison) {
    KScanTable t{};
    for (int c = 1; c <= 190; ++c) {
        t[1][c] = 1.0f;
        t[2][c] = c / 100.0f;
        t[3][c] = 2;  // the starting sample the scan used
        t[4][c] = 20;
    }
    auto b = KScanSmooth(t, 5, 60, 0.1f, 0.2f);
    EXPECT_FLOAT_EQ(t[3][1], 0.6f);
    EXPECT_FLOAT_EQ(t[3][2], 0.8f);
    EXPECT_FLOAT_EQ(t[3][3], 1.0f);
    EXPECT_FLOAT_EQ(t[3][181], 1.0f);
    EXPECT_FLOAT_EQ(t[3][182], 0.8f);
    EXPECT_FLOAT_EQ(t[3][183], 0.6f);
    // Columns past the 183 still hold the sample numbers, which beat every raw score.
    EXPECT_EQ(t[3][184], 2);
    EXPECT_EQ(b.column, 190);
    EXPECT_EQ(b.params.loo, 60);
    EXPECT_EQ(b.params.c, 0.1f);

    // An even span: h = 1.5 and the indices round half to even, reaching column 0.
    KScanTable u{};
    for (int c = 1; c <= 183; ++c) u[1][c] = static_cast<float>(c);
    KScanSmooth(u, 4, 60, 0, 0);
    EXPECT_FLOAT_EQ(u[3][1], (1 + 2) / 4.0f);
    EXPECT_FLOAT_EQ(u[3][2], (0 + 1 + 2 + 3) / 4.0f);
    EXPECT_FLOAT_EQ(u[3][4], (2 + 3 + 4 + 5) / 4.0f);
    EXPECT_FLOAT_EQ(u[3][5], (4 + 5 + 6) / 4.0f);
    // With the smoothed score compared against raw scores, the choice follows row 3 upward.
    KScanTable v{};
    for (int c = 1; c <= 183; ++c) v[1][c] = c == 90 ? 0.9f : 0.2f;
    auto vb = KScanSmooth(v, 1, 60, 0, 0);
    EXPECT_EQ(vb.column, 90);
    EXPECT_EQ(vb.rn, 0.9f);
}

TEST(SurfaceBands, BothEndsIncludedLowerFirst) {
    EXPECT_EQ(SurfaceBandOf(0.0f, 0, 1), SurfaceBand::Cyan);
    EXPECT_EQ(SurfaceBandOf(0.25f, 0, 1), SurfaceBand::Green);
    EXPECT_EQ(SurfaceBandOf(0.5f, 0, 1), SurfaceBand::Yellow);
    EXPECT_EQ(SurfaceBandOf(0.75f, 0, 1), SurfaceBand::Orange);
    EXPECT_EQ(SurfaceBandOf(0.8125f, 0, 1), SurfaceBand::Red);
    EXPECT_EQ(SurfaceBandOf(1.0f, 0, 1), SurfaceBand::Red);
    EXPECT_EQ(SurfaceBandOf(-0.5f, 0, 1), SurfaceBand::Red);
    // A band edge belongs to the lower band.
    EXPECT_EQ(SurfaceBandOf(1.0f, 0, 5), SurfaceBand::Cyan);
    EXPECT_EQ(SurfaceBandOf(2.0f, 0, 5), SurfaceBand::Green);
    EXPECT_EQ(SurfaceBandOf(0.5f, 0.5f, 0.5f), SurfaceBand::Red);
    EXPECT_EQ(SurfaceBandOf(0.5f, 9999, 0), SurfaceBand::Red);
    EXPECT_EQ(BandColour(SurfaceBand::Cyan), 0x80FFFFu);
    EXPECT_EQ(BandColour(SurfaceBand::Orange), 0xFF8000u);
}

TEST(ResponseSurface, FixedKUsesThePreviousRunInTheFirstPass) {
    FakeScorer fake(SmallLayout(), [](const GrowthParams& q) { return 0.1f + q.loo / 1000; });
    ParallelRn rn(fake, 2);
    SearchSink sink;
    SurfaceInput in{0.5f, 0.5f, 40, 60, 0.25f, 0.75f, 1, 20};
    GrowthParams previous = Query(45, 1.7f, 0.9f, 0.1f, 2, 25);
    auto res = ResponseSurface(rn, in, previous, sink);
    ASSERT_TRUE(res);
    const auto seen = fake.seen();
    ASSERT_EQ(seen.size(), 21u + 441u);
    for (size_t i = 0; i < 21; ++i) {
        EXPECT_EQ(seen[i].k, 1.7f);
        EXPECT_EQ(seen[i].c, 0.9f);
        EXPECT_EQ(seen[i].wp, 0.1f);
        EXPECT_EQ(seen[i].ss, 1);
    }
    for (int i = 0; i < 21; ++i) {
        EXPECT_EQ(res->kHeadings[i], 0.5f);
        EXPECT_EQ(res->grid[i][0], res->grid[0][0]);
    }
    for (size_t i = 21; i < seen.size(); ++i) {
        EXPECT_EQ(seen[i].c, 0.25f);
        EXPECT_EQ(seen[i].wp, 0.75f);
        EXPECT_EQ(seen[i].k, 0.5f);
    }
    EXPECT_DOUBLE_EQ(res->looHeadings[20], 60);
    EXPECT_FLOAT_EQ(res->min, 0.14f);
    EXPECT_FLOAT_EQ(res->max, 0.16f);
    EXPECT_EQ(res->band(0, 0), SurfaceBand::Cyan);
    EXPECT_EQ(res->band(0, 20), SurfaceBand::Red);
}

TEST(ResponseSurface, FlatSurfaceIsAllRed) {
    FakeScorer fake(SmallLayout(), [](const GrowthParams&) { return 0.4f; });
    ParallelRn rn(fake, 2);
    SearchSink sink;
    auto res = ResponseSurface(rn, {0.1f, 2, 30, 90, 0, 0, 1, 20}, GrowthParams{}, sink);
    ASSERT_TRUE(res);
    for (int i = 0; i < 21; ++i)
        for (int j = 0; j < 21; ++j) EXPECT_EQ(res->band(i, j), SurfaceBand::Red);
}

TEST(ResponseSurface, FailureTable) {
    const Outcome noStart = CheckSurfaceInput({0.1f, 1, 30, 90, 0, 0, 0, 20});
    EXPECT_FALSE(noStart.ok());
    ASSERT_NE(noStart.refusal(), nullptr);
    EXPECT_EQ(noStart.refusal()->title, "Invalid Action");
    EXPECT_EQ(noStart.refusal()->text,
              "ERROR! Please enter value for the starting point before proceeding.");
    const Outcome above = CheckSurfaceInput({0.1f, 1, 30, 90, 0, 0, 1, 30});
    EXPECT_FALSE(above.ok());
    EXPECT_EQ(above.refusal()->title, "Invalid Input");
    EXPECT_EQ(above.refusal()->text,
              "ERROR! The starting length is greater than the range of values to evaluate for "
              "Loo. Please adjust parameters.");
    const Outcome fixed = CheckSurfaceInput({0.1f, 1, 90, 90, 0, 0, 1, 30});
    EXPECT_FALSE(fixed.ok());
    EXPECT_EQ(fixed.refusal()->text,
              "ERROR! The asymptotic length (Loo) cannot be fixed. Please adjust parameters.");
    EXPECT_EQ(fixed.refusal()->icon, Icon::Warning);
    // One notice for each refusal, none for a surface that can run.
    EXPECT_EQ(noStart.notices.size() + above.notices.size() + fixed.notices.size(), 3u);
    const Outcome fine = CheckSurfaceInput({0.1f, 1, 31, 90, 0, 0, 1, 30});
    EXPECT_TRUE(fine.ok());
    EXPECT_TRUE(fine.notices.empty());
}

TEST(AutoSearch, SeedChecks) {
    const RnLayout lay = SmallLayout();
    auto refused = [&](AutoSearchInput in) {
        const Outcome check = CheckSearchSeeds(in, lay);
        if (check.ok()) return check.notices.empty() ? std::string() : std::string("notices");
        return check.refusal()->title + "|" + check.refusal()->text;
    };
    EXPECT_EQ(refused({10, 1, 0, 0}), "Invalid Data|Please check your input to Loo.");
    EXPECT_EQ(refused({50, 0.01f, 0, 0}),
              "Invalid Data|Please check your input for K (0.01 to 10.0).");
    EXPECT_EQ(refused({50, 10.01f, 0, 0}),
              "Invalid Data|Please check your input for K (0.01 to 10.0).");
    EXPECT_EQ(refused({50, 1, 1.01f, 0}),
              "Invalid Data|Please check your input for C (0.0 to 1.0).");
    EXPECT_EQ(refused({50, 1, 0, -0.1f}), "Invalid Data|Please check your input for WP.");
    EXPECT_EQ(refused({10.5f, 0.011f, 1, 1}), "");
    EXPECT_EQ(refused({50, 10, 0, 0}), "");
}

struct PassLog : SearchSink {
    std::vector<int> passes;
    void searchPass(int n) override { passes.push_back(n); }
};

TEST(AutoSearch, ZeroStepsRunNToSixWithoutAWin) {
    FakeScorer fake(SmallLayout(), [](const GrowthParams& q) { return q.loo / 100; });
    ParallelRn rn(fake, 2);
    PassLog sink;
    AutoSearchInput in{50, 1, 0.5f, 0.5f, 0, 0, 0, 0, true, 1, 20};
    auto res = AutoSearch(rn, in, GrowthParams{}, sink);
    ASSERT_TRUE(res);
    EXPECT_EQ(res->rows.size(), 1u);
    EXPECT_EQ(sink.passes, (std::vector<int>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(fake.seen().size(), 1u + 6 * 8);
    // A finished search closes with its note.
    EXPECT_TRUE(res->ok());
    ASSERT_EQ(res->notices.size(), 1u);
    EXPECT_EQ(res->notices.back().text, "Search completed.");
    EXPECT_EQ(res->notices.back().title, "NOTE!");
}

TEST(AutoSearch, AWinSetsNBackToOne) {
    // Better and better up to Loo 53, poor beyond it.
    FakeScorer fake(SmallLayout(),
                    [](const GrowthParams& q) { return q.loo <= 53 ? q.loo / 100 : 0.1f; });
    ParallelRn rn(fake, 2);
    PassLog sink;
    AutoSearchInput in{50, 1, 0, 0, 1, 0, 0, 0, true, 1, 20};
    auto res = AutoSearch(rn, in, GrowthParams{}, sink);
    ASSERT_TRUE(res);
    ASSERT_EQ(res->rows.size(), 4u);
    EXPECT_EQ(res->rows[3].params.loo, 53);
    EXPECT_EQ(res->rows[3].rn, 0.53f);
    EXPECT_EQ(res->rows[3].row, 4);
    EXPECT_EQ(sink.passes, (std::vector<int>{1, 1, 1, 1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(res->state.loo, 53);
    const auto texts = SearchRowTexts(res->rows[3]);
    EXPECT_EQ(texts[0], "4");
    EXPECT_EQ(texts[1], "53.00");
    EXPECT_EQ(texts[5], "1");
    EXPECT_EQ(texts[6], "20.00");
    EXPECT_EQ(texts[7], "0.530");
}

TEST(AutoSearch, TrialsStandOnEachOtherAndTiesWinNothing) {
    // Trial 1 (Loo + 1) and trial 3 (Loo - 1 with K + 1) score the same top value.
    FakeScorer fake(SmallLayout(), [](const GrowthParams& q) {
        if (q.loo == 51 && q.k == 2) return 0.9f;
        if (q.loo == 49 && q.k == 3) return 0.9f;
        return 0.2f;
    });
    ParallelRn rn(fake, 1);
    SearchSink sink;
    AutoSearchInput in{50, 2, 0.5f, 0.5f, 1, 1, 0.1f, 0.1f, true, 1, 20};
    auto res = AutoSearch(rn, in, GrowthParams{}, sink);
    ASSERT_TRUE(res);
    EXPECT_EQ(res->rows.size(), 1u);
    // The trials of the first pass: each keeps the changes of the ones before it.
    const auto seen = fake.seen();
    ASSERT_GE(seen.size(), 9u);
    const GrowthParams& t8 = seen[8];
    EXPECT_EQ(t8.loo, 49);
    EXPECT_EQ(t8.k, 1);
    EXPECT_FLOAT_EQ(t8.c, 0.4f);
    EXPECT_FLOAT_EQ(t8.wp, 0.4f);
    EXPECT_EQ(seen[3].loo, 49);
    EXPECT_EQ(seen[3].k, 3);
    EXPECT_FLOAT_EQ(seen[5].c, 0.6f);
    EXPECT_EQ(seen[5].k, 1);
}

TEST(AutoSearch, ClampsApplyToTrialsButNotToTheWinner) {
    // Only a K at its lower clamp, with C at its base, scores well.
    FakeScorer fake(SmallLayout(), [](const GrowthParams& q) {
        return static_cast<double>(q.k) < 0.0100001 && q.c == 0.5f ? 0.8f : 0.2f;
    });
    ParallelRn rn(fake, 1);
    SearchSink sink;
    AutoSearchInput in{20, 0.5f, 0.5f, 0.5f, 100, 1, 1, 1, true, 1, 12};
    auto res = AutoSearch(rn, in, GrowthParams{}, sink);
    ASSERT_TRUE(res);
    const auto seen = fake.seen();
    EXPECT_EQ(seen[1].loo, 120);
    EXPECT_EQ(seen[2].loo, 15);  // CI + FirstMid
    EXPECT_EQ(seen[3].k, 1.5f);
    EXPECT_EQ(seen[4].k, 0.01f);
    EXPECT_EQ(seen[5].c, 1);
    EXPECT_EQ(seen[6].c, 0);
    EXPECT_EQ(seen[7].wp, 1);
    EXPECT_EQ(seen[8].wp, 0);
    ASSERT_GE(res->rows.size(), 2u);
    EXPECT_EQ(res->rows[1].params.k, -0.5f);  // B - n * step, unclamped
    EXPECT_EQ(res->rows[1].params.loo, 20);
    EXPECT_EQ(res->rows[1].rn, 0.8f);
}

TEST(AutoSearch, VariableStartingPointLeavesTheLastPairTried) {
    // The best pair is in sample 1, but the row shows the last pair below Loo.
    FakeScorer fake(SmallLayout(),
                    [](const GrowthParams& q) { return q.ss == 1 && q.sl == 15 ? 0.7f : 0.3f; });
    ParallelRn rn(fake, 2);
    SearchSink sink;
    AutoSearchInput in{31, 1, 0, 0, 0, 0, 0, 0, false, 0, 0};
    GrowthParams q = Query(31, 1, 0, 0, 0, 0);
    EXPECT_EQ(ComputeRnSearch(rn, q, in), 0.7f);
    EXPECT_EQ(q.ss, 2);
    EXPECT_EQ(q.sl, 30);
    auto res = AutoSearch(rn, in, GrowthParams{}, sink);
    ASSERT_TRUE(res);
    EXPECT_EQ(res->rows[0].params.ss, 2);
    EXPECT_EQ(res->rows[0].params.sl, 30);
    EXPECT_EQ(res->rows[0].rn, 0.7f);
}

TEST(ParallelRn, RaisesTheFirstFaultInQueryOrder) {
    // Queries with Loo 500 divide by zero, those with Loo 900 overflow; the earliest wins.
    FakeScorer fake(SmallLayout(), [](const GrowthParams& q) -> float {
        if (q.loo == 500) ThrowDivisionByZero();
        if (q.loo == 900) ThrowOverflow();
        return 0.5f;
    });
    ParallelRn rn(fake, 2);
    std::vector<GrowthParams> qs(400, Query(50, 1, 0, 0, 1, 20));
    qs[397].loo = 500;
    qs[3].loo = 900;
    qs[250].loo = 500;
    std::vector<float> out(qs.size());
    try {
        rn.run(qs, out);
        FAIL() << "no fault";
    } catch (const ArithmeticFault& f) {
        EXPECT_EQ(f.code(), FaultNumber::Overflow);
    }
}

}  // namespace
}  // namespace norvo
