// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <zevo/check/HashChain.h>
#include <zevo/platform/Base64.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/check/FactsTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HashChainTest : public testing::FactsTest {
 protected:
  static std::string Bytes(char byte) { return std::string(kSignatureSize, byte); }
  static std::string Signature(char byte) { return Base64Of(Bytes(byte)); }
  // An invoice of 2008-03-05 over 7.5.
  static std::string Invoice(std::string_view number, std::string_view hash, std::string_view control = "1",
                             std::string_view date = " 2008-03-05 ") {
    std::string invoice("<InvoiceNo>");
    invoice.append(number).append("</InvoiceNo><Hash>").append(hash).append("</Hash><HashControl>").append(control);
    invoice.append("</HashControl><InvoiceDate>").append(date).append("</InvoiceDate>");
    return invoice +
           "<SystemEntryDate>2008-03-05T10:00:00</SystemEntryDate>"
           "<DocumentTotals><GrossTotal>7.5</GrossTotal></DocumentTotals>";
  }

  // What can be verified after each invoice: "FT A/2 b after a", by the bytes of the signatures.
  std::vector<std::string> Take(const std::vector<std::string>& invoices) {
    std::vector<std::string> ready;
    ForEachInvoice(invoices, [&](const InvoiceFacts& facts) {
      documents_.Take(facts);
      chain_.Take(facts, documents_);
      std::string of_this;
      for (const HashChain::Link& link : chain_.Ready()) {
        of_this.append(of_this.empty() ? "" : ", ").append(NameOf(link)).append(" after ");
        of_this.append(link.after_unsigned ? "" : Base64Decoded(link.previous)->substr(0, 1));
        if (link.after_unsigned) of_this.append(link.previous);
      }
      ready.push_back(of_this);
    });
    return ready;
  }
  std::vector<std::string> Open() const {
    std::vector<std::string> open;
    for (const uint32_t document : chain_.OpenDocuments()) open.push_back(NameOf(chain_.OpenLink(document)));
    return open;
  }
  std::string NameOf(const HashChain::Link& link) const {
    return documents_.TextOf(documents_[link.document]) + " " + link.signature.substr(0, 1);
  }

  DocumentTable documents_;
  HashChain chain_;
};

TEST_F(HashChainTest, EachSignatureComesWithTheOneBefore) {
  EXPECT_THAT(
      Take({Invoice("FT A/1", Signature('a')), Invoice("FT A/2", Signature('b')), Invoice("FT A/3", Signature('c'))}),
      ElementsAre("", "FT A/2 b after a", "FT A/3 c after b"));
  EXPECT_THAT(Open(), ElementsAre("FT A/1 a"));
}

TEST_F(HashChainTest, ALinkHasWhatIsVerified) {
  Take({Invoice("FT A/1", Signature('a')), Invoice("FT A/2", Signature('b'), "12")});
  ASSERT_EQ(chain_.Ready().size(), 1U);
  const HashChain::Link& link = chain_.Ready()[0];
  EXPECT_EQ(link.document, 1U);
  EXPECT_EQ(link.version, 12);
  EXPECT_EQ(link.text, "2008-03-05;2008-03-05T10:00:00;FT A/2;7.50;");
  EXPECT_EQ(link.previous, Signature('a'));
  EXPECT_FALSE(link.after_unsigned);
  EXPECT_EQ(link.signature, Bytes('b'));
  const HashChain::Link open = chain_.OpenLink(0);
  EXPECT_EQ(open.version, 1);
  EXPECT_EQ(open.text, "2008-03-05;2008-03-05T10:00:00;FT A/1;7.50;");
  EXPECT_EQ(open.previous, "");
  EXPECT_FALSE(open.after_unsigned);
  EXPECT_EQ(open.signature, Bytes('a'));
}

TEST_F(HashChainTest, TheOrderOfTheFileDoesNotMatter) {
  EXPECT_THAT(
      Take({Invoice("FT A/3", Signature('c')), Invoice("FT A/1", Signature('a')), Invoice("FT A/2", Signature('b'))}),
      ElementsAre("", "", "FT A/2 b after a, FT A/3 c after b"));
  EXPECT_THAT(Open(), ElementsAre("FT A/1 a"));
}

TEST_F(HashChainTest, SeriesAndGapsBeginAnew) {
  EXPECT_THAT(
      Take({Invoice("FT A/1", Signature('a')), Invoice("FT B/2", Signature('b')), Invoice("FT A/3", Signature('c'))}),
      ElementsAre("", "", ""));
  EXPECT_THAT(Open(), ElementsAre("FT A/1 a", "FT B/2 b", "FT A/3 c"));
}

TEST_F(HashChainTest, BehindAnUnsignedDocumentTheZeroIsSigned) {
  EXPECT_THAT(Take({Invoice("FT A/1", "0"), Invoice("FT A/2", Signature('b')), Invoice("FT A/3", "0")}),
              ElementsAre("", "FT A/2 b after 0", ""));
  EXPECT_THAT(Open(), IsEmpty());
}

TEST_F(HashChainTest, BehindWhatIsNoHashNothingIsVerified) {
  EXPECT_THAT(Take({Invoice("FT A/1", "x"), Invoice("FT A/2", Signature('b')), Invoice("FT A/3", Signature('c'))}),
              ElementsAre("", "", "FT A/3 c after b"));
  EXPECT_THAT(Open(), IsEmpty());
}

TEST_F(HashChainTest, WhatIsSignedHasToBeKnown) {
  EXPECT_THAT(Take({Invoice("FT A/1", Signature('a')), Invoice("FT A/2", Signature('b'), "1", "2008-02-30"),
                    Invoice("FT A/3", Signature('c'), "1.1"), Invoice("FT A/4", Signature('d'))}),
              ElementsAre("", "", "", "FT A/4 d after c"));
  EXPECT_THAT(Open(), ElementsAre("FT A/1 a"));
}

TEST_F(HashChainTest, ASignatureWithoutAVersionIsVerified) {
  Take({Invoice("FT A/1", Signature('a'), "x")});
  ASSERT_THAT(Open(), ElementsAre("FT A/1 a"));
  EXPECT_EQ(chain_.OpenLink(0).version, std::nullopt);
}

TEST_F(HashChainTest, OfDocumentsWithTheSameNumberTheFirstCounts) {
  EXPECT_THAT(
      Take({Invoice("FT A/1", Signature('a')), Invoice("FT A/1", Signature('x')), Invoice("FT A/01", Signature('y')),
            Invoice("1", Signature('z')), Invoice("FT A/2", Signature('b'))}),
      ElementsAre("", "", "", "", "FT A/2 b after a"));
}

}  // namespace
}  // namespace zevo
