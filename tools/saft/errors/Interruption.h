// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_ERRORS_INTERRUPTION_H_
#define ZEVO_TOOLS_SAFT_ERRORS_INTERRUPTION_H_

#include <array>
#include <csignal>
#include <cstddef>
#include <exception>

namespace zevo::saft {

/// Thrown to leave things in order before a signal ends the program.
class Interrupted : public std::exception {
 public:
  explicit Interrupted(int signal) : signal_(signal) {}
  const char* what() const noexcept override { return "interrupted"; }

  /// Ends the program as the signal would have done.
  void EndProgram() const;

 private:
  int signal_;
};

/// Notes the signals that ask the program to end instead of letting them end it, as long as an object of it exists. One
/// that is made while there is another changes nothing.
class Interruption {
 public:
  /// What a program is doing, which decides which signals are noted and what a second one does.
  enum class During {
    kReading,  ///< Ctrl-C; a second one ends the program at once
    kWriting,  ///< Ctrl-C, a request to end and the loss of the terminal; further ones change nothing
    /// The same ones while it waits for what it writes, such as at a pipe; a second of a kind ends the program at once.
    kWritingWhatComes,
  };

  explicit Interruption(During during);
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;
  ~Interruption();

  static bool IsRequested();
  /// Throws `Interrupted` when a signal was noted.
  static void ThrowIfRequested();

 private:
  using Handler = void (*)(int);

  static constexpr std::array kSignals{
      SIGINT,
      SIGTERM,
#ifdef SIGHUP
      SIGHUP,
#endif
  };
  bool within_;   // another one
  size_t noted_;  // how many of the signals are noted
  std::array<Handler, kSignals.size()> before_{};
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_ERRORS_INTERRUPTION_H_
