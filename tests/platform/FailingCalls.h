// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_PLATFORM_FAILINGCALLS_H_
#define ZEVO_TESTS_PLATFORM_FAILINGCALLS_H_

#include <string_view>

namespace zevo::testing {

/// While it lives, the nth call of one of the system's functions from now on fails with an error of the system. The
/// program must be linked with --wrap for each function. Not for use by several threads.
class FailingCall {
 public:
  FailingCall(std::string_view function, int nth, int error);
  FailingCall(const FailingCall&) = delete;
  FailingCall& operator=(const FailingCall&) = delete;
  ~FailingCall();

  /// Whether the call came and failed.
  bool Happened() const;
};

/// While it lives, reads and writes move no more than one byte.
class ShortTransfers {
 public:
  ShortTransfers();
  ShortTransfers(const ShortTransfers&) = delete;
  ShortTransfers& operator=(const ShortTransfers&) = delete;
  ~ShortTransfers();
};

/// While it lives, a call that may be interrupted by a signal is, every time before it succeeds.
class Interruptions {
 public:
  Interruptions();
  Interruptions(const Interruptions&) = delete;
  Interruptions& operator=(const Interruptions&) = delete;
  ~Interruptions();
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_PLATFORM_FAILINGCALLS_H_
