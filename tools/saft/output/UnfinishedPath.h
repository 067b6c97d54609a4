// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_OUTPUT_UNFINISHEDPATH_H_
#define ZEVO_TOOLS_SAFT_OUTPUT_UNFINISHEDPATH_H_

#include <filesystem>
#include <string>

namespace zevo::saft {

/// A new file or folder that is written beside its place and put there when it is whole: until then, and after a
/// failure, there is nothing.
class UnfinishedPath {
 public:
  enum What {
    kFile,
    kFileInstead,  ///< of another one, which stays until then and leaves its permissions
    kFolder,
    kFolderInstead,  ///< of another one, which stays until then; whether that may go is for the caller to see to
  };

  /// Fails when something is there already, save an empty folder for a folder, and a file where one is replaced.
  UnfinishedPath(const std::string& place, What what);
  UnfinishedPath(const UnfinishedPath&) = delete;
  UnfinishedPath& operator=(const UnfinishedPath&) = delete;
  ~UnfinishedPath();

  /// Where to write: a folder is there, a file is not.
  const std::filesystem::path& Path() const { return path_; }
  /// To be called once everything is written and closed. Throws `Interrupted` where a signal was noted.
  void PutInPlace();

 private:
  bool IsFolder() const { return what_ >= kFolder; }
  void PutFolderInPlace();

  What what_;
  std::filesystem::path place_;
  std::filesystem::path folder_;  // beside it
  std::filesystem::path path_;    // that folder, or the file in it
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_OUTPUT_UNFINISHEDPATH_H_
