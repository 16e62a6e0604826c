// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapExport.h>

#include <cstdint>
#include <span>
#include <vector>

class TzSoapCompactArrayType;

/// Body of a compact array: one item for every position from the start index to the end of the
/// shape, and beyond that for positions that were reached without asking the shape.
///
/// Memory is taken for the positions that were reached only: those before and behind them hold the
/// placeholder without being stored. Growth is counted as if they were. Only the reference count is
/// locked.
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
    /// Copies shape and items; the values are shared. O(items stored).
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

    /// A new body with the same shape and items; the values are shared. O(items stored).
    TzSoapElementImp* clone() const override;
    /// Takes a member that was read.
    void takeChild(TzSoapType&& child) override;
    /// False.
    bool isSparse() const override;
    /// True.
    bool isCompact() const override;
    /// Number of items, placeholders included.
    unsigned int entries() const override;
    /// The item at a position; positions behind the last item are added block by block up to it.
    /// `TzXmlBoundsError`: INDEX_RANGE_VEC before the start index, BAD_INDEX_VECTOR for more items
    /// than 32 bits count.
    TzSoapType& elementAt(unsigned int position) override;
    /// The item at a position, the placeholder behind the last item. `TzXmlBoundsError`
    /// INDEX_RANGE_VEC before the start index.
    const TzSoapType& elementAt(unsigned int position) const override;
    /// The item at an index; as for its position.
    TzSoapType& elementAt(const Index& index) override;
    /// The item at an index; as for its position.
    const TzSoapType& elementAt(const Index& index) const override;

    /// `bcat` that needs no call for the stored items of two axes.
    TzSoapType& reach(const Index& index) {
        const std::uint64_t at = positionInMatrix(index) - first_;
        return at < items_.size() ? items_[at] : elementAt(index);
    }
    /// `bcat` that needs no call for the stored items of two axes.
    const TzSoapType& reach(const Index& index) const {
        const std::uint64_t at = positionInMatrix(index) - first_;
        return at < items_.size() ? items_[at] : elementAt(index);
    }
    /// `at` that needs no call for the stored items of two axes.
    TzSoapType& reachWithin(const Index& index) {
        const std::uint64_t at = positionWithinMatrix(index) - first_;
        return at < items_.size() ? items_[at] : TzSoapArrayTypeImp::at(index);
    }
    /// `at` that needs no call for the stored items of two axes.
    const TzSoapType& reachWithin(const Index& index) const {
        const std::uint64_t at = positionWithinMatrix(index) - first_;
        return at < items_.size() ? items_[at] : TzSoapArrayTypeImp::at(index);
    }

    /// The first of all items, which are stored from now on; valid until the array changes.
    const TzSoapDefaultType* begin() const;
    /// Behind the last of all items, which are stored from now on.
    const TzSoapDefaultType* end() const;
    /// The first of all items, which are stored from now on; valid until the array changes.
    TzSoapDefaultType* begin();
    /// Behind the last of all items, which are stored from now on.
    TzSoapDefaultType* end();
    /// The items that are stored: all but placeholders at both ends. Takes no memory.
    std::span<const TzSoapDefaultType> storedItems() const noexcept { return items_; }
    /// The items to write, in order: from the offset on, placeholders at the end left out, at most
    /// as many as `getCountElementsToWrite` says. O(placeholders at the end), and stores those
    /// between the offset and the first stored item.
    std::span<const TzSoapDefaultType> itemsToWrite() const;

protected:
    /// Installs bounds; items keep their index or are dropped, all other positions hold the
    /// placeholder. On an open axis every old position that fits counts as reached.
    /// `TzXmlBoundsError`: INDEX_RANGE_VEC for an item whose position exceeds 32 bits,
    /// BAD_INDEX_VECTOR for more items than 32 bits count. O(items stored).
    void doSetBounds(const Index& bounds) override;
    /// Puts a member at its position and settles with the context what it leaves unfilled.
    void place(unsigned int position, TzSoapType&& member, TzSoapParseContext* context) override;

private:
    void initialize();
    Index namedBy(unsigned int position) const;
    std::uint64_t offsetOf(unsigned int position) const;
    void expandIfNeeded(unsigned int position);
    void settle(unsigned int position, TzSoapParseContext& context) const;
    TzSoapDefaultType* findStored(std::uint64_t position) const noexcept;
    TzSoapDefaultType& slot(unsigned int position);
    const TzSoapType& storedOrPlaceholder(unsigned int position) const;
    void store(std::uint64_t from, std::uint64_t to) const;
    void append(unsigned int position, TzSoapType&& member);

    mutable std::vector<TzSoapDefaultType> items_; // a run of positions, placeholders around it
    mutable std::uint64_t first_ = 0;              // position of the first stored item
    std::uint64_t base_ = 0;                       // position of the start index
    std::uint64_t block_ = 0;                      // positions from there to the end of the shape
    std::uint64_t size_ = 0;                       // number of items, stored or not
    unsigned int growCount_ = 0;
};
