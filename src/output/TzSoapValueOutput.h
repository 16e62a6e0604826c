// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include "output/TzSoapOutputContext.h"
#include "output/TzSoapSchemaLabels.h"
#include "output/TzSoapStartTag.h"
#include "output/TzSoapTagName.h"

#include <cstddef>
#include <string_view>

class TzSoapReferenceTypeImp;
class TzSoapSimpleTypeImp;
class TzSoapTypeImp;
class TzSoapUserDefinedTypeImp;
class TzXmlName;

/// Writes values that hold no others.
///
/// `position` is the position in a sparse array, "" for any other value.
class TzSoapValueOutput {
public:
    /// The values written in `context` with `startTag`, which must outlive this object.
    TzSoapValueOutput(const TzSoapOutputContext& context, TzSoapStartTag& startTag)
        : context_(context), startTag_(startTag), labels_(TzSoapSchemaLabels::instance()) {}
    TzSoapValueOutput(const TzSoapValueOutput&) = delete;
    TzSoapValueOutput& operator=(const TzSoapValueOutput&) = delete;

    /// Whether a value is nil, so that its content is left out; one without attributes is not, nor
    /// one that stays as it was read.
    static bool isNil(const TzSoapTypeImp& value);

    /// Writes a simple value on one line; sets its type when it shows one.
    void writeSimple(TzSoapSimpleTypeImp& value);
    /// Writes a simple value on one line, in full; the value stays as it is.
    void writeSimpleAt(TzSoapSimpleTypeImp& value, std::string_view position);
    /// Writes a user-defined value: its markup as it stands, or its text like that of a simple
    /// value.
    void writeUserDefined(TzSoapUserDefinedTypeImp& value, std::string_view position);
    /// Writes a reference as an empty tag and notes what it refers to.
    void writeReference(TzSoapReferenceTypeImp& value, std::string_view position);
    /// Writes the report of a misunderstood header entry as an empty tag.
    void writeMisunderstood(TzSoapTypeImp& value, std::string_view position);
    /// Writes a generic value: start tag, end tag.
    void writeGeneric(TzSoapTypeImp& value, std::string_view position);
    /// Writes an array position that holds no item as a nil value without name.
    void writePlaceholder(std::string_view position);

private:
    /// Whether a value is written in the encoding of SOAP, and says so.
    enum class Encoding : bool { None, Soap };

    void collect(TzSoapTypeImp& value, const TzXmlName& type, std::string_view position,
                 Encoding encoding);
    void start(const TzSoapTagName& name, const TzSoapTypeImp& value);
    void writeEmpty(const TzSoapTagName& name, const TzSoapTypeImp& value);
    void writeRest(const TzSoapTagName& tag, std::string_view content, bool escapes);
    void writeOwnMarkup(const TzSoapUserDefinedTypeImp& value);
    void writeMarkup(const TzCString& markup, const TzSoapTypeImp& value);
    std::size_t styleInsertion(const TzCString& markup) const;
    void keepTarget(TzSoapReferenceTypeImp& reference);
    TzXmlName reportName(const TzXmlName& own) const;

    const TzSoapOutputContext& context_;
    TzSoapStartTag& startTag_;
    const TzSoapSchemaLabels& labels_;
};
