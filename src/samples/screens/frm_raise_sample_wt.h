#pragma once
// Raising samples to the catch, and estimating the weight of each sample.
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <array>

#include "samples/screens/sample_tool_screen.h"

namespace norvo::gui {

inline constexpr const char* kRaiseSelectAll = "Select all samples";
inline constexpr const char* kSwCmdCompute = "&Compute";

class FrmRaise : public SampleToolScreen {
  public:
    explicit FrmRaise(ShellContext& ctx, QWidget* parent = nullptr);
    QListWidget* list() const { return lstRaise_; }
    QCheckBox* selectAll() const { return chkAll_; }
    QRadioButton* option(int index) const { return opt_.at(index); }  // 0..4
    QLineEdit* constant() const { return txtConstant_; }

  protected:
    SampleFileRun runTool(const std::vector<std::string>& sources,
                          const std::string& destination) override;
    void sourceLoaded() override;

  private:
    QListWidget* lstRaise_ = nullptr;
    QCheckBox* chkAll_ = nullptr;
    std::array<QRadioButton*, 5> opt_{};
    QLineEdit* txtConstant_ = nullptr;
};

class FrmSampleWt : public QWidget {
  public:
    explicit FrmSampleWt(ShellContext& ctx, QWidget* parent = nullptr);
    bool loadSource(const std::string& path);
    // Computes the weights and writes them into the source.
    void compute();
    QLineEdit* sourceBox() const { return source_; }
    DataGrid* classGrid() const { return spdClass_; }
    DataGrid* sampleGrid() const { return spdSample_; }
    QPushButton* computeButton() const { return compute_; }

  private:
    void InitSpreads();
    ShellContext& ctx_;
    QLineEdit* source_ = nullptr;
    DataGrid* spdClass_ = nullptr;
    DataGrid* spdSample_ = nullptr;
    QPushButton* compute_ = nullptr;
};

}  // namespace norvo::gui
