#pragma once
// Where the main window opens and what it stores on closing. Geometry is kept in twips as
// single-precision numbers; a window closed maximised or minimised keeps its last normal
// geometry in the store but opens next time at the fixed defaults.
#include "base/settings_store.h"

namespace norvo {

inline constexpr const char* kKeyWindowState = "WindowState";
inline constexpr const char* kKeyMainLeft = "MainLeft";
inline constexpr const char* kKeyMainTop = "MainTop";
inline constexpr const char* kKeyMainWidth = "MainWidth";
inline constexpr const char* kKeyMainHeight = "MainHeight";

inline constexpr int kWindowNormal = 0;
inline constexpr int kWindowMinimized = 1;
inline constexpr int kWindowMaximized = 2;

inline constexpr float kDefaultMainLeft = 1900;
inline constexpr float kDefaultMainTop = 1200;
inline constexpr float kDefaultMainWidth = 10000;
inline constexpr float kDefaultMainHeight = 8000;

// 15 twips a pixel at 96 dots per inch.
inline constexpr double kTwipsPerPixel = 15.0;

struct MainPlacement {
    int windowState = kWindowNormal;
    float left = kDefaultMainLeft;  // twips
    float top = kDefaultMainTop;
    float width = kDefaultMainWidth;
    float height = kDefaultMainHeight;
};

// Reads the placement at main-window load: the stored geometry only when the stored state is
// normal, otherwise the four defaults. Unreadable numbers fall back to their defaults.
MainPlacement LoadMainPlacement(const SettingsStore& settings);

// Writes the placement at main-window closing: the four geometry keys only when the state is
// normal, the state always.
void SaveMainPlacement(SettingsStore& settings, const MainPlacement& placement);

inline int TwipsToPixels(double twips) {
    return static_cast<int>(twips / kTwipsPerPixel + 0.5);
}
inline float PixelsToTwips(int pixels) {
    return static_cast<float>(pixels * kTwipsPerPixel);
}

}  // namespace norvo
