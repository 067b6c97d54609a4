// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/FolderTarget.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/saft/tables/SampleTables.h"
#include "tools/saft/errors/Failure.h"

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;

class FolderTargetTest : public ::testing::Test {
 protected:
  // The files under the folder, sorted.
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(books_)) {
      if (entry.is_regular_file()) names.push_back(entry.path().lexically_relative(books_).string());
    }
    std::ranges::sort(names);
    return names;
  }
  std::string Bytes(const std::string& name) const { return testing::ReadBytes(books_ + name); }
  // Makes the folder with a file.
  void Make(const FolderTarget::Choice& choice = {}) const {
    FolderTarget target(books_, tables_, choice);
    testing::AddFile(target, 1, {{.name = "a"}});
    target.Finish();
  }

  const std::vector<TableShape> tables_ = testing::SampleTables();
  testing::TemporaryFolder folder_;
  const std::string books_ = folder_.Path("books/");
};

TEST_F(FolderTargetTest, HasAFileForEachTableWithTheRowsOfAllFiles) {
  FolderTarget target(books_, tables_, {});
  testing::AddFile(target, 1, {{.name = "a"}, {.name = "b"}});
  testing::AddFile(target, 2, {{.name = "c"}});
  EXPECT_FALSE(std::filesystem::exists(books_));
  target.Finish();
  EXPECT_THAT(Files(), ElementsAre("datapackage.json", "files.csv", "items.csv"));
  EXPECT_EQ(Bytes("files.csv"),
            "file_id,position,name,sha256,tax_registration_number,start_date,end_date\n"
            "1,1,a.xml,00,501234560,2012-01-01,2012-12-31\n"
            "2,1,a.xml,00,501234560,2012-01-01,2012-12-31\n");
  EXPECT_EQ(Bytes("items.csv"),
            "file_id,position,file_position,name,amount,day,time\n1,1,1,a,,,\n1,2,1,b,,,\n2,1,1,c,,,\n");
}

TEST_F(FolderTargetTest, PartsTellCompanyAndYear) {
  FolderTarget target(books_, tables_, {.form = FolderForm::kJsonl, .parts = true});
  testing::AddFile(target, 1, {{.name = "a"}});
  testing::AddFile(target, 2, {}, "501234560", "2013");
  testing::AddFile(target, 3, {}, "501234560", "2013");
  testing::AddFile(target, 4, {}, "../É 1", "");
  testing::AddFile(target, 5, {}, "", "2012");
  target.Finish();
  EXPECT_THAT(
      Files(),
      ElementsAre("datapackage.json",  //
                  "files/company=%2E%2E%2F%C3%89%201/year=__HIVE_DEFAULT_PARTITION__/part-4.jsonl",
                  "files/company=501234560/year=2012/part-1.jsonl", "files/company=501234560/year=2013/part-2.jsonl",
                  "files/company=501234560/year=2013/part-3.jsonl",
                  "files/company=__HIVE_DEFAULT_PARTITION__/year=2012/part-5.jsonl",
                  "items/company=%2E%2E%2F%C3%89%201/year=__HIVE_DEFAULT_PARTITION__/part-4.jsonl",
                  "items/company=501234560/year=2012/part-1.jsonl", "items/company=501234560/year=2013/part-2.jsonl",
                  "items/company=501234560/year=2013/part-3.jsonl",
                  "items/company=__HIVE_DEFAULT_PARTITION__/year=2012/part-5.jsonl"));
  EXPECT_THAT(Bytes("items/company=501234560/year=2012/part-1.jsonl"),
              ::testing::StartsWith("{\"file_id\":1,\"position\":1,"));
  EXPECT_EQ(Bytes("items/company=501234560/year=2013/part-2.jsonl"), "");
  EXPECT_THAT(Bytes("datapackage.json"), ::testing::HasSubstr("\"items/company=501234560/year=2013/part-3.jsonl\""));
}

TEST_F(FolderTargetTest, NothingStaysOfWhatIsNotFinished) {
  for (const bool parts : {false, true}) {
    FolderTarget target(books_, tables_, {.parts = parts});
    testing::AddFile(target, 1, {{}});
    target.Begin();
    testing::AddItems(target, 2, {{}});
  }
  EXPECT_THAT(folder_.Names(), IsEmpty());
}

TEST_F(FolderTargetTest, AnExportIsReplacedOnlyWhenThatIsSaid) {
  Make();
  EXPECT_THAT([&] { Make(); },
              ThrowsMessage<Failure>(folder_.Path("books/") + ": is there already and is not empty; --replace "
                                                              "replaces a folder that has only tables"));
  Make({.parts = true, .replace = true});
  EXPECT_THAT(Files(), ElementsAre("datapackage.json", "files/company=501234560/year=2012/part-1.csv",
                                   "items/company=501234560/year=2012/part-1.csv"));
  Make({.form = FolderForm::kJsonl, .replace = true});
  EXPECT_THAT(Files(), ElementsAre("datapackage.json", "files.jsonl", "items.jsonl"));
  EXPECT_THAT(folder_.Names(), ElementsAre("books"));
}

TEST_F(FolderTargetTest, ReplacesNoFolderOfSomebodyElse) {
  Make();
  folder_.Write("books/letters.txt", "mine");
  EXPECT_THAT([&] { Make({.replace = true}); },
              ThrowsMessage<Failure>(books_ + ": is not replaced: it has \"letters.txt\" too"));
  std::filesystem::remove(books_ + "letters.txt");
  std::filesystem::remove(books_ + "datapackage.json");
  EXPECT_THAT([&] { Make({.replace = true}); },
              ThrowsMessage<Failure>(books_ + ": is not replaced: it is no export, which has datapackage.json"));
  EXPECT_THAT(Files(), ElementsAre("files.csv", "items.csv"));
}

TEST_F(FolderTargetTest, AFolderThatIsNotThereOrEmptyNeedsNoReplacing) {
  Make({.replace = true});
  std::filesystem::remove_all(books_);
  std::filesystem::create_directory(books_);
  Make();
  EXPECT_THAT(Files(), ElementsAre("datapackage.json", "files.csv", "items.csv"));
}

}  // namespace
}  // namespace zevo::saft
