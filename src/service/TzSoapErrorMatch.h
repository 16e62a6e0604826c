// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCatMsg.h>
#include <tz/tools/TzMessage.h>
#include <tz/tools/Tzxmsg.h>
#include <tz/xml/TzXmlParseError.h>

#include <cstring>

/// Whether `error` was met while a text was read and says the catalogue's `entry`.
inline bool tzSoapIsParseError(const Tzxmsg& error, const TzCatMsg& entry) {
    const auto* const unread = dynamic_cast<const TzXmlParseError*>(&error);
    return unread != nullptr && unread->getMessage().getId() == entry.id &&
           std::strcmp(unread->getMessage().getDomain(), entry.domain) == 0;
}
