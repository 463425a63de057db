#include "growth/shepherd_search.h"

#include "numerics/validators.h"

namespace norvo {

namespace {

class ShepherdWorker : public RnWorker {
  public:
    explicit ShepherdWorker(const ShepherdData& d) : data_(d) {}
    float score(const GrowthParams& q) override { return ShepherdScore(data_, q.loo, q.k); }

  private:
    const ShepherdData& data_;
};

}  // namespace

ShepherdScorer::ShepherdScorer(ShepherdData data) : data_(std::move(data)) {
    layout_.nS = data_.nS;
    layout_.nC = data_.nC;
    layout_.firstMid = data_.firstMid;
    layout_.lastMid = static_cast<float>(data_.topMid());
    layout_.ci = data_.ci;
    layout_.sampleFirstMid.assign(static_cast<size_t>(data_.nS), layout_.firstMid);
    layout_.sampleLastMid.assign(static_cast<size_t>(data_.nS), layout_.lastMid);
}

std::unique_ptr<RnWorker> ShepherdScorer::newWorker() const {
    return std::make_unique<ShepherdWorker>(data_);
}

ShepherdBest ShepherdBestOf(const ShepherdData& d, const KScanTable& table, int column, float loo) {
    ShepherdBest b;
    b.column = column;
    b.loo = loo;
    if (column < 1 || column >= kKScanColumns) return b;
    b.k = table[2][column];
    b.score = table[1][column];
    const ShepherdScoreParts parts = ShepherdScoreOf(d, loo, b.k);
    b.startLength = ShepherdStartLength(d, loo, b.k, parts.phase());
    return b;
}

Outcome CheckShepherdLoo(float loo) {
    Outcome out;
    if (!InRange(loo, 1e-6f, 1e6f)) out.refuse(kShepherdInvalidLoo, kValidatorTitle, Icon::Warning);
    return out;
}

std::optional<ShepherdKScanResult> ShepherdKScan(ParallelRn& rn, const ShepherdData& d, float loo,
                                                 SearchSink& sink) {
    const KScanInput in{.loo = loo, .c = 0, .wp = 0, .fixedStart = true, .ss = 0, .sl = 0};
    std::optional<KScanResult> scan = KScan(rn, in, sink);
    if (!scan) return std::nullopt;
    ShepherdKScanResult res;
    res.scan = std::move(*scan);
    res.best = ShepherdBestOf(d, res.scan.table, res.scan.best.column, loo);
    return res;
}

Outcome CheckShepherdSurface(float looFrom, float looTo) {
    Outcome out = CheckShepherdLoo(looFrom);
    if (out.ok()) out = CheckShepherdLoo(looTo);
    if (out.ok() && looFrom == looTo) out.refuse(kMsgLooFixed, kTitleInvalidInput);
    return out;
}

std::optional<SurfaceResult> ShepherdSurface(ParallelRn& rn, float kFrom, float kTo, float looFrom,
                                             float looTo, float previousK, SearchSink& sink) {
    SurfaceInput in;
    in.kFrom = kFrom;
    in.kTo = kTo;
    in.looFrom = looFrom;
    in.looTo = looTo;
    GrowthParams previous;
    previous.k = previousK;
    return ResponseSurface(rn, in, previous, sink);
}

double ShepherdPlotScale(const KScanTable& table, int columns) {
    double largest = 0;
    for (int c = 1; c <= columns && c < kKScanColumns; ++c)
        if (table[1][c] > largest) largest = table[1][c];
    return largest > 0 ? largest : 1.0;
}

}  // namespace norvo
