#pragma once
// The one boundary every command of the program runs through. A typed fault (arithmetic,
// subscript, conversion) or any other failure ends the command with the "Programming
// Defect..." report; a store error ends it with a notice that names what was not done. Either
// way the program carries on with every window and its unsaved work intact.
//
//     connect(button, &QPushButton::clicked, this, Guarded(ctx_.dialogs, [this] { compute(); }));
#include <functional>
#include <utility>

#include "base/user_notice.h"

namespace norvo::gui {

// Runs a command. True when it ran to its end; false when a failure ended it (the report or
// the notice has been shown).
bool RunCommand(DialogService& dialogs, const std::function<void()>& command);

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

}  // namespace norvo::gui
