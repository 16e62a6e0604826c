// SPDX-License-Identifier: MIT
#include "dispatch/TzSoapInVersion.h"

#include <soap/TzSoapMessage.h>
#include <soap/TzSoapVersionConverter.h>

TzSoapMessage tzSoapInVersion(const TzSoapMessage& message, TzSoapVersion::Version version) {
    if (message.getVersion() == version) {
        return message;
    }
    TzSoapMessage copied = message.copy();
    const TzSoapFault& fault = message.getSoapBody().getSoapFault();
    for (unsigned int i = 0; i < fault.getSubcodeCount(); ++i) {
        copied.getSoapBody().getSoapFault().addSubcode(fault.getSubcode(i));
    }
    TzSoapVersionConverter(version).convert(copied);
    return copied;
}
