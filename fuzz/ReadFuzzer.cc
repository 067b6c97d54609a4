// SPDX-License-Identifier: Apache-2.0
// Any bytes as an audit file: everything in it is read, and what is saved of it holds the same.

#include <zevo/adapters.h>

#include <cstddef>
#include <cstdint>

#include "fuzz/Expect.h"
#include "fuzz/FileInMemory.h"
#include "tests/facades/FileRecords.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static fuzz::FileInMemory given;
  static const testing::TemporaryFolder folder;
  static const std::string saved = folder.Path("saved.xml");

  given.Replace({reinterpret_cast<const char*>(data), size});
  const testing::FileRecords found = testing::ReadOneByOne(given.Path());
  AuditFile file;
  file.set_AuditFileName(given.Path());
  fuzz::Expect(file.OpenAuditFile() == !found.failure, "opened by one facade only");
  if (found.failure) return 0;
  file.set_AuditFileName(saved);
  fuzz::Expect(file.UpdateAuditFile(), "what was opened cannot be saved");
  const testing::FileRecords again = testing::ReadOneByOne(saved);
  fuzz::Expect(!again.failure, "what was saved cannot be opened");
  // A value may come from a tag that a section hides, and what is saved ends the section for some characters.
  if (testing::ReadBytes(saved).find("<![CDATA[") != std::string::npos) return 0;
  fuzz::ExpectNoDifference(testing::Difference(found, again), "the file and what was saved of it");
  return 0;
}

}  // namespace zevo
