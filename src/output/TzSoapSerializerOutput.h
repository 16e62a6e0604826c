// SPDX-License-Identifier: MIT
#pragma once

#include <tz/mime/TzMimeMultipart.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlStringWriter.h>

#include "output/TzSoapOutput.h"

#include <memory>
#include <string_view>
#include <vector>

/// How the serializer scopes: an element's own declarations hold before anything else of it is
/// looked at, prefixes are numbered only where they clash, and an encoding style that is in force
/// already is left out. Owns the text and the package that it fills.
class TzSoapSerializerOutput : public TzSoapOutput {
public:
    explicit TzSoapSerializerOutput(const std::type_info& visitor);
    /// Copies text, scopes, styles and package as they stand.
    TzSoapSerializerOutput(const TzSoapSerializerOutput& other);
    TzSoapSerializerOutput& operator=(const TzSoapSerializerOutput& other);
    ~TzSoapSerializerOutput() override;

    /// The text written so far.
    const TzCString& writtenText() const { return string_.getString(); }
    /// Hands the text written so far over.
    TzCString takeText() { return string_.takeString(); }
    /// A package of its own with the parts met so far.
    TzMimeMultipart copyOfParts() const;

    /// Opens the scope of an element that is not written by this object.
    void push(const TzSoapElementImp& element);
    /// Closes the scope opened last.
    void pop() noexcept;
    /// An attribute as it will be written.
    TzXmlAttribute verified(const TzXmlAttribute& attribute);
    /// Gives an attribute of another version the name of this version; false for any other one.
    bool adjustVersion(TzXmlAttribute& attribute) const;
    /// Collects what a value carries, its shape or reference attribute included.
    void collectValueOf(const TzSoapTypeImp& value);
    /// Whether `style` is in force around the current element.
    bool isStylePresent(std::string_view style) const noexcept;
    /// Writes the subcodes of `fault` from `first` on.
    void writeSubcodesOf(const TzSoapFaultImp& fault, unsigned int first, unsigned int count);
    using TzSoapOutput::outerStyle;

    void collectBodyProperties(const TzSoapElementImp& body) override;
    TzCString uniquePrefix(std::string_view prefix, std::string_view uri) const override;

private:
    void enterDeclarations(const TzXmlAttributeSet& attributes) override;
    void collectDeclaration(const TzXmlAttribute& declaration) override;
    void collectStyle(std::string_view style) override;
    void doQualifyStyle() override;
    void writeStyle() override;

    TzXmlStringWriter string_;
    TzMimeMultipart multipart_;
    std::vector<std::unique_ptr<Element>> pushed_; // refer to this object: never copied
};
