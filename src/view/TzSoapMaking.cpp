// SPDX-License-Identifier: MIT
#include <soap/TzSoapMaking.h>

#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFields.h>
#include <soap/TzSoapSimpleType.h>

#include <algorithm>
#include <unordered_map>

namespace {

TzSoapType compositeOf(const TzXmlName& name, const std::vector<TzSoapType>& children) {
    TzSoapCompositeType made(name);
    for (const TzSoapType& child : children) {
        made.appendChild(child);
    }
    return made;
}

} // namespace

/// What was made so far.
struct TzSoapMaking::Names {
    std::unordered_map<const TzSoapFieldRow*, TzXmlName> ofRows;
    std::vector<TzXmlNamespace> namespaces; // of different URIs and prefixes

    TzXmlNamespace find(std::string_view uri);
    bool hasPrefix(std::string_view prefix) const;
};

bool TzSoapMaking::Names::hasPrefix(std::string_view prefix) const {
    return std::any_of(namespaces.begin(), namespaces.end(),
                       [prefix](const TzXmlNamespace& each) { return each.getPrefix() == prefix; });
}

// Declarations are few, because programs make them.
TzXmlNamespace TzSoapMaking::Names::find(std::string_view uri) {
    const auto known =
        std::find_if(namespaces.begin(), namespaces.end(),
                     [uri](const TzXmlNamespace& each) { return each.getUri() == uri; });
    if (known != namespaces.end()) {
        return *known;
    }
    TzCString prefix = "m";
    for (std::size_t i = 2; hasPrefix(prefix); ++i) {
        prefix = 'm' + std::to_string(i);
    }
    return namespaces.emplace_back(prefix, uri);
}

TzSoapMaking::TzSoapMaking(TzSoapStyle style, const TzXmlName& name)
    : style_(style), names_(std::make_unique<Names>()) {
    names_->namespaces.push_back(name.getNamespace());
}

TzSoapMaking::~TzSoapMaking() = default;

void TzSoapMaking::Parts::addAttribute(const TzSoapFieldRow& row, TzCString value) {
    attributes_.emplace_back(making_->nameOf(row), std::move(value));
}

void TzSoapMaking::Parts::setText(TzCString text, TzSoapContentBase::SchemaType type) {
    text_ = std::move(text);
    type_ = type;
}

TzSoapType TzSoapMaking::makeText(const TzXmlName& name, const TzCString& text,
                                  TzSoapContentBase::SchemaType type) const {
    return TzSoapSimpleType(name, text, type, statesTypes());
}

TzSoapType TzSoapMaking::makeNil(const TzXmlName& name) {
    TzSoapSimpleType nil(name, "", TzSoapContentBase::xsdUnknown, false);
    nil.setNull(true);
    return nil;
}

TzSoapType TzSoapMaking::makeList(const TzXmlName& name, std::vector<TzSoapType> items,
                                  TzSoapContentBase::SchemaType type) const {
    if (!statesTypes()) {
        return compositeOf(name, items);
    }
    const TzCString label = type == TzSoapContentBase::xsdUnknown
                                ? TzCString("xsd:anyType")
                                : TzSoapContentBase::schemaTypeLabel(type);
    TzSoapCompactArrayType array(name, label, static_cast<unsigned int>(items.size()), 0U);
    for (std::size_t i = 0; i < items.size(); ++i) {
        array(static_cast<unsigned int>(i)) = items[i];
    }
    return array;
}

TzSoapType TzSoapMaking::makeStruct(const TzXmlName& name, const TzSoapFieldRow* rows,
                                    std::size_t count, const void* object) {
    Parts parts(*this);
    parts.children_.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        rows[i].write(object, rows[i], parts);
    }
    TzSoapType made = parts.text_ ? makeText(name, *parts.text_, parts.type_)
                                  : compositeOf(name, parts.children_);
    for (const auto& [attribute, value] : parts.attributes_) {
        made.addAttribute(attribute, value);
    }
    return made;
}

const TzXmlName& TzSoapMaking::nameOf(const TzSoapFieldRow& row) {
    const auto [at, isNew] = names_->ofRows.try_emplace(&row);
    if (isNew) {
        at->second = nameBeside(row, row.name);
    }
    return at->second;
}

TzXmlName TzSoapMaking::nameBeside(const TzSoapFieldRow& row, std::string_view localName) const {
    return {localName, row.uri.empty() ? TzXmlNamespace() : names_->find(row.uri)};
}
