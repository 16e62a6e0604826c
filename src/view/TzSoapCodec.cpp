// SPDX-License-Identifier: MIT
#include <soap/TzSoapCodec.h>

#include <tz/mime/TzMimeBase64.h>
#include <tz/tools/TzDecimalPortable.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlDuration.h>
#include <tz/xml/TzXmlUtils.h>

namespace {

TzCString hexDigits(std::string_view bytes) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    TzCString text;
    text.reserve(2 * bytes.size());
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        text += Digits[value >> 4U];
        text += Digits[value & 0xFU];
    }
    return text;
}

} // namespace

TzCString TzSoapCodecText::of(const TzDate& value) {
    return TzXmlUtils::convertDateToISOString(value);
}

TzCString TzSoapCodecText::of(const TzDateTime& value) {
    return TzXmlUtils::convertDateTimeToISOString(value);
}

TzCString TzSoapCodecText::of(const TzDecimalPortable& value) { return value.asString(); }

TzCString TzSoapCodecText::of(const TzXmlDuration& value) { return value.asString(); }

TzCString TzSoapCodecText::ofBytes(std::string_view bytes, bool hex) {
    return hex ? hexDigits(bytes) : TzMimeBase64::encode(bytes);
}

void TzSoapCodecText::refuseEnumerator(long long number) {
    TzThrow(TzXmlBadArgError(
        TzMessage("the enumerator " + std::to_string(number) + " has no text in its TzSoapEnum")));
}

void TzSoapCodecText::refuseText(const TzSoapPlace& place,
                                 const std::vector<std::string_view>& texts) {
    TzCString wanted = "one of";
    for (const std::string_view text : texts) {
        wanted.append(wanted.ends_with('f') ? " " : ", ").append(tzQuoted(text));
    }
    place.refuseText(wanted);
}

std::string_view TzSoapCodecText::trimmed(std::string_view text) noexcept {
    return TzXmlUtils::trim(text);
}
