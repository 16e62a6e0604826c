// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapElementHandle.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapMemberAccess.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapValueList.h>
#include <soap/TzSoapVersion.h>
#include <tz/pointer/TzHandleBase.h>
#include <tz/tools/TzCString.h>
#include <tz/tools/TzPointerArgument.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlText.h>

#include <concepts>
#include <utility>

class TzSoapConstVisitor;
class TzSoapHeaderImp;
class TzSoapVisitor;

/// Handle of the Header element of a message: header entries in document order.
///
/// Adding an entry writes mustUnderstand and actor (role) into the entry itself, so every handle to
/// it sees them and the last ones set win. Copies share the body, `copy()` makes a new one. Every
/// operation on a handle without a body throws `TzTHRInvalidPointer` "Invalid pointer". Handles
/// that share a body may be copied and destroyed on different threads; the header itself is used by
/// one thread at a time.
class TZSOAP_API TzSoapHeader : public TzHandleBase,
                                public TzSoapElementHandle<TzSoapHeader>,
                                public TzSoapMemberAccess<TzSoapHeader> {
public:
    /// Position of an entry, valid until that entry is removed.
    using iterator = TzSoapValueList::iterator;
    /// Position of an entry that is only looked at.
    using const_iterator = TzSoapValueList::const_iterator;

    TzSoapHeader(const TzSoapHeader&) noexcept = default;
    TzSoapHeader(TzSoapHeader&&) noexcept = default;
    TzSoapHeader& operator=(const TzSoapHeader&) noexcept = default;
    TzSoapHeader& operator=(TzSoapHeader&&) noexcept = default;
    ~TzSoapHeader() override;

    /// Sets the entry's mustUnderstand and adds the entry, shared, at the end. An entry without a
    /// body throws `TzTHRInvalidPointer`; so do all operations that add one.
    void appendHeaderEntry(TzSoapType entry, bool mustUnderstand);
    /// Sets the entry's actor and adds the entry at the end.
    void appendHeaderEntry(TzSoapType entry, const TzCString& actor);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void appendHeaderEntry(TzSoapType entry, TzXmlText auto actor) {
        appendHeaderEntry(std::move(entry), tzXmlText(actor));
    }
    /// Any other pointer would be taken for a boolean.
    void appendHeaderEntry(TzSoapType entry, TzStrayPointer auto actor) = delete;
    /// Sets the entry's mustUnderstand and actor and adds the entry at the end.
    void appendHeaderEntry(TzSoapType entry, bool mustUnderstand, const TzCString& actor);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void appendHeaderEntry(TzSoapType entry, std::same_as<bool> auto mustUnderstand,
                           TzXmlText auto actor) {
        appendHeaderEntry(std::move(entry), mustUnderstand, tzXmlText(actor));
    }
    /// A pointer would be taken for true.
    void appendHeaderEntry(TzSoapType entry, TzPointerArgument auto mustUnderstand,
                           const auto& actor) = delete;
    /// Sets the entry's mustUnderstand and adds the entry at the front.
    void prependHeaderEntry(TzSoapType entry, bool mustUnderstand);
    /// Sets the entry's actor and adds the entry at the front.
    void prependHeaderEntry(TzSoapType entry, const TzCString& actor);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void prependHeaderEntry(TzSoapType entry, TzXmlText auto actor) {
        prependHeaderEntry(std::move(entry), tzXmlText(actor));
    }
    /// Any other pointer would be taken for a boolean.
    void prependHeaderEntry(TzSoapType entry, TzStrayPointer auto actor) = delete;
    /// Sets the entry's mustUnderstand and actor and adds the entry at the front.
    void prependHeaderEntry(TzSoapType entry, bool mustUnderstand, const TzCString& actor);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    void prependHeaderEntry(TzSoapType entry, std::same_as<bool> auto mustUnderstand,
                            TzXmlText auto actor) {
        prependHeaderEntry(std::move(entry), mustUnderstand, tzXmlText(actor));
    }
    /// A pointer would be taken for true.
    void prependHeaderEntry(TzSoapType entry, TzPointerArgument auto mustUnderstand,
                            const auto& actor) = delete;
    /// Sets the entry's mustUnderstand and adds the entry before `position`; returns where it
    /// stands.
    iterator insertHeaderEntry(iterator position, TzSoapType entry, bool mustUnderstand);
    /// Sets the entry's actor and adds the entry before `position`; returns where it stands.
    iterator insertHeaderEntry(iterator position, TzSoapType entry, const TzCString& actor);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    iterator insertHeaderEntry(iterator position, TzSoapType entry, TzXmlText auto actor) {
        return insertHeaderEntry(position, std::move(entry), tzXmlText(actor));
    }
    /// Any other pointer would be taken for a boolean.
    iterator insertHeaderEntry(iterator position, TzSoapType entry,
                               TzStrayPointer auto actor) = delete;
    /// Sets the entry's mustUnderstand and actor and adds the entry before `position`; returns
    /// where it stands.
    iterator insertHeaderEntry(iterator position, TzSoapType entry, bool mustUnderstand,
                               const TzCString& actor);
    /// Overload for other texts; `TzXmlBadArgError` for a null pointer.
    iterator insertHeaderEntry(iterator position, TzSoapType entry,
                               std::same_as<bool> auto mustUnderstand, TzXmlText auto actor) {
        return insertHeaderEntry(position, std::move(entry), mustUnderstand, tzXmlText(actor));
    }
    /// A pointer would be taken for true.
    iterator insertHeaderEntry(iterator position, TzSoapType entry,
                               TzPointerArgument auto mustUnderstand, const auto& actor) = delete;

    /// The first entry.
    iterator entriesBegin();
    /// The first entry.
    const_iterator entriesBegin() const;
    /// One past the last entry.
    iterator entriesEnd();
    /// One past the last entry.
    const_iterator entriesEnd() const;
    /// The first entry of all; serves range-based loops.
    iterator begin() { return entriesBegin(); }
    /// The first entry of all; serves range-based loops.
    const_iterator begin() const { return entriesBegin(); }
    /// The end of the entries.
    iterator end() { return entriesEnd(); }
    /// The end of the entries.
    const_iterator end() const { return entriesEnd(); }
    /// Number of entries.
    unsigned int entryCount() const;
    /// The first entry named `name`, `entriesEnd()` if absent. O(entries).
    iterator findHeaderEntry(const TzXmlName& name);
    /// The first entry named `name`, `entriesEnd()` if absent. O(entries).
    const_iterator findHeaderEntry(const TzXmlName& name) const;
    /// Removes the first entry named `name`, if any. O(entries).
    void removeHeaderEntry(const TzXmlName& name);
    /// Removes the entry at `position`; returns the position of the next one.
    iterator removeHeaderEntry(iterator position);
    /// Removes every entry named `name`, the others keep their order. O(entries).
    void removeAllHeaderEntries(const TzXmlName& name);
    /// Removes all entries.
    void clearHeaderEntries();

    /// A new header with a copy of each entry. O(content).
    TzSoapHeader copy() const;
    /// Calls the visitor's operation for headers.
    void acceptVisitor(TzSoapVisitor& visitor);
    /// Calls the visitor's operation for headers.
    void acceptVisitor(TzSoapConstVisitor& visitor) const;
    /// The header as XML text, standing alone.
    TzCString asString() const;

    /// Whether both have equally many entries that share their bodies position by position; names
    /// and attributes are not compared. O(entries).
    TZSOAP_API friend bool operator==(const TzSoapHeader& left, const TzSoapHeader& right);

protected:
    /// A header without entries under the name of `version`; `TzXmlError` UNKNOWN_VERSION for an
    /// unknown version.
    explicit TzSoapHeader(TzSoapVersion::Version version);
    /// A handle to `body`, which may be null.
    explicit TzSoapHeader(TzSoapHeaderImp* body) noexcept;
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" for an empty handle.
    TzSoapHeaderImp& body() const;

private:
    friend class TzSoapElementHandle<TzSoapHeader>;
    friend struct TzSoapAccess;

    TzSoapElementImp& elementBody() const;
};

extern template class TzSoapMemberAccess<TzSoapHeader>;
