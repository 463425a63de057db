#pragma once
// The pictures and printed page of the Thompson and Bell prediction: yield, biomass and value
// over the f-factor, for one species and fleet combination or summed over all of them, each
// scaled by its column's power of ten.
#include <ctime>
#include <string>
#include <vector>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "stock/thompson_bell.h"

namespace norvo {

inline constexpr const char* kThompsonBellFFactorFormat = "0.0";
inline constexpr const char* kThompsonBellResultFormat = "0.000";

enum class ThompsonBellQuantity { Yield = 0, Biomass = 1, Value = 2 };
inline constexpr ThompsonBellQuantity kThompsonBellQuantities[] = {
    ThompsonBellQuantity::Yield, ThompsonBellQuantity::Biomass, ThompsonBellQuantity::Value};

// "Yield", "Biomass" or "Value".
const char* ThompsonBellName(ThompsonBellQuantity q);
// A column of the table and its power of ten.
const std::vector<double>& ThompsonBellColumn(const ThompsonBellTable& t, ThompsonBellQuantity q);
int ThompsonBellPowerOf(const ThompsonBellTable& t, ThompsonBellQuantity q);

// The y-axis title: "Yield (10^p)", except that the cumulative biomass and value plots say
// "Biomass x 10" and "Value x 10" when p is 1.
std::string ThompsonBellAxisTitle(ThompsonBellQuantity q, int p, bool cumulative);

// Position of an f-factor (0 to 4) on the x axis.
double ThompsonBellX(double ffactor);

// One plot on the percentage canvas: the quantity over the f-factor, its name above the frame,
// the y axis in units of the column's power of ten, the point at f-factor 1 marked. An empty
// table draws the frame only.
void DrawThompsonBellPlot(ChartCanvas& canvas, const ThompsonBellTable& t, ThompsonBellQuantity q,
                          bool cumulative);

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
