// SPDX-License-Identifier: MIT
#include "literal/XmlOracle.h"

#include <libxml/c14n.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlschemas.h>

#include <cstdarg>
#include <cstdio>
#include <memory>
#include <stdexcept>

namespace {

using Document = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;

Document parse(std::string_view xml) {
    Document document(
        xmlReadMemory(xml.data(), static_cast<int>(xml.size()), nullptr, nullptr,
                      XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_HUGE),
        xmlFreeDoc);
    if (document == nullptr) {
        throw std::runtime_error("not well formed: " + std::string(xml));
    }
    return document;
}

/// The node after `node` in the order of the text.
xmlNode* following(xmlNode* node) {
    while (node != nullptr && node->next == nullptr) {
        node = node->parent != nullptr && node->parent->type == XML_ELEMENT_NODE ? node->parent
                                                                                 : nullptr;
    }
    return node == nullptr ? nullptr : node->next;
}

void dropInstructions(xmlDoc& document) {
    for (xmlNode* node = document.children; node != nullptr;) {
        xmlNode* const next = node->type == XML_ELEMENT_NODE && node->children != nullptr
                                  ? node->children
                                  : following(node);
        if (node->type == XML_PI_NODE) {
            xmlUnlinkNode(node);
            xmlFreeNode(node);
        }
        node = next;
    }
}

xmlNode* elementChild(xmlNode* parent, const char* name) {
    for (xmlNode* child = parent->children; child != nullptr; child = child->next) {
        const bool isElement = child->type == XML_ELEMENT_NODE;
        if (isElement &&
            (name == nullptr || std::string(reinterpret_cast<const char*>(child->name)) == name)) {
            return child;
        }
    }
    throw std::runtime_error("an element is missing");
}

void keepError(void* text, const char* format, ...) {
    char line[1000];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(line, sizeof(line), format, arguments);
    va_end(arguments);
    static_cast<std::string*>(text)->append(line);
}

} // namespace

std::string XmlOracle::canonical(std::string_view xml) {
    const Document document = parse(xml);
    dropInstructions(*document);
    xmlChar* text = nullptr;
    const int size = xmlC14NDocDumpMemory(document.get(), nullptr, XML_C14N_1_0, nullptr, 0, &text);
    if (size < 0) {
        throw std::runtime_error("no canonical form");
    }
    std::string result(reinterpret_cast<const char*>(text), static_cast<std::size_t>(size));
    xmlFree(text);
    return result;
}

std::string XmlOracle::whyInvalid(std::string_view schema, std::string_view xml) {
    std::string errors;
    const std::unique_ptr<xmlSchemaParserCtxt, decltype(&xmlSchemaFreeParserCtxt)> reader(
        xmlSchemaNewMemParserCtxt(schema.data(), static_cast<int>(schema.size())),
        xmlSchemaFreeParserCtxt);
    xmlSchemaSetParserErrors(reader.get(), keepError, keepError, &errors);
    const std::unique_ptr<xmlSchema, decltype(&xmlSchemaFree)> compiled(
        xmlSchemaParse(reader.get()), xmlSchemaFree);
    if (compiled == nullptr) {
        throw std::runtime_error("invalid schema: " + errors);
    }
    const Document document = parse(xml);
    xmlNode* const entry =
        elementChild(elementChild(xmlDocGetRootElement(document.get()), "Body"), nullptr);
    const std::unique_ptr<xmlSchemaValidCtxt, decltype(&xmlSchemaFreeValidCtxt)> validator(
        xmlSchemaNewValidCtxt(compiled.get()), xmlSchemaFreeValidCtxt);
    xmlSchemaSetValidErrors(validator.get(), keepError, keepError, &errors);
    const int result = xmlSchemaValidateOneElement(validator.get(), entry);
    return result == 0 ? std::string() : errors.empty() ? "invalid" : errors;
}
