#include "base/error_report.h"

#include <new>

#include "base/fault.h"

namespace norvo {

FailureInfo DescribeFailure(const std::exception& e) {
    if (const auto* f = dynamic_cast<const Fault*>(&e))
        return {f->description(), f->source(), f->number()};
    if (dynamic_cast<const std::bad_alloc*>(&e))
        return {"Out of memory", kDefectSource, kOutOfMemoryNumber};
    return {e.what(), kDefectSource, kInternalErrorNumber};
}

FailureInfo DescribeCurrentFailure() {
    try {
        throw;
    } catch (const std::exception& e) {
        return DescribeFailure(e);
    } catch (...) {
        return {"Internal error", kDefectSource, kInternalErrorNumber};
    }
}

std::string DefectReportText(const FailureInfo& f) {
    return "Programming defect detected. " + f.description + " (Source:" + f.source +
           "; Number:" + std::to_string(f.number) +
           "). Please notify the developer: " + kDefectContact + ". ";
}

UserNotice DefectReport(const FailureInfo& failure) {
    return {DefectReportText(failure), kDefectTitle, Buttons::Ok, Icon::Critical};
}

void ReportDefect(DialogService& dialogs, const FailureInfo& failure) {
    dialogs.notify(DefectReport(failure));
}

}  // namespace norvo
