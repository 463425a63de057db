#pragma once
// The plain ELEFAN I scan the engine must match bit for bit: one full walk per starting pair, a
// fresh copy of the restructured points for every walk, the class of a length found by stepping
// up the edges, and the K-scan's loop run on one thread in its own order. It reads the model
// only through its public accessors, so it stays what it is whatever the engine does inside.
#include <cmath>
#include <vector>

#include "base/basic.h"
#include "base/checked.h"
#include "base/fault.h"
#include "growth/elefan.h"
#include "growth/elefan_search.h"
#include "growth/vbgf.h"

namespace norvo::reference {

// One walk of the growth curve through the table; `points` is a fresh copy per walk.
inline float ComputeRn(const ElefanModel& m, const GrowthParams& p, float* curveT0 = nullptr) {
    const int nS = m.nS(), nC = m.nC();
    std::vector<std::vector<float>> points(static_cast<size_t>(nS) + 1,
                                           std::vector<float>(static_cast<size_t>(nC) + 1, 0));
    for (int s = 1; s <= nS; ++s)
        for (int k = 1; k <= nC; ++k) points[s][k] = m.pointsMaster(s, k);
    const int ss = CInt(p.ss);
    if (ss < 1 || ss > nS) throw SubscriptFault("ComputeRn");
    const float t0 = GrowthT0(p.sl, m.sampleTime(ss), p);
    if (curveT0 != nullptr) *curveT0 = t0;
    const float topEdge = R4(static_cast<double>(m.lastMid()) + m.ci() / 2.0);
    const bool looAboveTop = topEdge <= p.loo;
    const float loo95 = R4(static_cast<double>(p.loo) * 0.95);
    float esp = 0;
    for (int s = 1; s <= nS; ++s) {
        const float low = R4(static_cast<double>(m.sampleFirstMid(s)) - m.ci() / 2.0);
        const float high = R4(static_cast<double>(m.sampleLastMid(s)) + m.ci() / 2.0);
        float t = m.sampleTime(s);
        float L = GrowthLength(t, p, t0);
        while (low < L) {
            const float earlier = R4(static_cast<double>(t) - 1.0);
            if (earlier == t) ThrowOverflow();
            t = earlier;
            L = GrowthLength(t, p, t0);
        }
        while (true) {
            if (low <= L && high >= L) {
                int k = 0;
                while (k < nC + 1 && m.classEdge(k + 1) <= L) ++k;
                if (k != 0 && !(high <= m.classEdge(k))) {
                    if (k > nC) throw SubscriptFault("ScoreCurveHit");
                    const float cell = points[s][k];
                    esp = R4(static_cast<double>(esp) + cell);
                    if (cell > 0) {
                        for (int j = k; j <= nC && points[s][j] > 0; ++j) points[s][j] = 0;
                        for (int j = k - 1; j >= 1 && points[s][j] > 0; --j) points[s][j] = 0;
                    }
                }
            }
            const float later = R4(static_cast<double>(t) + 1.0);
            if (later == t) ThrowOverflow();
            t = later;
            L = GrowthLength(t, p, t0);
            if (!(looAboveTop || loo95 >= L)) break;
            if (high < L) break;
        }
    }
    return ElefanScore(esp, m.asp());
}

// The K-scan with its starting-point scan on one thread. `pairScores`, when given, receives
// the score of every starting pair of every K, in the order they were tried.
inline KScanResult KScan(const ElefanModel& m, const KScanInput& in,
                         std::vector<float>* pairScores = nullptr) {
    KScanResult res;
    GrowthParams q{.loo = in.loo, .k = 0, .c = in.c, .wp = in.wp, .ss = in.ss, .sl = in.sl};
    const float half = R4(m.ci() / 2.0);
    float k = R4(0.001);
    float step = R4(0.01);
    int col = 1;
    float best = -999;
    float keptS = in.ss, keptL = in.sl;
    while (k < 10) {
        k = R4(static_cast<double>(k) + step);
        q.k = R4(Int(static_cast<double>(k) * 100) / 100);
        if (!in.fixedStart) {
            for (int s = 1; s <= m.nS(); ++s) {
                const float from = R4(static_cast<double>(m.sampleFirstMid(s)) - half);
                const float to = R4(static_cast<double>(m.sampleLastMid(s)) + half);
                for (float L = from; L <= to; L = R4(static_cast<double>(L) + half)) {
                    if (!(L < q.loo)) continue;
                    GrowthParams p = q;
                    p.ss = static_cast<float>(s);
                    p.sl = L;
                    const float r = ComputeRn(m, p);
                    if (pairScores != nullptr) pairScores->push_back(r);
                    if (r > best) {
                        best = r;
                        keptS = p.ss;
                        keptL = p.sl;
                    }
                }
            }
            q.ss = keptS;
            q.sl = keptL;
        }
        const float r = ComputeRn(m, q);
        res.table[1][col] = r;
        res.table[2][col] = q.k;
        res.table[3][col] = q.ss;
        res.table[4][col] = q.sl;
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

// The same model scored by the plain walk, for the searches that take a scorer.
class Scorer : public RnScorer {
  public:
    explicit Scorer(const ElefanModel& model) : model_(model) {
        layout_.nS = model.nS();
        layout_.nC = model.nC();
        layout_.firstMid = model.firstMid();
        layout_.lastMid = model.lastMid();
        layout_.ci = model.ci();
        for (int s = 1; s <= model.nS(); ++s) {
            layout_.sampleFirstMid.push_back(model.sampleFirstMid(s));
            layout_.sampleLastMid.push_back(model.sampleLastMid(s));
        }
    }
    const RnLayout& layout() const override { return layout_; }
    std::unique_ptr<RnWorker> newWorker() const override {
        struct Worker : RnWorker {
            const ElefanModel& m;
            explicit Worker(const ElefanModel& model) : m(model) {}
            float score(const GrowthParams& q) override { return ComputeRn(m, q); }
        };
        return std::make_unique<Worker>(model_);
    }

  private:
    const ElefanModel& model_;
    RnLayout layout_;
};

}  // namespace norvo::reference
