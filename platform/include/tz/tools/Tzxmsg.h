// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>

#include <cstddef>
#include <exception>
#include <string_view>

/// Root of all exceptions of the libraries: one catch handles every failure.
///
/// `what()` is the short and stable text that programs compare; `describe()` is for logs and
/// people.
class TZ_PLATFORM_API Tzxmsg : public std::exception {
public:
    /// An exception that says `text`.
    explicit Tzxmsg(const char* text);
    /// An exception that says `text`.
    explicit Tzxmsg(TzCString text);
    Tzxmsg(const Tzxmsg&) = default;
    Tzxmsg& operator=(const Tzxmsg&) = default;
    ~Tzxmsg() override;

    /// The text, terminated by NUL; valid as long as the exception lives.
    const char* what() const noexcept override;
    /// The text.
    const TzCString& asString() const noexcept { return text_; }

    /// The text with what else is known: the place in the text being read, and the detail. For
    /// example "mismatched tag, line 3, column 9" or "an element has too many attributes, line 1,
    /// column 7 (the limit is 1000)". The form may change between versions.
    virtual TzCString describe() const;
    /// Line of the text being read, from 1; 0 when unknown or when nothing was being read. In a
    /// package: of its root part.
    std::size_t getLine() const noexcept { return line_; }
    /// Column in characters, from 1; 0 when unknown or when nothing was being read.
    std::size_t getColumn() const noexcept { return column_; }
    /// Sets the place unless one is set already: the first place is the most exact.
    void addPlace(std::size_t line, std::size_t column) noexcept;
    /// What helps beside the text, such as the limit that was exceeded; "" without any. Some of it
    /// may come from the text being read.
    const TzCString& getDetail() const noexcept { return detail_; }
    /// Adds a detail after those already there. An empty one adds nothing.
    void addDetail(std::string_view detail);

protected:
    /// A text that ends with its place if that is known, so that `describe` does not repeat it.
    Tzxmsg(std::string_view text, std::size_t line, std::size_t column);

private:
    TzCString text_;
    TzCString detail_;
    std::size_t line_ = 0;
    std::size_t column_ = 0;
    bool endsWithPlace_ = false;
};

/// `error` with one more detail, to be thrown: `throw tzWithDetail(Error(...), "...")`.
template <typename Error> Error tzWithDetail(Error error, std::string_view detail) {
    error.addDetail(detail);
    return error;
}
