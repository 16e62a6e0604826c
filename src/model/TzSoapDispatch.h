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

/// Where an unknown kind of value is reported.
struct TzSoapDispatchSite {
    const char* unit;
    int line;
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
        const auto& array = static_cast<const TzSoapArrayTypeImp&>(TzSoapAccess::body(value));
        if (array.isSparse()) {
            visitAs<TzSoapSparseArrayType>(visitor, value);
        } else if (array.isCompact()) {
            visitAs<TzSoapCompactArrayType>(visitor, value);
        } else {
            visitAs<TzSoapArrayType>(visitor, value);
        }
    }
};

/// Passes a value on as a const handle of its own class.
template <typename Handle> class TzSoapVisitedConst {
public:
    explicit TzSoapVisitedConst(const TzSoapType& value) : borrowed_(TzSoapAccess::body(value)) {}
    const Handle& handle() noexcept { return borrowed_.handle(); }

private:
    TzSoapBorrowed<Handle> borrowed_;
};

/// Passes a value on as a mutable handle of its own class. A visitor may assign to that handle: the
/// visited one then takes the new body over.
template <typename Handle> class TzSoapVisitedMutable {
public:
    explicit TzSoapVisitedMutable(TzSoapType& value)
        : value_(value), borrowed_(TzSoapAccess::body(value)) {}
    ~TzSoapVisitedMutable() {
        // The assignment gave back the reference that the visited handle had counted, so the handle
        // just takes over what the borrower holds; without an assignment both are the same.
        TzSoapAccess::detach(value_);
        TzSoapAccess::attach(value_, TzSoapAccess::detach(borrowed_.handle()));
    }
    TzSoapVisitedMutable(const TzSoapVisitedMutable&) = delete;
    TzSoapVisitedMutable& operator=(const TzSoapVisitedMutable&) = delete;
    Handle& handle() noexcept { return borrowed_.handle(); }

private:
    TzSoapType& value_;
    TzSoapBorrowed<Handle> borrowed_;
};
