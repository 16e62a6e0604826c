// SPDX-License-Identifier: MIT
#include <soap/TzSoapWsService.h>

#include <soap/TzSoapBody.h>
#include <soap/TzSoapDispatcher.h>
#include <soap/TzSoapFaultError.h>
#include <soap/TzSoapMessage.h>

#include "TzSoapWsFaults.h"
#include "TzSoapWsNames.h"

#include <optional>
#include <stdexcept>
#include <utility>

using TzSoapWsNames::wsa;

namespace {

using Answer = std::optional<TzSoapMessage>;

/// Answers requests by their addressing properties.
class Addressed {
public:
    Addressed(TzSoapNode node, TzSoapWsService::AddressingOptions options)
        : node_(std::move(node)), options_(std::move(options)) {}

    Answer operator()(TzSoapMessage& request, const TzCString& action,
                      const TzSoapDispatcher::Next& next) const {
        if (!options_.required && !TzSoapWsAddressing::isUsed(request, node_)) {
            return next(request);
        }
        TzSoapWsAddressing properties;
        try {
            properties = TzSoapWsAddressing::read(request, node_);
            check(properties, request.getVersion(), action);
        } catch (const TzSoapFaultError& fault) {
            return refusal(fault, request, properties);
        }
        return addressed(next(request), properties);
    }

private:
    static void check(const TzSoapWsAddressing& properties, TzSoapVersion::Version version,
                      const TzCString& action) {
        properties.checkAction(version, action);
        for (const auto& endpoint : {properties.replyTo, properties.faultTo}) {
            if (endpoint && !endpoint->isAnonymous() && !endpoint->isNone()) {
                throw TzSoapWsFaults::make(
                    version, {wsa("InvalidAddressingHeader"), wsa("OnlyAnonymousAddressSupported")},
                    "Answers go back on the connection of the request only");
            }
        }
    }
    static TzSoapMessage refusal(const TzSoapFaultError& fault, const TzSoapMessage& request,
                                 const TzSoapWsAddressing& properties) {
        TzSoapMessage answer = fault.makeMessage(request.getVersion(), request.getStyle());
        TzSoapWsAddressing addressing = properties.faultAnswer(TzSoapWsAddressing::FaultAction);
        // Wherever it was to go: it goes back to the sender.
        addressing.to = TzSoapWsEndpoint::Anonymous;
        addressing.write(answer);
        return answer;
    }
    Answer addressed(Answer answer, const TzSoapWsAddressing& request) const {
        if (!answer) {
            return answer;
        }
        const bool isFault = answer->getSoapBody().hasSoapFault();
        const TzSoapWsAddressing addressing =
            isFault ? request.faultAnswer() : request.answer(answerAction(request, *answer));
        if (addressing.to == TzSoapWsEndpoint::None) {
            return std::nullopt;
        }
        addressing.write(*answer);
        return answer;
    }
    TzCString answerAction(const TzSoapWsAddressing& request, const TzSoapMessage& answer) const {
        return options_.answerAction ? options_.answerAction(request, answer)
                                     : request.action + "Response";
    }

    TzSoapNode node_;
    TzSoapWsService::AddressingOptions options_;
};

} // namespace

void TzSoapWsService::addAddressing(TzSoapDispatcher& dispatcher) {
    addAddressing(dispatcher, AddressingOptions());
}

void TzSoapWsService::addAddressing(TzSoapDispatcher& dispatcher, AddressingOptions options) {
    for (const TzXmlName& name : TzSoapWsAddressing::entryNames()) {
        dispatcher.getNode().addUnderstood(name);
    }
    dispatcher.addInterceptor(Addressed(dispatcher.getNode(), std::move(options)));
}

void TzSoapWsService::addSecurity(TzSoapDispatcher& dispatcher,
                                  std::shared_ptr<const TzSoapWsVerifier> verifier) {
    if (verifier == nullptr) {
        throw std::invalid_argument("security needs a verifier");
    }
    dispatcher.getNode().addUnderstood(TzSoapWsVerifier::entryName());
    dispatcher.addInterceptor([verifier = std::move(verifier)](TzSoapMessage& request,
                                                               const TzCString&,
                                                               const TzSoapDispatcher::Next& next) {
        verifier->verify(request);
        return next(request);
    });
}
