// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/PulledParse.h>

#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <zevo/Error.h>
#include <zevo/Utf8.h>
#include <zevo/platform/File.h>
#include <zevo/platform/HostErrorHandlers.h>
#include <zevo/platform/ParserLimits.h>
#include <zevo/platform/ParserRun.h>
#include <zevo/platform/PlaceCounter.h>
#include <zevo/platform/RepeatedInput.h>
#include <zevo/platform/TextDecoder.h>

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

namespace zevo {
namespace {

bool GoesOn(const XmlProblem&) { return true; }

}  // namespace

/// Stands before a handler and knows how much came by: events that are no text, and bytes of text since the last.
class PulledParse::Counter final : public ParserHandler {
 public:
  explicit Counter(ParserHandler& handler) : handler_(handler) {}

  void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override {
    Count();
    handler_.StartElement(name, attributes);
  }
  void EndElement(const ParsedName& name) override {
    Count();
    handler_.EndElement(name);
  }
  void Characters(std::string_view text) override {
    this->text += text.size();
    handler_.Characters(text);
  }
  void CData(std::string_view text) override {
    this->text += text.size();
    handler_.CData(text);
  }
  void Comment(std::string_view text) override {
    Count();
    handler_.Comment(text);
  }
  void Instruction(std::string_view target, std::string_view data) override {
    Count();
    handler_.Instruction(target, data);
  }
  void Standalone() override {
    Count();
    handler_.Standalone();
  }

  uint64_t events = 0;
  uint64_t text = 0;

 private:
  void Count() {
    ++events;
    text = 0;
  }

  ParserHandler& handler_;
};

/// Stands before a handler and holds back what came by once before.
class PulledParse::Skipper final : public ParserHandler {
 public:
  Skipper(ParserHandler& handler, const Counter& before)
      : handler_(handler), events_(before.events), text_(before.text) {}

  void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override {
    if (Passes()) handler_.StartElement(name, attributes);
  }
  void EndElement(const ParsedName& name) override {
    if (Passes()) handler_.EndElement(name);
  }
  void Characters(std::string_view text) override {
    if (Left(text)) handler_.Characters(text);
  }
  void CData(std::string_view text) override {
    if (Left(text)) handler_.CData(text);
  }
  void Comment(std::string_view text) override {
    if (Passes()) handler_.Comment(text);
  }
  void Instruction(std::string_view target, std::string_view data) override {
    if (Passes()) handler_.Instruction(target, data);
  }
  void Standalone() override {
    if (Passes()) handler_.Standalone();
  }

 private:
  bool Passes() {
    if (events_ == 0) return true;
    --events_;
    return false;
  }
  bool Left(std::string_view& text) {
    if (events_ > 0) return false;
    const auto known = static_cast<size_t>(std::min<uint64_t>(text_, text.size()));
    text_ -= known;
    text.remove_prefix(known);
    return !text.empty();
  }

  ParserHandler& handler_;
  uint64_t events_;
  uint64_t text_;
};

/// A file that can be read.
struct PulledParse::Input {
  explicit Input(const std::string& name) : file(name), decoder(*file) {}
  explicit Input(ByteSource& source) : decoder(source) {}

  std::optional<InputFile> file;
  TextDecoder decoder;
};

class PulledParse::State {
 public:
  State(std::string file, RepeatedInput* again, std::unique_ptr<Input> input, ParserHandler& handler)
      : file_(std::move(file)),
        again_(again),
        handler_(handler),
        input_(std::move(input)),
        run_(input_->decoder, counter_, violated_, bytes_read_) {
    const HostErrorHandlers aside;
    xmlSAXHandler callbacks = ParserRun::Callbacks();
    run_.Begin(xmlCreatePushParserCtxt(&callbacks, &run_, nullptr, 0, nullptr), nullptr);
    // Otherwise the parser looks at the first bytes to tell the encoding.
    run_.Context().charset = XML_CHAR_ENCODING_UTF8;
  }

  bool Feed() {
    if (ended_) return false;
    ++pieces_;
    const HostErrorHandlers aside;
    NextPiece();
    // Fed in pieces, the parser does not look at every byte of UTF-8.
    bool stops = run_.HasStopped() || !IsUtf8({bytes_.get(), piece_});
    if (!stops) {
      xmlParseChunk(&run_.Context(), bytes_.get(), static_cast<int>(piece_), ended_ ? 1 : 0);
      CountTo(piece_);
      stops = run_.HasStopped() || run_.Context().wellFormed == 0 || IsTagTooLong();
    }
    if (!stops && !ended_) return true;
    ended_ = true;
    problem_ = run_.End();
    if (stops) ParseWhole();
    return false;
  }

  FilePlace StartTagPlace(std::string_view localName) {
    // The parser may give a tag that it then finds broken: that one may have begun in a piece before.
    if (whole_ || run_.Position() < before_) return {};
    const size_t end = run_.Position() - before_;
    // Most tags have nothing but their name.
    size_t tag = end - std::min(end, localName.size());
    if (tag <= counted_ || bytes_[tag - 1] != '<') tag = end;
    while (tag > counted_ && bytes_[tag - 1] != '<') --tag;
    if (tag > counted_) CountTo(tag - 1);
    return places_.Place();
  }

  const std::optional<XmlProblem>& Problem() const { return problem_; }
  uint64_t BytesRead() const { return bytes_read_; }
  uint64_t Pieces() const { return pieces_; }

 private:
  // Larger than the largest tag, so that each tag is in one piece.
  static constexpr size_t kRoom = size_t{128} * 1024;

  // A piece ends where markup begins. The parser takes the ">" in the value of an attribute for the end of the tag, and
  // must not see a part of one.
  void NextPiece() {
    std::memmove(bytes_.get(), bytes_.get() + piece_, held_ - piece_);
    held_ -= piece_;
    before_ += piece_;
    piece_ = counted_ = 0;
    while (piece_ == 0 && !ended_) {
      const size_t looked_at = std::max<size_t>(held_, 1);
      const int length = run_.Decode(bytes_.get() + held_, static_cast<int>(kRoom - held_));
      ended_ = length == 0;
      held_ += static_cast<size_t>(length);
      size_t markup = held_;
      while (markup > looked_at && bytes_[markup - 1] != '<') --markup;
      if (markup > looked_at) piece_ = markup - 1;
      if (ended_) {
        piece_ = held_;
      } else if (piece_ == 0 && kRoom - held_ < kLongestCharacter) {
        // The last character may not be whole.
        piece_ = held_ - 1;
        while (IsContinuation(bytes_[piece_]) && held_ - piece_ < kLongestCharacter) --piece_;
      }
    }
  }

  void CountTo(size_t end) {
    places_.Advance({bytes_.get() + counted_, end - counted_});
    counted_ = end;
  }

  // The parser waits for the end of a tag and has not looked at it.
  bool IsTagTooLong() {
    const auto state = run_.Context().instate;
    if (state != XML_PARSER_START_TAG && state != XML_PARSER_END_TAG) return false;
    return before_ + piece_ - run_.Position() > ParserLimits::kStartTag;
  }

  // Fed in pieces, the parser tells some failures otherwise than it does of a whole file, and has limits of its own for
  // comments and CDATA sections: what counts is what it says of the whole file. Where it takes that, the rest comes at
  // once, without places.
  void ParseWhole() {
    if (again_ == nullptr ? IsStandardInput(file_) : !again_->CanRewind()) {
      if (!problem_) problem_ = OwnProblem();
      return;
    }
    whole_ = true;
    Skipper skipper(handler_, counter_);
    if (again_ != nullptr) again_->Rewind();
    problem_ = (again_ == nullptr ? Parser(file_) : Parser(*again_)).Parse(skipper);
  }

  // What was noticed here, and not by the parser.
  XmlProblem OwnProblem() {
    XmlProblem problem{.number = XML_ERR_INVALID_ENCODING, .reason = "Bytes que não são UTF-8"};
    try {
      if (IsTagTooLong()) ParserLimits::CheckUnfinishedTag(kRoom);
    } catch (const ParserLimits::Passed& limit) {
      problem = {.number = XML_ERR_USER_STOP, .reason = limit.reason, .fault = XmlProblem::Fault::kRefused};
    }
    problem.place = places_.Place();
    return problem;
  }

  static constexpr size_t kLongestCharacter = 4;

  std::string file_;
  RepeatedInput* again_;  // null for a file that is opened again
  ParserHandler& handler_;
  Counter counter_{handler_};
  std::unique_ptr<Input> input_;
  ProblemSink violated_ = &GoesOn;
  uint64_t bytes_read_ = 0;
  ParserRun run_;
  std::unique_ptr<char[]> bytes_{new char[kRoom]};
  uint64_t pieces_ = 0;
  size_t held_ = 0;
  size_t piece_ = 0;    // what the parser has of them
  size_t before_ = 0;   // bytes of the pieces before
  size_t counted_ = 0;  // of the piece
  PlaceCounter places_{input_->decoder.Width(), input_->decoder.Start()};
  bool ended_ = false;
  bool whole_ = false;
  std::optional<XmlProblem> problem_;
};

PulledParse::PulledParse(const std::string& file, ParserHandler& handler) { Begin(file, nullptr, handler); }
PulledParse::PulledParse(RepeatedInput& input, ParserHandler& handler) { Begin({}, &input, handler); }

void PulledParse::Begin(std::string file, RepeatedInput* again, ParserHandler& handler) {
  std::unique_ptr<Input> input;
  try {
    input = again == nullptr ? std::make_unique<Input>(file) : std::make_unique<Input>(*again);
  } catch (const Error& error) {
    unreadable_ = UnreadableFile(error);
    return;
  }
  state_ = std::make_unique<State>(std::move(file), again, std::move(input), handler);
}
PulledParse::~PulledParse() = default;

bool PulledParse::Feed() { return state_ && state_->Feed(); }
const std::optional<XmlProblem>& PulledParse::Problem() const { return state_ ? state_->Problem() : unreadable_; }
FilePlace PulledParse::StartTagPlace(std::string_view localName) { return state_->StartTagPlace(localName); }
uint64_t PulledParse::BytesRead() const { return state_ ? state_->BytesRead() : 0; }
uint64_t PulledParse::Pieces() const { return state_ ? state_->Pieces() : 0; }

}  // namespace zevo
