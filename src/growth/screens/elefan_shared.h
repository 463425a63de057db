#pragma once
// What the pages of the ELEFAN I screen share, and the widgets they build alike. The screen
// holds the shared part: the shell's services, the loaded file and its scores, the growth
// parameters in force, and the side of a run that shows on the screen (busy, progress, Cancel).
#include <QString>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "growth/elefan_report.h"
#include "growth/elefan_search.h"
#include "growth/elefan_search_engine.h"
#include "growth/shown_number.h"
#include "widgets/shell_context.h"

class QComboBox;
class QGroupBox;
class QLineEdit;
class QTableWidget;
class QWidget;

namespace norvo::gui {

inline constexpr const char* kPlotStoredStatus =
    "The growth parameters are stored for the VBGF plot.";
inline constexpr const char* kPlotNotStoredStatus =
    "The VBGF plot is open with the parameters it held; none were stored from the response "
    "surface.";
inline constexpr const char* kRunCancelledStatus = "Run cancelled; nothing was changed.";
inline constexpr const char* kLabelLoo = "Loo:";
inline constexpr const char* kLabelK = "K:";
inline constexpr const char* kLabelC = "C:";
inline constexpr const char* kLabelWP = "WP:";
inline constexpr const char* kLabelSS = "Starting sample:";
inline constexpr const char* kLabelSL = "Starting length:";
inline constexpr const char* kGroupParameters = "Parameters";
inline constexpr const char* kGroupStart = "Starting point";

// The screen's side of a run: busy while it lasts, a progress bar, and a Cancel button.
class RunHost {
  public:
    virtual ~RunHost() = default;
    virtual void beginRun() = 0;
    virtual void endRun() = 0;
    // Shows the progress and lets pending events through.
    virtual void showProgress(int done, int total) = 0;
    // Lets pending events through; true when Cancel was asked for.
    virtual bool cancelRequested() = 0;
};

struct ElefanShared {
    ElefanShared(ShellContext& c, RunHost& h) : ctx(c), host(h) {}
    ShellContext& ctx;
    RunHost& host;
    std::optional<ElefanFileInfo> file;  // what the General tab shows; none before a file
    std::unique_ptr<ElefanFileScorer> scorer;
    std::unique_ptr<ParallelRn> rn;
    // The parameters in force: each run starts from what the last one left.
    GrowthParams state;

    bool loaded() const { return rn != nullptr; }
};

// A run on the screen: the screen is busy from construction to destruction, also when a fault
// ends the run. A page's run derives from it to show what the search reports.
class ElefanRun : public SearchSink {
  public:
    explicit ElefanRun(RunHost& host) : host_(host) { host_.beginRun(); }
    ~ElefanRun() override { host_.endRun(); }
    ElefanRun(const ElefanRun&) = delete;
    ElefanRun& operator=(const ElefanRun&) = delete;
    void progress(int done, int total) override { host_.showProgress(done, total); }
    bool cancelled() override { return host_.cancelRequested(); }

  private:
    RunHost& host_;
};

// Raises a flag for the life of the scope and puts back its former value, also when a fault
// ends the scope. The pages raise theirs while they fill fields, so that no change clears.
class FlagScope {
  public:
    explicit FlagScope(bool& flag) : flag_(flag), was_(flag) { flag_ = true; }
    ~FlagScope() { flag_ = was_; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

  private:
    bool& flag_;
    bool was_;
};

// The "Parameters" group of the surfaces and the search: a row of two number fields for each
// parameter, under two headings ("From", "To").
struct ParameterRow {
    const char* label;
    QLineEdit* first;
    QLineEdit* second;
};
QGroupBox* MakeParameterGroup(QWidget* parent, const std::array<const char*, 2>& headings,
                              const std::vector<ParameterRow>& rows);

// An input field for a number, and a read-only result field ("txtELEFAN1_<index>").
QLineEdit* MakeNumberField(QWidget* parent, const QString& name);
QLineEdit* MakeResultField(QWidget* parent, int index);
// An editable list of starting samples or lengths.
QComboBox* MakeStartList(QWidget* parent, const QString& name);
void ShowNumber(QLineEdit* field, const ShownNumber& n);

// The seven values of a best setting (Loo .. Rn) in result fields, and their clearing.
using ResultFields = std::array<QLineEdit*, 7>;
void ShowBest(const ResultFields& fields, const ElefanBest& best);
void ClearFields(const ResultFields& fields);

// Fills a sample list with 1..nS with `ss` chosen, and its length list with `sl` chosen.
void FillStartLists(QComboBox* samples, QComboBox* lengths, const RnLayout& layout, float ss,
                    float sl);
// Rebuilds the length list for the sample chosen in `samples`.
void FillLengths(const QComboBox* samples, QComboBox* lengths, const RnLayout& layout);

// The response surface table (21 + 1 rows and columns, read-only) and its filling: the corner
// text, the K and Loo headings, and each score on the back colour of its band. Clearing leaves
// the corner only.
QTableWidget* MakeSurfaceTable(QWidget* parent, const QString& name);
void ShowSurfaceTable(QTableWidget* table, const SurfaceResult& s);
void ClearSurfaceTable(QTableWidget* table);

// Shows the VBGF plot screen, which reads the stored parameters (again, when already open).
// The status line says whether parameters were stored for it.
void ShowVbgfPlot(ShellContext& ctx, bool stored = true);
// The ELEFAN report on an output screen made for it.
void RunElefanReport(ShellContext& ctx, const ChartCanvas& canvas, Elefan1ReportMode mode,
                     const Elefan1ReportInfo& info,
                     const std::vector<std::vector<std::string>>& surfaceTable = {});

}  // namespace norvo::gui
