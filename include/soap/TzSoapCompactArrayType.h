// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapArrayType.h>
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapExport.h>

/// Handle of a compact array: one item for every position of its shape from the start index on.
///
/// Positions never assigned hold a placeholder (`TzSoapDefaultType`). Reaching a position behind
/// the last one with `operator()` adds positions up to it, one more than the shape has at a time.
/// Memory is taken for the positions that were reached. Errors of the constructors:
/// `TzXmlBoundsError` MISMATCH_BOUNDS for different numbers of axes, MISMATCH_VECTOR for a start
/// beyond its bound, BAD_INDEX_VECTOR for an open axis that is not the leftmost or more than 32
/// bits count; `TzXmlBadArgError` BAD_INDEX_STRING for a text that is no index. Threads as for
/// `TzSoapType`.
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
    /// A copy of `other` with other bounds: items keep their index or are dropped. Errors as for
    /// `setBounds`. O(items).
    TzSoapCompactArrayType(const TzSoapCompactArrayType& other,
                           const std::vector<unsigned int>& newBounds);
    /// The same, named `name`.
    TzSoapCompactArrayType(const TzXmlName& name, const TzSoapCompactArrayType& other,
                           const std::vector<unsigned int>& newBounds);
    TzSoapCompactArrayType(const TzSoapCompactArrayType&) noexcept = default;
    TzSoapCompactArrayType(TzSoapCompactArrayType&&) noexcept = default;
    TzSoapCompactArrayType& operator=(const TzSoapCompactArrayType&) noexcept = default;
    TzSoapCompactArrayType& operator=(TzSoapCompactArrayType&&) noexcept = default;
    ~TzSoapCompactArrayType() override;

    /// A new array with the same items, which both share. O(items).
    TzSoapCompactArrayType copy() const;
    /// Number of items, placeholders included.
    unsigned int entries() const;

    using TzSoapArrayType::operator[];
    using TzSoapArrayType::operator();
    /// The item at an index, added if need be. `TzXmlBoundsError` INDEX_RANGE_VEC outside of the
    /// shape. O(axes).
    TzSoapType& operator[](const std::vector<unsigned int>& index) {
        return body().reachWithin(index);
    }
    /// The item at an index, a placeholder where there is none; errors as above. O(axes).
    const TzSoapType& operator[](const std::vector<unsigned int>& index) const {
        return static_cast<const TzSoapCompactArrayImp&>(body()).reachWithin(index);
    }
    /// The item at an index, added if need be; the shape is not asked. `TzXmlBoundsError`
    /// INDEX_RANGE_VEC before the start, BAD_INDEX_VECTOR for more items than 32 bits count.
    /// O(axes).
    TzSoapType& operator()(const std::vector<unsigned int>& index) { return body().reach(index); }
    /// The item at an index, a placeholder where there is none; the shape is not asked.
    /// `TzXmlBoundsError` INDEX_RANGE_VEC before the start. O(axes).
    const TzSoapType& operator()(const std::vector<unsigned int>& index) const {
        return static_cast<const TzSoapCompactArrayImp&>(body()).reach(index);
    }

    /// The first item, in order of position; valid until the array changes. Takes memory for all
    /// positions.
    TzSoapDefaultType* begin();
    /// Behind the last item. Takes memory for all positions.
    TzSoapDefaultType* end();
    /// The first item, in order of position; valid until the array changes. Takes memory for all
    /// positions.
    const TzSoapDefaultType* begin() const;
    /// Behind the last item. Takes memory for all positions.
    const TzSoapDefaultType* end() const;

protected:
    /// A handle to `body`, which may be null.
    explicit TzSoapCompactArrayType(TzSoapCompactArrayImp* body) noexcept;
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" when there is none.
    TzSoapCompactArrayImp& body() const;

private:
    friend struct TzSoapAccess;
};
