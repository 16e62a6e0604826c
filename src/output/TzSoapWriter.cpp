// SPDX-License-Identifier: MIT
#include <soap/TzSoapWriter.h>

#include "output/TzSoapWriterOutput.h"

TzSoapWriter::TzSoapWriter(TzXmlWriter* writer, TzMimeMultipart* multipart)
    : output_(std::make_unique<TzSoapWriterOutput>(writer, multipart, typeid(TzSoapWriter),
                                                   "TzSoapWriter")) {}

TzSoapWriter::TzSoapWriter(TzSoapWriter* parent)
    : output_(std::make_unique<TzSoapWriterOutput>(*parent->output_)) {
    output_->becomeInner();
}

TzSoapWriter::TzSoapWriter(const TzSoapWriter& other)
    : TzSoapConstVisitor(other), output_(std::make_unique<TzSoapWriterOutput>(*other.output_)) {
    output_->separate();
}

TzSoapWriter& TzSoapWriter::operator=(const TzSoapWriter& other) {
    if (this != &other) {
        *output_ = *other.output_;
        output_->separate();
    }
    return *this;
}

TzSoapWriter::~TzSoapWriter() = default;

void TzSoapWriter::setVersion(TzSoapVersion::Version version) { output_->fixVersion(version); }

void TzSoapWriter::setWriter(TzXmlWriter* writer) { output_->setText(writer); }

void TzSoapWriter::setMimeMultipart(TzMimeMultipart* multipart) {
    output_->setMultipart(multipart);
}

bool TzSoapWriter::wroteAll() const noexcept { return output_->wroteAll(); }

bool TzSoapWriter::attached() const noexcept { return output_->attached(); }

void TzSoapWriter::visit(const TzSoapMisunderstoodType& value) { output_->write(value); }

void TzSoapWriter::visit(const TzSoapReferenceType& value) { output_->write(value); }

void TzSoapWriter::visit(const TzSoapUserDefinedType& value) { output_->write(value); }

void TzSoapWriter::visit(const TzSoapSimpleType& value) { output_->write(value); }

void TzSoapWriter::visit(const TzSoapFault& fault) { output_->write(*this, fault); }

void TzSoapWriter::visit(const TzSoapCompositeType& value) { output_->write(*this, value); }

void TzSoapWriter::visit(const TzSoapSparseArrayType& value) { output_->write(*this, value); }

void TzSoapWriter::visit(const TzSoapCompactArrayType& value) { output_->write(*this, value); }

void TzSoapWriter::visit(const TzSoapArrayType&) {}

void TzSoapWriter::visit(const TzSoapType& value) { output_->write(value); }

void TzSoapWriter::visit(const TzSoapBody& body) { output_->write(*this, body); }

void TzSoapWriter::visit(const TzSoapHeader& header) { output_->write(*this, header); }

void TzSoapWriter::visit(const TzSoapMessage& message) { output_->write(*this, message); }
