#include "cli/interrupt.h"

#include <unistd.h>

#include <csignal>
#include <cstdio>

namespace norvo::cli {
namespace {

volatile std::sig_atomic_t g_interrupted = 0;

extern "C" void OnInterrupt(int) {
    g_interrupted = 1;
    std::signal(SIGINT, SIG_DFL);  // a second Ctrl-C is not ignored
}

}  // namespace

void InstallInterruptFlag() {
    std::signal(SIGINT, OnInterrupt);
}

bool Interrupted() {
    return g_interrupted != 0;
}

void SetInterrupted(bool interrupted) {
    g_interrupted = interrupted ? 1 : 0;
}

ProgressLine::ProgressLine(std::string label)
    : label_(std::move(label)), terminal_(isatty(STDERR_FILENO) == 1) {}

ProgressLine::~ProgressLine() {
    if (shown_) std::fputs("\r\033[K", stderr);
}

void ProgressLine::show(int done, int total) {
    if (!terminal_ || total <= 0) return;
    const int percent = static_cast<int>(100LL * done / total);
    if (percent == lastPercent_) return;
    lastPercent_ = percent;
    shown_ = true;
    std::fprintf(stderr, "\r%s: %d of %d (%d %%)", label_.c_str(), done, total, percent);
    std::fflush(stderr);
}

}  // namespace norvo::cli
