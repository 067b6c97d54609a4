// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Base64.h>
#include <zevo/platform/Signer.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "tests/check/CheckTest.h"
#include "tests/support/TestKeys.h"

namespace zevo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A document that differs from others of its kind in no more than this.
struct Document {
  std::string number;
  std::string hash = "0";
  std::string control = "1";
  std::string gross = "12.00";
  std::string status = "N";
};

class HashRulesTest : public CheckTest {
 protected:
  // What the signature of a document is of, but for the Hash before it.
  static std::string TextOf(const Document& document) {
    return "2008-07-01;2008-07-01T10:00:00;" + document.number + ";12.00;";
  }
  std::string Sign(const std::string& text) const { return Base64Of(signer_.Sign(text)); }

  // Documents, each signed with the Hash of the one before it.
  std::vector<Document> Chain(const std::vector<std::string>& numbers, std::string previous = "") const {
    std::vector<Document> documents;
    for (const std::string& number : numbers) {
      Document& document = documents.emplace_back(Document{number});
      document.hash = previous = Sign(TextOf(document) + previous);
    }
    return documents;
  }

  // The clean file with these documents, of a certified program.
  static CleanFile Of(const std::vector<Document>& documents) {
    CleanFile file = CleanFile().With("Header/SoftwareCertificateNumber", "7").Without("Invoice[3]").Without("Invoice");
    for (size_t i = 1; i < documents.size(); ++i) file = file.Twice("Invoice");
    for (size_t i = 0; i < documents.size(); ++i) {
      const Document& document = documents[i];
      const std::string invoice = "Invoice[" + std::to_string(i + 1) + "]";
      file = file.With(invoice + "/InvoiceNo", document.number)
                 .With(invoice + "/InvoiceStatus", document.status)
                 .With(invoice + "/Hash", document.hash)
                 .With(invoice + "/DocumentTotals/GrossTotal", document.gross);
      if (!document.control.empty()) {
        file = file.Behind(invoice + "/Hash", "<HashControl>" + document.control + "</HashControl>");
      }
    }
    return file;
  }

  std::vector<std::string> FormOf(const std::vector<Document>& documents) {
    return FindingsOf("HASH-FORM", Of(documents));
  }
  std::vector<std::string> ControlOf(const std::vector<Document>& documents) {
    return FindingsOf("HASH-CTRL", Of(documents));
  }
  std::vector<std::string> ChainOf(const std::vector<Document>& documents) {
    return FindingsOf("HASH-CHAIN", Of(documents));
  }
  std::vector<std::string> SentencesOf(const std::string& rule, const CleanFile& file) {
    Findings(file);
    std::vector<std::string> sentences;
    for (const Finding& finding : found_) {
      if (finding.rule != rule) continue;
      sentences.push_back(Describe(finding, Language::kPortuguese));
      sentences.push_back(Describe(finding, Language::kEnglish));
    }
    return sentences;
  }
  void GiveKey(std::string_view pem = kPublicKey, int version = 0) { checker_.AddPublicKey(pem, version); }

  // What HASH-CHAIN tells of a document.
  static std::string Broken(const Document& document, const std::string& expected) {
    return "HASH-CHAIN E Invoice " + document.number + "/Hash [" + document.hash + "] [" + expected + "] []";
  }
  static std::string Unjudged(const Document& document, const std::string& before) {
    return "HASH-CHAIN I Invoice " + document.number + "/Hash [" + document.hash + "] [" + before + "] []";
  }

  Signer signer_{PrivateKey::FromPem(kPrivateKey).value()};
};

// HASH-FORM

TEST_F(HashRulesTest, AHashIsASignatureOr0) {
  EXPECT_THAT(FormOf(Chain({"FT A/1", "FT A/2"})), IsEmpty());
  EXPECT_THAT(FormOf({{"FT A/1"}}), IsEmpty());
  const std::string hash = Chain({"FT A/1"})[0].hash;
  for (const std::string& other : {hash.substr(1), hash + "A", hash.substr(0, 171) + "A", std::string("1"),
                                   "*" + hash.substr(1), std::string(171, 'B') + "="}) {
    EXPECT_THAT(FormOf({{"FT A/1", other}}), ElementsAre("HASH-FORM E Invoice FT A/1/Hash [" + other + "] [] []"));
  }
  EXPECT_THAT(Sentences(CleanFile().With("Invoice/Hash", "abc")),
              ElementsAre("FT A/1: o Hash é \"abc\"; devia ter os 172 caracteres de uma assinatura em base64, ou ser 0 "
                          "se o documento não foi assinado.",
                          "FT A/1: the Hash is \"abc\"; it should have the 172 characters of a signature in base64, or "
                          "be 0 for a document that was not signed."));
}

TEST_F(HashRulesTest, OneThatTheSchemaRefusesTooIsToldOnce) {
  EXPECT_THAT(Findings(CleanFile().With("Invoice/Hash", "")), ElementsAre("HASH-FORM E Invoice FT A/1/Hash [] [] []"));
  const std::string longer(201, 'A');
  EXPECT_THAT(Findings(CleanFile().With("Invoice/Hash", longer)),
              ElementsAre("HASH-FORM E Invoice FT A/1/Hash [" + longer + "] [] []"));
  EXPECT_THAT(Findings(CleanFile().Without("Invoice/Hash")), ElementsAre("SCHEMA E Invoice FT A/1/Hash [] [Hash] []"));
}

// HASH-CTRL

TEST_F(HashRulesTest, OnlyACertifiedProgramSignsWhichIsToldOnce) {
  const std::vector<Document> chain = Chain({"FT A/1", "FT A/2"});
  EXPECT_THAT(ControlOf(chain), IsEmpty());
  for (const std::string_view none : {"0", "0000"}) {
    EXPECT_THAT(FindingsOf("HASH-CTRL", Of(chain).With("Header/SoftwareCertificateNumber", none)),
                ElementsAre("HASH-CTRL W Invoice FT A/1/Hash [" + chain[0].hash + "] [0] []"));
  }
  EXPECT_THAT(FindingsOf("HASH-CTRL", Of(chain).With("Header/SoftwareCertificateNumber", "0/AT")), IsEmpty());
  EXPECT_THAT(FindingsOf("HASH-CTRL", Of({{"FT A/1"}}).With("Header/SoftwareCertificateNumber", "0")), IsEmpty());
  EXPECT_THAT(SentencesOf("HASH-CTRL", Of(chain).With("Header/SoftwareCertificateNumber", "0")),
              ElementsAre("FT A/1: o documento está assinado, mas o programa não é certificado "
                          "(SoftwareCertificateNumber é 0); outros do ficheiro podem estar assim.",
                          "FT A/1: the document is signed, but the program is not certified (SoftwareCertificateNumber "
                          "is 0); so it may be with others of the file."));
}

TEST_F(HashRulesTest, BehindASignedDocumentAllOfItsSeriesAre) {
  const std::string hash = Chain({"FT A/1"})[0].hash;
  const Document two{"FT A/2", hash};
  EXPECT_THAT(ControlOf({{"FT A/1"}, two}), IsEmpty());
  EXPECT_THAT(ControlOf({two, {"FT A/1"}}), IsEmpty());
  EXPECT_THAT(ControlOf({two, {"FT B/3"}, {"NC A/3"}}), IsEmpty());
  EXPECT_THAT(ControlOf({two, {"FT A/10"}}), ElementsAre("HASH-CTRL W Invoice FT A/10/Hash [0] [FT A/2] []"));
  EXPECT_THAT(ControlOf({{"FT A/5"}, {"FT A/4"}, {"FT A/3", hash}, two}),
              ElementsAre("HASH-CTRL W Invoice FT A/4/Hash [0] [FT A/2] []",
                          "HASH-CTRL W Invoice FT A/5/Hash [0] [FT A/2] []"));
  // What is neither does not count.
  EXPECT_THAT(ControlOf({two, {"FT A/3", "x"}}), IsEmpty());
  EXPECT_THAT(
      SentencesOf("HASH-CTRL", Of({two, {"FT A/3"}})),
      ElementsAre("FT A/3: o documento não está assinado (o Hash é 0), mas um anterior da série, FT A/2, está.",
                  "FT A/3: the document is not signed (the Hash is 0), but one before it in the series, FT A/2, is."));
}

TEST_F(HashRulesTest, TheControlOfASignedDocumentIsAVersion) {
  const std::string hash = Chain({"FT A/1"})[0].hash;
  for (const std::string control : {"1", "12", "1.1", "1-FTM abc/00001", "1-FTD ft 01D/00045"}) {
    EXPECT_THAT(ControlOf({{"FT A/1", hash, control}}), IsEmpty()) << control;
  }
  EXPECT_THAT(ControlOf({{"FT A/1", hash, "v1"}}), ElementsAre("HASH-CTRL W Invoice FT A/1/HashControl [v1] [] []"));
  EXPECT_THAT(ControlOf({{"FT A/1", hash, ""}}), ElementsAre("HASH-CTRL W Invoice FT A/1/HashControl [] [] []"));
  // Of what is not signed, anything.
  EXPECT_THAT(ControlOf({{"FT A/1", "0", "v1"}}), IsEmpty());
  EXPECT_THAT(ControlOf({{"FT A/1", "x", "v1"}}), IsEmpty());
  EXPECT_THAT(
      SentencesOf("HASH-CTRL", Of({{"FT A/1", hash, "v1"}, {"FT A/2", hash, ""}})),
      ElementsAre("FT A/1: HashControl é \"v1\"; devia ser a versão da chave, como 1 ou 1.1, ou, com o documento de "
                  "origem, como 1-FTM ou 1-FTD.",
                  "FT A/1: HashControl is \"v1\"; it should be the version of the key, such as 1 or 1.1, or, with the "
                  "document it comes from, such as 1-FTM or 1-FTD.",
                  "FT A/2: falta HashControl, a versão da chave com que o documento foi assinado.",
                  "FT A/2: there is no HashControl, the version of the key that the document was signed with."));
}

// HASH-CHAIN

TEST_F(HashRulesTest, WithoutAKeyItIsToldOnceThatNoSignatureWasVerified) {
  const std::vector<Document> chain = Chain({"FT A/1", "FT A/2"});
  EXPECT_THAT(ChainOf(chain), ElementsAre(Unjudged(chain[0], "")));
  EXPECT_THAT(ChainOf({{"FT A/1"}, {"FT A/2"}}), IsEmpty());
  EXPECT_THAT(SentencesOf("HASH-CHAIN", Of(chain)),
              ElementsAre("FT A/1: as assinaturas dos documentos não foram verificadas: falta a chave pública do "
                          "programa que os emitiu.",
                          "FT A/1: the signatures of documents were not verified, for want of the public key of the "
                          "program that issued them."));
}

TEST_F(HashRulesTest, EachSignatureIsOfTheDocumentAndTheHashBefore) {
  GiveKey();
  EXPECT_THAT(ChainOf(Chain({"FT A/1", "FT A/2", "FT A/3"})), IsEmpty());
  std::vector<Document> chain = Chain({"FT A/1", "FT A/2", "FT A/3"});
  chain[1].gross = "12.01";
  const std::string text = "2008-07-01;2008-07-01T10:00:00;FT A/2;12.01;" + chain[0].hash;
  EXPECT_THAT(ChainOf(chain), ElementsAre(Broken(chain[1], text)));
  EXPECT_THAT(
      SentencesOf("HASH-CHAIN", Of(chain)),
      ElementsAre("FT A/2: o Hash não é a assinatura de \"" + text.substr(0, 100) +
                      "…\" com a chave dada: um destes dados ou o Hash do documento anterior foi alterado, ou a "
                      "chave é outra.",
                  "FT A/2: the Hash is not the signature of \"" + text.substr(0, 100) +
                      "…\" by the key that was given: one of these or the Hash of the document before was "
                      "changed, or the key is another."));
}

TEST_F(HashRulesTest, WhatFollowsFromAHashThatWasChangedIsNotTold) {
  GiveKey();
  const std::vector<Document> right = Chain({"FT A/1", "FT A/2", "FT A/3", "FT A/4"});
  std::vector<Document> chain = right;
  chain[1].hash = Sign("something else");
  const std::string text = TextOf(chain[1]) + chain[0].hash;
  EXPECT_THAT(ChainOf(chain), ElementsAre(Broken(chain[1], text)));
  EXPECT_THAT(SentencesOf("HASH-CHAIN", Of(chain)),
              ElementsAre("FT A/2: o Hash não é a assinatura de \"" + text.substr(0, 100) +
                              "…\" com a chave dada: um destes dados ou o próprio Hash foi alterado; a assinatura do "
                              "documento seguinte da série também não confere, o que pode vir só deste.",
                          "FT A/2: the Hash is not the signature of \"" + text.substr(0, 100) +
                              "…\" by the key that was given: one of these or the Hash itself was changed; nor is the "
                              "signature of the next document of the series right, which may follow from this one "
                              "alone."));
  // One that is no signature is told by HASH-FORM, and what follows from it by nobody.
  chain[1].hash = right[1].hash.substr(1);
  EXPECT_THAT(ChainOf(chain), IsEmpty());
  // Behind a broken link the Hash counts as it is written.
  chain[1].hash = Sign("something else");
  chain[2].hash = Sign(TextOf(chain[2]) + chain[1].hash);
  EXPECT_THAT(ChainOf(chain), ElementsAre(Broken(chain[1], text), Broken(chain[3], TextOf(chain[3]) + chain[2].hash)));
}

TEST_F(HashRulesTest, OfDocumentsInARowThoseAreToldThatTheOthersMayFollowFrom) {
  GiveKey();
  std::vector<Document> chain = Chain({"FT A/1", "FT A/2", "FT A/3", "FT A/4", "FT A/5", "FT A/6"});
  for (const size_t at : {1U, 2U, 3U}) chain[at].gross = "1.00";
  const auto broken = [&](size_t at) {
    return Broken(chain[at], "2008-07-01;2008-07-01T10:00:00;" + chain[at].number + ";1.00;" + chain[at - 1].hash);
  };
  EXPECT_THAT(ChainOf(chain), ElementsAre(broken(1), broken(3)));
  EXPECT_THAT(ChainOf({chain[3], chain[0], chain[2], chain[5], chain[1], chain[4]}), ElementsAre(broken(3), broken(1)));
  checker_.set_MostFindings(1);
  EXPECT_THAT(ChainOf({chain[3], chain[0], chain[2], chain[5], chain[1], chain[4]}), ElementsAre(broken(3)));
  EXPECT_EQ(checker_.CountOf("HASH-CHAIN"), 2);
  EXPECT_THAT(ChainOf({chain[2], chain[0], chain[3], chain[5], chain[1], chain[4]}), ElementsAre(broken(3)));
  EXPECT_EQ(checker_.CountOf("HASH-CHAIN"), 2);
  checker_.set_MostFindings(0);
  EXPECT_THAT(ChainOf(chain), ElementsAre(broken(1), broken(3)));
  // Another series is another row.
  std::vector<Document> other = Chain({"FT A/1", "FT A/2", "FT B/3"});
  other[1].gross = "1.00";
  other[2] = Chain({"FT B/1"})[0];
  other[2].gross = "1.00";
  EXPECT_THAT(ChainOf(other), ::testing::SizeIs(2));
}

TEST_F(HashRulesTest, DocumentsMayComeInAnyOrder) {
  GiveKey();
  std::vector<Document> documents = Chain({"FT A/1", "FT A/2", "FT A/3", "FT A/4"});
  documents[2].gross = "1.00";
  const std::string text = "2008-07-01;2008-07-01T10:00:00;FT A/3;1.00;" + documents[1].hash;
  const std::string broken = Broken(documents[2], text);
  std::vector<size_t> order{0, 1, 2, 3};
  do {
    std::vector<Document> shuffled;
    for (const size_t at : order) shuffled.push_back(documents[at]);
    EXPECT_THAT(ChainOf(shuffled), ElementsAre(broken));
  } while (std::ranges::next_permutation(order).found);
}

TEST_F(HashRulesTest, SeriesAreChainsOfTheirOwn) {
  GiveKey();
  const std::vector<Document> first = Chain({"FT A/1", "FT A/2"});
  const std::vector<Document> second = Chain({"FT B/1", "FT B/2"});
  EXPECT_THAT(ChainOf({first[0], second[0], first[1], second[1]}), IsEmpty());
  const std::vector<Document> both = Chain({"FT A/1", "FT B/1"});
  EXPECT_THAT(ChainOf(both), ElementsAre(Broken(both[1], TextOf(both[1]))));
}

TEST_F(HashRulesTest, WithoutTheDocumentBeforeItASignatureIsNotVerified) {
  GiveKey();
  std::vector<Document> chain = Chain({"FT A/1", "FT A/2", "FT A/3", "FT A/4"});
  chain.erase(chain.begin() + 1);
  EXPECT_THAT(ChainOf(chain), ElementsAre(Unjudged(chain[1], "FT A/2")));
  EXPECT_THAT(
      SentencesOf("HASH-CHAIN", Of(chain)),
      ElementsAre("FT A/3: a assinatura não foi verificada: o documento anterior da série, FT A/2, não está no "
                  "ficheiro.",
                  "FT A/3: the signature was not verified: the document before it in the series, FT A/2, is not "
                  "in the file."));
  // Behind a gap there is no beginning.
  chain = Chain({"FT A/1"});
  chain.push_back(Chain({"FT A/3"})[0]);
  EXPECT_THAT(ChainOf(chain), ElementsAre(Unjudged(chain[1], "FT A/2")));
}

TEST_F(HashRulesTest, TheFirstDocumentOfASeriesMayHaveNoneBeforeIt) {
  GiveKey();
  // A series that begins with another number, and one that goes on from another file.
  EXPECT_THAT(ChainOf(Chain({"FT A/100", "FT A/101"})), IsEmpty());
  const std::vector<Document> later = Chain({"FT A/0012", "FT A/0013"}, Sign("FT A/11"));
  EXPECT_THAT(ChainOf(later), ElementsAre(Unjudged(later[0], "FT A/11")));
  // Before number 1 there is none.
  const std::vector<Document> first = Chain({"FT A/1"}, Sign("FT A/0"));
  EXPECT_THAT(ChainOf(first), ElementsAre(Broken(first[0], TextOf(first[0]))));
}

TEST_F(HashRulesTest, BehindAnUnsignedDocumentThereMayBeNoHash) {
  GiveKey();
  for (const std::string previous : {"", "0"}) {
    const std::vector<Document> chain = Chain({"FT A/2", "FT A/3"}, previous);
    EXPECT_THAT(ChainOf({{"FT A/1"}, chain[0], chain[1]}), IsEmpty());
    EXPECT_THAT(ChainOf({chain[1], chain[0], {"FT A/1"}}), IsEmpty());
  }
  const std::vector<Document> chain = Chain({"FT A/2"}, "1");
  EXPECT_THAT(ChainOf({{"FT A/1"}, chain[0]}), ElementsAre(Broken(chain[0], TextOf(chain[0]) + "0")));
}

TEST_F(HashRulesTest, CancelledDocumentsStayInTheChain) {
  GiveKey();
  std::vector<Document> chain = Chain({"FT A/1", "FT A/2", "FT A/3"});
  chain[1].status = "A";
  EXPECT_THAT(ChainOf(chain), IsEmpty());
  chain[1].gross = "1.00";
  EXPECT_THAT(ChainOf(chain), ::testing::SizeIs(1));
}

TEST_F(HashRulesTest, TheTotalIsSignedWithTwoDecimalsHoweverItIsWritten) {
  GiveKey();
  for (const std::string gross : {"12", "12.0", "12.000000", "+12.00", "012.004", "11.995"}) {
    std::vector<Document> chain = Chain({"FT A/1", "FT A/2"});
    chain[0].gross = gross;
    EXPECT_THAT(ChainOf(chain), IsEmpty()) << gross;
  }
}

TEST_F(HashRulesTest, DatesAreSignedAsTheyAreWritten) {
  GiveKey();
  std::vector<Document> chain = Chain({"FT A/1"});
  chain[0].hash = Sign("2008-07-01Z;2008-07-01T10:00:00.5+01:00;FT A/1;12.00;");
  CleanFile file = Of(chain).With("Invoice/SystemEntryDate", "2008-07-01T10:00:00.5+01:00");
  EXPECT_THAT(FindingsOf("HASH-CHAIN", file.With("Invoice/InvoiceDate", "2008-07-01Z")), IsEmpty());
  EXPECT_THAT(FindingsOf("HASH-CHAIN", file.With("Invoice/InvoiceDate", " 2008-07-01Z\n")), IsEmpty());
  EXPECT_THAT(FindingsOf("HASH-CHAIN", file), ::testing::SizeIs(1));
}

TEST_F(HashRulesTest, WhatCannotBeReadIsNotVerified) {
  GiveKey();
  const CleanFile file = Of(Chain({"FT A/1", "FT A/2"}));
  for (const std::string_view element : {"InvoiceDate", "SystemEntryDate", "DocumentTotals/GrossTotal"}) {
    const std::string path = std::string("Invoice/").append(element);
    EXPECT_THAT(FindingsOf("HASH-CHAIN", file.With(path, "x")), IsEmpty()) << element;
    EXPECT_THAT(FindingsOf("HASH-CHAIN", file.Without(path)), IsEmpty()) << element;
  }
  EXPECT_THAT(FindingsOf("HASH-CHAIN", file.With("Invoice[2]/InvoiceNo", "FT A-2")), IsEmpty());
}

TEST_F(HashRulesTest, OtherFormsOfControlAreNotVerifiedButStayInTheChain) {
  GiveKey();
  for (const std::string control : {"1.1", "1-FTM abc/00001", "1-FTD ft 01D/00045"}) {
    std::vector<Document> chain = Chain({"FT A/1", "FT A/2", "FT A/3"});
    chain[1].control = control;
    EXPECT_THAT(ChainOf(chain), IsEmpty());
    chain[1].gross = "1.00";
    EXPECT_THAT(ChainOf(chain), IsEmpty());
    chain[2].gross = "1.00";
    EXPECT_THAT(ChainOf(chain), ::testing::SizeIs(1));
  }
  // Without one, or with one that is none, the key for all versions counts.
  for (const std::string control : {"", "v1"}) {
    std::vector<Document> chain = Chain({"FT A/1"});
    chain[0].control = control;
    EXPECT_THAT(ChainOf(chain), IsEmpty());
    chain[0].gross = "1.00";
    EXPECT_THAT(ChainOf(chain), ::testing::SizeIs(1));
  }
}

TEST_F(HashRulesTest, EachVersionHasItsKey) {
  GiveKey(kPublicKey, 1);
  std::vector<Document> chain = Chain({"FT A/1", "FT A/2", "FT A/3"});
  EXPECT_THAT(ChainOf(chain), IsEmpty());
  chain[1].control = "2";
  chain[2].control = "2";
  EXPECT_THAT(ChainOf(chain), ElementsAre(Unjudged(chain[1], "2")));
  EXPECT_THAT(SentencesOf("HASH-CHAIN", Of(chain)),
              ElementsAre("FT A/2: a assinatura deste documento e de outros não foi verificada: falta a chave pública "
                          "de versão 2.",
                          "FT A/2: the signature of this document and of others was not verified, for want of the "
                          "public key of version 2."));
  chain[1].control = "v";
  chain[2].control = "99999999999";
  EXPECT_THAT(ChainOf(chain), IsEmpty());
  chain[1].control = "2";
  chain[2].control = "1";
  GiveKey(kOtherPublicKey, 2);
  EXPECT_THAT(ChainOf(chain), ElementsAre(Broken(chain[1], TextOf(chain[1]) + chain[0].hash)));
  GiveKey(kPublicKey, 2);
  EXPECT_THAT(ChainOf(chain), IsEmpty());
  GiveKey(kOtherPublicKey, 2);
  GiveKey(kPublicKey, 0);
  EXPECT_THAT(ChainOf(chain), ::testing::SizeIs(1));
}

TEST_F(HashRulesTest, WhereNoSignatureIsRightTheKeyIsToldOnce) {
  GiveKey(kOtherPublicKey);
  std::vector<Document> chain = Chain({"FT A/1", "FT A/2", "FT A/3"});
  const std::string of_first = "HASH-CHAIN E Invoice FT A/1/Hash [" + chain[0].hash + "] ";
  EXPECT_THAT(ChainOf(chain), ElementsAre(of_first + "[1] [3]"));
  EXPECT_EQ(checker_.CountOf("HASH-CHAIN"), 1);
  EXPECT_THAT(ChainOf({chain[0], chain[1]}), ElementsAre(of_first + "[1] [2]"));
  EXPECT_THAT(SentencesOf("HASH-CHAIN", Of(chain)),
              ElementsAre("FT A/1: nenhuma das 3 assinaturas de versão 1, a começar por esta, confere com a chave "
                          "pública dada; a chave deve ser outra.",
                          "FT A/1: none of the 3 signatures of version 1, beginning with this one, is by the public "
                          "key that was given; the key is probably another."));
  // One alone says nothing of the key.
  EXPECT_THAT(ChainOf({chain[0]}), ElementsAre(Broken(chain[0], TextOf(chain[0]))));
  // With HashControl of no version.
  for (Document& document : chain) document.control = "";
  EXPECT_THAT(ChainOf(chain), ElementsAre(of_first + "[] [3]"));
  EXPECT_THAT(SentencesOf("HASH-CHAIN", Of(chain)),
              ElementsAre("FT A/1: nenhuma das 3 assinaturas sem versão, a começar por esta, confere com a chave "
                          "pública dada; a chave deve ser outra.",
                          "FT A/1: none of the 3 signatures without a version, beginning with this one, is by the "
                          "public key that was given; the key is probably another."));
}

TEST_F(HashRulesTest, OfEachVersionTheKeyIsToldAlone) {
  GiveKey();
  std::vector<Document> chain = Chain({"FT A/1", "FT A/2", "FT A/3", "FT A/4"});
  chain[2].control = chain[3].control = "2";
  EXPECT_THAT(ChainOf(chain), IsEmpty());
  GiveKey(kOtherPublicKey, 2);
  EXPECT_THAT(ChainOf(chain), ElementsAre("HASH-CHAIN E Invoice FT A/3/Hash [" + chain[2].hash + "] [2] [2]"));
  // One key for all may be that of one version only.
  GiveKey(kPublicKey, 2);
  GiveKey(kOtherPublicKey, 0);
  EXPECT_THAT(ChainOf(chain), ElementsAre("HASH-CHAIN E Invoice FT A/1/Hash [" + chain[0].hash + "] [1] [2]"));
}

TEST_F(HashRulesTest, VersionsBeyondManyCountAsOne) {
  GiveKey(kOtherPublicKey);
  std::vector<std::string> numbers;
  for (int i = 1; i <= 66; ++i) numbers.push_back("FT A/" + std::to_string(i));
  std::vector<Document> chain = Chain(numbers);
  for (size_t i = 0; i < chain.size(); ++i) chain[i].control = std::to_string(i + 1);
  checker_.set_MostFindings(0);
  const std::vector<std::string> found = ChainOf(chain);
  // The first number is verified at the end.
  EXPECT_EQ(std::ranges::count_if(found, [](const std::string& line) { return line.ends_with("[] [2]"); }), 1);
}

TEST_F(HashRulesTest, OfDocumentsWithOneNumberTheFirstCounts) {
  GiveKey();
  std::vector<Document> chain = Chain({"FT A/1", "FT A/2", "FT A/3"});
  chain.insert(chain.begin() + 2, chain[1]);
  EXPECT_THAT(ChainOf(chain), IsEmpty());
  chain[2].gross = "1.00";
  EXPECT_THAT(ChainOf(chain), IsEmpty());
  chain[2].number = "FT A/02";
  EXPECT_THAT(ChainOf(chain), IsEmpty());
}

TEST_F(HashRulesTest, BesideAViolationOfTheSchemaItIsToldAllTheSame) {
  GiveKey();
  std::vector<Document> chain = Chain({"FT A/1", "FT A/2"});
  chain[0].gross = "1.00";
  std::swap(chain[0], chain[1]);
  const CleanFile file = Of(chain).With("Invoice/CustomerID", "");
  EXPECT_THAT(FindingsOf("SCHEMA", file), ::testing::Not(IsEmpty()));
  EXPECT_THAT(FindingsOf("HASH-CHAIN", file),
              ElementsAre(Broken(chain[1], "2008-07-01;2008-07-01T10:00:00;FT A/1;1.00;")));
}

TEST_F(HashRulesTest, ARuleThatIsOffVerifiesNothing) {
  GiveKey(kOtherPublicKey);
  checker_.set_Severity("HASH-CHAIN", Severity::kOff);
  EXPECT_THAT(ChainOf(Chain({"FT A/1", "FT A/2"})), IsEmpty());
  EXPECT_EQ(checker_.CountOf("HASH-CHAIN"), 0);
}

}  // namespace
}  // namespace zevo::testing
