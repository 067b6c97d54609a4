// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_PLATFORM_WATCHEDFILE_H_
#define ZEVO_TESTS_PLATFORM_WATCHEDFILE_H_

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <string>
#include <string_view>

#include "tests/support/TemporaryFolder.h"

namespace zevo::testing {

/// A file that tells whether anybody opened it.
class WatchedFile {
 public:
  WatchedFile(const TemporaryFolder& folder, std::string_view name, std::string_view bytes)
      : path_(folder.Write(name, bytes)), watch_(inotify_init1(IN_NONBLOCK)) {
    EXPECT_GE(inotify_add_watch(watch_, path_.c_str(), IN_OPEN), 0);
    // The watch is seen to work before it is relied on.
    close(open(path_.c_str(), O_RDONLY));
    EXPECT_TRUE(WasOpened());
  }
  WatchedFile(const WatchedFile&) = delete;
  WatchedFile& operator=(const WatchedFile&) = delete;
  ~WatchedFile() { close(watch_); }

  const std::string& Path() const { return path_; }
  /// Since the last time that it was asked.
  bool WasOpened() {
    std::array<char, 4096> events{};
    return read(watch_, events.data(), events.size()) > 0;
  }

 private:
  std::string path_;
  int watch_;
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_PLATFORM_WATCHEDFILE_H_
