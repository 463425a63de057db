#pragma once
// The session's shared state: the last grouped length-frequency image read (last reader wins),
// the reader failure flag, the numeric key filter and the sub-header integers of the editor.
#include <string>

#include "data/lfq_data.h"

namespace norvo {

struct Session {
    LfqData lfqData;              // the most recent grouped file read
    bool fileReadFailed = false;  // set by readers on failure; callers test it right after
    std::string numericKeys = "0123456789.";
    // Used by the grouped length-frequency editor when it opens the sample sub-header.
    int sampleHeaderColumn = 0;
    int sampleHeaderMode = 0;
};

// "0123456789" followed by the decimal separator (the 2nd character of 0.1 formatted "0.0").
std::string MakeNumericKeys(char decimalSeparator);

}  // namespace norvo
