// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapGenericTypeHandler.h>
#include <soap/TzSoapMadeOnce.h>
#include <soap/TzSoapTypeImp.h>
#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

/// Body of an array: its item type and its shape. Derived bodies hold the items; this one holds
/// none and refuses to reach them. Reads its own members while its element is open.
///
/// A shape has one bound for each axis, leftmost first; a leftmost bound of 0 is open. Positions
/// are counted row by row, the rightmost axis fastest, and from 0 whatever the start index. What
/// exceeds 32 bits is an error. An operation that throws leaves the array as it was. Only the
/// reference count is locked.
class TZSOAP_API TzSoapArrayTypeImp : public TzSoapTypeImp, public TzSoapGenericTypeHandler {
public:
    /// One entry for each axis.
    using Index = std::vector<unsigned int>;
    /// The largest position.
    static constexpr std::uint64_t Largest = std::numeric_limits<unsigned int>::max();

    TzSoapArrayTypeImp& operator=(const TzSoapArrayTypeImp&) = delete;
    ~TzSoapArrayTypeImp() override;

    /// `Array`.
    TzSoapContentBase::SoapTypeId getSoapTypeId() const override;
    /// "Array".
    const TzCString& getSoapTypeIdAsString() const override;
    /// A new body with a copy of the shape; derived bodies share their items with it.
    TzSoapElementImp* clone() const override;
    /// Whether only positions that were given an item hold one; false here.
    virtual bool isSparse() const;
    /// Whether every position holds an item; false here.
    virtual bool isCompact() const;
    /// Number of items; 0 here.
    virtual unsigned int entries() const;

    /// The item at a position, made if need be. Here `TzXmlDomainError` ILLEGAL_ARRAY "operator[]",
    /// as are all four.
    virtual TzSoapType& elementAt(unsigned int position);
    /// The item at a position, a substitute if it is missing.
    virtual const TzSoapType& elementAt(unsigned int position) const;
    /// The item at an index, made if need be.
    virtual TzSoapType& elementAt(const Index& index);
    /// The item at an index, a substitute if it is missing.
    virtual const TzSoapType& elementAt(const Index& index) const;

    /// `elementAt` for a position within the shape; `TzXmlBoundsError` INDEX_RANGE_VEC beyond it.
    TzSoapType& at(unsigned int position);
    /// `elementAt` for a position within the shape; `TzXmlBoundsError` INDEX_RANGE_VEC beyond it.
    const TzSoapType& at(unsigned int position) const;
    /// `elementAt` for an index within the shape; `TzXmlBoundsError` INDEX_RANGE_VEC outside.
    TzSoapType& at(const Index& index);
    /// `elementAt` for an index within the shape; `TzXmlBoundsError` INDEX_RANGE_VEC outside.
    const TzSoapType& at(const Index& index) const;
    /// `at` for an index as text; `TzXmlBadArgError` BAD_INDEX_STRING for any other text.
    TzSoapType& at(const TzCString& index);
    /// `at` for an index as text; `TzXmlBadArgError` BAD_INDEX_STRING for any other text.
    const TzSoapType& at(const TzCString& index) const;
    /// `elementAt` without the check of the shape.
    TzSoapType& bcat(unsigned int position) { return elementAt(position); }
    /// `elementAt` without the check of the shape.
    const TzSoapType& bcat(unsigned int position) const { return elementAt(position); }
    /// `elementAt` without the check of the shape.
    TzSoapType& bcat(const Index& index) { return elementAt(index); }
    /// `elementAt` without the check of the shape.
    const TzSoapType& bcat(const Index& index) const { return elementAt(index); }
    /// `bcat` for an index as text; `TzXmlBadArgError` BAD_INDEX_STRING for any other text.
    TzSoapType& bcat(const TzCString& index);
    /// `bcat` for an index as text; `TzXmlBadArgError` BAD_INDEX_STRING for any other text.
    const TzSoapType& bcat(const TzCString& index) const;

    /// The item type as a qualified name such as "xsd:int".
    const TzCString& getElementType() const noexcept { return elementType_; }
    /// Replaces the item type.
    void setElementType(TzCString elementType) noexcept { elementType_ = std::move(elementType); }
    /// Number of axes.
    unsigned int getDimension() const noexcept { return static_cast<unsigned int>(bounds_.size()); }
    /// The size of each axis.
    const Index& getBounds() const noexcept { return bounds_; }
    /// The bounds as text of `version`.
    TzCString getBoundsAsString(TzSoapVersion::Version version) const;
    /// Item type and bounds as SOAP 1.1 writes them, such as "xsd:int[2,3]".
    TzCString getArrayType() const;
    /// Changes the shape. `TzXmlDomainError` ILLEGAL_ARRAY "setBounds" for another number of axes,
    /// `TzXmlBoundsError` BAD_INDEX_VECTOR for no shape.
    void setBounds(const Index& bounds);
    /// Changes the shape to bounds as text; `TzXmlBadArgError` BAD_INDEX_STRING for any other text.
    void setBounds(const TzCString& bounds);
    /// The lower index of each axis.
    const Index& getStartIndex() const noexcept { return startIndex_; }
    /// Whether an open leftmost axis is written as "0"; false unless set.
    bool getSizeShouldBeEncoded() const noexcept { return sizeShouldBeEncoded_; }
    /// Sets whether an open leftmost axis is written as "0".
    void setSizeShouldBeEncoded(bool encoded) noexcept { sizeShouldBeEncoded_ = encoded; }

    using TzSoapTypeImp::getOffsetAttribute;
    /// The offset that is written, as text of `version`; "" when none was set or all of it is 0.
    TzCString getOffsetAttribute(TzSoapVersion::Version version) const;
    /// The offset that is written, empty when none was set.
    const Index& getOffsetIndex() const noexcept { return offset_; }
    /// Whether an offset was set.
    bool hasOffset() const noexcept { return offsetSet_; }
    /// Sets the offset: the index of the first item that is written, and of the first member read.
    void setOffset(const Index& offset);
    /// Sets the offset to an index as text; `TzXmlBadArgError` BAD_INDEX_STRING for any other text.
    void setOffset(const TzCString& offset);
    /// How many items are written at most; 0, the default, for all.
    unsigned int getCountElementsToWrite() const noexcept { return countElementsToWrite_; }
    /// Sets how many items are written at most, 0 for all.
    void setCountElementsToWrite(unsigned int count) noexcept { countElementsToWrite_ = count; }
    /// The placeholder that stands for positions without an item; one for the array and its copies.
    const TzSoapDefaultType& getDefaultValue() const;

    /// The position of an index. `TzXmlBoundsError` INDEX_RANGE_VEC outside of the shape, which
    /// `noCheck` lets pass unless the position exceeds 32 bits: then missing axes count as 0 and
    /// surplus ones are ignored. O(axes).
    unsigned int indexToLinear(const Index& index, bool noCheck) const;
    /// The index of a position; unless `noCheck`, `TzXmlBoundsError` INDEX_RANGE_VEC beyond the
    /// shape. O(axes).
    Index linearToIndex(unsigned int position, bool noCheck) const;
    /// Whether the index lies within the shape; if not, `TzXmlBoundsError` INDEX_RANGE_VEC when
    /// `throwOnFailure`. O(axes).
    bool boundsCheck(const Index& index, bool throwOnFailure) const;
    /// Computes the distance of neighbours on each axis, unless that is done already, as it is
    /// after construction and each change of bounds. O(axes).
    void initializeStep();

    /// The index or the bounds that a text such as "[2,3]" or "2 3" states; in bounds mode the
    /// first entry may be open. `TzXmlBadArgError` BAD_INDEX_STRING for any other text. O(text).
    static Index stringToVector(const TzCString& text, bool boundsMode);
    /// The vector of a text of SOAP 1.2 such as "2 3" or "* 3"; the mode makes no difference.
    static Index stringToVectorForLatestVersion(const TzCString& text, bool boundsMode);
    /// An index or bounds as text of `version`; a leftmost 0 as digit or as the mark of an open
    /// axis.
    static TzCString vectorToString(const Index& vector, bool zeroAsDigit,
                                    TzSoapVersion::Version version);
    /// An index or bounds as SOAP 1.2 writes them.
    static TzCString vectorToStringForLatestVersion(const Index& vector, bool zeroAsDigit);
    /// The sum of steps times entries, missing entries counting as 0 and surplus ones not at all;
    /// some number above `Largest` when it exceeds that. O(axes).
    static std::uint64_t linear(const Index& index, const Index& step) noexcept {
        const std::size_t axes = std::min(index.size(), step.size());
        std::uint64_t sum = 0;
        for (std::size_t axis = 0; axis < axes && sum <= Largest; ++axis) {
            // Neither factor nor the sum so far exceeds 32 bits, so 64 bits hold the next sum.
            sum += std::uint64_t{step[axis]} * index[axis];
        }
        return sum;
    }
    /// Number of positions: the product of the bounds, an open leftmost axis left out; 0 for {0}
    /// and without axes. `TzXmlBoundsError` BAD_INDEX_VECTOR for a 0 on another axis and for a
    /// product beyond 32 bits.
    static unsigned int allocSizeOf(const Index& bounds);
    /// Whether an offset says nothing: no entry but 0.
    static bool isDefaultOffset(const Index& offset) noexcept;
    /// Whether `value` refers to a placeholder, as positions never assigned do.
    static bool isPlaceholder(const TzSoapType& value);

    /// Takes a member that was read: puts it at the index that its position attribute states, which
    /// is removed from it, and otherwise after the member before, the first one at the offset.
    /// `TzXmlBadArgError` BAD_INDEX_STRING for an invalid position, `TzXmlBoundsError`
    /// INDEX_RANGE_VEC for one outside of the shape.
    void addChild(const TzSoapType& child) override;
    /// Starts reading at the first member's start tag; the array's own name, attributes and offset
    /// are there already.
    void doStart(const TzXmlName& childName, const TzXmlAttributeSet& childAttributes,
                 TzSoapParseContext* context);

protected:
    /// An array without name, item type and axes.
    TzSoapArrayTypeImp();
    /// An array with one axis. Errors as below.
    TzSoapArrayTypeImp(TzXmlName name, TzCString elementType, unsigned int size,
                       unsigned int start);
    /// An array of a shape; a start that is not 0 is its offset, too. `TzXmlBoundsError`
    /// MISMATCH_BOUNDS for different numbers of axes, MISMATCH_VECTOR for a start beyond its bound,
    /// BAD_INDEX_VECTOR for no shape.
    TzSoapArrayTypeImp(TzXmlName name, TzCString elementType, Index bounds, Index start);
    /// An array of a shape as text; `TzXmlBadArgError` BAD_INDEX_STRING for any other text.
    TzSoapArrayTypeImp(TzXmlName name, TzCString elementType, const TzCString& bounds,
                       const TzCString& start);
    /// Copies element and shape and shares the placeholder.
    TzSoapArrayTypeImp(const TzSoapArrayTypeImp& other);
    /// A copy with other bounds; derived classes call `setBounds` themselves. Errors as there.
    TzSoapArrayTypeImp(const TzSoapArrayTypeImp& other, const Index& newBounds);

    /// Installs bounds that have the right number of axes. `TzXmlBoundsError` BAD_INDEX_VECTOR for
    /// no shape.
    virtual void doSetBounds(const Index& bounds);
    /// Puts a member that was read where it belongs. Errors as for `addChild`.
    void placeNext(TzSoapType&& member);
    /// Puts a member that is read in `context`, null outside of a reading, at a position. Here
    /// `elementAt` takes it; `TzXmlBoundsError` INDEX_RANGE_VEC for a position beyond 32 bits.
    virtual void place(std::uint64_t position, TzSoapType&& member, TzSoapParseContext* context);

    /// Whether a member that states no position follows the one that was read last.
    bool hasCursor() const noexcept { return cursorSet_; }
    /// The position after the member that was read last.
    std::uint64_t cursor() const noexcept { return cursor_; }
    /// A member was put at the cursor.
    void passCursor() noexcept { ++cursor_; }
    /// The placeholder that `getDefaultValue` answers with, made at its first use.
    const TzSoapMadeOnce<TzSoapDefaultType>& placeholder() const noexcept { return defaultValue_; }
    /// The distance of neighbours on each axis.
    const Index& getStep() const noexcept { return step_; }
    /// Throws `TzXmlBoundsError` INDEX_RANGE_VEC for an index.
    [[noreturn]] void throwOutOfRange(const Index& index) const;
    /// Throws `TzXmlBoundsError` BAD_INDEX_VECTOR naming the largest entry of a vector; the detail
    /// says that more positions are left unfilled than `context` allows.
    [[noreturn]] static void throwUnfilled(const Index& vector, const TzSoapParseContext& context);
    /// `position` as 32 bits; `TzXmlBoundsError` INDEX_RANGE_VEC when it needs more.
    unsigned int checkedPosition(std::uint64_t position) const;
    /// The bounds that the size of an array that is read states, one open axis for none.
    static Index boundsFromSize(const TzCString& size);

private:
    void checkPosition(unsigned int position) const;
    std::uint64_t nextPosition(const TzSoapAttributeSet& attributes) const;

    TzCString elementType_;
    Index bounds_;
    Index startIndex_;
    Index step_;
    Index offset_;
    TzSoapMadeOnce<TzSoapDefaultType> defaultValue_;
    std::uint64_t cursor_ = 0; // position after the last member that was read
    unsigned int countElementsToWrite_ = 0;
    bool stepInitialized_ = false;
    bool sizeShouldBeEncoded_ = false;
    bool offsetSet_ = false;
    bool cursorSet_ = false;
};
