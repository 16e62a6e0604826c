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
#include <tz/xml/TzXmlName.h>

class TzSoapBodyImp;
class TzSoapConstVisitor;
class TzSoapFault;
class TzSoapVisitor;

/// Handle of the Body element of a message: body entries in document order, and a fault that is
/// present when its code is set.
///
/// Copies share the body, `copy()` makes a new one. Every operation on a handle without a body
/// throws `TzTHRInvalidPointer` "Invalid pointer". Handles that share a body may be copied and
/// destroyed on different threads; the body itself is used by one thread at a time.
class TZSOAP_API TzSoapBody : public TzHandleBase,
                              public TzSoapElementHandle<TzSoapBody>,
                              public TzSoapMemberAccess<TzSoapBody> {
public:
    /// Position of an entry, valid until that entry is removed.
    using iterator = TzSoapValueList::iterator;
    /// Position of an entry that is only looked at.
    using const_iterator = TzSoapValueList::const_iterator;

    TzSoapBody(const TzSoapBody&) noexcept = default;
    TzSoapBody(TzSoapBody&&) noexcept = default;
    TzSoapBody& operator=(const TzSoapBody&) noexcept = default;
    TzSoapBody& operator=(TzSoapBody&&) noexcept = default;
    ~TzSoapBody() override;

    /// The fault, to read or to fill; empty in a new body.
    TzSoapFault& getSoapFault();
    /// The fault.
    const TzSoapFault& getSoapFault() const;
    /// Whether the fault has a code.
    bool hasSoapFault() const;
    /// Whether the Body that was read had a Fault element: also one without a code, which
    /// `hasSoapFault` does not see. False for what the program makes.
    bool hasFaultElement() const;

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
    /// The first entry, shared with the body; `TzSoapMissingError` for an empty body.
    TzSoapType getFirstEntry() const;
    /// Adds `entry`, shared, at the end. An entry without a body throws `TzTHRInvalidPointer`, and
    /// nothing changed; so do all operations that add one.
    void appendEntry(const TzSoapType& entry);
    /// Adds `entry`, shared, at the front.
    void prependEntry(const TzSoapType& entry);
    /// Adds `entry`, shared, before `position`; returns where it stands.
    iterator insertEntry(iterator position, const TzSoapType& entry);
    /// The first entry named `name`, `entriesEnd()` if absent. O(entries).
    iterator findEntry(const TzXmlName& name);
    /// The first entry named `name`, `entriesEnd()` if absent. O(entries).
    const_iterator findEntry(const TzXmlName& name) const;
    /// Removes the first entry named `name`, if any. O(entries).
    void removeEntry(const TzXmlName& name);
    /// Removes the entry at `position`; returns the position of the next one.
    iterator removeEntry(iterator position);
    /// Removes every entry named `name`, the others keep their order. O(entries).
    void removeAllEntries(const TzXmlName& name);
    /// Removes all entries; the fault stays.
    void clearEntries();

    /// A new body with a copy of each entry and of the fault (without its subcodes, which no copy
    /// of a fault has). O(content).
    TzSoapBody copy() const;
    /// Calls the visitor's operation for bodies.
    void acceptVisitor(TzSoapVisitor& visitor);
    /// Calls the visitor's operation for bodies.
    void acceptVisitor(TzSoapConstVisitor& visitor) const;
    /// The body as XML text, standing alone.
    TzCString asString() const;

    /// Whether both have equally many entries that share their bodies position by position; names,
    /// attributes and fault are not compared. O(entries).
    TZSOAP_API friend bool operator==(const TzSoapBody& left, const TzSoapBody& right);

protected:
    /// A body without entries under the name of `version`; `TzXmlError` UNKNOWN_VERSION for an
    /// unknown version.
    explicit TzSoapBody(TzSoapVersion::Version version);
    /// A handle to `body`, which may be null.
    explicit TzSoapBody(TzSoapBodyImp* body) noexcept;
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" for an empty handle.
    TzSoapBodyImp& body() const;

private:
    friend class TzSoapElementHandle<TzSoapBody>;
    friend struct TzSoapAccess;

    TzSoapElementImp& elementBody() const;
};

extern template class TzSoapMemberAccess<TzSoapBody>;
