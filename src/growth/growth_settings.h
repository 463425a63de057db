#pragma once
// Growth parameters travel from a fit to the VBGF plot screen through the run-time settings
// "LastLoo" to "LastSL", as text written without the locale (a '.' for the decimals).
#include <array>
#include <optional>
#include <span>

#include "base/settings_store.h"
#include "growth/shown_number.h"
#include "growth/vbgf.h"

namespace norvo {

// Keys of Loo, K, C, WP, SS and SL, in that order.
inline constexpr std::array<const char*, 6> kGrowthSettingKeys = {"LastLoo", "LastK",  "LastC",
                                                                  "LastWP",  "LastSS", "LastSL"};
// What a key that was never written holds.
inline constexpr std::array<const char*, 6> kGrowthSettingDefaults = {"0.00", "0.00", "0.00",
                                                                      "0.00", "1",    "0.00"};

// Stores Loo, K, C, WP, SS and SL of `p`, each formatted with its pattern (the first six of
// `patterns`); with no parameters, six empty texts.
void StoreGrowthParams(SettingsStore& settings, const GrowthParams* p,
                       std::span<const char* const> patterns);

// What each key holds: its number, with a pattern of as many decimals as it was stored with;
// nothing for an empty text or a text that is not a number. A missing key reads as its default
// ("0.00", and "1" for "LastSS").
std::array<std::optional<ShownNumber>, 6> ReadGrowthSettings(const SettingsStore& settings);

}  // namespace norvo
