#pragma once
// The normal distribution as the separation methods compute it: a polynomial approximation of
// the error function for the cumulative distribution, in a 64-bit form and a 32-bit form whose
// constants and intermediate values are all single-precision floats.
namespace norvo {

// P(X <= x) for X ~ N(mean, sd). sd = 0 is the division-by-zero fault.
double NormalCdf(double x, double mean, double sd);
float NormalCdf32(float x, float mean, float sd);

// Density of N(mean, sd) at x.
double NormalPdf(double x, double mean, double sd);
float NormalPdf32(float x, float mean, float sd);

}  // namespace norvo
