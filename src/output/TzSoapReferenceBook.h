// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapType.h>
#include <tz/tools/TzCString.h>

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <utility>
#include <vector>

class TzSoapTypeImp;

/// Remembers of references: which values with an id are written, which targets are not written yet,
/// and whether any led to a MIME part.
class TzSoapReferenceBook {
public:
    /// A value, its id when it was referred to.
    using Target = std::pair<TzCString, TzSoapType>;

    /// The start tag of `value` is written.
    void noteWritten(const TzSoapTypeImp& value);
    /// A reference to `target` is written.
    void noteReference(const TzSoapType& target);
    /// Number of targets noted.
    std::size_t targetCount() const noexcept { return targets_.size(); }
    /// The target noted as number `position`. A copy: more may be noted while it is written.
    Target target(std::size_t position) const { return targets_[position]; }
    /// Whether `target` is not written yet. A value that has lost its id meanwhile must also be
    /// written only once, or a ring would never end.
    bool isDue(const Target& target);
    /// Forgets the targets noted.
    void clearTargets() noexcept { targets_.clear(); }

    /// From now on targets are written, or entries again.
    void setWritesTargets(bool writesTargets) noexcept { writesTargets_ = writesTargets; }
    /// A MIME part was inserted.
    void noteAttachment() noexcept;
    /// Something that a value holds was left out.
    void noteOmission() noexcept { wroteAll_ = false; }
    /// Whether an entry, or a value it holds, led to a MIME part; values that are written because
    /// something refers to them do not. Nothing when that must be looked for, because something was
    /// left out or only such values led to a part.
    std::optional<bool> entriesLedToParts() const noexcept {
        return entriesAttached_ || (wroteAll_ && !attached_) ? std::optional(entriesAttached_)
                                                             : std::nullopt;
    }

private:
    std::map<TzCString, TzSoapType> writtenIds_;
    std::vector<Target> targets_;
    std::set<const TzSoapTypeImp*> writtenWithoutId_;
    bool writesTargets_ = false;
    bool wroteAll_ = true;
    bool entriesAttached_ = false;
    bool attached_ = false;
};
