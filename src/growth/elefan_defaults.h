#pragma once
// The values that the fields of the ELEFAN I screen take when a file is loaded, each with the
// pattern its field shows it in; a field without a pattern shows the 32-bit value as it is.
#include "growth/shown_number.h"

namespace norvo {

struct ElefanDefaults {
    // Lmax: the largest midlength as a 32-bit float, as the General tab shows it.
    float lmax = 0;
    ShownNumber surfaceLooFrom;  // Int(Lmax / 2)
    ShownNumber surfaceLooTo;    // Int(Lmax * 1.5) + 1
    ShownNumber kscanLoo;        // Lmax * 1.05
    ShownNumber searchLoo;       // Lmax * 1.05
    ShownNumber searchLooStep;   // 0.10
    ShownNumber surfaceKFrom;    // 0.01
    ShownNumber surfaceKTo;      // 10
    ShownNumber searchK;         // 1
    ShownNumber searchKStep;     // 0.10
    ShownNumber c, wp;           // 0 in every C and WP field
};

// The defaults for a file whose largest midlength is `largestMl`.
ElefanDefaults DefaultElefanFields(double largestMl);

}  // namespace norvo
