#pragma once
// Numbers from record fields: a null field, or a text field that is empty, counts 0; other text
// is read as a typed number is (with the locale's decimal separator).
#include <cstdint>
#include <span>

#include "data/data_store.h"

namespace norvo {

double VariantToDouble(const FieldValue& value);
float VariantToSingle(const FieldValue& value);

// The sum of field values over positions `from`.. as ArraySum counts them.
double ArraySum(std::span<const FieldValue> values, int32_t from, int32_t count);

}  // namespace norvo
