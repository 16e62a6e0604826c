// SPDX-License-Identifier: MIT
#include <soap/TzSoapWriter.h>

#include "model/TzSoapAccess.h"
#include "output/TzSoapEnvelopeTag.h"
#include "output/TzSoapMessageText.h"
#include "output/TzSoapOutputPath.h"
#include "output/TzSoapWriterRules.h"

#include <typeinfo>

namespace {

const TzSoapOutputContext::Kind& writerKind() noexcept {
    static const TzSoapOutputContext::Kind kind{TzSoapWriterRules::instance(), typeid(TzSoapWriter),
                                                "TzSoapWriter"};
    return kind;
}

} // namespace

[[gnu::hot]] std::optional<bool> TzSoapMessageText::write(const TzSoapMessage& message,
                                                          TzXmlWriter& xml, TzSoapLayout layout,
                                                          TzMimeMultipart* parts) {
    // Nobody else gets this writer, so what it writes with need not outlive this call.
    TzSoapOutputPath path(writerKind(), &xml, parts);
    TzSoapWriter writer = TzSoapAccess::writingWith<TzSoapWriter>(path);
    TzSoapEnvelopeTagInUse envelope;
    path.context.setEnvelopeTag(*envelope);
    path.context.setCompact(layout == TzSoapLayout::Compact);
    path.write(writer, message);
    return path.context.book().entriesLedToParts();
}

TzSoapWriter::TzSoapWriter(TzXmlWriter* writer, TzMimeMultipart* multipart)
    : path_(std::make_shared<TzSoapOutputPath>(writerKind(), writer, multipart)) {}

TzSoapWriter::TzSoapWriter(TzSoapWriter* parent)
    : path_(std::make_shared<TzSoapOutputPath>(parent->path_)) {}

TzSoapWriter::TzSoapWriter(TzSoapOutputPath& path) noexcept
    : path_(std::shared_ptr<TzSoapOutputPath>(), &path) {}

TzSoapWriter::TzSoapWriter(const TzSoapWriter& other)
    : TzSoapConstVisitor(other), path_(std::make_shared<TzSoapOutputPath>(other.path_->context)) {}

TzSoapWriter& TzSoapWriter::operator=(const TzSoapWriter& other) {
    if (this != &other) {
        path_->assign(*other.path_);
    }
    return *this;
}

TzSoapWriter::~TzSoapWriter() = default;

void TzSoapWriter::setVersion(TzSoapVersion::Version version) {
    path_->context.fixVersion(version);
}

void TzSoapWriter::setWriter(TzXmlWriter* writer) { path_->context.setXml(writer); }

void TzSoapWriter::setCompact(bool compact) { path_->context.setCompact(compact); }

void TzSoapWriter::setMimeMultipart(TzMimeMultipart* multipart) {
    path_->context.setMultipart(multipart);
}

void TzSoapWriter::visit(const TzSoapMisunderstoodType& value) { path_->write(value); }

void TzSoapWriter::visit(const TzSoapReferenceType& value) { path_->write(*this, value); }

void TzSoapWriter::visit(const TzSoapUserDefinedType& value) { path_->write(value); }

void TzSoapWriter::visit(const TzSoapSimpleType& value) { path_->write(value); }

void TzSoapWriter::visit(const TzSoapFault& fault) { path_->write(*this, fault); }

void TzSoapWriter::visit(const TzSoapCompositeType& value) { path_->write(*this, value); }

void TzSoapWriter::visit(const TzSoapSparseArrayType& value) { path_->write(*this, value); }

void TzSoapWriter::visit(const TzSoapCompactArrayType& value) { path_->write(*this, value); }

void TzSoapWriter::visit(const TzSoapArrayType&) {}

void TzSoapWriter::visit(const TzSoapType& value) { path_->write(value); }

void TzSoapWriter::visit(const TzSoapBody& body) { path_->write(*this, body); }

void TzSoapWriter::visit(const TzSoapHeader& header) { path_->write(*this, header); }

void TzSoapWriter::visit(const TzSoapMessage& message) { path_->write(*this, message); }
