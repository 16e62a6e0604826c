// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapArrayType.h>
#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapMisunderstoodTypeImp.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <soap/TzSoapSparseArrayImp.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <soap/TzSoapUserDefinedTypeImp.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>

#include "model/TzSoapAccess.h"

#include <type_traits>
#include <utility>

/// Where an unknown kind of value is reported.
struct TzSoapDispatchSite {
    const char* unit;
    int line;
};

/// Passes a value on as a handle of its class, which keeps it alive: whatever a visitor does to the
/// visited handle or to its container, the value stays until the visit ends.
template <typename Handle> class TzSoapVisitedConst {
public:
    explicit TzSoapVisitedConst(const TzSoapType& value)
        : handle_(TzSoapAccess::share<Handle>(TzSoapAccess::body(value))) {}
    const Handle& handle() const noexcept { return handle_; }

private:
    const Handle handle_;
};

/// Passes a value on as a mutable handle: what a visitor assigns to it takes the visited one's
/// place when the visit ends, by an exception or not.
template <typename Handle> class TzSoapVisitedMutable {
public:
    explicit TzSoapVisitedMutable(TzSoapType& value)
        : value_(value), visited_(&TzSoapAccess::body(value)),
          handle_(TzSoapAccess::share<Handle>(*visited_)) {}
    ~TzSoapVisitedMutable() {
        // The visited handle may be gone unless the visitor assigned something: leave it alone
        // then.
        if (TzSoapAccess::hasBody(handle_) && !TzSoapAccess::refersTo(handle_, visited_)) {
            value_ = std::move(handle_);
        }
    }
    TzSoapVisitedMutable(const TzSoapVisitedMutable&) = delete;
    TzSoapVisitedMutable& operator=(const TzSoapVisitedMutable&) = delete;
    Handle& handle() noexcept { return handle_; }

private:
    TzSoapType& value_;
    TzBodyBase* visited_;
    Handle handle_;
};

/// The dispatch by kind of value that both visitor families share. `Visited` is how the family
/// passes handles on: `TzSoapVisitedConst` or `TzSoapVisitedMutable`.
template <template <typename> class Visited, typename Visitor, typename Value>
class TzSoapDispatch {
public:
    static void run(Visitor& visitor, Value& value, const TzSoapDispatchSite& site) {
        switch (TzSoapAccess::body(value).getSoapTypeId()) {
        case TzSoapContentBase::Generic:
            visitor.visit(value);
            return;
        case TzSoapContentBase::Simple:
            return visitAs<TzSoapSimpleType>(visitor, value);
        case TzSoapContentBase::UserDefined:
            return visitAs<TzSoapUserDefinedType>(visitor, value);
        case TzSoapContentBase::Composite:
            return visitAs<TzSoapCompositeType>(visitor, value);
        case TzSoapContentBase::Array:
            return visitArray(visitor, value);
        case TzSoapContentBase::Reference:
            return visitAs<TzSoapReferenceType>(visitor, value);
        case TzSoapContentBase::Misunderstood:
            return visitAs<TzSoapMisunderstoodType>(visitor, value);
        }
        TzThrow(TzXmlInternalError(TzMessage(tzsoap_INTERNAL_ERROR(), site.unit, site.line)));
    }

private:
    template <typename Handle> static void visitAs(Visitor& visitor, Value& value) {
        Visited<Handle> visited(value);
        visitor.visit(visited.handle());
    }

    static void visitArray(Visitor& visitor, Value& value) {
        auto& body = static_cast<TzSoapArrayTypeImp&>(TzSoapAccess::body(value));
        if (body.isSparse()) {
            visitAs<TzSoapSparseArrayType>(visitor, value);
        } else if (body.isCompact()) {
            visitAs<TzSoapCompactArrayType>(visitor, value);
        } else {
            // Deliberate: a handle for this visit alone. Assigning to it re-points nothing else.
            TzSoapArrayType temporary = TzSoapAccess::share<TzSoapArrayType>(body);
            visitor.visit(static_cast<Passed<TzSoapArrayType>&>(temporary));
        }
    }

    /// `Handle` as the family passes it on: const for constant values.
    template <typename Handle>
    using Passed = std::conditional_t<std::is_const_v<Value>, const Handle, Handle>;
};
