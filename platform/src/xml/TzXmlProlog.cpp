// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlProlog.h>

#include <utility>

TzXmlProlog::TzXmlProlog() : TzXmlProlog("1.0", "UTF-8") {}

TzXmlProlog::TzXmlProlog(TzCString version, TzCString encoding, std::optional<bool> standalone)
    : version_(std::move(version)), encoding_(std::move(encoding)), standalone_(standalone) {}

void TzXmlProlog::setVersion(TzCString version) { version_ = std::move(version); }

void TzXmlProlog::setEncoding(TzCString encoding) { encoding_ = std::move(encoding); }

TzCString TzXmlProlog::asString() const {
    TzCString text;
    for (const std::string_view piece : pieces()) {
        text += piece;
    }
    return text;
}

std::array<std::string_view, 8> TzXmlProlog::pieces() const noexcept {
    const bool isNamed = !encoding_.empty();
    const std::string_view standalone = !standalone_   ? ""
                                        : *standalone_ ? " standalone=\"yes\""
                                                       : " standalone=\"no\"";
    return {"<?xml version=\"",  version_,   "\"", isNamed ? " encoding=\"" : "", encoding_,
            isNamed ? "\"" : "", standalone, "?>"};
}
