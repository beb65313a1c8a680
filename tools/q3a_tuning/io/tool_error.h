// The one error type of the tool's helpers, and the exit codes it carries.
// Helpers return errors and never print or exit on their own; the command
// that called them reports the message on stderr and exits with its code.
#ifndef TOOLS_Q3A_TUNING_IO_TOOL_ERROR_H_
#define TOOLS_Q3A_TUNING_IO_TOOL_ERROR_H_

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace q3a_tool {

inline constexpr int kExitOk = 0;
// A finding, a difference, or a result that could not be produced.
inline constexpr int kExitFailure = 1;
// A usage error, or an input that cannot be read at all.
inline constexpr int kExitUsage = 2;

struct ToolError {
  // Ready for stderr: names the file and, where known, the field.
  std::string message;
  int exit_code = kExitFailure;
};

// A value or the error that prevented it; Result<> for an operation that
// gives no value.
template <typename T = void>
class [[nodiscard]] Result {
 public:
  Result(T value) : state_(std::move(value)) {}             // NOLINT
  Result(ToolError error) : state_(std::move(error)) {}     // NOLINT

  bool ok() const { return state_.index() == 0; }
  T& operator*() { return std::get<0>(state_); }
  const T& operator*() const { return std::get<0>(state_); }
  T* operator->() { return &std::get<0>(state_); }
  const T* operator->() const { return &std::get<0>(state_); }
  const ToolError& error() const { return std::get<1>(state_); }

 private:
  std::variant<T, ToolError> state_;
};

template <>
class [[nodiscard]] Result<void> {
 public:
  Result() = default;
  Result(ToolError error) : error_(std::move(error)) {}  // NOLINT

  bool ok() const { return !error_.has_value(); }
  const ToolError& error() const { return *error_; }

 private:
  std::optional<ToolError> error_;
};

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_TOOL_ERROR_H_
