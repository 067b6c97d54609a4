// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/Families.h>
#include <zevo/check/Judgement.h>
#include <zevo/platform/Base64.h>

#include <algorithm>
#include <string>
#include <string_view>

// The signatures of documents.

namespace zevo {
namespace {

using Document = DocumentTable::Document;

// HASH-FORM

constexpr RuleSentence kNoHashForm{Severity::kError,
                                   {"o Hash é \"{found}\"; devia ter os 172 caracteres de uma assinatura em base64, ou "
                                    "ser 0 se o documento não foi assinado",
                                    "the Hash is \"{found}\"; it should have the 172 characters of a signature in "
                                    "base64, or be 0 for a document that was not signed"}};

void JudgeHashForm(const InvoiceFacts& invoice, Judgement& judgement) {
  if (invoice.hash.Missing() || invoice.hash_form != HashForm::kNone) return;
  judgement.Tell(kNoHashForm, invoice, invoice.hash);
}

// HASH-CTRL

constexpr RuleSentence kSignedWithoutCertificate{
    Severity::kWarning,
    {"o documento está assinado, mas o programa não é certificado (SoftwareCertificateNumber é 0); outros do ficheiro "
     "podem estar assim",
     "the document is signed, but the program is not certified (SoftwareCertificateNumber is 0); so it may be with "
     "others of the file"}};
constexpr RuleSentence kUnsignedAfterSigned{
    Severity::kWarning,
    {"o documento não está assinado (o Hash é {found}), mas um anterior da série, {expected}, está",
     "the document is not signed (the Hash is {found}), but one before it in the series, {expected}, is"}};
constexpr RuleSentence kNoControl{
    Severity::kWarning,
    {"falta HashControl, a versão da chave com que o documento foi assinado",
     "there is no HashControl, the version of the key that the document was signed with"}};
constexpr RuleSentence kOtherControl{Severity::kWarning,
                                     {"HashControl é \"{found}\"; devia ser a versão da chave, como 1 ou 1.1, ou, com "
                                      "o documento de origem, como 1-FTM ou 1-FTD",
                                      "HashControl is \"{found}\"; it should be the version of the key, such as 1 or "
                                      "1.1, or, with the document it comes from, such as 1-FTM or 1-FTD"}};

bool IsNumberZero(const TextFact& certificate) {
  return !certificate.Missing() && !certificate->empty() &&
         std::ranges::all_of(*certificate, [](char c) { return c == '0'; });
}

void JudgeHashControl(const InvoiceFacts& invoice, Judgement& judgement) {
  if (invoice.hash_form != HashForm::kSignature) return;
  const auto& header = judgement.File().Header();
  if (header.IsThere() && IsNumberZero(header->certificate)) {
    judgement.TellOnce(kSignedWithoutCertificate, invoice, invoice.hash, {.expected = "0"});
  }
  if (invoice.hash_control.Missing()) {
    judgement.Tell(kNoControl, invoice, ElementSpot(0, "HashControl"));
  } else if (HashControl::FromText(*invoice.hash_control).form == HashControl::Form::kNone) {
    judgement.Tell(kOtherControl, invoice, invoice.hash_control);
  }
}

void JudgeUnsigned(Judgement& judgement) {
  const DocumentTable& documents = judgement.File().Documents();
  const Document* signed_before = nullptr;
  for (const uint32_t number : documents.AlongSeries()) {
    const Document& document = documents[number];
    if (signed_before != nullptr && signed_before->Series() != document.Series()) signed_before = nullptr;
    if (document.Hash() == HashForm::kSignature) {
      if (signed_before == nullptr) signed_before = &document;
    } else if (document.Hash() == HashForm::kUnsigned && signed_before != nullptr) {
      judgement.Tell(kUnsignedAfterSigned, documents.Keep(document, DocumentTable::Element::kHash),
                     {.expected = documents.TextOf(*signed_before)});
    }
  }
}

// HASH-CHAIN

constexpr RuleSentence kOtherSignature{
    Severity::kError,
    {"o Hash não é a assinatura de \"{expected}\" com a chave dada: um destes dados ou o Hash do documento anterior "
     "foi alterado, ou a chave é outra",
     "the Hash is not the signature of \"{expected}\" by the key that was given: one of these or the Hash of the "
     "document before was changed, or the key is another"}};
constexpr RuleSentence kOtherSignatureAndNext{
    Severity::kError,
    {"o Hash não é a assinatura de \"{expected}\" com a chave dada: um destes dados ou o próprio Hash foi alterado; a "
     "assinatura do documento seguinte da série também não confere, o que pode vir só deste",
     "the Hash is not the signature of \"{expected}\" by the key that was given: one of these or the Hash itself was "
     "changed; nor is the signature of the next document of the series right, which may follow from this one alone"}};
constexpr RuleSentence kOtherKey{
    Severity::kError,
    {"nenhuma das {difference} assinaturas de versão {expected}, a começar por esta, confere com a chave pública dada; "
     "a chave deve ser outra",
     "none of the {difference} signatures of version {expected}, beginning with this one, is by the public key that "
     "was "
     "given; the key is probably another"}};
constexpr RuleSentence kOtherKeyOfAll{
    Severity::kError,
    {"nenhuma das {difference} assinaturas sem versão, a começar por esta, confere com a chave pública dada; a chave "
     "deve ser outra",
     "none of the {difference} signatures without a version, beginning with this one, is by the public key that was "
     "given; the key is probably another"}};
constexpr RuleSentence kNothingBefore{
    Severity::kInformation,
    {"a assinatura não foi verificada: o documento anterior da série, {expected}, não está no ficheiro",
     "the signature was not verified: the document before it in the series, {expected}, is not in the file"}};
constexpr RuleSentence kNoPublicKey{
    Severity::kInformation,
    {"as assinaturas dos documentos não foram verificadas: falta a chave pública do programa que os emitiu",
     "the signatures of documents were not verified, for want of the public key of the program that issued them"}};
constexpr RuleSentence kNoKeyOfVersion{
    Severity::kInformation,
    {"a assinatura deste documento e de outros não foi verificada: falta a chave pública de versão {expected}",
     "the signature of this document and of others was not verified, for want of the public key of version "
     "{expected}"}};

void JudgeKey(const InvoiceFacts& invoice, Judgement& judgement) {
  if (!judgement.File().PublicKeys().IsEmpty() || invoice.hash_form != HashForm::kSignature) return;
  judgement.TellOnce(kNoPublicKey, invoice, invoice.hash);
}

void TellOfHash(const RuleSentence& sentence, uint32_t document, const std::string& signature, FindingValues values,
                Judgement& judgement) {
  const DocumentTable& documents = judgement.File().Documents();
  values.found = Base64Of(signature);
  judgement.Tell(sentence, documents.Keep(documents[document], DocumentTable::Element::kHash), std::move(values));
}

void JudgeKeysOfVersions(Judgement& judgement) {
  for (const SignatureChecks::OfVersion& of : judgement.File().Signatures().Versions()) {
    if (!of.IsOtherKey()) continue;
    const auto& [document, kept] = *of.kept.begin();
    FindingValues values{.expected = of.version ? std::to_string(*of.version) : std::string(),
                         .difference = std::to_string(of.wrong.size())};
    TellOfHash(of.version ? kOtherKey : kOtherKeyOfAll, document, kept.signature, std::move(values), judgement);
  }
}

void JudgeSignatures(Judgement& judgement) {
  const CheckedFile& file = judgement.File();
  const SignatureChecks& signatures = file.Signatures();
  JudgeKeysOfVersions(judgement);
  if (const auto& without = signatures.FirstWithoutKey()) {
    TellOfHash(kNoKeyOfVersion, without->document, without->signature, {.expected = std::to_string(without->version)},
               judgement);
  }
  const DocumentTable& documents = file.Documents();
  for (const SignatureChecks::Told& told : signatures.WrongOnes(documents)) {
    const RuleSentence& sentence = told.next_too ? kOtherSignatureAndNext : kOtherSignature;
    if (told.kept == nullptr) {
      judgement.TellMore(sentence, 1);
    } else {
      TellOfHash(sentence, told.document, told.kept->signature, {.expected = told.kept->text}, judgement);
    }
  }
  for (const uint32_t number : signatures.Unjudged()) {
    const Document& document = documents[number];
    std::string before(documents.AllSeries()[document.Series()].text);
    before.append("/").append((documents.NumberOf(document) - 1).Text());
    TellOfHash(kNothingBefore, number, file.Hashes().OpenLink(number).signature, {.expected = std::move(before)},
               judgement);
  }
}

constexpr Rule kHashRules[] = {
    {.info = {"HASH-FORM",
              Severity::kError,
              {"Forma da assinatura", "Form of the signature"},
              {"Hash são os 172 caracteres de uma assinatura RSA de 1024 bits em base64, ou 0 num documento que não "
               "foi assinado.",
               "Hash is the 172 characters of an RSA signature of 1024 bits in base64, or 0 for a document that was "
               "not signed."},
              "Portaria 363/2010",
              "2011-01-01"},
     .invoice = JudgeHashForm},
    {.info =
         {"HASH-CTRL",
          Severity::kWarning,
          {"Controlo da assinatura", "Control of the signature"},
          {"Só um programa certificado assina (é dito uma vez). Depois de um documento assinado, por número, todos os "
           "da série o são. Um documento assinado tem em HashControl a versão da chave: n, n.n, n-XXM… ou n-XXD….",
           "Only a certified program signs (told once). Behind a signed document, by number, all of its series are. A "
           "signed document has the version of the key in HashControl: n, n.n, n-XXM… or n-XXD…."},
          "Portaria 363/2010",
          "2011-01-01"},
     .invoice = JudgeHashControl,
     .at_end = JudgeUnsigned},
    {.info =
         {"HASH-CHAIN",
          Severity::kError,
          {"Assinatura do documento", "Signature of the document"},
          {"Com a chave pública: Hash é a assinatura (RSA com SHA-1) de "
           "InvoiceDate;SystemEntryDate;InvoiceNo;GrossTotal; e do Hash do documento anterior da série, por "
           "número; no primeiro não há nada depois do último \";\". Depois de um documento não assinado também "
           "pode não haver. Sem o documento anterior no ficheiro a assinatura não se verifica: só informação. Com "
           "HashControl n.n, n-XXM… ou n-XXD… também não. Quando um Hash é alterado a assinatura do documento seguinte "
           "também não confere: de dois documentos seguidos diz-se só o primeiro, e que o outro o segue; de mais "
           "só os que os outros podem seguir. Quando nenhuma de várias assinaturas de uma versão confere diz-se uma "
           "vez que a chave pode ser outra. Sem chave pública é dito uma vez que nada se verificou.",
           "With the public key: Hash is the signature (RSA with SHA-1) of "
           "InvoiceDate;SystemEntryDate;InvoiceNo;GrossTotal; and the Hash of the document before in its series, "
           "by number; in the first there is nothing behind the last \";\". Behind a document that is not signed "
           "there may be nothing too. Without the document before in the file the signature is not verified: "
           "information only. Nor is one with a HashControl of n.n, n-XXM… or n-XXD…. A Hash that was changed "
           "makes the signature of the next document wrong too: of two documents in a row only the first is told, "
           "and that the other follows; of more only those that the others may follow from. Where none of several "
           "signatures of a version is right it is told once that the key may be another. Without a public key it "
           "is told once that none was verified."},
          "Portaria 363/2010",
          "2011-01-01"},
     .invoice = JudgeKey,
     .at_end = JudgeSignatures},
};

}  // namespace

std::span<const Rule> HashRules() { return kHashRules; }

}  // namespace zevo
