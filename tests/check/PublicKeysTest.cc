// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/PublicKeys.h>
#include <zevo/platform/Base64.h>

#include <optional>
#include <string>
#include <string_view>

#include "tests/support/TestKeys.h"

namespace zevo {
namespace {

void Add(PublicKeys& keys, int32_t version, std::string_view pem) { keys.Add(version, *PublicKey::FromPem(pem)); }

// Whether the key of a version is that of the signature.
bool IsKeyOf(const PublicKeys& keys, std::optional<int32_t> version) {
  const SignatureVerifier* const key = keys.Of(version);
  return key != nullptr && key->Verifies(testing::kMessage, *Base64Decoded(testing::kSignature));
}

TEST(PublicKeysTest, EachVersionHasItsKey) {
  PublicKeys keys;
  EXPECT_TRUE(keys.IsEmpty());
  Add(keys, 1, testing::kPublicKey);
  Add(keys, 2, testing::kOtherPublicKey);
  EXPECT_FALSE(keys.IsEmpty());
  EXPECT_TRUE(IsKeyOf(keys, 1));
  EXPECT_FALSE(IsKeyOf(keys, 2));
  EXPECT_EQ(keys.Of(3), nullptr);
  EXPECT_EQ(keys.Of(0), nullptr);
  EXPECT_EQ(keys.Of(std::nullopt), nullptr);
}

TEST(PublicKeysTest, Version0IsForThoseWithoutAKeyOfTheirOwn) {
  PublicKeys keys;
  Add(keys, 0, testing::kPublicKey);
  Add(keys, 2, testing::kOtherPublicKey);
  EXPECT_TRUE(IsKeyOf(keys, 1));
  EXPECT_TRUE(IsKeyOf(keys, std::nullopt));
  EXPECT_FALSE(IsKeyOf(keys, 2));
}

TEST(PublicKeysTest, AnotherKeyOfAVersionReplacesTheOneBefore) {
  PublicKeys keys;
  Add(keys, 1, testing::kOtherPublicKey);
  Add(keys, 1, testing::kPublicKey);
  EXPECT_TRUE(IsKeyOf(keys, 1));
}

}  // namespace
}  // namespace zevo
