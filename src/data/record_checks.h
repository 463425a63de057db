#pragma once
// The checks a table of growth increments (GIN) or of means (MSD) must pass before it is written:
// the editor runs them on save and the table import on its rows, with the same notices and row
// numbers (from 1).
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/record_kinds.h"

namespace norvo {

inline constexpr const char* kGinWarningTitle = "Warning...";

// "The cell in row <r>, column <c> is empty. Please correct the input."
std::string EmptyCellText(int row, int column);
// "Invalid date input for date on row <r>. Please check before saving."
std::string InvalidGinDateText(int row);
// "The date of recapture cannot be less than or equal to date of tagging. ..."
std::string RecaptureBeforeTaggingText(int row);
// "WARNING! Growth is either stunted or virtual shinkage occurred for observation no. <r>"
std::string ShrinkageText(int row);
// "The date entry <date> for observation number <r> is invalid. ..."
std::string InvalidMsdDateText(const std::string& date, int row);

// The rows up to the last holding data, checked in the order the editor checks them. GIN: no
// empty cell, valid tagging and recapture dates, recapture after tagging (each refuses), and a
// warning for each row whose length does not grow. MSD: a valid date on each row. Other kinds
// pass unchecked.
Outcome CheckRecordRows(const RecordKind& kind, const std::vector<GridRow>& rows);

}  // namespace norvo
