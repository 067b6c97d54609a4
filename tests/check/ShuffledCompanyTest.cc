// SPDX-License-Identifier: Apache-2.0
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/check/CheckTest.h"
#include "tests/check/Shuffled.h"

namespace zevo::testing {
namespace {

class ShuffledCompanyTest : public CheckTest {
 protected:
  ShuffledCompanyTest() { checker_.AddPublicKey(ReadBytes(ZEVO_COMPANY_FOLDER "/public-key.pem")); }

  static std::vector<std::string> RulesOf(std::vector<std::string> findings) {
    for (std::string& line : findings) line.resize(line.find(' '));
    return findings;
  }

  // The sample company as the tool writes it.
  CleanFile Company() {
    const std::string path = folder_.Path("company.xml");
    const std::string command =
        "'" SAFT_PROGRAM "' create '" ZEVO_COMPANY_FOLDER "' '" + path + "' >'" + path + ".out' 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << ReadBytes(path + ".out");
    return CleanFile(ReadBytes(path));
  }
};

TEST_F(ShuffledCompanyTest, NothingIsFoundWhateverTheOrder) {
  const CleanFile company = Company();
  // What is told once a file is told of the first that comes.
  const std::vector<std::string> information = RulesOf(Findings(company));
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kClean);
  for (const uint64_t seed : {1U, 2U}) {
    EXPECT_THAT(RulesOf(Findings(Shuffled(company, seed))), ::testing::UnorderedElementsAreArray(information));
    EXPECT_EQ(checker_.Verdict(), CheckVerdict::kClean);
  }
}

}  // namespace
}  // namespace zevo::testing
