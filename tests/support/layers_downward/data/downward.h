#pragma once
// A data header that uses the layers below it.
#include "base/fault.h"
#include "numerics/regression.h"
