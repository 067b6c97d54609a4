// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/create/InvoiceSigning.h"

#include "tools/saft/errors/Failure.h"
#include "tools/saft/input/KeyText.h"
#include "tools/saft/words/CreateWords.h"

namespace zevo::saft {
namespace {

std::string UsableKeyIn(const std::string& file) {
  std::string key = KeyTextOf(file);
  switch (DocumentSigner::KindOf(key)) {
    case DocumentSigner::KeyKind::kUsable:
      break;
    case DocumentSigner::KeyKind::kEncrypted:
      throw Failure(file, Say(words::kEncryptedKey));
    case DocumentSigner::KeyKind::kOtherSize:
      throw Failure(file, Say(words::kOtherKeySize));
    case DocumentSigner::KeyKind::kNone:
      throw Failure(file, Say(words::kNoPrivateKey));
  }
  return key;
}

}  // namespace

InvoiceSigning::InvoiceSigning(const std::string& file) try : signer_(UsableKeyIn(file)) {
} catch (const Error&) {
  // It looks like a key, and is none.
  throw Failure(file, Say(words::kNoPrivateKey));
}

void InvoiceSigning::Sign(Invoice& invoice, RecordFile& row) {
  switch (signer_.Sign(invoice)) {
    case DocumentSigner::Outcome::kSigned:
    case DocumentSigner::Outcome::kKept:
      return;
    case DocumentSigner::Outcome::kNotNumbered:
      return row.AddErrorAtKey(Say(words::kNoDocumentNumber));
    case DocumentSigner::Outcome::kOutOfOrder:
      return row.AddErrorAtKey(Say(words::kNotAlongSeries));
  }
}

}  // namespace zevo::saft
