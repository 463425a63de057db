#pragma once
// The ELEFAN I searches: the K-scan with its trend line, the response surface and the automatic
// pattern search. They only set growth parameters, ask for scores and compare them; the scores
// come from an RnScorer, which may run on several threads at once. Independent scores of one step
// are evaluated in parallel and reduced in the sequential order, so every table, best value and
// chosen pair is the same bit for bit whatever the number of threads.
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/checked.h"
#include "base/outcome.h"
#include "chart/chart_canvas.h"
#include "growth/vbgf.h"

namespace norvo {

// ---- texts ---------------------------------------------------------------------------------

inline constexpr const char* kTitleInvalidAction = "Invalid Action";
inline constexpr const char* kTitleInvalidInput = "Invalid Input";
inline constexpr const char* kTitleInvalidData = "Invalid Data";
inline constexpr const char* kMsgNoStartingPoint =
    "ERROR! Please enter value for the starting point before proceeding.";
inline constexpr const char* kMsgStartAboveLooRange =
    "ERROR! The starting length is greater than the range of values to evaluate for Loo. Please "
    "adjust parameters.";
inline constexpr const char* kMsgLooFixed =
    "ERROR! The asymptotic length (Loo) cannot be fixed. Please adjust parameters.";
inline constexpr const char* kMsgCheckLoo = "Please check your input to Loo.";
inline constexpr const char* kMsgCheckK = "Please check your input for K (0.01 to 10.0).";
inline constexpr const char* kMsgCheckC = "Please check your input for C (0.0 to 1.0).";
inline constexpr const char* kMsgCheckWP = "Please check your input for WP.";
inline constexpr const char* kMsgSearchCompleted = "Search completed.";
inline constexpr const char* kTitleNote = "NOTE!";

// Headings of the automatic search table, column 0 first.
inline constexpr std::array<const char*, 8> kSearchHeadings = {"Base", "Loo", "K",  "C",
                                                               "WP",   "SS",  "SL", "Rn"};
inline constexpr const char* kSurfaceCorner = "K\\Loo";

// ---- scoring -------------------------------------------------------------------------------
//
// A query is one setting of the growth parameters with the starting point (GrowthParams; the
// scores take no t0).

// The class layout of the file that the searches step through.
struct RnLayout {
    int nS = 0;
    int nC = 0;
    float firstMid = 0;
    float lastMid = 0;
    float ci = 0;
    std::vector<float> sampleFirstMid;  // index s - 1 for sample s
    std::vector<float> sampleLastMid;
};

// Scores one query. Each thread owns one worker; a worker keeps its own scratch tables.
class RnWorker {
  public:
    virtual ~RnWorker() = default;
    virtual float score(const GrowthParams& q) = 0;
    // A worker whose score reads the starting point only through the curve's origin says so;
    // origin(q) then raises what score(q) would raise before its walk, and
    // scoreFromOrigin(q, origin(q)) is score(q).
    virtual bool scoresByOrigin() const { return false; }
    virtual float origin(const GrowthParams& /*q*/) { return 0; }
    virtual float scoreFromOrigin(const GrowthParams& q, float /*origin*/) { return score(q); }
    // scoreFromOrigin for a search that keeps only scores above `floor`: a score at or below it
    // may come back as -infinity; faults are raised as ever.
    virtual float scoreFromOriginAbove(const GrowthParams& q, float origin, float /*floor*/) {
        return scoreFromOrigin(q, origin);
    }
};

// A restructured file that can be scored: the layout plus a factory of independent workers.
class RnScorer {
  public:
    virtual ~RnScorer() = default;
    virtual const RnLayout& layout() const = 0;
    virtual std::unique_ptr<RnWorker> newWorker() const = 0;
};

// Scores batches of queries on up to `threads` threads. Every score is independent, so the
// results are those of one thread; a fault re-raises the first one in query order.
class ParallelRn {
  public:
    ParallelRn(const RnScorer& scorer, int threads);
    ~ParallelRn();
    ParallelRn(const ParallelRn&) = delete;
    ParallelRn& operator=(const ParallelRn&) = delete;
    int threads() const { return static_cast<int>(workers_.size()); }
    const RnLayout& layout() const { return scorer_.layout(); }
    float one(const GrowthParams& q) { return workers_[0]->score(q); }
    void run(std::span<const GrowthParams> queries, std::span<float> out);
    // run for a search that keeps only scores above `floor`: a score at or below it may come
    // back as -infinity.
    void runAbove(std::span<const GrowthParams> queries, std::span<float> out, float floor);
    // run for a search that keeps the first query, in order, whose score is above `floor` and
    // above every score before it, and so on: a score that cannot be such a record may come
    // back as -infinity.
    void runRecords(std::span<const GrowthParams> queries, std::span<float> out, float floor);

  private:
    // Calls score(worker, i) for i in 0..n-1 spread over the workers; the fault of the lowest
    // i is raised, as one thread working in order would have met it first.
    template <class Score>
    void spread(size_t n, Score&& score);
    void runFloored(std::span<const GrowthParams> queries, std::span<float> out, float floor,
                    bool records);
    void runByOrigin(std::span<const GrowthParams> queries, std::span<float> out, float floor,
                     bool records);

    // Helper threads, started at the first batch worth sharing and kept for every later one.
    class Pool;

    const RnScorer& scorer_;
    std::vector<std::unique_ptr<RnWorker>> workers_;
    std::unique_ptr<Pool> pool_;
    // The distinct origins of the last batch and their scores, kept to save allocations.
    std::vector<GrowthParams> distinct_;
    std::vector<float> distinctOrigin_, distinctScore_;
    std::vector<uint32_t> slot_;
    std::vector<uint32_t> table_;  // the open-addressing table of the last batch's settings
    std::vector<std::array<uint32_t, 5>> distinctKey_;
    std::vector<float> workerFloor_;  // each worker's floor in the batch under way
};

// The number of threads used when none is asked for: every core.
int DefaultSearchThreads();

// The starting lengths offered for sample `sample` (1..nS, taken as a 32-bit float and cut to a
// whole number): from its first midlength - CI/2 to its last midlength + CI/2 in steps of CI/2.
// None for a sample out of range.
std::vector<float> StartingLengths(const RnLayout& layout, double sample);

// ---- reporting -----------------------------------------------------------------------------

// One row of the search table: what DisplayResults appends.
struct SearchRow {
    int row = 0;
    GrowthParams params;
    float rn = 0;
};

// Where a running search reports. Every method has a do-nothing default.
class SearchSink {
  public:
    virtual ~SearchSink() = default;
    // `done` of `total` steps are finished.
    virtual void progress(int /*done*/, int /*total*/) {}
    // Asked between steps; true ends the run with nothing changed.
    virtual bool cancelled() { return false; }
    // A K-scan column is finished (column from 1).
    virtual void kscanColumn(int /*column*/, float /*k*/, float /*rn*/) {}
    // A row of the automatic search table was appended.
    virtual void searchRow(const SearchRow& /*row*/) {}
    // The automatic search starts the step multiple n.
    virtual void searchPass(int /*n*/) {}
};

// ---- counted loops -------------------------------------------------------------------------

// A For loop over a 32-bit counter as the old platform ran it: start, end and step rounded
// once at entry, the counter accumulated in 32 bits, the end test inclusive in the step's
// direction. A counter that cannot move (zero step, or a step lost in rounding) raises an
// overflow fault rather than looping forever.
template <class Body>
void ForSingle(float start, float end, float step, Body&& body);

// ---- K-scan --------------------------------------------------------------------------------

inline constexpr int kKScanColumns = 201;  // columns 0..200; 1 upward are used
inline constexpr int kKScanSmoothLength = 183;

// Rows 1..4: Rn, K, SS (or the smoothed score), SL; row 0 is unused.
using KScanTable = std::array<std::array<float, kKScanColumns>, 5>;

struct KScanInput {
    float loo = 0;  // the K-scan's Loo, C and WP fields
    float c = 0;
    float wp = 0;
    bool fixedStart = false;  // "Fix the starting point"
    float ss = 0;             // the starting point in force when the scan begins
    float sl = 0;
};

// The best setting found and what the result fields show.
struct ElefanBest {
    int column = 0;
    GrowthParams params;
    float rn = 0;
};

struct KScanResult {
    KScanTable table{};
    int columns = 0;     // columns filled, 190
    ElefanBest best;     // first strictly largest score
    GrowthParams state;  // the parameters in force after the scan
};

// Runs the K-scan: K from 0.01 to 1.00 by 0.01 and 1.1 to 10.0 by 0.1, each with a
// starting-point scan unless the starting point is fixed. Nothing when cancelled.
std::optional<KScanResult> KScan(ParallelRn& rn, const KScanInput& in, SearchSink& sink);

// The scan table's best column: the first strictly largest score, from -99.
int KScanBestColumn(const KScanTable& table);

// The trend line of span w over the fixed 183 columns, written into row 3, and the column it
// chooses (comparing smoothed scores with raw ones). `loo`, `c`, `wp` are those of the fields.
ElefanBest KScanSmooth(KScanTable& table, int w, float loo, float c, float wp);

// ---- response surface ----------------------------------------------------------------------

inline constexpr int kSurfaceSize = 21;

enum class SurfaceBand { Cyan, Green, Yellow, Orange, Red };
// The band's back colour, 0xRRGGBB.
Colour BandColour(SurfaceBand band);
// The band of a score between min and max, both ends of each band included, the lower first.
SurfaceBand SurfaceBandOf(float r, float min, float max);

struct SurfaceInput {
    float kFrom = 0, kTo = 0;      // the K range fields
    float looFrom = 0, looTo = 0;  // the Loo range fields
    float c = 0, wp = 0;           // the surface's C and WP fields
    float ss = 0, sl = 0;          // the surface's starting point
};

struct SurfaceResult {
    std::array<double, kSurfaceSize> kHeadings{};                      // row headings (K)
    std::array<double, kSurfaceSize> looHeadings{};                    // column headings (Loo)
    std::array<std::array<float, kSurfaceSize>, kSurfaceSize> grid{};  // [row K][column Loo]
    float min = 9999, max = 0;
    GrowthParams state;

    SurfaceBand band(int row, int col) const { return SurfaceBandOf(grid[row][col], min, max); }
};

// The surface's failure table: refused, with its notice, when the surface cannot run.
Outcome CheckSurfaceInput(const SurfaceInput& in);

// The response surface. `previous` is the state left by the previous run: the first pass (min
// and max) uses its C and WP, and its K when KFrom equals KTo.
std::optional<SurfaceResult> ResponseSurface(ParallelRn& rn, const SurfaceInput& in,
                                             const GrowthParams& previous, SearchSink& sink);

// A finer n x n surface over the same ranges, each K and Loo formed directly from the range,
// with the surface's C, WP and starting point. grid[i][j] has K i and Loo j.
struct FineSurface {
    int n = 0;
    std::vector<float> k, loo;
    std::vector<float> grid;  // row-major, n * n
    float min = 0, max = 0;
    float at(int i, int j) const { return grid[static_cast<size_t>(i) * n + j]; }
};
std::optional<FineSurface> ComputeFineSurface(ParallelRn& rn, const SurfaceInput& in, int n,
                                              SearchSink& sink);

// ---- automatic search ----------------------------------------------------------------------

struct AutoSearchInput {
    float loo = 0, k = 0, c = 0, wp = 0;                  // seeds
    float looStep = 0, kStep = 0, cStep = 0, wpStep = 0;  // step sizes
    bool constantStart = false;  // option 1: the starting point below; else variable
    float sSample = 0, sLength = 0;
};

// A finished search carries its closing note ("Search completed.").
struct AutoSearchResult : Outcome {
    std::vector<SearchRow> rows;
    GrowthParams state;
};

// The search's failure table: refused, with its notice, when a seed is out of range.
Outcome CheckSearchSeeds(const AutoSearchInput& in, const RnLayout& layout);

// The score of one setting in the search: at the constant starting point, or the best over all
// starting points with the last pair tried left in q.ss, q.sl.
float ComputeRnSearch(ParallelRn& rn, GrowthParams& q, const AutoSearchInput& in);

// The pattern search from the seeds; nothing when cancelled. `rows` grows as DisplayResults
// would append them, each reported to the sink.
std::optional<AutoSearchResult> AutoSearch(ParallelRn& rn, const AutoSearchInput& in,
                                           const GrowthParams& previous, SearchSink& sink);
// Columns 1..7 of a search table row (Loo, K, C, WP, SS, SL, Rn) and their display patterns.
inline constexpr std::array<const char*, 7> kSearchRowPatterns = {"0.00", "0.00", "0.00", "0.00",
                                                                  "0",    "0.00", "0.000"};
std::array<double, 7> SearchRowValues(const SearchRow& row);
// The text of a search table row, columns 0..7, as the table shows it.
std::array<std::string, 8> SearchRowTexts(const SearchRow& row);

// ---- template definitions ------------------------------------------------------------------

[[noreturn]] void ThrowStuckLoop();

template <class Body>
void ForSingle(float start, float end, float step, Body&& body) {
    float c = start;
    const bool up = step >= 0;
    while (up ? c <= end : c >= end) {
        body(c);
        const float next = R4(static_cast<double>(c) + step);
        if (next == c) ThrowStuckLoop();
        c = next;
    }
}

}  // namespace norvo
