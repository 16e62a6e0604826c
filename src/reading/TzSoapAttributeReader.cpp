// SPDX-License-Identifier: MIT
// The operations of the utilities that take the attributes of a start tag apart.
#include <soap/TzSoapUtils.h>

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapElementImp.h>
#include <soap/TzSoapParseContext.h>
#include <tz/xml/TzXmlAttributeSet.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapBooleanText.h"
#include "model/TzSoapVersionTable.h"
#include "reading/TzSoapReadingState.h"

#include <algorithm>
#include <utility>

namespace {

/// The first of `attributes` that states a type, null when none does.
const TzXmlAttribute* findType(const TzXmlAttributeSet& attributes) {
    for (const TzXmlAttribute& attribute : attributes) {
        if (TzSoapAttributeSet::matchTypeAttributeName(attribute.getName())) {
            return &attribute;
        }
    }
    return nullptr;
}

/// The encodingStyle among the `attributes` of a block named `name`, that of the latest version
/// that states one; null without.
const TzXmlAttribute* findEncodingStyle(const TzXmlName& name,
                                        const TzXmlAttributeSet& attributes) {
    const auto find = [&attributes](TzSoapVersion::Version version) {
        const auto* found = attributes.find(
            TzSoapVersion::getSoapAttributeName(TzSoapVersion::EncodingStyle, version));
        return found == attributes.end() ? nullptr : found;
    };
    for (const TzSoapVersion::Version version : TzSoapVersionTable::Supported) {
        if (const TzXmlAttribute* const found = find(version)) {
            return found;
        }
    }
    // Only blocks of a version that is not supported by default can state its style.
    TzSoapVersion::Version own{};
    return TzSoapVersion::isKnownVersion(name.getNamespace(), own) ? find(own) : nullptr;
}

/// The name that `text` spells, its prefix resolved if `context` is not null.
TzXmlName resolve(std::string_view text, TzSoapParseContext* context) {
    return context != nullptr ? TzSoapAccess::reading(*context).resolveName(text) : TzXmlName(text);
}

/// Adds attributes that another set held, where no two have one name.
class AttributeAdder {
public:
    explicit AttributeAdder(TzSoapAttributeSet& set) : set_(set), fresh_(set.empty()) {}

    /// Copies a `const` attribute and moves any other.
    template <typename Attribute> void add(Attribute& attribute) {
        if (fresh_) {
            set_.append(std::move(attribute));
        } else {
            set_.add(std::move(attribute));
        }
    }

private:
    TzSoapAttributeSet& set_;
    bool fresh_;
};

/// Gives the attributes of a start tag to an element.
class AttributeReader {
public:
    AttributeReader(TzSoapElementImp& element, TzSoapParseContext* context)
        : element_(element), context_(context), others_(element.getAttributeSet()),
          version_(context != nullptr ? context->getVersion() : TzSoapVersion::getLatestVersion()) {
    }

    /// `Attributes` may be const: what is kept is copied then, otherwise moved.
    template <typename Attributes> void read(Attributes& attributes) {
        const TzXmlAttribute* type = nullptr;
        for (auto& attribute : attributes) {
            if (TzSoapAttributeSet::matchTypeAttributeName(attribute.getName())) {
                type = &attribute;
            } else if (!takeProperty(attribute)) {
                others_.add(attribute);
            }
        }
        // Last, because the declarations among the others may bind its prefix.
        if (type != nullptr) {
            element_.setTypeAttribute(resolve(type->getValue(), context_));
        }
    }

private:
    bool is(const TzXmlAttribute& attribute, TzSoapVersion::SoapAttribute kind) const {
        return TzSoapVersion::matchSoapAttributeName(attribute.getName(), kind, version_);
    }

    /// Makes an attribute that SOAP defines a property of the element; false for any other one.
    bool takeProperty(const TzXmlAttribute& attribute) {
        if (attribute.getName().getUri().empty() || attribute.isNamespaceDeclaration()) {
            return false;
        }
        if (is(attribute, TzSoapVersion::MustUnderstand)) {
            element_.setMustUnderstand(tzSoapIsTrue(attribute.getValue()));
        } else if (is(attribute, TzSoapVersion::EncodingStyle)) {
            element_.setEncodingStyle(attribute.getValue());
        } else if (is(attribute, TzSoapVersion::Actor)) {
            element_.setActor(attribute.getValue());
        } else if (is(attribute, TzSoapVersion::Root)) {
            element_.setRoot(tzSoapIsTrue(attribute.getValue()));
        } else {
            return false;
        }
        return true;
    }

    TzSoapElementImp& element_;
    TzSoapParseContext* context_;
    AttributeAdder others_;
    TzSoapVersion::Version version_;
};

} // namespace

void TzSoapUtils::removeAndFixArrayTypeAttributes(TzSoapElementImp* array,
                                                  TzSoapVersion::Version version) {
    TzSoapAttributeSet& attributes = array->getAttributeSet();
    if (const TzCString offset = attributes.getOffsetAttribute(); !offset.empty()) {
        attributes.removeOffsetAttribute();
        auto& body = static_cast<TzSoapArrayTypeImp&>(*array);
        TzSoapArrayTypeImp::Index index = TzSoapArrayTypeImp::stringToVector(offset, false);
        // Axes that the text does not name begin at 0.
        index.resize(std::max<std::size_t>(index.size(), body.getDimension()));
        body.setOffset(index);
    }
    attributes.removeArrayTypeAttribute();
    for (const auto kind : {TzSoapVersion::ItemType, TzSoapVersion::ArraySize}) {
        attributes.erase(TzSoapVersion::getSoapAttributeName(kind, version));
    }
}

void TzSoapUtils::copyAttributes(const TzXmlAttributeSet& attributes, TzSoapElementImp& element,
                                 TzSoapParseContext* context) {
    AttributeReader(element, context).read(attributes);
}

void TzSoapUtils::copyAttributes(TzXmlAttributeSet&& attributes, TzSoapElementImp& element,
                                 TzSoapParseContext* context) {
    AttributeReader(element, context).read(attributes);
}

const TzCString* TzSoapUtils::beginElement(TzSoapElementImp& element, const TzXmlName& name,
                                           const TzXmlAttributeSet& attributes) {
    element.setName(name);
    // Skip encodingStyle here: erasing it later is O(attributes).
    // The element keeps it as its style instead.
    const TzXmlAttribute* style = findEncodingStyle(name, attributes);
    const bool stated = style != nullptr && !style->getValue().empty();
    TzSoapAttributeSet& others = element.getAttributeSet();
    // Reserve once: exact reserves for every repeated element would reallocate
    // each time.
    if (const std::size_t count = attributes.size() - (stated ? 1 : 0);
        others.empty() && count > 0) {
        others.reserve(count);
    }
    AttributeAdder adder(others);
    for (const TzXmlAttribute& attribute : attributes) {
        if (!stated || &attribute != style) {
            adder.add(attribute);
        }
    }
    if (stated) {
        element.setEncodingStyle(style->getValue());
    }
    return style == nullptr ? nullptr : &style->getValue();
}

TzXmlName TzSoapUtils::getTypeValue(const TzXmlAttributeSet& attributes,
                                    TzSoapParseContext* context) {
    const TzXmlAttribute* type = findType(attributes);
    if (type == nullptr) {
        return {};
    }
    TzXmlName name = resolve(type->getValue(), context);
    if (name.getUri().empty()) {
        const auto* declared = attributes.findDeclaration(name.getPrefix());
        if (declared != attributes.end()) {
            name.setNamespace(declared->declaredNamespace());
        }
    }
    return name;
}
