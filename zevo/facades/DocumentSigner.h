// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_DOCUMENTSIGNER_H_
#define ZEVO_FACADES_DOCUMENTSIGNER_H_

#include <zevo/Api.h>
#include <zevo/model/Invoice.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zevo {

/// Signs documents with the private key of the program that issues them: RSA with SHA-1 over
/// InvoiceDate;SystemEntryDate;InvoiceNo;GrossTotal; and the Hash of the document before in the same series, as
/// Portaria 363/2010 has it. The rule HASH-CHAIN of `AuditFileChecker` verifies it with the public key.
///
/// An object is used by one thread at a time.
class ZEVO_API DocumentSigner {
 public:
  /// What a text is as a private key.
  enum class KeyKind : uint8_t {
    kUsable,     ///< An RSA key of 1024 bits.
    kOtherSize,  ///< One of other than 1024 bits, whose signatures are no Hash.
    kEncrypted,  ///< One that cannot be read without its password.
    kNone,       ///< Neither.
  };
  /// What has become of a document.
  enum class Outcome : uint8_t {
    kSigned,       ///< It has its Hash.
    kKept,         ///< It had one, which stays.
    kNotNumbered,  ///< Its InvoiceNo is not like "FT A/12"; it stays as it was.
    kOutOfOrder,   ///< A document of its series with this number or a higher one came before; it stays as it was.
  };

  /// What a PEM text is: "PRIVATE KEY" or "RSA PRIVATE KEY", not encrypted, is usable.
  static KeyKind KindOf(std::string_view pem);

  /// Raises error 5 for a text that is no usable key.
  explicit DocumentSigner(std::string_view pem);
  DocumentSigner(const DocumentSigner&) = delete;
  DocumentSigner& operator=(const DocumentSigner&) = delete;
  ~DocumentSigner();

  /// Signs the next document of its series: those of a series have to come by number, in whatever order the series do.
  /// `Hash` is set, and `HashControl` to "1" where it is empty. A `Hash` that the document has already stays, "0" too,
  /// and the document behind it is signed after that. The first of a series has no Hash before it, nor has one behind a
  /// document with Hash "0".
  Outcome Sign(Invoice& value);

  /// The Hash of a document, which is not changed, after that of the one before it; empty where there is none.
  std::string HashOf(const Invoice& value, std::string_view previousHash) const;

 private:
  struct State;

  std::unique_ptr<State> state_;
};

}  // namespace zevo

#endif  // ZEVO_FACADES_DOCUMENTSIGNER_H_
