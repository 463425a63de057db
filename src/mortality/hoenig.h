#pragma once
// Total mortality from the age of the oldest animals (Hoenig's two models).
#include <optional>

#include "base/outcome.h"

namespace norvo {

inline constexpr const char* kNoSelectionTitle = "No Selection";
inline constexpr const char* kNoSelectionMessage = "No model was selected to compute Z.";
// Shown by Compute.
inline constexpr const char* kTcNotBelowTmaxMessage =
    "tc must be smaller than tmax. Please adjust the values and try again.";
// Shown when the user leaves the tc box with a value not below tmax.
inline constexpr const char* kTcFieldNotBelowTmaxMessage =
    "The value of tc must be smaller than the value of tmax.";
inline constexpr const char* kHoenigModel1Caption = "Model 1";
inline constexpr const char* kHoenigModel2Caption = "Model 2";
inline constexpr const char* kHoenigSeCaption = "s.e.(Z):";

// Each Z and s.e. as shown.
inline constexpr const char* kHoenigFormat = "0.000";

// Model 1: ln Z = 1.44 - 0.984 ln tmax.
inline constexpr double kHoenigIntercept = 1.44;
inline constexpr double kHoenigSlope = 0.984;

// One row of the model 2 table: sample size N, coefficient c and standard error factor e.
struct HoenigRow {
    double n;
    double c;
    double e;
};
inline constexpr HoenigRow kHoenigTable[] = {
    {5, 0.583, 0.416},   {10, 0.405, 0.196},  {15, 0.344, 0.142},   {20, 0.311, 0.117},
    {25, 0.29, 0.102},   {30, 0.274, 0.091},  {35, 0.263, 0.084},   {40, 0.253, 0.078},
    {45, 0.245, 0.074},  {50, 0.239, 0.07},   {55, 0.233, 0.067},   {60, 0.228, 0.064},
    {65, 0.224, 0.062},  {70, 0.22, 0.06},    {75, 0.217, 0.058},   {80, 0.214, 0.057},
    {90, 0.208, 0.054},  {100, 0.204, 0.052}, {110, 0.2, 0.05},     {120, 0.196, 0.048},
    {140, 0.19, 0.045},  {160, 0.185, 0.043}, {180, 0.181, 0.041},  {200, 0.178, 0.04},
    {250, 0.171, 0.037}, {300, 0.165, 0.035}, {350, 0.161, 0.033},  {400, 0.157, 0.032},
    {450, 0.155, 0.031}, {500, 0.152, 0.03},  {600, 0.148, 0.028},  {700, 0.144, 0.027},
    {800, 0.142, 0.026}, {900, 0.139, 0.025}, {1000, 0.137, 0.025},
};

struct HoenigInput {
    bool model1 = false;
    bool model2 = false;
    float tmax = 0;
    float tc = 0;  // mean age at first capture (model 2)
    float n = 0;   // size of the sample of old animals (model 2)
};

struct HoenigResult : Outcome {
    std::optional<double> z1;   // model 1
    std::optional<double> z2;   // model 2
    std::optional<double> se2;  // s.e. of model 2's Z
};

// c and e for a sample size: linear between rows; beyond either end, the end row.
HoenigRow HoenigCoefficients(double n);

// Model 1 alone: exp(1.44 - 0.984 ln tmax); tmax <= 0 is an arithmetic fault.
double HoenigModel1(double tmax);

HoenigResult ComputeHoenig(const HoenigInput& in);

}  // namespace norvo
