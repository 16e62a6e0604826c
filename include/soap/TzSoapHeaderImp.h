// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapElementImp.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapGenericTypeHandler.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapValueList.h>
#include <soap/TzSoapVersion.h>
#include <tz/pointer/TzBodyBase.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

class TzSoapParseContext;
class TzXmlAttributeSet;

/// Body of the Header element: its entries in document order. Reads itself.
///
/// Only the reference count is locked.
class TZSOAP_API TzSoapHeaderImp : public TzSoapElementImp,
                                   public TzBodyBase,
                                   public TzSoapGenericTypeHandler {
public:
    /// Position of an entry.
    using iterator = TzSoapValueList::iterator;
    /// Position of an entry that is only looked at.
    using const_iterator = TzSoapValueList::const_iterator;

    /// A header without entries under the name of `version`; `TzXmlError` UNKNOWN_VERSION for an
    /// unknown version.
    explicit TzSoapHeaderImp(TzSoapVersion::Version version);
    /// Copies the element and the version, and each entry by its `copy()`.
    TzSoapHeaderImp(const TzSoapHeaderImp& other);
    TzSoapHeaderImp& operator=(const TzSoapHeaderImp&) = delete;
    ~TzSoapHeaderImp() override;

    /// The version of the enclosing message.
    TzSoapVersion::Version getVersion() const noexcept { return version_; }
    /// Records the version and takes its name for the Header element; entries stay as they are.
    /// `TzXmlError` UNKNOWN_VERSION, and nothing changed, for an unknown version.
    void setVersion(TzSoapVersion::Version version);
    /// A new body with copies of the entries; the caller's handle takes it over.
    virtual TzSoapHeaderImp* clone() const;
    /// Removes entries, attributes and all that was set on the element; name and version stay.
    void clear();

    /// Sets the entry's mustUnderstand and adds the entry at the end.
    void appendEntry(TzSoapType entry, bool mustUnderstand);
    /// Sets the entry's actor and adds the entry at the end.
    void appendEntry(TzSoapType entry, const TzCString& actor);
    /// Sets the entry's mustUnderstand and actor and adds the entry at the end.
    void appendEntry(TzSoapType entry, bool mustUnderstand, const TzCString& actor);
    /// Sets the entry's mustUnderstand and adds the entry at the front.
    void prependEntry(TzSoapType entry, bool mustUnderstand);
    /// Sets the entry's actor and adds the entry at the front.
    void prependEntry(TzSoapType entry, const TzCString& actor);
    /// Sets the entry's mustUnderstand and actor and adds the entry at the front.
    void prependEntry(TzSoapType entry, bool mustUnderstand, const TzCString& actor);
    /// Sets the entry's mustUnderstand and adds the entry before `position`; returns where it
    /// stands.
    iterator insert(iterator position, TzSoapType entry, bool mustUnderstand);
    /// Sets the entry's actor and adds the entry before `position`; returns where it stands.
    iterator insert(iterator position, TzSoapType entry, const TzCString& actor);
    /// Sets the entry's mustUnderstand and actor and adds the entry before `position`; returns
    /// where it stands.
    iterator insert(iterator position, TzSoapType entry, bool mustUnderstand,
                    const TzCString& actor);

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
    /// Removes every entry named `name`. O(entries).
    void removeAllEntries(const TzXmlName& name) { entries_.removeAll(name); }

    /// The Header element starts: takes name and attributes and receives until its end. A second
    /// header of one message adds to what is there.
    void populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                  TzSoapParseContext* context);
    /// The Header element ends: gives the references read so far their targets.
    void endElement(const TzXmlName& name) override;
    /// Adds an entry that was read, whose flags stay as they are.
    void addChild(const TzSoapType& child) override;
    /// As `addChild`.
    void takeChild(TzSoapType&& child) override;

    /// Whether the message that was read had a header; false in a new one and when cleared.
    bool wasRead() const noexcept { return wasRead_; }
    /// Text beside the entries: kept in a literal message, left out otherwise.
    void characters(const TzCString& text) override;

private:
    TzSoapVersion::Version version_;
    TzSoapValueList entries_;
    bool wasRead_ = false;
};

/// Whether both headers have equally many entries that share their bodies position by position;
/// names and attributes are not compared. O(entries).
TZSOAP_API bool operator==(const TzSoapHeaderImp& left, const TzSoapHeaderImp& right);
/// The negation of `==`.
TZSOAP_API bool operator!=(const TzSoapHeaderImp& left, const TzSoapHeaderImp& right);
