// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapArrayType.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapSparseItems.h>

#include <cstddef>
#include <vector>

class TzSoapSparseArrayImp;

/// Handle of a sparse array: items at the indices that were given one, in order of insertion.
///
/// `operator[]` and `operator()` on a non-const array add an item if it is missing; on a const
/// array they answer with a template and add nothing. Errors of the constructors:
/// `TzXmlBoundsError` BAD_INDEX_VECTOR for an open axis that is not the leftmost or more than 32
/// bits count, `TzXmlBadArgError` BAD_INDEX_STRING for a text that states no bounds. Threads as for
/// `TzSoapType`.
class TZSOAP_API TzSoapSparseArrayType : public TzSoapArrayType {
public:
    /// Position of an item, a pair of index and value; valid until that item is removed.
    using iterator = TzSoapSparseItems::iterator;
    /// Position of an item, a pair of index and value; valid until that item is removed.
    using const_iterator = TzSoapSparseItems::const_iterator;

    /// An array with one axis.
    TzSoapSparseArrayType(const TzCString& elementType, unsigned int size);
    /// An array with one axis, named `name`.
    TzSoapSparseArrayType(const TzXmlName& name, const TzCString& elementType, unsigned int size);
    /// An array of the shape that a text such as "[2,3]" or "2 3" states.
    TzSoapSparseArrayType(const TzCString& elementType, const TzCString& bounds);
    /// An array of the shape that a text states, named `name`.
    TzSoapSparseArrayType(const TzXmlName& name, const TzCString& elementType,
                          const TzCString& bounds);
    /// An array of a shape.
    TzSoapSparseArrayType(const TzCString& elementType, const std::vector<unsigned int>& bounds);
    /// An array of a shape, named `name`.
    TzSoapSparseArrayType(const TzXmlName& name, const TzCString& elementType,
                          const std::vector<unsigned int>& bounds);
    /// An array of a shape in braces, such as `TzSoapSparseArrayType("xsd:int", {2, 3})`; one
    /// number in braces is the size of one axis.
    template <std::size_t Axes>
    TzSoapSparseArrayType(const TzCString& elementType, const unsigned int (&bounds)[Axes])
        : TzSoapSparseArrayType(elementType, std::vector<unsigned int>(bounds, bounds + Axes)) {}
    /// An array of a shape in braces, named `name`.
    template <std::size_t Axes>
    TzSoapSparseArrayType(const TzXmlName& name, const TzCString& elementType,
                          const unsigned int (&bounds)[Axes])
        : TzSoapSparseArrayType(name, elementType,
                                std::vector<unsigned int>(bounds, bounds + Axes)) {}
    TzSoapSparseArrayType(const TzSoapSparseArrayType&) noexcept = default;
    TzSoapSparseArrayType(TzSoapSparseArrayType&&) noexcept = default;
    TzSoapSparseArrayType& operator=(const TzSoapSparseArrayType&) noexcept = default;
    TzSoapSparseArrayType& operator=(TzSoapSparseArrayType&&) noexcept = default;
    ~TzSoapSparseArrayType() override;

    /// A new array with copies of the items; both share the values. O(items).
    TzSoapSparseArrayType copy() const;
    /// The first item. Indices may be changed through iterators; look-ups see that, and find the
    /// first of several items with one index. References to more than 16 indices must not be kept
    /// over a look-up and changed after it.
    iterator begin();
    /// One past the last item.
    iterator end();
    /// The first item.
    const_iterator begin() const;
    /// One past the last item.
    const_iterator end() const;

protected:
    /// A handle to `body`, which may be null.
    explicit TzSoapSparseArrayType(TzSoapSparseArrayImp* body) noexcept;
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" for an empty handle.
    TzSoapSparseArrayImp& body() const;

private:
    friend struct TzSoapAccess;

    const TzSoapSparseArrayImp& constBody() const;
};
