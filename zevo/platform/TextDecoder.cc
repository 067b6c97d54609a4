// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/TextDecoder.h>

#include <zevo/platform/ByteScan.h>
#include <zevo/platform/Text.h>
#include <zevo/platform/Windows1252.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace zevo {
namespace {

constexpr size_t kBufferSize = size_t{64} * 1024;

// The bytes 0x80 to 0xFF as UTF-8, three bytes each with the length behind.
struct Utf8Sequence {
  std::array<char, 3> bytes;
  uint8_t length;
};

constexpr Utf8Sequence MakeSequence(char32_t c) {
  const auto byte = [](char32_t value) { return static_cast<char>(value); };
  if (c < 0x800) return {{byte(0xC0 | (c >> 6)), byte(0x80 | (c & 0x3F)), 0}, 2};
  return {{byte(0xE0 | (c >> 12)), byte(0x80 | ((c >> 6) & 0x3F)), byte(0x80 | (c & 0x3F))}, 3};
}

template <bool kWindows>
constexpr std::array<Utf8Sequence, 128> MakeUpperHalf() {
  std::array<Utf8Sequence, 128> table{};
  for (unsigned i = 0; i < 128; ++i) {
    const auto byte = static_cast<unsigned char>(0x80 + i);
    table[i] = MakeSequence(kWindows ? FromWindows1252(byte) : char32_t{byte});
  }
  return table;
}

constexpr auto kWindows1252Sequences = MakeUpperHalf<true>();
constexpr auto kLatin1Sequences = MakeUpperHalf<false>();

// Bytes that need no decoding: ASCII but for NUL.
using AsciiButNul = ByteScan<StopBytes<0x01, true>>;

// Copies the run of bytes that are not NUL.
size_t CopyUntilNul(const char* from, size_t size, char* to) {
  const void* nul = std::memchr(from, 0, size);
  const size_t length = nul == nullptr ? size : static_cast<size_t>(static_cast<const char*>(nul) - from);
  std::memcpy(to, from, length);
  return length;
}

}  // namespace

std::optional<std::string_view> DeclaredEncoding(std::string_view text) {
  constexpr std::string_view kStart = "<?xml";
  constexpr std::string_view kBlanks = " \t\r\n";
  if (!text.starts_with(kStart)) return std::nullopt;
  text = text.substr(kStart.size(), text.find("?>") - kStart.size());
  if (text.find_first_of(kBlanks) != 0) return std::nullopt;
  constexpr std::string_view kName = "encoding";
  const size_t name = text.find(kName);
  if (name == std::string_view::npos) return std::nullopt;
  const size_t quote = text.find_first_of("\"'", name);
  if (quote == std::string_view::npos) return std::nullopt;
  const size_t end = text.find(text[quote], quote + 1);
  return text.substr(quote + 1, end == std::string_view::npos ? end : end - quote - 1);
}

TextDecoder::TextDecoder(ByteSource& input) : input_(input), buffer_(new char[kBufferSize]) {
  Refill();
  DetectEncoding();
}

bool TextDecoder::Refill() {
  const size_t left = end_ - position_;
  std::memmove(buffer_.get(), buffer_.get() + position_, left);
  position_ = 0;
  end_ = left + input_.Read(buffer_.get() + left, kBufferSize - left);
  bytes_taken_ += end_ - left;
  return end_ > left;
}

void TextDecoder::DetectEncoding() {
  const std::string_view start(buffer_.get(), end_);
  using namespace std::string_view_literals;
  enum class Width { kBytes, kUtf8, kUtf16 } width = Width::kBytes;
  if (start.starts_with("\xEF\xBB\xBF"sv)) {
    width = Width::kUtf8;
    position_ = 3;
  } else if (start.starts_with("\xFF\xFE"sv) || start.starts_with("<\0"sv)) {
    width = Width::kUtf16;
    encoding_ = Encoding::kUtf16LittleEndian;
    position_ = start.starts_with("<"sv) ? 0 : 2;
  } else if (start.starts_with("\xFE\xFF"sv) || start.starts_with("\0<"sv)) {
    width = Width::kUtf16;
    encoding_ = Encoding::kUtf16BigEndian;
    position_ = start.starts_with("\0"sv) ? 0 : 2;
  }

  start_ = static_cast<int64_t>(position_);

  std::string declaration;
  if (width == Width::kUtf16) {
    for (size_t i = position_; i + 1 < start.size() && !declaration.ends_with('>'); i += 2) {
      declaration.push_back(Utf16At(i) < 0x80 ? static_cast<char>(Utf16At(i)) : '?');
    }
  } else {
    declaration = start.substr(position_, start.find('>', position_) + 1 - position_);
  }
  const std::optional<std::string_view> declared = DeclaredEncoding(declaration);
  if (!declared) return;
  std::string name(*declared);
  for (char& c : name) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - ('a' - 'A'));
  }

  struct Row {
    std::string_view name;
    Width width;
    Encoding encoding;
  };
  static constexpr std::array kRows = {
      Row{"UTF-8", Width::kUtf8, Encoding::kUtf8},
      Row{"UTF8", Width::kUtf8, Encoding::kUtf8},
      Row{"UTF-16", Width::kUtf16, Encoding::kUtf16LittleEndian},
      Row{"UTF-16LE", Width::kUtf16, Encoding::kUtf16LittleEndian},
      Row{"UTF-16BE", Width::kUtf16, Encoding::kUtf16BigEndian},
      Row{"WINDOWS-1252", Width::kBytes, Encoding::kWindows1252},
      Row{"CP1252", Width::kBytes, Encoding::kWindows1252},
      Row{"ISO-8859-1", Width::kBytes, Encoding::kLatin1},
      Row{"LATIN1", Width::kBytes, Encoding::kLatin1},
      Row{"US-ASCII", Width::kBytes, Encoding::kAscii},
      Row{"ASCII", Width::kBytes, Encoding::kAscii},
  };
  const auto row = std::find_if(kRows.begin(), kRows.end(), [&](const Row& each) { return each.name == name; });
  if (row == kRows.end()) {
    fault_ = Fault::kUnknownEncoding;
  } else if (width == Width::kUtf16) {
    const bool otherEnd = name != "UTF-16" && row->encoding != encoding_;
    if (row->width != Width::kUtf16 || otherEnd) fault_ = Fault::kContradictoryEncoding;
  } else if (row->width == Width::kUtf16 || (width == Width::kUtf8 && row->width != Width::kUtf8)) {
    fault_ = Fault::kContradictoryEncoding;
  } else {
    encoding_ = row->encoding;
  }
}

CharacterWidth TextDecoder::Width() const {
  switch (encoding_) {
    case Encoding::kUtf8:
      return CharacterWidth::kAsUtf8;
    case Encoding::kUtf16LittleEndian:
    case Encoding::kUtf16BigEndian:
      return CharacterWidth::kUtf16;
    default:
      return CharacterWidth::kOne;
  }
}

size_t TextDecoder::Read(char* utf8, size_t size) {
  if (fault_ != Fault::kNone) return 0;
  switch (encoding_) {
    case Encoding::kUtf8:
      return DecodeUtf8(utf8, size);
    case Encoding::kUtf16LittleEndian:
    case Encoding::kUtf16BigEndian:
      return DecodeUtf16(utf8, size);
    default:
      return DecodeSingleBytes(utf8, size);
  }
}

// Whether the bytes are UTF-8 is left to the parser, which looks at every character anyway.
size_t TextDecoder::DecodeUtf8(char* utf8, size_t size) {
  if (position_ == end_ && !Refill()) return 0;
  const size_t length = CopyUntilNul(buffer_.get() + position_, std::min(size, end_ - position_), utf8);
  position_ += length;
  if (length < size && position_ < end_) fault_ = Fault::kNul;
  return length;
}

size_t TextDecoder::DecodeSingleBytes(char* utf8, size_t size) {
  if (position_ == end_ && !Refill()) return 0;
  const auto& upperHalf = encoding_ == Encoding::kWindows1252 ? kWindows1252Sequences : kLatin1Sequences;
  size_t length = 0;
  while (position_ < end_ && length < size) {
    const size_t run =
        AsciiButNul::CopyRun(buffer_.get() + position_, std::min(size - length, end_ - position_), utf8 + length);
    position_ += run;
    length += run;
    if (position_ == end_ || length == size) break;
    const unsigned char byte = Byte(buffer_[position_]);
    if (byte == 0 || encoding_ == Encoding::kAscii) {
      fault_ = byte == 0 ? Fault::kNul : Fault::kUndecodable;
      break;
    }
    const Utf8Sequence& sequence = upperHalf[byte - 0x80U];
    if (size - length < sequence.length) break;
    std::memcpy(utf8 + length, sequence.bytes.data(), sequence.length);
    length += sequence.length;
    ++position_;
  }
  return length;
}

uint16_t TextDecoder::Utf16At(size_t position) const {
  const unsigned first = Byte(buffer_[position]);
  const unsigned second = Byte(buffer_[position + 1]);
  return static_cast<uint16_t>(encoding_ == Encoding::kUtf16LittleEndian ? first | (second << 8)
                                                                         : (first << 8) | second);
}

size_t TextDecoder::DecodeUtf16(char* utf8, size_t size) {
  std::string text;
  while (text.size() + 4 <= size) {
    if (end_ - position_ < 4) Refill();
    const size_t left = end_ - position_;
    if (left == 0) break;
    if (left == 1) {
      fault_ = Fault::kUndecodable;
      break;
    }
    char32_t character = Utf16At(position_);
    size_t width = 2;
    if (character >= 0xD800 && character <= 0xDFFF) {
      const char32_t low = left >= 4 ? Utf16At(position_ + 2) : 0;
      if (character > 0xDBFF || low < 0xDC00 || low > 0xDFFF) {
        fault_ = Fault::kUndecodable;
        break;
      }
      character = 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00);
      width = 4;
    }
    if (character == 0) {
      fault_ = Fault::kNul;
      break;
    }
    AppendCharacter(character, text);
    position_ += width;
  }
  return text.copy(utf8, text.size());
}

}  // namespace zevo
