// SPDX-License-Identifier: MIT
#include "xml/TzXmlScanDeclaration.h"

#include <tz/tools/TzCString.h>

namespace {

constexpr std::string_view Begin = "<?xml";

/// The value of the attribute `name`. Empty where another one or none stands, or where it is
/// malformed: then nothing is passed.
std::string_view readAttribute(TzXmlScanCursor& cursor, std::string_view name) noexcept {
    TzXmlScanCursor ahead = cursor;
    if (!ahead.passBlanks() || !ahead.pass(name)) {
        return {};
    }
    ahead.passBlanks();
    if (!ahead.pass('=')) {
        return {};
    }
    ahead.passBlanks();
    const char quote = ahead.pass('"') ? '"' : '\'';
    if (quote == '\'' && !ahead.pass(quote)) {
        return {};
    }
    const std::string_view value = ahead.rest().substr(0, ahead.rest().find(quote));
    ahead.skip(value.size());
    if (value.empty() || !ahead.pass(quote)) {
        return {};
    }
    cursor = ahead;
    return value;
}

/// Whether `name` can be that of an encoding.
bool isEncodingName(std::string_view name) noexcept {
    constexpr std::string_view Letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr std::string_view Others = "0123456789._-";
    for (const char byte : name) {
        if (Letters.find(byte) == Letters.npos && Others.find(byte) == Others.npos) {
            return false;
        }
    }
    return Letters.find(name.front()) != Letters.npos;
}

} // namespace

bool TzXmlScanDeclaration::begins(std::string_view text) noexcept {
    return text.size() > Begin.size() && text.starts_with(Begin) &&
           TzXmlScanBytes::is(text[Begin.size()], TzXmlScanBytes::Blank);
}

bool TzXmlScanDeclaration::read(TzXmlScanCursor& cursor, TzXmlKnownEncoding known) noexcept {
    cursor.skip(Begin.size());
    if (readAttribute(cursor, "version") != "1.0") {
        return false;
    }
    encoding_ = readAttribute(cursor, "encoding");
    const bool isAccepted = encoding_.empty() || tzEqualIgnoreCase(encoding_, "UTF-8") ||
                            (known == TzXmlKnownEncoding::Utf8 && isEncodingName(encoding_));
    const std::string_view standalone = readAttribute(cursor, "standalone");
    if (!isAccepted || (!standalone.empty() && standalone != "yes" && standalone != "no")) {
        return false;
    }
    standalone_ = standalone.empty() ? -1 : standalone == "yes" ? 1 : 0;
    cursor.passBlanks();
    return cursor.pass("?>");
}
