// SPDX-License-Identifier: MIT
#include <soap/TzSoapMessageImp.h>

#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapHeaderImp.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapVersionTable.h"
#include "reading/TzSoapParsing.h"

TzSoapMessageImp::TzSoapMessageImp(TzSoapVersion::Version version)
    : TzSoapElementImp(TzSoapVersion::getSoapElementName(TzSoapVersion::Envelope, version)),
      header_(TzSoapAccess::handle<TzSoapHeader>(version)),
      body_(TzSoapAccess::handle<TzSoapBody>(version)), version_(version),
      encodingPrefix_(TzSoapVersion::getSoapVersion(version).getSoapEnc().getPrefix()) {}

TzSoapMessageImp::TzSoapMessageImp(const TzSoapMessageImp& other)
    : TzSoapElementImp(other), TzSoapContentHandler(other), TzBodyBase(other),
      header_(other.header_.copy()), body_(other.body_.copy()), prolog_(other.prolog_),
      hasProlog_(other.hasProlog_), typeRegistry_(other.typeRegistry_), version_(other.version_),
      style_(other.style_), encodingPrefix_(other.encodingPrefix_), multipart_(other.multipart_),
      attachments_(other.attachments_), readLimits_(other.readLimits_),
      markupNames_(other.markupNames_), droppedText_(other.droppedText_), texts_(other.texts_) {}

TzSoapMessageImp::~TzSoapMessageImp() = default;

TzSoapMessageImp* TzSoapMessageImp::clone() const { return new TzSoapMessageImp(*this); }

void TzSoapMessageImp::clear() {
    clearElement();
    TzSoapAccess::body(header_).clear();
    TzSoapAccess::body(body_).clear();
    removeProlog();
    droppedText_ = {};
    clearAttachments();
    texts_ = {};
}

void TzSoapMessageImp::setVersion(TzSoapVersion::Version version) {
    const TzXmlName name = TzSoapVersionTable::renamed(
        getName(), TzSoapVersion::getSoapElementName(TzSoapVersion::Envelope, version));
    TzSoapAccess::body(body_).setVersion(version);
    // Nothing fails after this line.
    TzSoapAccess::body(header_).setVersion(version);
    setName(name);
    version_ = version;
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

TzSoapMessageImp::Parsing& TzSoapMessageImp::parsing() {
    if (parsing_ == nullptr) {
        parsing_ = Parsing::take();
    }
    return *parsing_;
}

TzSoapParseContext& TzSoapMessageImp::context() { return parsing().context; }

TzXmlSAXParser& TzSoapMessageImp::parser() { return parsing().parser; }
