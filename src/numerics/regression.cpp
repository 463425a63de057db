#include "numerics/regression.h"

#include <algorithm>
#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "base/fault.h"

namespace norvo {
namespace {

constexpr std::array<float, 39> kStudentTLinear = {
    0.0f,  12.71f, 4.3f,  3.18f, 2.78f, 2.57f, 2.45f, 2.37f, 2.306f, 2.62f, 2.23f, 2.2f,  2.18f,
    2.16f, 2.15f,  2.13f, 2.12f, 2.11f, 2.1f,  2.09f, 2.09f, 2.08f,  2.07f, 2.07f, 2.06f, 2.06f,
    2.06f, 2.05f,  2.05f, 2.05f, 2.04f, 2.02f, 2.01f, 2.0f,  2.0f,   1.99f, 1.99f, 1.98f, 1.96f};

constexpr std::array<float, 39> kStudentTFunctional = {
    0.0f,  12.71f, 4.3f,  3.18f, 2.78f, 2.57f, 2.45f, 2.37f, 2.31f, 2.62f, 2.23f, 2.2f,  2.18f,
    2.16f, 2.15f,  2.13f, 2.12f, 2.11f, 2.1f,  2.09f, 2.09f, 2.08f, 2.07f, 2.07f, 2.06f, 2.06f,
    2.06f, 2.05f,  2.05f, 2.05f, 2.04f, 2.02f, 2.01f, 2.0f,  2.0f,  1.99f, 1.99f, 1.98f, 1.96f};

float TableRow(const std::array<float, 39>& table, int d) {
    if (d < 0 || d > 38) throw SubscriptFault("StudentT");
    return table[static_cast<size_t>(d)];
}

// The element of a span at an index given by the caller.
float At(std::span<const float> v, int64_t i) {
    if (i < 0 || i >= static_cast<int64_t>(v.size())) throw SubscriptFault("Regression");
    return v[static_cast<size_t>(i)];
}

double Square(double v) {
    return Pow(v, 2.0);
}

// Fisher's z limits of r: (e^(2z) - 1) / (e^(2z) + 1).
float FisherBack(double z) {
    const double e = Exp(2.0 * z);
    return R4(Div(e - 1.0, e + 1.0));
}

// Sums and means of x and y over first..last, then the centred sums of squares and products,
// each held in a 32-bit float rounded at every store.
struct Moments {
    float sumX = 0, sumY = 0;
    float meanX = 0, meanY = 0;
    float sxx = 0, syy = 0, sxy = 0;
};

Moments CentredMoments(std::span<const float> x, std::span<const float> y, int64_t first,
                       int64_t last, double n) {
    Moments m;
    for (int64_t i = first; i <= last; ++i) {
        m.sumX = R4(static_cast<double>(m.sumX) + At(x, i));
        m.sumY = R4(static_cast<double>(m.sumY) + At(y, i));
    }
    m.meanX = R4(Div(m.sumX, n));
    m.meanY = R4(Div(m.sumY, n));
    for (int64_t i = first; i <= last; ++i) {
        const double dx = static_cast<double>(At(x, i)) - m.meanX;
        const double dy = static_cast<double>(At(y, i)) - m.meanY;
        m.sxx = R4(m.sxx + Square(dx));
        m.syy = R4(m.syy + Square(dy));
        m.sxy = R4(m.sxy + dx * dy);
    }
    return m;
}

}  // namespace

float& RegressionResult::operator[](int i) {
    if (i < 1 || i > kSlots) throw SubscriptFault("RegressionResult");
    return slots[static_cast<size_t>(i)];
}

float RegressionResult::operator[](int i) const {
    if (i < 1 || i > kSlots) throw SubscriptFault("RegressionResult");
    return slots[static_cast<size_t>(i)];
}

float StudentTLinear(int d) {
    return TableRow(kStudentTLinear, d);
}

float StudentTFunctional(int d) {
    return TableRow(kStudentTFunctional, d);
}

void LinearRegression(std::span<const float> x, std::span<const float> y, int32_t first,
                      int32_t last, RegressionResult& result) {
    const int64_t nl = static_cast<int64_t>(last) - first + 1;
    const double n = static_cast<double>(nl);

    const auto [sumX, sumY, meanX, meanY, sxx, syy, sxy] = CentredMoments(x, y, first, last, n);
    const float sdX = R4(Sqrt(Div(sxx, n - 1.0)));
    const float sdY = R4(Sqrt(Div(syy, n - 1.0)));

    float r = 0, a = 0, b = 0, f = 0, seA = 0, seB = 0, rLow = 0, rHigh = 0;
    bool valid = true;
    if (syy <= 0) {
        // All y alike.
        r = 1;
        a = meanY;
        b = 0;
        f = 1e22f;
        valid = false;
    } else {
        r = R4(Div(sxy, Sqrt(static_cast<double>(syy) * sxx)));
        float sxx2 = 0, sxy2 = 0;
        for (int64_t i = first; i <= last; ++i) {
            const double dx = static_cast<double>(At(x, i)) - meanX;
            sxx2 = R4(sxx2 + Square(dx));
            sxy2 = R4(sxy2 + dx * At(y, i));
        }
        b = R4(Div(sxy2, sxx2));
        a = R4(Div(sumY - static_cast<double>(sumX) * b, n));
        if (nl < 3) {
            valid = false;
        } else {
            const float fa = R4(Sqrt(Div(1.0 + Div(Square(sumX), n * sxx2), n)));
            const float fb = R4(Sqrt(Div(1.0, sxx2)));
            float ssReg = 0, ssRes = 0;
            for (int64_t i = first; i <= last; ++i) {
                const float yHat = R4(static_cast<double>(b) * At(x, i) + a);
                ssReg = R4(ssReg + Square(static_cast<double>(yHat) - meanY));
                ssRes = R4(ssRes + Square(static_cast<double>(At(y, i)) - yHat));
            }
            const float s2 = R4(Div(ssRes, n - 2.0));
            const float msReg = R4(ssReg / 1.0);
            f = s2 > 0 ? R4(Div(msReg, s2)) : 1e22f;
            seA = R4(static_cast<double>(fa) * Sqrt(s2));
            seB = R4(static_cast<double>(fb) * Sqrt(s2));
            // Limits of r, unless r is +-1 to five decimals.
            const double r5 = std::nearbyint(static_cast<double>(r) * 1e5) / 1e5;
            if (nl >= 4 && r5 != 1.0 && r5 != -1.0) {
                const float z = R4(0.5 * Ln(Div(1.0 + r, 1.0 - r)));
                const float h = R4(Div(1.0, Sqrt(n - 3.0)) * 1.96);
                const float zl = R4(static_cast<double>(z) - h);
                const float zu = R4(static_cast<double>(z) + h);
                rLow = FisherBack(zl);
                rHigh = FisherBack(zu);
            }
        }
    }

    result.slots.fill(0.0f);
    result[RegressionResult::kN] = R4(n);
    result[RegressionResult::kA] = a;
    result[RegressionResult::kB] = b;
    if (valid) {
        const double t = StudentTLinear(static_cast<int>(std::min<int64_t>(nl - 2, 38)));
        result[RegressionResult::kSeA] = seA;
        result[RegressionResult::kSeB] = seB;
        result[RegressionResult::kALow] = R4(a - seA * t);
        result[RegressionResult::kAHigh] = R4(a + seA * t);
        result[RegressionResult::kBLow] = R4(b - seB * t);
        result[RegressionResult::kBHigh] = R4(b + seB * t);
        result[RegressionResult::kRLow] = rLow;
        result[RegressionResult::kRHigh] = rHigh;
    }
    result[RegressionResult::kMeanX] = meanX;
    result[RegressionResult::kMeanY] = meanY;
    result[RegressionResult::kSdX] = sdX;
    result[RegressionResult::kSdY] = sdY;
    result[RegressionResult::kR] = r;
    result[RegressionResult::kF] = f;
}

void FunctionalRegression(std::span<const float> x, std::span<const float> y, int16_t first,
                          int16_t last, RegressionResult& result) {
    const int32_t nl = static_cast<int32_t>(last) - first + 1;
    const double n = static_cast<double>(nl);
    result[RegressionResult::kN] = R4(n);

    const auto [sumX, sumY, meanX, meanY, sxx, syy, sxy] = CentredMoments(x, y, first, last, n);
    if (sxx == 0) {
        for (int i = 1; i <= 13; ++i) result[i] = 0;
        return;
    }
    const float sdX = R4(Sqrt(Div(sxx, n - 1.0)));
    const float sdY = R4(Sqrt(Div(syy, n - 1.0)));
    result[RegressionResult::kSdX] = sdX;
    result[RegressionResult::kSdY] = sdY;

    const float r = R4(Div(Div(Div(sxy, sdX), sdY), n - 1.0));
    result[RegressionResult::kR] = r;
    const float b = R4(Div(Div(sxy, sxx), r));
    const float a = R4(meanY - static_cast<double>(meanX) * b);
    result[RegressionResult::kB] = b;
    result[RegressionResult::kA] = a;

    const float v = R4(Div(Div(syy, sxx) - Square(b), n - 2.0));
    const float seB = R4(Sqrt(std::fabs(static_cast<double>(v))));
    const float seA = R4(Sqrt(std::fabs((Square(meanX) + Div(sxx, n)) * v)));
    result[RegressionResult::kSeB] = seB;
    result[RegressionResult::kSeA] = seA;

    // Beyond 30 degrees of freedom the rows stand for 40, 50, ... 110 and more.
    int32_t d = nl - 2;
    if (d > 30) d = 30 + static_cast<int32_t>(Int((d - 30) / 10.0));
    if (d > 38) d = 38;
    const double t = StudentTFunctional(d);
    result[RegressionResult::kALow] = R4(a - t * seA);
    result[RegressionResult::kAHigh] = R4(a + t * seA);
    result[RegressionResult::kBLow] = R4(b - t * seB);
    result[RegressionResult::kBHigh] = R4(b + t * seB);
    result[RegressionResult::kMeanX] = meanX;
    result[RegressionResult::kMeanY] = meanY;

    if (nl > 3) {
        const float z = R4(0.5 * Ln(Div(1.0 + r, 1.0 - r)));
        const float h = R4(Div(1.96, Sqrt(n - 3.0)));
        result[RegressionResult::kRLow] = FisherBack(static_cast<double>(z) - h);
        result[RegressionResult::kRHigh] = FisherBack(static_cast<double>(z) + h);
    } else {
        result[RegressionResult::kRLow] = 0;
        result[RegressionResult::kRHigh] = 0;
    }
}

}  // namespace norvo
