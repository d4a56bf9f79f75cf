#pragma once

#include <string>
#include <utility>
#include <variant>

namespace tarvin {

/// The error number (errno) of a failed system call.
struct SystemError {
    int code = 0;

    bool operator==(const SystemError&) const = default;

    /// The system's message, in the language of the process.
    [[nodiscard]] std::string text() const;
};

/// The result of a call that can fail: a value or an error. Our code does not throw exceptions.
template <typename Value, typename Error = SystemError>
class [[nodiscard]] Result final {
 public:
    Result(Value value) : content_(std::in_place_index<0>, std::move(value)) {}  // NOLINT
    Result(Error error) : content_(std::in_place_index<1>, std::move(error)) {}  // NOLINT

    [[nodiscard]] bool ok() const { return content_.index() == 0; }
    explicit operator bool() const { return ok(); }

    /// These require ok().
    [[nodiscard]] Value& value() { return *std::get_if<0>(&content_); }
    [[nodiscard]] const Value& value() const { return *std::get_if<0>(&content_); }
    Value& operator*() { return value(); }
    const Value& operator*() const { return value(); }
    Value* operator->() { return &value(); }
    const Value* operator->() const { return &value(); }

    /// Requires !ok().
    [[nodiscard]] Error error() const { return *std::get_if<1>(&content_); }

 private:
    std::variant<Value, Error> content_;
};

}  // namespace tarvin
