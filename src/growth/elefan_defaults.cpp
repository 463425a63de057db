#include "growth/elefan_defaults.h"

#include "base/basic.h"
#include "base/checked.h"

namespace norvo {

ElefanDefaults DefaultElefanFields(double largestMl) {
    ElefanDefaults d;
    d.lmax = R4(largestMl);
    const double lmax = d.lmax;
    d.surfaceLooFrom = {Int(lmax / 2), "0.00"};
    d.surfaceLooTo = {Int(lmax * 1.5) + 1, kSinglePattern};
    d.kscanLoo = {R4(lmax * 1.05), kSinglePattern};
    d.searchLoo = d.kscanLoo;
    d.searchLooStep = {0.10, "0.00"};
    d.surfaceKFrom = {0.01, kSinglePattern};
    d.surfaceKTo = {10, kSinglePattern};
    d.searchK = {1, kSinglePattern};
    d.searchKStep = {0.10, "0.00"};
    d.c = {0, "0.00"};
    d.wp = {0, "0.00"};
    return d;
}

}  // namespace norvo
