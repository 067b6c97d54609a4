// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/Base64.h>
#include <zevo/platform/SignatureVerifier.h>

#include <string>
#include <string_view>
#include <utility>

#include "tests/support/Errors.h"
#include "tests/support/TestKeys.h"

namespace zevo {
namespace {

using testing::kMessage;

SignatureVerifier VerifierOf(std::string_view pem) { return SignatureVerifier(PublicKey::FromPem(pem).value()); }

std::string Signature() { return Base64Decoded(testing::kSignature).value(); }

TEST(SignatureVerifierTest, TheSignatureOfAMessageIsVerified) {
  EXPECT_TRUE(VerifierOf(testing::kPublicKey).Verifies(kMessage, Signature()));
  EXPECT_TRUE(VerifierOf(testing::kRsaPublicKey).Verifies(kMessage, Signature()));
}

TEST(SignatureVerifierTest, OneVerifiesManyWhateverTheOneBeforeWas) {
  const SignatureVerifier verifier = VerifierOf(testing::kPublicKey);
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE(verifier.Verifies(kMessage, Signature()));
    EXPECT_FALSE(verifier.Verifies("", Signature()));
    EXPECT_FALSE(verifier.Verifies(kMessage, ""));
  }
}

TEST(SignatureVerifierTest, WhatDiffersByABitIsNot) {
  const SignatureVerifier verifier = VerifierOf(testing::kPublicKey);
  for (size_t at = 0; at < kMessage.size(); ++at) {
    std::string message(kMessage);
    message[at] = static_cast<char>(message[at] ^ 1);
    EXPECT_FALSE(verifier.Verifies(message, Signature())) << at;
  }
  for (size_t at = 0; at < Signature().size(); ++at) {
    std::string signature = Signature();
    signature[at] = static_cast<char>(signature[at] ^ 1);
    EXPECT_FALSE(verifier.Verifies(kMessage, signature)) << at;
  }
}

TEST(SignatureVerifierTest, NorIsASignatureOfAnotherLengthOrKey) {
  const SignatureVerifier verifier = VerifierOf(testing::kPublicKey);
  EXPECT_FALSE(verifier.Verifies(kMessage, Signature() + '\0'));
  EXPECT_FALSE(verifier.Verifies(kMessage, Signature().substr(0, 127)));
  EXPECT_FALSE(verifier.Verifies(kMessage, std::string(128, '\xFF')));
  EXPECT_FALSE(verifier.Verifies(kMessage, std::string(128, '\0')));
  EXPECT_FALSE(VerifierOf(testing::kOtherPublicKey).Verifies(kMessage, Signature()));
}

TEST(SignatureVerifierTest, ItMoves) {
  SignatureVerifier first = VerifierOf(testing::kOtherPublicKey);
  first = VerifierOf(testing::kPublicKey);
  const SignatureVerifier second(std::move(first));
  EXPECT_TRUE(second.Verifies(kMessage, Signature()));
}

}  // namespace
}  // namespace zevo
