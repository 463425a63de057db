#include "data/file_kind.h"

#include <cctype>
#include <filesystem>

namespace norvo {

const std::vector<FileKind>& FileKinds() {
    static const std::vector<FileKind> kinds = {
        {"LFQ",
         "lfq",
         "Grouped length frequencies (*.lfq)|*.lfq|",
         "Grouped frequencies (*.lfq)|*.lfq|",
         "\\Templates\\Template.LFQ",
         "Grouped_LF",
         {"Sample_LF", "GLF_Measures"},
         "frmLFQ",
         "Norvo 2: Grouped Length Frequencies"},
        {"ULF",
         "ulf",
         "Ungrouped length frequencies (*.ulf)|*.ulf|",
         "Ungrouped frequencies (*.ulf)|*.ulf|",
         "\\Templates\\Template.ULF",
         "Ungrouped_LF",
         {"ULF_Measures"},
         "frmULF",
         "Norvo 2: Ungrouped Length Frequencies"},
        {"VLF",
         "vlf",
         "Variable grouping of frequencies (*.vlf)|*.vlf|",
         "Variable grouping of frequencies (*.vlf)|*.vlf|",
         "\\Templates\\Template.VLF",
         "Variable_LF",
         {"VLF_Measures"},
         "frmVLF",
         "Norvo 2: Variable class grouping of LF"},
        {"LAA",
         "laa",
         "Length-at-age (*.laa)|*.laa|",
         "Length-at-age (*.laa)|*.laa|",
         "\\Templates\\Template.LAA",
         "LAA",
         {"LAA_Measures"},
         "frmLAA",
         "Norvo 2: Length-at-Age"},
        {"GIN",
         "gin",
         "Growth increments (*.gin)|*.gin|",
         "Growth increments (*.gin)|*.gin|",
         "\\Templates\\Template.GIN",
         "GIN",
         {"GIN_Measures"},
         "frmGIN",
         "Norvo 2: Growth Increment Data"},
        {"CAA",
         "caa",
         "Catch-at-age (*.caa)|*.caa|",
         "Catch-at-age (*.caa)|*.caa|",
         "\\Templates\\Template.CAA",
         "CAA",
         {"CAA_Measures"},
         "frmCAA",
         "Norvo 2: Catch-at-Age"},
        {"MSD",
         "msd",
         "Means and s.d. (*.msd)|*.msd|",
         "Means and s.d. (*.msd)|*.msd|",
         "\\Templates\\Template.MSD",
         "MSD",
         {"MSD_Measures"},
         "frmMSD",
         "Norvo 2: Mean Lengths and Standard Deviation"},
        {"PRB",
         "prb",
         "Probabilities (*.prb)|*.prb|",
         "Probabilities (*.prb)|*.prb|",
         "\\Templates\\Template.PRB",
         "PRB",
         {"PRB_Measures"},
         "frmPRB",
         "Norvo 2: Probabilities of Capture"},
        {"VAL",
         "val",
         "Value by size (*.val)|*.val|",
         "Value by size (*.val)|*.val|",
         "\\Templates\\Template.VAL",
         "VAL",
         {"VAL_Measures"},
         "frmVAL",
         "Norvo 2: Value Array File"},
        {"XYF",
         "xyf",
         "XY regression file (*.xyf)|*.xyf|",
         "XY regression file (*.xyf)|*.xyf|",
         "\\Templates\\Template.XYF",
         "XYF",
         {"XYF_Measures"},
         "frmXYF",
         "Norvo 2: XY Data File"},
        {"SPC",
         "spc",
         "Species Table (*.spc)|*.spc|",
         "Species Table (*.spc)|*.spc|",
         "\\Templates\\Template.SPC",
         "Header",
         {"F-array", "Value"},
         "frmSPC",
         "Norvo 2: Species Table"},
        {"FLT",
         "flt",
         "Fleet Table (*.flt)|*.flt|",
         "Fleet Table (*.flt)|*.flt|",
         "\\Templates\\Template.FLT",
         "Header",
         {},
         "frmFLT",
         "Norvo 2: Fleet Table"},
        {"SCE",
         "sce",
         "Multi-species/Multi-fleet Scenario (*.sce)|*.sce|",
         "Multi-species/Multi-fleet Scenario (*.sce)|*.sce|",
         "\\Templates\\Template.SCE",
         "Header",
         {"Species", "Fleet", "Selection", "Catches"},
         "frmScenario",
         "Scenario Parameters"},
    };
    return kinds;
}

static std::string Upper(std::string_view s) {
    std::string out(s);
    for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return out;
}

const FileKind* FindKind(std::string_view code) {
    const std::string up = Upper(code);
    for (const auto& k : FileKinds()) {
        if (up == k.code) return &k;
    }
    return nullptr;
}

std::string KindOfPath(std::string_view path) {
    return Upper(path.size() > 3 ? path.substr(path.size() - 3) : path);
}

const FileKind* KindOfFile(std::string_view path) {
    return FindKind(KindOfPath(path));
}

std::vector<std::string> TablesOf(const FileKind& kind) {
    std::vector<std::string> out{kind.headerTable};
    for (const char* t : kind.furtherTables) out.emplace_back(t);
    return out;
}

std::string TemplatePathOf(const FileKind& kind, const std::string& programFolder) {
    return (std::filesystem::path(programFolder) / "Templates" /
            (std::string("Template.") + kind.code))
        .string();
}

std::string AllKindsFilter(bool open) {
    std::string out;
    for (const auto& k : FileKinds()) out += open ? k.openFilter : k.saveFilter;
    return out + kAllFilesFilter;
}

std::string KindFilter(const FileKind& kind, bool open) {
    return std::string(open ? kind.openFilter : kind.saveFilter) + kAllFilesFilter;
}

}  // namespace norvo
