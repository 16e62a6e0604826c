// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/pointer/TzSharedRecord.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlNamespace.h>
#include <tz/xml/TzXmlText.h>
#include <tz/xml/TzXmlUtils.h>

#include <atomic>
#include <string_view>
#include <utility>

/// A qualified name of XML: a local part and a namespace.
///
/// Equality and order look at URI and local part; the prefix is only how texts spell it. Holds one
/// pointer to a shared, immutable record: copying costs one counter, the empty name nothing. One
/// object belongs to one thread at a time; objects that share a record may live on different
/// threads. Changing one object never changes another.
class TZ_PLATFORM_API TzXmlName {
public:
    /// The empty name.
    TzXmlName() noexcept = default;
    /// The name spelt `text`: prefix and local part split at the first ':', no URI.
    TzXmlName(std::string_view text);
    /// The name spelt `text`: prefix and local part split at the first ':', no URI.
    TzXmlName(const TzCString& text) : TzXmlName(std::string_view(text)) {}
    /// The name spelt `text`: prefix and local part split at the first ':', no URI.
    /// `TzXmlBadArgError` for a null pointer.
    TzXmlName(const char* text) : TzXmlName(TzXmlUtils::requireText(text)) {}
    /// The name `localName` in the namespace `nameSpace`.
    TzXmlName(std::string_view localName, TzXmlNamespace nameSpace);
    /// The name `localName` in the namespace `nameSpace`; `TzXmlBadArgError` for a null pointer.
    TzXmlName(TzXmlCharacters auto localName, TzXmlNamespace nameSpace)
        : TzXmlName(TzXmlUtils::requireText(localName), std::move(nameSpace)) {}

    /// The local part, "" for the empty name.
    const TzCString& getLocalName() const noexcept { return parts_->localName; }
    /// The prefix, "" for none.
    const TzCString& getPrefix() const noexcept { return parts_->nameSpace.getPrefix(); }
    /// The namespace's URI, "" for none.
    const TzCString& getUri() const noexcept { return parts_->nameSpace.getUri(); }
    /// The namespace.
    const TzXmlNamespace& getNamespace() const noexcept { return parts_->nameSpace; }
    /// Replaces the local part.
    void setLocalName(std::string_view localName);
    /// Replaces the prefix, local part and URI stay.
    void setPrefix(std::string_view prefix);
    /// Replaces prefix and URI, the local part stays.
    void setNamespace(const TzXmlNamespace& nameSpace);
    /// Whether the local part is empty.
    bool isEmpty() const noexcept { return getLocalName().empty(); }

    /// Whether the qualified name is a name of XML 1.0, which elements and attributes can have.
    /// What was found out is kept for all that share a record. O(texts), then O(1).
    bool isWritable() const noexcept {
        const Finding known = parts_->finding.load();
        return known == Finding::None ? findWritable() : known == Finding::Writable;
    }

    /// Whether both share a record: equal, prefixes included. Equal names need not share one.
    bool isSame(const TzXmlName& other) const noexcept { return parts_.isSame(other.parts_); }

    /// Prefix, ":" and local part; the local part alone without prefix; "xmlns" for the declaration
    /// of the default namespace.
    TzCString getQualifiedName() const { return qualifiedText(); }
    /// Appends what `getQualifiedName` returns to `text`.
    void appendQualifiedName(TzCString& text) const { text += qualifiedText(); }
    /// What `getQualifiedName` returns; valid until this object changes. O(1).
    const TzCString& qualifiedText() const noexcept {
        const Parts& parts = *parts_;
        return parts.qualified.empty() ? parts.localName : parts.qualified;
    }
    /// The text that `getQualifiedName` returns.
    TzCString asString() const { return getQualifiedName(); }
    /// URI, ":" and local part; the local part alone without URI.
    TzCString getUniqueName() const;

    /// URI and local part equal, prefixes not compared.
    friend bool operator==(const TzXmlName& left, const TzXmlName& right) noexcept {
        return left.parts_.isSame(right.parts_) ||
               (left.getLocalName() == right.getLocalName() &&
                left.getNamespace().sameUri(right.getNamespace()));
    }
    /// Order by URI, then by local part, byte by byte.
    friend bool operator<(const TzXmlName& left, const TzXmlName& right) noexcept {
        const int order = left.getUri().compare(right.getUri());
        return order < 0 || (order == 0 && left.getLocalName() < right.getLocalName());
    }

private:
    friend class TzXmlNameMaker;

    enum class Finding : unsigned char { None, Writable, Refused };
    /// What was found out about a record; any thread that shares it may do that again.
    class Kept {
    public:
        Kept() noexcept = default;
        Kept(const Kept& other) noexcept : finding_(other.load()) {}
        Kept& operator=(const Kept&) = delete;
        ~Kept() = default;

        Finding load() const noexcept { return finding_.load(std::memory_order_relaxed); }
        void store(Finding finding) const noexcept {
            finding_.store(finding, std::memory_order_relaxed);
        }

    private:
        mutable std::atomic<Finding> finding_{Finding::None};
    };
    struct Parts {
        TzCString localName;
        TzXmlNamespace nameSpace;
        TzCString qualified; // empty without prefix
        Kept finding{};
    };

    static Parts partsOf(std::string_view localName, TzXmlNamespace nameSpace) {
        TzCString qualified =
            nameSpace.getPrefix().empty() ? TzCString() : qualify(nameSpace.getPrefix(), localName);
        return {TzCString(localName), std::move(nameSpace), std::move(qualified), {}};
    }
    static TzCString qualify(std::string_view prefix, std::string_view localName);

    bool findWritable() const noexcept;

    explicit TzXmlName(TzSharedRecord<Parts> parts) noexcept : parts_(std::move(parts)) {}

    TzSharedRecord<Parts> parts_;
};

/// Makes names many at a time: a few of them share a block of memory. Serves readers.
///
/// One maker belongs to one thread; the names may outlive it and live on any thread.
class TzXmlNameMaker {
public:
    /// The name `localName` in the namespace `nameSpace`.
    TzXmlName make(std::string_view localName, const TzXmlNamespace& nameSpace) {
        return TzXmlName(maker_.make(TzXmlName::partsOf(localName, nameSpace)));
    }
    /// Bytes that it took so far, texts and namespaces left out; the names hold no more.
    std::size_t bytes() const noexcept { return maker_.bytes(); }

private:
    TzSharedRecord<TzXmlName::Parts>::Maker maker_;
};
