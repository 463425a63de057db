#pragma once
// Shared pieces of the commands that fit growth curves with MarquardtFit: the constraint
// option, the fit's JSON and text output, and the plot file.
#include <array>
#include <string>
#include <vector>

#include "chart/chart_canvas.h"
#include "cli/cli_support.h"
#include "growth/growth_fit.h"

namespace norvo::cli {

// Parses 'Loo=min,start,max K=min,start,max ...' into `rows`, the names matched without
// regard to case; a name not in `names` or a row that is not three numbers is a usage error.
template <size_t N>
void ParseConstraints(const std::string& text, const std::array<const char*, N>& names,
                      std::array<ParamConstraint, N>& rows);

// A parameter's constraint row as [min, start, max].
nlohmann::json ConstraintJson(const ParamConstraint& c);
// A 32-bit value by its shortest text.
nlohmann::json FloatJson(float v);

// The fit's parts of the JSON: params, estimates, se, se_na, stars, message, remarks, icon,
// iterations, r2, adj_r2, phi. `index[i]` is the fit's index of names[i].
void AddFitJson(nlohmann::json& j, const std::vector<std::string>& names,
                const MarquardtResult& fit, const std::string& remarks);
// The same as lines of text.
void PrintFit(const std::vector<std::string>& names, const MarquardtResult& fit,
              const std::string& remarks);

// Refuses a plot path that is the data file.
void CheckPlotPath(const std::string& plot, const std::string& data);

}  // namespace norvo::cli
