#include "numerics/validators.h"

#include <gtest/gtest.h>

#include "numerics/text_convert.h"
#include "support/scripted_dialogs.h"

namespace norvo {
namespace {

class Validators : public ::testing::Test {
  protected:
    void SetUp() override { SetDecimalSeparator('.'); }
    void TearDown() override { ResetDecimalSeparator(); }
    ScriptedDialogs dialogs;
};

TEST_F(Validators, NumericTextFollowsTheLocaleSeparator) {
    EXPECT_TRUE(IsNumericText(""));
    EXPECT_TRUE(IsNumericText("12.5"));
    EXPECT_TRUE(IsNumericText("1-2"));  // signs are not placed
    EXPECT_FALSE(IsNumericText("1,5"));
    EXPECT_FALSE(IsNumericText("1.2.3"));
    EXPECT_FALSE(IsNumericText(" 1"));
    EXPECT_FALSE(IsNumericText("1e3"));
    SetDecimalSeparator(',');
    EXPECT_TRUE(IsNumericText("1,5"));
    EXPECT_FALSE(IsNumericText("1.5"));
}

TEST_F(Validators, RangesAndWholeValues) {
    EXPECT_TRUE(InRange(0.25f, 0.25f, 999.0f));
    EXPECT_TRUE(InRange(999.0, 0.25, 999.0));
    EXPECT_FALSE(InRange(0.2499f, 0.25f, 999.0f));
    EXPECT_EQ(Clamp(5.0, 1.0, 3.0), 3.0);
    EXPECT_EQ(Clamp(-5.0f, 1.0f, 3.0f), 1.0f);
    EXPECT_EQ(Clamp(2.0, 1.0, 3.0), 2.0);
    EXPECT_TRUE(IsWholeValue(3.00000005));
    EXPECT_TRUE(IsWholeValue(-2.0));
    EXPECT_FALSE(IsWholeValue(3.0000002));
    EXPECT_FALSE(IsWholeValue(2.5));
}

TEST_F(Validators, ValidateRealShowsTheMessageOnlyOnFailure) {
    const std::string msg = "The input for the class size is invalid. Please check input.";
    EXPECT_TRUE(ValidateReal("2.5", 0.25, 10, msg, dialogs));
    EXPECT_TRUE(ValidateReal("10", 0.25, 10, msg, dialogs));
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_FALSE(ValidateReal("10.01", 0.25, 10, msg, dialogs));
    EXPECT_FALSE(ValidateReal("1,5", 0.25, 10, msg, dialogs));
    EXPECT_FALSE(ValidateReal("1-2", 0.25, 10, msg, dialogs));  // passes the text test only
    EXPECT_FALSE(ValidateReal("", 0.25, 10, msg, dialogs));     // empty is 0
    ASSERT_EQ(dialogs.shown.size(), 4u);
    EXPECT_EQ(dialogs.last().text, msg);
    EXPECT_EQ(dialogs.last().icon, Icon::Warning);
    EXPECT_EQ(dialogs.last().buttons, Buttons::Ok);
}

TEST_F(Validators, ValidateWholeAndValidateBox) {
    EXPECT_TRUE(ValidateWhole("12", 1, 31, "bad", dialogs));
    EXPECT_FALSE(ValidateWhole("12.5", 1, 31, "bad", dialogs));
    PlainTextBox box("1000");
    EXPECT_FALSE(ValidateBox(box, 0.25, 999, "range", dialogs));
    box.setText("0.25");
    EXPECT_TRUE(ValidateBox(box, 0.25, 999, "range", dialogs));
    EXPECT_EQ(dialogs.shown.size(), 2u);
}

TEST_F(Validators, ValidateClampWritesBackOrSaysInvalidNumber) {
    PlainTextBox box("1.5");
    EXPECT_TRUE(ValidateClamp(box, 0.001, 0.999, "0.000", dialogs));
    EXPECT_EQ(box.text(), "0.999");
    box.setText("0.12345");
    EXPECT_TRUE(ValidateClamp(box, 0.001, 0.999, "0.000", dialogs));
    EXPECT_EQ(box.text(), "0.123");
    EXPECT_TRUE(dialogs.shown.empty());
    box.setText("abc");
    EXPECT_FALSE(ValidateClamp(box, 0.001, 0.999, "0.000", dialogs));
    EXPECT_EQ(box.text(), "abc");
    EXPECT_EQ(box.focusCount, 1);
    EXPECT_EQ(dialogs.last().text, "Invalid number");
    SetDecimalSeparator(',');
    box.setText("0,5");
    EXPECT_TRUE(ValidateClamp(box, 0.001, 0.999, "0.000", dialogs));
    EXPECT_EQ(box.text(), "0,500");
}

}  // namespace
}  // namespace norvo
