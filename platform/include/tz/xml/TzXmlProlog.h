// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>

#include <array>
#include <optional>
#include <string_view>

/// The XML declaration at the head of a document.
///
/// Written output is UTF-8 whatever encoding a declaration names. A plain value, not locked.
class TZ_PLATFORM_API TzXmlProlog {
public:
    /// Version "1.0", encoding "UTF-8", nothing said about standalone.
    TzXmlProlog();
    /// The given version and encoding (empty: not stated), and standalone where it is stated.
    TzXmlProlog(TzCString version, TzCString encoding, std::optional<bool> standalone = {});

    /// The version, "1.0" by default.
    const TzCString& getVersion() const noexcept { return version_; }
    /// The encoding as declared, "UTF-8" by default, "" when not declared.
    const TzCString& getEncoding() const noexcept { return encoding_; }
    /// Whether the document stands alone; empty when not declared.
    std::optional<bool> getStandalone() const noexcept { return standalone_; }
    /// Replaces the version.
    void setVersion(TzCString version);
    /// Replaces the encoding that is named.
    void setEncoding(TzCString encoding);
    /// States whether the document stands alone, or nothing.
    void setStandalone(std::optional<bool> standalone) noexcept { standalone_ = standalone; }

    /// The declaration, `<?xml version="1.0" encoding="UTF-8"?>` by default.
    TzCString asString() const;
    /// What `asString` returns, in pieces that follow each other, some of them empty; valid as long
    /// as the prolog stays as it is.
    std::array<std::string_view, 8> pieces() const noexcept;

    /// All three properties equal.
    friend bool operator==(const TzXmlProlog&, const TzXmlProlog&) = default;

private:
    TzCString version_;
    TzCString encoding_;
    std::optional<bool> standalone_;
};
