#pragma once
// A new class interval, and running averages over 3 or 5 classes.
#include <QLineEdit>
#include <QRadioButton>

#include "samples/screens/sample_tool_screen.h"

namespace norvo::gui {

inline constexpr const char* kSmoothOption3 = "Running average over 3 classes";
inline constexpr const char* kSmoothOption5 = "Running average over 5 classes";

class FrmAdjust : public SampleToolScreen {
  public:
    explicit FrmAdjust(ShellContext& ctx, QWidget* parent = nullptr);
    QLineEdit* classSize() const { return txtSize_; }

  protected:
    SampleFileRun runTool(const std::vector<std::string>& sources,
                          const std::string& destination) override;
    bool confirmRun() override;

  private:
    QLineEdit* txtSize_ = nullptr;
};

class FrmSmooth : public SampleToolScreen {
  public:
    explicit FrmSmooth(ShellContext& ctx, QWidget* parent = nullptr);
    QRadioButton* option(int index) const { return index == 0 ? opt3_ : opt5_; }

  protected:
    SampleFileRun runTool(const std::vector<std::string>& sources,
                          const std::string& destination) override;

  private:
    QRadioButton* opt3_ = nullptr;
    QRadioButton* opt5_ = nullptr;
};

}  // namespace norvo::gui
