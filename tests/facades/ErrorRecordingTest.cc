// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/Error.h>
#include <zevo/facades/ErrorRecording.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>

namespace zevo {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Matcher;
using ::testing::Not;
using ::testing::Values;

struct Case {
  const char* name;
  std::function<void()> raise;
  int32_t number;
  std::string source;
  Matcher<const std::string&> kept;
  Matcher<const std::string&> emptied;
  std::optional<Matcher<const std::string&>> longer = std::nullopt;
};

void PrintTo(const Case& given, std::ostream* out) { *out << given.name; }

class ErrorRecordingTest : public ::testing::TestWithParam<Case> {
 protected:
  static std::shared_ptr<const AuditException> Record(OwnDescription own) {
    try {
      GetParam().raise();
    } catch (...) {
      return RecordError(own);
    }
    return nullptr;
  }

  static void ExpectRecord(OwnDescription own, const Matcher<const std::string&>& description) {
    const auto exception = Record(own);
    ASSERT_NE(exception, nullptr);
    EXPECT_EQ(exception->Number(), GetParam().number);
    EXPECT_EQ(exception->Source(), GetParam().source);
    EXPECT_THAT(exception->Description(), description);
  }
};

TEST_P(ErrorRecordingTest, KeepsUnknownDescriptions) { ExpectRecord(OwnDescription::kWithoutMessage, GetParam().kept); }

TEST_P(ErrorRecordingTest, EmptiesUnknownDescriptions) { ExpectRecord(OwnDescription::kNever, GetParam().emptied); }

TEST_P(ErrorRecordingTest, KeepsDescriptionsThatSayMoreThanTheMessage) {
  ExpectRecord(OwnDescription::kWithoutMessageOrLonger, GetParam().longer.value_or(GetParam().kept));
}

INSTANTIATE_TEST_SUITE_P(
    EveryKind, ErrorRecordingTest,
    Values(Case{"library error", [] { throw Error(-2147221503, "AuditFile.CreateAuditFile"); }, -2147221503,
                "AuditFile.CreateAuditFile", "Não foi indicado o nome do ficheiro SAFT-PT.",
                "Não foi indicado o nome do ficheiro SAFT-PT."},
           Case{"library error with a description", [] { throw Error(-2147221403, "S", "its own"); }, -2147221403, "S",
                "Já existe um Header associado ao ficheiro.", "Já existe um Header associado ao ficheiro."},
           Case{"library error that says more",
                [] { throw Error(-2147221502, "S", "Ficheiro SAFT-PT não encontrado: z."); }, -2147221502, "S",
                "Ficheiro SAFT-PT não encontrado.", "Ficheiro SAFT-PT não encontrado.",
                "Ficheiro SAFT-PT não encontrado: z."},
           Case{"negative number without a message", [] { throw Error(-2147221497, "S", "its own"); }, -2147221497, "S",
                "its own", ""},
           Case{"negative number far below the base",
                [] { throw Error(std::numeric_limits<int32_t>::min(), "S", "its own"); },
                std::numeric_limits<int32_t>::min(), "S", "its own", ""},
           Case{"minus one", [] { throw Error(-1, "S", "its own"); }, -1, "S", "its own", ""},
           Case{"negative number with nothing said", [] { throw Error(-2, ""); }, -2, "", "", ""},
           Case{"number of a message, but positive", [] { throw Error(101, "S", "its own"); }, 101, "S", "its own",
                "its own"},
           Case{"largest number", [] { throw Error(std::numeric_limits<int32_t>::max(), "S", "its own"); },
                std::numeric_limits<int32_t>::max(), "S", "its own", "its own"},
           Case{"zero", [] { throw Error(0, "S", "its own"); }, 0, "S", "its own", "its own"},
           Case{"no memory", [] { throw std::bad_alloc(); }, 7, "ZevoAdapters11", Not(IsEmpty()), Not(IsEmpty())},
           Case{"no memory for an array", [] { throw std::bad_array_new_length(); }, 7, "ZevoAdapters11",
                Not(IsEmpty()), Not(IsEmpty())},
           Case{"standard exception", [] { throw std::logic_error("what it says"); }, 5, "ZevoAdapters11",
                HasSubstr("what it says"), HasSubstr("what it says")},
           Case{"anything else", [] { throw 42; }, 5, "ZevoAdapters11", Not(IsEmpty()), Not(IsEmpty())}));

}  // namespace
}  // namespace zevo
