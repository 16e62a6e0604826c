// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapReason.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>

#include <vector>

class TzSoapTypeImp;

/// How the Fault element of a literal message was spelt, but for its detail, and what that says.
struct TzSoapFaultSpelling {
    TzCString before; ///< Markup from the start tag of the Fault to the detail, or to the end.
    TzCString after;  ///< From the detail on, "" without one.
    TzXmlAttributeSet attributes;             ///< Of the Fault.
    std::vector<TzXmlNamespace> declarations; ///< What it needs around it.

    const TzSoapTypeImp* detail = nullptr; ///< The detail, null without one.
    TzXmlName name;
    TzXmlName code;
    std::vector<TzXmlName> subcodes;
    std::vector<TzSoapReason> reasons;
    TzCString node;
    TzCString role;
};
