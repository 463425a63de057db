#pragma once
// Recruitment pattern: the samples of a grouped length-frequency file projected back along the
// growth curve onto one year, as recruitment per cent by month, and its decomposition into one
// or two normal groups.
#include <QWidget>
#include <array>
#include <memory>
#include <string>

#include "widgets/shell_context.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;
class QTabWidget;

namespace norvo {
struct RecruitmentResult;
struct RecruitmentGroupsResult;
}  // namespace norvo

namespace norvo::gui {

inline constexpr std::array<const char*, 3> kRcTabs = {
    "&Data and Options", "&Growth Parameter Inputs && Graph ", "&Numeric Results"};
// Commands by index: open, weighting help, compute, print, close; then "Decompose".
inline constexpr std::array<const char*, 6> kRcCommands = {"...",       "?",      "&Compute",
                                                           "&Print...", "&Close", "Decompose"};
inline constexpr const char* kRcDataSource = "Data Source";
inline constexpr std::array<const char*, 2> kRcDataOptions = {"Use original data",
                                                              "Use restructured data"};
inline constexpr const char* kRcSampleNote = "Select/deselect data to include in the analysis.";
inline constexpr const char* kRcGrowthGroup = "Growth Parameters";
inline constexpr std::array<const char*, 5> kRcGrowthCaptions = {"Loo:", "K:", "C:", "WP:", "t0:"};
inline constexpr std::array<const char*, 2> kRcGroupCaptions = {"Group 1:", "Group 2:"};
inline constexpr const char* kRcDecomposeNote =
    "Decomposition: the month positions (1 to 12) at which the groups start.";
inline constexpr const char* kRcOpenTitle = "Open...";
inline constexpr const char* kRcLfqFilter = "Grouped frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*";

class PlotView;
class SamplePanel;

class FrmRecruit : public QWidget {
  public:
    explicit FrmRecruit(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmRecruit() override;

    void Initialize(const std::string& path);
    void DoRecruitment();
    void DoNORMSEP();

    QPushButton* command(int index) const { return cmd_[index]; }
    QTabWidget* tabs() const { return tabs_; }
    SamplePanel* samples() const { return samples_; }
    QRadioButton* dataOption(int index) const { return dataOptions_[index]; }
    QLineEdit* growth(int index) const { return growth_[index]; }  // Loo, K, C, WP, t0
    QLineEdit* group(int index) const { return groups_[index]; }
    PlotView* plot() const { return plot_; }
    QTableWidget* table() const { return table_; }
    const RecruitmentResult* run() const;
    const RecruitmentGroupsResult* decomposition() const;

  private:
    struct State;
    void clearResults();
    void fillTable();
    void print();

    ShellContext& ctx_;
    std::unique_ptr<State> st_;
    QTabWidget* tabs_ = nullptr;
    QLineEdit* file_ = nullptr;
    QLabel* species_ = nullptr;
    SamplePanel* samples_ = nullptr;
    std::array<QRadioButton*, 2> dataOptions_{};
    std::array<QLineEdit*, 5> growth_{};
    std::array<QLineEdit*, 2> groups_{};
    PlotView* plot_ = nullptr;
    QTableWidget* table_ = nullptr;
    QLabel* groupResults_ = nullptr;
    std::array<QPushButton*, 6> cmd_{};
};

}  // namespace norvo::gui
