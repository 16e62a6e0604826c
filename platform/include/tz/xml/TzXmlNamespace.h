// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/pointer/TzSharedRecord.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlText.h>
#include <tz/xml/TzXmlUtils.h>

#include <string_view>

/// A namespace of XML: a prefix and a URI.
///
/// Holds one pointer to a shared, immutable record: copying costs one counter, the empty namespace
/// nothing. One object belongs to one thread at a time; objects that share a record may live on
/// different threads. Changing one object never changes another.
class TZ_PLATFORM_API TzXmlNamespace {
public:
    /// The empty namespace: no prefix, no URI.
    TzXmlNamespace() noexcept = default;
    /// The namespace `uri`, named `prefix` in texts.
    TzXmlNamespace(std::string_view prefix, std::string_view uri);
    /// The namespace `uri`, named `prefix` in texts; `TzXmlBadArgError` for a null pointer.
    TzXmlNamespace(TzXmlCharacters auto prefix, TzXmlCharacters auto uri)
        : TzXmlNamespace(TzXmlUtils::requireText(prefix), TzXmlUtils::requireText(uri)) {}

    /// The prefix, "" for none; valid until this object changes.
    const TzCString& getPrefix() const noexcept { return text_->prefix; }
    /// The URI, "" for none; valid until this object changes.
    const TzCString& getUri() const noexcept { return text_->uri; }
    /// Replaces the prefix, the URI stays.
    void setPrefix(std::string_view prefix);
    /// Replaces the URI, the prefix stays.
    void setUri(std::string_view uri);
    /// Whether prefix and URI are both empty.
    bool isEmpty() const noexcept;
    /// Whether both have the same URI, prefixes not compared. O(1) when they share a record.
    bool sameUri(const TzXmlNamespace& other) const noexcept {
        return text_.isSame(other.text_) || getUri() == other.getUri();
    }

    /// The prefix of declarations.
    static constexpr std::string_view XmlnsPrefix = "xmlns";

    /// The namespace without prefix and URI.
    static const TzXmlNamespace& getEmptyNamespace();
    /// The namespace of declarations: "xmlns", "http://www.w3.org/2000/xmlns/".
    static const TzXmlNamespace& getXmlns();
    /// The namespace of XML itself: "xml", "http://www.w3.org/XML/1998/namespace".
    static const TzXmlNamespace& getXml();
    /// The XML Schema instance namespace: "xsi", "http://www.w3.org/2001/XMLSchema-instance".
    static const TzXmlNamespace& getXsi();
    /// The XML Schema namespace: "xsd", "http://www.w3.org/2001/XMLSchema".
    static const TzXmlNamespace& getXsd();
    /// Whether the URI is that of XML Schema instances, 2001, 2000/10 or 1999; prefix ignored.
    static bool matchXsi(const TzXmlNamespace& candidate) noexcept;

    /// Prefix and URI both equal.
    friend bool operator==(const TzXmlNamespace& left, const TzXmlNamespace& right) noexcept {
        return left.text_.isSame(right.text_) ||
               (left.getUri() == right.getUri() && left.getPrefix() == right.getPrefix());
    }

private:
    struct Text {
        TzCString prefix;
        TzCString uri;
    };

    TzSharedRecord<Text> text_;
};
