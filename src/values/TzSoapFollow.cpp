// SPDX-License-Identifier: MIT
#include "values/TzSoapFollow.h"

#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapReferenceTypeImp.h>

#include "model/TzSoapAccess.h"

namespace {

// More than any sender needs; references that close a ring end here.
constexpr int MostReferences = 100;

} // namespace

TzSoapType tzSoapFollow(const TzSoapType& value) {
    TzSoapType current = value;
    for (int i = 0; i < MostReferences; ++i) {
        auto* const body = dynamic_cast<TzSoapReferenceTypeImp*>(&TzSoapAccess::body(current));
        if (body == nullptr) {
            break;
        }
        const auto reference = TzSoapAccess::handle<TzSoapReferenceType>(body);
        if (reference.isMimeReference() || !reference.hasReference()) {
            break;
        }
        current = reference.getSoapReference();
    }
    return current;
}
