// SPDX-License-Identifier: MIT
#pragma once

/// Builds, writes, reads, copies and converts messages of both versions, plain and with an
/// attachment, and looks at their values. Ends the process with status 1, naming `place`, unless
/// everything is as it was at the first call.
void useLibrary(const char* place);

/// Forgets what `useLibrary` remembers: for a plugin, which is unloaded after its last use.
void endUse();
