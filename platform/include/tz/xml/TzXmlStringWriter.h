// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlWriter.h>

/// An XML writer that owns the text it writes.
class TZ_PLATFORM_API TzXmlStringWriter : public TzXmlWriter {
public:
    /// A writer with an empty text.
    TzXmlStringWriter() noexcept;
    /// A writer with a copy of the text, which stands where `other` does.
    TzXmlStringWriter(const TzXmlStringWriter& other);
    /// Takes a copy of the text over and stands where `other` does.
    TzXmlStringWriter& operator=(const TzXmlStringWriter& other);
    ~TzXmlStringWriter() override;

    /// The text written so far; valid until the next write.
    const TzCString& getString() const {
        flush();
        return text_;
    }
    /// Hands the text over; the writer's own text is empty then.
    TzCString takeString();
    /// Replaces the text written so far.
    void setString(TzCString text) noexcept;

private:
    TzCString text_;
};
