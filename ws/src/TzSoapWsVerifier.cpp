// SPDX-License-Identifier: MIT
#include <soap/TzSoapWsVerifier.h>

#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapValueReader.h>
#include <tz/mime/TzMimeBase64.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlUtils.h>

#include "TzSoapWsCrypto.h"
#include "TzSoapWsFaults.h"
#include "TzSoapWsNames.h"
#include "TzSoapWsReplays.h"

#include <algorithm>
#include <new>
#include <utility>

using TzSoapWsNames::wsse;
using TzSoapWsNames::wsu;

namespace {

using Time = TzSoapWsVerifier::Time;

/// `options` whose times can be added to those of a message: a duration without limit is a long
/// one.
TzSoapWsVerifier::Options bounded(TzSoapWsVerifier::Options options) {
    constexpr std::chrono::seconds Longest = TzSoapWsVerifier::Options::Longest;
    options.freshness = std::min(options.freshness, Longest);
    options.clockSkew = std::min(options.clockSkew, Longest);
    return options;
}

/// What the Security entry of one message says, and the refusals of it.
class Request {
public:
    Request(const TzSoapMessage& message, const TzSoapNode& node) : version_(message.getVersion()) {
        for (const TzSoapType& entry : message.getSoapHeader()) {
            if (entry.getName() == TzSoapWsVerifier::entryName() && node.isTargetOf(entry)) {
                takeOnce(security_, entry);
            }
        }
        if (const auto held =
                security_ ? tzSoapCast<TzSoapCompositeType>(*security_) : std::nullopt) {
            for (const TzSoapType& token : *held) {
                take(token);
            }
        }
    }

    const std::optional<TzSoapType>& timestamp() const noexcept { return timestamp_; }
    const std::optional<TzSoapType>& user() const noexcept { return user_; }

    /// The text of the child of `parent`, empty where it is absent.
    static std::optional<TzCString> textOf(const TzSoapType& parent, const TzXmlName& name) {
        const auto child = parent.findChildValue(name);
        const auto simple = child ? tzSoapCast<TzSoapSimpleType>(*child) : std::nullopt;
        return simple ? std::optional(simple->getString()) : std::nullopt;
    }
    /// The time in the child of `parent`, empty where it is absent.
    std::optional<Time> timeOf(const TzSoapType& parent, const char* localName) const {
        const auto child = parent.findChildValue(wsu(localName));
        if (!child) {
            return std::nullopt;
        }
        try {
            return std::chrono::floor<Time::duration>(TzSoapValueReader(*child).getSysTime());
        } catch (const TzXmlBadArgError&) {
            invalid(TzCString("its ") + localName + " is not a time");
        }
    }

    [[noreturn]] void invalid(const TzCString& reason) const {
        refuse(wsse("InvalidSecurity"),
               "An error was discovered processing the Security header: " + reason);
    }
    [[noreturn]] void unsupported() const {
        refuse(wsse("UnsupportedSecurityToken"), "An unsupported token was provided");
    }
    [[noreturn]] void expired() const { refuse(wsu("MessageExpired"), "The message has expired"); }
    [[noreturn]] void failed() const {
        // The same for every cause: it must not help to guess.
        refuse(wsse("FailedAuthentication"),
               "The security token could not be authenticated or authorized");
    }

private:
    void take(const TzSoapType& token) {
        if (token.getName() == wsu("Timestamp")) {
            takeOnce(timestamp_, token);
        } else if (token.getName() == wsse("UsernameToken")) {
            takeOnce(user_, token);
        }
    }
    void takeOnce(std::optional<TzSoapType>& place, const TzSoapType& value) {
        if (place) {
            invalid(value.getName().getLocalName() + " stands twice");
        }
        place = value;
    }
    [[noreturn]] void refuse(const TzXmlName& code, const TzCString& reason) const {
        throw TzSoapWsFaults::make(version_, {code}, reason);
    }

    TzSoapVersion::Version version_;
    std::optional<TzSoapType> security_;
    std::optional<TzSoapType> timestamp_;
    std::optional<TzSoapType> user_;
};

/// The attribute "Type" of the password in `user`, the one for plain text where it is absent.
TzCString passwordType(const TzSoapType& user) {
    const auto password = user.findChildValue(wsse("Password"));
    const TzXmlName name("Type");
    const TzXmlAttribute* const type = password ? password->findAttribute(name) : nullptr;
    return type != nullptr && type != password->attributesEnd()
               ? TzCString(TzXmlUtils::trim(type->getValue()))
               : TzCString(TzSoapWsNames::PasswordText);
}

/// The bytes that the child of `user` holds in Base64; empty where it is absent or holds none.
std::optional<TzCString> bytesOf(const TzSoapType& user, const TzXmlName& name) {
    const auto text = Request::textOf(user, name);
    return text ? TzMimeBase64::decode(TzXmlUtils::trim(*text)) : std::nullopt;
}

} // namespace

class TzSoapWsVerifier::Check {
public:
    Check(const TzSoapWsVerifier& verifier, const TzSoapMessage& message, Time now)
        : verifier_(verifier), request_(message, verifier.options_.node), now_(now) {}

    TzCString run() const {
        checkTimestamp();
        if (!request_.user()) {
            request_.failed();
        }
        const TzSoapType& user = *request_.user();
        const auto name = Request::textOf(user, wsse("Username"));
        if (!name || name->empty()) {
            request_.invalid("the user has no name");
        }
        const TzCString type = passwordType(user);
        if (type == TzSoapWsNames::PasswordDigest) {
            checkDigest(user, *name);
        } else if (type == TzSoapWsNames::PasswordText && options().plainPasswords) {
            checkPlain(user, *name);
        } else {
            request_.unsupported();
        }
        return *name;
    }

private:
    const Options& options() const noexcept { return verifier_.options_; }

    void checkTimestamp() const {
        if (!request_.timestamp()) {
            if (options().timestampRequired) {
                request_.invalid("Timestamp is missing");
            }
            return;
        }
        const auto created = request_.timeOf(*request_.timestamp(), "Created");
        const auto expires = request_.timeOf(*request_.timestamp(), "Expires");
        if (created) {
            checkCreated(*created, !expires);
        }
        if (expires ? now_ - options().clockSkew > *expires : !created) {
            request_.expired();
        }
    }
    void checkCreated(Time created, bool mustBeFresh) const {
        const bool isAhead = created > now_ + options().clockSkew;
        const bool isOld = created < now_ - options().freshness - options().clockSkew;
        if (isAhead || (mustBeFresh && isOld)) {
            request_.expired();
        }
    }
    void checkPlain(const TzSoapType& user, const TzCString& name) const {
        const auto given = Request::textOf(user, wsse("Password"));
        const auto known = verifier_.passwords_(name);
        const bool isEqual =
            TzSoapWsCrypto::equal(given.value_or(TzCString()), known.value_or(TzCString()));
        if (!given || !known || !isEqual) {
            request_.failed();
        }
    }
    void checkDigest(const TzSoapType& user, const TzCString& name) const {
        const auto nonce = bytesOf(user, wsse("Nonce"));
        const auto created = request_.timeOf(user, "Created");
        const auto createdText = Request::textOf(user, wsu("Created"));
        const auto given = bytesOf(user, wsse("Password"));
        if (!nonce || !created || !createdText || !given) {
            request_.invalid("a digest needs Nonce, Created and Password");
        }
        checkCreated(*created, true);
        const auto known = verifier_.passwords_(name);
        const TzCString computed =
            TzSoapWsCrypto::sha1(*nonce + *createdText + known.value_or(TzCString()));
        if (!TzSoapWsCrypto::equal(*given, computed) || !known) {
            request_.failed();
        }
        // Only now, so that nobody without a password fills the cache. The digest, because its
        // parts can be cut in two in another way.
        const Time end = *created + options().freshness + options().clockSkew;
        if (verifier_.replays_->add(computed, end, now_) != TzSoapWsReplays::Result::New) {
            request_.failed();
        }
    }

    const TzSoapWsVerifier& verifier_;
    Request request_;
    Time now_;
};

TzSoapWsVerifier::TzSoapWsVerifier(Passwords passwords)
    : TzSoapWsVerifier(std::move(passwords), Options()) {}

TzSoapWsVerifier::TzSoapWsVerifier(Passwords passwords, Options options)
    : passwords_(std::move(passwords)), options_(bounded(std::move(options))),
      replays_(std::make_unique<TzSoapWsReplays>(options_.replayLimit)) {}

TzSoapWsVerifier::~TzSoapWsVerifier() = default;

const TzXmlName& TzSoapWsVerifier::entryName() {
    static const TzXmlName name = wsse("Security");
    return name;
}

TzCString TzSoapWsVerifier::verify(const TzSoapMessage& message, Time now) const {
    return Check(*this, message, now).run();
}

TzCString TzSoapWsVerifier::userOf(const TzSoapMessage& message) const {
    const Request request(message, options_.node);
    return request.user() ? Request::textOf(*request.user(), wsse("Username")).value_or(TzCString())
                          : TzCString();
}
