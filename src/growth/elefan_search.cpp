#include "growth/elefan_search.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <condition_variable>
#include <exception>
#include <functional>
#include <limits>
#include <mutex>
#include <thread>

#include "base/basic.h"
#include "base/fault.h"
#include "base/format.h"

namespace norvo {

// ---- parallel scoring ----------------------------------------------------------------------

namespace {

// Below this many queries a batch is not worth a second thread.
constexpr size_t kMinParallelBatch = 16;
// Queries handed out to a thread at a time.
constexpr size_t kChunk = 8;

}  // namespace

// Helpers 1..n-1 wait for a job; run() hands one to the first `count - 1` of them, does its
// own share as worker 0 and returns when every helper it asked is done. A search runs batch
// after batch with a little sequential work between them, so both sides spin briefly before
// they sleep: a sleeping thread takes tens of microseconds to wake.
class ParallelRn::Pool {
  public:
    explicit Pool(size_t helpers) {
        for (size_t w = 1; w <= helpers; ++w) threads_.emplace_back([this, w] { loop(w); });
    }
    ~Pool() {
        {
            std::lock_guard lock(mutex_);
            stop_ = true;
        }
        wake_.notify_all();
        for (auto& t : threads_) t.join();
    }
    // `job` must not throw.
    void run(size_t count, const std::function<void(size_t)>& job) {
        job_ = &job;
        pending_.store(count - 1, std::memory_order_relaxed);
        {
            std::lock_guard lock(mutex_);
            const uint64_t generation = (state_.load(std::memory_order_relaxed) >> 16) + 1;
            state_.store(generation << 16 | count, std::memory_order_release);
        }
        wake_.notify_all();
        job(0);
        if (!SpinUntil([this] { return pending_.load(std::memory_order_acquire) == 0; })) {
            std::unique_lock lock(mutex_);
            done_.wait(lock, [this] { return pending_.load(std::memory_order_acquire) == 0; });
        }
        job_ = nullptr;
    }

  private:
    // Spins for about a tenth of a millisecond; true when `ready` came true meanwhile.
    template <class Ready>
    static bool SpinUntil(Ready&& ready) {
        for (int i = 0; i < 4096; ++i) {
            if (ready()) return true;
#if defined(__x86_64__) || defined(__i386__)
            __builtin_ia32_pause();
#endif
        }
        return ready();
    }

    void loop(size_t w) {
        uint64_t seen = 0;
        for (;;) {
            auto fresh = [&] { return state_.load(std::memory_order_acquire) != seen; };
            if (!SpinUntil(fresh)) {
                std::unique_lock lock(mutex_);
                wake_.wait(lock, [&] { return stop_ || fresh(); });
                if (stop_) return;
            }
            // The generation and its count are read together: a helper not asked this time
            // may only see the next job once the main thread has posted it.
            seen = state_.load(std::memory_order_acquire);
            if (w >= (seen & 0xFFFF)) continue;  // not asked this time
            (*job_)(w);
            if (pending_.fetch_sub(1, std::memory_order_acq_rel) == 1) {
                std::lock_guard lock(mutex_);
                done_.notify_one();
            }
        }
    }

    std::mutex mutex_;
    std::condition_variable wake_, done_;
    const std::function<void(size_t)>* job_ = nullptr;
    std::atomic<size_t> pending_{0};
    // The job's generation above bit 16, the number of workers asked below.
    std::atomic<uint64_t> state_{0};
    bool stop_ = false;
    std::vector<std::thread> threads_;
};

ParallelRn::ParallelRn(const RnScorer& scorer, int threads) : scorer_(scorer) {
    const int n = std::max(1, threads);
    for (int i = 0; i < n; ++i) workers_.push_back(scorer_.newWorker());
}

ParallelRn::~ParallelRn() = default;

template <class Score>
void ParallelRn::spread(size_t n, Score&& score) {
    const size_t threads = std::min(workers_.size(), std::max<size_t>(1, n / kMinParallelBatch));
    if (threads <= 1) {
        for (size_t i = 0; i < n; ++i) score(size_t{0}, i);
        return;
    }
    std::atomic<size_t> next{0};
    std::vector<size_t> faultAt(threads, std::numeric_limits<size_t>::max());
    std::vector<std::exception_ptr> faults(threads);
    const std::function<void(size_t)> work = [&](size_t w) {
        for (;;) {
            const size_t begin = next.fetch_add(kChunk);
            if (begin >= n) return;
            const size_t end = std::min(n, begin + kChunk);
            for (size_t i = begin; i < end; ++i) {
                if (i > faultAt[w]) return;
                try {
                    score(w, i);
                } catch (...) {
                    faultAt[w] = i;
                    faults[w] = std::current_exception();
                }
            }
        }
    };
    if (!pool_) pool_ = std::make_unique<Pool>(workers_.size() - 1);
    pool_->run(threads, work);
    size_t first = 0;
    for (size_t w = 1; w < threads; ++w)
        if (faultAt[w] < faultAt[first]) first = w;
    if (faults[first]) std::rethrow_exception(faults[first]);
}

void ParallelRn::run(std::span<const GrowthParams> queries, std::span<float> out) {
    runAbove(queries, out, -std::numeric_limits<float>::infinity());
}

void ParallelRn::runAbove(std::span<const GrowthParams> queries, std::span<float> out,
                          float floor) {
    runFloored(queries, out, floor, false);
}

void ParallelRn::runRecords(std::span<const GrowthParams> queries, std::span<float> out,
                            float floor) {
    runFloored(queries, out, floor, true);
}

void ParallelRn::runFloored(std::span<const GrowthParams> queries, std::span<float> out,
                            float floor, bool records) {
    const size_t n = queries.size();
    if (out.size() < n) throw SubscriptFault("ParallelRn::run");
    if (workers_[0]->scoresByOrigin()) {
        runByOrigin(queries, out, floor, records);
        return;
    }
    spread(n, [&](size_t w, size_t i) { out[i] = workers_[w]->score(queries[i]); });
}

namespace {

// The bits of what a walk reads: Loo, K, C, WP and the origin.
using OriginKey = std::array<uint32_t, 5>;

size_t HashOf(const OriginKey& key) {
    uint64_t h = 0x9E3779B97F4A7C15ull;
    for (uint32_t b : key) h = (h ^ b) * 0xBF58476D1CE4E5B9ull;
    return static_cast<size_t>(h ^ (h >> 31));
}

OriginKey KeyOf(const GrowthParams& q, float origin) {
    const float v[5] = {q.loo, q.k, q.c, q.wp, origin};
    OriginKey key;
    for (size_t i = 0; i < 5; ++i) key[i] = std::bit_cast<uint32_t>(v[i]);
    return key;
}

}  // namespace

// Many starting pairs give a curve the same origin: the origin is formed from the starting
// length and the time in the year of the starting sample, and the walk reads nothing else of
// the starting point. Pairs that agree in the bits of Loo, K, C, WP and the 32-bit origin
// therefore walk the same curve through the same table and score the same, so each distinct
// setting is walked once and every pair takes its score. Faults keep their query order: the
// origins are formed in order up to the first that faults; a walk's fault belongs to the first
// pair of its setting, and the settings are walked in the order of their first pairs, so the
// lowest walk fault is the lowest faulting pair; only without one is the origin's fault raised.
//
// For records, each worker also raises its floor to the best score it has met: it takes the
// settings in rising order, so that score belongs to an earlier pair, and a later pair that
// only equals it cannot be a record.
void ParallelRn::runByOrigin(std::span<const GrowthParams> queries, std::span<float> out,
                             float floor, bool records) {
    const size_t n = queries.size();
    RnWorker& first = *workers_[0];
    // An open-addressing table of the settings met, at most half full.
    const size_t capacity = std::bit_ceil(std::max<size_t>(16, 2 * n));
    constexpr uint32_t kFree = std::numeric_limits<uint32_t>::max();
    table_.assign(capacity, kFree);
    distinctKey_.clear();
    distinct_.clear();
    distinctOrigin_.clear();
    slot_.resize(n);
    size_t formed = 0;
    std::exception_ptr originFault;
    for (; formed < n; ++formed) {
        float origin = 0;
        try {
            origin = first.origin(queries[formed]);
        } catch (...) {
            originFault = std::current_exception();
            break;
        }
        const OriginKey key = KeyOf(queries[formed], origin);
        size_t at = HashOf(key) & (capacity - 1);
        while (table_[at] != kFree && distinctKey_[table_[at]] != key)
            at = (at + 1) & (capacity - 1);
        if (table_[at] == kFree) {
            table_[at] = static_cast<uint32_t>(distinct_.size());
            distinctKey_.push_back(key);
            distinct_.push_back(queries[formed]);
            distinctOrigin_.push_back(origin);
        }
        slot_[formed] = table_[at];
    }
    distinctScore_.assign(distinct_.size(), 0);
    workerFloor_.assign(workers_.size(), floor);
    spread(distinct_.size(), [&](size_t w, size_t i) {
        RnWorker& worker = *workers_[w];
        float& least = workerFloor_[w];
        const float r = least == -std::numeric_limits<float>::infinity()
                            ? worker.scoreFromOrigin(distinct_[i], distinctOrigin_[i])
                            : worker.scoreFromOriginAbove(distinct_[i], distinctOrigin_[i], least);
        distinctScore_[i] = r;
        if (records && r > least) least = r;
    });
    for (size_t i = 0; i < formed; ++i) out[i] = distinctScore_[slot_[i]];
    if (originFault) std::rethrow_exception(originFault);
}

int DefaultSearchThreads() {
    return std::max(1u, std::thread::hardware_concurrency());
}

std::vector<float> StartingLengths(const RnLayout& lay, double sample) {
    // Out of range at once, so that no huge or undefined number reaches the conversions.
    if (!(sample >= 1 && sample < lay.nS + 1.0)) return {};
    const int s = static_cast<int>(R4(sample));
    if (s < 1 || s > lay.nS) return {};
    std::vector<float> lengths;
    const float half = R4(lay.ci / 2.0);
    ForSingle(R4(static_cast<double>(lay.sampleFirstMid[s - 1]) - half),
              R4(static_cast<double>(lay.sampleLastMid[s - 1]) + half), half,
              [&](float L) { lengths.push_back(L); });
    return lengths;
}

void ThrowStuckLoop() {
    ThrowOverflow();
}

// ---- K-scan --------------------------------------------------------------------------------

std::optional<KScanResult> KScan(ParallelRn& rn, const KScanInput& in, SearchSink& sink) {
    const RnLayout& lay = rn.layout();
    KScanResult res;
    GrowthParams q{.loo = in.loo, .k = 0, .c = in.c, .wp = in.wp, .ss = in.ss, .sl = in.sl};
    const float half = R4(lay.ci / 2.0);
    float k = R4(0.001);
    float step = R4(0.01);
    int col = 1;
    float best = -999;
    float keptS = in.ss, keptL = in.sl;
    std::vector<GrowthParams> pairs;
    std::vector<float> scores;
    constexpr int kExpectedColumns = 190;
    while (k < 10) {
        if (sink.cancelled()) return std::nullopt;
        k = R4(static_cast<double>(k) + step);
        q.k = R4(Int(static_cast<double>(k) * 100) / 100);
        if (!in.fixedStart) {
            // Every starting point below Loo; the record holder over all K so far is kept.
            pairs.clear();
            for (int s = 1; s <= lay.nS; ++s) {
                const float from = R4(static_cast<double>(lay.sampleFirstMid[s - 1]) - half);
                const float to = R4(static_cast<double>(lay.sampleLastMid[s - 1]) + half);
                ForSingle(from, to, half, [&](float L) {
                    if (L < q.loo) {
                        GrowthParams p = q;
                        p.ss = static_cast<float>(s);
                        p.sl = L;
                        pairs.push_back(p);
                    }
                });
            }
            scores.resize(pairs.size());
            // Only a pair above the record and above every pair before it can be kept, so the
            // walks need not finish below those.
            rn.runRecords(pairs, scores, best);
            for (size_t i = 0; i < pairs.size(); ++i) {
                if (scores[i] > best) {
                    best = scores[i];
                    keptS = pairs[i].ss;
                    keptL = pairs[i].sl;
                }
            }
            q.ss = keptS;
            q.sl = keptL;
        }
        const float r = rn.one(q);
        if (col >= kKScanColumns) throw SubscriptFault("KScan");
        res.table[1][col] = r;
        res.table[2][col] = q.k;
        res.table[3][col] = q.ss;
        res.table[4][col] = q.sl;
        sink.kscanColumn(col, q.k, r);
        sink.progress(col, kExpectedColumns);
        ++col;
        if (k >= 1) step = R4(0.1);
    }
    res.columns = col - 1;
    const int b = KScanBestColumn(res.table);
    res.best.column = b;
    res.best.params = {.loo = in.loo,
                       .k = res.table[2][b],
                       .c = in.c,
                       .wp = in.wp,
                       .ss = res.table[3][b],
                       .sl = res.table[4][b]};
    res.best.rn = res.table[1][b];
    res.state = res.best.params;
    return res;
}

int KScanBestColumn(const KScanTable& table) {
    float best = -99;
    int col = 0;
    for (int c = 1; c < kKScanColumns; ++c) {
        if (table[1][c] > best) {
            best = table[1][c];
            col = c;
        }
    }
    return col;
}

ElefanBest KScanSmooth(KScanTable& t, int w, float loo, float c, float wp) {
    if (w < 1) throw SubscriptFault("KScanSmooth");
    const double h = (w - 1) / 2.0;
    auto row1 = [&](int j) -> double {
        if (j < 0 || j >= kKScanColumns) throw SubscriptFault("KScanSmooth");
        return t[1][j];
    };
    auto mean = [&](int from, int to) {
        double sum = 0;
        for (int j = from; j <= to; ++j) sum += row1(j);
        return R4(sum / w);
    };
    auto set3 = [&](int i, float v) {
        if (i < 0 || i >= kKScanColumns) throw SubscriptFault("KScanSmooth");
        t[3][i] = v;
    };
    const int len = kKScanSmoothLength;
    for (int i = 1; i <= len; ++i) t[3][i] = 0;
    for (int i = 1; i <= static_cast<int>(Int(h)); ++i) set3(i, mean(1, CInt(h + i)));
    for (int i = CInt(h + 1); i <= CInt(len - h); ++i)
        set3(i, mean(CInt(i - h), static_cast<int>(Int(i + h))));
    for (int i = CInt(Int(len - h) + 1); i <= len; ++i) set3(i, mean(CInt(i - h), len));

    // The smoothed score of a column is compared with the raw score of the last one chosen.
    float best = -99;
    int col = 0;
    for (int j = 1; j < kKScanColumns; ++j) {
        if (t[3][j] > best) {
            best = t[1][j];
            col = j;
        }
    }
    ElefanBest b;
    b.column = col;
    b.params = {.loo = loo, .k = t[2][col], .c = c, .wp = wp, .ss = t[3][col], .sl = t[4][col]};
    b.rn = t[1][col];
    return b;
}

// ---- response surface ----------------------------------------------------------------------

Colour BandColour(SurfaceBand band) {
    switch (band) {
        case SurfaceBand::Cyan:
            return 0x80FFFF;
        case SurfaceBand::Green:
            return 0x80FF80;
        case SurfaceBand::Yellow:
            return 0xFFFF00;
        case SurfaceBand::Orange:
            return 0xFF8000;
        case SurfaceBand::Red:
            break;
    }
    return 0xFF0000;
}

SurfaceBand SurfaceBandOf(float r, float min, float max) {
    const double range = static_cast<double>(max) - min;
    if (range <= 0) return SurfaceBand::Red;
    const double f = (static_cast<double>(r) - min) / range;
    if (f >= 0 && f <= 0.2) return SurfaceBand::Cyan;
    if (f >= 0.2 && f <= 0.4) return SurfaceBand::Green;
    if (f >= 0.4 && f <= 0.6) return SurfaceBand::Yellow;
    if (f >= 0.6 && f <= 0.8) return SurfaceBand::Orange;
    return SurfaceBand::Red;
}

Outcome CheckSurfaceInput(const SurfaceInput& in) {
    Outcome out;
    if (in.ss == 0 || in.sl == 0) {
        out.refuse(kMsgNoStartingPoint, kTitleInvalidAction);
    } else if (in.looFrom <= in.sl) {
        out.refuse(kMsgStartAboveLooRange, kTitleInvalidInput);
    } else if (in.looFrom == in.looTo) {
        out.refuse(kMsgLooFixed, kTitleInvalidInput);
    }
    return out;
}

std::optional<SurfaceResult> ResponseSurface(ParallelRn& rn, const SurfaceInput& in,
                                             const GrowthParams& previous, SearchSink& sink) {
    SurfaceResult res;
    GrowthParams q = previous;
    q.ss = in.ss;
    q.sl = in.sl;
    const float kStep = R4((static_cast<double>(in.kTo) - in.kFrom) / 20);
    const float looStep = R4((static_cast<double>(in.looTo) - in.looFrom) / 20);
    if (sink.cancelled()) return std::nullopt;

    // First pass: min and max, with the C and WP of the previous run.
    std::vector<GrowthParams> queries;
    auto looPass = [&](float k) {
        ForSingle(in.looFrom, in.looTo, looStep, [&](float loo) {
            GrowthParams p = q;
            p.k = k;
            p.loo = loo;
            queries.push_back(p);
        });
    };
    if (in.kFrom == in.kTo) {
        looPass(q.k);
    } else {
        ForSingle(in.kFrom, in.kTo, kStep, looPass);
    }
    std::vector<float> scores(queries.size());
    rn.run(queries, scores);
    for (float r : scores) {
        if (r > res.max) res.max = r;
        res.min = std::min(res.min, r);
    }
    sink.progress(1, 2);
    if (sink.cancelled()) return std::nullopt;

    for (int i = 0; i < kSurfaceSize; ++i) {
        res.kHeadings[i] = in.kFrom + i * (static_cast<double>(in.kTo) - in.kFrom) / 20;
        res.looHeadings[i] = in.looFrom + i * (static_cast<double>(in.looTo) - in.looFrom) / 20;
    }

    // Second pass: column by column, Loo and K accumulated in 32 bits from their From values.
    queries.clear();
    float loo = in.looFrom;
    for (int j = 0; j < kSurfaceSize; ++j) {
        float k = in.kFrom;
        for (int i = 0; i < kSurfaceSize; ++i) {
            queries.push_back(
                {.loo = loo, .k = k, .c = in.c, .wp = in.wp, .ss = in.ss, .sl = in.sl});
            if (i + 1 < kSurfaceSize) k = R4(static_cast<double>(k) + kStep);
        }
        if (j + 1 < kSurfaceSize) loo = R4(static_cast<double>(loo) + looStep);
    }
    scores.assign(queries.size(), 0);
    rn.run(queries, scores);
    for (int j = 0; j < kSurfaceSize; ++j)
        for (int i = 0; i < kSurfaceSize; ++i) res.grid[i][j] = scores[j * kSurfaceSize + i];
    res.state = queries.back();
    sink.progress(2, 2);
    return res;
}

std::optional<FineSurface> ComputeFineSurface(ParallelRn& rn, const SurfaceInput& in, int n,
                                              SearchSink& sink) {
    if (n < 2) throw SubscriptFault("ComputeFineSurface");
    FineSurface fs;
    fs.n = n;
    for (int i = 0; i < n; ++i) {
        fs.k.push_back(R4(in.kFrom + i * (static_cast<double>(in.kTo) - in.kFrom) / (n - 1)));
        fs.loo.push_back(
            R4(in.looFrom + i * (static_cast<double>(in.looTo) - in.looFrom) / (n - 1)));
    }
    fs.grid.assign(static_cast<size_t>(n) * n, 0);
    std::vector<GrowthParams> row(n);
    for (int i = 0; i < n; ++i) {
        if (sink.cancelled()) return std::nullopt;
        for (int j = 0; j < n; ++j)
            row[j] = {
                .loo = fs.loo[j], .k = fs.k[i], .c = in.c, .wp = in.wp, .ss = in.ss, .sl = in.sl};
        rn.run(row, std::span<float>(fs.grid).subspan(static_cast<size_t>(i) * n, n));
        sink.progress(i + 1, n);
    }
    fs.min = *std::min_element(fs.grid.begin(), fs.grid.end());
    fs.max = *std::max_element(fs.grid.begin(), fs.grid.end());
    return fs;
}

// ---- automatic search ----------------------------------------------------------------------

Outcome CheckSearchSeeds(const AutoSearchInput& in, const RnLayout& layout) {
    Outcome out;
    if (in.loo <= layout.firstMid) {
        out.refuse(kMsgCheckLoo, kTitleInvalidData);
    } else if (static_cast<double>(in.k) <= 0.01 || in.k > 10) {
        // Compared as double, so a seed of 0.01 (a little below in 32 bits) is refused.
        out.refuse(kMsgCheckK, kTitleInvalidData);
    } else if (in.c < 0 || in.c > 1) {
        out.refuse(kMsgCheckC, kTitleInvalidData);
    } else if (in.wp < 0 || in.wp > 1) {
        out.refuse(kMsgCheckWP, kTitleInvalidData);
    }
    return out;
}

namespace {

// The queries of one ComputeRn_Search call, appended to `out`; `last` gets the last pair tried
// (left as it is when no pair is tried).
void AppendSearchQueries(const GrowthParams& q, const AutoSearchInput& in, const RnLayout& lay,
                         std::vector<GrowthParams>& out, GrowthParams& last) {
    last = q;
    if (in.constantStart) {
        last.ss = in.sSample;
        last.sl = in.sLength;
        out.push_back(last);
        return;
    }
    const float half = R4(lay.ci / 2.0);
    const float to = R4(static_cast<double>(lay.lastMid) + half);
    for (int s = 1; s <= lay.nS; ++s) {
        ForSingle(lay.firstMid, to, half, [&](float L) {
            if (q.loo > L) {
                last.ss = static_cast<float>(s);
                last.sl = L;
                out.push_back(last);
            }
        });
    }
}

// The score of a ComputeRn_Search call from its queries' scores.
float ReduceSearchScores(const AutoSearchInput& in, std::span<const float> scores) {
    if (in.constantStart) return scores.empty() ? 0 : scores[0];
    float best = 0;
    for (float r : scores)
        if (r > best) best = r;
    return best;
}

}  // namespace

float ComputeRnSearch(ParallelRn& rn, GrowthParams& q, const AutoSearchInput& in) {
    std::vector<GrowthParams> queries;
    GrowthParams last;
    AppendSearchQueries(q, in, rn.layout(), queries, last);
    std::vector<float> scores(queries.size());
    rn.run(queries, scores);
    q.ss = last.ss;
    q.sl = last.sl;
    return ReduceSearchScores(in, scores);
}

std::optional<AutoSearchResult> AutoSearch(ParallelRn& rn, const AutoSearchInput& in,
                                           const GrowthParams& previous, SearchSink& sink) {
    const RnLayout& lay = rn.layout();
    AutoSearchResult res;
    GrowthParams q = previous;
    q.loo = in.loo;
    q.k = in.k;
    q.c = in.c;
    q.wp = in.wp;
    auto display = [&](float score) {
        res.rows.push_back({static_cast<int>(res.rows.size()) + 1, q, score});
        sink.searchRow(res.rows.back());
    };
    if (sink.cancelled()) return std::nullopt;
    float best = ComputeRnSearch(rn, q, in);
    display(best);

    const double looFloor = static_cast<double>(lay.ci) + lay.firstMid;
    std::vector<GrowthParams> queries;
    std::vector<float> scores;
    int n = 1;
    while (n < 7) {
        if (sink.cancelled()) return std::nullopt;
        sink.searchPass(n);
        const GrowthParams base = q;
        // The eight trials, each standing on the ones before it.
        std::array<GrowthParams, 8> trial;
        GrowthParams t = q;
        t.loo = R4(base.loo + n * static_cast<double>(in.looStep));
        if (looFloor > t.loo) t.loo = R4(looFloor);
        trial[0] = t;
        t.loo = R4(base.loo - n * static_cast<double>(in.looStep));
        if (looFloor > t.loo) t.loo = R4(looFloor);
        trial[1] = t;
        t.k = R4(base.k + n * static_cast<double>(in.kStep));
        if (t.k > 10) t.k = 10;
        trial[2] = t;
        t.k = R4(base.k - n * static_cast<double>(in.kStep));
        if (static_cast<double>(t.k) < 0.01) t.k = R4(0.01);
        trial[3] = t;
        t.c = R4(base.c + n * static_cast<double>(in.cStep));
        if (t.c > 1) t.c = 1;
        trial[4] = t;
        t.c = R4(base.c - n * static_cast<double>(in.cStep));
        if (t.c < 0) t.c = 0;
        trial[5] = t;
        t.wp = R4(base.wp + n * static_cast<double>(in.wpStep));
        if (t.wp > 1) t.wp = 1;
        trial[6] = t;
        t.wp = R4(base.wp - n * static_cast<double>(in.wpStep));
        if (t.wp < 0) t.wp = 0;
        trial[7] = t;

        // All queries of the eight trials go in one batch.
        queries.clear();
        std::array<size_t, 9> start{};
        GrowthParams last = q;
        for (int i = 0; i < 8; ++i) {
            start[i] = queries.size();
            GrowthParams tried = trial[i];
            tried.ss = last.ss;
            tried.sl = last.sl;
            AppendSearchQueries(tried, in, lay, queries, last);
        }
        start[8] = queries.size();
        scores.assign(queries.size(), 0);
        // Only a trial whose score is above the best so far can win, and then its score is
        // the highest of its pairs, so the walks need not finish at or below the best.
        rn.runAbove(queries, scores, best);
        std::array<float, 8> score{};
        for (int i = 0; i < 8; ++i)
            score[i] = ReduceSearchScores(
                in, std::span<const float>(scores).subspan(start[i], start[i + 1] - start[i]));

        q = base;
        q.ss = last.ss;
        q.sl = last.sl;
        for (int i = 0; i < 8; ++i) {
            bool wins = score[i] > best;
            for (int j = 0; j < 8 && wins; ++j)
                if (j != i && !(score[i] > score[j])) wins = false;
            if (!wins) continue;
            const double sign = (i % 2 == 0) ? 1.0 : -1.0;
            switch (i / 2) {
                case 0:
                    q.loo = R4(base.loo + sign * n * in.looStep);
                    break;
                case 1:
                    q.k = R4(base.k + sign * n * in.kStep);
                    break;
                case 2:
                    q.c = R4(base.c + sign * n * in.cStep);
                    break;
                default:
                    q.wp = R4(base.wp + sign * n * in.wpStep);
                    break;
            }
            display(score[i]);
            n = 0;
            best = score[i];
        }
        ++n;
    }
    res.state = q;
    sink.progress(1, 1);
    res.note(kMsgSearchCompleted, kTitleNote, Icon::Information);
    return res;
}

std::array<double, 7> SearchRowValues(const SearchRow& row) {
    const GrowthParams& p = row.params;
    return {p.loo, p.k, p.c, p.wp, p.ss, p.sl, row.rn};
}

std::array<std::string, 8> SearchRowTexts(const SearchRow& row) {
    std::array<std::string, 8> texts;
    texts[0] = std::to_string(row.row);
    const auto values = SearchRowValues(row);
    for (size_t i = 0; i < values.size(); ++i)
        texts[i + 1] = Format(values[i], kSearchRowPatterns[i]);
    return texts;
}

}  // namespace norvo
