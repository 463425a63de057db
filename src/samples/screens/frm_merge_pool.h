#pragma once
// Merging two grouped files, and pooling samples of one file.
#include <QDateEdit>
#include <QListWidget>

#include "samples/merge_pool.h"
#include "samples/screens/sample_tool_screen.h"

namespace norvo::gui {

inline constexpr const char* kPoolCmdPool = "&Pool Selected Samples";
inline constexpr const char* kPoolCmdSave = "&Save File and Exit";

class FrmMerge : public SampleToolScreen {
  public:
    explicit FrmMerge(ShellContext& ctx, QWidget* parent = nullptr);

  protected:
    SampleFileRun runTool(const std::vector<std::string>& sources,
                          const std::string& destination) override;
};

class FrmPool : public SampleToolScreen {
  public:
    explicit FrmPool(ShellContext& ctx, QWidget* parent = nullptr);

    QListWidget* list() const { return lstPool_; }
    QDateEdit* datePicker() const { return dtpPool_; }
    QPushButton* poolButton() const { return cmdPool_; }
    // "&Pool Selected Samples": the selected entries become one dated sample.
    void poolSelected();

  protected:
    SampleFileRun runTool(const std::vector<std::string>& sources,
                          const std::string& destination) override;
    void sourceLoaded() override;

  private:
    void fillList();
    void showPools();
    void onItemClicked(QListWidgetItem* item);

    QListWidget* lstPool_ = nullptr;
    QDateEdit* dtpPool_ = nullptr;
    QPushButton* cmdPool_ = nullptr;
    PoolState state_;
};

}  // namespace norvo::gui
