#pragma once
// The means file of a separation: the MSD file beside the LFQ file, with the components of
// each sample stored under the sample's date.
#include <string>
#include <vector>

#include "base/user_notice.h"
#include "data/lfq_data.h"
#include "data/sample_readers.h"

namespace norvo {

inline constexpr const char* kMsdSavedTitle = "Notice!";
inline constexpr const char* kMsdRemarksSuffix = "; Data computed from length frequencies";
inline constexpr const char* kMsdExistsTitle = "WARNING!";
inline constexpr const char* kMsdExistsText =
    "A corresponding mean and s.d. file exist implying that this file may have been previously "
    "processed. New estimates will overwrite stored values. Do you want to save previous "
    "estimates on another file before proceeding?";
inline constexpr const char* kMsdDuplicateTitle = "Saved Data";
inline constexpr const char* kMsdPreviousNote =
    "NOTE: This sample was previous analyzed. The computed mean and standard deviation are given "
    "in the 'Summary of Results' tab. Click 'Redo' to re-analyze this sample.";
inline constexpr const char* kMsdSavedNote = "NOTE: The following are the results saved to file.";

// "Parameters for sample <n> were saved to the file. ..." (the question, or the last sample's
// statement).
std::string MsdSavedText(int sample, bool last);
// "A duplicate data file was saved to <path>"
std::string MsdDuplicateText(const std::string& path);

// The MSD file of the same name as `lfqPath` (extension in the same case).
std::string MsdPathOf(const std::string& lfqPath);

struct MsdComponent {
    float mean = 0, sd = 0, population = 0;
};

// Writes the components of sample `sample` (1-based) under its date, replacing the rows of
// that date, and the header from the LFQ file. A missing file is made from the template after
// the "Create File" question. False when the file was not made (the question declined or the
// template missing); a failed write is a StoreError and leaves the file as it was.
bool SaveMsdSample(const std::string& msdPath, const std::string& programFolder,
                   const LfqData& data, int sample, const std::vector<MsdComponent>& components,
                   DialogService& dialogs);
// Deletes the rows of one date ("Redo").
void DeleteMsdDate(const std::string& msdPath, int day, int month, int year);
// The rows stored under the date of sample `sample`.
std::vector<MsdRow> StoredRows(const MsdData& msd, const LfqData& data, int sample);

}  // namespace norvo
