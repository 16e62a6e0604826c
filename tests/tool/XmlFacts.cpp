// SPDX-License-Identifier: MIT
#include "tool/XmlFacts.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <algorithm>
#include <memory>
#include <set>
#include <stdexcept>

namespace {

constexpr std::string_view whiteSpace = " \t\r\n";

std::string textOf(const xmlChar* text) {
    return text == nullptr ? std::string() : reinterpret_cast<const char*>(text);
}

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(whiteSpace);
    return first == std::string::npos
               ? std::string()
               : text.substr(first, text.find_last_not_of(whiteSpace) + 1 - first);
}

std::string braced(const xmlNs* space, const std::string& local) {
    return '{' + (space == nullptr ? std::string() : textOf(space->href)) + '}' + local;
}

/// `value` with the namespace of its prefix, when it has one that is bound at `element`.
std::string resolved(xmlNode* element, const std::string& value) {
    const std::size_t colon = value.find(':');
    if (colon == std::string::npos || colon == 0) {
        return value;
    }
    const std::string prefix = value.substr(0, colon);
    const xmlNs* const space =
        xmlSearchNs(element->doc, element, reinterpret_cast<const xmlChar*>(prefix.c_str()));
    return space == nullptr ? value : braced(space, value.substr(colon + 1));
}

/// An array without items is written without a size.
std::string withoutEmptySize(std::string arrayType) {
    const std::size_t size = arrayType.rfind("[0]");
    return size == std::string::npos ? arrayType : arrayType.erase(size + 1, 1);
}

std::string attributesOf(xmlNode* element) {
    std::set<std::string> attributes;
    for (xmlAttr* each = element->properties; each != nullptr; each = each->next) {
        const std::string local = textOf(each->name);
        const std::unique_ptr<xmlChar, decltype(xmlFree)> content(
            xmlNodeListGetString(element->doc, each->children, 1), xmlFree);
        std::string value = resolved(element, textOf(content.get()));
        if (local == "arrayType") {
            value = withoutEmptySize(value);
        }
        if (local != "encodingStyle") {
            attributes.insert(' ' + braced(each->ns, local) + '=' + value);
        }
    }
    std::string all;
    for (const std::string& attribute : attributes) {
        all += attribute;
    }
    return all;
}

void append(xmlNode* element, const std::string& indent, std::string& out) {
    std::string text;
    bool hasElements = false;
    for (xmlNode* child = element->children; child != nullptr; child = child->next) {
        hasElements |= child->type == XML_ELEMENT_NODE;
        if (child->type == XML_TEXT_NODE || child->type == XML_CDATA_SECTION_NODE) {
            text += textOf(child->content);
        }
    }
    // A composite without members has a line break in it.
    const bool isBlank = text.find_first_not_of(whiteSpace) == std::string::npos;
    const bool isLayout = isBlank && (hasElements || text.find('\n') != std::string::npos);
    out += indent + braced(element->ns, textOf(element->name)) + attributesOf(element) + " '" +
           (isLayout ? "" : resolved(element, hasElements ? trimmed(text) : text)) + "'\n";
    for (xmlNode* child = element->children; child != nullptr; child = child->next) {
        if (child->type == XML_ELEMENT_NODE) {
            append(child, indent + "  ", out);
        }
    }
}

} // namespace

std::string XmlFacts::of(std::string_view xml) {
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
        xmlReadMemory(xml.data(), static_cast<int>(xml.size()), nullptr, nullptr,
                      XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING),
        xmlFreeDoc);
    if (document == nullptr) {
        throw std::runtime_error("libxml2 refuses the text");
    }
    std::string facts;
    append(xmlDocGetRootElement(document.get()), "", facts);
    return facts;
}
