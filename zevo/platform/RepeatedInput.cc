// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/RepeatedInput.h>

#include <zevo/Error.h>
#include <zevo/platform/SystemFile.h>

#include <algorithm>
#include <utility>

namespace zevo {
namespace {

constexpr int64_t kBetween = int64_t{256} * 1024;

}  // namespace

RepeatedInput::RepeatedInput(std::string name, Watch watch) : name_(std::move(name)), watch_(std::move(watch)) {}
RepeatedInput::~RepeatedInput() = default;

void RepeatedInput::Open() {
  file_.emplace(name_);
  start_ = PositionOf(file_->Descriptor());
  if (start_ >= 0) return;
  const int copy = OpenNameless();
  if (copy >= 0) {
    copy_.emplace(std::string(name_), copy);
  } else {
    lost_ = true;
  }
}

size_t RepeatedInput::Read(char* bytes, size_t size) {
  if (!file_) Open();
  size_t length = ReadKept(bytes, size);
  if (length < size) {
    const size_t more = file_->Read(bytes + length, size - length);
    if (copy_) Keep(bytes + length, more);
    length += more;
  }
  read_ += static_cast<int64_t>(length);
  if (watch_) Tell(length < size);
  return length;
}

// What a pass before has read of a pipe.
size_t RepeatedInput::ReadKept(char* bytes, size_t size) {
  if (!copy_ || read_ >= kept_) return 0;
  const auto left = static_cast<uint64_t>(kept_ - read_);
  return copy_->Read(bytes, static_cast<size_t>(std::min<uint64_t>(left, size)));
}

// The copy stands at its end.
void RepeatedInput::Keep(const char* bytes, size_t size) {
  while (size > 0) {
    const std::ptrdiff_t written = WriteSome(copy_->Descriptor(), bytes, size);
    if (written <= 0) {
      copy_.reset();
      lost_ = true;
      return;
    }
    kept_ += written;
    bytes += written;
    size -= static_cast<size_t>(written);
  }
}

void RepeatedInput::Rewind() {
  if (!file_) return;
  const int moved = copy_ ? SeekTo(copy_->Descriptor(), 0) : SeekTo(file_->Descriptor(), start_);
  if (moved != 0) throw MakeRunTimeError(RunTimeError::kDeviceIO, name_);
  read_ = told_ = 0;
}

void RepeatedInput::Tell(bool atEnd) {
  if (read_ - told_ < kBetween && (!atEnd || read_ == told_)) return;
  told_ = read_;
  if (!watch_(read_)) throw LibraryError(Message::kReadingAborted, {});
}

}  // namespace zevo
