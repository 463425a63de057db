#include "app/file_filter.h"

#include "app/shell_texts.h"
#include "data/file_kind.h"

namespace norvo {

namespace {

std::vector<std::string> SplitBars(const std::string& s) {
    std::vector<std::string> parts;
    std::string cur;
    for (char c : s) {
        if (c == '|') {
            parts.push_back(cur);
            cur.clear();
        } else {
            cur += c;
        }
    }
    if (!cur.empty()) parts.push_back(cur);
    return parts;
}

std::string ToolkitPatterns(const std::string& patterns) {
    std::string out;
    std::string cur;
    auto flush = [&] {
        if (cur.empty()) return;
        if (!out.empty()) out += ' ';
        out += cur == "*.*" ? "*" : cur;
        cur.clear();
    };
    for (char c : patterns) {
        if (c == ';' || c == ' ') {
            flush();
        } else {
            cur += c;
        }
    }
    flush();
    return out;
}

}  // namespace

std::vector<FilterRow> ParseFilter(const std::string& filter) {
    const auto parts = SplitBars(filter);
    std::vector<FilterRow> rows;
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) rows.push_back({parts[i], parts[i + 1]});
    return rows;
}

std::string ToToolkitFilter(const std::string& filter) {
    std::string out;
    for (const FilterRow& r : ParseFilter(filter)) {
        const std::string patterns = ToolkitPatterns(r.patterns);
        std::string desc = r.description;
        const auto open = desc.rfind('(');
        if (open != std::string::npos && desc.back() == ')') {
            // Keep the description's words; the toolkit reads the patterns in parentheses.
            desc = desc.substr(0, open);
            while (!desc.empty() && desc.back() == ' ') desc.pop_back();
        }
        if (!out.empty()) out += ";;";
        out += desc + " (" + patterns + ")";
    }
    return out;
}

std::string SaveAsFilterFor(const std::string& kindCode) {
    const FileKind* kind = kindCode.empty() ? nullptr : FindKind(kindCode);
    if (!kind || kindCode == "GIN") return kAllFilesFilter;
    std::string filter = kind->saveFilter;
    if (kindCode == "VLF") filter += kVlfToLfqFilter;
    return filter + kAllFilesFilter;
}

}  // namespace norvo
