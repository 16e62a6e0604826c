// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapMessage.h>

#include <string>

/// What is in a message, field by field, as text: equal texts are equal models.
///
/// Left out is what a written message does not give back: the namespace declarations that the
/// writer adds, the encoding style that values of the first level gain, entries that stand in
/// header or body only because a reference points at them, and whether a type was asked for or
/// read.
std::string describe(const TzSoapMessage& message);
