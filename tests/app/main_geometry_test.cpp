#include "app/main_geometry.h"

#include <gtest/gtest.h>

namespace norvo {
namespace {

std::string Stored(const MemorySettingsStore& s, const char* key) {
    return s.get("Norvo II", "Settings", key, "<missing>");
}

TEST(MainGeometry, FirstRunOpensAtTheDefaults) {
    MemorySettingsStore s;
    const MainPlacement p = LoadMainPlacement(s);
    EXPECT_EQ(p.windowState, 0);
    EXPECT_EQ(p.left, 1900.0f);
    EXPECT_EQ(p.top, 1200.0f);
    EXPECT_EQ(p.width, 10000.0f);
    EXPECT_EQ(p.height, 8000.0f);
}

TEST(MainGeometry, NormalSessionRoundTripsThroughTheStore) {
    MemorySettingsStore s;
    SaveMainPlacement(s, {0, 2400.5f, 300, 12000, 9000});
    EXPECT_EQ(Stored(s, "MainLeft"), "2400.5");
    EXPECT_EQ(Stored(s, "WindowState"), "0");
    const MainPlacement p = LoadMainPlacement(s);
    EXPECT_EQ(p.left, 2400.5f);
    EXPECT_EQ(p.top, 300.0f);
    EXPECT_EQ(p.width, 12000.0f);
    EXPECT_EQ(p.height, 9000.0f);
    // Geometry keys never go under the run-time application.
    EXPECT_FALSE(s.contains("Norvo", "Settings", "MainLeft"));
}

TEST(MainGeometry, MaximisedSessionKeepsOldGeometryButOpensAtDefaults) {
    MemorySettingsStore s;
    SaveMainPlacement(s, {0, 3000, 450, 11000, 7000});
    SaveMainPlacement(s, {2, 0, 0, 20000, 15000});  // closed maximised
    EXPECT_EQ(Stored(s, "WindowState"), "2");
    EXPECT_EQ(Stored(s, "MainLeft"), "3000");  // untouched
    EXPECT_EQ(Stored(s, "MainWidth"), "11000");

    const MainPlacement p = LoadMainPlacement(s);
    EXPECT_EQ(p.windowState, 2);
    EXPECT_EQ(p.left, 1900.0f);
    EXPECT_EQ(p.top, 1200.0f);
    EXPECT_EQ(p.width, 10000.0f);
    EXPECT_EQ(p.height, 8000.0f);
}

TEST(MainGeometry, UnreadableNumbersFallBackToDefaults) {
    MemorySettingsStore s;
    s.set("Norvo II", "Settings", "MainLeft", "abc");
    s.set("Norvo II", "Settings", "MainTop", "1e99");
    s.set("Norvo II", "Settings", "MainWidth", " 9000");
    const MainPlacement p = LoadMainPlacement(s);
    EXPECT_EQ(p.left, 1900.0f);
    EXPECT_EQ(p.top, 1200.0f);
    EXPECT_EQ(p.width, 9000.0f);
}

TEST(MainGeometry, TwipsAndPixels) {
    EXPECT_EQ(TwipsToPixels(1900), 127);
    EXPECT_EQ(TwipsToPixels(10000), 667);
    EXPECT_EQ(PixelsToTwips(667), 10005.0f);
}

}  // namespace
}  // namespace norvo
