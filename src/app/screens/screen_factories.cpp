// The table of screens and editors the shell can open. Each screen adds its line here.
#include "app/screens/shell_context.h"
#include "data/screens/frm_lfq.h"

namespace norvo::gui {

const std::map<std::string, ScreenFactory>& ScreenFactories() {
    static const std::map<std::string, ScreenFactory> factories = {};
    return factories;
}

const std::map<std::string, EditorFactory>& EditorFactories() {
    static const std::map<std::string, EditorFactory> factories = {
        {"LFQ",
         [](ShellContext& ctx, QWidget* parent) -> DataEditor* { return new FrmLfq(ctx, parent); }},
    };
    return factories;
}

}  // namespace norvo::gui
