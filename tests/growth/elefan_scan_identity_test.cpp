// The engine's scans against the plain reference scan: every score of every starting pair, every
// K-scan table row, the kept starting pairs, the best K and the automatic search's rows must be
// the same bits on one, two and three threads, on random small files and the bundled ones.
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "base/fault.h"
#include "data/lfq_file.h"
#include "elefan_reference_scan.h"
#include "growth/elefan.h"
#include "growth/elefan_lfq.h"
#include "growth/elefan_search.h"
#include "growth/elefan_search_engine.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

bool SameBits(float a, float b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

// A file of random counts, many of them 0, with empty edge classes and sampling dates; with
// `sharedDates`, every sample falls on one of two dates, so that walks reuse the lengths of other
// samples of the same date.
ElefanInput RandomFile(std::mt19937& rng, bool sharedDates = false) {
    auto pick = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); };
    static const float kIntervals[] = {0.5f, 1, 2, 0.3f, 5};
    ElefanInput in;
    in.nS = pick(1, 7);
    in.nC = pick(4, 30);
    in.ci = kIntervals[pick(0, 4)];
    in.firstMid = static_cast<float>(pick(1, 40)) * in.ci / 2;
    for (int s = 0; s < in.nS; ++s) {
        const bool second = sharedDates && pick(0, 1) == 1;
        in.day.push_back(static_cast<int16_t>(sharedDates ? (second ? 20 : 3) : pick(1, 28)));
        in.month.push_back(static_cast<int16_t>(sharedDates ? (second ? 9 : 2) : pick(1, 12)));
        const int from = pick(0, in.nC / 3), to = pick(in.nC / 2, in.nC);
        for (int c = 0; c < in.nC; ++c) {
            const bool inside = c >= from && c < to;
            in.freq.push_back(inside && pick(0, 3) != 0 ? static_cast<float>(pick(0, 60)) : 0.0f);
        }
    }
    in.freq[static_cast<size_t>(pick(0, in.nC - 1))] += 1;  // at least one fish
    return in;
}

// The K-scan's starting pairs for one K, as the scan forms them.
std::vector<GrowthParams> PairsOf(const RnLayout& lay, const GrowthParams& q) {
    std::vector<GrowthParams> pairs;
    for (int s = 1; s <= lay.nS; ++s)
        for (float L : StartingLengths(lay, s))
            if (L < q.loo)
                pairs.push_back({.loo = q.loo,
                                 .k = q.k,
                                 .c = q.c,
                                 .wp = q.wp,
                                 .ss = static_cast<float>(s),
                                 .sl = L});
    return pairs;
}

// Runs the scan on 1, 2 and 3 threads and compares everything with the reference.
void ExpectScanIdentity(const ElefanInput& input, const KScanInput& kin, const char* what) {
    SCOPED_TRACE(what);
    const ElefanModel model = RestructureElefan(input);
    std::vector<float> refPairs;
    const KScanResult ref = reference::KScan(model, kin, &refPairs);
    const auto scorer = MakeElefanScorerFromInput(input);
    for (int threads = 1; threads <= 3; ++threads) {
        SCOPED_TRACE(threads);
        ParallelRn rn(*scorer, threads);
        SearchSink sink;
        const auto got = KScan(rn, kin, sink);
        ASSERT_TRUE(got);
        EXPECT_EQ(std::memcmp(&got->table, &ref.table, sizeof(KScanTable)), 0);
        EXPECT_EQ(got->columns, ref.columns);
        EXPECT_EQ(got->best.column, ref.best.column);
        EXPECT_TRUE(SameBits(got->best.rn, ref.best.rn));

        // Every pair's score, K by K, as one batch each.
        if (kin.fixedStart) continue;
        std::vector<float> scores;
        for (int col = 1; col <= ref.columns; ++col) {
            const GrowthParams q{.loo = kin.loo, .k = ref.table[2][col], .c = kin.c, .wp = kin.wp};
            const auto pairs = PairsOf(rn.layout(), q);
            std::vector<float> out(pairs.size());
            rn.run(pairs, out);
            scores.insert(scores.end(), out.begin(), out.end());
        }
        ASSERT_EQ(scores.size(), refPairs.size());
        size_t differing = 0;
        for (size_t i = 0; i < scores.size(); ++i)
            if (!SameBits(scores[i], refPairs[i])) ++differing;
        EXPECT_EQ(differing, 0u);
    }
}

TEST(ScanIdentity, RandomSmallFiles) {
    std::mt19937 rng(20261124);
    for (int file = 0; file < 24; ++file) {
        const ElefanInput input = RandomFile(rng);
        const ElefanModel model = RestructureElefan(input);
        const float top = model.lastMid();
        // Loo above the file, then inside it (the 95% rule), plain and seasonal.
        const float loo = file % 2 == 0 ? DefaultKScanLoo(model) : R4(top * 0.8);
        const float c = file % 3 == 0 ? 0.0f : 0.5f;
        const auto sp = DefaultStartingPoint(model, loo);
        const KScanInput kin{loo, c, 0.3f, file % 8 == 7, sp.ss, sp.sl};
        ExpectScanIdentity(input, kin, ("random file " + std::to_string(file)).c_str());
    }
}

TEST(ScanIdentity, RandomFilesWithSharedDates) {
    std::mt19937 rng(4711);
    for (int file = 0; file < 8;) {
        const ElefanInput input = RandomFile(rng, true);
        const ElefanModel model = RestructureElefan(input);
        if (model.asp() == 0) continue;  // no peak: every score divides by zero
        const float loo = file % 2 == 0 ? DefaultKScanLoo(model) : R4(model.lastMid() * 0.8);
        const auto sp = DefaultStartingPoint(model, loo);
        const KScanInput kin{loo, file % 3 == 0 ? 0.0f : 0.7f, 0.2f, false, sp.ss, sp.sl};
        ExpectScanIdentity(input, kin, ("shared dates " + std::to_string(file++)).c_str());
    }
}

TEST(ScanIdentity, BundledFiles) {
    for (const char* name : {"Simull01.LFQ", "Simull02.LFQ"}) {
        const auto read = ReadLFQ((test::BinDir() / "Data" / name).string());
        ASSERT_TRUE(read.ok()) << name;
        const ElefanInput input = ElefanInputFromLfq(read.value());
        const ElefanModel model = RestructureElefan(input);
        const float loo = DefaultKScanLoo(model);
        const auto sp = DefaultStartingPoint(model, loo);
        // The first plain with Loo above the file, the second seasonal with Loo inside it.
        const bool first = name[7] == '1';
        const KScanInput kin = first ? KScanInput{loo, 0, 0, false, sp.ss, sp.sl}
                                     : KScanInput{R4(loo * 0.9), 0.4f, 0.6f, false, sp.ss, sp.sl};
        ExpectScanIdentity(input, kin, name);
    }
}

// A walk that keeps only scores above a floor gives every such score to the bit and nothing
// above the floor for the others, whatever the floor, plain and seasonal, Loo above the file or
// inside it.
TEST(ScanIdentity, WalksAboveAFloor) {
    std::mt19937 rng(99);
    size_t cut = 0, kept = 0;
    for (int file = 0; file < 16; ++file) {
        const ElefanInput input = RandomFile(rng, file % 4 == 3);
        const ElefanModel model = RestructureElefan(input);
        ElefanScratch scratch(model);
        const auto scorer = MakeElefanScorerFromInput(input);
        const float loo = file % 2 == 0 ? DefaultKScanLoo(model) : R4(model.lastMid() * 0.8);
        for (float k : {0.01f, 0.05f, 0.3f, 1.2f, 4.0f}) {
            const GrowthParams q{.loo = loo, .k = k, .c = file % 3 == 0 ? 0.5f : 0.0f, .wp = 0.2f};
            const std::vector<GrowthParams> pairs = PairsOf(scorer->layout(), q);
            for (const GrowthParams& pair : pairs) {
                const float origin = CurveOrigin(model, pair);
                const float exact = ComputeRnFromOrigin(model, pair, origin, scratch);
                for (float floor : {0.001f, 0.002f, 0.05f, 0.2f, 0.4f, exact, R4(exact - 0.001),
                                    R4(exact + 0.001), 0.9f}) {
                    const float got = ComputeRnFromOriginAbove(model, pair, origin, scratch, floor);
                    if (exact > floor) {
                        EXPECT_TRUE(SameBits(got, exact)) << file << " " << k << " " << floor;
                        ++kept;
                    } else {
                        EXPECT_TRUE(SameBits(got, exact) || got == -INFINITY)
                            << file << " " << k << " " << floor;
                        if (got == -INFINITY) ++cut;
                    }
                }
            }
        }
    }
    EXPECT_GT(cut, 0u);
    EXPECT_GT(kept, 0u);
}

// A batch scored for its records gives, on any number of threads, every score that is a record
// in query order (above the floor and above every score before it) to the bit, so the records
// and where they fall are those of the exact scores; many pairs tie there at low K.
TEST(ScanIdentity, BatchRecords) {
    std::mt19937 rng(31);
    auto records = [](std::span<const float> scores, float floor) {
        std::vector<std::pair<size_t, float>> found;
        for (size_t i = 0; i < scores.size(); ++i) {
            if (scores[i] > floor) {
                floor = scores[i];
                found.emplace_back(i, floor);
            }
        }
        return found;
    };
    size_t batches = 0;
    for (int file = 0; file < 12; ++file) {
        const ElefanInput input = RandomFile(rng, file % 4 == 3);
        const auto scorer = MakeElefanScorerFromInput(input);
        const ElefanModel model = RestructureElefan(input);
        if (model.asp() == 0) continue;
        const float loo = DefaultKScanLoo(model);
        for (float k : {0.01f, 0.02f, 0.1f, 0.6f, 3.0f}) {
            const auto pairs = PairsOf(scorer->layout(), {.loo = loo, .k = k, .c = 0, .wp = 0});
            std::vector<float> exact(pairs.size());
            ParallelRn(*scorer, 1).run(pairs, exact);
            for (float floor : {-999.0f, 0.001f, 0.1f}) {
                const auto want = records(exact, floor);
                for (int threads = 1; threads <= 3; ++threads) {
                    ParallelRn rn(*scorer, threads);
                    std::vector<float> got(pairs.size());
                    rn.runRecords(pairs, got, floor);
                    EXPECT_EQ(records(got, floor), want) << file << " " << k << " " << floor;
                    ++batches;
                }
            }
        }
    }
    EXPECT_GT(batches, 0u);
}

// The automatic search with a variable starting point scores the same batches through the
// engine; its rows and final state must match the reference walk's.
TEST(ScanIdentity, AutomaticSearchWithVariableStart) {
    std::mt19937 rng(7);
    for (int file = 0; file < 6; ++file) {
        const ElefanInput input = RandomFile(rng);
        const ElefanModel model = RestructureElefan(input);
        reference::Scorer plain(model);
        ParallelRn one(plain, 1);
        AutoSearchInput ain;
        ain.loo = DefaultKScanLoo(model);
        ain.k = 0.5f;
        ain.c = 0.2f;
        ain.wp = 0.5f;
        ain.looStep = model.ci();
        ain.kStep = 0.05f;
        ain.cStep = 0.1f;
        ain.wpStep = 0.1f;
        SearchSink sink;
        const auto ref = AutoSearch(one, ain, GrowthParams{}, sink);
        ASSERT_TRUE(ref);
        const auto scorer = MakeElefanScorerFromInput(input);
        for (int threads = 1; threads <= 3; ++threads) {
            ParallelRn rn(*scorer, threads);
            const auto got = AutoSearch(rn, ain, GrowthParams{}, sink);
            ASSERT_TRUE(got);
            ASSERT_EQ(got->rows.size(), ref->rows.size());
            for (size_t i = 0; i < ref->rows.size(); ++i) {
                EXPECT_EQ(
                    std::memcmp(&got->rows[i].params, &ref->rows[i].params, sizeof(GrowthParams)),
                    0);
                EXPECT_TRUE(SameBits(got->rows[i].rn, ref->rows[i].rn));
            }
        }
    }
}

// The fault a batch raises: "" when it raises none.
std::string FaultOf(ParallelRn& rn, const std::vector<GrowthParams>& batch) {
    std::vector<float> out(batch.size());
    try {
        rn.run(batch, out);
    } catch (const Fault& f) {
        return std::to_string(static_cast<int>(f.number())) + " " + f.description();
    }
    return "";
}

// A starting length at or above Loo has no origin; a sample beyond the file has no time. Placed
// anywhere in a batch of repeated origins, the fault raised is the one of the first bad pair.
TEST(ScanIdentity, FaultsOfABatchInQueryOrder) {
    std::mt19937 rng(3);
    const ElefanInput input = RandomFile(rng);
    const ElefanModel model = RestructureElefan(input);
    reference::Scorer plain(model);
    ParallelRn one(plain, 1);
    const auto scorer = MakeElefanScorerFromInput(input);
    const float loo = DefaultKScanLoo(model);
    std::vector<GrowthParams> batch;
    for (int i = 0; i < 60; ++i)
        batch.push_back({.loo = loo, .k = 0.3f, .ss = 1, .sl = static_cast<float>(i % 5)});
    const GrowthParams noOrigin{.loo = loo, .k = 0.3f, .ss = 1, .sl = loo + 1};
    const GrowthParams noSample{.loo = loo, .k = 0.3f, .ss = 99, .sl = 1};
    for (size_t at : {size_t{0}, size_t{17}, size_t{59}}) {
        std::vector<GrowthParams> bad = batch;
        bad[at] = noOrigin;
        bad[std::min<size_t>(at + 3, 59)] = noSample;
        const std::string expected = FaultOf(one, bad);
        ASSERT_FALSE(expected.empty());
        for (int threads = 1; threads <= 3; ++threads) {
            ParallelRn rn(*scorer, threads);
            EXPECT_EQ(FaultOf(rn, bad), expected) << at << " " << threads;
            EXPECT_EQ(FaultOf(rn, batch), "");  // the threads live on after a fault
        }
    }
}

}  // namespace
}  // namespace norvo
