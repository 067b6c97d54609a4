// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_FASTPATH_FASTPARSE_H_
#define ZEVO_PLATFORM_FASTPATH_FASTPARSE_H_

#include <zevo/Error.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/TextDecoder.h>
#include <zevo/platform/XmlProblem.h>
#include <zevo/platform/fastpath/FastNames.h>
#include <zevo/platform/fastpath/FastPath.h>
#include <zevo/platform/fastpath/FastText.h>
#include <zevo/platform/fastpath/RootTag.h>
#include <zevo/platform/fastpath/XmlDeclaration.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace zevo {

/// What became of a piece, and of the file.
enum class FastOutcome { kGoesOn, kThrough, kUnreadable, kGivenUp };

/// Parses a file of plain XML, a piece at a time, and gives up where it meets anything else: what is not well-formed,
/// what goes beyond a limit, and what audit files hardly ever have. What it tells is what libxml2 tells of the same
/// bytes, but for where texts are cut: never more, so that libxml2 can go on where it gave up.
///
/// The sink, whose calls are compiled in, has these members. Each returns whether to go on; false gives the file up.
///   bool Standalone();
///   bool StartElement(const FastName& name, std::span<const ParsedAttribute> attributes);  // some: on the root alone
///   bool EndElement(const FastName& name);
///   bool EndEmptyTag(const FastName& name);                  // of an element that is one tag
///   bool Leaf(const FastName& name, std::string_view text);  // an element of two tags with this text, if any, alone
///   bool Characters(std::string_view text);                  // a piece of another text, not empty
///   bool Comment(std::string_view text);
template <class Sink>
class FastParse {
 public:
  // As PulledParse has it, so that both find the same files too long for a piece.
  static constexpr size_t kRoom = size_t{128} * 1024;

  /// All must outlive the parse. `bytesRead` is kept up to date as ParserRun does it. `room` are the bytes of the
  /// longest piece, eight at least.
  FastParse(TextDecoder& decoder, FastNames& names, Sink& sink, uint64_t& bytesRead, size_t room = kRoom)
      : decoder_(decoder), names_(names), sink_(sink), bytes_read_(bytesRead), room_(room) {}
  FastParse(const FastParse&) = delete;
  FastParse& operator=(const FastParse&) = delete;

  /// Parses the next piece. Raises what the sink raises.
  FastOutcome ParsePiece() {
    if constexpr (!kHasFastPath) {
      return FastOutcome::kGivenUp;
    } else {
      return ParseNext();
    }
  }

  /// Why the file is unreadable.
  const std::optional<XmlProblem>& Problem() const { return unreadable_; }

  // For calls from the sink, and between pieces: the text that was decoded last.

  /// What of it comes before the tag whose start the sink is being told; between pieces, what of it is parsed.
  std::string_view Before() const { return {bytes_.get(), static_cast<size_t>(tag_ - bytes_.get())}; }

 private:
  static constexpr size_t kMostDepth = 250;
  static constexpr std::ptrdiff_t kMostTag = RootTag::kMostBytes;
  // A text with comments in it is counted to here.
  static constexpr size_t kMostText = 1'000'000;

  enum class State { kStart, kProlog, kContent, kEpilog };

  FastOutcome ParseNext() {
    if (!TakeMore()) return unreadable_ ? FastOutcome::kUnreadable : FastOutcome::kGivenUp;
    if (!ParseUpTo(limit_)) return FastOutcome::kGivenUp;
    if (!ended_) return FastOutcome::kGoesOn;
    return state_ == State::kEpilog && at_ == limit_ ? FastOutcome::kThrough : FastOutcome::kGivenUp;
  }

  // Brings what is not parsed to the front and more behind it, up to the next "<" at least.
  bool TakeMore() {
    char* const bytes = bytes_.get();
    held_ -= static_cast<size_t>(at_ - bytes);
    std::memmove(bytes, at_, held_);
    at_ = tag_ = bytes;
    for (size_t looked_at = 1;;) {
      // All of it is one tag, comment or text.
      if (room_ - held_ < kLongestCharacter) return false;
      const size_t length = Read(bytes + held_, room_ - held_);
      // libxml2 reads ahead and tells nothing more when it meets what cannot be decoded.
      if (unreadable_ || decoder_.fault() != TextDecoder::Fault::kNone) return false;
      held_ += length;
      if (length == 0) {
        ended_ = true;
        bytes[held_] = '<';
        std::memset(bytes + held_ + 1, 0, kReadableBehind - 1);
        limit_ = bytes + held_;
        return true;
      }
      size_t markup = held_;
      while (markup > looked_at && bytes[markup - 1] != '<') --markup;
      if (markup > looked_at) {
        limit_ = bytes + markup - 1;
        return true;
      }
      looked_at = held_;
    }
  }

  size_t Read(char* bytes, size_t size) {
    try {
      const size_t length = decoder_.Read(bytes, size);
      bytes_read_ = decoder_.BytesTaken();
      return length;
    } catch (const Error& error) {
      unreadable_ = UnreadableFile(error);
      return 0;
    }
  }

  // `limit` is a "<". Stops before it where what comes last is not whole.
  bool ParseUpTo(const char* limit) {
    if (state_ == State::kStart && !ParseDeclaration()) return false;
    while (at_ != limit) {
      const char* const before = at_;
      if (!(state_ == State::kContent ? ParseContent(limit) : ParseOutside(limit))) return false;
      if (at_ == before) break;  // a comment that is not whole
    }
    tag_ = at_;
    return true;
  }

  // Before the root and behind it.
  bool ParseOutside(const char* limit) {
    const char* const blanks = std::exchange(at_, SkipBlanks(at_));
    // For ParserLimits, those before the root belong to its tag.
    if (*at_ != '<' || at_ - blanks > kMostTag) return false;
    if (at_ == limit) return true;
    if (at_[1] == '!') return ParseComment(limit);
    if (state_ == State::kEpilog) return false;
    tag_ = at_;
    RootTag root(names_);
    at_ = root.Parse(at_ + 1);
    if (at_ == nullptr || !sink_.StartElement(*root.Name(), root.Attributes())) return false;
    if (root.IsEmpty()) {
      state_ = State::kEpilog;
      return sink_.EndEmptyTag(*root.Name());
    }
    state_ = State::kContent;
    Open(*root.Name());
    return ParseText();
  }

  bool ParseContent(const char* limit) {
    while (at_ != limit) {
      tag_ = at_;
      if (at_[1] == '/') {
        if (!ParseEndTag()) return false;
        if (depth_ == 0) {
          state_ = State::kEpilog;
          return true;
        }
      } else if (at_[1] == '!') {
        const char* const before = at_;
        if (!ParseComment(limit)) return false;
        if (at_ == before) return true;
        if (!ParseText()) return false;
        text_ += static_cast<size_t>(at_ - before);
        if (text_ > kMostText) return false;
        continue;
      } else if (!ParseStartTag(limit)) {
        return false;
      }
      text_ = 0;
      if (*at_ != '<' && !ParseText()) return false;
    }
    return true;
  }

  bool ParseStartTag(const char* limit) {
    FastName* name = *expected_;
    const char* at = at_ + 1;
    if (name != nullptr && name->IsAt(at)) {
      at += name->TagSize();
    } else {
      const char* end = at;
      while (static_cast<unsigned char>(*end) > ' ' && *end != '/' && *end != '>' && *end != '<') ++end;
      const std::string_view text(at, static_cast<size_t>(end - at));
      at = SkipBlanks(end);
      const bool empty = *at == '/';
      if (empty) ++at;
      // The name of a tag that is given up must not be known: libxml2 numbers those of its attributes first.
      if (*at++ != '>' || at - at_ > kMostTag) return false;
      name = names_.Find(text);
      if (name == nullptr) return false;
      *expected_ = name;
      if (empty) {
        at_ = at;
        expected_ = &name->behind;
        return sink_.StartElement(*name, {}) && sink_.EndEmptyTag(*name);
      }
    }
    const char* const text = at;
    if (*at != '<') at = SkipText(at);
    if (at == nullptr) return false;
    if (at != limit && at[0] == '<' && at[1] == '/' && name->IsAt(at + 2)) {
      at_ = at + 2 + name->TagSize();
      expected_ = &name->behind;
      return sink_.Leaf(*name, {text, static_cast<size_t>(at - text)});
    }
    if (depth_ == kMostDepth || !sink_.StartElement(*name, {})) return false;
    Open(*name);
    // What was looked at need not be looked at again.
    if (*at == '<') return Tell(text, at_ = at);
    at_ = text;
    return true;
  }

  bool ParseEndTag() {
    FastName& name = *open_[depth_ - 1];
    if (name.IsAt(at_ + 2)) {
      at_ += 2 + name.TagSize();
    } else {
      const size_t length = name.TagSize() - 1;
      if (std::string_view(at_ + 2, length) != name.Qualified()) return false;
      const char* const end = SkipBlanks(at_ + 2 + length);
      if (*end != '>' || end - at_ > kMostTag) return false;
      at_ = end + 1;
    }
    --depth_;
    expected_ = &name.behind;
    return sink_.EndElement(name);
  }

  void Open(FastName& name) {
    open_[depth_++] = &name;
    expected_ = &name.inside;
  }

  // A text of an open element, up to the next "<".
  bool ParseText() {
    // Nearly always it is a new line with what is in front of the tag there.
    const char* const from = at_ + (*at_ == '\r' ? 1 : 0);
    if (*from == '\n') {
      const char* const end = SkipIndentation(from + 1);
      if (*end == '<') return Tell(from, at_ = end);
    }
    return ParseOtherText();
  }

  // Rare: a call of its own, so that the above is compiled into where texts are looked for.
  [[gnu::noinline]] bool ParseOtherText() {
    const char* from = at_;
    const char* sound = at_;
    for (;;) {
      at_ = SkipText(at_);
      if (at_ == nullptr) return false;
      // libxml2 may tell lines at once, and none of them where there is something wrong in one.
      if (*at_ == '\r' && at_ >= sound && (from != at_ || at_[1] != '\n')) {
        sound = SkipLines(at_);
        if (sound == nullptr) return false;
      }
      if (!Tell(from, at_)) return false;
      if (*at_ == '<') return true;
      if (*at_ == '&') {
        std::array<char, kLongestCharacter> character;
        size_t length = 0;
        at_ = ParseReference(at_, character.data(), length);
        if (at_ == nullptr || !Tell(character.data(), character.data() + length)) return false;
        from = at_;
      } else {
        // A line ends with LF, however it ends in the file.
        if (*++at_ != '\n' && !sink_.Characters("\n")) return false;
        from = at_;
      }
    }
  }

  bool Tell(const char* from, const char* to) {
    return from == to || sink_.Characters({from, static_cast<size_t>(to - from)});
  }

  // Leaves the place where it is when the comment is not whole.
  bool ParseComment(const char* limit) {
    constexpr std::string_view kBegin = "<!--";
    if (static_cast<size_t>(limit - at_) < kBegin.size() && !ended_) return true;
    const std::string_view left(at_, static_cast<size_t>(limit - at_));
    if (!left.starts_with(kBegin)) return false;
    const size_t end = left.find("--", kBegin.size());
    if (end == std::string_view::npos || end + 2 >= left.size()) return !ended_;
    if (left[end + 2] != '>') return false;
    std::optional<std::string> text = CommentText(left.substr(kBegin.size(), end - kBegin.size()));
    if (!text || !sink_.Comment(*text)) return false;
    at_ += end + 3;
    return true;
  }

  bool ParseDeclaration() {
    state_ = State::kProlog;
    const std::string_view left(at_, static_cast<size_t>(limit_ - at_));
    if (!left.starts_with("<?")) return true;
    const auto declaration = ParseXmlDeclaration(left);
    if (!declaration) return false;
    at_ += declaration->size;
    return !declaration->standalone || sink_.Standalone();
  }

  static constexpr size_t kLongestCharacter = 4;

  TextDecoder& decoder_;
  FastNames& names_;
  Sink& sink_;
  uint64_t& bytes_read_;
  const size_t room_;
  std::optional<XmlProblem> unreadable_;
  std::unique_ptr<char[]> bytes_{new char[room_ + kReadableBehind]()};
  size_t held_ = 0;
  const char* at_ = bytes_.get();
  const char* tag_ = bytes_.get();
  const char* limit_ = bytes_.get();
  bool ended_ = false;
  State state_ = State::kStart;
  std::array<FastName*, kMostDepth> open_{};
  size_t depth_ = 0;
  size_t text_ = 0;                // bytes since the last tag, comments included
  FastName** expected_ = nullptr;  // where the name is noted that comes next
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_FASTPATH_FASTPARSE_H_
