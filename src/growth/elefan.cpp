#include "growth/elefan.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

#include "base/basic.h"
#include "base/checked.h"
#include "base/fault.h"
#include "base/format.h"

namespace norvo {
namespace {

// Neighbour positions j-2, j-1, j+1, j+2 of position j in a compact row of n cells, those out of
// range redirected to cell 0.
struct Neighbours {
    int m2, m1, p1, p2;
};

Neighbours NeighboursOf(int j, int n) {
    Neighbours nb{j - 2, j - 1, j + 1, j + 2};
    if (nb.m2 < 0) nb.m2 = 0;
    if (nb.p1 > n) {
        nb.p1 = 0;
        nb.p2 = 0;
    } else if (nb.p2 > n) {
        nb.p2 = 0;
    }
    return nb;
}

// Steps 2 to 7 on one compact row a[0..n] (a[0] = 0 on entry). Each peak's top is added to
// `asp`, the one running 32-bit sum over all rows: a walk that earns every top in the same
// order then gives ESP = ASP to the bit, and Rn = 1.000.
void RestructureRow(std::vector<float>& a, int n, float& asp) {
    // Ratio of each cell to the moving average of five, always divided by 5.
    std::vector<float> ratio(static_cast<size_t>(n) + 1, 0.0f);
    for (int j = 1; j <= n; ++j) {
        const Neighbours nb = NeighboursOf(j, n);
        const double m =
            (static_cast<double>(a[nb.m2]) + a[nb.m1] + a[j] + a[nb.p1] + a[nb.p2]) / 5;
        ratio[j] = m != 0 ? R4(a[j] / m) : 0.0f;
    }
    double sum = 0;
    for (int j = 1; j <= n; ++j) sum += ratio[j];
    const double r = sum / n;
    if (r != 0) {
        for (int j = 0; j <= n; ++j) a[j] = R4(ratio[j] / r - 1.0);
    }
    // Lone peaks: halved for each empty neighbour (out-of-range neighbours count as empty).
    for (int j = 1; j <= n; ++j) {
        if (a[j] < 0) continue;
        const Neighbours nb = NeighboursOf(j, n);
        a[0] = -1;
        int count = 0;
        for (int i : {nb.m1, nb.m2, nb.p1, nb.p2}) {
            if (a[i] <= -1) ++count;
        }
        a[j] = R4(a[j] * std::pow(0.5, count));
    }
    for (int j = 0; j <= n; ++j) {
        if (a[j] == -1) a[j] = 0;
    }
    // Balance: the troughs are scaled to sum to minus the peaks.
    double pos = 0, neg = 0;
    for (int j = 0; j <= n; ++j) {
        if (a[j] > 0) {
            pos += a[j];
        } else {
            neg += a[j];
        }
    }
    const double q = neg != 0 ? pos / neg : 1.0;
    for (int j = 0; j <= n; ++j) {
        if (a[j] < 0 && a[j] != -1) a[j] = R4(a[j] * -q);
    }
    // Peaks: each run of positive cells counts its highest value.
    int j = 1;
    while (j <= n) {
        if (a[j] > 0) {
            float p = a[j];
            int u = j + 1;
            while (u <= n) {
                if (a[u] > p) {
                    p = a[u];
                    ++u;
                } else if (a[u] <= 0) {
                    break;
                } else {
                    ++u;
                }
            }
            asp = R4(static_cast<double>(asp) + p);
            if (u > n) break;
            j = u + 1;
        } else {
            ++j;
        }
    }
}

}  // namespace

int32_t ElefanModel::classOf(float L) const {
    // The edges step by CI, so the quotient lands on the class or next to it; the comparisons
    // with the float-summed edges then settle it exactly.
    const int32_t top = nC_ + 1;
    double guess = std::floor((static_cast<double>(L) - edges_[1]) / ci_) + 1;
    if (!(guess >= 0)) guess = 0;  // also NaN
    if (guess > top) guess = top;
    int32_t k = static_cast<int32_t>(guess);
    while (k < top && edges_[static_cast<size_t>(k) + 1] <= L) ++k;
    while (k >= 1 && edges_[static_cast<size_t>(k)] > L) --k;
    return k;
}

ElefanModel RestructureElefan(const ElefanInput& in) {
    ElefanModel m;
    const int nS = in.nS, nC = in.nC;
    if (nS < 0 || nC < 1 || in.freq.size() != static_cast<size_t>(nS) * nC ||
        in.day.size() < static_cast<size_t>(nS) || in.month.size() < static_cast<size_t>(nS)) {
        throw SubscriptFault("RestructureElefan");
    }
    if (in.ci == 0) ThrowDivisionByZero();  // every class position divides by CI
    m.nS_ = nS;
    m.nC_ = nC;
    m.firstMid_ = in.firstMid;
    m.ci_ = in.ci;
    m.half_ = R4(in.ci / 2.0);
    m.lastMid_ = R4((nC - 1) * static_cast<double>(in.ci) + in.firstMid);
    m.topEdge_ = R4(static_cast<double>(m.lastMid_) + in.ci / 2.0);

    // Class edges as the scoring loop forms them; they must rise, or that loop would not end.
    m.edges_.assign(static_cast<size_t>(nC) + 2, 0.0f);
    m.edges_[1] = R4(static_cast<double>(in.firstMid) - m.half_);
    for (int k = 2; k <= nC + 1; ++k) {
        m.edges_[k] = R4(static_cast<double>(m.edges_[k - 1]) + in.ci);
        if (!(m.edges_[k] > m.edges_[k - 1])) ThrowInvalidCall();
    }

    const size_t rows = static_cast<size_t>(nS) + 1;
    m.sampleFirstMid_.assign(rows, 0.0f);
    m.sampleLastMid_.assign(rows, 0.0f);
    m.sampleTime_.assign(rows, 0.0f);
    m.lowEdge_.assign(rows, 0.0f);
    m.highEdge_.assign(rows, 0.0f);
    m.compactN_.assign(rows, 0);
    m.timeGroup_.assign(rows, 0);
    for (int s = 1; s <= nS; ++s) {
        const int month = in.month[static_cast<size_t>(s) - 1];
        if (month >= 0 && month <= 12) {
            m.sampleTime_[s] = SampleTime(in.day[static_cast<size_t>(s) - 1], month);
        } else if (m.badMonthSample_ == 0) {
            m.badMonthSample_ = s;
        }
        // Limits of the occupied classes, stepped by 32-bit additions of CI.
        float last = m.lastMid_;
        for (int k = nC; k >= 1 && in.frequency(s, k) == 0; --k) {
            last = R4(static_cast<double>(last) - in.ci);
        }
        float first = in.firstMid;
        for (int k = 1; k <= nC && in.frequency(s, k) == 0; ++k) {
            first = R4(static_cast<double>(first) + in.ci);
        }
        for (int g = 1; g <= s; ++g) {
            if (g == s || std::bit_cast<uint32_t>(m.sampleTime_[g]) ==
                              std::bit_cast<uint32_t>(m.sampleTime_[s])) {
                m.timeGroup_[s] = g == s ? m.timeGroups_++ : m.timeGroup_[g];
                break;
            }
        }
        m.sampleFirstMid_[s] = first;
        m.sampleLastMid_[s] = last;
        m.lowEdge_[s] = R4(static_cast<double>(first) - in.ci / 2.0);
        m.highEdge_[s] = R4(static_cast<double>(last) + in.ci / 2.0);
    }

    // Each sample is restructured in its compact form, cell j standing for the sample's j-th
    // class, then moved to the file's classes.
    std::vector<std::vector<float>> compact(rows);
    float asp = 0;
    for (int s = 1; s <= nS; ++s) {
        const float sfm = m.sampleFirstMid_[s];
        const int n = CInt(Div(static_cast<double>(m.sampleLastMid_[s]) - sfm, in.ci) + 1);
        m.compactN_[s] = n;
        if (n <= 0) continue;
        const int c = CInt(Div(static_cast<double>(sfm) - in.firstMid, in.ci) + 1);
        if (n > nC || c < 1 || c + n - 1 > nC) throw SubscriptFault("RestructureElefan");
        auto& a = compact[s];
        a.assign(static_cast<size_t>(n) + 1, 0.0f);
        for (int j = 1; j <= n; ++j) a[j] = in.frequency(s, c + j - 1);
        RestructureRow(a, n, asp);
    }
    m.asp_ = asp;

    m.master_.assign(rows * m.stride(), 0.0f);
    for (int s = 1; s <= nS; ++s) {
        const int n = m.compactN_[s];
        for (int j = 1; j <= n; ++j) {
            const int32_t x =
                CLng(Div(static_cast<double>(m.sampleFirstMid_[s]) - in.firstMid, in.ci) + j);
            if (x < 0 || x > nC + 2) throw SubscriptFault("RestructureElefan");
            m.master_[static_cast<size_t>(s) * m.stride() + x] = compact[s][j];
        }
        // Tail: the last but one class loses half of a trough, the last class all of it.
        float* row = &m.master_[static_cast<size_t>(s) * m.stride()];
        if (nC >= 2 && row[nC - 1] < 0) row[nC - 1] = row[nC - 1] * 0.5f;
        if (row[nC] < 0) row[nC] = 0;
    }

    // The walk's table: each run of positive cells of a row is one peak.
    m.classGuess_ = static_cast<float>(1.0 / in.ci);
    m.walkCells_.assign(rows * m.walkStride(), {0.0f, -1});
    m.topClass_.assign(rows, 0);
    m.walkEdges_.assign(m.edges_.begin(), m.edges_.end());
    m.walkEdges_[0] = -std::numeric_limits<float>::infinity();
    m.walkEdges_.push_back(std::numeric_limits<float>::infinity());
    m.sharedGroup_.assign(static_cast<size_t>(m.timeGroups_), 0);
    std::vector<int32_t> groupSize(static_cast<size_t>(m.timeGroups_), 0);
    for (int s = 1; s <= nS; ++s) {
        if (++groupSize[static_cast<size_t>(m.timeGroup_[s])] > 1)
            m.sharedGroup_[static_cast<size_t>(m.timeGroup_[s])] = 1;
    }
    for (int s = 1; s <= nS; ++s) {
        ElefanModel::WalkCell* cells = &m.walkCells_[static_cast<size_t>(s) * m.walkStride()];
        for (int k = 1; k <= nC; ++k) {
            const float v = m.pointsMaster(s, k);
            cells[k].value = v;
            if (v > 0) cells[k].peak = cells[k - 1].peak >= 0 ? cells[k - 1].peak : m.peaks_++;
        }
        int32_t top = 0;
        while (top < nC + 1 && m.edges_[static_cast<size_t>(top) + 1] < m.highEdge_[s]) ++top;
        m.topClass_[s] = top;
    }
    // What each sample can still add: the top of each of its peaks.
    m.restPeaks_.assign(rows + 1, 0.0);
    m.walksCannotFault_ = true;
    for (int s = nS; s >= 1; --s) {
        const ElefanModel::WalkCell* cells = &m.walkCells_[static_cast<size_t>(s) * m.walkStride()];
        double sum = 0;
        float top = 0;
        for (int k = 1; k <= nC; ++k) {
            if (cells[k].peak >= 0) top = std::max(top, cells[k].value);
            if (top > 0 && (k == nC || cells[k + 1].peak != cells[k].peak)) {
                sum += top;
                top = 0;
            }
        }
        m.restPeaks_[s] = m.restPeaks_[s + 1] + sum;
        if (!(m.lowEdge_[s] >= 0) || m.topClass_[s] > nC) m.walksCannotFault_ = false;
    }
    return m;
}

ElefanScratch::ElefanScratch(const ElefanModel& model)
    : stride_(static_cast<size_t>(model.nC()) + 1),
      points_((static_cast<size_t>(model.nS()) + 1) * stride_, 0.0f) {
    for (int s = 1; s <= model.nS(); ++s) {
        for (int k = 1; k <= model.nC(); ++k) at(s, k) = model.pointsMaster(s, k);
    }
    peakWalk_.assign(static_cast<size_t>(model.peaks_), 0);
    chains_.resize(static_cast<size_t>(model.timeGroups_));
}

uint32_t ElefanScratch::beginWalk() {
    if (++walk_ == 0) {  // the numbers went round: forget every earlier walk
        std::fill(peakWalk_.begin(), peakWalk_.end(), 0u);
        walk_ = 1;
    }
    for (auto& chain : chains_) chain.backCount = chain.aheadCount = 0;
    return walk_;
}

void ScoreCurveHit(const ElefanModel& m, ElefanScratch& scratch, int s, float L, float& esp) {
    if (!(m.lowEdge_[s] <= L && m.highEdge_[s] >= L)) return;
    // The class of L by the float-summed edges; the scan gives up once an edge reaches the
    // sample's upper limit.
    const int32_t k = m.classOf(L);
    if (k == 0 || m.highEdge_[s] <= m.edges_[static_cast<size_t>(k)]) return;
    if (k > m.nC_) throw SubscriptFault("ScoreCurveHit");
    const float cell = scratch.at(s, k);
    esp = R4(static_cast<double>(esp) + cell);
    if (cell <= 0) return;
    // The peak is consumed both ways, up to the first cell at or below 0.
    for (int j = k; j <= m.nC_; ++j) {
        float& c = scratch.at(s, j);
        if (c <= 0) break;
        c = 0;
    }
    for (int j = k - 1; j >= 1; --j) {
        float& c = scratch.at(s, j);
        if (c <= 0) break;
        c = 0;
    }
}

float ElefanScore(float esp, float asp) {
    const double x = Div(esp, asp);
    float r = R4(Pow(10.0, x));
    r = R4(r / 10.0);
    r = R4(r + 0.0005);
    return R4(std::floor((static_cast<double>(r) + 0.0005) * 1000) / 1000);
}

double OriginLogs::of(float sl, float loo) {
    const uint32_t slBits = std::bit_cast<uint32_t>(sl), looBits = std::bit_cast<uint32_t>(loo);
    Entry& e = entries_[(slBits * 0x9E3779B1u + looBits) >> 22];
    if (!e.known || e.sl != slBits || e.loo != looBits) {
        e.known = false;
        e.lg = GrowthT0Log(sl, loo);  // a fault leaves the entry unknown
        e.sl = slBits;
        e.loo = looBits;
        e.known = true;
    }
    return e.lg;
}

float CurveOrigin(const ElefanModel& m, const GrowthParams& p, OriginLogs* logs) {
    if (m.badMonthSample_ != 0) throw SubscriptFault("SampleTime");
    const int ss = CInt(p.ss);
    if (ss < 1 || ss > m.nS_) throw SubscriptFault("ComputeRn");
    const float t = m.sampleTime_[static_cast<size_t>(ss)];
    if (logs == nullptr) return GrowthT0(p.sl, t, p);
    return GrowthT0FromLog(logs->of(p.sl, p.loo), t, p);
}

float ComputeRn(const ElefanModel& m, const GrowthParams& p, ElefanScratch& scratch, float* espOut,
                float* curveT0Out) {
    const float t0 = CurveOrigin(m, p);
    if (curveT0Out != nullptr) *curveT0Out = t0;
    return ComputeRnFromOrigin(m, p, t0, scratch, espOut);
}

namespace {

// The growth curve of one walk: GrowthLength's operations in GrowthLength's order, with the
// terms that do not change along the walk (Loo, K and, for the seasonal curve, the phase at the
// origin) worked out once. It gives GrowthLength(t, p, t0) to the bit.
// R4(a + b) of two finite floats: the double sum rounded to float is the float sum (a double
// holds any sum of two floats closely enough that rounding twice changes nothing), so only
// the overflow check of R4 remains.
inline float AddR4(float a, float b) {
    const float sum = a + b;
    if (std::isinf(sum)) ThrowOverflow();
    return sum;
}

class WalkCurve {
  public:
    WalkCurve(const GrowthParams& p, float t0)
        : loo_(p.loo), k_(p.k), t0_(t0), seasonal_(p.c != 0.0f) {
        if (seasonal_) {
            ts_ = static_cast<double>(p.wp) - 0.5;
            b_ = k_ * p.c / kTwoPi;
            s0_ = std::sin((t0_ - ts_) * kTwoPi) * b_;
        }
        stepping_ = !seasonal_ && loo_ > 0 && std::fabs(k_) < kMaxStepK;
        if (stepping_) {
            stepUp_ = std::exp(-k_);
            stepDown_ = std::exp(k_);
        }
    }
    // The checks of GrowthLength only ever raise on a non-finite value, and a non-finite value
    // anywhere in the chain leaves the final length non-finite; so the length is formed
    // unchecked and only a non-finite one is formed again with every check, to raise the fault
    // GrowthLength would.
    [[gnu::always_inline]] float operator()(float time) {
        const double t = time;
        if (steps_ >= 0 && steps_ < kMaxSteps && (t - lastT_ == 1.0 || t - lastT_ == -1.0) &&
            ExactStepTime(time)) {
            // A year on or back from the last time: exp(-a) is the last one times exp(-K) or
            // exp(K), up to the rounding of the arguments, of each exp and of each product,
            // which `d` bounds generously. The float length falls from exp(-a) monotonically
            // (Loo > 0), so where both ends of the bound give the same float, that float is the
            // one exp(-a) gives. Elsewhere exp itself settles it.
            const double a = (t - t0_) * k_;
            const double e = e_ * (t > lastT_ ? stepUp_ : stepDown_);
            const double d = (std::fabs(a) + a0_ + 8.0 * (steps_ + 1) + 16.0) * 0x1p-50;
            const float lo = static_cast<float>((1.0 - e * (1.0 + d)) * loo_);
            const float hi = static_cast<float>((1.0 - e * (1.0 - d)) * loo_);
            if (lo == hi && std::fabs(a) < kMaxStepArg) [[likely]] {
                lastT_ = t;
                e_ = e;
                ++steps_;
                return finish(time, hi);
            }
        }
        return exact(time);
    }

  private:
    // Steps are taken only while the products stay normal and the error bound small.
    static constexpr double kMaxStepK = 50;
    static constexpr double kMaxStepArg = 600;
    static constexpr int32_t kMaxSteps = 1024;

    // A time whose difference from another time a year away is exact in double: 0, or not so
    // small that the difference needs more than 53 bits.
    static bool ExactStepTime(float time) { return time == 0 || std::fabs(time) >= 0x1p-29f; }

    [[gnu::noinline]] float exact(float time) {
        const double t = time;
        if (seasonal_) {
            const double e = std::exp(-((t - t0_) * k_) - std::sin((t - ts_) * kTwoPi) * b_ + s0_);
            return finish(time, static_cast<float>((1.0 - e) * loo_));
        }
        const double a = (t - t0_) * k_;
        const double e = std::exp(-a);
        if (stepping_ && std::fabs(a) < kMaxStepArg && ExactStepTime(time)) {
            lastT_ = t;
            e_ = e;
            a0_ = std::fabs(a);
            steps_ = 0;
        } else {
            steps_ = -1;
        }
        return finish(time, static_cast<float>((1.0 - e) * loo_));
    }

    [[gnu::always_inline]] float finish(float time, float rounded) const {
        const float l = static_cast<float>(static_cast<double>(rounded) + 0.005);
        if (!std::isfinite(l)) return checked(time);
        return l < 0.0f ? 0.0f : l;
    }

    float checked(float time) const {
        const double t = time;
        double v;
        if (!seasonal_) {
            v = CheckFinite((1.0 - Exp(-((t - t0_) * k_))) * loo_);
        } else {
            const double a = (t - t0_) * k_;
            const double s1 = std::sin((t - ts_) * kTwoPi) * b_;
            v = CheckFinite((1.0 - Exp(-a - s1 + s0_)) * loo_);
        }
        const float l = R4(static_cast<double>(R4(v)) + 0.005);
        return l < 0.0f ? 0.0f : l;
    }

    double loo_, k_, t0_;
    bool seasonal_;
    double ts_ = 0, b_ = 0, s0_ = 0;
    // The stepping: exp of a year forward and back, and the last time with its exp(-a), the
    // |a| of the exp it was stepped from and the steps since (-1: no time to step from).
    bool stepping_ = false;
    double stepUp_ = 0, stepDown_ = 0;
    double lastT_ = 0, e_ = 0, a0_ = 0;
    int32_t steps_ = -1;
};

}  // namespace

namespace {

// Lengths kept per chain of times; a walk that goes further works on without keeping them.
constexpr int32_t kChainLimit = 1 << 16;

// Appends (t, L) to a chain at `count`, growing it when full.
inline void ChainPush(std::vector<float>& times, std::vector<float>& lengths, int32_t& count,
                      float t, float L) {
    if (static_cast<size_t>(count) == times.size()) [[unlikely]] {
        const size_t size = std::max<size_t>(64, times.size() * 2);
        times.resize(size);
        lengths.resize(size);
    }
    times.data()[count] = t;
    lengths.data()[count] = L;
    ++count;
}

// One year back or ahead of t, with the faults of a time that overflows or no longer moves.
inline float YearFrom(float t, float years) {
    const float next = AddR4(t, years);
    if (next == t) ThrowOverflow();
    return next;
}

}  // namespace

namespace {

// How a walk may stop early: once ESP so far plus all that the samples left can add, with the
// rounding of those additions, stays below `espLimit`.
struct WalkCutoff {
    double espLimit = -std::numeric_limits<double>::infinity();
    double slack = 0;  // relative bound on the rounding of the additions left
};

constexpr float kWalkCut = -std::numeric_limits<float>::infinity();

}  // namespace

// The walk itself, with the model's and the scratch's insides at hand.
struct ElefanWalker {
    static float Rn(const ElefanModel& m, const GrowthParams& p, float t0, ElefanScratch& scratch,
                    float* espOut, const WalkCutoff& cut);
};

float ElefanWalker::Rn(const ElefanModel& m, const GrowthParams& p, float t0,
                       ElefanScratch& scratch, float* espOut, const WalkCutoff& cut) {
    WalkCurve curve(p, t0);
    const float* edges = m.walkEdges_.data();
    const int32_t top = m.nC_ + 1;
    const float firstEdge = edges[1];
    const float guess = m.classGuess_;
    const uint32_t walk = scratch.beginWalk();
    uint32_t* peakWalk = scratch.peakWalk_.data();
    // A walk stops above the sample's upper limit, and above 95% of Loo when Loo lies inside
    // the file's length range.
    const bool looAboveTop = m.topEdge_ <= p.loo;
    const float loo95 = R4(static_cast<double>(p.loo) * 0.95);

    float esp = 0;
    for (int s = 1; s <= m.nS_; ++s) {
        const double rest = m.restPeaks_[static_cast<size_t>(s)];
        if (esp + rest + cut.slack * (std::fabs(esp) + rest) < cut.espLimit) return kWalkCut;
        const float low = m.lowEdge_[static_cast<size_t>(s)];
        const float high = m.highEdge_[static_cast<size_t>(s)];
        const float stop = looAboveTop ? high : std::min(high, loo95);
        const int32_t topClass = m.topClass_[static_cast<size_t>(s)];
        const ElefanModel::WalkCell* cells = &m.walkCells_[static_cast<size_t>(s) * m.walkStride()];

        // A crossing as ScoreCurveHit scores it: the class of L is the last float-summed edge
        // at or below it, guessed from the class size and settled by the edges (the floor and
        // ceiling end both searches); a positive point is earned once per walk for its whole
        // peak, and adding 0 (never -0) changes nothing.
        auto score = [&](float L) {
            if (!(low <= L && high >= L)) return;
            const float g = (L - firstEdge) * guess;
            int32_t k = g < static_cast<float>(top) ? static_cast<int32_t>(g) + 1 : top;
            if (k < 0) k = 0;
            while (edges[k + 1] <= L) ++k;
            while (edges[k] > L) --k;
            if (k < 1 || k > topClass) return;
            if (k > m.nC_) throw SubscriptFault("ScoreCurveHit");
            const ElefanModel::WalkCell cell = cells[k];
            if (cell.value > 0) {
                if (peakWalk[cell.peak] == walk) return;
                peakWalk[cell.peak] = walk;
            } else if (cell.value == 0) {
                return;
            }
            esp = AddR4(esp, cell.value);
        };

        // The curve is a function of time alone within a walk, so a length worked out once for
        // a time is taken again wherever the walk meets that time: on the way forward over the
        // years it went back through, and in every sample of the same time in the year. Each
        // time is still reached by the same 32-bit steps, and every new length is worked out in
        // the order the plain walk would, so the same faults arise at the same point.
        auto& chain = scratch.chains_[static_cast<size_t>(m.timeGroup_[static_cast<size_t>(s)])];
        // The years ahead are kept only where another sample of the same time may use them.
        const bool keepAhead = m.sharedGroup_[static_cast<size_t>(m.timeGroup_[s])] != 0;
        if (chain.backCount == 0) {
            const float ts = m.sampleTime_[static_cast<size_t>(s)];
            const float L0 = curve(ts);
            ChainPush(chain.backT, chain.backL, chain.backCount, ts, L0);
            ChainPush(chain.aheadT, chain.aheadL, chain.aheadCount, ts, L0);
        }
        // Back to the oldest cohort of this date at or below the sample's lowest class.
        enum class On { Back, Ahead, Off } on = On::Back;
        int32_t j = 0;  // position on the chain back
        float L = chain.backL[0];
        float t = 0;  // the time when off the chains
        while (low < L) {
            if (j + 1 < chain.backCount) {
                L = chain.backL[static_cast<size_t>(++j)];
                continue;
            }
            const float earlier = YearFrom(chain.backT[static_cast<size_t>(j)], -1.0f);
            L = curve(earlier);
            if (j + 1 == kChainLimit) {
                on = On::Off;
                t = earlier;
                while (low < L) {
                    t = YearFrom(t, -1.0f);
                    L = curve(t);
                }
                break;
            }
            ChainPush(chain.backT, chain.backL, chain.backCount, earlier, L);
            ++j;
        }
        // Forward a year at a time, scoring each crossing: along the years it went back
        // through while the times agree, then along the years ahead of the sample time, and
        // off the chains once the times part.
        bool stopped = false;
        while (on == On::Back) {
            score(L);
            if (j == 0) {
                on = On::Ahead;
                break;
            }
            const float later = YearFrom(chain.backT[static_cast<size_t>(j)], 1.0f);
            if (std::bit_cast<uint32_t>(later) ==
                std::bit_cast<uint32_t>(chain.backT[static_cast<size_t>(j) - 1])) {
                L = chain.backL[static_cast<size_t>(--j)];
            } else {
                on = On::Off;
                t = later;
                L = curve(t);
            }
            stopped = L > stop;
            if (stopped) break;
        }
        for (int32_t i = 0; !stopped && on == On::Ahead;) {  // i: position on the chain ahead
            if (i > 0) score(L);
            if (i + 1 < chain.aheadCount) {
                L = chain.aheadL[static_cast<size_t>(++i)];
            } else {
                const float later = YearFrom(chain.aheadT[static_cast<size_t>(i)], 1.0f);
                L = curve(later);
                if (!keepAhead || i + 1 == kChainLimit) {
                    on = On::Off;
                    t = later;
                } else {
                    ChainPush(chain.aheadT, chain.aheadL, chain.aheadCount, later, L);
                    ++i;
                }
            }
            stopped = L > stop;
        }
        if (stopped) continue;
        if (on == On::Off) {
            while (true) {
                score(L);
                t = YearFrom(t, 1.0f);
                L = curve(t);
                if (L > stop) break;
            }
        }
    }
    if (espOut != nullptr) *espOut = esp;
    return ElefanScore(esp, m.asp_);
}

float ComputeRnFromOrigin(const ElefanModel& m, const GrowthParams& p, float t0,
                          ElefanScratch& scratch, float* espOut) {
    return ElefanWalker::Rn(m, p, t0, scratch, espOut, WalkCutoff{});
}

namespace {

// The least that 10 ^ (ESP / ASP) / 10 must reach for Rn to come out above `floor`, less a
// margin for the roundings; 0 or less when any ESP may. Rn is a whole number k of thousandths,
// k = Int((r + 0.0005) * 1000) with r = R4(R4(10^x / 10) + 0.0005), so Rn above the floor needs
// k of at least kMin, the first whole number whose thousandths round above it, and then
// 10^x / 10 of at least kMin / 1000 - 0.001 but for the float and double roundings on the way,
// each far below the relative 1e-6 allowed here.
double ScoreNeededAbove(float floor) {
    double kMin = std::floor(static_cast<double>(floor) * 1000) - 2;
    while (!(static_cast<float>(kMin / 1000) > floor)) ++kMin;
    const double least = kMin / 1000 - 0.001;
    return least - 1e-6 * (std::fabs(least) + 0.001);
}

}  // namespace

// A walk may be cut short only where the rest of it can raise no fault, so that cutting changes
// nothing but the scores at or below the floor. With every sample's lower limit at or above 0,
// no class past nC in reach, 0.01 <= Loo <= 1e4, 0.01 <= K <= 100, 0 <= C <= 1 and |t0| <= 1000,
// the curve rises (never falls) and lies at or below 0 before its origin, so the walk back from
// a sample time ends within 1100 years, the walk forward within ln(Loo / 0.003) / K + 2 years
// (the length then exceeds any stop), the times stay far from where a year no longer counts,
// and exp's argument stays within a few hundred. The additions left are at most nS times that
// many, each rounding by at most 2^-24 of a partial sum; partial sums that dip below 0 only
// lower the end. Below `espLimit`, 10 ^ (ESP / ASP) / 10 stays under what a score above the
// floor needs (ScoreNeededAbove).
float ComputeRnFromOriginAbove(const ElefanModel& m, const GrowthParams& p, float t0,
                               ElefanScratch& scratch, float floor) {
    WalkCutoff cut;
    if (m.walksCannotFault_ && m.asp_ > 0 && floor > 0 && floor < 1e6f && p.loo >= 0.01f &&
        p.loo <= 1e4f && p.k >= 0.01f && p.k <= 100 && p.c >= 0 && p.c <= 1 &&
        std::fabs(p.wp) <= 1e6f && std::fabs(t0) <= 1000) {
        const double needed = ScoreNeededAbove(floor);
        const double years =
            2 * 1100 +
            std::log(std::max(1.0, static_cast<double>(p.loo)) / 0.003) / static_cast<double>(p.k) +
            16;
        const double slack = m.nS_ * years * 0x1p-23;
        if (needed > 0 && slack < 0.25) {
            const double limit = std::log10(10 * needed) * m.asp_;
            cut.espLimit = limit - std::fabs(limit) * 1e-9 - 1e-30;
            cut.slack = slack;
        }
    }
    return ElefanWalker::Rn(m, p, t0, scratch, nullptr, cut);
}

StartingPoint DefaultStartingPoint(const ElefanModel& m, float loo) {
    StartingPoint sp;
    double best = -9999;
    const double limit = 0.95 * static_cast<double>(loo);
    for (int s = 1; s <= m.nS(); ++s) {
        for (int k = 1; k <= m.nC(); ++k) {
            const double L =
                static_cast<double>(m.sampleFirstMid(s)) + k * static_cast<double>(m.ci()) - m.ci();
            if (limit <= L) break;
            if (m.pointsMaster(s, k) > best) {
                best = m.pointsMaster(s, k);
                sp.ss = static_cast<float>(s);
                sp.sl = R4(L);
            }
        }
    }
    return sp;
}

float DefaultKScanLoo(double largestMid) {
    return R4(static_cast<double>(R4(largestMid)) * 1.05);
}

float DefaultKScanLoo(const ElefanModel& model) {
    return DefaultKScanLoo(model.lastMid());
}

}  // namespace norvo
