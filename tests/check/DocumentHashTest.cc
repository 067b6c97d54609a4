// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/DocumentHash.h>

#include <optional>
#include <string>
#include <string_view>

#include "tests/support/TestKeys.h"

namespace zevo {
namespace {

HashForm FormOf(std::string_view text) {
  TextFact hash;
  hash.value = text;
  hash.state = TextFact::State::kRead;
  return HashFormOf(hash);
}

TEST(DocumentHashTest, IsASignatureOr0) {
  const std::string signature(testing::kSignature);
  EXPECT_EQ(FormOf(signature), HashForm::kSignature);
  EXPECT_EQ(FormOf(std::string(171, 'A') + "="), HashForm::kSignature);
  EXPECT_EQ(FormOf("0"), HashForm::kUnsigned);
  for (const std::string& other :
       {std::string(), std::string("00"), std::string("1"), std::string(" 0"), signature.substr(1), signature + "=",
        signature + " ", " " + signature.substr(1), "-" + signature.substr(1), signature.substr(0, 171) + "A",
        signature.substr(0, 170) + "==", std::string(171, 'B') + "="}) {
    EXPECT_EQ(FormOf(other), HashForm::kNone) << other;
  }
  EXPECT_EQ(HashFormOf(TextFact()), HashForm::kNone);
}

TEST(DocumentHashTest, ASignatureHasTheBytesOfItsKeysModulus) {
  EXPECT_EQ(SignatureBytes(testing::kSignature).size(), 128U);
}

TEST(DocumentHashTest, ControlTellsTheVersionOfTheKey) {
  using Form = HashControl::Form;
  for (const std::string_view text : {"1", "0", "12"}) {
    EXPECT_EQ(HashControl::FromText(text).form, Form::kVersion) << text;
  }
  EXPECT_EQ(HashControl::FromText("12").version, 12);
  EXPECT_EQ(HashControl::FromText("2147483647").version, 2147483647);
  EXPECT_EQ(HashControl::FromText("2147483648").form, Form::kVersion);
  EXPECT_EQ(HashControl::FromText("2147483648").version, std::nullopt);
  for (const std::string_view text : {"1.1", "12.34", "1-FTM", "1-FTM abc/00001", "1-FTD ft 01D/00045", "2-NCD"}) {
    EXPECT_EQ(HashControl::FromText(text).form, Form::kOtherText) << text;
  }
  for (const std::string_view text :
       {"", " 1", "1 ", "v1", "1.", "1.a", "1.1.1", "-1", "1-", "1-FT", "1-FTX", "1-ftM", "1-FTm", "1-F1M", "1FTM"}) {
    EXPECT_EQ(HashControl::FromText(text).form, Form::kNone) << text;
  }
}

}  // namespace
}  // namespace zevo
