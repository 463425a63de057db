#include "growth/elefan_search_engine.h"

#include "growth/elefan.h"
#include "growth/elefan_lfq.h"

namespace norvo {

namespace {

class EngineWorker : public RnWorker {
  public:
    explicit EngineWorker(const ElefanModel& model) : model_(model), scratch_(model) {}
    // The curve's origin comes from the starting point; the query's t0 plays no part.
    float score(const GrowthParams& q) override { return ComputeRn(model_, q, scratch_); }
    bool scoresByOrigin() const override { return true; }
    float origin(const GrowthParams& q) override { return CurveOrigin(model_, q, &logs_); }
    float scoreFromOrigin(const GrowthParams& q, float t0) override {
        return ComputeRnFromOrigin(model_, q, t0, scratch_);
    }
    float scoreFromOriginAbove(const GrowthParams& q, float t0, float floor) override {
        return ComputeRnFromOriginAbove(model_, q, t0, scratch_, floor);
    }

  private:
    const ElefanModel& model_;
    ElefanScratch scratch_;
    OriginLogs logs_;
};

class EngineScorer : public ElefanFileScorer {
  public:
    explicit EngineScorer(ElefanModel model) : model_(std::move(model)) {
        layout_.nS = model_.nS();
        layout_.nC = model_.nC();
        layout_.firstMid = model_.firstMid();
        layout_.lastMid = model_.lastMid();
        layout_.ci = model_.ci();
        for (int s = 1; s <= model_.nS(); ++s) {
            layout_.sampleFirstMid.push_back(model_.sampleFirstMid(s));
            layout_.sampleLastMid.push_back(model_.sampleLastMid(s));
        }
    }
    const RnLayout& layout() const override { return layout_; }
    std::unique_ptr<RnWorker> newWorker() const override {
        return std::make_unique<EngineWorker>(model_);
    }
    std::pair<float, float> defaultStart(float loo) const override {
        const StartingPoint sp = DefaultStartingPoint(model_, loo);
        return {sp.ss, sp.sl};
    }

  private:
    ElefanModel model_;
    RnLayout layout_;
};

}  // namespace

std::unique_ptr<ElefanFileScorer> MakeElefanScorer(const LfqData& data) {
    return MakeElefanScorerFromInput(ElefanInputFromLfq(data));
}

std::unique_ptr<ElefanFileScorer> MakeElefanScorerFromInput(const ElefanInput& input) {
    return std::make_unique<EngineScorer>(RestructureElefan(input));
}

}  // namespace norvo
