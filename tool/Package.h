// SPDX-License-Identifier: MIT
#pragma once

#include <tz/mime/TzMimeMultipart.h>

#include <string>

/// The packages that the commands make of files.
namespace packages {

/// The encoding that the XML text states, which is what a Content-Type must not contradict.
std::string encodingOf(const std::string& xml);
/// A package of the envelope as it stands in its file.
TzMimeMultipart around(std::string envelope);
/// Adds the attachment that `argument` names. `std::runtime_error` when it has another form, its
/// file cannot be read or its content id is taken.
void insert(TzMimeMultipart& package, const std::string& argument);
/// Reads the package `name` as a receiver will, with the receiver's errors. Reports references to
/// missing parts on standard error.
void check(const TzMimeMultipart& package, const std::string& name);

} // namespace packages
