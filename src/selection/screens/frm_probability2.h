#pragma once
// Trawl-type selection on a probabilities (PRB) file: the probability screen with an open
// command, printing under its own title.
#include <string>

#include "selection/screens/frm_probability.h"

namespace norvo::gui {

inline constexpr const char* kProbPrbFilter = "Probabilities (*.prb)|*.prb|All Files (*.*)|*.*";

class FrmProbability2 : public FrmProbability {
  public:
    explicit FrmProbability2(ShellContext& ctx, QWidget* parent = nullptr);
    // Reads a PRB file into the screen.
    bool openFile(const std::string& path);
};

}  // namespace norvo::gui
