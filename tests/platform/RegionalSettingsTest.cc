// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/RegionalSettings.h>

#include <clocale>
#include <cstdlib>
#include <ctime>
#include <string>
#include <utility>

#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

// A locale of the test's own: a system need not have any but "C".
class Portuguese {
 public:
  Portuguese() {
    const std::string compile = "localedef -i pt_PT -f UTF-8 '" + folder_.Path("pt_PT.UTF-8") + "' >/dev/null 2>&1";
    if (std::system(compile.c_str()) != 0) return;
    setenv("LOCPATH", folder_.Path("").c_str(), 1);
    known_ = std::setlocale(LC_ALL, "pt_PT.UTF-8") != nullptr;
  }
  ~Portuguese() {
    std::setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
  }
  bool IsKnown() const { return known_; }

 private:
  testing::TemporaryFolder folder_;
  bool known_ = false;
};

class TimeZone {
 public:
  explicit TimeZone(const char* zone) {
    setenv("TZ", zone, 1);
    tzset();
  }
  ~TimeZone() {
    unsetenv("TZ");
    tzset();
  }
};

// The date `hours` from universal time; false answers around midnight are met by asking before and after.
std::string DateAt(int hours) {
  const std::time_t moment = std::time(nullptr) + hours * 3600;
  std::tm parts{};
  gmtime_r(&moment, &parts);
  char text[16];
  return std::string(text, std::strftime(text, sizeof text, "%Y-%m-%d", &parts));
}

TEST(RegionalSettingsTest, SeparatorsAreThoseOfTheCLocaleUnlessTheHostSetAnother) {
  EXPECT_EQ(DecimalSeparator(), ".");
  EXPECT_EQ(ThousandsSeparator(), "");
}

TEST(RegionalSettingsTest, SeparatorsAreThoseOfTheLocaleThatTheHostSet) {
  const Portuguese locale;
  if (!locale.IsKnown()) GTEST_SKIP() << "no Portuguese locale can be made on this system";
  EXPECT_EQ(DecimalSeparator(), ",");
  EXPECT_EQ(ThousandsSeparator(), std::localeconv()->thousands_sep);
}

TEST(RegionalSettingsTest, ADateIsTheOneOfTheTimeZone) {
  // Fourteen hours ahead and twelve behind it is never the same day.
  for (const auto& [zone, hours] : {std::pair{"<+14>-14", 14}, std::pair{"<-12>12", -12}}) {
    const TimeZone local(zone);
    const std::string before = DateAt(hours);
    const std::string date = LocalDate();
    EXPECT_TRUE(date == before || date == DateAt(hours)) << date;
  }
}

}  // namespace
}  // namespace zevo
