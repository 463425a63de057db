#include "numerics/normal_mixture.h"

#include <algorithm>
#include <cmath>

#include "base/checked.h"
#include "numerics/normal_dist.h"

namespace norvo {

namespace {

// Means beyond these are not held to the spacing condition.
constexpr size_t kSpacedMeans = 9;

size_t FirstOccupied(const std::vector<double>& o) {
    size_t i = 0;
    while (i < o.size() && !(o[i] > 0)) ++i;
    return i;
}

size_t LastOccupied(const std::vector<double>& o) {
    size_t i = o.size();
    while (i > 0 && !(o[i - 1] > 0)) --i;
    return i == 0 ? 0 : i - 1;
}

// Proportion of component k of n: its own parameter, or for the last one 1 minus the others.
double Proportion(const std::vector<double>& p, int k, int n) {
    if (k < n - 1) return p[3 * static_cast<size_t>(k) + 2];
    double rest = 1;
    for (int j = 0; j < n - 1; ++j) rest -= p[3 * static_cast<size_t>(j) + 2];
    return rest;
}

}  // namespace

double MixtureClasses::low() const {
    return mid(FirstOccupied(observed)) - width / 2;
}

double MixtureClasses::high() const {
    return mid(LastOccupied(observed)) + width / 2;
}

int ComponentCount(size_t parameters) {
    return static_cast<int>((parameters + 1) / 3);
}

double NegLogLikelihood(const std::vector<double>& p, const MixtureClasses& c) {
    const int n = ComponentCount(p.size());
    const double low = c.low(), high = c.high();
    std::vector<double> weight(static_cast<size_t>(n));
    for (int k = 0; k < n; ++k) {
        const double mean = p[3 * static_cast<size_t>(k)], sd = p[3 * static_cast<size_t>(k) + 1];
        const double mass = NormalCdf(high, mean, sd) - NormalCdf(low, mean, sd);
        weight[static_cast<size_t>(k)] = Div(Proportion(p, k, n), mass);
    }
    double sum = 0;
    for (size_t i = 0; i < c.observed.size(); ++i) {
        if (!(c.observed[i] > 0)) continue;
        double e = 0;
        for (int k = 0; k < n; ++k)
            e += weight[static_cast<size_t>(k)] * NormalPdf(c.mid(i), p[3 * static_cast<size_t>(k)],
                                                            p[3 * static_cast<size_t>(k) + 1]);
        if (e > 0) sum += c.observed[i] * std::log(e);
    }
    return -sum;
}

std::vector<double> MixtureStart(const std::vector<double>& means, const MixtureClasses& c) {
    const size_t n = means.size();
    const double sd = std::max(c.width / 2, (c.high() - c.low()) / (4.0 * static_cast<double>(n)));
    std::vector<double> p;
    for (size_t k = 0; k < n; ++k) {
        p.push_back(means[k]);
        p.push_back(sd);
        if (k + 1 < n) p.push_back(1.0 / static_cast<double>(n));
    }
    return p;
}

// Means in [low, high], sds in [w/2, high - low], proportions in [0, 1]; the implied
// proportion in [0, 1] and the first nine means, sorted, spaced above the limit.
SimplexOptions MixtureLimits(size_t parameters, const MixtureClasses& c,
                             const MixtureOptions& options) {
    SimplexOptions o;
    o.mask.assign(parameters, 1);
    o.step.assign(parameters, options.step);
    o.lower.resize(parameters);
    o.upper.resize(parameters);
    const double low = c.low(), high = c.high();
    for (size_t i = 0; i < parameters; ++i) {
        switch (i % 3) {
            case 0:
                o.lower[i] = low, o.upper[i] = high;
                break;
            case 1:
                o.lower[i] = c.width / 2, o.upper[i] = high - low;
                break;
            default:
                o.lower[i] = 0, o.upper[i] = 1;
                break;
        }
    }
    const int n = ComponentCount(parameters);
    const double spacing = options.spacingLimit;
    o.acceptable = [n, spacing](const std::vector<double>& p) {
        const double implied = Proportion(p, n - 1, n);
        if (implied < 0 || implied > 1) return false;
        std::vector<double> means;
        for (int k = 0; k < n && means.size() < kSpacedMeans; ++k)
            means.push_back(p[3 * static_cast<size_t>(k)]);
        std::sort(means.begin(), means.end());
        for (size_t k = 1; k < means.size(); ++k) {
            const double sum = means[k - 1] + means[k];
            if (sum == 0 || !((means[k] - means[k - 1]) / sum > spacing)) return false;
        }
        return true;
    };
    o.limit = options.limit;
    o.tolerance = options.tolerance;
    return o;
}

MixtureFit FitNormalMixture(const MixtureClasses& classes, const std::vector<double>& startMeans,
                            const MixtureOptions& options) {
    MixtureFit fit;
    if (startMeans.empty()) {
        fit.refuse(kMixtureNoMeanText, kMixtureTitle);
        return fit;
    }
    double total = 0;
    for (double o : classes.observed)
        if (o > 0) total += o;
    if (!(total > 0)) {
        fit.refuse(kMixtureEmptyText, kMixtureTitle);
        return fit;
    }
    const std::vector<double> start = MixtureStart(startMeans, classes);
    const SimplexOptions limits = MixtureLimits(start.size(), classes, options);
    const SimplexResult r =
        Simplex([&classes](const std::vector<double>& p) { return NegLogLikelihood(p, classes); },
                start, limits);
    fit.absorb(r);
    fit.code = r.code;
    fit.nll = r.value;
    fit.restarts = r.restarts;
    fit.evaluations = r.evaluations;
    if (r.code != kSimplexConverged) {
        fit.refuse(kMixtureFailedText, kMixtureTitle);
        return fit;
    }
    const int n = ComponentCount(r.best.size());
    for (int k = 0; k < n; ++k)
        fit.components.push_back({r.best[3 * static_cast<size_t>(k)],
                                  r.best[3 * static_cast<size_t>(k) + 1],
                                  Proportion(r.best, k, n)});
    return fit;
}

}  // namespace norvo
