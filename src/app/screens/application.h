#pragma once
// The program's application object and its start. Its notify() is the last resort behind the
// command boundary: a failure that escapes an event handler is reported with the program's
// dialogs once the event is done, and the program carries on with every window open.
#include <QApplication>

namespace norvo::gui {

// The start of the warning logged for each failure that reaches the last resort; the warning
// goes on with the report's text and, in brackets, the object names from the receiver up.
inline constexpr const char* kEscapedFailureLog = "A failure escaped its handler";

class Application : public QApplication {
    Q_OBJECT
  public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    // How many failures reached the last resort so far.
    int escapedFailures() const { return escaped_; }

  private:
    int escaped_ = 0;
};

// Starts the program: splash, main window, event loop. Returns the process exit code.
int RunApplication(int argc, char** argv);

}  // namespace norvo::gui
