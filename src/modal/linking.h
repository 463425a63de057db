#pragma once
// Linking of means: the means of an MSD file linked forward in time, one cohort per series of
// links, growth from the links by the Gulland and Holt line, and the links saved as growth
// increments or as lengths at relative age. Point numbers are 1-based, in the file's date and
// length order.
#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/sample_readers.h"

namespace norvo {

inline constexpr const char* kLkCaption = "Linking of Means...";
inline constexpr const char* kLkReportTitle = "Linking of Means";
inline constexpr const char* kLkNote =
    "NOTE: Click the point to link using the mouse. Double-clicking in any part of the graph "
    "breaks the links to start a new series.";
inline constexpr const char* kLkInvalidTitle = "Invalid Action...";
inline constexpr const char* kLkEarlierText =
    "Linking of means to earlier or equal dates is not allowed.";
inline constexpr const char* kLkImpossibleTitle = "Warning!";
inline constexpr const char* kLkImpossibleText =
    "The links selected lead to impossible estimates of the growth parameters.\n No relative "
    "ages can be calculated. Do you want to continue?";
inline constexpr const char* kLkNotSavedTitle = "Data not saved";
inline constexpr const char* kLkNotSavedText = "Links not saved!";
inline constexpr const char* kLkSaveAsTitle = "Save as...";
inline constexpr const char* kLkAskGin = "Do you want to save the links as growth increment data?";
inline constexpr const char* kLkAskLaa =
    "Do you want to save the links as length-at-(relative)age data?";
inline constexpr const char* kLkCreatedTitle = "File Created...";
inline constexpr const char* kLkRemarksSuffix = "; Generated from linking of means";
inline constexpr const char* kLkTypeOfMeasurement = "Others/Unknown";
inline constexpr const char* kLkAgeUnit = "years";
inline constexpr float kLkNone = -9999.0f;

std::string GinCreatedText(const std::string& path);
std::string LaaCreatedText(const std::string& path);
std::string NoPointText(int point, int points);

// The date order of the links: year * 365 + month * 30 + day.
int LinkDateKey(int day, int month, int year);
// Days from 1 January of year 1 on the proleptic Gregorian calendar (leap days included).
int64_t CalendarDay(int day, int month, int year);

struct LinkRow {
    int day1 = 0, month1 = 0, year1 = 0;
    float length1 = 0;
    int day2 = 0, month2 = 0, year2 = 0;
    float length2 = 0;
    GinRow gin() const;  // the eight fields in columns 1..8
};

// The links being made on the screen: a series is open from `open` (0 when none).
struct LinkState {
    std::vector<MsdRow> points;
    std::vector<LinkRow> links;
    std::vector<std::pair<int, int>> linked;  // the point numbers of each link
    int open = 0;
};

// A click on point `point`: opens a series, or links the open point to it and goes on from
// it. A link to an earlier or equal date is refused and dropped; the series stays open.
Outcome ClickPoint(LinkState& s, int point);
// Breaks the series: the next click starts a new one.
void BreakSeries(LinkState& s);
// Opens the series again from the last linked point.
void ConnectFromPrevious(LinkState& s);

// Links made from a list of series of point numbers (each series linked in turn). Refused
// links are listed, not stopping the run; a point number off the file refuses the whole run.
struct LinkingRun : Outcome {
    LinkState state;
    std::vector<std::pair<int, int>> refused;
};
LinkingRun LinkSeries(const std::vector<MsdRow>& points,
                      const std::vector<std::vector<int>>& series);

// Growth from the links: rate (L2 - L1)/dt on mean (L1 + L2)/2, dt in years of 365 days from
// the calendar dates. Loo = -a/b and K = -b for a falling line; both -9999 otherwise or for at
// most one link.
struct LinkGrowth {
    float loo = kLkNone, k = kLkNone;
    std::optional<float> a, b;
    std::vector<double> dt;
    std::vector<float> rate, mean;
    bool possible() const { return loo != kLkNone; }
};
LinkGrowth ComputeLinkGrowth(const std::vector<LinkRow>& links);

struct AgeRecord {
    float age = 0, length = 0, wf = 1;
};
// The relative ages of both points of each link (t0 = 0); a row whose first point is the
// previous row's second carries that point's age. A row starting at or above Loo is none.
std::vector<std::optional<std::pair<AgeRecord, AgeRecord>>> LinkAges(
    const std::vector<LinkRow>& links, const LinkGrowth& growth);

// Writers: the file is made whole from its kind's template. False, with the "File Not Found!"
// notice, when the template is missing; a failed write is a StoreError (file untouched).
bool SaveLinksAsGin(const std::string& path, const std::string& programFolder,
                    const LfqData& msdHeader, const std::vector<LinkRow>& links,
                    DialogService& dialogs);
bool SaveLinksAsLaa(const std::string& path, const std::string& programFolder,
                    const LfqData& msdHeader, const std::vector<LinkRow>& links,
                    const LinkGrowth& growth, DialogService& dialogs);

}  // namespace norvo
