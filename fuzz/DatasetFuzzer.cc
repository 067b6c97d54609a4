// SPDX-License-Identifier: Apache-2.0
// Any text as a dataset: its files, each after a line with a number sign and its name, become an audit file, whatever
// is wrong with them.

#include <zevo/adapters.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <sstream>
#include <string>

#include "fuzz/Expect.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/saft/create/AuditFileOutput.h"
#include "tools/saft/create/EntriesWriter.h"
#include "tools/saft/create/InvoicesWriter.h"
#include "tools/saft/create/MasterFilesWriter.h"
#include "tools/saft/dataset/Dataset.h"
#include "tools/saft/dataset/RowIndex.h"
#include "tools/saft/errors/Failure.h"

namespace zevo {

namespace {

// Lays the files out; a name that no file of a dataset has is passed over with what follows it.
void WriteFiles(std::string_view text, const testing::TemporaryFolder& folder) {
  for (const saft::DatasetFile& file : saft::Dataset::Files()) {
    const std::string name(file.name);
    const std::string heading = "#" + name + "\n";
    const size_t begin = text.find(heading);
    if (begin == std::string_view::npos) {
      std::filesystem::remove(folder.Path(name));
      continue;
    }
    const std::string_view rest = text.substr(begin + heading.size());
    folder.Write(name, rest.substr(0, rest.find("\n#")));
  }
}

// The file is there also where there are errors, from what is read without.
void Create(const testing::TemporaryFolder& folder, const std::string& path, saft::AuditFileOutput::Way way) {
  std::ostringstream notes;
  saft::Dataset dataset(folder.Path(""));
  saft::RowIndex index;
  saft::AuditFileOutput output(path, path, way);
  saft::MasterFilesWriter(dataset, index, output).Write();
  saft::EntriesWriter(dataset, index, output, notes).Write();
  saft::InvoicesWriter(dataset, index, output, nullptr).Write();
  output.Save();
  dataset.RequireUnchanged();
  dataset.Altered().Report(notes);
  dataset.Faults().Report(notes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const testing::TemporaryFolder folder;
  static const testing::TemporaryFolder output;
  static const std::string path = output.Path("audit.xml");
  Options().set_SchemaLocation(ZEVO_SCHEMA_FILE);
  Options().set_ValidateOnAssignment(true);

  WriteFiles({reinterpret_cast<const char*>(data), size}, folder);
  for (const auto way : {saft::AuditFileOutput::kInMemory, saft::AuditFileOutput::kSequential}) {
    std::filesystem::remove(path);
    try {
      Create(folder, path, way);
    } catch (const saft::Failure& failure) {
      fuzz::Expect(*failure.what() != '\0', "a failure without a reason");
      continue;
    }
    AuditFileReader reader;
    reader.set_AuditFileName(path);
    fuzz::Expect(reader.OpenAuditFile(), "what was created cannot be opened");
  }
  return 0;
}

}  // namespace zevo
