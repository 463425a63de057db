#pragma once
// The ELEFAN I scoring engine. RestructureElefan turns a grouped length-frequency table into a
// table of peaks (positive points) and troughs (negative points) against a five-class moving
// average; ComputeRn scores one set of growth parameters by walking the growth curve through
// that table, one sample at a time.
//
// The restructured model is immutable. What a walk changes (the peaks it has consumed, the
// lengths it has worked out) lives in a scratch that belongs to the caller (ElefanScratch), so
// one model can be scored on several threads at once, one scratch per thread.
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "growth/vbgf.h"

namespace norvo {

// What the engine needs from a grouped length-frequency file. Samples are numbered 1..nS and
// classes 1..nC; the vectors hold sample s at index s - 1.
struct ElefanInput {
    int32_t nS = 0;
    int32_t nC = 0;
    float firstMid = 0;  // midlength of class 1
    float ci = 0;        // class interval
    std::vector<int16_t> day;
    std::vector<int16_t> month;  // 0..12
    std::vector<float> freq;     // nS rows of nC: frequency of class k in sample s

    float frequency(int s, int k) const {
        return freq[static_cast<size_t>(s - 1) * static_cast<size_t>(nC) + (k - 1)];
    }
};

class ElefanScratch;
class OriginLogs;

class ElefanModel {
  public:
    int32_t nS() const { return nS_; }
    int32_t nC() const { return nC_; }
    float firstMid() const { return firstMid_; }
    float lastMid() const { return lastMid_; }
    float ci() const { return ci_; }
    // Midlengths of the first and last occupied class of sample s (1..nS).
    float sampleFirstMid(int s) const { return sampleFirstMid_[static_cast<size_t>(s)]; }
    float sampleLastMid(int s) const { return sampleLastMid_[static_cast<size_t>(s)]; }
    // Time of sample s in the year (0 for a sample whose month is out of range).
    float sampleTime(int s) const { return sampleTime_[static_cast<size_t>(s)]; }
    // The restructured point of sample s (1..nS) in file class k (0..nC + 2).
    float pointsMaster(int s, int k) const {
        return master_[static_cast<size_t>(s) * stride() + static_cast<size_t>(k)];
    }
    // Available sum of peaks.
    float asp() const { return asp_; }
    // Number of classes of sample s in the compact form (0 or less: the sample is empty).
    int32_t sampleClasses(int s) const { return compactN_[static_cast<size_t>(s)]; }

    // The class whose [lower, upper) edges, formed as float sums from the first lower edge,
    // hold L: 0 below the first edge, nC + 1 at or above the upper edge of class nC.
    int32_t classOf(float L) const;
    // Lower edge of class k (1..nC + 1) as the float-summed loop forms it.
    float classEdge(int k) const { return edges_[static_cast<size_t>(k)]; }

  private:
    friend ElefanModel RestructureElefan(const ElefanInput& input);
    friend class ElefanScratch;
    friend void ScoreCurveHit(const ElefanModel&, ElefanScratch&, int, float, float&);
    friend float CurveOrigin(const ElefanModel&, const GrowthParams&, OriginLogs*);
    friend float ComputeRnFromOrigin(const ElefanModel&, const GrowthParams&, float, ElefanScratch&,
                                     float*);
    friend struct ElefanWalker;
    friend float ComputeRnFromOriginAbove(const ElefanModel&, const GrowthParams&, float,
                                          ElefanScratch&, float);
    size_t stride() const { return static_cast<size_t>(nC_) + 3; }

    int32_t nS_ = 0, nC_ = 0;
    float firstMid_ = 0, lastMid_ = 0, ci_ = 0;
    float half_ = 0;
    float topEdge_ = 0;  // R4(LastMid + CI / 2)
    std::vector<float> sampleFirstMid_, sampleLastMid_, sampleTime_;
    std::vector<float> lowEdge_, highEdge_;  // R4(first mid - CI/2), R4(last mid + CI/2)
    std::vector<int32_t> compactN_;
    int32_t badMonthSample_ = 0;      // first sample with a month outside 0..12, or 0
    std::vector<int32_t> timeGroup_;  // samples with the same time in the year share a group
    int32_t timeGroups_ = 0;
    std::vector<float> master_;  // (nS + 1) rows of nC + 3
    std::vector<float> edges_;   // edges_[k], k = 1..nC + 1
    float classGuess_ = 0;       // 1 / CI, to guess a class before the edges settle it
    float asp_ = 0;

    // The table as a walk reads it: (nS + 1) rows of classes 0..nC, each cell with its point
    // and, for a positive point, the number of its peak (the run of positive cells it lies in;
    // a hit anywhere in the run consumes all of it), else -1.
    struct WalkCell {
        float value;
        int32_t peak;
    };
    size_t walkStride() const { return static_cast<size_t>(nC_) + 1; }
    std::vector<WalkCell> walkCells_;
    int32_t peaks_ = 0;
    // The class edges with a floor and a ceiling: -inf at 0, edges 1..nC + 1, +inf after.
    std::vector<float> walkEdges_;
    // Per group of samples of one time in the year: whether more than one sample is in it.
    std::vector<uint8_t> sharedGroup_;
    // Per sample: the last class whose lower edge lies below the sample's upper limit. A
    // crossing scores in classes 1 up to this one.
    std::vector<int32_t> topClass_;
    // Per sample s (1..nS + 1): the sum of the highest point of every peak of samples s..nS,
    // the most those samples can still add to a walk's ESP.
    std::vector<double> restPeaks_;
    // No sample's lower limit lies below 0 and no crossing can reach past class nC: with sane
    // growth parameters a walk then cannot fault (see ComputeRnFromOriginAbove).
    bool walksCannotFault_ = false;
};

// What scoring changes, one per thread: the peaks a walk has consumed, the lengths it has
// worked out, and the table of points that ScoreCurveHit consumes. Made from a model, it must
// only be used with that model.
class ElefanScratch {
  public:
    explicit ElefanScratch(const ElefanModel& model);
    float point(int s, int k) const {
        return points_[static_cast<size_t>(s) * stride_ + static_cast<size_t>(k)];
    }

  private:
    friend void ScoreCurveHit(const ElefanModel&, ElefanScratch&, int, float, float&);
    friend float ComputeRnFromOrigin(const ElefanModel&, const GrowthParams&, float, ElefanScratch&,
                                     float*);
    friend struct ElefanWalker;
    float& at(int s, int k) {
        return points_[static_cast<size_t>(s) * stride_ + static_cast<size_t>(k)];
    }
    // A new walk: every peak is unconsumed again and no length is known yet.
    uint32_t beginWalk();

    size_t stride_ = 0;
    // The table that ScoreCurveHit consumes: rows 0..nS, classes 0..nC.
    std::vector<float> points_;
    // A walk's peaks: peak p is consumed in the walk whose number peakWalk_[p] holds.
    std::vector<uint32_t> peakWalk_;
    uint32_t walk_ = 0;
    // The curve's times and lengths met in one walk, per group of samples of the same time in
    // the year, entry 0 being the sample time: `back` a year at a time into the past, `ahead`
    // into the future. The first `backCount` and `aheadCount` entries are this walk's.
    struct Chain {
        std::vector<float> backT, backL, aheadT, aheadL;
        int32_t backCount = 0, aheadCount = 0;
    };
    std::vector<Chain> chains_;
};

// Builds the model: the limit rows, the restructured points and ASP. CI of 0 divides by zero.
ElefanModel RestructureElefan(const ElefanInput& input);

// Adds to `esp` what the curve at length L earns in sample s, and consumes the peak it hits.
// A length on a class edge belongs to the upper class.
void ScoreCurveHit(const ElefanModel& model, ElefanScratch& scratch, int s, float L, float& esp);

// The score Rn of the growth parameters with the starting point (p.ss, p.sl). The scratch is
// left as it was found. `esp` and `curveT0`, when given, receive the walk's explained sum of
// peaks and the curve's origin.
float ComputeRn(const ElefanModel& model, const GrowthParams& p, ElefanScratch& scratch,
                float* esp = nullptr, float* curveT0 = nullptr);

// The logarithms of GrowthT0 met so far, by starting length and Loo: a scan asks for the same
// few lengths under every K.
class OriginLogs {
  public:
    double of(float sl, float loo);

  private:
    struct Entry {
        uint32_t sl = 0, loo = 0;
        bool known = false;
        double lg = 0;
    };
    std::array<Entry, 1024> entries_{};
};

// The curve's origin (t0) that the starting point (p.ss, p.sl) gives, with the faults of a bad
// sampling month, a sample out of range or an impossible starting length. `logs`, when given,
// keeps the logarithms for later calls; the origin is the same.
float CurveOrigin(const ElefanModel& model, const GrowthParams& p, OriginLogs* logs = nullptr);

// The walk of ComputeRn from a given origin. It reads Loo, K, C and WP of `p` but not the
// starting point, so ComputeRn(p) is ComputeRnFromOrigin(p, CurveOrigin(p)).
float ComputeRnFromOrigin(const ElefanModel& model, const GrowthParams& p, float curveT0,
                          ElefanScratch& scratch, float* esp = nullptr);

// ComputeRnFromOrigin for a search that keeps only scores above `floor`: a walk that can no
// longer end above it may stop early and return -infinity. Every score above `floor` is the
// one ComputeRnFromOrigin gives, and every fault it raises is raised.
float ComputeRnFromOriginAbove(const ElefanModel& model, const GrowthParams& p, float curveT0,
                               ElefanScratch& scratch, float floor);

// Rn from the explained and available sums of peaks: 10 ^ (ESP / ASP) / 10, rounded to three
// decimals as the method does (ESP = 0 gives 0.101, ESP = ASP gives 1.000).
float ElefanScore(float esp, float asp);

struct StartingPoint {
    float ss = 0;  // sample number
    float sl = 0;  // length
};

// The proposed starting point: the highest point of the table below 95% of Loo.
StartingPoint DefaultStartingPoint(const ElefanModel& model, float loo);

// The Loo that the K-scan field proposes: the largest midlength (32-bit) times 1.05, stored as a
// 32-bit float; the field shows that value as it is (39.375, not 39.38).
float DefaultKScanLoo(double largestMid);
float DefaultKScanLoo(const ElefanModel& model);

}  // namespace norvo
