#pragma once
// Species (SPC), fleet (FLT) and scenario (SCE) files: the inputs of the yield prediction.
//
// SPC  [Header]   one record: Species Name, Remarks, Lower Limit, Class Size, NoGroups, Recruit,
//                 a, b, M, Ft, Loo, K
//      [F-array]  one record a class: Length Class (mid-length), F
//      [Value]    one record a class: Length Class (mid-length), Value (per unit of weight)
// FLT  [Header]   one record: Fleet Name, Remarks
// SCE  [Header]   one record: Title, Remarks ("<No Title>", "<No Remarks>" when left empty)
//      [Species]  Species Name, Filename (absolute path of its SPC file)
//      [Fleet]    Fleet Name, Filename (absolute path of its FLT file)
//      [Selection] Fleet, Species, L50, L75, R75, R50 (one record a combination)
//      [Catches]  Fleet, Species, Length Group, Catch (one record a combination and class)
// The readers return the data or the "Invalid Data" error; the writers replace the tables
// whole inside one transaction, on a file that already exists (made from its template).
#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/read_result.h"

namespace norvo {

inline constexpr const char* kNoTitle = "<No Title>";
inline constexpr const char* kNoRemarks = "<No Remarks>";
inline constexpr const char* kLengthVpaRemarks = "File generated from length-structured VPA.";
// The Value of a class when nothing else is known: yield and value coincide.
inline constexpr double kDefaultClassValue = 1.0;

// SaveSelection's checks, in order, with their title.
inline constexpr const char* kSelectionInputTitle = "Invalid Input";
inline constexpr const char* kL50NotBelowL75 =
    "The L50 input cannot be greater than or equal to L75. Please correct entries. Data will not "
    "be recorded.";
inline constexpr const char* kL75NotBelowR75 =
    "The L75 input cannot be greater than or equal to R75. Please correct entries. Data will not "
    "be recorded.";
inline constexpr const char* kR75NotBelowR50 =
    "The D75 input cannot be greater than or equal to R50. Please correct entries. Data will not "
    "be recorded.";

struct SpeciesHeader {
    std::string speciesName, remarks;
    double lowerLimit = 0, classSize = 0;
    int noGroups = 0;
    double recruit = 0, a = 0, b = 0, m = 0, ft = 0, loo = 0, k = 0;
};

// One row of the per-class arrays: the F-array row and the Value row of the same class.
struct SpeciesClass {
    double lengthClass = 0;  // mid-length
    double f = 0;
    double value = kDefaultClassValue;
};

struct SpeciesData {
    std::string path;
    SpeciesHeader header;
    // F-array and Value records paired in stored order; a table shorter than the other leaves
    // its field at the default for the remaining rows.
    std::vector<SpeciesClass> classes;
};
ReadResult<SpeciesData> ReadSpeciesFile(const std::string& path);
void WriteSpeciesFile(const std::string& path, const SpeciesData& data);

struct FleetData {
    std::string path;
    std::string fleetName, remarks;
};
ReadResult<FleetData> ReadFleetFile(const std::string& path);
void WriteFleetFile(const std::string& path, const FleetData& data);

// A species or fleet taking part in a scenario.
struct ScenarioMember {
    std::string name, filename;
    bool operator==(const ScenarioMember&) const = default;
};
// "name (file)", as the lists show it; the key of a list entry is the part ahead of " (".
std::string MemberLabel(const ScenarioMember& m);
std::string MemberKey(const std::string& label);

struct ScenarioSelection {
    std::string fleet, species;
    double l50 = 0, l75 = 0, r75 = 0, r50 = 0;
};
struct CatchRow {
    double lengthGroup = 0;
    double catchIndex = 0;
};

struct ScenarioData {
    std::string path;
    std::string title, remarks;
    std::vector<ScenarioMember> species, fleets;
};
// The header and the two lists.
ReadResult<ScenarioData> ReadScenarioFile(const std::string& path);

// A text as a statement literal: in single quotes, an inner quote doubled ("O'Brien" ->
// 'O''Brien').
std::string QuoteText(const std::string& text);
// The scenario's queries on one combination, fleet first or species first.
std::string SelectionQuery(const std::string& fleet, const std::string& species,
                           bool speciesFirst = false);
std::string CatchesQuery(const std::string& fleet, const std::string& species,
                         bool speciesFirst = false);

// The Selection record of a combination, if any.
std::optional<ScenarioSelection> ReadSelection(const std::string& path, const std::string& fleet,
                                               const std::string& species);
// The Catches records of a combination, in stored order.
std::vector<CatchRow> ReadCatches(const std::string& path, const std::string& fleet,
                                  const std::string& species);

// L50 < L75 < R75 < R50, checked in that order; refused with the first failing text.
Outcome CheckSelection(const ScenarioSelection& row);

// Writers of the scenario. Empty title or remarks are stored as the placeholders.
void SaveScenarioHeader(const std::string& path, const std::string& title,
                        const std::string& remarks);
void SaveScenarioMembers(const std::string& path, const std::vector<ScenarioMember>& species,
                         const std::vector<ScenarioMember>& fleets);
// Replaces the combination's Selection record; refused (nothing written) by CheckSelection.
Outcome SaveSelection(const std::string& path, const ScenarioSelection& row);
// Replaces the combination's Catches records.
void SaveCatches(const std::string& path, const std::string& fleet, const std::string& species,
                 const std::vector<CatchRow>& rows);

// Taking a species or fleet off the scenario drops its Selection and Catches rows with it.
inline constexpr const char* kRemoveMemberTitle = "Remove...";
std::string RemoveMemberQuestion(const std::string& name);
void RemoveScenarioSpecies(const std::string& path, const std::string& name);
void RemoveScenarioFleet(const std::string& path, const std::string& name);

}  // namespace norvo
