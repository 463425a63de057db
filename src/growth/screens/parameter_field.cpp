#include "growth/screens/parameter_field.h"

#include "base/fault.h"
#include "widgets/number_box.h"

namespace norvo::gui {
namespace {

template <class Box>
std::optional<double> NumberOrNothing(const Box* box) {
    try {
        return BoxNumber(box);
    } catch (const Fault&) {
        return std::nullopt;
    }
}

}  // namespace

std::optional<double> ParameterNumber(const QLineEdit* field) {
    return NumberOrNothing(field);
}

std::optional<double> ParameterNumber(const QComboBox* list) {
    return NumberOrNothing(list);
}

}  // namespace norvo::gui
