#include "growth/elefan_defaults.h"

#include <charconv>
#include <string>

#include "base/basic.h"
#include "base/checked.h"
#include "base/format.h"

namespace norvo {

ElefanDefaults DefaultElefanFields(double largestMl) {
    ElefanDefaults d;
    const std::string shown = Format(largestMl, "0.00");
    double v = 0;
    std::from_chars(shown.data(), shown.data() + shown.size(), v);
    d.lmax = R4(v);
    const double lmax = d.lmax;
    d.surfaceLooFrom = {Int(lmax / 2), "0.00"};
    d.surfaceLooTo = {Int(lmax * 1.5) + 1, "0"};
    d.kscanLoo = {lmax * 1.05, "0.00"};
    d.searchLoo = {lmax * 1.05, "0.00"};
    d.searchLooStep = {0.10, "0.00"};
    d.surfaceKFrom = {0.01, "0.00"};
    d.surfaceKTo = {10, "0"};
    d.searchK = {1, "0"};
    d.searchKStep = {0.10, "0.00"};
    d.c = {0, "0.00"};
    d.wp = {0, "0.00"};
    return d;
}

}  // namespace norvo
