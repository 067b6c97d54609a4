// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/Base64.h>
#include <zevo/platform/SignatureVerifier.h>
#include <zevo/platform/Signer.h>

#include <string>
#include <string_view>

#include "tests/support/TestKeys.h"

namespace zevo {
namespace {

using testing::kMessage;

TEST(SignerTest, AMessageHasOneSignature) {
  for (const std::string_view pem : {testing::kPrivateKey, testing::kRsaPrivateKey}) {
    const Signer signer(PrivateKey::FromPem(pem).value());
    EXPECT_EQ(Base64Of(signer.Sign(kMessage)), testing::kSignature);
    EXPECT_EQ(Base64Of(signer.Sign(kMessage)), testing::kSignature);
  }
}

TEST(SignerTest, ThePublicHalfVerifiesWhatItSigns) {
  const Signer signer(PrivateKey::FromPem(testing::kPrivateKey).value());
  const SignatureVerifier verifier(PublicKey::FromPem(testing::kPublicKey).value());
  for (const std::string_view message : {"", ";", "Évora"}) {
    EXPECT_TRUE(verifier.Verifies(message, signer.Sign(message))) << message;
  }
}

}  // namespace
}  // namespace zevo
