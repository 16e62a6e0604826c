// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>

#include <cstddef>
#include <vector>

class TzSoapArrayTypeImp;

/// Handle of an encoded array of any form: item type, shape and access to the items.
///
/// A shape has one bound for each axis, leftmost first; a leftmost bound of 0 is open. Items are
/// reached by position (row by row, counted from 0 whatever the start index), by index (one entry
/// for each axis) or by index text such as "[1,2]". An operation that throws leaves the array as it
/// was. Threads as for `TzSoapType`.
class TZSOAP_API TzSoapArrayType : public TzSoapType {
public:
    TzSoapArrayType(const TzSoapArrayType&) noexcept = default;
    TzSoapArrayType(TzSoapArrayType&&) noexcept = default;
    TzSoapArrayType& operator=(const TzSoapArrayType&) noexcept = default;
    TzSoapArrayType& operator=(TzSoapArrayType&&) noexcept = default;
    ~TzSoapArrayType() override;

    /// A new array that shares the items. O(items).
    TzSoapArrayType copy() const;
    /// Whether only positions that were given an item hold one.
    bool isSparse() const;
    /// Whether every position holds an item.
    bool isCompact() const;

    /// The item type as a qualified name such as "xsd:int".
    const TzCString& getElementType() const;
    /// Number of axes.
    unsigned int getDimension() const;
    /// The size of each axis, valid until the array changes.
    const std::vector<unsigned int>& getBounds() const;
    /// The bounds as text of `version`.
    TzCString getBoundsAsString(TzSoapVersion::Version version) const;
    /// Item type and bounds as SOAP 1.1 writes them, such as "xsd:int[2,3]".
    TzCString getArrayType() const;
    /// Changes the shape, items keep their index or are dropped. `TzXmlDomainError` ILLEGAL_ARRAY
    /// "setBounds" for another number of axes, `TzXmlBoundsError` BAD_INDEX_VECTOR for no shape or
    /// more items than 32 bits count, INDEX_RANGE_VEC for an item beyond them. O(items).
    void setBounds(const std::vector<unsigned int>& bounds);
    /// Changes the shape to bounds as text; `TzXmlBadArgError` BAD_INDEX_STRING for any other text.
    void setBounds(const TzCString& bounds);
    /// Changes the shape to bounds in braces, such as `setBounds({2, 3})`.
    template <std::size_t Axes> void setBounds(const unsigned int (&bounds)[Axes]) {
        setBounds(std::vector<unsigned int>(bounds, bounds + Axes));
    }
    /// Number of items.
    unsigned int entries() const;

    /// The item at a position, made if need be. `TzXmlBoundsError` INDEX_RANGE_VEC outside of the
    /// shape.
    TzSoapType& operator[](unsigned int position);
    /// The item at a position, a substitute if it is missing. INDEX_RANGE_VEC outside of the shape.
    const TzSoapType& operator[](unsigned int position) const;
    /// The item at an index, made if need be. INDEX_RANGE_VEC outside of the shape.
    TzSoapType& operator[](const std::vector<unsigned int>& index);
    /// The item at an index, a substitute if it is missing. INDEX_RANGE_VEC outside of the shape.
    const TzSoapType& operator[](const std::vector<unsigned int>& index) const;
    /// The item at an index of several numbers in braces, `array[{1, 2}]`, made if need be.
    /// INDEX_RANGE_VEC outside of the shape. One number in braces is a position.
    template <std::size_t Axes>
    requires(Axes > 1) TzSoapType& operator[](const unsigned int (&index)[Axes]) {
        return (*this)[std::vector<unsigned int>(index, index + Axes)];
    }
    /// The item at an index in braces, a substitute if it is missing. INDEX_RANGE_VEC outside.
    template <std::size_t Axes>
    requires(Axes > 1) const TzSoapType& operator[](const unsigned int (&index)[Axes]) const {
        return (*this)[std::vector<unsigned int>(index, index + Axes)];
    }
    /// The item at an index as text, made if need be. INDEX_RANGE_VEC outside of the shape,
    /// `TzXmlBadArgError` BAD_INDEX_STRING for other texts.
    TzSoapType& operator[](const TzCString& index);
    /// The item at an index as text, a substitute if it is missing. Throws as for a missing one.
    const TzSoapType& operator[](const TzCString& index) const;
    /// The item at a position, made if need be; the shape is not checked.
    TzSoapType& operator()(unsigned int position);
    /// The item at a position, a substitute if it is missing; the shape is not checked.
    const TzSoapType& operator()(unsigned int position) const;
    /// The item at an index, made if need be; the shape is not checked.
    TzSoapType& operator()(const std::vector<unsigned int>& index);
    /// The item at an index, a substitute if it is missing; the shape is not checked.
    const TzSoapType& operator()(const std::vector<unsigned int>& index) const;
    /// The item at an index of several numbers in braces, `array({1, 2})`, made if need be; the
    /// shape is not checked. One number in braces is a position.
    template <std::size_t Axes>
    requires(Axes > 1) TzSoapType& operator()(const unsigned int (&index)[Axes]) {
        return (*this)(std::vector<unsigned int>(index, index + Axes));
    }
    /// The item at an index in braces, a substitute if it is missing; the shape is not checked.
    template <std::size_t Axes>
    requires(Axes > 1) const TzSoapType& operator()(const unsigned int (&index)[Axes]) const {
        return (*this)(std::vector<unsigned int>(index, index + Axes));
    }
    /// The item at an index as text, made if need be; `TzXmlBadArgError` BAD_INDEX_STRING for other
    /// texts. The shape is not checked.
    TzSoapType& operator()(const TzCString& index);
    /// The item at an index as text, a substitute if it is missing; the shape is not checked.
    const TzSoapType& operator()(const TzCString& index) const;

    /// Whether an open leftmost axis is written as "0"; false unless set.
    bool getSizeShouldBeEncoded() const;
    /// Sets whether an open leftmost axis is written as "0".
    void setSizeShouldBeEncoded(bool encoded);
    /// The lower index of each axis, valid until the array changes.
    const std::vector<unsigned int>& getStartIndex() const;
    /// The offset that is written, empty when none was set; valid until the array changes.
    const std::vector<unsigned int>& getOffsetIndex() const;
    /// The offset that is written, as text of `version`; "" when none was set or all of it is 0.
    TzCString getOffsetAttribute(TzSoapVersion::Version version) const;
    /// Sets the offset: the index of the first item that is written.
    void setOffset(const std::vector<unsigned int>& offset);
    /// Sets the offset to an index as text; `TzXmlBadArgError` BAD_INDEX_STRING for any other text.
    void setOffset(const TzCString& offset);
    /// Sets the offset to an index in braces, such as `setOffset({0, 1})`.
    template <std::size_t Axes> void setOffset(const unsigned int (&offset)[Axes]) {
        setOffset(std::vector<unsigned int>(offset, offset + Axes));
    }
    /// How many items are written at most; 0, the default, for all.
    unsigned int getCountElementsToWrite() const;
    /// Sets how many items are written at most, 0 for all.
    void setCountElementsToWrite(unsigned int count);

    /// The position of an index; `TzXmlBoundsError` INDEX_RANGE_VEC outside of the shape. O(axes).
    unsigned int indexToLinear(const std::vector<unsigned int>& index) const;
    /// The index of a position; `TzXmlBoundsError` INDEX_RANGE_VEC beyond the shape. O(axes).
    std::vector<unsigned int> linearToIndex(unsigned int position) const;
    /// The index that a text such as "[2,3]" or "2 3" states; `TzXmlBadArgError` BAD_INDEX_STRING
    /// for any other text. O(text).
    static std::vector<unsigned int> stringToVector(const TzCString& text);
    /// An index or bounds as text of `version`; a leftmost 0 as digit or as the mark of an open
    /// axis.
    static TzCString vectorToString(const std::vector<unsigned int>& vector, bool zeroAsDigit,
                                    TzSoapVersion::Version version);

protected:
    /// A handle to `body`, which may be null.
    explicit TzSoapArrayType(TzSoapArrayTypeImp* body) noexcept;
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" for an empty handle.
    TzSoapArrayTypeImp& body() const;

private:
    friend struct TzSoapAccess;

    const TzSoapArrayTypeImp& constBody() const;
};
