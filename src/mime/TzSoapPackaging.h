// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapLayout.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/tools/TzCString.h>

class TzSoapMessage;

/// How a message becomes a package.
namespace TzSoapPackaging {

/// A written envelope and the parts that it refers to.
struct Written {
    TzCString envelope;
    TzMimeMultipart parts; ///< Each part that has to travel with it, once; without a root part.
};

/// Writes `message`, a `TzSoapMessage` and none derived from it. O(message).
Written write(const TzSoapMessage& message, TzSoapLayout layout);
/// Makes `package` the package of `message`, with what is in it already. After an error the parts
/// met before are in it. O(message).
void write(const TzSoapMessage& message, TzSoapLayout layout, TzMimeMultipart& package);
/// Adds the attachments of `message` to `package`, except those that it contains already.
void addAttachments(const TzSoapMessage& message, TzMimeMultipart& package);
/// Makes the parts in `package` a package for `envelope`, the text of `message`: says in its
/// Content-Type header what it is and puts the root part first. A boundary and a start that it has
/// are kept.
void complete(const TzSoapMessage& message, TzMimeMultipart& package, TzCString envelope);

} // namespace TzSoapPackaging
