// SPDX-License-Identifier: MIT
#include <soap/TzSoapVersionConverter.h>

#include <soap/TzSoapMessage.h>

#include "conversion/TzSoapConversion.h"

TzSoapVersionConverter::TzSoapVersionConverter(TzSoapVersion::Version version)
    : version_(TzSoapVersion::getSoapVersion(version).getVersion()) {}

std::vector<TzCString> TzSoapVersionConverter::convert(TzSoapMessage& message) const {
    if (message.getVersion() == version_) {
        return {};
    }
    return TzSoapConversion(message, TzSoapVersion::getSoapVersion(version_)).run();
}
