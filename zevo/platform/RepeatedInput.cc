// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/RepeatedInput.h>

#include <zevo/Error.h>
#include <zevo/platform/SystemFile.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace zevo {
namespace {

constexpr int64_t kBetween = int64_t{256} * 1024;

Error NoRoom() { return MakeRunTimeError(RunTimeError::kDeviceIO, "sem lugar para uma cópia da entrada padrão"); }

}  // namespace

/// What all passes read from.
class RepeatedInput::Store {
 public:
  explicit Store(std::string name) : name_(std::move(name)) {}

  size_t Read(int64_t from, char* bytes, size_t size) {
    if (!file_) Open();
    if (start_ >= 0) {
      MoveTo(*file_, start_ + from, at_);
      return Advance(file_->Read(bytes, size), at_);
    }
    const size_t length = ReadKept(from, bytes, size);
    if (length == size) return length;
    // What was taken of the pipe and could not be kept is gone.
    if (from + static_cast<int64_t>(length) != taken_) throw NoRoom();
    const size_t more = file_->Read(bytes + length, size - length);
    if (copy_) Keep(bytes + length, more);
    taken_ += static_cast<int64_t>(more);
    return length + more;
  }

  bool IsLost() const { return lost_; }

  bool CanRestart() {
    if (!file_) Open();
    return start_ >= 0;
  }
  void RequireUnchanged() {
    file_->Restart();
    at_ = start_;
  }

 private:
  void Open() {
    file_.emplace(name_);
    at_ = start_ = PositionOf(file_->Descriptor());
    if (file_->CanRestart()) return;
    const int copy = OpenNameless();
    if (copy >= 0) {
      copy_.emplace(std::string(name_), copy);
    } else {
      lost_ = true;
    }
  }

  // What passes before have read of a pipe.
  size_t ReadKept(int64_t from, char* bytes, size_t size) {
    if (!copy_ || from >= taken_) return 0;
    MoveTo(*copy_, from, in_copy_);
    const auto left = static_cast<uint64_t>(taken_ - from);
    return Advance(copy_->Read(bytes, static_cast<size_t>(std::min<uint64_t>(left, size))), in_copy_);
  }

  void Keep(const char* bytes, size_t size) {
    MoveTo(*copy_, taken_, in_copy_);
    while (size > 0) {
      const std::ptrdiff_t written = WriteSome(copy_->Descriptor(), bytes, size);
      if (written <= 0) {
        copy_.reset();
        lost_ = true;
        return;
      }
      in_copy_ += written;
      bytes += written;
      size -= static_cast<size_t>(written);
    }
  }

  // `at` is where the file stands.
  void MoveTo(const InputFile& file, int64_t position, int64_t& at) {
    if (at == position) return;
    if (SeekTo(file.Descriptor(), position) != 0) throw MakeRunTimeError(RunTimeError::kDeviceIO, name_);
    at = position;
  }
  static size_t Advance(size_t length, int64_t& at) {
    at += static_cast<int64_t>(length);
    return length;
  }

  std::string name_;
  std::optional<InputFile> file_;
  int64_t start_ = 0;              // in the file; -1 for a pipe
  int64_t at_ = 0;                 // in the file
  std::optional<InputFile> copy_;  // of a pipe
  int64_t in_copy_ = 0;
  int64_t taken_ = 0;  // of a pipe
  bool lost_ = false;  // what was taken
};

RepeatedInput::RepeatedInput(std::string name, Watch watch)
    : store_(std::make_shared<Store>(std::move(name))), watch_(std::move(watch)) {}
RepeatedInput::RepeatedInput(const RepeatedInput& other, Watch watch)
    : store_(other.store_), watch_(std::move(watch)) {}
RepeatedInput::~RepeatedInput() = default;

bool RepeatedInput::CanRewind() const { return !store_->IsLost(); }

void RepeatedInput::RequireRewind() const {
  if (!CanRewind()) throw NoRoom();
}

bool RepeatedInput::CanRestart() { return store_->CanRestart(); }

void RepeatedInput::Restart() {
  store_->RequireUnchanged();
  furthest_ = std::max(furthest_, told_);
  read_ = told_ = 0;
}

size_t RepeatedInput::Read(char* bytes, size_t size) {
  const size_t length = store_->Read(read_, bytes, size);
  read_ += static_cast<int64_t>(length);
  if (watch_) Tell(length < size);
  return length;
}

void RepeatedInput::Tell(bool atEnd) {
  if (read_ - told_ < kBetween && (!atEnd || read_ == told_)) return;
  told_ = read_;
  if (!watch_(std::max(read_, furthest_))) throw LibraryError(Message::kReadingAborted, {});
}

}  // namespace zevo
