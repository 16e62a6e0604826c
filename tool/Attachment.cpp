// SPDX-License-Identifier: MIT
#include "Attachment.h"

#include "Files.h"

#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentType.h>
#include <tz/mime/TzMimeContentTypeHeader.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <stdexcept>
#include <string_view>

namespace {

constexpr std::string_view TypeMark = ";type=";

struct Ending {
    std::string_view ending;
    const char* type;
};

constexpr std::array<Ending, 13> Endings = {{
    {".csv", "text/csv"},
    {".gif", "image/gif"},
    {".gz", "application/gzip"},
    {".htm", "text/html"},
    {".html", "text/html"},
    {".jpeg", "image/jpeg"},
    {".jpg", "image/jpeg"},
    {".json", "application/json"},
    {".pdf", "application/pdf"},
    {".png", "image/png"},
    {".txt", "text/plain"},
    {".xml", "text/xml"},
    {".zip", "application/zip"},
}};

const char* typeOf(const std::filesystem::path& path) {
    const std::string ending = path.extension().string();
    const auto* const found =
        std::find_if(Endings.begin(), Endings.end(),
                     [&](const Ending& entry) { return tzEqualIgnoreCase(entry.ending, ending); });
    return found != Endings.end() ? found->type : "application/octet-stream";
}

} // namespace

Attachment Attachment::parse(const std::string& argument) {
    Attachment attachment;
    const std::size_t mark = argument.rfind(TypeMark);
    const std::string file = argument.substr(0, mark);
    const std::size_t equals = file.find('=');
    attachment.path = equals == std::string::npos ? file : file.substr(equals + 1);
    const std::filesystem::path path(attachment.path);
    attachment.contentId =
        equals == std::string::npos ? path.filename().string() : file.substr(0, equals);
    attachment.type =
        mark == std::string::npos ? typeOf(path) : argument.substr(mark + TypeMark.size());
    if (attachment.contentId.empty() || attachment.path.empty()) {
        throw std::runtime_error("is neither PATH nor CID=PATH");
    }
    return attachment;
}

TzMimePart Attachment::toPart() const {
    TzMimePart part;
    part.insertHeader(TzMimeContentTypeHeader(TzMimeContentType(type)));
    part.insertHeader(TzMimeHeader("Content-Transfer-Encoding", "binary"));
    part.insertHeader(TzMimeContentIdHeader(contentId));
    part.setBody(files::read(path));
    return part;
}
