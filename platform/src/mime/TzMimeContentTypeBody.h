// SPDX-License-Identifier: MIT
#pragma once

#include "mime/TzMimeParameter.h"

#include <tz/mime/TzMimeContentType.h>
#include <tz/pointer/TzBodyBase.h>
#include <tz/tools/TzCString.h>

#include <cstddef>
#include <string_view>
#include <vector>

/// What `TzMimeContentType` handles share.
class TzMimeContentTypeBody final : public TzBodyBase {
public:
    /// The type that `text` states.
    explicit TzMimeContentTypeBody(const TzCString& text);
    TzMimeContentTypeBody(TzCString type, TzCString subtype);

    const TzCString& primaryType() const noexcept { return type_; }
    const TzCString& subtype() const noexcept { return subtype_; }
    const TzCString& parameter(std::string_view name) const noexcept;
    void setParameter(std::string_view name, std::string_view value);
    TzCString asString() const;

private:
    std::size_t indexOf(std::string_view name) const noexcept;
    void readType(std::string_view text, std::size_t& position);
    void readParameters(std::string_view text, std::size_t position);

    TzCString type_;
    TzCString subtype_;
    std::vector<TzMimeParameter> parameters_;
    TzCString text_; // what was read; empty after a change
};
