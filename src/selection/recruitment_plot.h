#pragma once
// The picture and report of the recruitment pattern: bars of the twelve per cents by rotated
// month, and the normal curves of a decomposition over them.
#include <ctime>

#include "chart/chart_canvas.h"
#include "chart/report.h"
#include "data/lfq_data.h"
#include "selection/recruitment.h"
#include "selection/recruitment_normsep.h"

namespace norvo {

inline constexpr double kRcBarWidth = 80.0 / 12;

// The top of the y axis: the largest per cent raised to the next multiple of 10.
double RecruitmentTop(const RecruitmentResult& run);
// The x of a (fractional) position: position p's bar is centred at (p - 0.5) * width + 15.
inline double RecruitmentX(double position) {
    return (position - 0.5) * kRcBarWidth + 15;
}

void DrawRecruitment(ChartCanvas& canvas, const RecruitmentResult& run);
// The curves of a decomposition over the bars already drawn.
void DrawRecruitmentGroups(ChartCanvas& canvas, const RecruitmentResult& run,
                           const RecruitmentGroupsResult& groups);

ReportDescriptor RecruitmentReport(const LfqData& source, const GrowthParams& growth,
                                   const RecruitmentResult& run,
                                   const RecruitmentGroupsResult* groups,
                                   std::time_t when = std::time(nullptr));

}  // namespace norvo
