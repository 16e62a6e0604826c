// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapMadeOnce.h>
#include <soap/TzSoapSparseItems.h>
#include <soap/TzSoapType.h>

class TzSoapSparseArrayType;

/// Body of a sparse array: items at the indices that were given one, in order of insertion.
///
/// A look-up finds the first item of an index, O(log items), indices that were changed through
/// iterators included; `TzSoapSparseItems` says how. Constant operations may run on several threads
/// at once. Only the reference count is locked.
class TZSOAP_API TzSoapSparseArrayImp : public TzSoapArrayTypeImp {
public:
    /// Index and value, in order of insertion.
    using Items = TzSoapSparseItems;
    /// Position of an item; valid until that item is removed.
    using iterator = Items::iterator;
    /// Position of an item; valid until that item is removed.
    using const_iterator = Items::const_iterator;

    /// An array with one axis, without items. Errors as for the base.
    TzSoapSparseArrayImp(TzXmlName name, TzCString elementType, unsigned int size);
    /// An array of a shape given as text. Errors as for the base.
    TzSoapSparseArrayImp(TzXmlName name, TzCString elementType, const TzCString& bounds);
    /// An array of a shape. Errors as for the base.
    TzSoapSparseArrayImp(TzXmlName name, TzCString elementType, const Index& bounds);
    /// Copies shape and items; the values are shared, the template too. O(items).
    TzSoapSparseArrayImp(const TzSoapSparseArrayImp& other);
    TzSoapSparseArrayImp& operator=(const TzSoapSparseArrayImp&) = delete;
    ~TzSoapSparseArrayImp() override;

    /// The array that a reading starts, `size` being its shape as text, "" for one open axis.
    /// Errors as for the constructors. Positions without an item take no memory, so any shape is
    /// accepted.
    static TzSoapSparseArrayType forReading(const TzXmlName& name, const TzCString& elementType,
                                            const TzCString& size);

    /// A new body with a copy of the shape and shared values. O(items).
    TzSoapElementImp* clone() const override;
    /// True.
    bool isSparse() const override;
    /// Number of items.
    unsigned int entries() const override;
    /// The item at a position; a copy of the template is added if it is missing.
    TzSoapType& elementAt(unsigned int position) override;
    /// The item at a position, the template if it is missing.
    const TzSoapType& elementAt(unsigned int position) const override;
    /// The item at an index, the first if there are several; a copy of the template is added if
    /// it is missing. The shape is not checked.
    TzSoapType& elementAt(const Index& index) override;
    /// The item at an index, the first if there are several; the template if it is missing.
    const TzSoapType& elementAt(const Index& index) const override;

    /// The first item.
    iterator begin();
    /// One past the last item.
    iterator end();
    /// The first item.
    const_iterator begin() const noexcept { return items_.begin(); }
    /// One past the last item.
    const_iterator end() const noexcept { return items_.end(); }
    /// The size given to the constructor that takes one, 0 for the others.
    unsigned int getSize() const noexcept { return size_; }

    /// Installs bounds and removes the items outside of them; the others keep index and order.
    /// O(items).
    void doSetBounds(const Index& bounds) override;

    /// Ends reading.
    void endElement(const TzXmlName& name) override;

protected:
    /// Puts a member at a position. `TzXmlBoundsError`: INDEX_RANGE_VEC outside of the shape,
    /// BAD_INDEX_VECTOR for an index beyond 32 bits.
    void place(std::uint64_t position, TzSoapType&& member, TzSoapParseContext* context) override;

private:
    const TzSoapType& getTemplate() const { return template_.get(); }

    Items items_;
    TzSoapMadeOnce<TzSoapType> template_;
    unsigned int size_ = 0;
};
