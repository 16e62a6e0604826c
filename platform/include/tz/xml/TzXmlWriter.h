// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

/// Appends XML markup to a text: escaping, line breaks and indentation.
///
/// A line begun by `writeNewLine` is indented when its first text is written, so an indentation
/// changed in between counts. Not locked: one writer is used by one thread at a time.
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
    /// Behind an attribute value.
    static constexpr std::string_view Quotes = "\"";
    /// Ends a line.
    static constexpr std::string_view Newline = "\n";
    /// Between prefix and local part.
    static constexpr std::string_view Colon = ":";

    TzXmlWriter(const TzXmlWriter&) = delete;
    TzXmlWriter& operator=(const TzXmlWriter&) = delete;
    virtual ~TzXmlWriter();

    /// Appends `text`: as it stands, or escaped as element content ('&', '<', '>', CR).
    /// `TzXmlBadArgError` when text to be escaped holds what XML 1.0 cannot carry; nothing is
    /// appended then.
    void write(std::string_view text, bool escape);
    /// Appends markup as it stands.
    void write(std::string_view markup) {
        if (!markup.empty()) {
            indentIfDue();
            put(markup);
        }
    }
    /// Appends a blank, `name`, `="`, `value` and `"`. Escaping covers '"', TAB and LF as well;
    /// `TzXmlBadArgError` as for `write`.
    void writeAttribute(std::string_view name, std::string_view value, bool escape = true);
    /// Ends the line; the next text is indented.
    void writeNewLine();

    /// Blanks that the next line is indented by.
    std::size_t getIndentation() const noexcept { return indentation_; }
    /// Sets the indentation of the next line.
    void setIndentation(std::size_t blanks) noexcept { indentation_ = blanks; }
    /// Blanks of one step, 2 by default.
    std::size_t getIndentationStep() const noexcept { return step_; }
    /// Sets the blanks of one step.
    void setIndentationStep(std::size_t blanks) noexcept { step_ = blanks; }
    /// Raises the indentation by one step.
    void incrementIndent() noexcept { indentation_ += step_; }
    /// Lowers the indentation by one step, not below 0.
    void decrementIndent() noexcept { indentation_ -= step_ < indentation_ ? step_ : indentation_; }

protected:
    /// A writer that appends to `output`, which is complete after `flush` and must outlive it.
    explicit TzXmlWriter(TzCString& output) noexcept : output_(&output) {}
    /// Appends to the output what is still held back.
    void flush() const;
    /// Forgets what is still held back.
    void discard() noexcept {
        used_ = 0;
        indentDue_ = false;
    }

private:
    void indentIfDue() {
        if (indentDue_) {
            indent();
        }
    }
    void indent();
    void put(std::string_view text) {
        if (text.size() > chunk_.size() - used_) {
            putLong(text);
        } else if (!text.empty()) {
            std::memcpy(chunk_.data() + used_, text.data(), text.size());
            used_ += text.size();
        }
    }
    void putLong(std::string_view text);

    TzCString* output_;
    std::size_t indentation_ = 0;
    std::size_t step_ = 2;
    bool indentDue_ = false;
    TzCString escaped_;            // text in its escaped form, while it is written
    mutable std::size_t used_ = 0; // of chunk_
    std::array<char, 2048> chunk_; // gathers the many short pieces of markup
};
