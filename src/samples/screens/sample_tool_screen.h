#pragma once
// The shared shape of the sample tools: source file(s) with species and identifier, the tool's
// own options, a destination, the source and result grids, and "&Proceed" / "&Close". A tool
// supplies its options and its run; the screen shows the run's notices, the new grid, and
// closes when the file was written.
#include <QWidget>
#include <string>
#include <vector>

#include "data/lfq_data.h"
#include "samples/sample_tools.h"
#include "widgets/shell_context.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace norvo::gui {

class DataGrid;

inline constexpr const char* kSampleOpenTitle = "Open...";
inline constexpr const char* kSampleSaveTitle = "Save...";
inline constexpr const char* kSampleLfqFilter =
    "Grouped frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*";
inline constexpr const char* kSampleProceed = "&Proceed";
inline constexpr const char* kSampleClose = "&Close";
inline constexpr const char* kSampleCancel = "&Cancel";

struct SampleToolLayout {
    const char* objectName;
    const char* caption;
    std::vector<const char*> sourceCaptions;  // one or two source boxes
    const char* destinationCaption = "Destination file:";
    const char* proceedCaption = kSampleProceed;
    const char* closeCaption = kSampleClose;
    bool showsSpecies = true;
    const char* speciesCaption = "Species:";
    const char* otherIdCaption = "Other identifier:";
};

class SampleToolScreen : public QWidget {
  public:
    SampleToolScreen(ShellContext& ctx, const SampleToolLayout& layout, QWidget* parent);

    // Reads a source into box `index` (its species, identifier and the source grid for the
    // first); false when the read failed.
    bool loadSource(const std::string& path, int index = 0);
    void proceed();

    QLineEdit* sourceBox(int index = 0) const { return sources_.at(index); }
    QLineEdit* destinationBox() const { return destination_; }
    QPushButton* proceedButton() const { return proceed_; }
    QPushButton* closeButton() const { return close_; }
    DataGrid* sourceGrid() const { return raw_; }
    DataGrid* resultGrid() const { return result_; }
    QLabel* species() const { return species_; }
    QLabel* otherId() const { return otherId_; }

  protected:
    // Where a tool puts its options.
    QVBoxLayout* options() const { return options_; }
    // The tool's run on the typed paths; a run refused by the screen's own checks has no file.
    virtual SampleFileRun runTool(const std::vector<std::string>& sources,
                                  const std::string& destination) = 0;
    // Called when the first source was read.
    virtual void sourceLoaded() {}
    // Whether the run may start (a question to the user, say).
    virtual bool confirmRun() { return true; }
    const LfqData& data() const { return data_; }
    ShellContext& ctx_;
    // Fills a grid with a file's classes and samples.
    static void ShowTable(DataGrid* grid, const LfqTable& table);
    // Loads "LastActive" when it names a grouped file (the end of a tool's constructor).
    void loadLastActive();
    // Closes the screen's window (its MDI child when it has one).
    void closeScreen();

  private:
    void browseSource(int index);
    void browseDestination();

    LfqData data_;
    std::vector<QLineEdit*> sources_;
    QLineEdit* destination_ = nullptr;
    QLabel* species_ = nullptr;
    QLabel* otherId_ = nullptr;
    QVBoxLayout* options_ = nullptr;
    DataGrid* raw_ = nullptr;
    DataGrid* result_ = nullptr;
    QPushButton* proceed_ = nullptr;
    QPushButton* close_ = nullptr;
};

}  // namespace norvo::gui
