// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FUZZ_FILEINMEMORY_H_
#define ZEVO_FUZZ_FILEINMEMORY_H_

#include <string>
#include <string_view>

namespace zevo::fuzz {

/// A file without a place on a disk, which its path opens as long as it lives.
class FileInMemory {
 public:
  FileInMemory();
  FileInMemory(const FileInMemory&) = delete;
  FileInMemory& operator=(const FileInMemory&) = delete;
  ~FileInMemory();

  const std::string& Path() const { return path_; }
  void Replace(std::string_view bytes);

 private:
  int descriptor_;
  std::string path_;
};

}  // namespace zevo::fuzz

#endif  // ZEVO_FUZZ_FILEINMEMORY_H_
