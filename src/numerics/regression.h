#pragma once
// The two straight-line fits every plot-based analysis rests on. All sums, means and other
// intermediate values are held in 32-bit floats, rounded at every store, so that the figures
// match those the analyses have always shown.
#include <array>
#include <cstdint>
#include <span>

namespace norvo {

// Seventeen single-precision slots, read by number from 1.
struct RegressionResult {
    enum Slot : int {
        kN = 1,
        kA,
        kB,
        kSeA,
        kSeB,
        kALow,
        kAHigh,
        kBLow,
        kBHigh,
        kMeanX,
        kMeanY,
        kSdX,
        kSdY,
        kR,
        kRLow,
        kRHigh,
        kF,
    };
    static constexpr int kSlots = 17;

    // Slot i, 1..17; any other index is a SubscriptFault.
    float& operator[](int i);
    float operator[](int i) const;

    float n() const { return slots[kN]; }
    float a() const { return slots[kA]; }
    float b() const { return slots[kB]; }
    float r() const { return slots[kR]; }

    std::array<float, kSlots + 1> slots{};  // slot 0 unused
};

// Student's t at 95% by degrees of freedom, rows 1..38 (row 0 is 0). The two fits carry their
// own copies: row 8 is 2.306 in the ordinary fit and 2.31 in the functional one, and row 9 is
// 2.62 in both.
float StudentTLinear(int degreesOfFreedom);
float StudentTFunctional(int degreesOfFreedom);

// Ordinary least squares of y on x over the indices first..last of both spans (inclusive).
// A fit of fewer than three points, or of constant y, is marked invalid: its error and limit
// slots are 0. Bad data (n = 1, constant x with varying y) raises the arithmetic fault.
void LinearRegression(std::span<const float> x, std::span<const float> y, int32_t first,
                      int32_t last, RegressionResult& result);

// The geometric-mean (functional) fit. Constant x zeroes slots 1..13 and leaves 14..17 alone;
// slot 17 is never written. Two points, or a perfect line of more than three, raise the
// arithmetic fault.
void FunctionalRegression(std::span<const float> x, std::span<const float> y, int16_t first,
                          int16_t last, RegressionResult& result);

}  // namespace norvo
