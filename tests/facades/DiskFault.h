// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_FACADES_DISKFAULT_H_
#define ZEVO_TESTS_FACADES_DISKFAULT_H_

#include <string>

namespace zevo::testing {

/// What becomes of a call on a file.
enum class FaultKind {
  kNone,
  kError,       ///< it fails, having done nothing; a close that fails has closed
  kShortWrite,  ///< a write writes half; other calls succeed
  kDeath,       ///< the process is killed, in the middle of a write or before any other call
};

/// While it lives, the system's calls on the files of a folder are counted, and one of them meets a fault. The program
/// must export its symbols, so that the calls of the shared library arrive here. Not for use by several threads.
class DiskFault {
 public:
  /// `call` counts from 1.
  DiskFault(const std::string& folder, int call, FaultKind kind, int error = 0);
  DiskFault(const DiskFault&) = delete;
  DiskFault& operator=(const DiskFault&) = delete;
  ~DiskFault();

  /// The calls so far.
  int Calls() const;
  /// The function whose call met the fault; empty before that.
  const std::string& Struck() const;
  /// How many files of the folder are open.
  int OpenFiles() const;
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_FACADES_DISKFAULT_H_
