#include "app/edit_commands.h"

#include <array>

namespace norvo {

namespace {

constexpr EditCommandState kAllOff{};
constexpr EditCommandState kAllOn{true, true, true, true, true, true, true, true, true, true};
// Sample-style files: rows only, no column commands.
constexpr EditCommandState kRowsOnly{true, true, true, true, true, true, false, true, false, true};
// Table-like files: only the toolbar's Save stays on.
constexpr EditCommandState kToolbarSaveOnly{false, false, false, false, false,
                                            false, false, false, false, true};

struct Row {
    const char* token;
    EditCommandState state;
};

constexpr std::array<Row, 14> kTable{{
    {kTokenNoActiveForm, kAllOff},
    {"LFQ", kAllOn},
    {"ULF", kRowsOnly},
    {"VLF", kRowsOnly},
    {"VAL", kRowsOnly},
    {"LAA", kRowsOnly},
    {"GIN", kRowsOnly},
    {"CAA", kRowsOnly},
    {"MSD", kRowsOnly},
    {"PRB", kRowsOnly},
    {"XYF", kToolbarSaveOnly},
    {"SPC", kToolbarSaveOnly},
    {"FLT", kToolbarSaveOnly},
    {"SCE", kToolbarSaveOnly},
}};

}  // namespace

std::optional<EditCommandState> EditCommandsFor(const std::string& token) {
    for (const Row& r : kTable)
        if (token == r.token) return r.state;
    return std::nullopt;
}

EditorMenuState EditorMenusFor(bool isGroupedFrequencyEditor) {
    if (isGroupedFrequencyEditor) return EditorMenuState{};
    EditorMenuState s;
    s.tableInsertColumn = false;
    s.tableDeleteColumn = false;
    s.tableSeparator2 = false;
    s.tableSubheader = false;
    s.insertColumn = false;
    s.deleteColumn = false;
    s.sampleHeader = false;
    return s;
}

}  // namespace norvo
