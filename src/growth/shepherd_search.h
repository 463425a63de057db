#pragma once
// The K-scan and the response surface of Shepherd's method. They are the ELEFAN I scans with
// Shepherd's score in the place of Rn: C and WP are 0 and the starting point plays no part in
// the score, so the K-scan runs with its starting point fixed (one score per K) and the best
// curve's starting point comes from ShepherdStartLength afterwards.
#include <memory>
#include <optional>

#include "base/outcome.h"
#include "growth/elefan_search.h"
#include "growth/shepherd.h"

namespace norvo {

inline constexpr const char* kShepherdInvalidLoo =
    "The input for the asymptotic length (Loo) is invalid. Please check input.";

// A file that the scans can score: Shepherd's score of a query's Loo and K.
class ShepherdScorer : public RnScorer {
  public:
    explicit ShepherdScorer(ShepherdData data);
    const ShepherdData& data() const { return data_; }
    const RnLayout& layout() const override { return layout_; }
    std::unique_ptr<RnWorker> newWorker() const override;

  private:
    ShepherdData data_;
    RnLayout layout_;
};

// The best point of a scan column: what the result fields under "At Maximum Score" show.
struct ShepherdBest {
    int column = 0;
    float loo = 0;
    float k = 0;
    float score = 0;
    float startSample = kShepherdStartSample;
    std::optional<float> startLength;  // none ("n.a.") when Loo is at or below the top midlength
};

// The best point of column `column` of a scan table at `loo`, with the starting length of the
// phase that scores higher there.
ShepherdBest ShepherdBestOf(const ShepherdData& d, const KScanTable& table, int column, float loo);

struct ShepherdKScanResult {
    KScanResult scan;   // rows 1 and 2: score and K; rows 3 and 4 hold 0
    ShepherdBest best;  // the first strictly largest score
};

// The Loo of a K-scan or of a surface's range: refused with the Loo notice outside 1e-6..1e6.
Outcome CheckShepherdLoo(float loo);

// K from 0.01 to 10 at `loo`; nothing when cancelled.
std::optional<ShepherdKScanResult> ShepherdKScan(ParallelRn& rn, const ShepherdData& d, float loo,
                                                 SearchSink& sink);

// The surface's checks: both ends of the Loo range, then a range of one Loo.
Outcome CheckShepherdSurface(float looFrom, float looTo);

// The 21 x 21 surface of scores over the K and Loo ranges (C, WP and the starting point are 0).
// `previousK` is the K of the previous run, which a K range of one value scores in its first
// pass. Nothing when cancelled.
std::optional<SurfaceResult> ShepherdSurface(ParallelRn& rn, float kFrom, float kTo, float looFrom,
                                             float looTo, float previousK, SearchSink& sink);

// The largest score of columns 1..columns, by which the K-scan plot scales its scores; 1 when
// no score is above 0, so that a scan of zeros lies on the axis.
double ShepherdPlotScale(const KScanTable& table, int columns);

}  // namespace norvo
