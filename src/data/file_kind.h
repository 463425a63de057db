#pragma once
// The thirteen kinds of data file. A file's kind is its extension and nothing else: the last
// three characters of its path, upper-cased.
#include <string>
#include <string_view>
#include <vector>

namespace norvo {

struct FileKind {
    const char* code;          // "LFQ"
    const char* extension;     // "lfq"
    const char* saveFilter;    // New and Save As filter entry, "Description (*.lfq)|*.lfq|"
    const char* openFilter;    // Open filter entry
    const char* templateName;  // "\Templates\Template.LFQ", as the system names it
    const char* headerTable;   // the table holding the single header record
    std::vector<const char*> furtherTables;
    const char* editor;       // name of the editor screen
    const char* reportTitle;  // first line of the editor's printed report
};

// Ends every file dialogue's filter list.
inline constexpr const char* kAllFilesFilter = "All Files (*.*)|*.*";
inline constexpr const char* kDefaultExtension = "lfq";

// The kinds in the order of the filter lists, "LFQ" first.
const std::vector<FileKind>& FileKinds();
// The kind with this code ("LFQ", case ignored), or null.
const FileKind* FindKind(std::string_view code);
// The last three characters of the path, upper-cased (fewer when the path is shorter).
std::string KindOfPath(std::string_view path);
// The kind of a path, or null when its last three characters name none.
const FileKind* KindOfFile(std::string_view path);
// The header table followed by the further tables.
std::vector<std::string> TablesOf(const FileKind& kind);
// The template file of a kind under a program folder: <folder>/Templates/Template.<CODE>.
std::string TemplatePathOf(const FileKind& kind, const std::string& programFolder);
// All kinds' entries followed by kAllFilesFilter, for New/Save As (open = false) or Open.
std::string AllKindsFilter(bool open);
// One kind's entry followed by kAllFilesFilter.
std::string KindFilter(const FileKind& kind, bool open);

}  // namespace norvo
