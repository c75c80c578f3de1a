// A value, or why there is none.
#pragma once

#include <optional>
#include <utility>
#include <variant>

#include "common/Outcome.h"

namespace vintoral {

template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : held_(std::in_place_index<0>, std::move(value)) {}  // NOLINT(google-explicit-constructor)
  /// `failure` is one that failed.
  Result(Outcome failure)  // NOLINT(google-explicit-constructor): "return Outcome::Failed(…)"
      : held_(std::in_place_index<1>, std::move(failure)) {}

  explicit operator bool() const { return held_.index() == 0; }
  /// The value; ask first whether there is one.
  const T& operator*() const { return *std::get_if<0>(&held_); }
  const T* operator->() const { return std::get_if<0>(&held_); }
  T&& Take() { return std::move(*std::get_if<0>(&held_)); }
  /// Done where there is a value.
  Outcome Why() const { return *this ? Outcome::Done() : *std::get_if<1>(&held_); }
  /// Goes on with the value or without: a failure is written to standard error, and nobody else is told.
  std::optional<T> PassOver() {
    Why().PassOver();
    return *this ? std::optional<T>(Take()) : std::nullopt;
  }

  /// Whether there is a value and it is this one.
  friend bool operator==(const Result& result, const T& value) { return result && *result == value; }

 private:
  std::variant<T, Outcome> held_;
};

}  // namespace vintoral
