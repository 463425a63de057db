#include "app/main_geometry.h"

#include <charconv>
#include <cmath>
#include <string>

#include <fmt/format.h>

namespace norvo {

namespace {

// A stored single-precision number; text that is not one gives the default.
float ReadSingle(const SettingsStore& s, const char* key, float fallback) {
    const std::string text = s.get(kAppTitle, kSectionSettings, key, fmt::format("{}", fallback));
    float v = 0;
    const char* first = text.data();
    while (first != text.data() + text.size() && *first == ' ') ++first;
    auto [ptr, ec] = std::from_chars(first, text.data() + text.size(), v);
    if (ec != std::errc() || !std::isfinite(v)) return fallback;
    return v;
}

int ReadState(const SettingsStore& s) {
    const std::string text = s.get(kAppTitle, kSectionSettings, kKeyWindowState, "0");
    int v = 0;
    auto [ptr, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
    return ec == std::errc() ? v : kWindowNormal;
}

}  // namespace

MainPlacement LoadMainPlacement(const SettingsStore& settings) {
    MainPlacement p;
    p.windowState = ReadState(settings);
    if (p.windowState != kWindowNormal) return p;
    p.left = ReadSingle(settings, kKeyMainLeft, kDefaultMainLeft);
    p.top = ReadSingle(settings, kKeyMainTop, kDefaultMainTop);
    p.width = ReadSingle(settings, kKeyMainWidth, kDefaultMainWidth);
    p.height = ReadSingle(settings, kKeyMainHeight, kDefaultMainHeight);
    return p;
}

void SaveMainPlacement(SettingsStore& settings, const MainPlacement& p) {
    if (p.windowState == kWindowNormal) {
        settings.set(kAppTitle, kSectionSettings, kKeyMainLeft, fmt::format("{}", p.left));
        settings.set(kAppTitle, kSectionSettings, kKeyMainTop, fmt::format("{}", p.top));
        settings.set(kAppTitle, kSectionSettings, kKeyMainWidth, fmt::format("{}", p.width));
        settings.set(kAppTitle, kSectionSettings, kKeyMainHeight, fmt::format("{}", p.height));
    }
    settings.set(kAppTitle, kSectionSettings, kKeyWindowState, std::to_string(p.windowState));
}

}  // namespace norvo
