#include "numerics/text_convert.h"

#include <charconv>
#include <clocale>
#include <optional>
#include <string>

#include "base/basic.h"
#include "base/checked.h"
#include "base/fault.h"

namespace norvo {
namespace {

std::optional<char> g_separator;

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Converts text to double or raises the conversion fault; empty or blank text gives 0.
double ConvertOrFault(std::string_view text) {
    bool blank = true;
    for (char c : text) {
        if (!IsBlank(c)) blank = false;
    }
    if (blank) return 0.0;
    double v = 0.0;
    if (!ParseNumber(text, v)) throw ConversionFault();
    return v;
}

}  // namespace

char DecimalSeparator() {
    if (g_separator) return *g_separator;
    const std::lconv* lc = std::localeconv();
    if (lc != nullptr && lc->decimal_point != nullptr && lc->decimal_point[0] != '\0') {
        return lc->decimal_point[0];
    }
    return '.';
}

void SetDecimalSeparator(char separator) {
    g_separator = separator;
}

void ResetDecimalSeparator() {
    g_separator.reset();
}

bool ParseNumber(std::string_view text, double& value) {
    const char sep = DecimalSeparator();
    size_t i = 0;
    size_t end = text.size();
    while (i < end && IsBlank(text[i])) ++i;
    while (end > i && IsBlank(text[end - 1])) --end;
    // Rebuild the number in the form that from_chars reads: sign, digits, '.', exponent.
    std::string plain;
    bool negative = false;
    if (i < end && (text[i] == '+' || text[i] == '-')) {
        negative = text[i] == '-';
        ++i;
    }
    int digits = 0;
    while (i < end && IsDigit(text[i])) {
        plain += text[i++];
        ++digits;
    }
    if (i < end && text[i] == sep) {
        plain += '.';
        ++i;
        while (i < end && IsDigit(text[i])) {
            plain += text[i++];
            ++digits;
        }
    }
    if (digits == 0) return false;
    if (plain.front() == '.') plain.insert(plain.begin(), '0');
    if (plain.back() == '.') plain += '0';
    if (i < end && (text[i] == 'e' || text[i] == 'E' || text[i] == 'd' || text[i] == 'D')) {
        plain += 'e';
        ++i;
        if (i < end && (text[i] == '+' || text[i] == '-')) plain += text[i++];
        int expDigits = 0;
        while (i < end && IsDigit(text[i])) {
            plain += text[i++];
            ++expDigits;
        }
        if (expDigits == 0) return false;
    }
    if (i != end) return false;
    double v = 0.0;
    const auto res = std::from_chars(plain.data(), plain.data() + plain.size(), v);
    if (res.ec == std::errc::result_out_of_range) {
        // Too small underflows to 0; too large is an overflow.
        const auto e = plain.find('e');
        if (e != std::string::npos && plain[e + 1] == '-') {
            v = 0.0;
        } else {
            ThrowOverflow();
        }
    } else if (res.ec != std::errc{} || res.ptr != plain.data() + plain.size()) {
        return false;
    }
    value = negative ? -v : v;
    return true;
}

int16_t TextToInteger(std::string_view text) {
    return CInt(ConvertOrFault(text));
}

int32_t TextToLong(std::string_view text) {
    return CLng(ConvertOrFault(text));
}

float TextToSingle(std::string_view text) {
    return R4(ConvertOrFault(text));
}

double TextToDouble(std::string_view text) {
    return CheckFinite(ConvertOrFault(text));
}

}  // namespace norvo
