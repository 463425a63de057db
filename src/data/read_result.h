#pragma once
// What a reader returns: the data it read, or the notice that tells the user why it could not.
#include <string>
#include <utility>
#include <variant>

#include "base/user_notice.h"
#include "data/store_routines.h"

namespace norvo {

// A file that could not be read: its path and the notice for the user.
struct ReadError {
    std::string path;
    UserNotice notice;
};

// The "Invalid Data" failure of every reader.
inline ReadError InvalidDataError(const std::string& path) {
    return {path, {kCorruptedOrWrongFormat, kInvalidDataTitle, Buttons::Ok, Icon::Warning}};
}

template <class T>
class ReadResult {
  public:
    ReadResult(T value) : v_(std::move(value)) {}          // NOLINT: implicit on purpose
    ReadResult(ReadError error) : v_(std::move(error)) {}  // NOLINT
    bool ok() const { return v_.index() == 0; }
    explicit operator bool() const { return ok(); }
    const T& value() const& { return std::get<0>(v_); }
    T& value() & { return std::get<0>(v_); }
    T&& value() && { return std::get<0>(std::move(v_)); }
    const T* operator->() const { return &value(); }
    const T& operator*() const { return value(); }
    const ReadError& error() const { return std::get<1>(v_); }

  private:
    std::variant<T, ReadError> v_;
};

}  // namespace norvo
