#include "base/error_report.h"

#include <gtest/gtest.h>

#include "base/checked.h"
#include "support/scripted_dialogs.h"

namespace norvo {
namespace {

TEST(ErrorReport, TextFromAnArithmeticFault) {
    try {
        Div(1.0, 0.0);
        FAIL();
    } catch (const std::exception& e) {
        EXPECT_EQ(DefectReportText(DescribeFailure(e)),
                  "Programming defect detected. Division by zero (Source:Norvo II; Number:11). "
                  "Please notify the developer: the Norvo II development team. ");
    }
}

TEST(ErrorReport, OtherFailures) {
    const FailureInfo other = DescribeFailure(std::runtime_error("bad state"));
    EXPECT_EQ(other.description, "bad state");
    EXPECT_EQ(other.number, 51);
    EXPECT_EQ(DescribeFailure(std::bad_alloc()).number, 7);
    const FailureInfo subscript = DescribeFailure(SubscriptFault("frmELEFAN1"));
    EXPECT_EQ(subscript.source, "frmELEFAN1");
    EXPECT_EQ(subscript.number, 9);

    FailureInfo unknown;
    try {
        throw 42;
    } catch (...) {
        unknown = DescribeCurrentFailure();
    }
    EXPECT_EQ(unknown.number, 51);
    EXPECT_EQ(unknown.description, "Internal error");
}

TEST(ErrorReport, ShownAsOneCriticalBox) {
    ScriptedDialogs d;
    ReportDefect(d, {"Overflow", "Norvo II", 6});
    ASSERT_EQ(d.shown.size(), 1u);
    EXPECT_EQ(d.last().title, "Programming Defect...");
    EXPECT_EQ(d.last().icon, Icon::Critical);
    EXPECT_EQ(d.last().buttons, Buttons::Ok);
}

}  // namespace
}  // namespace norvo
