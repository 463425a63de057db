#pragma once
// The six plots of the Thompson and Bell prediction on the percentage canvas: yield, biomass
// and value over the f-factor, for one species and fleet and over all of them.
#include <string>

#include "chart/chart_canvas.h"
#include "stock/thompson_bell.h"

namespace norvo {

enum class ThompsonBellQuantity { Yield, Biomass, Value };

// "Yield", "Biomass" or "Value".
const char* ThompsonBellQuantityName(ThompsonBellQuantity q);
// The power of ten of a quantity's column in a table.
int ThompsonBellPowerOf(const ThompsonBellTable& table, ThompsonBellQuantity q);
// The y-axis title: "Yield (10^p)"; the cumulative biomass and value read "Biomass x 10" and
// "Value x 10" when p is 1. A combination's column of p = 0 is the plain name.
std::string ThompsonBellAxisTitle(ThompsonBellQuantity q, int p, bool cumulative);

// One plot: the quantity's curve over the f-factors 0 to 4 ("0.0" labels), the y axis in
// units of 10^p. An empty table draws the frame and titles only.
void DrawThompsonBellPlot(ChartCanvas& canvas, const ThompsonBellTable& table,
                          ThompsonBellQuantity q, bool cumulative);

}  // namespace norvo
