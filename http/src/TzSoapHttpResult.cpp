// SPDX-License-Identifier: MIT
#include <soap/TzSoapHttpResult.h>

#include <soap/TzSoapMissingError.h>

TzSoapMessage TzSoapHttpResult::getAnswer() const {
    if (const TzSoapFaultError* const fault = findFault()) {
        throw TzSoapFaultError(*fault);
    }
    if (const TzSoapTransportError* const failure = findFailure()) {
        throw TzSoapTransportError(*failure);
    }
    const TzSoapMessage* const answer = std::get_if<TzSoapMessage>(&result_);
    if (answer == nullptr) {
        throw TzSoapMissingError("", "The service sent no answer");
    }
    return *answer;
}
