#include "numerics/validators.h"

#include <cmath>

#include "base/fault.h"
#include "base/format.h"
#include "numerics/text_convert.h"

namespace norvo {
namespace {

void Complain(const std::string& message, DialogService& dialogs) {
    dialogs.notify({message, kValidatorTitle, Buttons::Ok, Icon::Warning});
}

// The value of a text that passed IsNumericText. Such a text may still not be a number ("1-2",
// "."), and then the check fails instead of raising the conversion fault.
bool ValueOf(std::string_view text, double& value) {
    if (text.empty()) {
        value = 0.0;
        return true;
    }
    try {
        return ParseNumber(text, value);
    } catch (const Fault&) {
        return false;  // beyond the range of a double
    }
}

}  // namespace

bool IsNumericText(std::string_view text) {
    const char sep = DecimalSeparator();
    int separators = 0;
    for (char c : text) {
        if (c == sep) {
            if (++separators > 1) return false;
        } else if (!((c >= '0' && c <= '9') || c == '-' || c == '+')) {
            return false;
        }
    }
    return true;
}

bool IsWholeValue(double x) {
    return std::fabs(x - std::nearbyint(x)) <= 1e-7;
}

bool InRange(float x, float low, float high) {
    return low <= x && x <= high;
}

bool InRange(double x, double low, double high) {
    return low <= x && x <= high;
}

float Clamp(float x, float low, float high) {
    if (x < low) return low;
    if (x > high) return high;
    return x;
}

double Clamp(double x, double low, double high) {
    if (x < low) return low;
    if (x > high) return high;
    return x;
}

bool ValidateReal(std::string_view text, double low, double high, const std::string& message,
                  DialogService& dialogs) {
    double v = 0.0;
    if (IsNumericText(text) && ValueOf(text, v) && InRange(v, low, high)) return true;
    Complain(message, dialogs);
    return false;
}

bool ValidateWhole(std::string_view text, double low, double high, const std::string& message,
                   DialogService& dialogs) {
    double v = 0.0;
    if (IsNumericText(text) && ValueOf(text, v) && InRange(v, low, high) && IsWholeValue(v)) {
        return true;
    }
    Complain(message, dialogs);
    return false;
}

bool ValidateBox(const TextBox& box, double low, double high, const std::string& message,
                 DialogService& dialogs) {
    return ValidateReal(box.text(), low, high, message, dialogs);
}

bool ValidateClamp(TextBox& box, double low, double high, std::string_view format,
                   DialogService& dialogs) {
    const std::string text = box.text();
    double v = 0.0;
    if (!text.empty() && IsNumericText(text) && ValueOf(text, v)) {
        box.setText(FormatLocal(Clamp(v, low, high), format, DecimalSeparator()));
        return true;
    }
    Complain(kInvalidNumber, dialogs);
    box.setFocus();
    return false;
}

}  // namespace norvo
