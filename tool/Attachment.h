// SPDX-License-Identifier: MIT
#pragma once

#include <tz/mime/TzMimePart.h>

#include <string>

/// An attachment named by an argument: "PATH", "CID=PATH", either one with ";type=TYPE" after it.
struct Attachment {
    std::string contentId; ///< The file's name without its directories unless "CID=" is given.
    std::string path;
    std::string type; ///< By the file's name unless ";type=" is given.

    /// What `argument` names; `std::runtime_error` when it has another form.
    static Attachment parse(const std::string& argument);
    /// The part with the file's bytes. A failure to read it is a `std::runtime_error`.
    TzMimePart toPart() const;
};

/// The form of an attachment's argument as a help text.
inline constexpr const char* AttachmentHelp =
    "CID=PATH: the file PATH with the content id CID; PATH alone: its name is its content id. "
    "After it may stand ;type=TYPE, otherwise the name's ending decides";
