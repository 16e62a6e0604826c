// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapValueList.h>
#include <tz/tools/TzCString.h>

class TzSoapCompositeTypeImp;

/// Handle of a composite value: a struct whose members differ by their element names.
///
/// Several members may have the same name; all stay in the order in which they were added. A
/// composite must not contain itself. Every operation on a handle without a body throws
/// `TzTHRInvalidPointer` "Invalid pointer". Threads: see `TzSoapType`.
class TZSOAP_API TzSoapCompositeType : public TzSoapType {
public:
    /// Position of a child; valid until that child is removed.
    using iterator = TzSoapValueList::iterator;
    /// Position of a child; valid until that child is removed.
    using const_iterator = TzSoapValueList::const_iterator;

    /// A composite without name and children.
    TzSoapCompositeType();
    /// A composite named `name` without children.
    explicit TzSoapCompositeType(const TzXmlName& name);
    TzSoapCompositeType(const TzSoapCompositeType&) noexcept = default;
    TzSoapCompositeType(TzSoapCompositeType&&) noexcept = default;
    TzSoapCompositeType& operator=(const TzSoapCompositeType&) noexcept = default;
    TzSoapCompositeType& operator=(TzSoapCompositeType&&) noexcept = default;
    ~TzSoapCompositeType() override;

    /// A new composite with a copy of name and attributes and a new list that refers to the
    /// same children: a child changed through the copy changes here too. O(children).
    TzSoapCompositeType copy() const;

    /// Number of children.
    unsigned int childCount() const;
    /// The first child.
    iterator childrenBegin();
    /// The first child.
    const_iterator childrenBegin() const;
    /// One past the last child.
    iterator childrenEnd();
    /// One past the last child.
    const_iterator childrenEnd() const;
    /// The first child of all; serves range-based loops.
    iterator begin() { return childrenBegin(); }
    /// The first child of all; serves range-based loops.
    const_iterator begin() const { return childrenBegin(); }
    /// The end of the children.
    iterator end() { return childrenEnd(); }
    /// The end of the children.
    const_iterator end() const { return childrenEnd(); }
    /// Adds a child at the end.
    void appendChild(const TzSoapType& child);
    /// Adds a child at the front.
    void prependChild(const TzSoapType& child);
    /// Adds a child before `position`; returns its position.
    iterator insertChild(iterator position, const TzSoapType& child);
    /// Removes a child; returns the position after it.
    iterator removeChild(iterator position);
    /// Removes the first child of that name, if any. O(children).
    void removeChild(const TzXmlName& name);
    /// Removes all children of that name. O(children).
    void removeAllChildren(const TzXmlName& name);
    /// Removes all children. O(children).
    void clearChildren();
    /// Whether there is text beside the children, white space included: mixed content, which a
    /// literal message reads and writes. Neither positions nor `childCount` see it.
    bool hasText() const;
    /// The text right before the child at `position`, after the last child if that is
    /// `childrenEnd()`; "" without. A value that holds nothing but text is a `TzSoapSimpleType`.
    /// O(log children).
    TzCString getTextBefore(const_iterator position) const;
    /// Replaces that text; "" removes it. A child inserted at a position stands after its text; one
    /// that is removed takes along white space before it, but no other text. O(log children).
    void setTextBefore(const_iterator position, const TzCString& text);
    /// The first child of that name, `childrenEnd()` if absent. O(children).
    iterator findChild(const TzXmlName& name);
    /// The first child of that name, `childrenEnd()` if absent. O(children).
    const_iterator findChild(const TzXmlName& name) const;

protected:
    /// A handle to `body`, which may be null.
    explicit TzSoapCompositeType(TzSoapCompositeTypeImp* body) noexcept;
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" for an empty handle.
    TzSoapCompositeTypeImp& body() const;

private:
    friend struct TzSoapAccess;
};

/// Whether both composites have the same name. Children, attributes and identity are deliberately
/// not compared.
TZSOAP_API bool operator==(const TzSoapCompositeType& left, const TzSoapCompositeType& right);
