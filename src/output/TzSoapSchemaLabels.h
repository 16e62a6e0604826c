// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentBase.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

/// How values of a type show it.
struct TzSoapSchemaLabel {
    TzXmlName name; ///< Such as int in the XML Schema namespace with the prefix "xsd", or empty.
    TzCString text; ///< Such as "xsd:int", or empty.
};

/// How values of `type` show it; empty where there is no name. Made on first use, kept for the life
/// of the process.
const TzSoapSchemaLabel& tzSoapSchemaLabel(TzSoapContentBase::SchemaType type);
