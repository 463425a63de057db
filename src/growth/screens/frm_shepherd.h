#pragma once
// The Shepherd screen: a grouped length-frequency file scored by Shepherd's method over K at
// one Loo (K Scan) or over ranges of K and Loo (Response Surface). It holds what its tabs share
// and runs their commands.
#include <QWidget>
#include <array>
#include <functional>
#include <string>

#include "growth/screens/shepherd_shared.h"

class QProgressBar;
class QPushButton;
class QTabWidget;

namespace norvo::gui {

class ElefanGeneralPage;
class ShepherdKScanPage;
class ShepherdSurfacePage;

inline constexpr const char* kShepherdCaption = "Shepherd's Method...";
inline constexpr const char* kShepherdOpenTitle = "Open...";
inline constexpr const char* kShepherdLfqFilter =
    "Grouped frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*";

class FrmShepherd : public QWidget, private RunHost {
  public:
    FrmShepherd(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmShepherd() override;

    // Reads the file, fills the General tab and the defaults.
    void Initialize(const std::string& path);
    void ReadDefaultsShepherd();
    // The command buttons by index: 0 run, 1 report, 2 close, 3 open, 4 plot.
    void cmdShepherd(int index);

    QTabWidget* tabs() const { return tabs_; }
    ElefanGeneralPage* general() const { return general_; }
    ShepherdKScanPage* kscan() const { return kscan_; }
    ShepherdSurfacePage* surface() const { return surface_; }
    QPushButton* button(int i) const { return cmd_[static_cast<size_t>(i)]; }
    bool running() const { return running_; }
    // Run on every step of a run (tests use it to cancel midway).
    std::function<void()> onStep;
    void requestCancel() { cancelRequested_ = true; }

  private:
    enum Tab { kGeneral = 0, kKScanTab = 1, kSurfaceTab = 2 };

    void openCommand();
    void closeCommand();
    void step();
    // RunHost
    void beginRun() override;
    void endRun() override;
    void showProgress(int done, int total) override;
    bool cancelRequested() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    ShellContext& ctx_;
    ShepherdShared shared_;
    bool running_ = false;
    bool cancelRequested_ = false;

    QTabWidget* tabs_ = nullptr;
    ElefanGeneralPage* general_ = nullptr;
    ShepherdKScanPage* kscan_ = nullptr;
    ShepherdSurfacePage* surface_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QPushButton* cancel_ = nullptr;
    std::array<QPushButton*, 5> cmd_{};
};

}  // namespace norvo::gui
