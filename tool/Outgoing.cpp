// SPDX-License-Identifier: MIT
#include "Outgoing.h"

#include <tz/mime/TzMimeMultipart.h>

std::string outgoingText(TzSoapMessage message) {
    message.addReceivedAttachments();
    const TzMimeMultipart package = message.asPackage();
    return package.getPartCount() == 1 ? package.getPart(0).getBody() : package.asString();
}
