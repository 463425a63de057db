#pragma once
// Growth-increment rows for the tests: dates as day, month, year and the two lengths, or rows
// that follow a plain growth curve exactly.
#include <cmath>
#include <vector>

#include "data/sample_readers.h"

namespace norvo::test {

inline GinRow Row(int d1, int m1, int y1, float l1, int d2, int m2, int y2, float l2) {
    return {0,  static_cast<float>(d1), static_cast<float>(m1), static_cast<float>(y1),
            l1, static_cast<float>(d2), static_cast<float>(m2), static_cast<float>(y2),
            l2};
}

// Rows tagged on 1 January 2000 at `l1[i]` and recaptured `days[i]` later on the curve of
// Loo and K (days within one year, so that the month start of the day count is that of Jan).
inline std::vector<GinRow> CurveRows(double loo, double k, const std::vector<float>& l1,
                                     const std::vector<int>& days) {
    std::vector<GinRow> rows;
    for (size_t i = 0; i < l1.size(); ++i) {
        const int y2 = 2000 + days[i] / 365, d2 = 1 + days[i] % 365;
        const double dt = static_cast<float>(days[i] / 365.0);
        const float l2 = static_cast<float>(loo - (loo - l1[i]) * std::exp(-k * dt));
        // Day numbers beyond 31 in January keep the arithmetic of the day count simple.
        rows.push_back(Row(1, 1, 2000, l1[i], d2, 1, y2, l2));
    }
    return rows;
}

}  // namespace norvo::test
