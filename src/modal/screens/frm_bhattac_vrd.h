#pragma once
// Bhattacharya's method: a sample's log differences, two clicks per component, the components
// taken off one by one and saved to the MSD file beside the LFQ file.
#include <QWidget>
#include <array>
#include <memory>
#include <string>

#include "widgets/shell_context.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;
class QTabWidget;

namespace norvo::gui {

inline constexpr const char* kBhCmdOpen = "...";
inline constexpr const char* kBhCmdRedo = "&Redo";
inline constexpr const char* kBhCmdClose = "&Close";
inline constexpr const char* kBhCmdPrint = "&Print...";
inline constexpr const char* kBhCmdSave = "&Save MSD";
inline constexpr const char* kBhCmdContinue = "&Continue";
inline constexpr const char* kBhSummaryTab = "&Summary of Results";
inline constexpr const char* kBhPlotTab = "&Plots";
inline constexpr const char* kBhSampleCaption = "Select Sample No.";
inline constexpr const char* kBhSaveTitle = "Save...";

class PlotView;

class FrmBhattacVRD : public QWidget {
  public:
    explicit FrmBhattacVRD(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmBhattacVRD() override;

    void Initialize(const std::string& path);
    // Buttons: 0 open, 1 redo, 2 close, 3 print, 4 save/continue.
    QPushButton* command(int index) const { return cmd_[index]; }
    QComboBox* sampleList() const { return samples_; }
    QTableWidget* grid() const { return grid_; }
    PlotView* histogram() const { return hist_; }
    PlotView* logPlot() const { return log_; }
    QLabel* hint() const { return hint_; }
    QLabel* note() const { return note_; }
    // The pointer over / a click on the log plot at canvas coordinates.
    void hoverLog(double x, double y);
    void clickLog(double x, double y);
    int componentCount() const;

  private:
    struct State;
    void startSample(int sample);
    void redraw();
    void saveOrContinue();
    void redo();
    void print();
    void offerBackup();

    ShellContext& ctx_;
    std::unique_ptr<State> st_;
    QLineEdit* file_ = nullptr;
    QLabel* header_ = nullptr;
    QComboBox* samples_ = nullptr;
    QTabWidget* tabs_ = nullptr;
    PlotView* hist_ = nullptr;
    PlotView* log_ = nullptr;
    QTableWidget* grid_ = nullptr;
    QLabel* hint_ = nullptr;
    QLabel* note_ = nullptr;
    std::array<QPushButton*, 5> cmd_{};
};

}  // namespace norvo::gui
