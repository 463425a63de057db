#pragma once
// A numerics header that reaches up into the data layer.
#include "data/data_store.h"
