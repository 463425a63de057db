#include "growth/growth_settings.h"

#include <charconv>
#include <cmath>
#include <string>
#include <string_view>

#include "base/fault.h"
#include "base/format.h"

namespace norvo {
namespace {

// A stored text as a number: the whole text, blanks around it aside, in the '.' notation.
std::optional<ShownNumber> StoredNumber(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    if (text.empty()) return std::nullopt;
    double v = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
    if (ec != std::errc() || end != text.data() + text.size() || !std::isfinite(v))
        return std::nullopt;
    ShownNumber n{v, "0"};
    const auto dot = text.find('.');
    if (dot != std::string_view::npos) {
        size_t decimals = 0;
        while (dot + 1 + decimals < text.size() && text[dot + 1 + decimals] >= '0' &&
               text[dot + 1 + decimals] <= '9')
            ++decimals;
        if (decimals > 0) n.pattern = "0." + std::string(decimals, '0');
    }
    return n;
}

}  // namespace

void StoreGrowthParams(SettingsStore& settings, const GrowthParams* p,
                       std::span<const char* const> patterns) {
    if (p && patterns.size() < kGrowthSettingKeys.size()) throw SubscriptFault("StoreGrowthParams");
    const std::array<double, 6> values =
        p ? std::array<double, 6>{p->loo, p->k, p->c, p->wp, p->ss, p->sl}
          : std::array<double, 6>{};
    for (size_t i = 0; i < kGrowthSettingKeys.size(); ++i)
        settings.setRunTime(kGrowthSettingKeys[i], p ? Format(values[i], patterns[i]) : "");
}

std::array<std::optional<ShownNumber>, 6> ReadGrowthSettings(const SettingsStore& settings) {
    std::array<std::optional<ShownNumber>, 6> out;
    for (size_t i = 0; i < kGrowthSettingKeys.size(); ++i)
        out[i] = StoredNumber(settings.runTime(kGrowthSettingKeys[i], kGrowthSettingDefaults[i]));
    return out;
}

}  // namespace norvo
