// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapElementImp.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapGenericTypeHandler.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapValueList.h>
#include <soap/TzSoapVersion.h>
#include <tz/pointer/TzBodyBase.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

class TzSoapParseContext;
class TzXmlAttributeSet;

/// Body of the Body element: its entries in document order, and a fault. Reads itself.
///
/// Only the reference count is locked.
class TZSOAP_API TzSoapBodyImp : public TzSoapElementImp,
                                 public TzBodyBase,
                                 public TzSoapGenericTypeHandler {
public:
    /// Position of an entry.
    using iterator = TzSoapValueList::iterator;
    /// Position of an entry that is only looked at.
    using const_iterator = TzSoapValueList::const_iterator;

    /// A body without entries and with an empty fault, under the names of `version`; `TzXmlError`
    /// UNKNOWN_VERSION for an unknown version.
    explicit TzSoapBodyImp(TzSoapVersion::Version version);
    /// Copies the element and the version, and each entry and the fault by their `copy()`.
    TzSoapBodyImp(const TzSoapBodyImp& other);
    TzSoapBodyImp& operator=(const TzSoapBodyImp&) = delete;
    ~TzSoapBodyImp() override;

    /// The version of the enclosing message.
    TzSoapVersion::Version getVersion() const noexcept { return version_; }
    /// Records the version and takes its names for the Body element and the fault; entries stay as
    /// they are. `TzXmlError` UNKNOWN_VERSION, and nothing changed, for an unknown version.
    void setVersion(TzSoapVersion::Version version);
    /// A new body with copies of entries and fault; the caller's handle takes it over.
    virtual TzSoapBodyImp* clone() const;
    /// Removes entries, attributes and all that was set on the element, and empties the fault,
    /// subcodes included; name and version stay.
    void clear();

    /// The fault.
    TzSoapFault& getSoapFault() noexcept { return fault_; }
    /// The fault.
    const TzSoapFault& getSoapFault() const noexcept { return fault_; }
    /// Whether the fault has a code.
    bool hasSoapFault() const;
    /// Whether the Body that was read had a Fault element, with or without a code.
    bool hasFaultElement() const noexcept { return hasFaultElement_; }

    /// The entries.
    TzSoapValueList& entries() noexcept { return entries_; }
    /// The entries.
    const TzSoapValueList& entries() const noexcept { return entries_; }
    /// Number of entries.
    unsigned int entryCount() const noexcept { return entries_.size(); }
    /// The first entry.
    iterator entriesBegin() noexcept { return entries_.begin(); }
    /// One past the last entry.
    iterator entriesEnd() noexcept { return entries_.end(); }
    /// Adds `entry`, shared, at the end. An entry without a body throws `TzTHRInvalidPointer`; so
    /// do all operations that add one.
    void appendEntry(const TzSoapType& entry);
    /// Adds `entry`, shared, at the front.
    void prependEntry(const TzSoapType& entry);
    /// Adds `entry`, shared, before `position`; returns where it stands.
    iterator insert(iterator position, const TzSoapType& entry);
    /// The first entry named `name`, `entriesEnd()` if absent. O(entries).
    iterator findEntry(const TzXmlName& name) { return entries_.find(name); }
    /// Removes the entry at `position`; returns the position of the next one.
    iterator removeEntry(iterator position) { return entries_.remove(position); }
    /// Removes every entry named `name`. O(entries).
    void removeAllEntries(const TzXmlName& name) { entries_.removeAll(name); }
    /// Removes all entries.
    void clearEntries() noexcept { entries_.clear(); }

    /// The Body element starts: takes name and attributes and receives until its end. A second body
    /// of one message adds to what is there.
    void populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                  TzSoapParseContext* context);
    /// A child starts: a Fault is read by the fault, everything else as an entry.
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override;
    /// The Body element ends: gives the references read so far their targets.
    void endElement(const TzXmlName& name) override;
    /// Adds an entry that was read.
    void addChild(const TzSoapType& child) override;
    /// As `addChild`.
    void takeChild(TzSoapType&& child) override;

    /// The text before the Fault of a literal message, "" without.
    const TzCString& textBeforeFault() const noexcept { return textBeforeFault_; }
    /// Text beside the entries: kept in a literal message, left out otherwise.
    void characters(const TzCString& text) override;

private:
    TzSoapVersion::Version version_;
    TzSoapValueList entries_;
    TzSoapFault fault_;
    bool hasFaultElement_ = false;
    TzCString textBeforeFault_;
};

/// Whether both have equally many entries that share their bodies position by position; names,
/// attributes and fault are not compared. O(entries).
TZSOAP_API bool operator==(const TzSoapBodyImp& left, const TzSoapBodyImp& right);
/// The negation of `==`.
TZSOAP_API bool operator!=(const TzSoapBodyImp& left, const TzSoapBodyImp& right);
