// SPDX-License-Identifier: MIT
#include "values/TzSoapMarkupCheck.h"

#include <tz/xml/TzXmlAttribute.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlParseError.h>

TzSoapMarkupCheck::TzSoapMarkupCheck(std::string_view markup,
                                     const std::vector<TzXmlNamespace>& declarations) {
    for (const TzXmlNamespace& declared : declarations) {
        if (declared.getPrefix().empty() || !declared.getUri().empty()) {
            around_.insert_or_assign(declared.getPrefix(), declared.getUri());
        }
    }
    parser_.setContentHandler(this);
    parser_.parse(markup);
}

std::vector<TzXmlNamespace> TzSoapMarkupCheck::declarations() const {
    TzSoapOuterNamespaces::Used all = around_;
    if (used_.used().contains(std::string_view())) {
        all.try_emplace(TzCString());
    }
    std::vector<TzXmlNamespace> needed;
    for (const auto& [prefix, uri] : all) {
        needed.emplace_back(prefix, uri);
    }
    return needed;
}

void TzSoapMarkupCheck::prolog(const TzXmlProlog&) {
    refuse("an XML declaration cannot stand within a message");
}

void TzSoapMarkupCheck::startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) {
    if (depth_++ == 0) {
        begin_ = parser_.getEventBegin();
        name_ = resolved(name);
    }
    checkBound(name);
    for (const TzXmlAttribute& attribute : attributes) {
        if (!attribute.isNamespaceDeclaration()) {
            checkBound(attribute.getName());
        } else if (depth_ == 1) {
            around_.erase(attribute.getName().getLocalName());
        }
    }
    used_.open(name, attributes);
}

void TzSoapMarkupCheck::endElement(const TzXmlName&) {
    used_.close();
    if (--depth_ == 0) {
        element_ = parser_.getSource(begin_, parser_.getEventEnd());
    }
}

TzXmlName TzSoapMarkupCheck::resolved(const TzXmlName& name) const {
    const auto known = around_.find(name.getPrefix());
    return name.getUri().empty() && known != around_.end() &&
                   parser_.findNamespace(name.getPrefix()) == nullptr
               ? TzXmlName(name.getLocalName(), TzXmlNamespace(known->first, known->second))
               : name;
}

void TzSoapMarkupCheck::checkBound(const TzXmlName& name) const {
    if (!name.getPrefix().empty() && resolved(name).getUri().empty()) {
        refuse("the prefix \"" + name.getPrefix() + "\" is not bound");
    }
}

void TzSoapMarkupCheck::refuse(const TzCString& reason) const {
    throw TzXmlParseError::at(reason, parser_.getLine(), parser_.getColumn());
}
