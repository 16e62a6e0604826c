// SPDX-License-Identifier: MIT
#pragma once

/// How the values of a message stand in its XML.
enum class TzSoapStyle {
    Encoded, ///< By the rules of SOAP encoding: references, arrays, encodingStyle.
    Literal, ///< As a schema describes them: every attribute and all text have no other meaning.
};
