// SPDX-License-Identifier: MIT
// A program that knows nothing but an installed copy of the library.
#include <soap/TzSoapLibraryVersion.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapVersion.h>
#include <tz/xml/TzXmlName.h>

#include <iostream>

int main() {
    const TzXmlName name("order");
    if (name.getLocalName() != "order") {
        std::cerr << "the platform library answers " << name.getLocalName() << '\n';
        return 1;
    }
    const TzSoapMessage message(TzSoapVersion::V1_1);
    std::cout << message.getMessageType() << '\n';
    std::cout << TZSOAP_LIBRARY_VERSION << '\n';
    return 0;
}
