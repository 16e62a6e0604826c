// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlProlog.h>

#include <utility>

TzXmlProlog::TzXmlProlog() : TzXmlProlog("1.0", "UTF-8") {}

TzXmlProlog::TzXmlProlog(TzCString version, TzCString encoding, std::optional<bool> standalone)
    : version_(std::move(version)), encoding_(std::move(encoding)), standalone_(standalone) {}

void TzXmlProlog::setVersion(TzCString version) { version_ = std::move(version); }

void TzXmlProlog::setEncoding(TzCString encoding) { encoding_ = std::move(encoding); }

TzCString TzXmlProlog::asString() const {
    TzCString text = "<?xml version=\"" + version_ + '"';
    if (!encoding_.empty()) {
        text += " encoding=\"" + encoding_ + '"';
    }
    if (standalone_) {
        text += *standalone_ ? " standalone=\"yes\"" : " standalone=\"no\"";
    }
    return text + "?>";
}
