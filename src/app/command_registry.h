#pragma once
// The command table as data: every menu, menu entry, popup entry and toolbar button of the main
// window, with its control name, array index, caption (accelerator ampersands included), what it
// does, the screen it opens and the file kind it needs. The menus, the gates and their tests all
// read this one table.
#include <string>
#include <vector>

namespace norvo {

enum class CommandKind {
    Menu,       // a menu or submenu header; its entries name it as parent
    Separator,  // a separator line
    Screen,     // opens a screen (a single shared instance), after the gate when one stands
    Routed,     // a File/Edit command routed to the editor in front
    Shell,      // handled by the main window itself (New, Open, Exit, Window, Help, ...)
    Inert,      // stands in the menu and does nothing at all
};

struct CommandEntry {
    std::string parent;   // control name of the menu it sits in; "" for the menu bar / popups
    std::string control;  // control name ("LFMenu", "mnuFileSave")
    int index = -1;       // position in its control array, -1 when not an array
    std::string caption;  // with accelerator ampersands; "&&" shows a single ampersand
    CommandKind kind = CommandKind::Shell;
    std::string screen;        // screen opened (Screen entries)
    std::string requiredKind;  // file kind the gate checks ("LFQ"), "" for no gate
    std::string gateTitle;
    std::string gateText;
    bool popup = false;  // a popup menu rather than a menu-bar menu

    bool gated() const { return !requiredKind.empty(); }
    bool isArray() const { return index >= 0; }
};

// The whole table, in menu order (parents before their entries).
const std::vector<CommandEntry>& CommandRegistry();

// The entry with this control name and index (-1 for a non-array control), or nullptr.
const CommandEntry* FindCommand(const std::string& control, int index = -1);

// The name by which entries refer to a menu as their parent: the control name, with "(index)"
// for a menu that is an element of a control array ("ZMenu(2)").
std::string MenuKey(const CommandEntry& entry);

// The entries directly under `parent` (a MenuKey), in order.
std::vector<const CommandEntry*> CommandsUnder(const std::string& parent);

// The caption as the user reads it: accelerator marks removed, "&&" shown as "&".
std::string PlainCaption(const std::string& caption);

// The status-bar tip of an entry whose screen is not built yet.
std::string ComingTip(const CommandEntry& entry);

// The eight keyed buttons of the toolbar and the menu command each one runs.
struct ToolbarButton {
    std::string key;      // "New", "Open", "Save", "Print", "Cut", "Copy", "Paste", "Help"
    std::string control;  // the menu command it stands for
};
const std::vector<ToolbarButton>& ToolbarButtons();

// Control names of the menus and popups.
inline constexpr const char* kMenuFile = "mnuFile";
inline constexpr const char* kMenuEdit = "mnuEdit";
inline constexpr const char* kMenuAssess = "AssessMenu";
inline constexpr const char* kMenuSupport = "mnuTools";
inline constexpr const char* kMenuWindow = "mnuWindow";
inline constexpr const char* kMenuHelp = "mnuHelp";
inline constexpr const char* kPopupTable = "TableMenu";
inline constexpr const char* kPopupLinks = "mnuLinkMain";

// Gate texts.
inline constexpr const char* kGateTitleInvalidData = "Invalid Data";
inline constexpr const char* kGateTitleNoActiveFile = "WARNING! No Active File";
inline constexpr const char* kGateTextLfq =
    "This routine requires grouped length frequencies (LFQ). No active length frequency file "
    "detected. Do you want to continue and locate a valid file manually?";
inline constexpr const char* kGateTextGin =
    "This routine requires Growth Increment File (GIN). No active Growth Increment file "
    "detected. Do you want to continue and locate a valid file manually?";
inline constexpr const char* kGateTextLaa =
    "This routine requires length-at-age data file. No active length-at-age file detected. Do "
    "you want to continue and locate a valid file manually?";
inline constexpr const char* kGateTextMsd =
    "This routine requires Mean and Standard Deviation (MSD) file. No active Mean and Standard "
    "Deviation file detected. Do you want to continue and locate a valid file manually?";
inline constexpr const char* kGateTextPrbM =
    "This routine requires probability of capture file (PRB). No active probability of capture "
    "file detected. Do you want to continue and locate a valid file manually?";
inline constexpr const char* kGateTextPrbTrawl =
    "This routine requires probability of cature file (PRB). No active probability of capture "
    "file detected. Do you want to continue and locate a valid file manually?";
inline constexpr const char* kGateTextGillnet =
    "This routine requires length frequency file (LFQ) with two sample representing catches "
    "from two gillnets of different sizes. No active length frequency file detected. Do you want "
    "to continue and locate a valid file manually?";
inline constexpr const char* kGateTextCaa =
    "This routine requires catch-at-age file (CAA). No active catch-at-age file detected. Do you "
    "want to continue and locate a valid file manually?";
inline constexpr const char* kGateTextSce =
    "This routine requires a fishery scenario (SCE). No active fishery scenario file detected. "
    "The FILE menu allows you to create a fishery scenario file for use with this routine. Do "
    "you want to continue and locate a valid file manually?";
inline constexpr const char* kGateTextXyf =
    "This routine requires two-column regression data file (XYF). Please load before "
    "proceeding.";
inline constexpr const char* kGateTextSampleManipulation =
    "WARNING! No active length frequency file loaded. The sample manipulation routines require "
    "length frequency file. Do you want to continue?";

}  // namespace norvo
