// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapValueReader.h>

/// The first name of `TzSoapValueReader`; programs that use it stay as they are.
using TzSoapLenientValue = TzSoapValueReader;
