#include "numerics/simplex.h"

#include <algorithm>
#include <cmath>

#include "base/checked.h"

namespace norvo {

namespace {

constexpr double kReflection = -1.0;
constexpr double kExpansion = 2.0;
constexpr double kContraction = 0.5;
constexpr double kJustInside = 0.999999999999;
// Halvings of a trial that breaks the further condition before it is set on its origin.
constexpr int kMaxHalvings = 60;

using Vec = std::vector<double>;

// One run of the minimiser: the free parameters, the counters and the objective over them.
class Minimiser {
  public:
    Minimiser(const SimplexObjective& f, const SimplexOptions& o, std::vector<int> free)
        : f_(f), o_(o), free_(std::move(free)), n_(free_.size()) {}

    int64_t evaluations = 0;

    double eval(const Vec& point) {
        ++evaluations;
        return f_(point);
    }

    // A trial point made acceptable: drawn into the box, then halved back towards `from`
    // while it breaks the further condition.
    void admit(Vec& point, const Vec& from) {
        DrawIntoBox(point, from, o_.lower, o_.upper, free_);
        if (!o_.acceptable) return;
        for (int i = 0; i < kMaxHalvings && !o_.acceptable(point); ++i)
            for (int j : free_) point[j] = from[j] + 0.5 * (point[j] - from[j]);
        if (!o_.acceptable(point)) point = from;
    }

    // Builds the simplex around `x0` and runs it down; false when the limit stopped it.
    bool run(const Vec& x0, int64_t maxEvaluations) {
        v_.assign(n_ + 1, x0);
        for (size_t i = 0; i < n_; ++i) {
            const int p = free_[i];
            const double step = x0[p] == 0 ? o_.step[p] : x0[p] * o_.step[p];
            v_[i + 1][p] += step;
            admit(v_[i + 1], v_[0]);
        }
        y_.resize(n_ + 1);
        for (size_t i = 0; i <= n_; ++i) y_[i] = eval(v_[i]);
        return inner(maxEvaluations);
    }

    const Vec& lowest() const { return v_[lo_]; }
    double lowestValue() const { return y_[lo_]; }

  private:
    void rank() {
        lo_ = 0;
        hi_ = 0;
        for (size_t i = 1; i <= n_; ++i) {
            if (y_[i] <= y_[lo_]) lo_ = i;  // of equal vertices the last is the lowest
            if (y_[i] > y_[hi_]) hi_ = i;
        }
        nh_ = hi_ == 0 ? 1 : 0;
        for (size_t i = 0; i <= n_; ++i)
            if (i != hi_ && y_[i] > y_[nh_]) nh_ = i;
    }

    // The highest vertex moved through the centroid of the others by `factor`; it replaces
    // the highest vertex when better.
    double trial(double factor) {
        Vec point = v_[hi_];
        for (int p : free_) {
            double sum = 0;
            for (size_t i = 0; i <= n_; ++i)
                if (i != hi_) sum += v_[i][p];
            const double centroid = sum / static_cast<double>(n_);
            point[p] = centroid * (1 - factor) + v_[hi_][p] * factor;
        }
        admit(point, v_[lo_]);
        const double y = eval(point);
        if (y < y_[hi_]) {
            y_[hi_] = y;
            v_[hi_] = std::move(point);
        }
        return y;
    }

    bool inner(int64_t maxEvaluations) {
        for (;;) {
            rank();
            const double rtol =
                2 * Div(std::fabs(y_[hi_] - y_[lo_]), std::fabs(y_[hi_]) + std::fabs(y_[lo_]));
            if (evaluations >= maxEvaluations) return false;
            if (rtol < o_.tolerance) {
                std::swap(v_[0], v_[lo_]);
                std::swap(y_[0], y_[lo_]);
                lo_ = 0;
                return true;
            }
            const double y = trial(kReflection);
            if (y <= y_[lo_]) {
                trial(kExpansion);
            } else if (y >= y_[nh_]) {
                const double kept = y_[hi_];
                if (trial(kContraction) >= kept) {
                    for (size_t i = 0; i <= n_; ++i) {
                        if (i == lo_) continue;
                        for (int p : free_) v_[i][p] = 0.5 * (v_[i][p] + v_[lo_][p]);
                        y_[i] = eval(v_[i]);
                    }
                }
            }
        }
    }

    const SimplexObjective& f_;
    const SimplexOptions& o_;
    std::vector<int> free_;
    size_t n_;
    std::vector<Vec> v_;
    Vec y_;
    size_t lo_ = 0, hi_ = 0, nh_ = 0;
};

}  // namespace

void DrawIntoBox(Vec& point, const Vec& from, const Vec& lower, const Vec& upper,
                 const std::vector<int>& free) {
    double t = 0;
    for (int p : free) {
        const double step = point[p] - from[p];
        if (step == 0) continue;
        if (point[p] > upper[p]) t = std::max(t, (point[p] - upper[p]) / step);
        if (point[p] < lower[p]) t = std::max(t, (point[p] - lower[p]) / step);
    }
    if (t == 0) return;
    t = std::min(t, 1.0);
    for (int p : free) point[p] = from[p] + (1 - t) * kJustInside * (point[p] - from[p]);
}

SimplexResult Simplex(const SimplexObjective& objective, const Vec& start,
                      const SimplexOptions& options) {
    SimplexResult r;
    r.best = start;
    std::vector<int> free;
    for (size_t p = 0; p < start.size(); ++p)
        if (p < options.mask.size() && options.mask[p] > 0) free.push_back(static_cast<int>(p));
    if (free.empty()) {
        r.note(kSimplexStartNotAdequate, kSimplexTitle, Icon::Warning);
        r.code = kSimplexNoneFree;
        return r;
    }
    Minimiser m(objective, options, free);
    double previous = m.eval(start);
    r.value = previous;
    // A start outside the box is set on it; its value above stays the first previous best.
    Vec x = start;
    for (int p : free) x[p] = std::clamp(x[p], options.lower[p], options.upper[p]);
    const int64_t maxEvaluations = 10 * options.limit;
    const double restartTolerance = 100 * options.tolerance;
    for (;;) {
        const bool settled = m.run(x, maxEvaluations);
        r.evaluations = m.evaluations;
        const double best = m.lowestValue();
        if (!settled) {
            r.code = kSimplexLimit;
            r.best = m.lowest();
            r.value = best;
            return r;
        }
        const double rel = 2 * Div(previous - best, std::fabs(best) + std::fabs(previous));
        if (rel < 0) {
            r.code = kSimplexWorse;  // the previous best (r.best, r.value) stands
            return r;
        }
        r.best = m.lowest();
        r.value = best;
        if (rel < restartTolerance) {
            r.code = kSimplexConverged;
            return r;
        }
        ++r.restarts;
        previous = best;
        x = m.lowest();
    }
}

}  // namespace norvo
