#pragma once
// Sets the decimal separator for one test and gives back the one in force before, which is the
// locale's when the suite runs in another locale.
#include "numerics/text_convert.h"

namespace norvo::test {

class ScopedDecimalSeparator {
  public:
    explicit ScopedDecimalSeparator(char separator) : was_(DecimalSeparator()) {
        SetDecimalSeparator(separator);
    }
    ~ScopedDecimalSeparator() { SetDecimalSeparator(was_); }
    ScopedDecimalSeparator(const ScopedDecimalSeparator&) = delete;
    ScopedDecimalSeparator& operator=(const ScopedDecimalSeparator&) = delete;

  private:
    char was_;
};

}  // namespace norvo::test
