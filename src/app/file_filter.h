#pragma once
// File dialogue filters. The system writes them in the classic "Description|pattern|..." form;
// toolkit dialogues take "Description (patterns);;..." lists.
#include <string>
#include <vector>

namespace norvo {

struct FilterRow {
    std::string description;  // "Grouped length frequencies (*.lfq)"
    std::string patterns;     // "*.lfq"
};

// Splits "Desc|*.a|Desc2|*.b;*.c" into rows; a trailing "|" and a lone description are ignored.
std::vector<FilterRow> ParseFilter(const std::string& filter);

// "Desc (*.a);;Desc2 (*.b *.c)". The description is used as it stands when it already shows
// its patterns in parentheses. "*.*" becomes "*", which also matches names without a dot.
std::string ToToolkitFilter(const std::string& filter);

// The Save As filter of an editor's file kind (upper-case code, "" when unknown): the kind's own
// row, a variably grouped file's extra grouped row, and the all-files row. A growth increment
// file has no row of its own, only the all-files row.
std::string SaveAsFilterFor(const std::string& kindCode);

}  // namespace norvo
