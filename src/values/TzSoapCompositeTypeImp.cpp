// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompositeTypeImp.h>

#include <soap/TzSoapUtils.h>

#include <algorithm>
#include <utility>

namespace {

/// Position of the first of `children` that has that name, whichever kind of position is wanted.
template <typename Position>
Position firstNamed(Position begin, Position end, const TzXmlName& name) {
    return std::find_if(begin, end,
                        [&name](const TzSoapType& child) { return child.getName() == name; });
}

} // namespace

TzSoapCompositeTypeImp::TzSoapCompositeTypeImp() = default;

TzSoapCompositeTypeImp::TzSoapCompositeTypeImp(TzXmlName name) : TzSoapTypeImp(std::move(name)) {}

TzSoapCompositeTypeImp::TzSoapCompositeTypeImp(const TzSoapCompositeTypeImp& other) = default;

TzSoapCompositeTypeImp::~TzSoapCompositeTypeImp() = default;

TzSoapContentBase::SoapTypeId TzSoapCompositeTypeImp::getSoapTypeId() const {
    return TzSoapContentBase::Composite;
}

const TzCString& TzSoapCompositeTypeImp::getSoapTypeIdAsString() const {
    return TzSoapUtils::compositeString;
}

TzSoapElementImp* TzSoapCompositeTypeImp::clone() const {
    return new TzSoapCompositeTypeImp(*this);
}

unsigned int TzSoapCompositeTypeImp::childCount() const noexcept {
    return static_cast<unsigned int>(children_.size());
}

void TzSoapCompositeTypeImp::appendChild(const TzSoapType& child) { children_.push_back(child); }

void TzSoapCompositeTypeImp::prependChild(const TzSoapType& child) { children_.push_front(child); }

TzSoapCompositeTypeImp::iterator TzSoapCompositeTypeImp::insertChild(iterator position,
                                                                     const TzSoapType& child) {
    return children_.insert(position, child);
}

TzSoapCompositeTypeImp::iterator TzSoapCompositeTypeImp::removeChild(iterator position) {
    return children_.erase(position);
}

void TzSoapCompositeTypeImp::removeChild(const TzXmlName& name) {
    if (const iterator found = findChild(name); found != children_.end()) {
        children_.erase(found);
    }
}

void TzSoapCompositeTypeImp::removeAllChildren(const TzXmlName& name) {
    // The name may be that of a child: all of them live until the walk is over.
    Children removed;
    for (iterator child = findChild(name); child != children_.end();) {
        const iterator next = std::next(child);
        removed.splice(removed.end(), children_, child);
        child = firstNamed(next, children_.end(), name);
    }
}

void TzSoapCompositeTypeImp::clearChildren() noexcept { children_.clear(); }

TzSoapCompositeTypeImp::iterator TzSoapCompositeTypeImp::findChild(const TzXmlName& name) {
    return firstNamed(children_.begin(), children_.end(), name);
}

TzSoapCompositeTypeImp::const_iterator
TzSoapCompositeTypeImp::findChild(const TzXmlName& name) const {
    return firstNamed(children_.begin(), children_.end(), name);
}

void TzSoapCompositeTypeImp::addChild(const TzSoapType& child) { appendChild(child); }

void TzSoapCompositeTypeImp::doStart(const TzXmlName& childName,
                                     const TzXmlAttributeSet& childAttributes,
                                     TzSoapParseContext* context) {
    open(*this, context, nullptr);
    startElement(childName, childAttributes);
}

void TzSoapCompositeTypeImp::populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                                      TzSoapParseContext* context) {
    const auto style = TzSoapUtils::beginElement(*this, name, attributes);
    open(*this, context, style ? &*style : nullptr);
}
