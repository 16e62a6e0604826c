// SPDX-License-Identifier: MIT
#include "JsonPrinter.h"

#include "PartFacts.h"

#include <algorithm>
#include <functional>

void JsonPrinter::writeText(std::string_view key, std::string_view text) {
    if (!text.empty()) {
        json_.key(key);
        json_.text(text);
    }
}

void JsonPrinter::writeNameMembers(const TzXmlName& name) {
    json_.key("name");
    json_.text(name.getLocalName());
    json_.key("prefix");
    json_.text(name.getPrefix());
    json_.key("namespace");
    json_.text(name.getUri());
}

void JsonPrinter::writeName(std::string_view key, const TzXmlName& name) {
    json_.key(key);
    json_.beginObject();
    writeNameMembers(name);
    json_.endObject();
}

void JsonPrinter::writeFlags(const Element& element) {
    if (!element.mustUnderstand.empty()) {
        json_.key("mustUnderstand");
        json_.flag(element.mustUnderstand == "true");
    }
    writeText("actor", element.actor);
    if (element.relay) {
        json_.key("relay");
        json_.flag(*element.relay);
    }
    if (!element.root.empty()) {
        json_.key("root");
        json_.flag(element.root == "1");
    }
    writeText("id", element.id);
    if (element.nil) {
        json_.key("nil");
        json_.flag(true);
    }
    if (element.encodingStyle) {
        json_.key("encodingStyle");
        json_.text(*element.encodingStyle);
    }
}

void JsonPrinter::writeArray(const ArrayFacts& array) {
    json_.key("itemType");
    json_.text(array.itemType);
    json_.key("bounds");
    json_.numbers(array.bounds);
    if (!array.offset.empty()) {
        json_.key("offset");
        json_.numbers(array.offset);
    }
    json_.key("sparse");
    json_.flag(array.sparse);
}

void JsonPrinter::writeReference(const ReferenceFacts& reference) {
    json_.key("reference");
    json_.text(reference.text);
    json_.key("target");
    if (reference.part) {
        json_.beginObject();
        json_.key("attachment");
        json_.number(*reference.part);
        json_.endObject();
    } else if (reference.kind.empty()) {
        json_.null();
    } else {
        json_.beginObject();
        json_.key("kind");
        json_.text(reference.kind);
        writeNameMembers(reference.name);
        json_.endObject();
    }
}

void JsonPrinter::writeReasons(const std::vector<TzSoapReason>& reasons) {
    json_.key("reason");
    json_.text(reasons.front().text);
    if (reasons.size() == 1 && reasons.front().language.empty()) {
        return;
    }
    json_.key("reasons");
    json_.beginArray();
    for (const TzSoapReason& reason : reasons) {
        json_.beginObject();
        json_.key("text");
        json_.text(reason.text);
        writeText("language", reason.language);
        json_.endObject();
    }
    json_.endArray();
}

void JsonPrinter::writeFault(const FaultFacts& fault) {
    writeName("code", fault.code);
    json_.key("subcodes");
    json_.beginArray();
    for (const TzXmlName& subcode : fault.subcodes) {
        json_.beginObject();
        writeNameMembers(subcode);
        json_.endObject();
    }
    json_.endArray();
    writeReasons(fault.reasons);
    writeText("node", fault.node);
    writeText("role", fault.role);
    writeText("detailText", fault.detailText);
}

void JsonPrinter::writeNamespaces(const Element& element) {
    if (std::none_of(element.attributes.begin(), element.attributes.end(),
                     std::mem_fn(&TzXmlAttribute::isNamespaceDeclaration))) {
        return;
    }
    json_.key("namespaces");
    json_.beginObject();
    for (const TzXmlAttribute& attribute : element.attributes) {
        if (attribute.isNamespaceDeclaration()) {
            json_.key(attribute.getName().getLocalName());
            json_.text(attribute.getValue());
        }
    }
    json_.endObject();
}

void JsonPrinter::writeAttributes(const Element& element) {
    if (std::all_of(element.attributes.begin(), element.attributes.end(),
                    std::mem_fn(&TzXmlAttribute::isNamespaceDeclaration))) {
        return;
    }
    json_.key("attributes");
    json_.beginArray();
    for (const TzXmlAttribute& attribute : element.attributes) {
        if (!attribute.isNamespaceDeclaration()) {
            json_.beginObject();
            writeNameMembers(attribute.getName());
            json_.key("value");
            json_.text(attribute.getValue());
            json_.endObject();
        }
    }
    json_.endArray();
}

void JsonPrinter::beginList(Open& parent) {
    if (!parent.listed) {
        json_.key(parent.children);
        json_.beginArray();
        parent.listed = true;
    }
}

void JsonPrinter::beginMessage(VersionText version) {
    json_.beginObject();
    json_.key("file");
    json_.text(file_);
    json_.key("version");
    json_.text(version);
}

void JsonPrinter::endMessage() {
    if (attachments_) {
        json_.endArray();
    }
    json_.endObject();
}

void JsonPrinter::begin(const Element& element) {
    if (!element.role.empty()) {
        json_.key(element.role);
    } else {
        beginList(open_.back());
    }
    json_.beginObject();
    json_.key("kind");
    json_.text(element.kind);
    if (!element.position.empty()) {
        json_.key("position");
        json_.numbers(element.position);
    }
    if (element.kind != "Text") {
        writeNameMembers(element.name);
    }
    if (!element.type.isEmpty()) {
        writeName("type", element.type);
    }
    writeFlags(element);
    if (element.array) {
        writeArray(*element.array);
    }
    if (element.reference) {
        writeReference(*element.reference);
    }
    if (element.misunderstood) {
        writeName("misunderstood", *element.misunderstood);
    }
    if (element.fault) {
        writeFault(*element.fault);
    }
    if (element.text) {
        json_.key("text");
        json_.text(*element.text);
    }
    writeNamespaces(element);
    writeAttributes(element);
    open_.push_back({std::string(element.children)});
}

void JsonPrinter::end() {
    if (!open_.back().children.empty()) {
        beginList(open_.back());
        json_.endArray();
    }
    open_.pop_back();
    json_.endObject();
}

void JsonPrinter::attachment(std::size_t number, const PartFacts& facts) {
    if (!attachments_) {
        json_.key("attachments");
        json_.beginArray();
        attachments_ = true;
    }
    json_.beginObject();
    json_.key("number");
    json_.number(number);
    writeText("contentId", facts.contentId);
    writeText("location", facts.location);
    writeText("type", facts.type);
    json_.key("size");
    json_.number(facts.size);
    json_.endObject();
}
