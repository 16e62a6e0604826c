// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapGenericTypeHandler.h>
#include <soap/TzSoapTypeImp.h>
#include <soap/TzSoapValueList.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

/// Body of a composite value: an ordered list of child values, names may repeat. Reads its own
/// children while its element is open. Only the reference count is locked.
class TZSOAP_API TzSoapCompositeTypeImp : public TzSoapTypeImp, public TzSoapGenericTypeHandler {
public:
    /// Position of a child; valid until that child is removed.
    using iterator = TzSoapValueList::iterator;
    /// Position of a child; valid until that child is removed.
    using const_iterator = TzSoapValueList::const_iterator;

    /// A composite without name and children.
    TzSoapCompositeTypeImp();
    /// A composite named `name` without children.
    explicit TzSoapCompositeTypeImp(TzXmlName name);
    /// Copies the element; the children are shared with `other`. The count starts anew.
    TzSoapCompositeTypeImp(const TzSoapCompositeTypeImp& other);
    TzSoapCompositeTypeImp& operator=(const TzSoapCompositeTypeImp& other) = default;
    ~TzSoapCompositeTypeImp() override = default;

    /// `Composite`.
    TzSoapContentBase::SoapTypeId getSoapTypeId() const override;
    /// "Composite".
    const TzCString& getSoapTypeIdAsString() const override;
    /// A new body with the same name and attributes whose list refers to the same children.
    /// O(children).
    TzSoapElementImp* clone() const override;

    /// The children.
    TzSoapValueList& children() noexcept { return children_; }
    /// The children.
    const TzSoapValueList& children() const noexcept { return children_; }
    /// Number of children.
    unsigned int childCount() const noexcept { return children_.size(); }
    /// The first child.
    iterator childrenBegin() noexcept { return children_.begin(); }
    /// The first child.
    const_iterator childrenBegin() const noexcept { return children_.begin(); }
    /// One past the last child.
    iterator childrenEnd() noexcept { return children_.end(); }
    /// One past the last child.
    const_iterator childrenEnd() const noexcept { return children_.end(); }
    /// Adds a child at the end.
    void appendChild(const TzSoapType& child) { children_.append(child); }
    /// Adds a child at the front.
    void prependChild(const TzSoapType& child) { children_.prepend(child); }
    /// Adds a child before `position`; returns its position.
    iterator insertChild(iterator position, const TzSoapType& child) {
        return children_.insert(position, child);
    }
    /// Removes a child; returns the position after it.
    iterator removeChild(iterator position) { return children_.remove(position); }
    /// Removes the first child of that name, if any. O(children).
    void removeChild(const TzXmlName& name) { children_.remove(name); }
    /// Removes all children of that name. O(children).
    void removeAllChildren(const TzXmlName& name) { children_.removeAll(name); }
    /// Removes all children. O(children).
    void clearChildren() noexcept { children_.clear(); }
    /// The first child of that name, `childrenEnd()` if absent. O(children).
    iterator findChild(const TzXmlName& name) { return children_.find(name); }
    /// The first child of that name, `childrenEnd()` if absent. O(children).
    const_iterator findChild(const TzXmlName& name) const { return children_.find(name); }

    /// Takes a child that was read: appends it.
    void addChild(const TzSoapType& child) override;
    /// Takes a child that was read: appends it.
    void takeChild(TzSoapType&& child) override;
    /// Text beside the children: kept in a literal message, left out otherwise.
    void characters(const TzCString& text) override;
    /// Starts reading at the first child's start tag; the composite's own name and attributes are
    /// there already.
    void doStart(const TzXmlName& childName, const TzXmlAttributeSet& childAttributes,
                 TzSoapParseContext* context);
    /// Starts reading at the composite's own start tag: takes its name and adds its attributes.
    void populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                  TzSoapParseContext* context);

private:
    TzSoapValueList children_;
};
