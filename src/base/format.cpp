#include "base/format.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "base/fault.h"

namespace norvo {
namespace {

struct Pattern {
    int minInt = 0;    // integer digits always shown
    int decimals = 0;  // digits after the point
    bool grouping = false;
};

Pattern ParsePattern(std::string_view p) {
    Pattern out;
    const auto dot = p.find('.');
    const std::string_view intPart = p.substr(0, dot);
    for (char c : intPart) {
        if (c == '0') ++out.minInt;
        if (c == ',') out.grouping = true;
    }
    if (dot != std::string_view::npos) {
        for (char c : p.substr(dot + 1)) {
            if (c == '0' || c == '#') ++out.decimals;
        }
    }
    return out;
}

// Decimal digits of |x| rounded half away from zero to `decimals` places, after first taking
// the value to 15 significant digits. Returns the integer and fraction digit strings.
void RoundedDigits(double x, int decimals, std::string& intDigits, std::string& fracDigits) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.14e", std::fabs(x));
    // buf: d.dddddddddddddde[+-]XX
    std::string mant;
    mant.push_back(buf[0]);
    int i = 2;
    while (buf[i] != 'e') mant.push_back(buf[i++]);
    const int exp10 = std::atoi(buf + i + 1);
    // Digits as an integer string scaled so that the decimal point sits after position pointPos.
    int pointPos = exp10 + 1;  // number of digits before the point
    std::string digits = mant;
    if (pointPos <= 0) {
        digits.insert(0, static_cast<size_t>(-pointPos + 1), '0');
        pointPos = 1;
    }
    const int keep = pointPos + decimals;
    if (static_cast<int>(digits.size()) < keep) digits.append(keep - digits.size(), '0');
    const bool roundUp = static_cast<int>(digits.size()) > keep && digits[keep] >= '5';
    digits.resize(keep);
    if (roundUp) {
        int k = keep - 1;
        while (k >= 0) {
            if (digits[k] == '9') {
                digits[k] = '0';
                --k;
            } else {
                ++digits[k];
                break;
            }
        }
        if (k < 0) {
            digits.insert(digits.begin(), '1');
            ++pointPos;
        }
    }
    intDigits = digits.substr(0, pointPos);
    fracDigits = digits.substr(pointPos);
    // Strip leading zeros of the integer part.
    const auto nz = intDigits.find_first_not_of('0');
    intDigits = nz == std::string::npos ? std::string() : intDigits.substr(nz);
}

}  // namespace

std::string FormatLocal(double x, std::string_view pattern, char decimalSeparator) {
    if (std::isnan(x)) throw ArithmeticFault(FaultNumber::InvalidCall, kInvalidCall);
    if (std::isinf(x)) throw ArithmeticFault(FaultNumber::Overflow, kOverflow);
    const Pattern p = ParsePattern(pattern);
    std::string intDigits, fracDigits;
    RoundedDigits(x, p.decimals, intDigits, fracDigits);
    if (static_cast<int>(intDigits.size()) < p.minInt)
        intDigits.insert(0, p.minInt - intDigits.size(), '0');
    if (p.grouping) {
        for (int k = static_cast<int>(intDigits.size()) - 3; k > 0; k -= 3)
            intDigits.insert(k, ",");
    }
    std::string out = intDigits;
    if (p.decimals > 0) {
        out.push_back(decimalSeparator);
        out += fracDigits;
    }
    const bool allZero = (intDigits + fracDigits).find_first_not_of("0,") == std::string::npos;
    if (x < 0 && !allZero) out.insert(0, "-");
    return out;
}

std::string Format(double x, std::string_view pattern) {
    return FormatLocal(x, pattern, '.');
}

}  // namespace norvo
