#pragma once
// Reading a growth parameter from its field when the field may hold anything: the checks, not a
// fault, decide what happens to a text that is not a number.
#include <optional>

class QComboBox;
class QLineEdit;

namespace norvo::gui {

// The number in a field (an empty field is 0), or nothing when its text is not a number, a
// number beyond the range of a double included.
std::optional<double> ParameterNumber(const QLineEdit* field);
std::optional<double> ParameterNumber(const QComboBox* list);

}  // namespace norvo::gui
