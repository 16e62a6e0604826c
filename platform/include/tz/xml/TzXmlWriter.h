// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>
#include <tz/tools/TzSink.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <optional>
#include <string_view>

/// Writes XML markup to a text or a sink: escaping, line breaks and indentation.
///
/// Short pieces are gathered and handed on together, so that an error of a sink shows up in a later
/// call than the one whose text it concerns.
///
/// A line begun by `writeNewLine` is indented when its first text is written, by the indentation
/// in force then. Not locked: one writer is used by one thread at a time.
class TZ_PLATFORM_API TzXmlWriter {
public:
    /// Opens a start tag.
    static constexpr std::string_view StartTag = "<";
    /// Closes a tag.
    static constexpr std::string_view EndTag = ">";
    /// Opens an end tag.
    static constexpr std::string_view StartEndTag = "</";
    /// Closes an empty-element tag.
    static constexpr std::string_view UnpairedTag = "/>";
    /// Between attribute name and value.
    static constexpr std::string_view EqualToAndQuotes = "=\"";
    /// After an attribute value.
    static constexpr std::string_view Quotes = "\"";
    /// Ends a line.
    static constexpr std::string_view Newline = "\n";
    /// Between prefix and local part.
    static constexpr std::string_view Colon = ":";
    /// Blanks of one step of indentation, unless set.
    static constexpr std::size_t DefaultStep = 2;
    /// Most steps by which a line is indented: more would make the text of a deep document many
    /// times as long as its markup.
    static constexpr std::size_t MostSteps = 32;

    /// A name as it stands on a tag.
    struct Spelling {
        std::string_view prefix;
        std::string_view colon; ///< `Colon`, empty for none.
        std::string_view local;
    };

    /// Short markup that is written again and again, kept so that it is copied in one go.
    class Ready {
    public:
        /// Most bytes that it can hold.
        static constexpr std::size_t Most = 64;

        /// Becomes the `pieces` in one; false, and empty, when they are too long.
        template <typename... Pieces> bool set(const Pieces&... pieces) noexcept {
            const std::size_t size = (sizeOf(pieces) + ...);
            size_ = size <= Most ? size : 0;
            if (size_ != 0) {
                char* to = text_.data();
                ((to = copyTo(to, pieces)), ...);
            }
            return size_ == size;
        }
        /// The markup.
        std::string_view text() const noexcept { return {text_.data(), size_}; }
        /// Copies `Most` bytes, the markup and what stands behind it; returns the end of the
        /// markup.
        char* copy(char* to) const noexcept {
            std::memcpy(to, text_.data(), Most);
            return to + size_;
        }

    private:
        std::array<char, Most> text_{};
        std::size_t size_ = 0;
    };

    TzXmlWriter(const TzXmlWriter&) = delete;
    TzXmlWriter& operator=(const TzXmlWriter&) = delete;
    virtual ~TzXmlWriter();

    /// Appends `text`: as it stands, or escaped as element content ('&', '<', '>', CR).
    /// `TzXmlBadArgError` when text to be escaped holds what XML 1.0 cannot carry; nothing is
    /// appended then, but a sink may have got the beginning of a text that is longer than what the
    /// writer holds back.
    void write(std::string_view text, bool escape);
    /// Appends an element that holds a text only: `start`, the escaped `content` and `end`, and
    /// ends the line. Errors as for `write`, and nothing of the element is appended then.
    void writeElement(const Ready& start, std::string_view content, const Ready& end);
    /// Appends an element named `name` that holds a text only: its start tag, which goes on with
    /// `rest` after the name, the escaped `content` and the end tag, and ends the line. Errors as
    /// above.
    void writeElement(const Spelling& name, std::string_view rest, std::string_view content);
    /// Appends the escaped `content`, the end tag of an element named `name`, and ends the line.
    /// Errors as for `write`.
    void writeRest(std::string_view content, const Spelling& name);
    /// Appends markup as it stands.
    void write(std::string_view markup) {
        if (!markup.empty()) {
            indentIfDue();
            put(markup);
        }
    }
    /// Appends several pieces of markup, texts or names, as they stand, in one go.
    template <typename... Pieces> void writeMarkup(const Pieces&... pieces) {
        indentIfDue();
        if ((sizeOf(pieces) + ...) > room()) {
            return putEach(pieces...);
        }
        char* to = at_;
        ((to = copyTo(to, pieces)), ...);
        at_ = to;
    }
    /// Appends `markup` as it stands and ends the line.
    void writeReadyLine(const Ready& markup) {
        indentIfDue();
        if (room() < Ready::Most) {
            put(markup.text());
        } else {
            at_ = markup.copy(at_);
        }
        writeNewLine();
    }
    /// Appends several pieces of markup as they stand, in one go, and ends the line.
    template <typename... Pieces> void writeMarkupLine(const Pieces&... pieces) {
        writeMarkup(pieces...);
        writeNewLine();
    }
    /// `content` as `write` would escape it; valid until the next escaping. `TzXmlBadArgError` for
    /// what XML 1.0 cannot carry.
    std::string_view escaped(std::string_view content);
    /// Whether `text` needs no escaping anywhere. Only quick: false says nothing.
    static bool isPlain(std::string_view text) noexcept;
    /// Appends a blank, `name`, `="`, `value` and `"`. Escaping covers '"', TAB and LF as well;
    /// `TzXmlBadArgError` as for `write`.
    void writeAttribute(std::string_view name, std::string_view value, bool escape = true);
    /// Appends an escaped attribute whose name is in two parts; without prefix no colon.
    void writeQualifiedAttribute(std::string_view prefix, std::string_view localName,
                                 std::string_view value);
    /// Ends the line; the next text is indented. Does nothing in compact layout.
    void writeNewLine() {
        if (!compact_) {
            if (at_ == end_) {
                makeRoom();
            }
            *at_++ = Newline.front();
            indentDue_ = true;
        }
    }

    /// Whether the layout is compact; false unless set.
    bool isCompact() const noexcept { return compact_; }
    /// Leaves line ends and indentation out from now on, or writes them again.
    void setCompact(bool compact) noexcept { compact_ = compact; }
    /// Blanks that the next line is indented by. Of these, at most `MostSteps` steps are written, a
    /// step of less than `DefaultStep` taken for one of that many.
    std::size_t getIndentation() const noexcept { return indentation_; }
    /// Sets the indentation of the next line.
    void setIndentation(std::size_t blanks) noexcept { indentation_ = blanks; }
    /// Blanks of one step, `DefaultStep` unless set.
    std::size_t getIndentationStep() const noexcept { return step_; }
    /// Sets the blanks of one step.
    void setIndentationStep(std::size_t blanks) noexcept { step_ = blanks; }
    /// Raises the indentation by one step.
    void incrementIndent() noexcept { indentation_ += step_; }
    /// Lowers the indentation by one step, not below 0.
    void decrementIndent() noexcept { indentation_ -= step_ < indentation_ ? step_ : indentation_; }

protected:
    /// A writer that appends to `output`, which is complete after `flush` and must outlive it.
    explicit TzXmlWriter(TzCString& output) noexcept : output_(&output) {
        begin_ = at_ = chunk_.data();
        end_ = begin_ + chunk_.size();
    }
    /// A writer to `sink`, which got all after `flush`. Holds back at most `held` bytes, which must
    /// be 1 KiB or more.
    TzXmlWriter(const TzSink& sink, std::size_t held);
    /// Hands on what is still held back.
    void flush() const;
    /// Forgets what is still held back.
    void discard() noexcept {
        at_ = begin_;
        indentDue_ = false;
    }
    /// Goes on where `other` stands: at its indentation, at the beginning of a line if it does.
    void standAs(const TzXmlWriter& other) noexcept {
        indentation_ = other.indentation_;
        step_ = other.step_;
        compact_ = other.compact_;
        indentDue_ = other.indentDue_;
    }

private:
    class Undo;

    /// Blanks that are copied in one go.
    static constexpr std::size_t MostBlanks = MostSteps * DefaultStep;
    /// Plain text from this length on is handed on from where it lies.
    static constexpr std::size_t LongPiece = std::size_t{32} << 10;

    void indentIfDue() {
        if (indentDue_) {
            indentDue_ = false;
            indent();
        }
    }
    void indent();
    std::size_t room() const noexcept { return static_cast<std::size_t>(end_ - at_); }
    std::size_t used() const noexcept { return static_cast<std::size_t>(at_ - begin_); }
    void put(std::string_view text) {
        if (text.size() > room()) {
            putLong(text);
        } else {
            at_ = copyTo(at_, text);
        }
    }
    void put(const Spelling& name) {
        put(name.prefix);
        put(name.colon);
        put(name.local);
    }
    template <typename... Pieces>
    [[gnu::noinline, gnu::cold]] void putEach(const Pieces&... pieces) {
        (put(pieces), ...);
    }
    static std::size_t sizeOf(std::string_view text) noexcept { return text.size(); }
    static std::size_t sizeOf(const Spelling& name) noexcept {
        return name.prefix.size() + name.colon.size() + name.local.size();
    }
    // Not here, because less code is faster where nothing is written often.
    static char* copyTo(char* to, const Spelling& name) noexcept;
    // Most pieces are so short that a call would cost more than the copy: two moves that overlap do
    // for every size between one and two times theirs.
    static char* copyTo(char* to, std::string_view text) noexcept {
        const std::size_t size = text.size();
        const char* from = text.data();
        if (size > 32) {
            std::memcpy(to, from, size);
        } else if (size >= 16) {
            copyEnds<16>(to, from, size);
        } else if (size >= 8) {
            copyEnds<8>(to, from, size);
        } else if (size >= 4) {
            copyEnds<4>(to, from, size);
        } else if (size != 0) {
            to[0] = from[0];
            to[size / 2] = from[size / 2];
            to[size - 1] = from[size - 1];
        }
        return to + size;
    }
    template <std::size_t Width>
    static void copyEnds(char* to, const char* from, std::size_t size) noexcept {
        std::array<char, Width> first;
        std::array<char, Width> last;
        std::memcpy(first.data(), from, Width);
        std::memcpy(last.data(), from + size - Width, Width);
        std::memcpy(to, first.data(), Width);
        std::memcpy(to + size - Width, last.data(), Width);
    }
    void putLong(std::string_view text);
    void makeRoom();
    void putEscaped(std::string_view text);
    template <typename Start, typename End>
    bool putPlainElement(std::size_t tags, const Start& copyStart, std::string_view content,
                         const End& copyEnd);

    TzCString* output_ = nullptr; // null when there is a sink
    std::size_t indentation_ = 0;
    std::size_t step_ = DefaultStep;
    bool indentDue_ = false;
    bool compact_ = false;
    TzCString escaped_; // a text in its escaped form, while it is written
    // Gathers the many short pieces of markup: chunk_, or held_ for a sink.
    char* begin_ = nullptr;
    mutable char* at_ = nullptr;
    char* end_ = nullptr;
    std::optional<TzSink> sink_;
    mutable std::size_t handedOver_ = 0; // bytes that the sink got
    std::unique_ptr<char[]> held_;
    std::array<char, 2048> chunk_;
};
