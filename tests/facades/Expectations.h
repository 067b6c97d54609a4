// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_FACADES_EXPECTATIONS_H_
#define ZEVO_TESTS_FACADES_EXPECTATIONS_H_

#include <gmock/gmock.h>
#include <zevo/model/AuditException.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace zevo::testing {

/// One of the library's messages: the full number that a host sees, and the text.
struct LibraryMessage {
  int32_t number;
  std::string_view text;
};

inline std::ostream& operator<<(std::ostream& out, const LibraryMessage& message) {
  return out << message.number << " \"" << message.text << '"';
}

inline constexpr LibraryMessage kNoFileName{-2147221503, "Não foi indicado o nome do ficheiro SAFT-PT."};
inline constexpr LibraryMessage kFileNotFound{-2147221502, "Ficheiro SAFT-PT não encontrado."};
inline constexpr LibraryMessage kFileExists{-2147221501, "Ficheiro SAFT-PT já existente."};
inline constexpr LibraryMessage kAlreadyStarted{-2147221500, "O processo de exportação já foi iniciado."};
inline constexpr LibraryMessage kNotStarted{-2147221499, "O processo de exportação ainda não foi iniciado."};
inline constexpr LibraryMessage kHeaderExists{-2147221403, "Já existe um Header associado ao ficheiro."};
inline constexpr LibraryMessage kHeaderMissing{-2147221402, "Ainda não existe um Header associado ao ficheiro."};
inline constexpr LibraryMessage kMessage201{-2147221303,
                                            "Ainda não existe um GeneralLedgerEntries associado ao ficheiro."};
inline constexpr LibraryMessage kMessage202{-2147221302, "Já existe um GeneralLedgerEntries associado ao ficheiro."};
inline constexpr LibraryMessage kJournalMissing{-2147221253, "Ainda não existe o Journal associado à Transaction."};
inline constexpr LibraryMessage kSalesInvoicesMissing{-2147221203,
                                                      "Ainda não existe um SalesInvoices associado ao ficheiro."};
inline constexpr LibraryMessage kSalesInvoicesExist{-2147221202, "Já existe um SalesInvoices associado ao ficheiro."};

inline constexpr int32_t kInvalidCall = 5;
inline constexpr int32_t kOverflow = 6;
inline constexpr int32_t kOutOfMemory = 7;
inline constexpr int32_t kTypeMismatch = 13;
inline constexpr int32_t kBadFileName = 52;
inline constexpr int32_t kDiskFull = 61;
inline constexpr int32_t kPermissionDenied = 70;
inline constexpr int32_t kPathFileAccess = 75;
inline constexpr int32_t kPathNotFound = 76;
inline constexpr int32_t kDuplicateKey = 457;

inline constexpr std::string_view kLoadSource = "MSXML2.DOMDocument.Load";
inline constexpr std::string_view kStreamSource = "MSXML2.SAXXMLReader.ParseURL";
inline constexpr std::string_view kValidationSource = "MSXML2.FreeThreadedDOMDocument40.Load";

/// What a façade recorded, in words.
inline std::string Told(const std::shared_ptr<const AuditException>& exception) {
  if (exception == nullptr) return "nothing recorded";
  return std::to_string(exception->Number()) + " from \"" + exception->Source() + "\": \"" + exception->Description() +
         '"';
}

/// A façade whose last operation failed with one of the library's messages, raised by `source`.
MATCHER_P2(Recorded, message, source, "recorded message " + ::testing::PrintToString(message) + " from " + source) {
  const auto& exception = arg.AuditException();
  *result_listener << Told(exception);
  return exception != nullptr && exception->Number() == message.number && exception->Source() == source &&
         exception->Description() == message.text;
}

/// A façade whose last operation failed with an error that describes itself.
MATCHER_P3(RecordedError, number, source, description, "recorded error " + std::to_string(number) + " from " + source) {
  const auto& exception = arg.AuditException();
  *result_listener << Told(exception);
  return exception != nullptr && exception->Number() == number && exception->Source() == source &&
         ::testing::Matches(description)(exception->Description());
}

/// A façade whose last operation failed with an error of the XML parser or validator.
MATCHER_P(RecordedXmlErrorFrom, source, std::string("recorded an error of the XML parser from ") + source.data()) {
  const auto& exception = arg.AuditException();
  *result_listener << Told(exception);
  return exception != nullptr && exception->Number() > 0 && exception->Source() == source &&
         !exception->Description().empty();
}

/// A façade whose last operation succeeded.
MATCHER(RecordedNothing, "recorded nothing") {
  *result_listener << Told(arg.AuditException());
  return arg.AuditException() == nullptr;
}

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_FACADES_EXPECTATIONS_H_
