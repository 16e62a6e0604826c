// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapCompactItems.h>
#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapExport.h>

#include <cstdint>
#include <vector>

class TzSoapCompactArrayType;

/// Body of a compact array: one item for every position from the start index to the end of the
/// shape, and beyond that for positions that were reached without asking the shape.
///
/// References to items stay valid until the array grows beyond its positions or takes other bounds.
/// Up to `TzSoapCompactItems::BlockLimit` positions all items are in one block of memory, and
/// constant operations, iterating included, change nothing: several threads may call them at once.
/// Longer arrays take memory for the items that were reached; `begin` and `end` make one block of
/// them, constant or not, which moves the items and needs the array for one thread. An array that
/// was read without members takes memory for its positions when it is first iterated or changed.
/// Growth is counted as if all positions were stored. Only the reference count is locked.
class TZSOAP_API TzSoapCompactArrayImp : public TzSoapArrayTypeImp {
public:
    /// An array with one axis, without items beside placeholders. Errors as for the base.
    TzSoapCompactArrayImp(TzXmlName name, TzCString elementType, unsigned int size,
                          unsigned int start);
    /// An array of a shape. Errors as for the base.
    TzSoapCompactArrayImp(TzXmlName name, TzCString elementType, Index bounds, Index start);
    /// An array of a shape given as text. Errors as for the base.
    TzSoapCompactArrayImp(TzXmlName name, TzCString elementType, const TzCString& bounds,
                          const TzCString& start);
    /// Copies shape and items; the values are shared. O(items reached).
    TzSoapCompactArrayImp(const TzSoapCompactArrayImp& other);
    /// A copy with other bounds: items keep their index or are dropped. Errors as for `setBounds`.
    TzSoapCompactArrayImp(const TzSoapCompactArrayImp& other, const Index& newBounds);
    TzSoapCompactArrayImp& operator=(const TzSoapCompactArrayImp&) = delete;
    ~TzSoapCompactArrayImp() override;

    /// The array that a reading starts, `size` being its shape as text, "" for one open axis.
    /// Its positions are taken from what the context's text may still leave unfilled;
    /// `TzXmlBoundsError` BAD_INDEX_VECTOR naming the largest bound when that is not enough, before
    /// memory is taken. Further errors as for the constructors.
    static TzSoapCompactArrayType forReading(const TzXmlName& name, const TzCString& elementType,
                                             const TzCString& size, TzSoapParseContext& context);
    /// The array that a reading met without members, `size` as text: accepts any shape, because
    /// its positions take no memory. Errors as for the constructors.
    static TzSoapCompactArrayType
    withoutMembers(const TzXmlName& name, const TzCString& elementType, const TzCString& size);

    /// A new body with a copy of the shape and shared values. O(items reached).
    TzSoapElementImp* clone() const override;
    /// Takes a member that was read.
    void takeChild(TzSoapType&& child) override;
    /// False.
    bool isSparse() const override;
    /// True.
    bool isCompact() const override;
    /// Number of items, placeholders included.
    unsigned int entries() const override;
    /// The item at a position; positions after the last item are added block by block up to it.
    /// `TzXmlBoundsError`: INDEX_RANGE_VEC before the start index, BAD_INDEX_VECTOR for more items
    /// than 32 bits count.
    TzSoapType& elementAt(unsigned int position) override;
    /// The item at a position, the placeholder after the last item. `TzXmlBoundsError`
    /// INDEX_RANGE_VEC before the start index.
    const TzSoapType& elementAt(unsigned int position) const override;
    /// The item at an index; as for its position.
    TzSoapType& elementAt(const Index& index) override;
    /// The item at an index; as for its position.
    const TzSoapType& elementAt(const Index& index) const override;

    /// The positions that hold an item, placeholders left out, in order. O(items reached).
    std::vector<unsigned int> assignedPositions() const;
    /// The first of all items, as one block; valid until the array grows or takes other bounds.
    const TzSoapDefaultType* begin() const;
    /// One past the last of all items; validity as for `begin`.
    const TzSoapDefaultType* end() const;
    /// The first of all items, as one block; valid until the array grows or takes other bounds.
    TzSoapDefaultType* begin();
    /// One past the last of all items; validity as for `begin`.
    TzSoapDefaultType* end();
    /// The items that may be assigned, in order: those left out were never reached. Takes no
    /// memory.
    TzSoapCompactItems::Range storedItems() const noexcept { return items_.stored(); }
    /// The items to write, in order: from the offset on, placeholders at the end left out, at most
    /// as many as `getCountElementsToWrite` says. O(placeholders at the end that were reached).
    /// Takes no memory.
    TzSoapCompactItems::Range itemsToWrite() const;

protected:
    /// Installs bounds; items keep their index or are dropped, all other positions hold the
    /// placeholder. On an open axis every old position that fits is reached.
    /// `TzXmlBoundsError`: INDEX_RANGE_VEC for an item whose position exceeds 32 bits,
    /// BAD_INDEX_VECTOR for more items than 32 bits count. O(items reached).
    void doSetBounds(const Index& bounds) override;
    /// Puts a member at its position and settles with the context what it leaves unfilled.
    void place(std::uint64_t position, TzSoapType&& member, TzSoapParseContext* context) override;

private:
    friend struct TzSoapAccess;

    TzSoapCompactArrayImp(const TzXmlName& name, const TzCString& elementType, const Index& bounds);

    void initialize();
    void prepare();
    Index namedBy(unsigned int position) const;
    std::uint64_t offsetOf(unsigned int position) const;
    void expandIfNeeded(unsigned int position);
    TzSoapDefaultType& slot(unsigned int position);
    const TzSoapType& storedOrPlaceholder(unsigned int position) const;
    bool isVacant(const TzSoapType& item) const;
    void settle(unsigned int position, TzSoapParseContext& context) const;
    bool takeNext(TzSoapType& member);

    TzSoapCompactItems items_; // of the positions from the base on
    std::uint64_t base_ = 0;   // position of the start index
    std::uint64_t block_ = 0;  // positions from there to the end of the shape
    unsigned int growCount_ = 0;
};
