#pragma once
// The six plots of the Thompson and Bell prediction on the percentage canvas: yield, biomass
// and value over the f-factor, for one species and fleet and over all of them; and the printed
// page of a table.
#include <ctime>
#include <string>
#include <vector>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "stock/thompson_bell.h"

namespace norvo {

inline constexpr const char* kThompsonBellFFactorFormat = "0.0";
inline constexpr const char* kThompsonBellResultFormat = "0.000";

enum class ThompsonBellQuantity { Yield, Biomass, Value };
inline constexpr ThompsonBellQuantity kThompsonBellQuantities[] = {
    ThompsonBellQuantity::Yield, ThompsonBellQuantity::Biomass, ThompsonBellQuantity::Value};

// "Yield", "Biomass" or "Value".
const char* ThompsonBellQuantityName(ThompsonBellQuantity q);
// A quantity's column in a table, and its power of ten.
const std::vector<double>& ThompsonBellColumn(const ThompsonBellTable& table,
                                              ThompsonBellQuantity q);
int ThompsonBellPowerOf(const ThompsonBellTable& table, ThompsonBellQuantity q);
// The y-axis title: "Yield (10^p)"; the cumulative biomass and value read "Biomass x 10" and
// "Value x 10" when p is 1. A combination's column of p = 0 is the plain name.
std::string ThompsonBellAxisTitle(ThompsonBellQuantity q, int p, bool cumulative);

// Position of an f-factor (0 to 4) on the x axis.
double ThompsonBellX(double ffactor);

// One plot: the quantity's curve over the f-factors 0 to 4 ("0.0" labels), the y axis in
// units of 10^p, the present effort (f-factor 1) marked. An empty table draws the frame and
// titles only.
void DrawThompsonBellPlot(ChartCanvas& canvas, const ThompsonBellTable& table,
                          ThompsonBellQuantity q, bool cumulative);

// The printed page: the title, the date, and "(" + combination + ")" as the sub-title for a
// single combination ("Cummulative" otherwise); the scenario and the fleets' efforts as inputs;
// the table as results, in the table's formats.
struct ThompsonBellReportInput {
    std::string scenario;
    std::string combination;  // "species / fleet", or empty for the cumulative page
    std::vector<std::string> fleetStates;
    ThompsonBellTable table;
};
ReportDescriptor ThompsonBellReport(const ThompsonBellReportInput& in,
                                    std::time_t when = std::time(nullptr));

}  // namespace norvo
