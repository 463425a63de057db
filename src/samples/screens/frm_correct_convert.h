#pragma once
// Correcting for probabilities of capture, and converting to another length measure.
#include <QLineEdit>
#include <QRadioButton>
#include <array>

#include "samples/screens/sample_tool_screen.h"

namespace norvo::gui {

class FrmCorrect : public SampleToolScreen {
  public:
    explicit FrmCorrect(ShellContext& ctx, QWidget* parent = nullptr);
    QRadioButton* fileOption() const { return optFile_; }
    QRadioButton* ogiveOption() const { return optOgive_; }
    QLineEdit* prbBox() const { return txtPrb_; }
    // L50, L75 of the left limb, R75, R50 of the right.
    QLineEdit* ogiveBox(int index) const { return txtOgive_.at(index); }

  protected:
    SampleFileRun runTool(const std::vector<std::string>& sources,
                          const std::string& destination) override;

  private:
    void enableBoxes();
    QRadioButton* optFile_ = nullptr;
    QRadioButton* optOgive_ = nullptr;
    QLineEdit* txtPrb_ = nullptr;
    std::array<QLineEdit*, 4> txtOgive_{};
};

class FrmConvert : public SampleToolScreen {
  public:
    explicit FrmConvert(ShellContext& ctx, QWidget* parent = nullptr);
    QRadioButton* function(int index) const { return index == 0 ? opt1_ : opt2_; }
    QLineEdit* coefficient(int index) const { return txtCoef_.at(index); }  // d, e, f

  protected:
    SampleFileRun runTool(const std::vector<std::string>& sources,
                          const std::string& destination) override;

  private:
    QRadioButton* opt1_ = nullptr;
    QRadioButton* opt2_ = nullptr;
    std::array<QLineEdit*, 3> txtCoef_{};
};

}  // namespace norvo::gui
