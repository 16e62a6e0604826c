// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlWriter.h>

#include "xml/TzXmlEscape.h"

#include <algorithm>

namespace {

/// The run that all indentation is copied from.
constexpr std::string_view Blanks =
    "                                                                ";

/// Makes room for `more` bytes. Moving a text into new memory costs more than writing it, so it
/// moves seldom; memory that is not used is never touched. The first size decides all others: after
/// 16 MiB come 64 MiB, because blocks of 32 MiB are the smallest whose pages are new each time.
void grow(TzCString& text, std::size_t more) {
    constexpr std::size_t First = std::size_t{4} << 10;
    constexpr std::size_t Large = std::size_t{64} << 20;
    const std::size_t capacity = text.capacity();
    if (more > capacity - text.size()) {
        const std::size_t next = capacity * (capacity < Large ? 4 : 2);
        text.reserve(std::max({First, next, text.size() + more}));
    }
}

constexpr std::string_view Blank = Blanks.substr(0, 1);

} // namespace

/// What a writer holds when it is made, so that it can be taken back: as long as nobody says that
/// all went well, the end of this object takes back what was written since. What a sink got stays.
class TzXmlWriter::Undo {
public:
    explicit Undo(TzXmlWriter& writer) noexcept
        : writer_(&writer), size_(size()), indentDue_(writer.indentDue_) {}
    ~Undo() {
        if (writer_ != nullptr) {
            takeBack();
        }
    }
    Undo(const Undo&) = delete;
    Undo& operator=(const Undo&) = delete;

    void allWentWell() noexcept { writer_ = nullptr; }

private:
    std::size_t handedOn() const noexcept {
        return writer_->output_ != nullptr ? writer_->output_->size() : writer_->handedOver_;
    }
    std::size_t size() const noexcept { return handedOn() + writer_->used(); }
    void takeBack() noexcept {
        if (handedOn() > size_) {
            if (writer_->output_ == nullptr) {
                return;
            }
            writer_->output_->resize(size_);
        }
        writer_->at_ = writer_->begin_ + (size_ - handedOn());
        writer_->indentDue_ = indentDue_;
    }

    TzXmlWriter* writer_;
    std::size_t size_;
    bool indentDue_;
};

TzXmlWriter::TzXmlWriter(const TzSink& sink, std::size_t held)
    : sink_(sink), held_(new char[held]) {
    begin_ = at_ = held_.get();
    end_ = begin_ + held;
}

TzXmlWriter::~TzXmlWriter() = default;

void TzXmlWriter::write(std::string_view text, bool escape) {
    if (!escape) {
        return write(text);
    }
    if (!text.empty()) {
        Undo undo(*this);
        indentIfDue();
        putEscaped(text);
        undo.allWentWell();
    }
}

// Copies `tags` bytes at most, besides the content.
template <typename Start, typename End>
bool TzXmlWriter::putPlainElement(std::size_t tags, const Start& copyStart,
                                  std::string_view content, const End& copyEnd) {
    const std::size_t needed = MostBlanks + tags + content.size() + TzXmlBlock::Size;
    if (needed > static_cast<std::size_t>(end_ - begin_) || indentation_ > MostBlanks) {
        return false;
    }
    if (needed > room()) {
        makeRoom();
    }
    char* to = at_; // nothing is written until that moves
    if (indentDue_) {
        std::memcpy(to, Blanks.data(), MostBlanks);
        to += indentation_;
    }
    to = copyStart(to);
    const bool isPlain = TzXmlEscape::copyPlain<TzXmlBlock>(to, content);
    if (isPlain) {
        at_ = copyEnd(to + content.size());
        indentDue_ = false;
    }
    return isPlain;
}

void TzXmlWriter::writeElement(const Ready& start, std::string_view content, const Ready& end) {
    const auto copyStart = [&start](char* to) { return start.copy(to); };
    const auto copyEnd = [&end](char* to) { return end.copy(to); };
    if (!putPlainElement(2 * Ready::Most, copyStart, content, copyEnd)) {
        Undo undo(*this);
        write(start.text());
        putEscaped(content);
        put(end.text());
        undo.allWentWell();
    }
    writeNewLine();
}

void TzXmlWriter::writeElement(const Spelling& name, std::string_view rest,
                               std::string_view content) {
    const auto copyStart = [&](char* to) {
        return copyTo(copyTo(copyTo(to, StartTag), name), rest);
    };
    const auto copyEnd = [&](char* to) {
        return copyTo(copyTo(copyTo(to, StartEndTag), name), EndTag);
    };
    const std::size_t tags =
        StartTag.size() + StartEndTag.size() + 2 * sizeOf(name) + rest.size() + EndTag.size();
    if (!putPlainElement(tags, copyStart, content, copyEnd)) {
        Undo undo(*this);
        writeMarkup(StartTag, name, rest);
        putEscaped(content);
        writeMarkup(StartEndTag, name, EndTag);
        undo.allWentWell();
    }
    writeNewLine();
}

[[gnu::hot]] char* TzXmlWriter::copyTo(char* to, const Spelling& name) noexcept {
    if (!name.colon.empty()) {
        to = copyTo(to, name.prefix);
        *to++ = Colon.front();
    }
    return copyTo(to, name.local);
}

[[gnu::hot]] void TzXmlWriter::writeRest(std::string_view content, const Spelling& name) {
    const std::size_t tag = StartEndTag.size() + sizeOf(name) + EndTag.size();
    if (!indentDue_ && content.size() + tag + TzXmlBlock::Size <= room() &&
        TzXmlEscape::copyPlain<TzXmlBlock>(at_, content)) {
        at_ = copyTo(copyTo(copyTo(at_ + content.size(), StartEndTag), name), EndTag);
    } else {
        write(content, true);
        writeMarkup(StartEndTag, name, EndTag);
    }
    writeNewLine();
}

void TzXmlWriter::putEscaped(std::string_view text) {
    using namespace TzXmlEscape;
    const TreatmentTable& table = tableFor(Context::Content);
    for (std::size_t at = 0; at < text.size();) {
        const std::string_view window = text.substr(at, LongPiece);
        if (window.size() == LongPiece && isPlain(window)) {
            put(window); // from where it lies
            at += window.size();
            continue;
        }
        const std::size_t stop = at + window.size();
        while (at < stop) {
            if (room() < LeastRoom) {
                makeRoom();
            }
            at = escapeSome<TzXmlBlock>(text, at, stop, table, at_, end_);
        }
    }
}

std::string_view TzXmlWriter::escaped(std::string_view content) {
    return TzXmlEscape::escape(content, TzXmlEscape::Context::Content, escaped_);
}

[[gnu::hot]] bool TzXmlWriter::isPlain(std::string_view text) noexcept {
    return TzXmlEscape::isPlain(text);
}

void TzXmlWriter::writeAttribute(std::string_view name, std::string_view value, bool escape) {
    const std::string_view written =
        escape ? TzXmlEscape::escape(value, TzXmlEscape::Context::AttributeValue, escaped_) : value;
    writeMarkup(Blank, name, EqualToAndQuotes, written, Quotes);
}

void TzXmlWriter::writeQualifiedAttribute(std::string_view prefix, std::string_view localName,
                                          std::string_view value) {
    const Spelling name{prefix, prefix.empty() ? std::string_view() : Colon, localName};
    const std::size_t aroundValue = 1 + sizeOf(name) + EqualToAndQuotes.size() + Quotes.size();
    if (!indentDue_ && aroundValue + value.size() + TzXmlBlock::Size <= room()) {
        char* const to = copyTo(copyTo(copyTo(at_, Blank), name), EqualToAndQuotes);
        if (TzXmlEscape::copyPlain<TzXmlBlock>(to, value)) {
            at_ = copyTo(to + value.size(), Quotes);
            return;
        }
    }
    writeMarkup(Blank, name, EqualToAndQuotes,
                TzXmlEscape::escape(value, TzXmlEscape::Context::AttributeValue, escaped_), Quotes);
}

[[gnu::hot]] void TzXmlWriter::flush() const {
    const std::string_view gathered(begin_, used());
    if (output_ != nullptr) {
        output_->append(gathered);
        at_ = begin_;
    } else {
        at_ = begin_; // a sink that fails may have taken a part: it gets nothing twice
        sink_->take(gathered);
        handedOver_ += gathered.size();
    }
}

void TzXmlWriter::makeRoom() {
    if (output_ != nullptr) {
        grow(*output_, used());
    }
    flush();
}

void TzXmlWriter::putLong(std::string_view text) {
    const bool fits = text.size() <= static_cast<std::size_t>(end_ - begin_);
    if (output_ != nullptr) {
        grow(*output_, used() + (fits ? 0 : text.size()));
    }
    flush();
    if (fits) {
        at_ = copyTo(at_, text);
    } else if (output_ != nullptr) {
        output_->append(text);
    } else {
        sink_->take(text);
        handedOver_ += text.size();
    }
}

void TzXmlWriter::indent() {
    static_assert(Blanks.size() == MostBlanks);
    if (indentation_ <= Blanks.size() && Blanks.size() <= room()) {
        std::memcpy(at_, Blanks.data(), Blanks.size());
        at_ += indentation_;
        return;
    }
    std::size_t left = std::min(indentation_, MostSteps * std::max(step_, DefaultStep));
    for (; left > Blanks.size(); left -= Blanks.size()) {
        put(Blanks);
    }
    put(Blanks.substr(0, left));
}
