#pragma once
// The one boundary every command of the program runs through. A typed fault (arithmetic,
// subscript, conversion) or any other failure ends the command with the "Programming
// Defect..." report; a store error ends it with a notice that says whether a save or a read
// failed. Either way the program carries on with every window and its unsaved work intact.
//
//     connect(button, &QPushButton::clicked, this, Guarded(ctx_.dialogs, [this] { compute(); }));
//
// Widgets that hold no dialogs of their own report to the program's dialogs, which the
// application sets at start; its last resort (Application::notify) reports there too.
#include <functional>
#include <utility>

#include "base/user_notice.h"

namespace norvo {
class StoreError;
}

namespace norvo::gui {

// Runs a command. True when it ran to its end; false when a failure ended it (the report or
// the notice has been shown).
bool RunCommand(DialogService& dialogs, const std::function<void()>& command);

// The same with the program's dialogs, for widgets that hold none.
bool RunCommand(const std::function<void()>& command);

// Runs painting work. A failure ends it and its report is shown once the current event is
// done, so that no box opens in the middle of a paint.
bool RunPainting(const std::function<void()>& paint);

namespace detail {
template <class F, class C, class R, class... A>
auto Guard(DialogService& dialogs, F f, R (C::*)(A...) const) {
    return [&dialogs, f = std::move(f)](A... args) {
        RunCommand(dialogs, [&] { f(std::forward<A>(args)...); });
    };
}
template <class F, class C, class R, class... A>
auto Guard(DialogService& dialogs, F f, R (C::*)(A...)) {
    return [&dialogs, f = std::move(f)](A... args) mutable {
        RunCommand(dialogs, [&] { f(std::forward<A>(args)...); });
    };
}
}  // namespace detail

// A handler that runs through RunCommand, with the same parameters as `f`, for connect().
template <class F>
auto Guarded(DialogService& dialogs, F f) {
    return detail::Guard(dialogs, std::move(f), &F::operator());
}

// The notice of a store error: a failed save says that the file was not saved, a failed read
// that the file is corrupted or of the wrong format.
UserNotice StoreErrorNotice(const StoreError& error);

// What the failure being handled ends its command with: the store error's notice or the
// "Programming Defect..." report. Call inside a catch block.
UserNotice CurrentFailureNotice();

// Shows a failure's notice now. A notice that cannot be shown (no dialogs, or dialogs that fail
// themselves) goes to the error stream; nothing leaves this function.
void ShowFailureNotice(DialogService* dialogs, const UserNotice& notice);

// Shows a failure's notice with the program's dialogs once the current event is done. The same
// notice waiting twice is shown once.
void ShowFailureNoticeLater(const UserNotice& notice);

// The program's dialogs (null: reports go to the error stream). The application sets them for
// its lifetime; tests set their own.
void SetProgramDialogs(DialogService* dialogs);
DialogService* ProgramDialogs();

}  // namespace norvo::gui
