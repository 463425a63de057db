#include "data/field_numbers.h"

#include <string>
#include <variant>
#include <vector>

#include "base/checked.h"
#include "numerics/series.h"
#include "numerics/text_convert.h"

namespace norvo {

double VariantToDouble(const FieldValue& value) {
    if (const auto* i = std::get_if<int64_t>(&value)) return static_cast<double>(*i);
    if (const auto* d = std::get_if<double>(&value)) return CheckFinite(*d);
    if (const auto* s = std::get_if<std::string>(&value)) return TextToDouble(*s);
    return 0.0;
}

float VariantToSingle(const FieldValue& value) {
    return R4(VariantToDouble(value));
}

double ArraySum(std::span<const FieldValue> values, int32_t from, int32_t count) {
    std::vector<double> numbers;
    numbers.reserve(values.size());
    for (const auto& v : values) numbers.push_back(VariantToDouble(v));
    return ArraySum(std::span<const double>(numbers), from, count);
}

}  // namespace norvo
