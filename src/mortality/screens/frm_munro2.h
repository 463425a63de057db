#pragma once
// "M from Selection Data": a placeholder screen with its tabs. The routine is not available;
// the screen says so when it opens, and both of its buttons only close it.
#include <QWidget>
#include <array>

#include "widgets/shell_context.h"

class QTabWidget;

namespace norvo::gui {

inline constexpr const char* kMunro2Title = "M from Selection Data...";
inline constexpr std::array<const char*, 5> kMunro2Tabs = {
    "&General", "Selection from &Sampling Gear", "&Selection from C&ommercial Gear", "C&atch Data",
    "&Results"};
inline constexpr const char* kNotAvailableTitle = "Not Available";
inline constexpr const char* kNotAvailableMessage =
    "This routine is not yet available in this version.";
inline constexpr const char* kMunro2Proceed = "&Proceed";

class FrmMunro2 : public QWidget {
  public:
    explicit FrmMunro2(ShellContext& ctx, QWidget* parent = nullptr);
    QTabWidget* tabs = nullptr;
};

}  // namespace norvo::gui
