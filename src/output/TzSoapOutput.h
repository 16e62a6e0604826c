// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include "output/TzSoapTagOutput.h"

#include <string_view>
#include <typeinfo>

class TzMimeMultipart;
class TzSoapArrayTypeImp;
class TzSoapBody;
class TzSoapCompactArrayType;
class TzSoapCompositeType;
class TzSoapCompositeTypeImp;
class TzSoapConstVisitor;
class TzSoapFault;
class TzSoapFaultImp;
class TzSoapHeader;
class TzSoapMessage;
class TzSoapMisunderstoodType;
class TzSoapReferenceType;
class TzSoapReferenceTypeImp;
class TzSoapSimpleType;
class TzSoapSimpleTypeImp;
class TzSoapSparseArrayType;
class TzSoapType;
class TzSoapTypeImp;
class TzSoapUserDefinedType;
class TzSoapValueList;

/// What every kind of element looks like on the wire: the order of its parts and the form of its
/// content.
///
/// `visitor` is the visitor on whose behalf an element is written; it is given the element's
/// children.
class TzSoapOutput : public TzSoapTagOutput {
public:
    /// An output to `text`; MIME parts that references point at go into `multipart` unless that is
    /// null. `visitor` is the class of the visitors that leave all elements to this object, `unit`
    /// the source that internal errors name.
    TzSoapOutput(TzXmlWriter* text, TzMimeMultipart* multipart, const std::type_info& visitor,
                 const char* unit)
        : TzSoapTagOutput(text), multipart_(multipart), visitor_(&visitor), unit_(unit) {}
    TzSoapOutput(const TzSoapOutput&) = default;
    TzSoapOutput& operator=(const TzSoapOutput&) = default;
    ~TzSoapOutput() override;

    /// Inserts MIME parts into `multipart` from now on, or nowhere when it is null.
    void setMultipart(TzMimeMultipart* multipart) noexcept { multipart_ = multipart; }
    /// Whether all that the values visited so far hold was written.
    bool wroteAll() const noexcept { return state().wroteAll; }
    /// Whether an entry visited so far, or what it holds, led to a MIME part; values written behind
    /// the entries because they are referred to do not count.
    bool attached() const noexcept { return state().attached; }
    /// Writes messages in `version` from now on, whatever their own.
    void fixVersion(TzSoapVersion::Version version);

    void write(TzSoapConstVisitor& visitor, const TzSoapMessage& message);
    void write(TzSoapConstVisitor& visitor, const TzSoapHeader& header);
    void write(TzSoapConstVisitor& visitor, const TzSoapBody& body);
    void write(TzSoapConstVisitor& visitor, const TzSoapFault& fault);
    void write(const TzSoapType& value);
    void write(const TzSoapSimpleType& value);
    void write(const TzSoapUserDefinedType& value);
    void write(const TzSoapMisunderstoodType& value);
    void write(const TzSoapReferenceType& reference);
    void write(TzSoapConstVisitor& visitor, const TzSoapCompositeType& value);
    void write(TzSoapConstVisitor& visitor, const TzSoapCompactArrayType& array);
    void write(TzSoapConstVisitor& visitor, const TzSoapSparseArrayType& array);

protected:
    /// The name on a fault's tag.
    TagName faultName(const TzSoapFaultImp& fault) const;
    /// Writes the subcodes of the fault named `name` from `first` on, each within the one before.
    void writeSubcodes(const TagName& name, const TzSoapFaultImp& fault, unsigned int first,
                       unsigned int count);

private:
    /// Whether a value is written in the encoding of SOAP, and says so.
    enum class Encoding : bool { None, Soap };

    // Messages
    void collectPart(const TzXmlName& name, const TzSoapElementImp& part);
    TagName partName(const TzXmlName& name) const;
    void startBlock(const TagName& name);
    void endBlock(const TagName& name);
    void writeEntries(TzSoapConstVisitor& visitor, const TzSoapValueList& entries);
    void writePending(TzSoapConstVisitor& visitor);
    bool takePending(const TzCString& id, const TzSoapType& value);

    // Values
    void collectValue(const TzXmlName& name, const TzSoapTypeImp& value, Encoding encoding);
    void startValue(const TagName& name, const TzSoapTypeImp& value);
    void writeEmpty(const TagName& name, const TzSoapTypeImp& value);
    void remember(const TzSoapTypeImp& value);
    void writeSimple(TzSoapSimpleTypeImp& value);
    std::string_view contentOf(const TzSoapSimpleTypeImp& value);
    bool writeDirectly(TzSoapConstVisitor& visitor, const TzSoapType& child);
    void writeChild(TzSoapConstVisitor& visitor, const TzSoapType& child);
    void writeMarkup(const TzCString& markup, const TzSoapTypeImp& value);
    std::size_t styleInsertion(const TzCString& markup) const;
    void keepTarget(const TzSoapReferenceTypeImp& reference, const TzSoapReferenceType& handle);
    void writeComposite(TzSoapConstVisitor& visitor, const TzXmlName& name,
                        TzSoapCompositeTypeImp& value);
    void startArray(const TagName& name, TzSoapArrayTypeImp& array);
    void writeItem(TzSoapConstVisitor& visitor, const TzSoapType& item);
    void writePlaceholder();

    // Faults
    TagName faultPart(const TagName& fault, TzSoapVersion::SoapElement element) const;
    void declareForFault(const TagName& name, const TzSoapFaultImp& fault);
    void writeFaultParts(TzSoapConstVisitor& visitor, const TagName& name,
                         const TzSoapFaultImp& fault);
    void writeNestedCode(const TagName& name, const TzSoapFaultImp& fault);
    void writeDottedCode(const TagName& name, const TzSoapFaultImp& fault);
    void writeDetail(TzSoapConstVisitor& visitor, const TagName& name, const TzSoapFaultImp& fault);
    void writeLine(const TagName& name, std::string_view content);

    TzMimeMultipart* multipart_;
    const std::type_info* visitor_;
    const char* unit_;
    bool versionFixed_ = false;
};
