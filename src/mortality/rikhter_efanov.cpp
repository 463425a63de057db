#include "mortality/rikhter_efanov.h"

#include "base/checked.h"
#include "numerics/validators.h"

namespace norvo {

RikhterEfanovResult ComputeRikhterEfanov(const RikhterEfanovInput& in) {
    RikhterEfanovResult r;
    if (!InRange(in.tm, 0.10f, 22.0f)) {
        r.refuse(kRikhterLimitMessage, kRikhterInvalidTitle);
        return r;
    }
    r.m = Div(1.52, Pow(in.tm, 0.72)) - 0.16;
    return r;
}

}  // namespace norvo
