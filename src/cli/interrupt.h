#pragma once
// Ctrl-C and progress for the long runs of norvo-cli. SIGINT only sets a flag, which the run's
// cancel check reads, so the engine stops between two steps and nothing is half written; a
// second Ctrl-C ends the process at once. Progress goes to stderr, and only to a terminal, so
// that piped output and JSON stay clean.
#include <exception>
#include <string>

namespace norvo::cli {

inline constexpr int kExitStopped = 130;  // Ctrl-C, as a shell reports a process it interrupted
inline constexpr const char* kStoppedText = "Stopped by the user; nothing was written.";

// Ctrl-C ended a long run through its cancel path: exit 130, nothing written.
struct Stopped : std::exception {
    const char* what() const noexcept override { return kStoppedText; }
};

// Sets the SIGINT handler. Called once, before the command runs.
void InstallInterruptFlag();
// True once Ctrl-C has been pressed.
bool Interrupted();
// Sets or clears the flag as SIGINT would (for the tests' sake).
void SetInterrupted(bool interrupted);

// One line of progress on stderr, rewritten in place: "K-scan: 37 of 190 (19 %)". Shows
// nothing unless stderr is a terminal; the line is cleared when the object goes.
class ProgressLine {
  public:
    explicit ProgressLine(std::string label);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    void show(int done, int total);

  private:
    std::string label_;
    bool terminal_;
    bool shown_ = false;
    int lastPercent_ = -1;
};

}  // namespace norvo::cli
