// SPDX-License-Identifier: MIT
#include "Peers.h"

#include <expat.h>
#include <gmime/gmime.h>
#include <libxml/parser.h>

#include <cstring>
#include <stdexcept>

namespace {

void onStart(void*, const XML_Char*, const XML_Char**) {}
void onEnd(void*, const XML_Char*) {}
void onText(void*, const XML_Char*, int) {}

void require(bool condition, const char* what) {
    if (!condition) {
        throw std::runtime_error(what);
    }
}

} // namespace

void peers::expatNoOp(std::string_view text) {
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetElementHandler(parser, onStart, onEnd);
    XML_SetCharacterDataHandler(parser, onText);
    const XML_Status status =
        XML_Parse(parser, text.data(), static_cast<int>(text.size()), XML_TRUE);
    XML_ParserFree(parser);
    require(status == XML_STATUS_OK, "Expat refused the text");
}

peers::LibxmlDocument peers::libxmlRead(std::string_view text) {
    LibxmlDocument document(xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr,
                                          nullptr, XML_PARSE_HUGE | XML_PARSE_NONET));
    require(document != nullptr, "libxml2 refused the text");
    return document;
}

int peers::libxmlWrite(const LibxmlDocument& document) {
    xmlChar* text = nullptr;
    int size = 0;
    xmlDocDumpMemory(document.get(), &text, &size);
    require(text != nullptr, "libxml2 wrote nothing");
    xmlFree(text);
    return size;
}

void peers::pugixmlRead(std::string_view text) {
    pugi::xml_document document;
    require(document.load_buffer(text.data(), text.size()), "pugixml refused the text");
}

peers::PugixmlDocument peers::pugixmlDocument(std::string_view text) {
    auto document = std::make_shared<pugi::xml_document>();
    require(document->load_buffer(text.data(), text.size(),
                                  pugi::parse_default | pugi::parse_declaration),
            "pugixml refused the text");
    return document;
}

void peers::pugixmlWrite(const PugixmlDocument& document, std::string& text) {
    struct Writer final : pugi::xml_writer {
        explicit Writer(std::string& to) : text(to) {}
        void write(const void* data, std::size_t size) override {
            text.append(static_cast<const char*>(data), size);
        }
        std::string& text;
    };
    text.clear();
    Writer writer(text);
    document->save(writer, "", pugi::format_raw);
}

std::size_t peers::memmemCount(std::string_view text, std::string_view wanted) {
    std::size_t count = 0;
    while (const void* const found =
               memmem(text.data(), text.size(), wanted.data(), wanted.size())) {
        ++count;
        const auto at = static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
        text.remove_prefix(at + wanted.size());
    }
    return count;
}

void peers::gmimeRead(std::string_view text) {
    static const bool ready = (g_mime_init(), true);
    require(ready, "GMime cannot be used");
    GMimeStream* stream = g_mime_stream_mem_new_with_buffer(text.data(), text.size());
    GMimeParser* parser = g_mime_parser_new_with_stream(stream);
    GMimeObject* package = g_mime_parser_construct_part(parser, nullptr);
    require(package != nullptr && GMIME_IS_MULTIPART(package), "GMime refused the text");
    g_object_unref(package);
    g_object_unref(parser);
    g_object_unref(stream);
}
