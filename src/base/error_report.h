#pragma once
// The run-time error report of the main window's screen-opening commands: one critical box
// naming the failure's description, source and number, after which the program carries on.
#include <exception>
#include <string>

#include "base/user_notice.h"

namespace norvo {

inline constexpr const char* kDefectTitle = "Programming Defect...";
inline constexpr const char* kDefectContact = "the Norvo II development team";

// Number and source given to failures that are not arithmetic faults.
inline constexpr int kInternalErrorNumber = 51;
inline constexpr int kOutOfMemoryNumber = 7;
inline constexpr const char* kDefectSource = "Norvo II";

struct FailureInfo {
    std::string description;
    std::string source;
    int number = 0;
};

// Description, source and number of a failure: a Fault keeps its own; a memory shortage is
// number 7 "Out of memory"; any other exception is number 51 with its own message.
FailureInfo DescribeFailure(const std::exception& e);
// The same for the exception being handled (call inside a catch block); non-standard
// exceptions become number 51 "Internal error".
FailureInfo DescribeCurrentFailure();

// "Programming defect detected. <description> (Source:<source>; Number:<n>). Please notify the
// developer: <contact>. "
std::string DefectReportText(const FailureInfo& failure);

// The report as a notice: critical icon, title "Programming Defect...", the text above.
UserNotice DefectReport(const FailureInfo& failure);
// Shows the report.
void ReportDefect(DialogService& dialogs, const FailureInfo& failure);

}  // namespace norvo
