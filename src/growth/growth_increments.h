#pragma once
// Tag-and-recapture increments as the growth-increment methods see them: the rows of a GIN file
// with a selection flag each, dates reckoned in days, the working arrays of the selected rows,
// and the pre-selection that drops rows which did not grow.
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/sample_readers.h"

namespace norvo {

inline constexpr const char* kGinDeselectedTitle = "Deselected Data...";
inline constexpr const char* kGinOneDeselectedText =
    "A sample was deselected and cannot be used in the model because the recaptured length is "
    "either equal or less than the initial length.";
inline constexpr const char* kGinTooFewTitle = "Invalid Data...";
inline constexpr const char* kGinTooFewText =
    "The model requires more than 2 samples to estimate the growth parameters.";
inline constexpr const char* kGinClickOffText =
    "Please select and de-select points from the Gulland and Holt Plot.";
inline constexpr const char* kGinInvalidActionTitle = "Invalid Action...";

// "A total of <n> were deselected and cannot be used ..."
std::string ManyDeselectedText(int n);

// Column numbers of a GinRow (index 0 spare).
enum GinColumn : int { kDay1 = 1, kMonth1, kYear1, kLength1, kDay2, kMonth2, kYear2, kLength2 };

// A date as a day count: year * 365 + the days before the (truncated) month + day.
int GinDayCount(float day, float month, float year);
// Days at liberty of a row, recapture day count minus release day count.
int DaysAtLiberty(const GinRow& row);
// Mid date of a row as a day of the year, 0..364: the integer part of the mean of the two day
// counts, modulo 365.
int MidDayOfYear(const GinRow& row);
// The largest length of all rows, release or recapture, selected or not (0 without rows).
float LargestLength(const std::vector<GinRow>& rows);

// Flags for every row: `selected` as given, padded with "selected" up to the row count.
std::vector<bool> FullFlags(const std::vector<GinRow>& rows, std::vector<bool> selected);
int CountSelected(const std::vector<bool>& selected);

// Our own check: every selected row must have its recapture after its tagging (a rate per day
// divides by the days at liberty). Refused with the first offending row.
inline constexpr const char* kGinDatesTitle = "Invalid Data...";
std::string DatesOutOfOrderText(int rowNumber);
Outcome CheckLibertyDays(const std::vector<GinRow>& rows, const std::vector<bool>& selected);

// The pre-selection of Munro's and Fabens' methods: a selected row whose recapture length is
// not above its release length is deselected, with one notice for all of them. Refused when
// 2 or fewer selected rows remain.
struct PreSelection : Outcome {
    std::vector<bool> selected;
    int deselected = 0;
};
PreSelection PreSelectGrowingRows(const std::vector<GinRow>& rows, std::vector<bool> selected);

}  // namespace norvo
