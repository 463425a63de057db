#pragma once
// Generic routines over data files: clearing, deleting, maxima, renumbering, required boxes,
// creating a file from its template, path helpers and the atomic save.
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/outcome.h"
#include "base/user_notice.h"
#include "data/data_store.h"

namespace norvo {

inline constexpr const char* kPathDoesNotExist =
    "The path supplied does not exist. Please correct and try again.";
inline constexpr const char* kWrongFileType =
    "Wrong file type defined. Please check and try again.";
inline constexpr const char* kFileNotFoundTitle = "File Not Found!";
inline constexpr const char* kCreateFileTitle = "Create File";
inline constexpr const char* kCorruptedOrWrongFormat =
    "The file is corrupted or has the wrong data format. Please check and try again.";
inline constexpr const char* kFileSaveError = "File Save Error. File not saved!";
inline constexpr const char* kGridEmptyDelete =
    "The grid is empty. Do you wish to delete this file?";
// The extensions accepted for a new file, in the order they are checked; the lower-case last
// entry is kept as it has always stood, and no upper-cased extension meets it.
inline constexpr const char* kTemplateExtensions[] = {"CAA", "FLT", "GIN", "LAA", "LFQ",
                                                      "MSD", "PRB", "SCE", "SPC", "ULF",
                                                      "VAL", "VLF", "XYF", "bmp"};

// "File Not Found!" text for a missing template.
std::string TemplateMissingText(const std::string& templatePath, const std::string& path);
// "Create File" question.
std::string CreateFileQuestion(const std::string& path);

// "DELETE * FROM [table];"
void DeleteAll(const std::string& path, const std::string& table);
// "DELETE * FROM [table] WHERE [f1] op1 v1 AND ..."; values are statement text ("3", "'x'").
void DeleteWhere(const std::string& path, const std::string& table,
                 const std::vector<std::string>& fields, const std::vector<std::string>& operators,
                 const std::vector<std::string>& values);
// "SELECT Max(table.field) AS tblMax FROM table": null on an empty table.
FieldValue MaxOfField(const std::string& path, const std::string& table, const std::string& field);
// Gives the records new keys: the record holding oldKeys[i] gets key i + 1. Two passes through
// keys above the current maximum keep keys from colliding. All or nothing.
void RenumberKeys(const std::string& path, const std::string& table, const std::string& field,
                  const std::vector<int64_t>& oldKeys);

// A text box as CheckRequired sees it: its tool tip (the field's name) and its text.
struct RequiredBox {
    std::string toolTip;
    std::string text;
};
// Done when every box holds text; otherwise refused with one notice naming the empty ones.
Outcome CheckRequired(const std::vector<RequiredBox>& boxes);

// The decision of an editor about to save or close with an empty grid: asks whether to delete
// the file and, on Yes, deletes it and says so. True when the file was deleted (the editor then
// closes); false when the grid holds data or the user keeps the file.
bool OfferDeleteEmptyFile(const std::string& path, int columnsWithData, DialogService& dialogs);

// Makes a result file from the template of its kind, with the checks and questions in order:
// folder, extension, template, "Create File" question, copy. False when any stops it.
bool CreateFromTemplate(const std::string& path, const std::string& programFolder,
                        DialogService& dialogs);
// Copies the template of the path's kind over the path, without questions (File, New).
// False for an unknown kind, a missing template or a failed copy.
bool CopyTemplate(const std::string& path, const std::string& programFolder);

// Path helpers: existence of exactly this file, of this folder, and the text after the last dot.
bool FileExists(const std::string& path);
bool FolderExists(const std::string& path);
std::string ExtensionOf(const std::string& path);

// Atomic saves. `fill` writes through any routines that take a path, on a work copy beside the
// file (same kind); when it returns, the copy replaces the file in one rename. A throw from
// `fill` (or a killed process) leaves the file as it was, and the exception goes on.
// AtomicRewrite starts the copy from the current file, AtomicRewriteFromTemplate from the
// kind's empty template (for saves that rebuild the whole file).
void AtomicRewrite(const std::string& path, const std::function<void(const std::string&)>& fill);
void AtomicRewriteFromTemplate(const std::string& path, const std::string& programFolder,
                               const std::function<void(const std::string&)>& fill);
// Runs `fill` on the open store inside one transaction: all of its writes or none.
void SaveInTransaction(const std::string& path, const std::function<void(DataStore&)>& fill);

}  // namespace norvo
