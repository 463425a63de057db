#pragma once

namespace norvo::gui {

// Starts the program: splash, main window, event loop. Returns the process exit code.
int RunApplication(int argc, char** argv);

}  // namespace norvo::gui
