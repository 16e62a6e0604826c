// SPDX-License-Identifier: MIT
#pragma once

class TzSoapMessage;

namespace LiteralHints {

/// Whether a message that was read as an encoded one is probably literal: nothing in it states the
/// encoding, a type, an array or a reference, and there is text beside elements, or an entry and
/// its first child have a namespace, which schemas make so and SOAP encoding does not.
bool looksLiteral(const TzSoapMessage& message);

} // namespace LiteralHints
