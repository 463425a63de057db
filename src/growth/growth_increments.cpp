#include "growth/growth_increments.h"

#include <algorithm>

#include "growth/vbgf.h"

namespace norvo {

std::string ManyDeselectedText(int n) {
    return "A total of " + std::to_string(n) +
           " were deselected and cannot be used in the model because the recaptured length is "
           "either equal or less than the initial length.";
}

int GinDayCount(float day, float month, float year) {
    return static_cast<int>(year) * 365 + MonthStart(static_cast<int>(month)) +
           static_cast<int>(day);
}

int DaysAtLiberty(const GinRow& row) {
    return GinDayCount(row[kDay2], row[kMonth2], row[kYear2]) -
           GinDayCount(row[kDay1], row[kMonth1], row[kYear1]);
}

int MidDayOfYear(const GinRow& row) {
    const long sum = static_cast<long>(GinDayCount(row[kDay1], row[kMonth1], row[kYear1])) +
                     GinDayCount(row[kDay2], row[kMonth2], row[kYear2]);
    const long mid = sum / 2;  // day counts are positive: the integer part
    return static_cast<int>(mid % 365);
}

float LargestLength(const std::vector<GinRow>& rows) {
    float largest = 0;
    for (const auto& r : rows) largest = std::max({largest, r[kLength1], r[kLength2]});
    return largest;
}

std::vector<bool> FullFlags(const std::vector<GinRow>& rows, std::vector<bool> selected) {
    selected.resize(rows.size(), true);
    return selected;
}

int CountSelected(const std::vector<bool>& selected) {
    return static_cast<int>(std::count(selected.begin(), selected.end(), true));
}

std::string DatesOutOfOrderText(int rowNumber) {
    return "The date of recapture in row " + std::to_string(rowNumber) +
           " is not after the date of tagging. Please correct the file.";
}

Outcome CheckLibertyDays(const std::vector<GinRow>& rows, const std::vector<bool>& selected) {
    Outcome out;
    for (size_t i = 0; i < rows.size(); ++i) {
        if ((i >= selected.size() || selected[i]) && DaysAtLiberty(rows[i]) <= 0) {
            out.refuse(DatesOutOfOrderText(static_cast<int>(i) + 1), kGinDatesTitle);
            break;
        }
    }
    return out;
}

PreSelection PreSelectGrowingRows(const std::vector<GinRow>& rows, std::vector<bool> selected) {
    PreSelection p;
    p.selected = FullFlags(rows, std::move(selected));
    for (size_t i = 0; i < rows.size(); ++i) {
        if (p.selected[i] && !(rows[i][kLength2] > rows[i][kLength1])) {
            p.selected[i] = false;
            ++p.deselected;
        }
    }
    if (p.deselected == 1) p.note(kGinOneDeselectedText, kGinDeselectedTitle, Icon::Information);
    if (p.deselected > 1)
        p.note(ManyDeselectedText(p.deselected), kGinDeselectedTitle, Icon::Information);
    if (CountSelected(p.selected) < 3) p.refuse(kGinTooFewText, kGinTooFewTitle);
    return p;
}

}  // namespace norvo
