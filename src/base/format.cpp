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
        digits.insert(digits.begin(), static_cast<size_t>(-pointPos + 1), '0');
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
        intDigits.insert(intDigits.begin(), p.minInt - intDigits.size(), '0');
    const bool allZero = intDigits.find_first_not_of('0') == std::string::npos &&
                         fracDigits.find_first_not_of('0') == std::string::npos;
    // The result is built front to back: inserting a literal at the front trips a false
    // overlap warning of GCC 12 at -O3.
    std::string out;
    out.reserve(intDigits.size() + intDigits.size() / 3 + fracDigits.size() + 2);
    if (x < 0 && !allZero) out.push_back('-');
    for (size_t k = 0; k < intDigits.size(); ++k) {
        const size_t left = intDigits.size() - k;  // digits from here to the point
        if (p.grouping && k > 0 && left % 3 == 0) out.push_back(',');
        out.push_back(intDigits[k]);
    }
    if (p.decimals > 0) {
        out.push_back(decimalSeparator);
        out.append(fracDigits);
    }
    return out;
}

std::string Format(double x, std::string_view pattern) {
    return FormatLocal(x, pattern, '.');
}

std::string FormatSingle(float x) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.7g", static_cast<double>(x));
    return buf;
}

}  // namespace norvo
