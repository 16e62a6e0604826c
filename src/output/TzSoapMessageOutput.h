// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include "output/TzSoapContainerOutput.h"
#include "output/TzSoapOutputContext.h"
#include "output/TzSoapStartTag.h"

class TzSoapBodyImp;
class TzSoapConstVisitor;
class TzSoapElementImp;
class TzSoapEnvelopeTag;
class TzSoapHeaderImp;
class TzSoapMessageImp;
class TzSoapValueList;

/// Writes envelopes, headers and bodies.
class TzSoapMessageOutput {
public:
    /// Writes in `context` with `startTag` and `containers`, which must outlive this
    /// object.
    TzSoapMessageOutput(TzSoapOutputContext& context, TzSoapStartTag& startTag,
                        TzSoapContainerOutput& containers) noexcept
        : context_(context), startTag_(startTag), containers_(containers) {}
    TzSoapMessageOutput(const TzSoapMessageOutput&) = delete;
    TzSoapMessageOutput& operator=(const TzSoapMessageOutput&) = delete;

    /// Writes prolog, envelope, header (when it has entries) and body on behalf of `visitor`, which
    /// is given header and body.
    void write(TzSoapConstVisitor& visitor, const TzSoapMessageImp& message);
    /// Writes a header with its entries and the values that references point at.
    void write(TzSoapConstVisitor& visitor, const TzSoapHeaderImp& header);
    /// Writes a body with its fault, entries and the values that references point at. The fault is
    /// given to `visitor`.
    void write(TzSoapConstVisitor& visitor, const TzSoapBodyImp& body);

private:
    const TzSoapEnvelopeTag* enterRepeated(const TzSoapMessageImp& message);
    TzCString enter(const TzSoapMessageImp& message);
    void writeProlog(const TzSoapMessageImp& message);
    void writeStart(const TzSoapMessageImp& message, const TzSoapTagName& name);
    void writeParts(TzSoapConstVisitor& visitor, const TzSoapMessageImp& message);
    static void addContents(TzSoapWrittenTogether& together, const TzSoapBodyImp& body);
    void collect(const TzXmlName& name, const TzSoapElementImp& block);
    // A copy of `name` that keeps its texts while `visitor` writes what is within its element.
    TzXmlName keptFrom(const TzSoapConstVisitor& visitor, const TzXmlName& name) const;
    const TzCString& prefixFor(const TzXmlName& name) const;
    const TzCString& blockPrefix(const TzXmlName& name) const;
    const TzCString& envelopeUri() const;
    TzSoapTagName blockName(std::string_view prefix, const TzXmlName& name) const;
    bool isWritten(const TzSoapHeaderImp& header) const;
    void writeText(const TzCString& text);
    void writeEntries(TzSoapConstVisitor& visitor, const TzSoapValueList& entries);
    void writeTargets(TzSoapConstVisitor& visitor);

    TzSoapOutputContext& context_;
    TzSoapStartTag& startTag_;
    TzSoapContainerOutput& containers_;
};
