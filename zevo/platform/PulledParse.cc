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
#include <zevo/platform/RestOfEvents.h>
#include <zevo/platform/TextDecoder.h>
#include <zevo/platform/fastpath/FastEvents.h>
#include <zevo/platform/fastpath/FastNames.h>
#include <zevo/platform/fastpath/FastParse.h>
#include <zevo/platform/fastpath/FastPath.h>

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

namespace zevo {
namespace {

bool GoesOn(const XmlProblem&) { return true; }

}  // namespace

/// Stands before a handler and knows how much came by.
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
  void EndEmptyTag(const ParsedName& name) override {
    Count();
    handler_.EndEmptyTag(name);
  }
  void Characters(std::string_view text) override {
    count_.text += text.size();
    handler_.Characters(text);
  }
  void CData(std::string_view text) override {
    if (text.empty()) Count();
    count_.text += text.size();
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

  const EventCount& Counted() const { return count_; }

 private:
  void Count() {
    ++count_.events;
    count_.text = 0;
  }

  ParserHandler& handler_;
  EventCount count_;
};

/// A file that can be read, from its beginning.
class PulledParse::Input {
 public:
  explicit Input(const std::string& file) : file_(file), source_(*file_) {}
  explicit Input(RepeatedInput& again) : again_(&again), source_(again) {}

  bool CanRestart() { return source_.CanRestart(); }
  void Restart() { source_.Restart(); }
  void Begin() { decoder_.emplace(source_); }

  TextDecoder& Decoder() { return *decoder_; }
  RepeatedInput* Again() { return again_; }

 private:
  std::optional<InputFile> file_;
  RepeatedInput* again_ = nullptr;
  ByteSource& source_;
  std::optional<TextDecoder> decoder_;
};

/// A parse on the fast path.
class PulledParse::FastState {
 public:
  FastState(TextDecoder& decoder, ParserHandler& handler)
      : events_(handler), parse_(decoder, names_, events_, bytes_read_), places_(decoder.Width(), decoder.Start()) {}

  FastOutcome Feed() {
    if (std::exchange(ended_, true)) return FastOutcome::kThrough;
    ++pieces_;
    Count();
    counted_ = 0;
    const FastOutcome outcome = parse_.ParsePiece();
    ended_ = outcome != FastOutcome::kGoesOn;
    return outcome;
  }

  FilePlace StartTagPlace() {
    Count();
    return places_.Place();
  }

  const std::optional<XmlProblem>& Problem() const { return parse_.Problem(); }
  uint64_t BytesRead() const { return bytes_read_; }
  uint64_t Pieces() const { return pieces_; }
  const EventCount& Events() const { return events_.Count(); }
  FastNames& Names() { return names_; }

 private:
  void Count() {
    const std::string_view before = parse_.Before();
    places_.Advance(before.substr(counted_));
    counted_ = before.size();
  }

  FastNames names_;
  FastEvents events_;
  uint64_t bytes_read_ = 0;
  FastParse<FastEvents> parse_;
  PlaceCounter places_;
  size_t counted_ = 0;  // of the piece
  uint64_t pieces_ = 0;
  bool ended_ = false;
};

/// A parse by libxml2.
class PulledParse::State {
 public:
  State(std::string file, Input& input, ParserHandler& handler)
      : file_(std::move(file)),
        again_(input.Again()),
        handler_(handler),
        input_(input),
        run_(input.Decoder(), counter_, violated_, bytes_read_) {
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
    const bool unreadable = problem_ && problem_->fault == XmlProblem::Fault::kUnreadable;
    if (stops && !unreadable) ParseWhole();
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
    RestOfEvents rest(handler_, counter_.Counted(), nullptr);
    if (again_ != nullptr) again_->Rewind();
    problem_ = (again_ == nullptr ? Parser(file_) : Parser(*again_)).ParseWithLibxml2(rest);
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
  Input& input_;
  ProblemSink violated_ = &GoesOn;
  uint64_t bytes_read_ = 0;
  ParserRun run_;
  std::unique_ptr<char[]> bytes_{new char[kRoom]};
  uint64_t pieces_ = 0;
  size_t held_ = 0;
  size_t piece_ = 0;    // what the parser has of them
  size_t before_ = 0;   // bytes of the pieces before
  size_t counted_ = 0;  // of the piece
  PlaceCounter places_{input_.Decoder().Width(), input_.Decoder().Start()};
  bool ended_ = false;
  bool whole_ = false;
  std::optional<XmlProblem> problem_;
};

PulledParse::PulledParse(std::string file, ParserHandler& handler) : file_(std::move(file)), handler_(handler) {
  Begin(nullptr);
}
PulledParse::PulledParse(RepeatedInput& input, ParserHandler& handler) : handler_(handler) { Begin(&input); }
PulledParse::~PulledParse() = default;

void PulledParse::Begin(RepeatedInput* again) {
  bool fast = false;
  try {
    input_ = again == nullptr ? std::make_unique<Input>(file_) : std::make_unique<Input>(*again);
    fast = IsFastPathOn() && input_->CanRestart();
    input_->Begin();
  } catch (const Error& error) {
    unreadable_ = UnreadableFile(error);
    return;
  }
  if (fast) {
    fast_ = std::make_unique<FastState>(input_->Decoder(), handler_);
  } else {
    state_ = std::make_unique<State>(file_, *input_, handler_);
  }
}

bool PulledParse::Feed() {
  if (unreadable_) return false;
  if (state_) return state_->Feed();
  switch (fast_->Feed()) {
    case FastOutcome::kGoesOn:
      return true;
    case FastOutcome::kGivenUp:
      return LeaveFastPath();
    default:
      return false;
  }
}

// Has libxml2 parse the file as far as it came, and a piece more.
bool PulledParse::LeaveFastPath() {
  try {
    input_->Restart();
    input_->Begin();
  } catch (const Error& error) {
    unreadable_ = UnreadableFile(error);
    return false;
  }
  rest_ = std::make_unique<RestOfEvents>(handler_, fast_->Events(), &fast_->Names());
  state_ = std::make_unique<State>(file_, *input_, *rest_);
  bool more = true;
  while (more && !rest_->HasCaughtUp()) more = state_->Feed();
  return more && state_->Feed();
}

const std::optional<XmlProblem>& PulledParse::Problem() const {
  if (state_) return state_->Problem();
  return fast_ && !unreadable_ ? fast_->Problem() : unreadable_;
}

FilePlace PulledParse::StartTagPlace(std::string_view localName) {
  return state_ ? state_->StartTagPlace(localName) : fast_->StartTagPlace();
}

uint64_t PulledParse::BytesRead() const {
  if (state_) return state_->BytesRead();
  return fast_ ? fast_->BytesRead() : 0;
}

uint64_t PulledParse::Pieces() const { return (fast_ ? fast_->Pieces() : 0) + (state_ ? state_->Pieces() : 0); }

}  // namespace zevo
