// SPDX-License-Identifier: Apache-2.0
// Any bytes as an audit file, read as events; a handler that has seen enough ends the reading.

#include <zevo/adapters.h>

#include <cstddef>
#include <cstdint>

#include "fuzz/Expect.h"
#include "fuzz/FileInMemory.h"
#include "tests/facades/FileRecords.h"

namespace zevo {

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static fuzz::FileInMemory given;
  given.Replace({reinterpret_cast<const char*>(data), size});
  const size_t records = testing::ReadStreamed(given.Path()).records.size();

  // The same file, left in the middle.
  AuditFileStreamer streamer;
  size_t seen = 0;
  streamer.ReadEntity = [&](const std::string&, const std::shared_ptr<Record>&) {
    fuzz::Expect(seen <= records / 2, "a record after the reading was ended");
    if (seen++ == records / 2) streamer.AbortReading();
  };
  streamer.set_AuditFileName(given.Path());
  fuzz::Expect(streamer.OpenAuditFile(), "not ready to read");
  streamer.ReadAuditFile();
  return 0;
}

}  // namespace zevo
