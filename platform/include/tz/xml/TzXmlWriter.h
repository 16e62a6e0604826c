// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>

#include <cstddef>
#include <string_view>

/// Appends XML markup to a text: escaping, line breaks and indentation.
///
/// A line begun by `writeNewLine` is indented when its first text is written, so an indentation changed
/// in between counts. Not locked: one writer is used by one thread at a time.
class TZ_PLATFORM_API TzXmlWriter {
public:
    static constexpr std::string_view StartTag = "<";            ///< Opens a start tag.
    static constexpr std::string_view EndTag = ">";              ///< Closes a tag.
    static constexpr std::string_view StartEndTag = "</";        ///< Opens an end tag.
    static constexpr std::string_view UnpairedTag = "/>";        ///< Closes an empty-element tag.
    static constexpr std::string_view EqualToAndQuotes = "=\"";  ///< Between attribute name and value.
    static constexpr std::string_view Quotes = "\"";             ///< Behind an attribute value.
    static constexpr std::string_view Newline = "\n";            ///< Ends a line.
    static constexpr std::string_view Colon = ":";               ///< Between prefix and local part.

    /// A writer that appends to `output`, which must outlive it.
    explicit TzXmlWriter(TzCString& output) noexcept : output_(&output) {}
    TzXmlWriter(const TzXmlWriter&) = delete;
    TzXmlWriter& operator=(const TzXmlWriter&) = delete;
    virtual ~TzXmlWriter();

    /// Appends `text`: as it stands, or escaped as element content ('&', '<', '>', CR).
    /// `TzXmlBadArgError` when text to be escaped holds what XML 1.0 cannot carry; nothing is appended then.
    void write(std::string_view text, bool escape);
    /// Appends markup as it stands.
    void write(std::string_view markup) {
        if (!markup.empty()) {
            indentIfDue();
            output_->append(markup);
        }
    }
    /// Appends a blank, `name`, `="`, `value` and `"`; escaping treats the value as an attribute value
    /// ('"', TAB and LF too). `TzXmlBadArgError` as for `write`.
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
    /// The text written so far.
    const TzCString& output() const noexcept { return *output_; }

private:
    void indentIfDue() {
        if (indentDue_) {
            indentDue_ = false;
            output_->append(indentation_, ' ');
        }
    }

    TzCString* output_;
    std::size_t indentation_ = 0;
    std::size_t step_ = 2;
    bool indentDue_ = false;
};
