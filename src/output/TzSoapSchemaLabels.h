// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentBase.h>
#include <tz/xml/TzXmlName.h>

/// The name under which values of `type` show it, such as int in the XML Schema namespace with the
/// prefix "xsd"; the empty name where there is none. Made on first use, kept for the life of the
/// process.
const TzXmlName& tzSoapSchemaLabel(TzSoapContentBase::SchemaType type);
