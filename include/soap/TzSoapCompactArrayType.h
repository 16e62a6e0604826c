// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapArrayType.h>
#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapExport.h>

#include <cstddef>
#include <vector>

class TzSoapCompactArrayImp;

/// Handle of a compact array: one item for every position of its shape from the start index on.
///
/// Positions never assigned hold a placeholder (`TzSoapDefaultType`). Reaching a position after
/// the last one with `operator()` adds positions up to it, one more than the shape has at a time.
///
/// References to items stay valid, and `a[1] = a[0]` is fine, until the array grows beyond the
/// positions it has or takes other bounds; on an open axis each new position is such a growth. A
/// constant array answers with its placeholder where no item was reached yet, and such a reference
/// does not see what is assigned to the position later.
///
/// Up to 1,048,576 positions the items are one block of memory, of which only those that were
/// reached are touched, and constant operations may run on several threads at once, writing
/// excepted, which sets types. With more positions memory is taken for the items that were
/// reached; there `begin` and `end`, constant or not, make one block, which moves the items.
///
/// Errors of the constructors: `TzXmlBoundsError` MISMATCH_BOUNDS for different numbers of axes,
/// MISMATCH_VECTOR for a start beyond its bound, BAD_INDEX_VECTOR for an open axis that is not the
/// leftmost or more than 32 bits count; `TzXmlBadArgError` BAD_INDEX_STRING for a text that is no
/// index. Threads otherwise as for `TzSoapType`.
class TZSOAP_API TzSoapCompactArrayType : public TzSoapArrayType {
public:
    /// An array with one axis.
    TzSoapCompactArrayType(const TzCString& elementType, unsigned int size, unsigned int start);
    /// An array with one axis, named `name`.
    TzSoapCompactArrayType(const TzXmlName& name, const TzCString& elementType, unsigned int size,
                           unsigned int start);
    /// An array of the shape that two texts such as "[2,3]" or "2 3" state.
    TzSoapCompactArrayType(const TzCString& elementType, const TzCString& bounds,
                           const TzCString& start);
    /// An array of the shape that two texts state, named `name`.
    TzSoapCompactArrayType(const TzXmlName& name, const TzCString& elementType,
                           const TzCString& bounds, const TzCString& start);
    /// An array of a shape.
    TzSoapCompactArrayType(const TzCString& elementType, const std::vector<unsigned int>& bounds,
                           const std::vector<unsigned int>& start);
    /// An array of a shape, named `name`.
    TzSoapCompactArrayType(const TzXmlName& name, const TzCString& elementType,
                           const std::vector<unsigned int>& bounds,
                           const std::vector<unsigned int>& start);
    /// An array of a shape in braces, such as `TzSoapCompactArrayType("xsd:int", {2, 3}, {0, 0})`.
    template <std::size_t Axes, std::size_t StartAxes>
    TzSoapCompactArrayType(const TzCString& elementType, const unsigned int (&bounds)[Axes],
                           const unsigned int (&start)[StartAxes])
        : TzSoapCompactArrayType(elementType, std::vector<unsigned int>(bounds, bounds + Axes),
                                 std::vector<unsigned int>(start, start + StartAxes)) {}
    /// An array of a shape in braces, named `name`.
    template <std::size_t Axes, std::size_t StartAxes>
    TzSoapCompactArrayType(const TzXmlName& name, const TzCString& elementType,
                           const unsigned int (&bounds)[Axes],
                           const unsigned int (&start)[StartAxes])
        : TzSoapCompactArrayType(name, elementType,
                                 std::vector<unsigned int>(bounds, bounds + Axes),
                                 std::vector<unsigned int>(start, start + StartAxes)) {}
    /// A copy of `other` with other bounds: items keep their index or are dropped. Errors as for
    /// `setBounds`. O(items).
    TzSoapCompactArrayType(const TzSoapCompactArrayType& other,
                           const std::vector<unsigned int>& newBounds);
    /// A copy of `other` with other bounds, named `name`.
    TzSoapCompactArrayType(const TzXmlName& name, const TzSoapCompactArrayType& other,
                           const std::vector<unsigned int>& newBounds);
    TzSoapCompactArrayType(const TzSoapCompactArrayType&) noexcept = default;
    TzSoapCompactArrayType(TzSoapCompactArrayType&&) noexcept = default;
    TzSoapCompactArrayType& operator=(const TzSoapCompactArrayType&) noexcept = default;
    TzSoapCompactArrayType& operator=(TzSoapCompactArrayType&&) noexcept = default;
    ~TzSoapCompactArrayType() override;

    /// A new array that shares the items. O(items).
    TzSoapCompactArrayType copy() const;
    /// Number of items, placeholders included. What came from a peer may state a shape of many more
    /// positions than it has items: `assignedPositions` names those that hold something.
    unsigned int entries() const;
    /// The positions that hold an item, placeholders left out, in order. O(items reached).
    std::vector<unsigned int> assignedPositions() const;

    /// The first item, in order of position; valid until the array grows or takes other bounds.
    TzSoapDefaultType* begin();
    /// One past the last item; validity as for `begin`.
    TzSoapDefaultType* end();
    /// The first item, in order of position; valid until the array grows or takes other bounds.
    const TzSoapDefaultType* begin() const;
    /// One past the last item; validity as for `begin`.
    const TzSoapDefaultType* end() const;

protected:
    /// A handle to `body`, which may be null.
    explicit TzSoapCompactArrayType(TzSoapCompactArrayImp* body) noexcept;
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" for an empty handle.
    TzSoapCompactArrayImp& body() const;

private:
    friend struct TzSoapAccess;

    const TzSoapCompactArrayImp& constBody() const;
};
