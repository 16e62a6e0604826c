// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapType.h>
#include <tz/tools/TzCString.h>

#include <map>
#include <string_view>
#include <utility>
#include <vector>

class TzMimeMultipart;
class TzSoapMimeLookup;
class TzSoapReferenceToSoapTypeImp;
class TzSoapReferenceTypeImp;
class TzXmlName;

/// The ids and the references of one reading, and what became of them.
class TzSoapReferenceTable {
public:
    /// References met so far, by reference text; not owned.
    using References = std::multimap<TzCString, TzSoapReferenceTypeImp*>;
    /// Values with an id met so far, by id.
    using IdEntries = std::map<TzCString, TzSoapType>;

    /// The references that wait to be resolved, to insert. Whoever inserts also calls `keep`.
    /// O(references added since the last call * log).
    References& references();
    /// Files a reference, as an insertion into `references` does, and keeps it. Amortized O(1).
    void add(const TzCString& href, TzSoapReferenceTypeImp& reference);
    /// The values with ids that no reference named so far, to insert.
    IdEntries& idEntries() noexcept { return idEntries_; }
    /// Keeps `value` alive until the reading ends, whatever becomes of its place in the message.
    void keep(const TzSoapType& value) { kept_.push_back(value); }
    /// Values name themselves by the attribute `name`, which outlives this object; without a call
    /// by the unqualified "id".
    void setIdName(const TzXmlName& name) noexcept { idName_ = &name; }
    /// Files `value` under its id if it has one; the first value of an id stays.
    void fileId(const TzSoapType& value);

    /// Gives each reference met so far its target, in the message or in `package`; forgets the
    /// references and the ids they name.
    ///
    /// References without a target are left as they are; a later call, for the next block of the
    /// message, gives them a target that was filed since, and its references still find the
    /// ids forgotten here. O((references + ids filed since the last call) * log).
    void resolve(const TzMimeMultipart& package);
    /// The reading succeeded: the targets of its references stay, and values that hold each other
    /// through them go when nothing else holds one of them. `std::bad_alloc` without memory.
    /// O(values referred to), no recursion.
    void keepTargets();
    /// Takes the targets of all resolved references away: for a reading that failed.
    void dropTargets() noexcept;
    /// Forgets everything and the memory it took.
    void clear() noexcept;

private:
    const TzSoapType* findTarget(std::string_view href);
    bool resolveOne(const TzCString& href, TzSoapReferenceTypeImp& reference,
                    TzSoapMimeLookup& lookup);
    void resolveOrRemember(const References::value_type& entry, TzSoapMimeLookup& lookup);
    void resolveEarlier();
    void refer(TzSoapReferenceTypeImp& reference, const TzSoapType& target);
    void forgetId(const TzCString& id);

    const TzXmlName* idName_ = nullptr; // null: the usual one
    References references_;
    std::vector<References::value_type> added_; // not in the ordered collection yet
    IdEntries idEntries_;
    References unresolved_;         // by id, of the blocks resolved so far
    IdEntries namedIds_;            // ids that references of those blocks named
    std::vector<TzCString> newIds_; // filed since the last resolution
    std::vector<TzSoapReferenceToSoapTypeImp*> resolved_;
    std::vector<TzSoapType> kept_;
};
