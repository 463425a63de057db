#pragma once
// Numbers in text boxes, read and shown in the user's locale: the one place where a screen turns
// a box's text into a number or a number into a box's text. Files and settings never go through
// here; they stay locale-free.
#include <QString>
#include <optional>
#include <string_view>

class QComboBox;
class QLineEdit;

namespace norvo::gui {

// The number in a text: blanks around it ignored, an empty text is 0 (the classic rule), the
// locale's decimal separator; nothing when the text is not a number (one beyond the range of a
// double included).
std::optional<double> ParseBoxText(const QString& text);
std::optional<double> BoxNumber(const QLineEdit* box);
std::optional<double> BoxNumber(const QComboBox* box);
// The number in a text that must hold one: NaN when it is blank or not a number, so that a
// check that wants finite values refuses it.
double NumberOrNaN(const QString& text);
double NumberOrNaN(const QLineEdit* box);

// The number in a box where any text must be a number: text that is not one is a
// ConversionFault, as the classic conversion raises. Single stores round to 32 bits.
double BoxDouble(const QLineEdit* box);
float BoxSingle(const QLineEdit* box);
float BoxSingle(const QComboBox* box);

// A value in a display pattern ("0.00", "#0.000") with the locale's decimal separator.
QString NumberText(double value, std::string_view pattern);
void SetBoxNumber(QLineEdit* box, double value, std::string_view pattern);
// A stored 32-bit value in its shortest form (at most 7 significant digits), with the locale's
// decimal separator.
QString SingleText(float value);

}  // namespace norvo::gui
