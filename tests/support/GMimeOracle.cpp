// SPDX-License-Identifier: MIT
#include "support/GMimeOracle.h"

#include <gmime/gmime.h>

#include <algorithm>
#include <memory>

namespace {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
template <typename Object> using Held = std::unique_ptr<Object, Unref>;

void initialize() {
    static const bool done = [] {
        g_mime_init();
        return true;
    }();
    static_cast<void>(done);
}

std::string unfolded(std::string value) {
    std::erase_if(value, [](char character) { return character == '\r' || character == '\n'; });
    const std::size_t first = value.find_first_not_of(" \t");
    const std::size_t last = value.find_last_not_of(" \t");
    return first == std::string::npos ? std::string() : value.substr(first, last - first + 1);
}

std::string decodedBody(GMimeObject* object) {
    if (!GMIME_IS_PART(object)) {
        return {};
    }
    GMimeDataWrapper* const content = g_mime_part_get_content(GMIME_PART(object));
    if (content == nullptr) {
        return {};
    }
    const Held<GMimeStream> stream(g_mime_stream_mem_new());
    g_mime_data_wrapper_write_to_stream(content, stream.get());
    const GByteArray* const bytes =
        g_mime_stream_mem_get_byte_array(GMIME_STREAM_MEM(stream.get()));
    return {reinterpret_cast<const char*>(bytes->data), bytes->len};
}

GMimeOracle::Part readPart(GMimeObject* object) {
    GMimeOracle::Part part;
    GMimeHeaderList* const headers = g_mime_object_get_header_list(object);
    for (int index = 0; index < g_mime_header_list_get_count(headers); ++index) {
        GMimeHeader* const header = g_mime_header_list_get_header_at(headers, index);
        part.headers.emplace_back(g_mime_header_get_name(header),
                                  unfolded(g_mime_header_get_raw_value(header)));
    }
    part.body = decodedBody(object);
    return part;
}

} // namespace

namespace GMimeOracle {

Package read(std::string_view text) {
    initialize();
    const Held<GMimeStream> stream(g_mime_stream_mem_new_with_buffer(text.data(), text.size()));
    const Held<GMimeParser> parser(g_mime_parser_new_with_stream(stream.get()));
    const Held<GMimeObject> object(g_mime_parser_construct_part(parser.get(), nullptr));
    Package package;
    if (!object || !GMIME_IS_MULTIPART(object.get())) {
        return package;
    }
    GMimeMultipart* const multipart = GMIME_MULTIPART(object.get());
    if (const char* const boundary = g_mime_multipart_get_boundary(multipart)) {
        package.boundary = boundary;
    }
    for (int index = 0; index < g_mime_multipart_get_count(multipart); ++index) {
        package.parts.push_back(readPart(g_mime_multipart_get_part(multipart, index)));
    }
    return package;
}

} // namespace GMimeOracle
