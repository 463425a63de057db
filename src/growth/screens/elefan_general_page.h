#pragma once
// The General tab of the ELEFAN I screen: the loaded file and its data.
#include <QWidget>
#include <array>

#include "growth/elefan_report.h"

class QLineEdit;

namespace norvo::gui {

inline constexpr std::array<const char*, 6> kGeneralCaptions = {
    "File name:",  "Species name:",       "Other identifiers:",
    "Class size:", "Largest class size:", "Unit of measurement:"};

class ElefanGeneralPage : public QWidget {
  public:
    explicit ElefanGeneralPage(QWidget* parent = nullptr);
    void showFile(const ElefanFileInfo& file);
    // txtELEFAN1 0..5.
    QLineEdit* field(int i) const { return fields_[static_cast<size_t>(i)]; }

  private:
    std::array<QLineEdit*, 6> fields_{};
};

}  // namespace norvo::gui
