// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/pointer/TzHandleBase.h>
#include <tz/tools/TzCString.h>

#include <string_view>

class TzMimeContentTypeBody;

/// A media type with its parameters, such as text/xml; charset="UTF-8".
///
/// A handle: copies share one type, and a type that was obtained from a header changes that header
/// when it is changed. Changes need the type and its header for themselves; constant members may be
/// called on several threads at once.
class TZ_PLATFORM_API TzMimeContentType : public TzHandleBase {
public:
    /// The type text/plain without parameters.
    TzMimeContentType();
    /// The type read from `text`, the value of a Content-Type header: quoted strings, comments and
    /// the continued and encoded parameters of RFC 2231. What cannot be read is left out; the first
    /// of several parameters of one name applies. O(n log n) in the length of the text.
    explicit TzMimeContentType(const TzCString& text);
    /// The type `type`/`subtype` without parameters.
    TzMimeContentType(const TzCString& type, const TzCString& subtype);
    TzMimeContentType(const TzMimeContentType&) noexcept = default;
    TzMimeContentType(TzMimeContentType&&) noexcept = default;
    TzMimeContentType& operator=(const TzMimeContentType&) noexcept = default;
    TzMimeContentType& operator=(TzMimeContentType&&) noexcept = default;
    ~TzMimeContentType() override;

    /// The text before the slash as it was given, "" when there is no slash.
    TzCString getPrimaryType() const;
    /// The text after the slash as it was given, "" when there is no slash.
    TzCString getSubtype() const;
    /// Whether this is the type `type`/`subtype`, ASCII letters compared without case.
    bool matches(std::string_view type, std::string_view subtype) const;
    /// The value of the parameter `name`, "" without one; names are compared without case. Linear
    /// in the number of parameters.
    TzCString getParameter(std::string_view name) const;
    /// Gives the parameter `name` the value `value`; a new one comes last, an empty value removes
    /// it.
    void setParameter(std::string_view name, std::string_view value);
    /// The type as the value of a header: the text that was read when nothing was changed,
    /// otherwise every parameter as a quoted string in the order of their arrival.
    TzCString asString() const;

protected:
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" when it was moved away.
    TzMimeContentTypeBody& body() const;
};
