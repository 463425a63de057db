#pragma once
// Import of the old DOS edition's grouped frequencies into a new LFQ file: a source box, a
// destination box, each with a browse button, and the grid of what was read.
#include <QWidget>

#include "widgets/shell_context.h"

class QLineEdit;
class QPushButton;

namespace norvo::gui {

class DataGrid;

inline constexpr const char* kImportPrompt =
    "Please enter the complete path of the source file of the old Norvo file, and enter the "
    "destination file.";
inline constexpr const char* kImportSourceCaption = "Source file:";
inline constexpr const char* kImportDestinationCaption = "Destination:";
inline constexpr const char* kImportCancelCaption = "&Cancel";
inline constexpr const char* kImportCloseCaption = "&Close";
inline constexpr const char* kImportButtonCaption = "&Import";
inline constexpr const char* kImportOpenTitle = "Open...";
inline constexpr const char* kImportOpenFilter = "Old Norvo files (*.*)|*.*";
inline constexpr const char* kImportSaveTitle = "Save As";
inline constexpr const char* kImportSaveFilter =
    "Grouped length frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*";

class FrmImport : public QWidget {
    Q_OBJECT
  public:
    explicit FrmImport(ShellContext& ctx, QWidget* parent = nullptr);

    // Reads the source into the grid and writes the destination; false on any failure.
    bool Import();

    QLineEdit* sourceBox() const { return txtSource_; }
    QLineEdit* destinationBox() const { return txtDestination_; }
    QPushButton* importButton() const { return cmdImport_; }
    QPushButton* cancelButton() const { return cmdCancel_; }
    DataGrid* grid() const { return grid_; }

  private:
    void browse(bool source);

    ShellContext& ctx_;
    QLineEdit* txtSource_ = nullptr;
    QLineEdit* txtDestination_ = nullptr;
    QPushButton* cmdImport_ = nullptr;
    QPushButton* cmdCancel_ = nullptr;
    DataGrid* grid_ = nullptr;
};

}  // namespace norvo::gui
