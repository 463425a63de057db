#pragma once
// Probabilities of capture by class and the selection lengths L25, L50 and L75 estimated from
// them by logits or by a running average. Opened from the catch curve; the trawl-type screen
// (frm_probability2.h) opens it on a probabilities file.
#include <QWidget>
#include <array>
#include <memory>
#include <string>

#include "widgets/shell_context.h"

class QLabel;
class QPushButton;

namespace norvo {
struct LfqData;
struct SelectionInput;
struct SelectionCurve;
}  // namespace norvo

namespace norvo::gui {

inline constexpr std::array<const char*, 6> kProbCommands = {
    "Use &Logits", "Use &Running Avg.", "&Save Probabilities", "&Close", "&Print...", "..."};
inline constexpr const char* kProbSaveTitle = "Save As";
inline constexpr const char* kProbOpenTitle = "Open...";

class PlotView;
class FrmLogits;

class FrmProbability : public QWidget {
  public:
    // `header` gives the file name, species, identifiers and unit.
    FrmProbability(ShellContext& ctx, const SelectionInput& input, const LfqData& header,
                   QWidget* parent = nullptr);
    ~FrmProbability() override;

    QPushButton* command(int index) const { return cmd_[index]; }
    PlotView* plot() const { return plot_; }
    QLabel* lengthLabel(int index) const { return lengths_[index]; }  // L25, L50, L75
    const SelectionInput& input() const;
    const SelectionCurve* curve() const;
    FrmLogits* logits() const { return logits_; }

    void useLogits();
    void useRunningAverage();
    void saveProbabilities();

  protected:
    // Screen without data yet (the trawl-type screen loads its file itself).
    FrmProbability(ShellContext& ctx, QWidget* parent);
    void setData(const SelectionInput& input, const LfqData& header);
    void setReportTitle(const std::string& title) { reportTitle_ = title; }
    ShellContext& ctx_;

  private:
    struct State;
    void build();
    void draw();
    void showLengths();
    void print();

    std::unique_ptr<State> st_;
    std::string reportTitle_;
    PlotView* plot_ = nullptr;
    std::array<QPushButton*, 6> cmd_{};
    std::array<QLabel*, 3> lengths_{};
    FrmLogits* logits_ = nullptr;
};

}  // namespace norvo::gui
