#pragma once
// Typed run-time faults. A computation that divides by zero, overflows, takes the logarithm or
// square root of a bad value, indexes out of range or converts bad text ends by one of these;
// the shell turns it into the "Programming defect detected" report, the CLI into exit code 3.
#include <stdexcept>
#include <string>

namespace norvo {

// Fault numbers follow the classic BASIC run-time error numbers, which users may quote.
enum class FaultNumber : int {
    InvalidCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
};

class Fault : public std::runtime_error {
  public:
    Fault(FaultNumber number, const std::string& description, std::string source = "Norvo II")
        : std::runtime_error(description), number_(number), source_(std::move(source)) {}
    int number() const { return static_cast<int>(number_); }
    FaultNumber code() const { return number_; }
    std::string description() const { return what(); }
    const std::string& source() const { return source_; }

  private:
    FaultNumber number_;
    std::string source_;
};

// Division by zero, overflow, and bad arguments to logarithm, root or power.
class ArithmeticFault : public Fault {
  public:
    using Fault::Fault;
};

// An index outside an array's bounds.
class SubscriptFault : public Fault {
  public:
    explicit SubscriptFault(const std::string& where = {})
        : Fault(FaultNumber::SubscriptOutOfRange, "Subscript out of range",
                where.empty() ? "Norvo II" : where) {}
};

// Text that is not a number where a number is required.
class ConversionFault : public Fault {
  public:
    explicit ConversionFault(const std::string& where = {})
        : Fault(FaultNumber::TypeMismatch, "Type mismatch", where.empty() ? "Norvo II" : where) {}
};

inline const char* const kDivisionByZero = "Division by zero";
inline const char* const kOverflow = "Overflow";
inline const char* const kInvalidCall = "Invalid procedure call or argument";

[[noreturn]] inline void ThrowDivisionByZero() {
    throw ArithmeticFault(FaultNumber::DivisionByZero, kDivisionByZero);
}
[[noreturn]] inline void ThrowOverflow() {
    throw ArithmeticFault(FaultNumber::Overflow, kOverflow);
}
[[noreturn]] inline void ThrowInvalidCall() {
    throw ArithmeticFault(FaultNumber::InvalidCall, kInvalidCall);
}

}  // namespace norvo
