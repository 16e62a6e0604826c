// SPDX-License-Identifier: MIT
#include "xml/TzXmlScanner.h"

#include "xml/TzXmlEventSink.h"
#include "xml/TzXmlScanDeclaration.h"
#include "xml/TzXmlSse2Blocks.h"
#include "xml/TzXmlUtf8.h"

#include <tz/tools/TzCString.h>

namespace {

/// Expat counts in int, and has no memory for longer tokens.
constexpr std::size_t LongestText = std::size_t{1} << 30;

/// Room for the open elements of most texts.
constexpr std::size_t UsualDepth = 16;

constexpr std::string_view SectionEnd = "]]>";

} // namespace

template <typename Blocks>
TzXmlScanner<Blocks>::TzXmlScanner(std::string_view text, TzXmlKnownEncoding encoding,
                                   std::size_t attributeLimit, TzXmlEventSink& sink,
                                   TzXmlTextPlaces& places)
    : cursor_(text), length_(text.size()), encoding_(encoding), attributeLimit_(attributeLimit),
      sink_(sink), places_(places) {
    open_.reserve(UsualDepth);
    places_.start(text);
}

template <typename Blocks> TzXmlScanVerdict TzXmlScanner<Blocks>::read() {
    const bool isFinished = length_ <= LongestText && readDeclaration() && readMisc() &&
                            readRoot() && readMisc() && cursor_.atEnd();
    return isFinished ? TzXmlScanVerdict::Finished : TzXmlScanVerdict::HandOver;
}

template <typename Blocks> bool TzXmlScanner<Blocks>::readDeclaration() {
    if (!TzXmlScanDeclaration::begins(cursor_.rest())) {
        return true;
    }
    const char* const begin = cursor_.at();
    TzXmlScanDeclaration declaration;
    if (!declaration.read(cursor_, encoding_)) {
        return false;
    }
    places_.set(begin, cursor_.at());
    delivered_.add();
    sink_.declaration("1.0", declaration.encoding(), declaration.standalone());
    return true;
}

/// Comments, processing instructions and blanks before or after the root element.
template <typename Blocks> bool TzXmlScanner<Blocks>::readMisc() {
    for (;;) {
        cursor_.passBlanks();
        if (cursor_.rest().starts_with("<!--")) {
            if (!readComment()) {
                return false;
            }
        } else if (cursor_.rest().starts_with("<?")) {
            if (!readInstruction()) {
                return false;
            }
        } else {
            return true;
        }
    }
}

template <typename Blocks> bool TzXmlScanner<Blocks>::readRoot() {
    if (cursor_.atEnd() || cursor_.next() != '<' || !readStartTag()) {
        return false;
    }
    while (!open_.empty()) {
        if (!readText() || !readMarkup()) {
            return false;
        }
    }
    return true;
}

/// The text before the next markup.
template <typename Blocks> [[gnu::hot]] bool TzXmlScanner<Blocks>::readText() {
    constexpr TzXmlScanStops Stops{'<', '&', SectionEnd.front(), false};
    const char* run = cursor_.at();
    while (cursor_.passPlain<Blocks>(Stops)) {
        if (cursor_.next() == '<') {
            deliverText(run);
            return true;
        }
        if (cursor_.next() == SectionEnd.front()) {
            if (cursor_.pass(SectionEnd)) {
                return false;
            }
            cursor_.skip(1);
            continue;
        }
        deliverText(run);
        if (!readTextReference()) {
            return false;
        }
        run = cursor_.at();
    }
    return false;
}

/// A reference or an end of a line in a text.
template <typename Blocks> bool TzXmlScanner<Blocks>::readTextReference() {
    if (cursor_.passReturn()) {
        sink_.text("\n");
        return true;
    }
    std::uint32_t code = 0;
    if (!cursor_.readReference(code)) {
        return false;
    }
    TzCString character;
    TzXmlUtf8::append(character, code);
    sink_.text(character);
    return true;
}

template <typename Blocks> void TzXmlScanner<Blocks>::deliverText(const char* begin) {
    if (cursor_.at() != begin) {
        sink_.text(cursor_.from(begin));
    }
}

template <typename Blocks> [[gnu::hot]] bool TzXmlScanner<Blocks>::readMarkup() {
    const std::string_view markup = cursor_.rest();
    switch (markup.size() > 1 ? markup[1] : '\0') {
    case '/':
        return readEndTag();
    case '?':
        return readInstruction();
    case '!':
        return markup.starts_with("<!--") ? readComment() : readSection();
    default:
        return readStartTag();
    }
}

template <typename Blocks> [[gnu::hot]] bool TzXmlScanner<Blocks>::readEndTag() {
    const char* const tag = cursor_.at();
    cursor_.skip(2);
    if (!cursor_.pass(open_.back())) {
        return false;
    }
    cursor_.passBlanks();
    if (!cursor_.pass('>')) {
        return false;
    }
    open_.pop_back();
    deliverEnd(tag);
    return true;
}

template <typename Blocks> void TzXmlScanner<Blocks>::deliverEnd(const char* tag) {
    places_.set(tag, cursor_.at());
    delivered_.add();
    sink_.endTag();
}

template <typename Blocks> bool TzXmlScanner<Blocks>::readComment() {
    return cursor_.pass("<!--") && passTo("--") && cursor_.pass('>');
}

template <typename Blocks> bool TzXmlScanner<Blocks>::readInstruction() {
    cursor_.skip(2);
    const std::string_view target = cursor_.readName();
    if (target.empty() || tzEqualIgnoreCase(target, "xml")) {
        return false;
    }
    return cursor_.pass("?>") || (cursor_.passBlanks() && passTo("?>"));
}

/// Passes characters up to and including `mark`.
template <typename Blocks> bool TzXmlScanner<Blocks>::passTo(std::string_view mark) {
    const char first = mark.front();
    while (cursor_.passPlain<Blocks>({first, first, first, false})) {
        if (cursor_.pass(mark)) {
            return true;
        }
        if (!cursor_.pass(first) && !cursor_.pass('\r')) {
            return false;
        }
    }
    return false;
}

/// A CDATA section.
template <typename Blocks> bool TzXmlScanner<Blocks>::readSection() {
    constexpr char Mark = SectionEnd.front();
    if (!cursor_.pass("<![CDATA[")) {
        return false;
    }
    const char* run = cursor_.at();
    while (cursor_.passPlain<Blocks>({Mark, Mark, Mark, false})) {
        if (cursor_.next() == Mark && !cursor_.rest().starts_with(SectionEnd)) {
            cursor_.skip(1);
            continue;
        }
        deliverText(run);
        if (cursor_.pass(SectionEnd)) {
            return true;
        }
        if (!cursor_.passReturn()) {
            return false;
        }
        sink_.text("\n");
        run = cursor_.at();
    }
    return false;
}

template <typename Blocks> [[gnu::hot]] bool TzXmlScanner<Blocks>::readStartTag() {
    const TzXmlRecentTags::Tag* const known = tags_.match(cursor_.rest());
    return (known != nullptr && readKnownTag(*known)) || readNewTag();
}

/// Passes a tag that the sink knows; false leaves everything as it is.
template <typename Blocks>
[[gnu::hot]] bool TzXmlScanner<Blocks>::readKnownTag(const TzXmlRecentTags::Tag& known) {
    const char* const tag = cursor_.at();
    places_.set(tag, tag + known.text.size());
    if (!sink_.startTagAgain(tags_.markOf(known))) {
        return false;
    }
    cursor_.skip(known.text.size());
    delivered_.add(known.name);
    tags_.pass(known);
    if (known.isEmptyElement()) {
        deliverEnd(cursor_.at());
    } else {
        open_.push_back(known.name);
    }
    return true;
}

template <typename Blocks> [[gnu::hot]] bool TzXmlScanner<Blocks>::readNewTag() {
    const char* const tag = cursor_.at();
    cursor_.skip(1);
    const std::string_view name = cursor_.readName();
    if (name.empty() || !readAttributes()) {
        return false;
    }
    const bool isEmpty = cursor_.pass('/');
    if (!cursor_.pass('>') || (attributes_.size() > 1 && attributes_.namesRepeat())) {
        return false;
    }
    tags_.note(cursor_.from(tag), name);
    deliverStart(tag, name, isEmpty);
    return true;
}

template <typename Blocks>
void TzXmlScanner<Blocks>::deliverStart(const char* tag, std::string_view name, bool isEmpty) {
    if (!isEmpty) {
        open_.push_back(name);
    }
    places_.set(tag, cursor_.at());
    delivered_.add(name);
    sink_.startTag(name, attributes_.settled());
    if (isEmpty) {
        deliverEnd(cursor_.at());
    }
}

/// What stands between the name of an element and the end of its tag.
template <typename Blocks> [[gnu::hot]] bool TzXmlScanner<Blocks>::readAttributes() {
    attributes_.clear();
    while (cursor_.passBlanks()) {
        if (cursor_.atEnd()) {
            return false;
        }
        if (cursor_.next() == '>' || cursor_.next() == '/') {
            return true;
        }
        if (attributes_.size() == attributeLimit_ || !readAttribute()) {
            return false;
        }
    }
    return true;
}

template <typename Blocks> [[gnu::hot]] bool TzXmlScanner<Blocks>::readAttribute() {
    const std::string_view name = cursor_.readName();
    cursor_.passBlanks();
    if (name.empty() || !cursor_.pass('=')) {
        return false;
    }
    cursor_.passBlanks();
    return readValue(name);
}

template <typename Blocks>
[[gnu::hot]] bool TzXmlScanner<Blocks>::readValue(std::string_view name) {
    const char quote = cursor_.pass('"') ? '"' : '\'';
    if (quote == '\'' && !cursor_.pass(quote)) {
        return false;
    }
    const TzXmlScanStops stops{quote, '<', '&', true};
    const char* const begin = cursor_.at();
    if (!cursor_.passPlain<Blocks>(stops)) {
        return false;
    }
    if (cursor_.next() != quote) {
        return writeValue(name, stops, begin);
    }
    attributes_.add(name, cursor_.from(begin));
    cursor_.skip(1);
    return true;
}

/// A value that the text does not hold as it is; the first character that differs comes next.
template <typename Blocks>
bool TzXmlScanner<Blocks>::writeValue(std::string_view name, TzXmlScanStops stops,
                                      const char* run) {
    TzCString& values = attributes_.values();
    const std::size_t begin = values.size();
    do {
        values.append(cursor_.from(run));
        if (cursor_.pass(stops.first)) {
            attributes_.addWritten(name, begin);
            return true;
        }
        if (!writeCharacter()) {
            return false;
        }
        run = cursor_.at();
    } while (cursor_.passPlain<Blocks>(stops));
    return false;
}

/// A character of a value that is written otherwise than it stands in the text.
template <typename Blocks> bool TzXmlScanner<Blocks>::writeCharacter() {
    TzCString& values = attributes_.values();
    if (cursor_.pass('\t') || cursor_.pass('\n') || cursor_.passReturn()) {
        values += ' ';
        return true;
    }
    std::uint32_t code = 0;
    if (!cursor_.readReference(code)) {
        return false;
    }
    TzXmlUtf8::append(values, code);
    return true;
}

template class TzXmlScanner<TzXmlScanBlocks>;
#ifdef __SSE2__
template class TzXmlScanner<TzXmlWordBlocks>;
#endif
