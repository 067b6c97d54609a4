// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/DocumentSigner.h>

#include <zevo/Error.h>
#include <zevo/TextHash.h>
#include <zevo/check/DocumentHash.h>
#include <zevo/check/DocumentNumber.h>
#include <zevo/check/SignedText.h>
#include <zevo/model/Decimal.h>
#include <zevo/platform/Base64.h>
#include <zevo/platform/Signer.h>
#include <zevo/platform/Text.h>

#include <utility>

namespace zevo {
namespace {

constexpr int kAmountDecimals = 4;
constexpr std::string_view kUnsigned = "0";

bool IsHigher(std::string_view number, std::string_view than) {
  return number.size() != than.size() ? number.size() > than.size() : number > than;
}

PrivateKey KeyOf(std::string_view pem) {
  auto key = PrivateKey::FromPem(pem);
  if (!key || key->modulus.size() != kSignatureSize) {
    throw MakeRunTimeError(RunTimeError::kInvalidCall, "chave privada");
  }
  return *std::move(key);
}

}  // namespace

struct DocumentSigner::State {
  /// The document of a series that came last.
  struct Last {
    std::string number;  // without zeros in front
    std::string hash;    // empty where it has none
  };

  Signer signer;
  TextMap<Last> last;  // by series
};

DocumentSigner::KeyKind DocumentSigner::KindOf(std::string_view pem) {
  if (PrivateKey::IsEncrypted(pem)) return KeyKind::kEncrypted;
  const auto key = PrivateKey::FromPem(pem);
  if (!key) return KeyKind::kNone;
  return key->modulus.size() == kSignatureSize ? KeyKind::kUsable : KeyKind::kOtherSize;
}

DocumentSigner::DocumentSigner(std::string_view pem) : state_(new State{Signer(KeyOf(pem)), {}}) {}
DocumentSigner::~DocumentSigner() = default;

DocumentSigner::Outcome DocumentSigner::Sign(Invoice& value) {
  const auto number = DocumentNumber::FromText(TrimSpaces(value.InvoiceNo()));
  if (!number) return Outcome::kNotNumbered;
  const auto series = state_->last.find(number->series);
  const bool first = series == state_->last.end();
  if (!first && !IsHigher(number->Significant(), series->second.number)) return Outcome::kOutOfOrder;
  State::Last& last = first ? state_->last[std::string(number->series)] : series->second;
  const bool kept = !value.Hash().empty();
  if (!kept) {
    value.set_Hash(HashOf(value, last.hash));
    if (value.HashControl().empty()) value.set_HashControl("1");
  }
  last.number = number->Significant();
  last.hash = value.Hash() == kUnsigned ? std::string() : value.Hash();
  return kept ? Outcome::kKept : Outcome::kSigned;
}

std::string DocumentSigner::HashOf(const Invoice& value, std::string_view previousHash) const {
  const Decimal gross = Decimal::OfUnits(value.DocumentTotals()->GrossTotal().Scaled(), kAmountDecimals);
  std::string text = SignedText(TrimSpaces(value.InvoiceDate()), TrimSpaces(value.SystemEntryDate()),
                                TrimSpaces(value.InvoiceNo()), gross);
  return Base64Of(state_->signer.Sign(text.append(previousHash)));
}

}  // namespace zevo
