// What may go wrong: a value, or an error that tells why there is none.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace qsdps {

/// Why something failed, in words for the user.
struct Error {
    std::string text;
    std::string file = {}; ///< what messages call the file; empty where who asked knows
    int line = 0;          ///< of the file; 0: unknown

    /// The text, behind "line N: " where the line is known.
    [[nodiscard]] std::string message() const { return line > 0 ? "line " + std::to_string(line) + ": " + text : text; }
    /// The same error, of the file that messages call `name`.
    [[nodiscard]] Error in(const std::string& name) const { return {text, name, line}; }
};

/// A value or an error.
template <class T>
class [[nodiscard]] Result {
public:
    Result(T value) : _state(std::in_place_index<0>, std::move(value)) {}
    Result(Error error) : _state(std::in_place_index<1>, std::move(error)) {}

    /// Whether there is a value.
    explicit operator bool() const { return _state.index() == 0; }
    /// The value, which must be there.
    [[nodiscard]] T& operator*() & { return std::get<0>(_state); }
    [[nodiscard]] const T& operator*() const& { return std::get<0>(_state); }
    [[nodiscard]] T&& operator*() && { return std::get<0>(std::move(_state)); }
    [[nodiscard]] T* operator->() { return &std::get<0>(_state); }
    [[nodiscard]] const T* operator->() const { return &std::get<0>(_state); }
    /// The error, where there is no value.
    [[nodiscard]] const Error& error() const { return std::get<1>(_state); }

private:
    std::variant<T, Error> _state;
};

/// Done, or an error.
class [[nodiscard]] Status {
public:
    Status() = default;
    Status(Error error) : _error(std::move(error)) {}

    /// Whether it was done.
    explicit operator bool() const { return !_error; }
    /// The error, where it was not.
    [[nodiscard]] const Error& error() const { return *_error; }

private:
    std::optional<Error> _error;
};

} // namespace qsdps
