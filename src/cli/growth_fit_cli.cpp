#include "cli/growth_fit_cli.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <sstream>

#include "base/format.h"
#include "growth/appeldoorn.h"
#include "growth/length_at_age.h"
#include "numerics/text_convert.h"

namespace norvo::cli {
namespace {

std::string Lower(std::string s) {
    std::transform(s.begin(), s.end(), s.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return s;
}

}  // namespace

template <size_t N>
void ParseConstraints(const std::string& text, const std::array<const char*, N>& names,
                      std::array<ParamConstraint, N>& rows) {
    std::istringstream in(text);
    std::string item;
    while (in >> item) {
        const auto eq = item.find('=');
        const std::string name = Lower(item.substr(0, eq == std::string::npos ? 0 : eq));
        const auto at = std::find_if(names.begin(), names.end(),
                                     [&](const char* n) { return Lower(n) == name; });
        if (eq == std::string::npos || at == names.end())
            throw CLI::ValidationError("--constraints", "unknown parameter in '" + item + "'");
        std::array<double, 3> v{};
        std::istringstream parts(item.substr(eq + 1));
        std::string part;
        size_t count = 0;
        while (std::getline(parts, part, ',')) {
            if (count >= 3 || !ParseNumber(part, v[count]))
                throw CLI::ValidationError("--constraints",
                                           "expected NAME=min,start,max in '" + item + "'");
            ++count;
        }
        if (count != 3)
            throw CLI::ValidationError("--constraints",
                                       "expected NAME=min,start,max in '" + item + "'");
        rows[static_cast<size_t>(at - names.begin())] = {
            static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2])};
    }
}

template void ParseConstraints(const std::string&, const std::array<const char*, kLaaParams>&,
                               std::array<ParamConstraint, kLaaParams>&);
template void ParseConstraints(const std::string&, const std::array<const char*, kApParams>&,
                               std::array<ParamConstraint, kApParams>&);

nlohmann::json FloatJson(float v) {
    char buf[32];
    const auto res = std::to_chars(buf, buf + sizeof buf, v);
    double d = 0;
    std::from_chars(buf, res.ptr, d);
    return d;
}

nlohmann::json ConstraintJson(const ParamConstraint& c) {
    return {FloatJson(c.min), FloatJson(c.start), FloatJson(c.max)};
}

void AddFitJson(nlohmann::json& j, const std::vector<std::string>& names,
                const MarquardtResult& fit, const std::string& remarks) {
    nlohmann::json est = nlohmann::json::object(), se = est, na = est, stars = est;
    for (size_t i = 0; i < names.size(); ++i) {
        est[names[i]] = FloatJson(fit.b[i]);
        se[names[i]] = FloatJson(fit.stdErr[i]);
        na[names[i]] = fit.stdErr[i] == 0;
        stars[names[i]] = fit.stars[i];
    }
    j["params"] = names;
    j["estimates"] = est;
    j["se"] = se;
    j["se_na"] = na;
    j["stars"] = stars;
    j["message"] = fit.message;
    j["remarks"] = remarks;
    j["icon"] = fit.icon;
    j["iterations"] = fit.iterations;
    j["r2"] = fit.assessed ? nlohmann::json(fit.r2) : nlohmann::json(nullptr);
    j["adj_r2"] = fit.assessed ? nlohmann::json(fit.adjustedR2) : nlohmann::json(nullptr);
    j["phi"] = fit.assessed ? nlohmann::json(fit.phi) : nlohmann::json(nullptr);
}

void PrintFit(const std::vector<std::string>& names, const MarquardtResult& fit,
              const std::string& remarks) {
    std::cout << "Parameter  Estimate  s.e.\n";
    for (size_t i = 0; i < names.size(); ++i)
        std::cout << names[i] << "  " << Format(fit.b[i], "#0.0000") << " " << fit.stars[i] << "  "
                  << StdErrText(fit.stdErr[i], "#0.0000") << "\n";
    if (fit.assessed)
        std::cout << "r = " << Format(fit.r2, "#0.0000")
                  << "  Adjusted r = " << Format(fit.adjustedR2, "#0.0000") << "\n";
    std::cout << "Iterations: " << fit.iterations << "\n" << remarks << "\n";
}

void CheckPlotPath(const std::string& plot, const std::string& data) {
    std::error_code ec;
    if (!plot.empty() && std::filesystem::equivalent(plot, data, ec))
        throw CLI::ValidationError("--plot", "would overwrite the data file");
}

}  // namespace norvo::cli
