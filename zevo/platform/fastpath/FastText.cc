// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/FastText.h>

#include <algorithm>
#include <array>
#include <charconv>

namespace zevo {
namespace {

struct EntityRow {
  std::string_view name;
  char character;
};
constexpr std::array kEntities = {EntityRow{"lt", '<'}, EntityRow{"gt", '>'}, EntityRow{"amp", '&'},
                                  EntityRow{"quot", '"'}, EntityRow{"apos", '\''}};

// The longest reference that is taken, without "&" and ";".
constexpr size_t kLongestReference = 10;

bool IsXmlCharacter(uint32_t code) {
  if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
  return (code < 0xD800 || code > 0xDFFF) && code != 0xFFFE && code != 0xFFFF && code <= 0x10FFFF;
}

// The code of "#123" and "#x7B".
std::optional<uint32_t> CodeOf(std::string_view reference) {
  reference.remove_prefix(1);
  const bool hexadecimal = reference.starts_with('x');
  if (hexadecimal) reference.remove_prefix(1);
  uint32_t code = 0;
  const char* const end = reference.data() + reference.size();
  const auto [at, fault] = std::from_chars(reference.data(), end, code, hexadecimal ? 16 : 10);
  if (fault != std::errc() || at != end || !IsXmlCharacter(code)) return std::nullopt;
  return code;
}

}  // namespace

const char* ParseReference(const char* at, char* to, size_t& length) {
  const char* const begin = at + 1;
  const char* end = begin;
  while (*end != ';' && *end != '<' && static_cast<size_t>(end - begin) < kLongestReference) ++end;
  if (*end != ';') return nullptr;
  const std::string_view reference(begin, static_cast<size_t>(end - begin));
  if (reference.starts_with('#')) {
    const auto code = CodeOf(reference);
    if (!code) return nullptr;
    std::string character;
    AppendCharacter(*code, character);
    length = character.copy(to, character.size());
    return end + 1;
  }
  const auto row = std::ranges::find(kEntities, reference, &EntityRow::name);
  if (row == kEntities.end()) return nullptr;
  *to = row->character;
  length = 1;
  return end + 1;
}

std::optional<std::string> CommentText(std::string_view comment) {
  std::string text;
  text.reserve(comment.size());
  // In the buffer, more stands behind the comment: a character is not looked for beyond its end.
  for (const char* at = comment.data(); at != comment.data() + comment.size();) {
    const auto byte = static_cast<unsigned char>(*at);
    if (byte == '\r') {
      if (at[1] != '\n') text += '\n';
      ++at;
      continue;
    }
    if (byte < 0x20 && byte != '\t' && byte != '\n') return std::nullopt;
    const size_t bytes = byte < 0x80 ? 1 : CharacterBytes(at);
    if (bytes == 0) return std::nullopt;
    text.append(at, bytes);
    at += bytes;
  }
  return text;
}

}  // namespace zevo
