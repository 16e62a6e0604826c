// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapVersion.h>

class TzSoapMessage;

/// `message` itself where it is one of `version`, otherwise a converted copy, the subcodes of its
/// fault included. O(1), or O(content).
TzSoapMessage tzSoapInVersion(const TzSoapMessage& message, TzSoapVersion::Version version);
