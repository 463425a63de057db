#pragma once
// NORMSEP: a sample separated into normal components by maximum likelihood from start means
// typed in the grid or taken from the sample's stored Bhattacharya results.
#include <QWidget>
#include <array>
#include <memory>
#include <string>

#include "widgets/shell_context.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QTableWidget;

namespace norvo::gui {

inline constexpr const char* kNsCmdCompute = "C&ompute";
inline constexpr const char* kNsCmdFromMsd = "&Means from MSD";
inline constexpr const char* kNsCmdSave = "&Save MSD";
inline constexpr const char* kNsCmdPrint = "&Print...";
inline constexpr const char* kNsCmdClose = "&Close";
inline constexpr const char* kNsGroupsCaption = "No. of groups:";
inline constexpr const char* kNsNoStoredTitle = "Notice";
inline constexpr const char* kNsNoStoredText =
    "No means are stored for this sample. Run Bhattacharya's method first, or type the means.";

class PlotView;

class FrmNormsepSimplex : public QWidget {
  public:
    explicit FrmNormsepSimplex(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmNormsepSimplex() override;

    void Initialize(const std::string& path);
    // Buttons: 0 open, 1 compute, 2 means from MSD, 3 save, 4 print, 5 close.
    QPushButton* command(int index) const { return cmd_[index]; }
    QComboBox* sampleList() const { return samples_; }
    QSpinBox* groups() const { return groups_; }
    QTableWidget* grid() const { return grid_; }
    PlotView* plot() const { return plot_; }
    bool hasResult() const;

  private:
    struct State;
    void chooseSample(int sample);
    void compute();
    void meansFromMsd();
    void save();
    void print();
    void redraw();

    ShellContext& ctx_;
    std::unique_ptr<State> st_;
    QLineEdit* file_ = nullptr;
    QLabel* header_ = nullptr;
    QComboBox* samples_ = nullptr;
    QSpinBox* groups_ = nullptr;
    QTableWidget* grid_ = nullptr;
    PlotView* plot_ = nullptr;
    QLabel* status_ = nullptr;
    std::array<QPushButton*, 6> cmd_{};
};

}  // namespace norvo::gui
