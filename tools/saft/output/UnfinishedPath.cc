// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/output/UnfinishedPath.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/words/FileWords.h"

namespace zevo::saft {
namespace {

// With the name of the folder itself at its end, not a "/".
std::filesystem::path PlaceAt(const std::string& given) {
  std::filesystem::path place(given);
  return place.has_filename() ? place : place.parent_path();
}

void RequireFree(const std::filesystem::path& place, UnfinishedPath::What what) {
  std::error_code error;
  if (place.filename() == "." || place.filename() == ".." || std::filesystem::equivalent(place, ".", error)) {
    throw Failure(place.string(), Say(words::kFolderInUse));
  }
  const auto status = std::filesystem::symlink_status(place, error);
  if (!std::filesystem::exists(status)) return;
  if (what == UnfinishedPath::kFileInstead && !std::filesystem::is_directory(status)) return;
  if (what < UnfinishedPath::kFolder) throw Failure(place.string(), Say(words::kIsThere));
  if (!std::filesystem::is_directory(status)) throw Failure(place.string(), Say(words::kIsThereAndNoFolder));
  if (what == UnfinishedPath::kFolderInstead) return;
  if (!std::filesystem::is_empty(place, error)) throw Failure(place.string(), Say(words::kIsThereAndNotEmpty));
}

}  // namespace

UnfinishedPath::UnfinishedPath(const std::string& place, What what)
    : what_(what), place_(IsFolder() ? PlaceAt(place) : std::filesystem::path(place)) {
  RequireFree(place_, what);
  const std::string beside = place_.string() + "." + std::to_string(getpid()) + ".";
  for (int number = 0;; ++number) {
    folder_ = beside + std::to_string(number);
    // A file is made by whoever writes it: what makes new files alone could not use one that is there.
    path_ = IsFolder() ? folder_ : folder_ / place_.filename();
    // A folder that stays gets the permissions that the user's mask leaves. What is in another is nobody else's yet.
    if (mkdir(folder_.c_str(), IsFolder() ? 0777 : 0700) == 0) return;
    if (errno != EEXIST) FailWithSystemError(errno, place, true);
  }
}

UnfinishedPath::~UnfinishedPath() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

void UnfinishedPath::PutInPlace() {
  Interruption::ThrowIfRequested();
  if (IsFolder()) return PutFolderInPlace();
  std::error_code error;
  // A file that gives way leaves its permissions.
  if (const auto before = std::filesystem::symlink_status(place_, error); std::filesystem::is_regular_file(before)) {
    std::filesystem::permissions(path_, before.permissions(), error);
    if (error) FailWithSystemError(error.value(), place_.string());
  }
  std::filesystem::rename(path_, place_, error);
  if (error) FailWithSystemError(error.value(), place_.string());
  std::filesystem::remove(folder_, error);
}

void UnfinishedPath::PutFolderInPlace() {
  std::error_code error;
  // An empty folder that is there gives way by itself; another one is put aside until the new one has its place.
  std::filesystem::rename(path_, place_, error);
  if (!error) return;
  if (what_ != kFolderInstead || error != std::errc::directory_not_empty) {
    FailWithSystemError(error.value(), place_.string());
  }
  const std::filesystem::path aside = folder_.string() + ".before";
  std::filesystem::rename(place_, aside, error);
  if (error) FailWithSystemError(error.value(), place_.string());
  std::filesystem::rename(path_, place_, error);
  if (error) {
    std::error_code ignored;
    std::filesystem::rename(aside, place_, ignored);
    FailWithSystemError(error.value(), place_.string());
  }
  std::filesystem::remove_all(aside, error);
}

}  // namespace zevo::saft
