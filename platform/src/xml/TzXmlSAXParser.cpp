// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlSAXParser.h>

#include "xml/TzXmlCharacterTable.h"
#include "xml/TzXmlEventSink.h"
#include "xml/TzXmlEventSource.h"
#include "xml/TzXmlNamesInUse.h"
#include "xml/TzXmlPieces.h"
#include "xml/TzXmlScanner.h"
#include "xml/TzXmlSourceChoice.h"
#include "xml/TzXmlSse2Blocks.h"
#include "xml/TzXmlTagScan.h"
#include "xml/TzXmlTextPlaces.h"
#include "xml/TzXmlTranscoder.h"

#include <tz/thread/TzTHRIllegalUsage.h>
#include <tz/xml/TzXmlContentHandler.h>
#include <tz/xml/TzXmlParseError.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace {

/// Whether the attribute `spelling` may declare a namespace. Names that begin with "x" are common
/// ("xsi:type"), those with "xm" are not.
bool mayDeclare(std::string_view spelling) noexcept { return spelling.starts_with("xm"); }

bool mayDeclare(std::span<const TzXmlSpelledAttribute> attributes) noexcept {
    return std::any_of(
        attributes.begin(), attributes.end(),
        [](const TzXmlSpelledAttribute& attribute) { return mayDeclare(attribute.name); });
}

bool namesRepeat(const TzXmlAttributeSet& attributes) noexcept {
    for (const TzXmlAttribute& attribute : attributes) {
        for (const TzXmlAttribute* other = attributes.begin(); other != &attribute; ++other) {
            if (other->getName() == attribute.getName()) {
                return true;
            }
        }
    }
    return false;
}

/// A declaration of a namespace.
struct TzXmlDeclaration {
    std::string_view prefix;
    std::string_view uri;

    /// Whether a prefix with a fixed namespace keeps that, and no other one gets it.
    bool keepsReserved() const {
        return keeps(TzXmlNamespace::getXml()) && keeps(TzXmlNamespace::getXmlns());
    }

private:
    bool keeps(const TzXmlNamespace& reserved) const noexcept {
        return (prefix == reserved.getPrefix()) == (uri == reserved.getUri());
    }
};

} // namespace

/// One parse: turns the events of the source into those of the content handler.
class TzXmlSAXParser::Session final : public TzXmlEventSink {
public:
    using Attributes = std::span<const TzXmlSpelledAttribute>;

    Session(TzXmlSAXParser& parser, const TzXmlByteForm& form)
        : parser_(parser), form_(form), transcoder_(form) {}

    void read(std::string_view text);
    void readChunk(std::string_view chunk, bool last);
    void begin(std::string_view& text) const;
    std::size_t line() const noexcept {
        return source_ != nullptr ? source_->line() : places_.line();
    }
    std::size_t column() const noexcept {
        return source_ != nullptr ? source_->column() : places_.column();
    }
    std::size_t eventBegin() const noexcept {
        return source_ != nullptr ? source_->offset() : places_.offset();
    }
    std::size_t eventEnd() const noexcept {
        return eventBegin() + (source_ != nullptr ? source_->length() : places_.length());
    }
    TzCString source(std::size_t begin, std::size_t end) const;
    const TzXmlNameResolver& names() const noexcept { return names_->resolver; }

    void declaration(std::string_view version, std::string_view encoding, int standalone) override;
    void documentType() override;
    void startTag(std::string_view name, Attributes attributes) override;
    bool startTagAgain(const TzXmlTagMark& mark) override;
    void endTag() override;

private:
    /// A start tag that comes again and again, with what its names mean under some declarations.
    struct RepeatedTag {
        TzXmlTagMark mark{};
        std::uint64_t state = 0; // of the bindings
        TzXmlName name;
        std::uint64_t stamp = 0;
        TzXmlAttributeSet attributes;
        std::size_t spelled = 0; // attributes in the text
        std::size_t renewals = 0;
    };

    TzXmlKnownEncoding knownEncoding() const noexcept {
        return form_.unit > 1 || form_.markLength > 0 ? TzXmlKnownEncoding::Utf8
                                                      : TzXmlKnownEncoding::None;
    }
    bool scan(std::string_view text, std::size_t attributeLimit);
    template <typename Blocks> bool scanBy(std::string_view text, std::size_t attributeLimit);
    void readByExpat(std::string_view text, std::size_t attributeLimit);
    void feed(std::string_view text);
    bool hasToWait(std::size_t size) const noexcept;
    void give(std::string_view text, bool last);
    void feedUpTo(std::string_view text, std::size_t crowded);
    void deliverText();
    TzXmlOpenElement& open();
    void deliverStart(TzXmlOpenElement& element, const TzXmlAttributeSet& attributes);
    const RepeatedTag* find(const TzXmlTagMark& mark) const noexcept;
    void keepRepeated(const TzXmlOpenElement& element, Attributes attributes,
                      const TzXmlAttributeSet& set);
    std::size_t declare(Attributes attributes);
    std::size_t declareOne(const TzXmlSpelledAttribute& attribute);
    const TzXmlAttributeSet& collect(Attributes attributes);
    const TzXmlAttributeSet& collectFew(Attributes attributes);
    const TzXmlAttributeSet& collectMany(Attributes attributes);
    [[noreturn]] void refuse(const char* reason) const;
    [[noreturn]] void refuseCrowded() const;
    [[noreturn]] void refuseBeyond(const char* reason, std::size_t limit) const;

    TzXmlSAXParser& parser_;
    TzXmlByteForm form_;
    TzXmlTranscoder transcoder_;
    TzCString cutUnit_;      // at the end of the last chunk
    TzCString waiting_;      // chunks that the source did not get yet
    std::size_t given_ = 0;  // bytes that it got
    std::string_view whole_; // what the source is fed
    TzCString encoding_;     // of it, as it declares; "" for UTF-8
    TzXmlTextPlaces places_; // while there is no source
    std::unique_ptr<TzXmlEventSource> source_;
    TzXmlNamesInUse names_;
    std::size_t depth_ = 0; // so many elements are open
    bool isLeaf_ = false;   // the latest tag was a start tag
    TzXmlAttributeSet manyAttributes_;
    const TzXmlAttributeSet noAttributes_;
    std::vector<RepeatedTag> repeated_;      // by the places of their marks
    std::optional<TzXmlTagMark> comesAgain_; // the mark of the tag that comes next
};

/// Takes the byte-order mark off the beginning of a text.
void TzXmlSAXParser::Session::begin(std::string_view& text) const {
    text.remove_prefix(form_.markLength);
    if (form_.markLength > 0 && TzXmlByteForm::of(text).markLength > 0) {
        refuse("there is a second byte-order mark");
    }
}

void TzXmlSAXParser::Session::read(std::string_view text) {
    begin(text);
    if (form_.unit > 1) {
        text = transcoder_.convert(text, true);
    }
    whole_ = text;
    const bool mayScan = form_.unit == 1 && parser_.choice_ != TzXmlSourceChoice::Expat;
    // A handler may set another limit, for the next text.
    const std::size_t attributeLimit = parser_.attributeLimit_;
    if (!mayScan || !scan(text, attributeLimit)) {
        readByExpat(text, attributeLimit);
    }
}

/// Whether the scanner reads the whole text.
bool TzXmlSAXParser::Session::scan(std::string_view text, std::size_t attributeLimit) {
    return parser_.choice_ == TzXmlSourceChoice::Words
               ? scanBy<TzXmlWordBlocks>(text, attributeLimit)
               : scanBy<TzXmlScanBlocks>(text, attributeLimit);
}

template <typename Blocks>
bool TzXmlSAXParser::Session::scanBy(std::string_view text, std::size_t attributeLimit) {
    TzXmlScanner<Blocks> scanner(text, knownEncoding(), attributeLimit, *this, places_);
    if (scanner.read() == TzXmlScanVerdict::Finished) {
        return true;
    }
    restartText();
    source_ = tzMakeExpatSource(*this, knownEncoding(), scanner.delivered());
    return false;
}

void TzXmlSAXParser::Session::readByExpat(std::string_view text, std::size_t attributeLimit) {
    if (source_ == nullptr) {
        source_ = tzMakeExpatSource(*this, knownEncoding());
    }
    const std::size_t crowded = TzXmlTagScan(text).findCrowded(attributeLimit);
    if (crowded == TzXmlTagScan::None) {
        feed(text);
    } else {
        feedUpTo(text, crowded);
    }
}

void TzXmlSAXParser::Session::readChunk(std::string_view chunk, bool last) {
    if (source_ == nullptr) {
        source_ = tzMakeExpatSource(*this, knownEncoding());
    }
    if (form_.unit > 1) {
        cutUnit_.append(chunk);
        const std::size_t whole =
            last ? cutUnit_.size() : cutUnit_.size() - cutUnit_.size() % form_.unit;
        chunk = transcoder_.convert(std::string_view(cutUnit_).substr(0, whole), last);
        cutUnit_.erase(0, whole);
    }
    if (!last && hasToWait(waiting_.size() + chunk.size())) {
        waiting_.append(chunk);
    } else if (waiting_.empty()) {
        give(chunk, last);
    } else {
        waiting_.append(chunk);
        give(waiting_, last);
        waiting_.clear();
    }
}

// The source looks at a tag from its beginning whenever it gets more of it, so it gets as much as
// it has looked at already.
bool TzXmlSAXParser::Session::hasToWait(std::size_t size) const noexcept {
    constexpr std::size_t ShortTag = 256;
    const std::size_t unfinished = given_ == 0 ? 0 : given_ - std::min(given_, source_->offset());
    return unfinished > ShortTag && size < unfinished;
}

void TzXmlSAXParser::Session::give(std::string_view text, bool last) {
    do {
        const std::string_view piece = text.substr(0, TzXmlPieces::LastSize);
        text.remove_prefix(piece.size());
        given_ += piece.size();
        source_->feed(piece, last && text.empty());
    } while (!text.empty());
}

void TzXmlSAXParser::Session::feed(std::string_view text) {
    TzXmlPieces pieces(text);
    do {
        const std::string_view piece = pieces.next(events());
        source_->feed(piece, pieces.done());
    } while (!pieces.done());
}

/// Reads what is before the crowded tag at `crowded`, whose "<" alone gives it a place.
void TzXmlSAXParser::Session::feedUpTo(std::string_view text, std::size_t crowded) {
    try {
        feed(text.substr(0, crowded + 1));
    } catch (const TzXmlParseError&) {
        if (source_->offset() != crowded) {
            throw;
        }
    }
    refuseCrowded();
}

void TzXmlSAXParser::Session::declaration(std::string_view version, std::string_view encoding,
                                          int standalone) {
    ++events_;
    if (form_.unit == 1 && form_.markLength == 0) {
        encoding_ = encoding;
    }
    const TzXmlProlog prolog(TzCString(version), TzCString(encoding),
                             standalone < 0 ? std::nullopt : std::optional(standalone == 1));
    if (parser_.handler_ != nullptr) {
        parser_.handler_->prolog(prolog);
    }
}

void TzXmlSAXParser::Session::documentType() {
    refuse("a document type declaration is not accepted");
}

// What runs for every element is marked hot here and in the sources that take the events, because
// the linker keeps hot functions together. Scattered over a megabyte they evict each other from the
// instruction cache, which costs up to a tenth of the time of reading.
[[gnu::hot]] void TzXmlSAXParser::Session::startTag(std::string_view name, Attributes attributes) {
    ++events_;
    if (!text_.empty()) {
        deliverText();
    }
    TzXmlOpenElement& element = open();
    element.declarations = declare(attributes);
    names_->resolver.resolveElement(name, element.name, element.stamp);
    const TzXmlAttributeSet& set = attributes.empty() ? noAttributes_ : collect(attributes);
    if (comesAgain_.has_value()) {
        keepRepeated(element, attributes, set);
    }
    deliverStart(element, set);
}

[[gnu::hot]] bool TzXmlSAXParser::Session::startTagAgain(const TzXmlTagMark& mark) {
    if (!text_.empty()) {
        deliverText();
    }
    const RepeatedTag* const tag = find(mark);
    if (tag == nullptr || tag->spelled > parser_.attributeLimit_) {
        comesAgain_ = mark;
        return false;
    }
    ++events_;
    TzXmlOpenElement& element = open();
    element.declarations = 0;
    if (element.stamp != tag->stamp || tag->stamp == 0) {
        element.name = tag->name;
        element.stamp = tag->stamp;
    }
    deliverStart(element, tag->attributes);
    return true;
}

[[gnu::hot]] void TzXmlSAXParser::Session::deliverStart(TzXmlOpenElement& element,
                                                        const TzXmlAttributeSet& attributes) {
    isLeaf_ = true;
    if (parser_.handler_ != nullptr) {
        parser_.handler_->startElement(element.name, attributes);
    }
}

[[gnu::hot]] const TzXmlSAXParser::Session::RepeatedTag*
TzXmlSAXParser::Session::find(const TzXmlTagMark& mark) const noexcept {
    if (mark.place >= repeated_.size()) {
        return nullptr;
    }
    const RepeatedTag& tag = repeated_[mark.place];
    return tag.mark.number == mark.number && tag.state == names().state() ? &tag : nullptr;
}

/// Keeps what a tag without declarations means for when it comes again. Not for ever: declarations
/// around it that change each time would make that more work than it saves.
void TzXmlSAXParser::Session::keepRepeated(const TzXmlOpenElement& element, Attributes attributes,
                                           const TzXmlAttributeSet& set) {
    constexpr std::size_t MostRenewals = 4;
    const TzXmlTagMark mark = *std::exchange(comesAgain_, std::nullopt);
    if (attributes.size() > TzXmlNames::FewAttributes || mayDeclare(attributes)) {
        return;
    }
    repeated_.resize(std::max(repeated_.size(), mark.place + 1));
    RepeatedTag& tag = repeated_[mark.place];
    const std::size_t renewals = tag.mark.number == mark.number ? tag.renewals + 1 : 0;
    if (renewals <= MostRenewals) {
        tag = {mark, names().state(),   element.name, element.stamp,
               set,  attributes.size(), renewals};
    }
}

[[gnu::hot]] void TzXmlSAXParser::Session::endTag() {
    ++events_;
    if (isLeaf_ || !text_.empty()) {
        deliverText();
    }
    isLeaf_ = false;
    const TzXmlOpenElement& element = names_->elements[--depth_];
    if (parser_.handler_ != nullptr) {
        parser_.handler_->endElement(element.name);
    }
    if (element.declarations > 0) {
        names_->resolver.undo(element.declarations);
    }
}

[[gnu::hot]] void TzXmlSAXParser::Session::deliverText() {
    if (parser_.handler_ != nullptr) {
        parser_.handler_->characters(text_);
    }
    text_.clear();
}

[[gnu::hot]] TzXmlOpenElement& TzXmlSAXParser::Session::open() {
    if (depth_ >= parser_.depthLimit_) {
        refuseBeyond("elements are nested too deeply", parser_.depthLimit_);
    }
    std::vector<TzXmlOpenElement>& elements = names_->elements;
    if (depth_ == elements.size()) {
        elements.emplace_back();
    }
    return elements[depth_++];
}

std::size_t TzXmlSAXParser::Session::declare(Attributes attributes) {
    std::size_t declarations = 0;
    for (const TzXmlSpelledAttribute& attribute : attributes) {
        if (mayDeclare(attribute.name)) {
            declarations += declareOne(attribute);
        }
    }
    return declarations;
}

std::size_t TzXmlSAXParser::Session::declareOne(const TzXmlSpelledAttribute& attribute) {
    const std::string_view spelling = attribute.name;
    constexpr std::string_view Default = "xmlns";
    constexpr std::string_view Prefixed = "xmlns:";
    const bool prefixed = spelling.starts_with(Prefixed);
    if (!prefixed && spelling != Default) {
        return 0;
    }
    const TzXmlDeclaration declared{
        prefixed ? spelling.substr(Prefixed.size()) : std::string_view(), attribute.value};
    if (declared.uri.size() > parser_.uriLimit_) {
        refuseBeyond("the URI of a namespace is too long", parser_.uriLimit_);
    }
    if (declared.prefix.size() > parser_.prefixLimit_) {
        refuseBeyond("the prefix of a namespace is too long", parser_.prefixLimit_);
    }
    if (!declared.keepsReserved()) {
        refuse("xml, xmlns and their namespaces are bound to each other only");
    }
    return names_->resolver.declare(declared.prefix, declared.uri);
}

[[gnu::hot]] const TzXmlAttributeSet& TzXmlSAXParser::Session::collect(Attributes attributes) {
    const std::size_t count = attributes.size();
    if (count > parser_.attributeLimit_) {
        refuseCrowded();
    }
    // Above this number attributes are added by look-up, so that the work stays near linear.
    if (count > TzXmlNames::FewAttributes) {
        return collectMany(attributes);
    }
    const TzXmlAttributeSet& few = collectFew(attributes);
    return count > 1 && namesRepeat(few) ? collectMany(attributes) : few;
}

// The attributes of one tag are written over those of another.
[[gnu::hot]] const TzXmlAttributeSet& TzXmlSAXParser::Session::collectFew(Attributes attributes) {
    TzXmlAttributePlaces& places = names_->places[attributes.size()];
    if (places.stamps.empty()) {
        places.make(attributes.size());
    }
    TzXmlAttribute* attribute = places.set.begin();
    std::uint64_t* stamp = places.stamps.data();
    for (const TzXmlSpelledAttribute& spelled : attributes) {
        names_->resolver.resolveAttribute(spelled.name, attribute->getName(), *stamp);
        attribute->assignValue(spelled.value);
        ++attribute;
        ++stamp;
    }
    return places.set;
}

// Of attributes with one name and two spellings the last one is kept.
const TzXmlAttributeSet& TzXmlSAXParser::Session::collectMany(Attributes attributes) {
    manyAttributes_.clear();
    for (const TzXmlSpelledAttribute& spelled : attributes) {
        TzXmlName name;
        std::uint64_t stamp = 0;
        names_->resolver.resolveAttribute(spelled.name, name, stamp);
        manyAttributes_.add(std::move(name), TzCString(spelled.value));
    }
    return manyAttributes_;
}

TzCString TzXmlSAXParser::Session::source(std::size_t begin, std::size_t end) const {
    const std::size_t from = std::min(begin, whole_.size());
    const std::string_view text = whole_.substr(from, std::max(begin, end) - begin);
    return encoding_.empty() ? TzCString(text) : TzXmlCharacterTable::toUtf8(encoding_, text);
}

void TzXmlSAXParser::Session::refuse(const char* reason) const {
    throw TzXmlParseError::at(reason, line(), column());
}

void TzXmlSAXParser::Session::refuseCrowded() const {
    refuseBeyond("an element has too many attributes", parser_.attributeLimit_);
}

void TzXmlSAXParser::Session::refuseBeyond(const char* reason, std::size_t limit) const {
    throw tzWithDetail(TzXmlParseError::at(reason, line(), column()),
                       "the limit is " + std::to_string(limit));
}

/// A document that comes in chunks.
struct TzXmlSAXParser::Fed {
    TzCString head; // until its byte form is known
    std::unique_ptr<Session> session;
};

TzXmlSAXParser::TzXmlSAXParser() = default;

TzXmlSAXParser::~TzXmlSAXParser() = default;

template <typename Work> void TzXmlSAXParser::run(Session& session, const Work& work) {
    // Remembers where reading ended unless the work was done.
    struct Running {
        TzXmlSAXParser& parser;
        bool finished = false;
        ~Running() {
            if (!finished) {
                parser.line_ = parser.session_->line();
                parser.column_ = parser.session_->column();
            }
            parser.session_ = nullptr;
        }
    } running{*this};
    session_ = &session;
    try {
        work();
    } catch (Tzxmsg& error) {
        error.addPlace(session.line(), session.column());
        throw;
    }
    running.finished = true;
}

void TzXmlSAXParser::parse(std::string_view text) {
    if (session_ != nullptr) {
        throw TzTHRIllegalUsage("the parser is parsing already");
    }
    abandon();
    line_ = 0;
    column_ = 0;
    Session session(*this, TzXmlByteForm::of(text));
    run(session, [&session, text] { session.read(text); });
}

void TzXmlSAXParser::feed(std::string_view chunk) { feedOn(chunk, false); }

void TzXmlSAXParser::finish() { feedOn({}, true); }

void TzXmlSAXParser::abandon() noexcept { fed_.reset(); }

void TzXmlSAXParser::feedOn(std::string_view chunk, bool last) {
    if (session_ != nullptr) {
        throw TzTHRIllegalUsage("the parser is parsing already");
    }
    line_ = 0;
    column_ = 0;
    // After an error there is no document.
    std::unique_ptr<Fed> fed = fed_ != nullptr ? std::move(fed_) : std::make_unique<Fed>();
    const bool begins = fed->session == nullptr;
    if (begins) {
        // A byte-order mark, and what could be a second one.
        constexpr std::size_t Head = 8;
        fed->head.append(chunk);
        if (fed->head.size() < Head && !last) {
            fed_ = std::move(fed);
            return;
        }
        chunk = fed->head;
        fed->session = std::make_unique<Session>(*this, TzXmlByteForm::of(chunk));
    }
    Session& session = *fed->session;
    run(session, [&] {
        if (begins) {
            session.begin(chunk);
        }
        session.readChunk(chunk, last);
    });
    if (!last) {
        TzCString().swap(fed->head);
        line_ = session.line();
        column_ = session.column();
        fed_ = std::move(fed);
    }
}

std::uint64_t TzXmlSAXParser::getNamespaceScope() const noexcept {
    return session_ != nullptr ? session_->names().scope() : 0;
}

const TzXmlNamespace* TzXmlSAXParser::findNamespace(std::string_view prefix) const noexcept {
    return session_ != nullptr ? session_->names().find(prefix) : nullptr;
}

std::size_t TzXmlSAXParser::getEventBegin() const noexcept {
    return session_ != nullptr ? session_->eventBegin() : 0;
}

std::size_t TzXmlSAXParser::getEventEnd() const noexcept {
    return session_ != nullptr ? session_->eventEnd() : 0;
}

TzCString TzXmlSAXParser::getSource(std::size_t begin, std::size_t end) const {
    return session_ != nullptr ? session_->source(begin, end) : TzCString();
}

std::size_t TzXmlSAXParser::getLine() const noexcept {
    return session_ != nullptr ? session_->line() : line_;
}

std::size_t TzXmlSAXParser::getColumn() const noexcept {
    return session_ != nullptr ? session_->column() : column_;
}
