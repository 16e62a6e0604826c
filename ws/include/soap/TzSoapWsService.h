// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapWsAddressing.h>
#include <soap/TzSoapWsExport.h>
#include <soap/TzSoapWsVerifier.h>
#include <tz/tools/TzCString.h>

#include <functional>
#include <memory>

class TzSoapDispatcher;
class TzSoapMessage;

/// Makes a dispatcher answer by WS-Addressing and demand users by WS-Security.
///
/// Static, without state. Use it while the dispatcher is set up.
class TZSOAP_WS_API TzSoapWsService {
public:
    /// How requests with WS-Addressing are answered.
    struct AddressingOptions {
        /// The action of an answer that is not a fault; that of the request and "Response" unless
        /// set.
        std::function<TzCString(const TzSoapWsAddressing& request, const TzSoapMessage& answer)>
            answerAction = {};
        /// Whether a request without WS-Addressing is refused.
        bool required = false;
    };

    TzSoapWsService() = delete;

    /// From now on `dispatcher` understands the entries of WS-Addressing: it refuses what
    /// `TzSoapWsAddressing::read` and `checkAction` refuse, answers go where ReplyTo and FaultTo
    /// say, as far as that is back on the connection (anonymous) or nowhere (none), and say what
    /// they relate to. A request whose answer would have to go anywhere else is refused with
    /// OnlyAnonymousAddressSupported and not run: whoever can make a service post to an address of
    /// his choice attacks with it.
    static void addAddressing(TzSoapDispatcher& dispatcher);
    /// As above, in the way that `options` say.
    static void addAddressing(TzSoapDispatcher& dispatcher, AddressingOptions options);

    /// From now on `dispatcher` understands Security entries and runs requests that `verifier`
    /// accepts, only these. Operations find the user by `TzSoapWsVerifier::userOf`. Add it after
    /// `addAddressing`, so that refusals are addressed. `std::invalid_argument` for a null pointer.
    static void addSecurity(TzSoapDispatcher& dispatcher,
                            std::shared_ptr<const TzSoapWsVerifier> verifier);
};
