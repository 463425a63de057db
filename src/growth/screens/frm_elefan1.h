#pragma once
// The ELEFAN I screen: a grouped length-frequency file turned into growth parameters by a
// K-scan, a response surface or an automatic search, one tab each. The screen holds what the
// tabs share (the file, its scores, the parameters in force) and runs their commands.
#include <QWidget>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "growth/screens/elefan_shared.h"
#include "growth/screens/tabbed_run_screen.h"
#include "widgets/shell_context.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QTabWidget;
class QTableWidget;

namespace norvo::gui {

class ElefanGeneralPage;
class ElefanKScanPage;
class ElefanSurfacePage;
class ElefanSearchPage;

inline constexpr const char* kElefanCaptionPrefix = "ELEFAN I [";
inline constexpr const char* kElefanCaptionSuffix = "]...";
inline constexpr const char* kElefanCaptionEmpty = "ELEFAN I";
inline constexpr const char* kTabGeneral = "&General";
inline constexpr const char* kTabKScan = "&K Scan";
inline constexpr const char* kTabSurface = "Response &Surface";
inline constexpr const char* kTabSearch = "&Automatic Search";
inline constexpr const char* kOpenTitle = "Open";
inline constexpr const char* kLfqFilter =
    "Length-frequency files (*.lfq)|*.lfq|All files (*.*)|*.*";

class FrmElefan1 : public TabbedRunScreen {
  public:
    using ScorerFactory = std::function<std::unique_ptr<ElefanFileScorer>(const LfqData&)>;

    FrmElefan1(ShellContext& ctx, QWidget* parent = nullptr,
               ScorerFactory factory = MakeElefanScorer);
    ~FrmElefan1() override;

    // Reads the file, restructures it, proposes a starting point and fills the lists.
    void Initialize(const std::string& path);
    // The fields' defaults for the file loaded (those of an empty file before one).
    void ReadDefaultsELEFAN();
    // The command buttons by index: 0 run, 1 report, 2 close, 3 open, 4 plot.
    void cmdELEFAN1(int index);
    // The trend line over the K-scan with the scroll bar's span.
    void KScanSmooth();
    // A finer surface over the surface's ranges, n x n.
    void ComputeFinerSurface(int n);

    // The controls by their classic names and indices, for tests.
    QLineEdit* txtLoo(int i) const { return txtLoo_[static_cast<size_t>(i)]; }
    QLineEdit* txtK(int i) const { return txtK_[static_cast<size_t>(i)]; }
    QLineEdit* txtC(int i) const { return txtC_[static_cast<size_t>(i)]; }
    QLineEdit* txtWP(int i) const { return txtWP_[static_cast<size_t>(i)]; }
    QLineEdit* txtELEFAN1(int i) const { return txtElefan_[static_cast<size_t>(i)]; }
    QComboBox* txtSS() const;
    QComboBox* txtSL() const;
    QComboBox* txtSS2() const;
    QComboBox* txtSL2() const;
    QComboBox* sSample() const;
    QComboBox* sLength() const;
    QCheckBox* chkSP() const;
    QCheckBox* chkELEFAN1() const;
    QScrollBar* hscrELEFAN1() const;
    QRadioButton* optSearch(int i) const;
    QTableWidget* grdELEFAN1() const;
    QTableWidget* spdSearch() const;
    const ChartCanvas& kscanCanvas() const;
    const ChartCanvas& surfaceCanvas() const;
    const std::optional<KScanResult>& kscanResult() const;
    const GrowthParams& state() const { return shared_.state; }

  private:
    enum Tab { kGeneral = 0, kKScanTab = 1, kSurfaceTab = 2, kSearchTab = 3 };

    void setCaption();
    void computeCommand();
    void openCommand();
    void reportCommand();
    void plotCommand();

    ShellContext& ctx_;
    ScorerFactory factory_;
    ElefanShared shared_;
    std::string path_;

    ElefanGeneralPage* general_ = nullptr;
    ElefanKScanPage* kscan_ = nullptr;
    ElefanSurfacePage* surface_ = nullptr;
    ElefanSearchPage* search_ = nullptr;
    // The classic control arrays over the pages' fields.
    std::array<QLineEdit*, 5> txtLoo_{};
    std::array<QLineEdit*, 4> txtK_{};
    std::array<QLineEdit*, 5> txtC_{};
    std::array<QLineEdit*, 5> txtWP_{};
    std::array<QLineEdit*, 20> txtElefan_{};
};

}  // namespace norvo::gui
