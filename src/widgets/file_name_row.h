#pragma once
// The file part at the top of the screens that work on one data file: a read-only "File name:"
// field with a narrow open button beside it, the species below, and the reading of a
// length-frequency file into them and into the screen's sample list.
#include <string>

#include "data/lfq_data.h"
#include "widgets/shell_context.h"

class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

namespace norvo::gui {

class SamplePanel;

inline constexpr const char* kFileNameCaption = "File name:";
inline constexpr const char* kSpeciesCaption = "Species:";

struct FileNameRow {
    QLineEdit* file = nullptr;
    QPushButton* open = nullptr;
};
// Adds the "File name:" row to `form`; the open button shows `openText`.
FileNameRow AddFileNameRow(QFormLayout* form, QWidget* parent, const char* openText);
// Adds the "Species:" row to `form`.
QLabel* AddSpeciesRow(QFormLayout* form, QWidget* parent);

// Reads the length-frequency file through the session (a file that can't be read shows the
// reader's notice) into `data`, and shows its path, species and samples. False when unread.
bool ReadLfqOnScreen(ShellContext& ctx, const std::string& path, LfqData& data, QLineEdit* file,
                     QLabel* species, SamplePanel* samples);

}  // namespace norvo::gui
