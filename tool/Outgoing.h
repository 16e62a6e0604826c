// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapMessage.h>

#include <string>

/// The text with which `message` is sent on: with every part that came with it, each once; the
/// envelope alone without any.
std::string outgoingText(TzSoapMessage message);
