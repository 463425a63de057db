#pragma once
// The frame of a screen whose tabs run long searches (ELEFAN I, Shepherd): the tabs, the row of
// five command buttons (0 run, 1 report, 2 close, 3 open, 4 plot), and the screen's side of a
// run: busy while it lasts, a progress bar, Cancel, and no closing of the window under it.
#include <QWidget>
#include <array>
#include <functional>

#include "growth/screens/elefan_shared.h"

class QProgressBar;
class QPushButton;
class QTabWidget;
class QVBoxLayout;

namespace norvo::gui {

inline constexpr const char* kCmdCompute = "&Compute";
inline constexpr const char* kCmdReport = "&Report";
inline constexpr const char* kCmdClose = "&Close";
inline constexpr const char* kCmdOpen = "&Open...";
inline constexpr const char* kCmdPlot = "P&lot";
inline constexpr const char* kCmdCancel = "Cancel";

class TabbedRunScreen : public QWidget, protected RunHost {
  public:
    QTabWidget* tabs() const { return tabs_; }
    QPushButton* button(int i) const { return cmd_[static_cast<size_t>(i)]; }
    bool running() const { return running_; }
    void requestCancel() { cancelRequested_ = true; }
    // Run on every step of a run (tests use it to cancel midway).
    std::function<void()> onStep;

  protected:
    TabbedRunScreen(DialogService& dialogs, QWidget* parent);

    // Adds the command buttons ("<namePrefix>_<index>", each calling `command` with its index),
    // the progress bar and Cancel under the tabs. Plot is off on the General tab (the first).
    void addCommandRow(const QString& namePrefix, std::function<void(int)> command);

    void beginRun() override;
    void endRun() override;
    void showProgress(int done, int total) override;
    bool cancelRequested() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    // Closes the screen's MDI window, or the screen itself when it stands alone.
    void closeCommand();

    QTabWidget* tabs_ = nullptr;
    std::array<QPushButton*, 5> cmd_{};

  private:
    void step();
    void enablePlot();

    DialogService& dialogs_;
    QVBoxLayout* layout_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QPushButton* cancel_ = nullptr;
    bool running_ = false;
    bool cancelRequested_ = false;
};

}  // namespace norvo::gui
