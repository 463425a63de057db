#include "numerics/marquardt.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "base/checked.h"
#include "base/fault.h"

namespace norvo {
namespace {

constexpr double kStartLambda = 0.01;
constexpr double kLambdaFactor = 5;
constexpr double kLambdaLimit = 1e10;
constexpr double kDerivativeStep = 0.001;
constexpr double kScaleOffset = 0.01;
constexpr double kStepTolerance = 0.00002;
constexpr double kStepOffset = 0.001;
constexpr double kDiagonalFloor = 1e-20;
constexpr double kPhiFloor = 1e-10;
constexpr double kRelativeChange = 1e-8;
constexpr double kChangeOffset = 0.001;
constexpr int kStagnationLimit = 2;
// The angle test's short constants.
constexpr double kHalfPi = 1.5708;
constexpr double kDegrees = 180 / 3.1416;

using Matrix = std::vector<std::vector<double>>;

int ModelParamCount(int model) {
    switch (model) {
        case kMarquardtVbgf:
            return 3;
        case kMarquardtSeasonal:
            return 5;
        case kMarquardtAppeldoorn:
            return 4;
        default:
            throw SubscriptFault("MarquardtModel");
    }
}

[[noreturn]] void NoDegreesOfFreedom(int n, int k) {
    throw ArithmeticFault(FaultNumber::DivisionByZero,
                          "Division by zero: the standard errors need more observations (" +
                              std::to_string(n) + ") than parameters (" + std::to_string(k) + ")");
}

// The state of one fit.
class Fit {
  public:
    Fit(const std::vector<MarquardtObs>& data, const MarquardtOptions& o)
        : data_(data), model_(o.model), k_(static_cast<int>(o.start.size())) {
        for (const MarquardtObs& obs : data)
            if (obs.x != kMarquardtLeftOut) used_.push_back(&obs);
        for (int j = 0; j < k_; ++j) {
            b_.push_back(o.start[j]);
            scale_.push_back(std::abs(static_cast<double>(o.start[j])) + kScaleOffset);
            lower_.push_back(o.lower[j]);
            upper_.push_back(o.upper[j]);
            constant_.push_back(o.lower[j] == o.upper[j]);
        }
    }

    const std::vector<double>& b() const { return b_; }
    double lambda() const { return lambda_; }
    int used() const { return static_cast<int>(used_.size()); }

    double phiAt(const std::vector<double>& b) const {
        double phi = 0;
        for (const MarquardtObs* obs : used_) {
            const double r = obs->y - MarquardtModel(model_, b, *obs);
            phi += r * r;
        }
        return CheckFinite(phi);
    }

    // Forward differences by the step rule (backwards when the step would pass the upper
    // limit); rows of constants stay 0. d[j][i] for parameter j and used observation i.
    Matrix derivatives(const std::vector<double>& b, std::vector<double>& f) const {
        const size_t n = used_.size();
        f.assign(n, 0);
        for (size_t i = 0; i < n; ++i) f[i] = MarquardtModel(model_, b, *used_[i]);
        Matrix d(static_cast<size_t>(k_), std::vector<double>(n, 0));
        for (int j = 0; j < k_; ++j) {
            if (constant_[j]) continue;
            double h = kDerivativeStep * std::max(std::abs(b[j]), scale_[j]);
            std::vector<double> moved = b;
            if (b[j] + h <= upper_[j]) {
                moved[j] = b[j] + h;
            } else {
                moved[j] = b[j] - h;
                h = -h;
            }
            for (size_t i = 0; i < n; ++i)
                d[j][i] = Div(MarquardtModel(model_, moved, *used_[i]) - f[i], h);
        }
        return d;
    }

    // One iteration; sets icon. Returns after storing lambda and B.
    int iterate(bool first) {
        const size_t n = used_.size();
        const size_t k = static_cast<size_t>(k_);
        std::vector<double> f;
        const Matrix d = derivatives(b_, f);
        Matrix a(k, std::vector<double>(k, 0));
        std::vector<double> g(k, 0);
        for (size_t j = 0; j < k; ++j) {
            for (size_t l = 0; l < k; ++l)
                for (size_t i = 0; i < n; ++i) a[j][l] += d[j][i] * d[l][i];
            for (size_t i = 0; i < n; ++i) g[j] += (used_[i]->y - f[i]) * d[j][i];
        }
        // A parameter without information drops out of the step.
        std::vector<bool> dropped(k, false);
        for (size_t j = 0; j < k; ++j) {
            if (a[j][j] > kDiagonalFloor) continue;
            dropped[j] = true;
            for (size_t l = 0; l < k; ++l) a[j][l] = a[l][j] = 0;
            a[j][j] = 1;
            g[j] = 0;
        }
        std::vector<double> s(k);
        for (size_t j = 0; j < k; ++j) s[j] = std::sqrt(a[j][j]);
        double gg = 0;
        for (size_t j = 0; j < k; ++j) {
            for (size_t l = 0; l < k; ++l) a[j][l] /= s[j] * s[l];
            g[j] /= s[j];
            gg += g[j] * g[j];
        }

        lambda_ /= kLambdaFactor;
        if (lambda_ <= 0) lambda_ = kStartLambda;

        int icon = k_;
        for (;;) {
            Matrix m = a;
            for (size_t j = 0; j < k; ++j) m[j][j] += lambda_;
            InvertInPlace(m);
            std::vector<double> scaledStep(k, 0), step(k, 0), trial = b_;
            double sg = 0, ss = 0;
            for (size_t j = 0; j < k; ++j) {
                for (size_t l = 0; l < k; ++l) scaledStep[j] += m[j][l] * g[l];
                if (constant_[j] || dropped[j]) scaledStep[j] = 0;
                step[j] = scaledStep[j] / s[j];
                if (!constant_[j]) trial[j] = std::clamp(b_[j] + step[j], lower_[j], upper_[j]);
                sg += scaledStep[j] * g[j];
                ss += scaledStep[j] * scaledStep[j];
            }
            const double gamma = Angle(sg, ss * gg);

            const double phi = phiAt(trial);
            if (phi < kPhiFloor) {
                icon = 0;
            } else {
                const double rel = std::abs(phi - phiOld_) / (phi + kChangeOffset);
                if (rel < kRelativeChange) ++stagnation_;
                if (stagnation_ >= kStagnationLimit) {
                    icon = 0;
                } else if (first) {
                    icon = k_;
                } else if (phi > phiOld_) {
                    if (lambda_ < kLambdaLimit) {
                        lambda_ *= kLambdaFactor;
                        continue;
                    }
                    icon = -1;
                } else {
                    // Accepted: count the parameters still moving (the step before limiting).
                    icon = 0;
                    for (size_t j = 0; j < k; ++j)
                        if (std::abs(step[j]) / (kStepOffset + std::abs(b_[j])) > kStepTolerance)
                            ++icon;
                    if (icon == 0 && lambda_ > 1 && gamma <= 45) icon = -4;
                    if (icon != 0 && lambda_ > 1 && gamma > 90) icon = -1;
                }
            }
            b_ = trial;
            phiOld_ = phi;
            return icon;
        }
    }

    // Gauss-Jordan inversion without pivoting (the matrix is positive definite).
    static void InvertInPlace(Matrix& m) {
        const size_t k = m.size();
        for (size_t p = 0; p < k; ++p) {
            const double pivot = m[p][p];
            if (pivot == 0) ThrowDivisionByZero();
            m[p][p] = 1;
            for (size_t l = 0; l < k; ++l) m[p][l] /= pivot;
            for (size_t r = 0; r < k; ++r) {
                if (r == p) continue;
                const double factor = m[r][p];
                m[r][p] = 0;
                for (size_t l = 0; l < k; ++l) m[r][l] -= factor * m[p][l];
            }
        }
    }

    // Angle in degrees between the scaled step and the gradient, in the short constants.
    static double Angle(double stepDotG, double squares) {
        double cosine = squares > 0 ? stepDotG / std::sqrt(squares) : 0;
        cosine = std::clamp(cosine, -1.0, 1.0);
        const double c = std::abs(cosine);
        const double radians = c == 0 ? kHalfPi : std::atan(std::sqrt(1 - c * c) / c);
        const double gamma = radians * kDegrees;
        return cosine < 0 ? 180 - gamma : gamma;
    }

    // Inverse of the unscaled normal equations at the estimates: rows without information
    // get 0; the rest by Gauss-Jordan with row pivoting.
    Matrix covarianceInverse() const {
        const size_t n = used_.size();
        const size_t k = static_cast<size_t>(k_);
        std::vector<double> f;
        const Matrix d = derivatives(b_, f);
        std::vector<size_t> keep;
        for (size_t j = 0; j < k; ++j) {
            bool any = false;
            for (size_t i = 0; i < n && !any; ++i) any = d[j][i] != 0;
            if (any) keep.push_back(j);
        }
        const size_t m = keep.size();
        Matrix a(m, std::vector<double>(2 * m, 0));
        for (size_t r = 0; r < m; ++r) {
            for (size_t c = 0; c < m; ++c)
                for (size_t i = 0; i < n; ++i) a[r][c] += d[keep[r]][i] * d[keep[c]][i];
            a[r][m + r] = 1;
        }
        for (size_t p = 0; p < m; ++p) {
            size_t best = p;
            for (size_t r = p + 1; r < m; ++r)
                if (std::abs(a[r][p]) > std::abs(a[best][p])) best = r;
            if (a[best][p] == 0)
                throw ArithmeticFault(FaultNumber::DivisionByZero,
                                      "Division by zero: the parameters cannot be told apart by "
                                      "the data, so their standard errors are undefined");
            std::swap(a[p], a[best]);
            const double pivot = a[p][p];
            for (double& v : a[p]) v /= pivot;
            for (size_t r = 0; r < m; ++r) {
                if (r == p || a[r][p] == 0) continue;
                const double factor = a[r][p];
                for (size_t c = 0; c < 2 * m; ++c) a[r][c] -= factor * a[p][c];
            }
        }
        Matrix inv(k, std::vector<double>(k, 0));
        for (size_t r = 0; r < m; ++r)
            for (size_t c = 0; c < m; ++c) inv[keep[r]][keep[c]] = a[r][m + c];
        return inv;
    }

  private:
    const std::vector<MarquardtObs>& data_;
    int model_;
    int k_;
    std::vector<const MarquardtObs*> used_;
    std::vector<double> b_, scale_, lower_, upper_;
    std::vector<bool> constant_;
    double lambda_ = 0;
    double phiOld_ = 0;
    int stagnation_ = 0;  // never reset within a fit
};

const char* MessageOf(int icon) {
    if (icon + 5 == 0 || icon + 5 > 10) return kMqAssumptionsNotMet;
    switch (icon) {
        case -4:
            return kMqLambdaLarge;
        case -3:
        case -2:
            return kMqImpossible;
        case -1:
            return kMqNoImprovement;
        case 0:
            return kMqConverged;
        default:
            return nullptr;
    }
}

}  // namespace

double MarquardtModel(int model, const std::vector<double>& b, const MarquardtObs& obs) {
    const double t = obs.x;
    switch (model) {
        case kMarquardtVbgf:
            return CheckFinite(b[0] * (1 - Exp(-b[1] * (t - b[2]))));
        case kMarquardtSeasonal: {
            // With C at 0 the seasonal term is exactly 0, whatever WP is.
            const double s = (b[1] * b[3] / kMarquardtPiTwo) *
                             (std::sin(kMarquardtPiTwo * (t - (b[4] - 0.5))) -
                              std::sin(kMarquardtPiTwo * (b[2] - (b[4] - 0.5))));
            return CheckFinite(b[0] * (1 - Exp(-b[1] * (t - b[2]) - s)));
        }
        case kMarquardtAppeldoorn: {
            const double tb = obs.tb;
            const double s =
                (b[1] * b[2] / kMarquardtPiTwo) * (std::sin(kMarquardtPiTwo * (t - (b[3] - 0.5))) -
                                                   std::sin(kMarquardtPiTwo * (tb - (b[3] - 0.5))));
            return CheckFinite((b[0] - obs.length) * (1 - Exp(-b[1] * (t - tb) - s)));
        }
        default:
            throw SubscriptFault("MarquardtModel");
    }
}

MarquardtResult MarquardtFit(const std::vector<MarquardtObs>& data,
                             const MarquardtOptions& options) {
    const int k = static_cast<int>(options.start.size());
    if (options.lower.size() != options.start.size() ||
        options.upper.size() != options.start.size())
        throw SubscriptFault("MarquardtFit");
    MarquardtResult out;
    out.b = options.start;
    out.stdErr.assign(static_cast<size_t>(k), 0.0f);
    out.stars.assign(static_cast<size_t>(k), "");
    auto markStars = [&] {
        for (size_t j = 0; j < static_cast<size_t>(k); ++j) {
            if (options.lower[j] == options.upper[j])
                out.stars[j] = kMqConstant;
            else if (out.b[j] == options.lower[j])
                out.stars[j] = kMqAtMinimum;
            else if (out.b[j] == options.upper[j])
                out.stars[j] = kMqAtMaximum;
        }
    };
    if (k > kMarquardtMaxParams) {
        out.icon = k;
        out.message = MessageOf(k);
        markStars();
        return out;
    }
    if (k < ModelParamCount(options.model)) throw SubscriptFault("MarquardtFit");

    Fit fit(data, options);
    int count = 0;
    for (;;) {
        if (options.progress) options.progress(count);
        out.icon = fit.iterate(count == 0);
        ++count;
        if (const char* m = MessageOf(out.icon)) {
            out.message = m;
            break;
        }
        if (count >= kMarquardtMaxIterations) break;
    }
    out.iterations = count;
    out.lambda = fit.lambda();

    const std::vector<double>& b = fit.b();
    for (size_t j = 0; j < b.size(); ++j) out.b[j] = R4(b[j]);
    markStars();

    const int n = fit.used();
    if (n - k <= 0) NoDegreesOfFreedom(n, k);
    out.phi = fit.phiAt(b);
    const double s2 = out.phi / (n - k);
    const Matrix inv = fit.covarianceInverse();
    for (size_t j = 0; j < b.size(); ++j) out.stdErr[j] = R4(Sqrt(s2 * inv[j][j]));

    double sy = 0, syy = 0;
    for (const MarquardtObs& obs : data) {
        if (obs.x == kMarquardtLeftOut) {
            out.fitted.push_back(kMarquardtLeftOut);
            continue;
        }
        out.fitted.push_back(R4(MarquardtModel(options.model, b, obs)));
        sy += obs.y;
        syy += static_cast<double>(obs.y) * obs.y;
    }
    const double spread = syy - sy * sy / n;
    if (spread == 0)
        throw ArithmeticFault(FaultNumber::DivisionByZero,
                              "Division by zero: all observed values are alike, so the "
                              "determination coefficient is undefined");
    out.r2 = 1 - out.phi / spread;
    out.adjustedR2 = 1 - (1 - out.r2) * (n - 1) / (n - k);
    out.assessed = true;
    return out;
}

}  // namespace norvo
