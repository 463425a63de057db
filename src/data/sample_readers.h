#pragma once
// Readers of the sample kinds for the analyses. Each clears session.fileReadFailed first; on any
// failure it shows the "Invalid Data" notice, sets the flag and returns what it had (empty).
// The text fields of session.lfqData (path, species, identifier, units, remarks) double as the
// shared header of the file read last, whatever its kind.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "app/session.h"
#include "app/settings_store.h"
#include "app/user_notice.h"

namespace norvo {

// Probabilities of capture: Length and Probability per row. Sets noOfClasses to the record
// count, smallestMl to the first length and largestMl to the last.
struct PrbData {
    std::vector<float> length;
    std::vector<float> probability;
};
PrbData ReadPRB(const std::string& path, Session& session, DialogService& dialogs);

// Means and standard deviations, ordered by date and then by mean length.
struct MsdRow {
    int32_t day = 0, month = 0, year = 0;
    float length = 0;
    float sd = 0;
    float population = 0;  // written by the modal-progression routines only
};
std::vector<MsdRow> ReadMSD(const std::string& path, Session& session, DialogService& dialogs);

// Growth increments: one row per record with Day1, Month1, Year1, Length1, Day2, Month2, Year2,
// Length2 in columns 1 to 8 (index 0 spare, so the columns keep their numbers). Sets
// noOfSamples to the record count and, as the only reader, "LastActive" to the path.
using GinRow = std::array<float, 9>;
std::vector<GinRow> ReadGIN(const std::string& path, Session& session, SettingsStore& settings,
                            DialogService& dialogs);

// Catch at age: the weight and age units and the Age, Catch, WF rows.
struct CaaData {
    std::string unitOfWeight;
    std::string unitOfAge;
    std::vector<std::array<float, 3>> rows;  // Age, Catch, WF
};
CaaData ReadCAA(const std::string& path, Session& session, DialogService& dialogs);

// Length at age: the age unit and the Age, Length, WF rows.
struct LaaData {
    std::string unitOfAge;
    std::vector<std::array<float, 3>> rows;  // Age, Length, WF
};
LaaData ReadLAA(const std::string& path, Session& session, DialogService& dialogs);

}  // namespace norvo
