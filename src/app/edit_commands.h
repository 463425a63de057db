#pragma once
// EnableEditCommands as data: the enabled state of the nine File and Edit commands and of the
// toolbar's Save button for each kind token. The main window applies what this returns.
#include <optional>
#include <string>

namespace norvo {

inline constexpr const char* kTokenNoActiveForm = "NoActiveForm";
inline constexpr const char* kTokenWithFile = "WithFile";

struct EditCommandState {
    bool close = false;
    bool save = false;
    bool cut = false;
    bool copy = false;
    bool paste = false;
    bool insertRow = false;
    bool insertColumn = false;
    bool deleteRow = false;
    bool deleteColumn = false;
    bool toolbarSave = false;
    bool operator==(const EditCommandState&) const = default;
};

// The state for `token`, or nothing when the token leaves every command as it is ("WithFile"
// and any text outside the vocabulary). The four table-like kinds XYF, SPC, FLT and SCE turn
// Close and Save off but leave the toolbar's Save on: their editors carry their own buttons.
std::optional<EditCommandState> EditCommandsFor(const std::string& token);

// What an editor sets on activation on top of EnableEditCommands: the grid popup's entries and
// the Edit menu's Insert/Delete entries. The grouped-frequency editor turns everything on.
struct EditorMenuState {
    bool tableInsertRow = true;     // popup index 0
    bool tableInsertColumn = true;  // 1
    bool tableSeparator1 = true;    // 2 (always shown)
    bool tableDeleteRow = true;     // 3
    bool tableDeleteColumn = true;  // 4
    bool tableSeparator2 = true;    // 5
    bool tableSubheader = true;     // 6
    bool insertRow = true;
    bool insertColumn = true;
    bool deleteRow = true;
    bool deleteColumn = true;
    bool sampleHeader = true;
    bool operator==(const EditorMenuState&) const = default;
};
EditorMenuState EditorMenusFor(bool isGroupedFrequencyEditor);

}  // namespace norvo
