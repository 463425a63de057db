#pragma once
// The picture of the Jones and van Zalinge plot on the percentage canvas, and its report.
#include <ctime>
#include <vector>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "mortality/jones_van_zalinge.h"

namespace norvo {

// Canvas positions of the usable points 1..usable (index 0 unused).
std::vector<UserPoint> JonesVanZalingePositions(const JonesVanZalingeRun& run);

// The points, the picks (`pickedFirst`, `pickedLast`, 0 for none) and, when the run is fitted,
// its stretch and line.
void DrawJonesVanZalinge(ChartCanvas& canvas, const JonesVanZalingeRun& run, int pickedFirst = 0,
                         int pickedLast = 0);

ReportDescriptor JonesVanZalingeReport(const LfqData& data, const JonesVanZalingeRun& run,
                                       std::time_t when = std::time(nullptr));

}  // namespace norvo
