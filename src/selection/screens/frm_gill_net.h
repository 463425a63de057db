#pragma once
// Gillnet selection: two samples of a grouped length-frequency file, the catches of two nets of
// different mesh sizes, give the selection curve of each net; the curves go to three PRB files.
#include <QWidget>
#include <array>
#include <memory>
#include <string>

#include "widgets/shell_context.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;

namespace norvo {
struct GillnetResult;
}

namespace norvo::gui {

inline constexpr std::array<const char*, 2> kGnTabs = {"&General", "G&illnet Selection Plot"};
// Commands by index: compute, print, save, close, open.
inline constexpr std::array<const char*, 5> kGnCommands = {"C&ompute", "&Print...", "&Save...",
                                                           "&Close", "..."};
inline constexpr std::array<const char*, 2> kGnOptions = {"normal plot", "log-normal plot"};
inline constexpr std::array<const char*, 2> kGnSampleCaptions = {
    "Select sample representing smaller mesh size:",
    "Select sample representing bigger mesh size:"};
inline constexpr const char* kGnMeshCaption = "what is the mesh size?";
inline constexpr const char* kGnMeshGroup = "Mesh Sizes";
inline constexpr const char* kGnMeshNote =
    "Catches from two gillnets with two different mesh sizes:";
inline constexpr const char* kGnResultsGroup = "Results";
inline constexpr std::array<const char*, 4> kGnResultCaptions = {
    "L(A):", "L(B):", "m(A):", "m(B):"};
inline constexpr const char* kGnOpenTitle = "Open...";
inline constexpr const char* kGnLfqFilter = "Grouped frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*";

class PlotView;

class FrmGillNet : public QWidget {
  public:
    explicit FrmGillNet(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmGillNet() override;

    void Initialize(const std::string& path);
    void Compute();
    void PlotGillnet();
    void SavePRBAll();

    QPushButton* command(int index) const { return cmd_[index]; }
    QComboBox* sample(int index) const { return samples_[index]; }
    QLineEdit* mesh(int index) const { return meshes_[index]; }
    QRadioButton* option(int index) const { return options_[index]; }
    QLineEdit* result(int index) const { return results_[index]; }
    PlotView* plot(int index) const { return plots_[index]; }
    QTabWidget* tabs() const { return tabs_; }
    const GillnetResult* run() const;

  private:
    struct State;
    void clearResults();
    void print();

    ShellContext& ctx_;
    std::unique_ptr<State> st_;
    QTabWidget* tabs_ = nullptr;
    QLineEdit* file_ = nullptr;
    QLabel* species_ = nullptr;
    std::array<QComboBox*, 2> samples_{};
    std::array<QLineEdit*, 2> meshes_{};
    std::array<QRadioButton*, 2> options_{};
    std::array<QLineEdit*, 4> results_{};
    std::array<PlotView*, 3> plots_{};
    std::array<QPushButton*, 5> cmd_{};
};

}  // namespace norvo::gui
