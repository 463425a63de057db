#pragma once
// The Shepherd screen: a grouped length-frequency file scored by Shepherd's method over K at
// one Loo (K Scan) or over ranges of K and Loo (Response Surface). It holds what its tabs share
// and runs their commands.
#include <QWidget>
#include <string>

#include "growth/screens/shepherd_shared.h"
#include "growth/screens/tabbed_run_screen.h"

namespace norvo::gui {

class ElefanGeneralPage;
class ShepherdKScanPage;
class ShepherdSurfacePage;

inline constexpr const char* kShepherdCaption = "Shepherd's Method...";
inline constexpr const char* kShepherdOpenTitle = "Open...";
inline constexpr const char* kShepherdLfqFilter =
    "Grouped frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*";

class FrmShepherd : public TabbedRunScreen {
  public:
    FrmShepherd(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmShepherd() override;

    // Reads the file, fills the General tab and the defaults.
    void Initialize(const std::string& path);
    void ReadDefaultsShepherd();
    // The command buttons by index: 0 run, 1 report, 2 close, 3 open, 4 plot.
    void cmdShepherd(int index);

    ElefanGeneralPage* general() const { return general_; }
    ShepherdKScanPage* kscan() const { return kscan_; }
    ShepherdSurfacePage* surface() const { return surface_; }

  private:
    enum Tab { kGeneral = 0, kKScanTab = 1, kSurfaceTab = 2 };

    void openCommand();

    ShellContext& ctx_;
    ShepherdShared shared_;

    ElefanGeneralPage* general_ = nullptr;
    ShepherdKScanPage* kscan_ = nullptr;
    ShepherdSurfacePage* surface_ = nullptr;
};

}  // namespace norvo::gui
