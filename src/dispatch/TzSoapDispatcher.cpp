// SPDX-License-Identifier: MIT
#include <soap/TzSoapDispatcher.h>

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapFaultError.h>
#include <soap/TzSoapFaultMessage.h>
#include <soap/TzSoapHttpBinding.h>

#include "dispatch/TzSoapInVersion.h"
#include "service/TzSoapErrorMatch.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int Accepted = 202;
constexpr int UnsupportedMediaType = 415;
constexpr std::size_t DeepestRequest = 100;
constexpr std::size_t MostMisunderstood = 16;

TzSoapHttpTransportContext contextOf(const TzSoapHttpRequest& request) {
    TzSoapHttpTransportContext context;
    if (!request.contentType.empty()) {
        context.add(TzSoapHttpBinding::getContentTypeLabel(), request.contentType);
    }
    if (!request.action.empty()) {
        context.setSoapAction(request.action);
    }
    return context;
}

TzSoapHttpAnswer packed(const TzSoapMessage& answer) {
    TzSoapHttpAnswer http;
    http.body = TzSoapHttpBinding::pack(answer, http.headers);
    http.status = TzSoapHttpBinding::getStatus(answer);
    return http;
}

/// A fault that was just made, in the style of the service.
TzSoapHttpAnswer packedFault(TzSoapMessage fault, TzSoapStyle style) {
    fault.setStyle(style);
    return packed(fault);
}

bool isVersionMismatch(const TzSoapMessage& fault) {
    return fault.getSoapBody().getSoapFault().getCodeValue() ==
           fault.getSoapVersion().getFaultCode(TzSoapVersion::VersionMismatch);
}

template <typename Map, typename Key> const auto* lookedUp(const Map& map, const Key& key) {
    const auto found = map.find(key);
    return found == map.end() ? nullptr : &found->second;
}

} // namespace

TzSoapDispatcher::TzSoapDispatcher(TzSoapStyle style)
    : style_(style), versions_{TzSoapVersion::V1_2Rec, TzSoapVersion::V1_1, TzSoapVersion::V1_2},
      limits_{.depth = DeepestRequest} {}

void TzSoapDispatcher::add(const TzXmlName& name, TzSoapOperation operation) {
    add(name, std::move(operation), style_);
}

void TzSoapDispatcher::add(const TzXmlName& name, TzSoapOperation operation, TzSoapStyle style) {
    byName_.insert_or_assign(name, Entry{std::move(operation), style});
    mixesStyles_ = mixesStyles_ || style != style_;
}

void TzSoapDispatcher::addForAction(const TzCString& action, TzSoapOperation operation) {
    addForAction(action, std::move(operation), style_);
}

void TzSoapDispatcher::addForAction(const TzCString& action, TzSoapOperation operation,
                                    TzSoapStyle style) {
    byAction_.insert_or_assign(action, Entry{std::move(operation), style});
    mixesStyles_ = mixesStyles_ || style != style_;
}

void TzSoapDispatcher::setDefault(TzSoapOperation operation) {
    default_ = Entry{std::move(operation), style_};
}

void TzSoapDispatcher::setVersions(const std::vector<TzSoapVersion::Version>& versions) {
    versions_ = versions;
}

void TzSoapDispatcher::setReadLimits(const TzSoapReadLimits& limits) { limits_ = limits; }

void TzSoapDispatcher::addInterceptor(Interceptor interceptor) {
    interceptors_.push_back(std::move(interceptor));
}

void TzSoapDispatcher::setFailureHook(FailureHook hook) { hook_ = std::move(hook); }

/// The style that a request was meant in, which was read literally because that loses nothing.
TzSoapStyle TzSoapDispatcher::styleOf(const TzCString& action, const TzSoapMessage& request) const {
    const Entry* entry = lookedUp(byAction_, action);
    for (const TzSoapType& candidate : request.getSoapBody()) {
        if (entry != nullptr) {
            break;
        }
        entry = lookedUp(byName_, candidate.getName());
    }
    return entry == nullptr ? style_ : entry->style;
}

void TzSoapDispatcher::read(const TzSoapHttpTransportContext& context, const TzCString& body,
                            TzSoapMessage& request) const {
    request.setReadLimits(limits_);
    request.setStyle(mixesStyles_ ? TzSoapStyle::Literal : style_);
    TzSoapHttpBinding::unpack(context, body, request);
    if (mixesStyles_) {
        const TzSoapStyle meant = styleOf(TzSoapHttpBinding::getAction(context), request);
        if (meant != request.getStyle()) {
            request.setStyle(meant);
            TzSoapHttpBinding::unpack(context, body, request);
        }
    }
}

bool TzSoapDispatcher::serves(TzSoapVersion::Version version) const {
    return std::find(versions_.begin(), versions_.end(), version) != versions_.end();
}

TzSoapMessage TzSoapDispatcher::versionMismatch(TzSoapVersion::Version asked,
                                                const TzCString& reason) const {
    // Whoever knows only SOAP 1.1 understands no other answer.
    const bool upgrades = asked != TzSoapVersion::V1_1 && serves(TzSoapVersion::V1_2Rec);
    return TzSoapFaultMessage::makeVersionMismatch(
        upgrades ? TzSoapVersion::V1_2Rec : TzSoapVersion::V1_1, versions_, reason);
}

TzSoapHttpAnswer TzSoapDispatcher::refusal(const Tzxmsg& error, TzSoapVersion::Version asked,
                                           TzSoapVersion::Version met) const {
    if (tzSoapIsParseError(error, *tzsoap_INVALID_CONTENT_TYPE())) {
        return {.status = UnsupportedMediaType, .headers = {}, .body = {}};
    }
    const TzSoapMessage fault = TzSoapFaultMessage::makeFrom(met, error);
    return packedFault(isVersionMismatch(fault)
                           ? versionMismatch(asked, fault.getSoapBody().getSoapFault().getReason())
                           : fault,
                       style_);
}

const TzSoapDispatcher::Entry& TzSoapDispatcher::find(const TzCString& action,
                                                      const TzSoapMessage& request) const {
    const Entry* entry = lookedUp(byAction_, action);
    if (entry == nullptr) {
        const TzXmlName name = TzSoapOperation::in(request).getName();
        entry = lookedUp(byName_, name);
        if (entry == nullptr && !default_) {
            throw TzSoapFaultError::procedureNotPresent(name);
        }
    }
    return entry == nullptr ? *default_ : *entry;
}

/// A request on its way through the interceptors.
struct TzSoapDispatcher::Passage {
    const TzCString& action;
    TzSoapVersion::Version version;
    TzSoapStyle style;
    bool isLeaving = false; ///< The failure hook threw.
};

/// Runs the operation that `request` asks for: the answer, which may be a fault, or nothing.
TzSoapDispatcher::Answer TzSoapDispatcher::respond(const TzCString& action,
                                                   TzSoapMessage& request) const {
    std::vector<TzXmlName> misunderstood = node_.findMisunderstood(request);
    if (!misunderstood.empty()) {
        // An answer repeats the namespace of each name, which the request states once.
        misunderstood.resize(std::min(misunderstood.size(), MostMisunderstood));
        TzSoapMessage fault =
            TzSoapFaultMessage::makeMustUnderstand(request.getVersion(), misunderstood);
        fault.setStyle(request.getStyle());
        return fault;
    }
    const Entry& entry = find(action, request);
    if (mixesStyles_ && entry.style != request.getStyle()) {
        throw TzSoapFaultError(TzSoapVersion::Client, "The request is to operations of two styles");
    }
    if (!foreignEncodings_ && entry.style == TzSoapStyle::Encoded &&
        request.hasUserDefinedValues()) {
        throw TzSoapFaultError(TzSoapVersion::DataEncodingUnknown,
                               "A value is in an encoding that is not known here");
    }
    return entry.operation(request);
}

/// Runs the interceptors from `interceptor` on, and within them the operation. What these throw is
/// an answer already, so that the interceptors around see it.
TzSoapDispatcher::Answer TzSoapDispatcher::pass(std::size_t interceptor, Passage& passage,
                                                TzSoapMessage& request) const {
    return guarded(passage, [&] {
        if (interceptor == interceptors_.size()) {
            return respond(passage.action, request);
        }
        return interceptors_[interceptor](request, passage.action, [&](TzSoapMessage& passed) {
            return pass(interceptor + 1, passage, passed);
        });
    });
}

/// Runs `work`: its answer, or that to what it throws.
TzSoapDispatcher::Answer TzSoapDispatcher::guarded(Passage& passage,
                                                   const std::function<Answer()>& work) const {
    try {
        return work();
    } catch (const TzSoapFaultError& fault) {
        const bool isReceived = fault.getHttpStatus() != 0;
        if (isReceived || passage.isLeaving) {
            return failed(passage);
        }
        return guarded(passage, [&] { return fault.makeMessage(passage.version, passage.style); });
    } catch (...) { // An operation may throw whatever it likes; the sender must not see it.
        return failed(passage);
    }
}

/// The answer to the current exception, which goes to the hook.
TzSoapDispatcher::Answer TzSoapDispatcher::failed(Passage& passage) const {
    if (passage.isLeaving) {
        throw;
    }
    if (hook_) {
        passage.isLeaving = true;
        hook_(std::current_exception());
        passage.isLeaving = false;
    }
    TzSoapMessage fault =
        TzSoapFaultMessage::make(passage.version, TzSoapVersion::Server, "The operation failed");
    fault.setStyle(passage.style);
    return fault;
}

TzSoapHttpAnswer TzSoapDispatcher::answer(const TzSoapHttpRequest& http) const {
    const TzSoapHttpTransportContext context = contextOf(http);
    const TzSoapVersion::Version asked = TzSoapHttpBinding::getVersion(context, http.body);
    TzSoapMessage request(asked);
    try {
        read(context, http.body, request);
    } catch (const Tzxmsg& error) {
        // The version is known as soon as the envelope was met.
        return refusal(error, asked, request.getVersion());
    }
    const TzCString action = TzSoapHttpBinding::getAction(context);
    Passage passage{action, request.getVersion(), request.getStyle()};
    if (!serves(passage.version)) {
        return packedFault(
            versionMismatch(passage.version, "The version of the envelope is not served here"),
            passage.style);
    }
    TzSoapHttpAnswer answered{.status = Accepted, .headers = {}, .body = {}};
    const Answer made = pass(0, passage, request);
    const Answer failure = guarded(passage, [&]() -> Answer {
        if (made) {
            answered = packed(tzSoapInVersion(*made, passage.version));
        }
        return std::nullopt;
    });
    return failure ? packed(*failure) : answered;
}
