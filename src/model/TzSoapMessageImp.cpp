// SPDX-License-Identifier: MIT
#include <soap/TzSoapMessageImp.h>

#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapReferenceToSoapTypeImp.h>
#include <soap/TzSoapReferenceType.h>
#include <tz/xml/TzXmlSAXParser.h>

#include "model/TzSoapAccess.h"

#include <vector>

/// What reading needs; a message that is only written goes without.
struct TzSoapMessageImp::Parsing {
    TzXmlSAXParser parser;
    TzSoapParseContext context;
};

/// References whose targets lead back to them: values that hold each other never die by themselves.
struct TzSoapMessageImp::Rings {
    Rings() = default;
    Rings(const Rings&) = delete;
    Rings& operator=(const Rings&) = delete;
    ~Rings() {
        for (const Closing& closing : closings) {
            // What the program has given another target since is its own.
            if (closing.reference.hasReference() &&
                TzSoapAccess::sameBody(closing.reference.getSoapReference(), closing.target)) {
                static_cast<TzSoapReferenceToSoapTypeImp&>(TzSoapAccess::body(closing.reference))
                    .clearReference();
            }
        }
    }

    struct Closing {
        TzSoapReferenceType reference;
        TzSoapType target;
    };

    std::vector<Closing> closings;
};

TzSoapMessageImp::TzSoapMessageImp(TzSoapVersion::Version version)
    : TzSoapElementImp(TzSoapVersion::getSoapElementName(TzSoapVersion::Envelope, version)),
      header_(TzSoapAccess::handle<TzSoapHeader>(version)),
      body_(TzSoapAccess::handle<TzSoapBody>(version)), version_(version),
      encodingPrefix_(TzSoapVersion::getSoapVersion(version).getSoapEnc().getPrefix()) {}

TzSoapMessageImp::TzSoapMessageImp(const TzSoapMessageImp& other)
    : TzSoapElementImp(other), TzSoapContentHandler(other), TzBodyBase(other),
      header_(other.header_.copy()), body_(other.body_.copy()), prolog_(other.prolog_),
      hasProlog_(other.hasProlog_), typeRegistry_(other.typeRegistry_), version_(other.version_),
      encodingPrefix_(other.encodingPrefix_), multipart_(other.multipart_),
      attachments_(other.attachments_), readLimits_(other.readLimits_),
      droppedText_(other.droppedText_), rings_(other.rings_) {}

TzSoapMessageImp::~TzSoapMessageImp() = default;

TzSoapMessageImp* TzSoapMessageImp::clone() const { return new TzSoapMessageImp(*this); }

void TzSoapMessageImp::clear() {
    clearElement();
    TzSoapAccess::body(header_).clear();
    TzSoapAccess::body(body_).clear();
    removeProlog();
    droppedText_ = {};
    clearAttachments();
}

void TzSoapMessageImp::setVersion(TzSoapVersion::Version version) {
    getName().setNamespace(TzSoapVersion::getSoapVersion(version).getSoapEnv());
    version_ = version;
    TzSoapAccess::body(header_).setVersion(version);
    TzSoapAccess::body(body_).setVersion(version);
}

void TzSoapMessageImp::setProlog(const TzXmlProlog& prolog) {
    prolog_ = prolog;
    hasProlog_ = true;
}

void TzSoapMessageImp::removeProlog() {
    prolog_ = TzXmlProlog();
    hasProlog_ = false;
}

void TzSoapMessageImp::extractEnvelope(std::string_view text) {
    multipart_ = TzMimeMultipart();
    parseEnvelope(text);
}

void TzSoapMessageImp::keepRing(const TzSoapReferenceType& reference) {
    if (rings_ == nullptr) {
        rings_ = std::make_shared<Rings>();
    }
    rings_->closings.push_back({reference, reference.getSoapReference()});
}

void TzSoapMessageImp::breakRings() noexcept { rings_.reset(); }

TzSoapMessageImp::Parsing& TzSoapMessageImp::parsing() {
    if (parsing_ == nullptr) {
        parsing_ = std::make_unique<Parsing>();
    }
    return *parsing_;
}

TzSoapParseContext& TzSoapMessageImp::context() { return parsing().context; }

TzXmlSAXParser& TzSoapMessageImp::parser() { return parsing().parser; }
