// SPDX-License-Identifier: MIT
#include "TzSoapWsFaults.h"

#include <soap/TzSoapBody.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapFaultMessage.h>
#include <soap/TzSoapMessage.h>

TzSoapFaultError TzSoapWsFaults::make(TzSoapVersion::Version version,
                                      const std::vector<TzXmlName>& codes,
                                      const TzCString& reason) {
    TzSoapMessage message = TzSoapFaultMessage::make(version, TzSoapVersion::Client, reason);
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    if (TzSoapVersion::getSoapElementName(TzSoapVersion::FaultSubcode, version).isEmpty()) {
        fault.setCode(codes.back());
    } else {
        for (const TzXmlName& code : codes) {
            fault.addSubcode(code);
        }
    }
    return TzSoapFaultError(message);
}
