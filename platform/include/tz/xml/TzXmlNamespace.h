// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>

#include <sys/single_threaded.h>

#include <atomic>
#include <cstddef>
#include <string_view>
#include <utility>

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
    TzXmlNamespace(const TzXmlNamespace& other) noexcept : record_(other.record_) { retain(); }
    TzXmlNamespace(TzXmlNamespace&& other) noexcept
        : record_(std::exchange(other.record_, nullptr)) {}
    TzXmlNamespace& operator=(const TzXmlNamespace& other) noexcept {
        if (record_ != other.record_) {
            TzXmlNamespace(other).swap(*this);
        }
        return *this;
    }
    TzXmlNamespace& operator=(TzXmlNamespace&& other) noexcept {
        swap(other);
        return *this;
    }
    ~TzXmlNamespace() { release(); }

    /// The prefix, "" for none; valid until this object changes.
    const TzCString& getPrefix() const noexcept { return record().prefix; }
    /// The URI, "" for none; valid until this object changes.
    const TzCString& getUri() const noexcept { return record().uri; }
    /// Replaces the prefix, the URI stays.
    void setPrefix(std::string_view prefix);
    /// Replaces the URI, the prefix stays.
    void setUri(std::string_view uri);
    /// Whether prefix and URI are both empty.
    bool isEmpty() const noexcept;
    /// Whether both have the same URI, prefixes not compared. O(1) when they share a record.
    bool sameUri(const TzXmlNamespace& other) const noexcept {
        return record_ == other.record_ || getUri() == other.getUri();
    }

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
        return left.record_ == right.record_ ||
               (left.getUri() == right.getUri() && left.getPrefix() == right.getPrefix());
    }

private:
    struct TZ_PLATFORM_API Record {
        std::atomic<std::ptrdiff_t> references{1};
        TzCString prefix;
        TzCString uri;
    };

    static const Record& emptyRecord() noexcept;
    static void destroy(Record* record) noexcept;

    const Record& record() const noexcept {
        return record_ != nullptr ? *record_ : emptyRecord();
    }
    void retain() const noexcept {
        if (record_ != nullptr) {
            count(1);
        }
    }
    void release() const noexcept {
        if (record_ != nullptr && count(-1) == 1) {
            destroy(record_);
        }
    }
    // Changes the count and returns what it was. Without a second thread it needs no locked instruction.
    std::ptrdiff_t count(std::ptrdiff_t change) const noexcept {
        std::atomic<std::ptrdiff_t>& references = record_->references;
        if (__libc_single_threaded != 0) {
            const std::ptrdiff_t before = references.load(std::memory_order_relaxed);
            references.store(before + change, std::memory_order_relaxed);
            return before;
        }
        return references.fetch_add(change, std::memory_order_acq_rel);
    }
    void swap(TzXmlNamespace& other) noexcept { std::swap(record_, other.record_); }

    Record* record_ = nullptr;
};
