#pragma once
// The ELEFAN I screen: a grouped length-frequency file turned into growth parameters by a
// K-scan, a response surface or an automatic search.
#include <QWidget>
#include <array>
#include <functional>
#include <memory>
#include <optional>

#include "chart/chart_canvas.h"
#include "growth/elefan_search.h"
#include "growth/elefan_search_engine.h"
#include "widgets/shell_context.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QSpinBox;
class QTabWidget;
class QTableWidget;

namespace norvo::gui {

inline constexpr const char* kElefanCaptionPrefix = "ELEFAN I [";
inline constexpr const char* kElefanCaptionSuffix = "]...";
inline constexpr const char* kElefanCaptionEmpty = "ELEFAN I";
inline constexpr const char* kTabGeneral = "&General";
inline constexpr const char* kTabKScan = "&K Scan";
inline constexpr const char* kTabSurface = "Response &Surface";
inline constexpr const char* kTabSearch = "&Automatic Search";
inline constexpr const char* kFixStartingPoint = "Fix the starting point";
inline constexpr const char* kApplyTrendLine = "Apply trend line";
inline constexpr const char* kVariableStart = "Variable starting point";
inline constexpr const char* kConstantStart = "Constant starting point";
inline constexpr const char* kCmdCompute = "&Compute";
inline constexpr const char* kCmdReport = "&Report";
inline constexpr const char* kCmdClose = "&Close";
inline constexpr const char* kCmdOpen = "&Open...";
inline constexpr const char* kCmdPlot = "P&lot";
inline constexpr const char* kCmdCancel = "Cancel";
inline constexpr const char* kCmdFineSurface = "&Finer surface";
inline constexpr const char* kOpenTitle = "Open";
inline constexpr const char* kLfqFilter =
    "Length-frequency files (*.lfq)|*.lfq|All files (*.*)|*.*";
inline constexpr const char* kSurfaceWarningTitle = "WARNING!";
inline constexpr const char* kSurfaceWarning =
    "Please note that the 'Response Surface' routine cannot determine the parameters to plot. "
    "However, you may encode the parameters manually. Do you want to continue?";
inline constexpr const char* kPlotStoredStatus =
    "The growth parameters are stored for the VBGF plot.";
inline constexpr const char* kRunCancelledStatus = "Run cancelled; nothing was changed.";
inline constexpr std::array<const char*, 6> kGeneralCaptions = {
    "File name:",  "Species name:",       "Other identifiers:",
    "Class size:", "Largest class size:", "Unit of measurement:"};

class CanvasView;

class FrmElefan1 : public QWidget {
  public:
    using ScorerFactory = std::function<std::unique_ptr<ElefanFileScorer>(const LfqData&)>;

    FrmElefan1(ShellContext& ctx, QWidget* parent = nullptr,
               ScorerFactory factory = MakeElefanScorer);
    ~FrmElefan1() override;

    // Reads the file, restructures it, proposes a starting point and fills the lists.
    void Initialize(const std::string& path);
    void ReadDefaultsELEFAN();
    // The command buttons by index: 0 run, 1 report, 2 close, 3 open, 4 plot.
    void cmdELEFAN1(int index);
    // The trend line over the K-scan with the scroll bar's span.
    void KScanSmooth();
    // A finer surface over the surface's ranges, n x n.
    void ComputeFinerSurface(int n);

    // For tests and the report.
    QTabWidget* tabs() const { return tabs_; }
    QLineEdit* txtLoo(int i) const { return txtLoo_[i]; }
    QLineEdit* txtK(int i) const { return txtK_[i]; }
    QLineEdit* txtC(int i) const { return txtC_[i]; }
    QLineEdit* txtWP(int i) const { return txtWP_[i]; }
    QLineEdit* txtELEFAN1(int i) const { return txtElefan_[i]; }
    QComboBox* txtSS() const { return txtSS_; }
    QComboBox* txtSL() const { return txtSL_; }
    QComboBox* txtSS2() const { return txtSS2_; }
    QComboBox* txtSL2() const { return txtSL2_; }
    QComboBox* sSample() const { return sSample_; }
    QComboBox* sLength() const { return sLength_; }
    QCheckBox* chkSP() const { return chkSP_; }
    QCheckBox* chkELEFAN1() const { return chkTrend_; }
    QScrollBar* hscrELEFAN1() const { return hscr_; }
    QRadioButton* optSearch(int i) const { return optSearch_[i]; }
    QTableWidget* grdELEFAN1() const { return grid_; }
    QTableWidget* spdSearch() const { return spdSearch_; }
    QPushButton* button(int i) const { return cmd_[i]; }
    const ChartCanvas& kscanCanvas() const;
    const ChartCanvas& surfaceCanvas() const;
    const std::optional<KScanResult>& kscanResult() const { return kscan_; }
    const RnQuery& state() const { return state_; }
    bool running() const { return running_; }
    void requestCancel() { cancelRequested_ = true; }
    // Run on every step of a run (tests use it to cancel midway).
    std::function<void()> onStep;

  private:
    friend class ScreenSink;
    QWidget* buildGeneral();
    QWidget* buildKScan();
    QWidget* buildSurface();
    QWidget* buildSearch();
    void fillLengths(QComboBox* samples, QComboBox* lengths);
    void setCaption();
    void runKScan();
    void runSurface();
    void runSearch();
    void showSurface(const SurfaceResult& s);
    void clearGrid();
    void clearKScanPlot();
    void drawKScan();
    void plotCommand();
    void openVbgfPlot();
    void openCommand();
    void reportCommand();
    void beginRun();
    void endRun();
    void step();
    bool eventFilter(QObject* watched, QEvent* event) override;

    ShellContext& ctx_;
    ScorerFactory factory_;
    std::unique_ptr<ElefanFileScorer> scorer_;
    std::unique_ptr<ParallelRn> rn_;
    std::string path_;
    RnQuery state_;
    std::optional<KScanResult> kscan_;
    std::optional<SurfaceResult> surface_;
    bool running_ = false;
    bool cancelRequested_ = false;
    bool filling_ = false;

    QTabWidget* tabs_ = nullptr;
    std::array<QLineEdit*, 5> txtLoo_{};
    std::array<QLineEdit*, 4> txtK_{};
    std::array<QLineEdit*, 5> txtC_{};
    std::array<QLineEdit*, 5> txtWP_{};
    std::array<QLineEdit*, 20> txtElefan_{};
    QComboBox* txtSS_ = nullptr;
    QComboBox* txtSL_ = nullptr;
    QComboBox* txtSS2_ = nullptr;
    QComboBox* txtSL2_ = nullptr;
    QComboBox* sSample_ = nullptr;
    QComboBox* sLength_ = nullptr;
    QCheckBox* chkSP_ = nullptr;
    QCheckBox* chkTrend_ = nullptr;
    QScrollBar* hscr_ = nullptr;
    QLabel* spanLabel_ = nullptr;
    std::array<QRadioButton*, 2> optSearch_{};
    QTableWidget* grid_ = nullptr;
    QTableWidget* spdSearch_ = nullptr;
    QProgressBar* barSearch_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QSpinBox* fineSize_ = nullptr;
    std::array<QPushButton*, 5> cmd_{};
    CanvasView* picELEFAN1_ = nullptr;
    CanvasView* heatMap_ = nullptr;
    CanvasImage picOriginal_;
};

}  // namespace norvo::gui
