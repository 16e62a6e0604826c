// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlDefaultLimits.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

class TzXmlContentHandler;
class TzXmlNamespace;
struct TzXmlSourceChooser;
enum class TzXmlSourceChoice : std::uint8_t;

/// Reads XML text and reports its events to a content handler.
///
/// Namespaces are resolved (an unbound prefix gives the empty URI), declarations are delivered
/// among the attributes. The prefixes "xml" and "xmlns" keep their namespaces: a declaration that
/// binds one of them, or one of these namespaces, otherwise is refused. A DOCTYPE is refused.
///
/// UTF-8, UTF-16, UTF-32, US-ASCII and these single-byte encodings are read, by their usual names
/// in any case: ISO-8859-1 to -16, windows-874 and -1250 to -1258, TIS-620, KOI8-R, KOI8-U,
/// macintosh, IBM437, IBM850, IBM852. Their tables are part of the library: no file is opened and
/// no environment variable is read for them. Handlers always see UTF-8.
///
/// Not locked: one parser is used by one thread at a time. A thread may keep the memory that Expat
/// took for a text of up to 4 KiB, 10 to 100 KB, and reuses it until the thread ends.
///
/// The names and namespaces of a text are kept for the next one on the thread, in up to 48 KB, so
/// that texts of one kind share them. Nothing of texts and values is kept. That memory waits in 64
/// places at most, whatever the number of threads, until the library is unloaded.
///
/// A whole text in UTF-8 is read several times as fast by a scanner of this library, without Expat,
/// unless it has a DOCTYPE, another version than 1.0 or names that are not ASCII, or is not well
/// formed. Events, errors and places are the same.
class TZ_PLATFORM_API TzXmlSAXParser {
public:
    /// Depth of elements that is accepted unless set.
    static constexpr std::size_t DefaultDepthLimit = TzXmlDefaultLimits::Depth;
    /// Number of attributes of one element that is accepted unless set.
    static constexpr std::size_t DefaultAttributeLimit = TzXmlDefaultLimits::Attributes;
    /// Length of a namespace's URI in bytes that is accepted unless set.
    static constexpr std::size_t DefaultUriLimit = TzXmlDefaultLimits::UriLength;
    /// Length of a declared prefix in bytes that is accepted unless set.
    static constexpr std::size_t DefaultPrefixLimit = TzXmlDefaultLimits::PrefixLength;

    /// A parser without handler, with the default limits.
    TzXmlSAXParser();
    TzXmlSAXParser(const TzXmlSAXParser&) = delete;
    TzXmlSAXParser& operator=(const TzXmlSAXParser&) = delete;
    ~TzXmlSAXParser();

    /// The handler that gets the next event, null for none.
    TzXmlContentHandler* getContentHandler() const noexcept { return handler_; }
    /// Sets the handler for the next event; allowed inside an event. Null drops events.
    void setContentHandler(TzXmlContentHandler* handler) noexcept { handler_ = handler; }

    /// Elements nested deeper than this are refused; holds from the next element on.
    void setDepthLimit(std::size_t limit) noexcept { depthLimit_ = limit; }
    /// Depth limit in force.
    std::size_t getDepthLimit() const noexcept { return depthLimit_; }
    /// Elements with more attributes (declarations included) are refused before memory is taken
    /// for them; holds from the next text on.
    void setAttributeLimit(std::size_t limit) noexcept { attributeLimit_ = limit; }
    /// Attribute limit in force.
    std::size_t getAttributeLimit() const noexcept { return attributeLimit_; }
    /// Declarations of longer URIs (in bytes) are refused, because every name below them may be
    /// compared with them; holds from the next element on.
    void setUriLimit(std::size_t limit) noexcept { uriLimit_ = limit; }
    /// Limit of URIs in force.
    std::size_t getUriLimit() const noexcept { return uriLimit_; }
    /// Declarations of longer prefixes (in bytes) are refused, because every name below them may
    /// repeat them; holds from the next element on.
    void setPrefixLimit(std::size_t limit) noexcept { prefixLimit_ = limit; }
    /// Limit of prefixes in force.
    std::size_t getPrefixLimit() const noexcept { return prefixLimit_; }

    /// Reads the whole document `text`. `TzXmlParseError` with line and column when it is not well
    /// formed or breaks a limit, its text ending with both; what a handler throws passes through,
    /// and a `Tzxmsg` without a place gets that of the event; `TzTHRIllegalUsage` when called while
    /// this parser parses. The parser can be used again after any error. Linear in the
    /// length of the text (times the logarithm of the number of attributes and prefixes).
    void parse(std::string_view text);

    /// Reads on in a document that comes in chunks, the first of which begins it; chunks may end
    /// anywhere. Events come as far as the text allows, a tag at the latest when as much text
    /// follows as it has. Holds what is not read yet and the text since the last tag, so memory
    /// follows the longest of these, and the number of different names. Errors as for `parse`,
    /// except that an element with too many attributes is refused at its end; after one, the next
    /// chunk begins another document. `getSource` has nothing. Linear in the length of the text.
    void feed(std::string_view chunk);
    /// Ends the document that `feed` began; without one, that of an empty text. Errors as for
    /// `feed`.
    void finish();
    /// Gives up the document that `feed` began, if any; `parse` does that too.
    void abandon() noexcept;

    /// A number for the namespace declarations in force at the event under way: the same number
    /// means the same declarations. 0 when nothing is parsed.
    std::uint64_t getNamespaceScope() const noexcept;
    /// The namespace that `prefix` stands for at the event under way, null when it is not bound or
    /// nothing is parsed; valid until the next event. O(log(prefixes)).
    const TzXmlNamespace* findNamespace(std::string_view prefix) const noexcept;
    /// Where the event under way begins in the text, in bytes of what `getSource` takes; 0 when
    /// nothing is parsed. A text event has the place of the tag that ends the text.
    std::size_t getEventBegin() const noexcept;
    /// Where it ends. The end of an empty-element tag begins and ends after the tag.
    std::size_t getEventEnd() const noexcept;
    /// The text being parsed from `begin` to `end`, which are places of events, as it was written,
    /// in UTF-8; "" when nothing is parsed. O(length).
    TzCString getSource(std::size_t begin, std::size_t end) const;
    /// Line of the event under way, from 1; after a failed parse, of the event it ended at; between
    /// two chunks, of what is not read yet; otherwise 0. A text event has the place of the tag that
    /// ends the text. Computed by the call.
    std::size_t getLine() const noexcept;
    /// Column (in characters) of that event, from 1; otherwise 0. Computed by the call.
    std::size_t getColumn() const noexcept;

private:
    friend struct TzXmlSourceChooser; // of tests
    class Session;
    struct Fed;

    template <typename Work> void run(Session& session, const Work& work);
    void feedOn(std::string_view chunk, bool last);

    TzXmlContentHandler* handler_ = nullptr;
    std::size_t depthLimit_ = DefaultDepthLimit;
    std::size_t attributeLimit_ = DefaultAttributeLimit;
    std::size_t uriLimit_ = DefaultUriLimit;
    std::size_t prefixLimit_ = DefaultPrefixLimit;
    std::size_t line_ = 0;
    std::size_t column_ = 0;
    TzXmlSourceChoice choice_{};
    Session* session_ = nullptr; // set while it reads
    std::unique_ptr<Fed> fed_;   // the document that comes in chunks
};
