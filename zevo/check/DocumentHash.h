// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_DOCUMENTHASH_H_
#define ZEVO_CHECK_DOCUMENTHASH_H_

#include <zevo/check/Fact.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zevo {

/// The bytes of a signature of RSA 1024.
inline constexpr size_t kSignatureSize = 128;

/// What a document's Hash says.
enum class HashForm : uint8_t {
  kNone,       ///< There is none, or it is neither of the others.
  kUnsigned,   ///< "0"
  kSignature,  ///< 172 characters of base64, as they are written for the bytes of a signature
};

HashForm HashFormOf(const TextFact& hash);

/// The bytes of a signature.
std::string SignatureBytes(std::string_view hash);

/// What HashControl says of a signature.
struct HashControl {
  enum class Form : uint8_t {
    kNone,       ///< none of the others
    kVersion,    ///< the version of the key: "1"
    kOtherText,  ///< "1.1", "1-FTM …" or "1-FTD …": the signature is of something else
  };

  Form form = Form::kNone;
  std::optional<int32_t> version = {};  ///< nothing for one that is too great

  static HashControl FromText(std::string_view text);
};

}  // namespace zevo

#endif  // ZEVO_CHECK_DOCUMENTHASH_H_
