#include "widgets/command_boundary.h"

#include <exception>

#include "base/error_report.h"
#include "base/settings_store.h"
#include "data/data_store.h"
#include "data/store_routines.h"

namespace norvo::gui {

bool RunCommand(DialogService& dialogs, const std::function<void()>& command) {
    try {
        command();
        return true;
    } catch (const StoreError&) {
        dialogs.notify({kFileSaveError, kAppTitle, Buttons::Ok, Icon::Warning});
    } catch (...) {
        ReportDefect(dialogs, DescribeCurrentFailure());
    }
    return false;
}

}  // namespace norvo::gui
