#include "data/record_checks.h"

#include <cmath>
#include <optional>
#include <string>

#include "base/settings_store.h"
#include "base/user_notice.h"
#include "data/lfq_file.h"

namespace norvo {
namespace {

std::string Whole(const std::optional<double>& v) {
    return v ? std::to_string(std::lround(*v)) : std::string();
}

// Day, month and year from three cells of a row, starting at `first`.
struct CellDate {
    std::string day, month, year;
    bool valid() const { return IsValidDateParts(day, month, year); }
    std::string text() const { return day + "/" + month + "/" + year; }
    long serial() const {
        return std::stol(year) * 10000 + std::stol(month) * 100 + std::stol(day);
    }
};

CellDate DateAt(const GridRow& row, size_t first) {
    auto cell = [&](size_t c) { return c < row.size() ? Whole(row[c]) : std::string(); };
    return {cell(first), cell(first + 1), cell(first + 2)};
}

std::optional<double> CellAt(const GridRow& row, size_t c) {
    return c < row.size() ? row[c] : std::nullopt;
}

Outcome CheckGrowthIncrements(const std::vector<GridRow>& rows, int last, size_t columns) {
    Outcome out;
    for (int r = 0; r < last; ++r)
        for (size_t c = 0; c < columns; ++c)
            if (!CellAt(rows[r], c)) {
                out.refuse(EmptyCellText(r + 1, static_cast<int>(c + 1)), kAppTitle);
                return out;
            }
    for (size_t first : {0u, 4u})
        for (int r = 0; r < last; ++r)
            if (!DateAt(rows[r], first).valid()) {
                out.refuse(InvalidGinDateText(r + 1), kInvalidDataTitle);
                return out;
            }
    for (int r = 0; r < last; ++r)
        if (DateAt(rows[r], 0).serial() >= DateAt(rows[r], 4).serial()) {
            out.refuse(RecaptureBeforeTaggingText(r + 1), kInvalidDataTitle);
            return out;
        }
    for (int r = 0; r < last; ++r)
        if (*rows[r][3] >= *rows[r][7])
            out.note(ShrinkageText(r + 1), kGinWarningTitle, Icon::Information);
    return out;
}

Outcome CheckMeanDates(const std::vector<GridRow>& rows, int last) {
    Outcome out;
    for (int r = 0; r < last; ++r) {
        const CellDate d = DateAt(rows[r], 0);
        if (!d.valid()) {
            out.refuse(InvalidMsdDateText(d.text(), r + 1), kInvalidDataTitle);
            return out;
        }
    }
    return out;
}

}  // namespace

std::string EmptyCellText(int row, int column) {
    return "The cell in row " + std::to_string(row) + ", column " + std::to_string(column) +
           " is empty. Please correct the input.";
}

std::string InvalidGinDateText(int row) {
    return "Invalid date input for date on row " + std::to_string(row) +
           ". Please check before saving.";
}

std::string RecaptureBeforeTaggingText(int row) {
    return "The date of recapture cannot be less than or equal to date of tagging. Please "
           "correct row " +
           std::to_string(row) + " before saving.";
}

std::string ShrinkageText(int row) {
    return "WARNING! Growth is either stunted or virtual shinkage occurred for observation no. " +
           std::to_string(row);
}

std::string InvalidMsdDateText(const std::string& date, int row) {
    return "The date entry " + date + " for observation number " + std::to_string(row) +
           " is invalid. Data will not be saved. Please correct data before saving.";
}

Outcome CheckRecordRows(const RecordKind& kind, const std::vector<GridRow>& rows) {
    const std::string code = kind.code;
    const int last = LastDataRow(rows);
    if (code == "GIN") return CheckGrowthIncrements(rows, last, kind.columns.size());
    if (code == "MSD") return CheckMeanDates(rows, last);
    return {};
}

}  // namespace norvo
