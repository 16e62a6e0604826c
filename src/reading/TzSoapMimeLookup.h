// SPDX-License-Identifier: MIT
#pragma once

#include <tz/mime/TzMimePart.h>

#include <optional>
#include <string_view>

class TzMimeMultipart;

/// The part of `package` that the reference text `href` means: by Content-ID behind "cid:",
/// otherwise by Content-Location, as it stands or below the package's own location.
std::optional<TzMimePart> tzSoapFindMimePart(const TzMimeMultipart& package, std::string_view href);
