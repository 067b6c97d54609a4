// SPDX-License-Identifier: Apache-2.0
// Records made from the bytes, through both writers and both readers: whichever way they go, the same comes back.

#include <zevo/adapters.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "fuzz/Expect.h"
#include "tests/facades/Contents.h"
#include "tests/facades/FileRecords.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {

namespace {

// When the bytes have come to their end, every choice is the first.
class BytesAsChoices : public testing::Choices {
 public:
  BytesAsChoices(const uint8_t* data, size_t size) : next_(data), end_(data + size) {}

  size_t Below(size_t count) override {
    size_t value = 0;
    for (size_t reach = 1; reach < count && next_ != end_; reach <<= 8) value = value << 8 | *next_++;
    return value % count;
  }

 private:
  const uint8_t* next_;
  const uint8_t* end_;
};

template <class File>
void Create(const std::string& path, const testing::Contents& contents) {
  File file;
  file.set_AuditFileName(path);
  std::filesystem::remove(path);
  fuzz::Expect(testing::Write(file, contents), "what can be written was refused");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const testing::TemporaryFolder folder;
  static const std::string built = folder.Path("built.xml");
  static const std::string streamed = folder.Path("streamed.xml");

  BytesAsChoices choices(data, size);
  const testing::Contents contents(choices);
  Create<AuditFile>(built, contents);
  Create<AuditFileStreamWriter>(streamed, contents);
  const testing::FileRecords expected = testing::ReadOneByOne(built);
  fuzz::Expect(!expected.failure, "what was written cannot be read");
  fuzz::ExpectNoDifference(Difference(testing::ReadStreamed(built), expected), "of a built file");
  fuzz::ExpectNoDifference(Difference(testing::ReadOneByOne(streamed), expected), "streamed, and built");
  fuzz::ExpectNoDifference(Difference(testing::ReadStreamed(streamed), expected), "streamed both ways, and built");
  return 0;
}

}  // namespace zevo
