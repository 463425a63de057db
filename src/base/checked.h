#pragma once
// Arithmetic with the old platform's fault semantics: every operation that would give an
// infinity or a NaN raises an ArithmeticFault instead. Use these wherever a formula can meet
// a bad value; plain operators are fine where the operands are known to be safe.
#include <cfloat>
#include <cmath>
#include <cstdint>

#include "base/fault.h"

namespace norvo {

// A 64-bit result that must be finite.
inline double CheckFinite(double x) {
    if (std::isnan(x)) ThrowInvalidCall();
    if (std::isinf(x)) ThrowOverflow();
    return x;
}

inline double Div(double a, double b) {
    if (b == 0.0) ThrowDivisionByZero();
    return CheckFinite(a / b);
}

// Natural logarithm; x <= 0 is "Invalid procedure call or argument".
inline double Ln(double x) {
    if (!(x > 0.0)) ThrowInvalidCall();
    return std::log(x);
}

inline double Log10(double x) {
    return Ln(x) / std::log(10.0);
}

inline double Sqrt(double x) {
    if (x < 0.0 || std::isnan(x)) ThrowInvalidCall();
    return std::sqrt(x);
}

inline double Exp(double x) {
    return CheckFinite(std::exp(x));
}

// a ^ b; a negative base with a fractional exponent is an invalid call, 0 ^ negative divides by 0.
inline double Pow(double a, double b) {
    if (a < 0.0 && b != std::floor(b)) ThrowInvalidCall();
    if (a == 0.0 && b < 0.0) ThrowDivisionByZero();
    return CheckFinite(std::pow(a, b));
}

// Store into a 32-bit float (the "R4" store): round to nearest, overflow beyond the float range.
inline float R4(double x) {
    if (std::isnan(x)) ThrowInvalidCall();
    if (std::isinf(x)) ThrowOverflow();
    const float f = static_cast<float>(x);
    if (std::isinf(f)) ThrowOverflow();
    return f;
}

}  // namespace norvo
