#pragma once
// Merging two grouped length-frequency files into a new one, and pooling samples of one file.
#include <string>
#include <vector>

#include "samples/sample_tools.h"

namespace norvo {

inline constexpr const char* kMergeMissingText =
    "Source file(s) cannot be located. Please check the inputs.";
inline constexpr const char* kMergeIncompatibleText =
    "The class sizes or the base points are not the same. Please adjust the class sizes first "
    "before merging.";
inline constexpr const char* kMergeRemarksPrefix = "Merged file; ";
inline constexpr const char* kMergeDonePrefix =
    "Merging process completed successfully. A new file (";
inline constexpr const char* kMergeDoneSuffix = ") was created.";

inline constexpr const char* kPoolPreviouslyPooledTitle = "Invalid Action...";
inline constexpr const char* kPoolPreviouslyPooledText = "Cannot select samples previously pooled.";
inline constexpr const char* kPoolMark = "* ";
inline constexpr const char* kPoolRemarksSuffix = " Some samples were pooled.";
inline constexpr const char* kPoolSavedPrefix = "The file has been saved to ";
inline constexpr const char* kPoolNoSamplesText =
    "Please select at least one sample that has not been pooled yet.";
inline constexpr const char* kPoolBadDateText = "The new sampling date is not a valid date.";

// Whether two grids can merge: equal intervals and smallest midlengths a whole number of
// intervals apart, both tested on the 32-bit values within 1e-4 of the interval.
bool GridsCompatible(float interval1, float smallest1, float interval2, float smallest2);

// The merged file: the samples of `a` then of `b` on the common grid (empty cells 0), put in
// date order (equal dates keep `a` first) and numbered from 1. Refused when the grids differ.
SampleFileRun MergeData(const LfqData& a, const std::vector<LfqSample>& samplesA, const LfqData& b,
                        const std::vector<LfqSample>& samplesB);

struct MergeOptions {
    std::string first;
    std::string second;
    std::string destination;
};
// The whole merge from files to file, with the Part's checks and closing notice.
SampleFileRun RunMerge(const MergeOptions& options, const std::string& programFolder);

// The list entry of a sample: "Sample n (dd/mm/yyyy)".
std::string PoolListEntry(int sampleNo, int day, int month, int year);
// A pooled sample's column heading: the date as "dd/MM/yyy" (the year in full).
std::string PoolDateHeading(int day, int month, int year);

// One pool: the samples added together (0-based) and the new sample's date.
struct PoolSpec {
    std::vector<int> samples;
    int day = 0, month = 0, year = 0;
};

// The pooling screen's working state: which samples were pooled, and the pools made so far.
class PoolState {
  public:
    explicit PoolState(int samples = 0) : pooled_(samples, false) {}
    bool isPooled(int sample) const { return pooled_.at(sample); }
    // Adds a pool of `selected`. Refused, with nothing changed, when a selected sample was
    // pooled before, when none is selected, or when the date is not a valid one.
    Outcome pool(const std::vector<int>& selected, int day, int month, int year);
    const std::vector<PoolSpec>& pools() const { return pools_; }
    int sampleCount() const { return static_cast<int>(pooled_.size()); }

  private:
    std::vector<bool> pooled_;
    std::vector<PoolSpec> pools_;
};

// The pooled file: the samples never pooled as they are, then one column per pool holding the
// sum of its samples; every frequency cut to two decimals; Sample_LF holds dates only.
// Refused as PoolState::pool refuses.
SampleFileRun PoolData(const LfqData& data, const std::vector<PoolSpec>& pools);

struct PoolOptions {
    std::string source;
    std::string destination;
    std::vector<PoolSpec> pools;
};
SampleFileRun RunPool(const PoolOptions& options, const std::string& programFolder);

}  // namespace norvo
