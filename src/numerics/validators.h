#pragma once
// Input checks shared by the screens. The checks that complain show their message through the
// dialog service (exclamation icon) and return false; the screen then keeps the focus where it
// is and computes nothing.
#include <cstdint>
#include <string>
#include <string_view>

#include "base/user_notice.h"

namespace norvo {

inline constexpr const char* kInvalidNumber = "Invalid number";
// Title of the notices shown by the validators.
inline constexpr const char* kValidatorTitle = "Norvo II";

// An input field as the validators see it. Screens wrap their line edits in this (see
// numerics/screens/line_edit_box.h).
class TextBox {
  public:
    virtual ~TextBox() = default;
    virtual std::string text() const = 0;
    virtual void setText(const std::string& text) = 0;
    virtual void setFocus() {}
};

// A plain text box for tests and headless callers.
class PlainTextBox : public TextBox {
  public:
    explicit PlainTextBox(std::string text = {}) : text_(std::move(text)) {}
    std::string text() const override { return text_; }
    void setText(const std::string& text) override { text_ = text; }
    void setFocus() override { ++focusCount; }
    int focusCount = 0;

  private:
    std::string text_;
};

// Every character is the decimal separator or one of "0123456789-+", and the separator occurs
// at most once. Signs may stand anywhere ("1-2" passes); an empty text passes.
bool IsNumericText(std::string_view text);
// Within 1e-7 of a whole number.
bool IsWholeValue(double x);
// low <= x <= high, both ends included.
bool InRange(float x, float low, float high);
bool InRange(double x, double low, double high);
float Clamp(float x, float low, float high);
double Clamp(double x, double low, double high);

// The text is numeric and its value lies in [low, high]; otherwise `message` is shown.
bool ValidateReal(std::string_view text, double low, double high, const std::string& message,
                  DialogService& dialogs);
// As ValidateReal, and the value must be whole.
bool ValidateWhole(std::string_view text, double low, double high, const std::string& message,
                   DialogService& dialogs);
// ValidateReal on the text of a field.
bool ValidateBox(const TextBox& box, double low, double high, const std::string& message,
                 DialogService& dialogs);
// A numeric field gets its value clamped into [low, high] and written back formatted by
// `format` ("0.000"); anything else shows "Invalid number", returns the focus to the field and
// gives false. An empty field counts as not numeric here.
bool ValidateClamp(TextBox& box, double low, double high, std::string_view format,
                   DialogService& dialogs);

}  // namespace norvo
