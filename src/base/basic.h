#pragma once
// Integer conversions with the old platform's semantics.
#include <cmath>
#include <cstdint>

#include "base/checked.h"

namespace norvo {

// Largest integer not above x (floor).
inline double Int(double x) {
    return std::floor(CheckFinite(x));
}

// Integer part, truncated toward zero.
inline double Fix(double x) {
    return std::trunc(CheckFinite(x));
}

// Round half to even ("banker's rounding").
inline double RoundHalfEven(double x) {
    return std::nearbyint(CheckFinite(x));
}

// 16-bit integer conversion, round half to even; out of range is an overflow.
inline int16_t CInt(double x) {
    const double r = RoundHalfEven(x);
    if (r < -32768.0 || r > 32767.0) ThrowOverflow();
    return static_cast<int16_t>(r);
}

// 32-bit integer conversion, round half to even; out of range is an overflow.
inline int32_t CLng(double x) {
    const double r = RoundHalfEven(x);
    if (r < -2147483648.0 || r > 2147483647.0) ThrowOverflow();
    return static_cast<int32_t>(r);
}

}  // namespace norvo
