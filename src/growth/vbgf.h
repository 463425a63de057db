#pragma once
// The von Bertalanffy growth curve, plain and seasonal, and the reckoning of sample time in the
// year that the growth analyses share. A year has 365 days; the year of a date plays no part.
#include <array>
#include <cstdint>

namespace norvo {

// This very constant, not a more exact one: the scores depend on it.
inline constexpr double kTwoPi = 6.28318530717958;

// Days before each month, indexed by month 0..12 (month 0 counts the day alone).
inline constexpr std::array<int16_t, 13> kMonthStart = {0,   0,   31,  59,  90,  120, 151,
                                                        181, 212, 243, 273, 304, 334};

// Growth parameters and the starting point (sample number held as a float, and length).
struct GrowthParams {
    float loo = 0;
    float k = 0;
    float t0 = 0;
    float c = 0;
    float wp = 0;
    float ss = 0;
    float sl = 0;
};

// L = (1 - exp(-(t - t0) K)) Loo. Overflow of the exponential is an arithmetic fault.
double VbgfPlain(double t, double loo, double k, double t0);
// The seasonal curve with oscillation amplitude C and winter point WP.
double VbgfSeasonal(double t, double loo, double k, double t0, double c, double wp);

// Days before `month` (0..12); any other month is a SubscriptFault.
int16_t MonthStart(int month);
// Time of a date within the year, in years, as a 32-bit float.
float SampleTime(int day, int month);

// The length on the curve of `p` with origin `curveT0` at time t: plain when C is exactly 0,
// seasonal otherwise; stored as a float, raised by 0.005, floored at 0.
float GrowthLength(double t, const GrowthParams& p, float curveT0);

// The curve origin that puts length `sl` at time t. With C above 0 only the seasonal term of
// t enters, so the curve passes near, not exactly through, (t, sl). Faults: sl >= Loo takes
// the logarithm of a non-positive number, K = 0 divides by zero.
float GrowthT0(float sl, float t, const GrowthParams& p);
// GrowthT0 in two steps, for callers that meet one length and Loo under many K: the logarithm
// ln(1 - sl / Loo), with its faults, and the origin from it.
double GrowthT0Log(float sl, float loo);
float GrowthT0FromLog(double lg, float t, const GrowthParams& p);

}  // namespace norvo
