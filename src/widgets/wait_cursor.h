#pragma once
// The wait cursor for the life of the object, put back however the scope is left.
#include <QApplication>

namespace norvo::gui {

struct WaitCursor {
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace norvo::gui
