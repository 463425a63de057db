#pragma once
// The logit plot on which the user chooses the points of the logistic fit; "&Proceed" hands
// the fitted curve back.
#include <QWidget>
#include <functional>
#include <memory>

#include "widgets/shell_context.h"

class QLabel;
class QPushButton;

namespace norvo {
struct SelectionInput;
struct SelectionCurve;
}  // namespace norvo

namespace norvo::gui {

inline constexpr const char* kLogitsTitle = "Logistic Transformation";
inline constexpr const char* kLogitsProceed = "&Proceed";
inline constexpr const char* kLogitsCancel = "&Cancel";

class PlotView;

class FrmLogits : public QWidget {
  public:
    using Proceed = std::function<void(const SelectionCurve&)>;
    // `input` is changed where the logits store 0.99999 back.
    FrmLogits(ShellContext& ctx, SelectionInput& input, const std::string& unit, Proceed proceed,
              QWidget* parent = nullptr);
    ~FrmLogits() override;

    PlotView* plot() const { return plot_; }
    QLabel* value(int index) const { return values_[index]; }  // a, b, r
    QPushButton* proceedButton() const { return proceed_; }
    bool fitted() const;
    int selectedCount() const;
    // Canvas position of logit point i (class number; 0 the leading point).
    double pointX(int i) const;
    double pointY(int i) const;
    void clickPlot(double x, double y);
    void proceed();

  private:
    struct State;
    void DrawLogitsPoints();
    void Regress1();

    ShellContext& ctx_;
    std::unique_ptr<State> st_;
    PlotView* plot_;
    std::array<QLabel*, 3> values_{};
    QPushButton* proceed_;
    QPushButton* cancel_;
};

}  // namespace norvo::gui
