// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>
#include <tz/tools/TzSink.h>
#include <tz/xml/TzXmlWriter.h>

#include <array>

/// An XML writer that appends to a text of its caller or writes to a sink.
///
/// What is written is complete after `finish`: the destructor must not throw, so it drops what is
/// still held back.
class TZ_PLATFORM_API TzXmlOutputWriter : public TzXmlWriter {
public:
    /// A writer that appends to `text`, which must outlive it.
    explicit TzXmlOutputWriter(TzCString& text) noexcept : TzXmlWriter(text) {}
    /// A writer to `sink`. Holds back at most `Held` bytes; longer pieces go to the sink from where
    /// they lie.
    explicit TzXmlOutputWriter(const TzSink& sink);
    ~TzXmlOutputWriter() override;

    /// Bytes that a writer to a sink keeps in memory.
    static constexpr std::size_t Held = std::size_t{16} << 10;

    /// Appends to the text, or hands to the sink, what is held back.
    void finish() { flush(); }
};
