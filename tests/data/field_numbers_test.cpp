#include "data/field_numbers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/fault.h"

namespace norvo {
namespace {

TEST(FieldNumbers, VariantValues) {
    EXPECT_EQ(VariantToSingle(FieldValue{}), 0.0f);
    EXPECT_EQ(VariantToSingle(FieldValue{std::string()}), 0.0f);
    EXPECT_EQ(VariantToSingle(FieldValue{std::string("2.5")}), 2.5f);
    EXPECT_EQ(VariantToSingle(FieldValue{int64_t{7}}), 7.0f);
    EXPECT_EQ(VariantToSingle(FieldValue{0.1}), 0.1f);
    EXPECT_THROW(VariantToSingle(FieldValue{std::string("x")}), ConversionFault);
}

TEST(FieldNumbers, FieldValuesWithNullsAndText) {
    const std::vector<FieldValue> v = {FieldValue{int64_t{2}}, FieldValue{},
                                       FieldValue{std::string("1.5")}, FieldValue{0.25}};
    EXPECT_EQ(ArraySum(v, 0, 0), 3.75);
    EXPECT_EQ(ArraySum(v, 3, 1), 1.5);
    EXPECT_EQ(ArraySum(std::vector<FieldValue>{}, 0, 0), 0.0);
}

}  // namespace
}  // namespace norvo
