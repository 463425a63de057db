#include "widgets/command_boundary.h"

#include <QCoreApplication>
#include <QtGlobal>
#include <exception>
#include <set>
#include <string>

#include "base/error_report.h"
#include "base/settings_store.h"
#include "data/data_store.h"
#include "data/store_routines.h"

namespace norvo::gui {

namespace {

DialogService* programDialogs = nullptr;
// Texts of the notices posted by ShowFailureNoticeLater and not shown yet.
std::set<std::string> waitingNotices;

}  // namespace

UserNotice StoreErrorNotice(const StoreError& error) {
    if (error.access() == StoreAccess::Save)
        return {kFileSaveError, kAppTitle, Buttons::Ok, Icon::Warning};
    return {kCorruptedOrWrongFormat, kInvalidDataTitle, Buttons::Ok, Icon::Warning};
}

UserNotice CurrentFailureNotice() {
    try {
        throw;
    } catch (const StoreError& e) {
        return StoreErrorNotice(e);
    } catch (...) {
        return DefectReport(DescribeCurrentFailure());
    }
}

void ShowFailureNotice(DialogService* dialogs, const UserNotice& notice) {
    if (dialogs) {
        try {
            dialogs->notify(notice);
            return;
        } catch (...) {
            // The dialogs failed as well: the error stream is all that is left.
        }
    }
    qCritical("%s: %s", notice.title.c_str(), notice.text.c_str());
}

void ShowFailureNoticeLater(const UserNotice& notice) {
    auto* app = QCoreApplication::instance();
    if (!app) {
        ShowFailureNotice(programDialogs, notice);
        return;
    }
    if (!waitingNotices.insert(notice.text).second) return;
    QMetaObject::invokeMethod(
        app,
        [notice] {
            waitingNotices.erase(notice.text);
            ShowFailureNotice(programDialogs, notice);
        },
        Qt::QueuedConnection);
}

bool RunCommand(DialogService& dialogs, const std::function<void()>& command) {
    try {
        command();
        return true;
    } catch (...) {
        ShowFailureNotice(&dialogs, CurrentFailureNotice());
    }
    return false;
}

bool RunCommand(const std::function<void()>& command) {
    try {
        command();
        return true;
    } catch (...) {
        ShowFailureNotice(programDialogs, CurrentFailureNotice());
    }
    return false;
}

bool RunPainting(const std::function<void()>& paint) {
    try {
        paint();
        return true;
    } catch (...) {
        ShowFailureNoticeLater(CurrentFailureNotice());
    }
    return false;
}

void SetProgramDialogs(DialogService* dialogs) {
    programDialogs = dialogs;
}

DialogService* ProgramDialogs() {
    return programDialogs;
}

}  // namespace norvo::gui
