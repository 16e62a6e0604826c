// SPDX-License-Identifier: MIT
#include "reading/TzSoapRings.h"

#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapReferenceToSoapTypeImp.h>
#include <soap/TzSoapSparseArrayImp.h>

#include "model/TzSoapAccess.h"

#include <unordered_map>

namespace {

/// A walk in depth over values and the targets of references; a reference whose target is still being
/// walked closes a ring.
class RingFinder {
public:
    void walkFrom(TzSoapReferenceToSoapTypeImp& reference) {
        enterTarget(reference);
        while (!steps_.empty()) {
            const Step step = steps_.back();
            steps_.pop_back();
            take(step);
        }
    }

    std::vector<TzSoapReferenceToSoapTypeImp*> takeClosers() { return std::move(closers_); }

private:
    enum class Colour : unsigned char { Open, Done };

    /// A value to enter (through a reference or from its container) or, on the way back, to leave.
    struct Step {
        TzSoapTypeImp* value;
        TzSoapReferenceToSoapTypeImp* through;
        bool leave;
    };

    void take(const Step& step) {
        if (step.leave) {
            colours_[step.value] = Colour::Done;
            return;
        }
        const auto [place, isNew] = colours_.try_emplace(step.value, Colour::Open);
        if (isNew) {
            steps_.push_back({step.value, nullptr, true});
            enterContent(*step.value);
        } else if (place->second == Colour::Open && step.through != nullptr) {
            closers_.push_back(step.through);
        }
    }

    void enter(const TzSoapType& value) {
        if (TzSoapAccess::hasBody(value)) {
            steps_.push_back({&TzSoapAccess::body(value), nullptr, false});
        }
    }

    void enterTarget(TzSoapReferenceTypeImp& reference) {
        if (reference.isSoapReference() && reference.hasReference()) {
            auto& through = static_cast<TzSoapReferenceToSoapTypeImp&>(reference);
            steps_.push_back({&TzSoapAccess::body(through.getSoapReference()), &through, false});
        }
    }

    void enterContent(TzSoapTypeImp& value) {
        switch (value.getSoapTypeId()) {
        case TzSoapContentBase::Composite:
            return enterAll(static_cast<const TzSoapCompositeTypeImp&>(value));
        case TzSoapContentBase::Array:
            return enterItems(static_cast<const TzSoapArrayTypeImp&>(value));
        case TzSoapContentBase::Reference:
            return enterTarget(static_cast<TzSoapReferenceTypeImp&>(value));
        default:
            return;
        }
    }

    void enterAll(const TzSoapCompositeTypeImp& composite) {
        for (auto child = composite.childrenBegin(); child != composite.childrenEnd(); ++child) {
            enter(*child);
        }
    }

    void enterItems(const TzSoapArrayTypeImp& array) {
        if (array.isSparse()) {
            const auto& sparse = static_cast<const TzSoapSparseArrayImp&>(array);
            for (auto item = sparse.begin(); item != sparse.end(); ++item) {
                enter(item->second);
            }
        } else if (array.isCompact()) {
            const auto& compact = static_cast<const TzSoapCompactArrayImp&>(array);
            for (const TzSoapType& item : compact.storedItems()) {
                enter(item);
            }
        }
    }

    std::unordered_map<const TzSoapTypeImp*, Colour> colours_;
    std::vector<Step> steps_;
    std::vector<TzSoapReferenceToSoapTypeImp*> closers_;
};

} // namespace

std::vector<TzSoapReferenceToSoapTypeImp*>
tzSoapFindRingClosers(const std::vector<TzSoapReferenceToSoapTypeImp*>& resolved) {
    RingFinder finder;
    for (TzSoapReferenceToSoapTypeImp* reference : resolved) {
        finder.walkFrom(*reference);
    }
    return finder.takeClosers();
}
