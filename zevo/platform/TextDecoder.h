// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_TEXTDECODER_H_
#define ZEVO_PLATFORM_TEXTDECODER_H_

#include <zevo/platform/File.h>
#include <zevo/platform/PlaceCounter.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zevo {

/// The encoding that an XML declaration at the front of a text tells, as it stands there; nothing when it tells none.
std::optional<std::string_view> DeclaredEncoding(std::string_view text);

/// Turns the bytes of an XML file into UTF-8, so that the parser need know no other encoding. The byte order mark or
/// the XML declaration tells the encoding: UTF-8, UTF-16, US-ASCII, ISO-8859-1 or Windows-1252.
class TextDecoder {
 public:
  /// Why the bytes cannot be decoded any further.
  enum class Fault {
    kNone,
    kUnknownEncoding,        // declared, but none of those above
    kContradictoryEncoding,  // the declaration says other than the byte order mark or the bytes themselves
    kNul,                    // the character U+0000
    kUndecodable,            // bytes that mean nothing in the encoding
  };

  /// Reads the beginning of the input. Raises what reading it raises.
  explicit TextDecoder(ByteSource& input);

  /// Decodes up to `size` bytes of UTF-8, at least four. Gives 0 at the end of the file and from a fault on; what comes
  /// before the fault is given first.
  size_t Read(char* utf8, size_t size);

  Fault fault() const { return fault_; }
  /// How many bytes of the file a character takes, and where the first one stands.
  CharacterWidth Width() const;
  int64_t Start() const { return start_; }
  /// How many bytes were taken from the input so far.
  uint64_t BytesTaken() const { return bytes_taken_; }

 private:
  enum class Encoding { kUtf8, kAscii, kLatin1, kWindows1252, kUtf16LittleEndian, kUtf16BigEndian };

  void DetectEncoding();
  bool Refill();
  size_t DecodeUtf8(char* utf8, size_t size);
  size_t DecodeSingleBytes(char* utf8, size_t size);
  size_t DecodeUtf16(char* utf8, size_t size);
  uint16_t Utf16At(size_t position) const;

  ByteSource& input_;
  uint64_t bytes_taken_ = 0;
  std::unique_ptr<char[]> buffer_;
  size_t position_ = 0;
  int64_t start_ = 0;
  size_t end_ = 0;
  Encoding encoding_ = Encoding::kUtf8;
  Fault fault_ = Fault::kNone;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_TEXTDECODER_H_
