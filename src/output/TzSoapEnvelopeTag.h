// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include "output/TzSoapDeclarations.h"
#include "output/TzSoapStartTag.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

class TzSoapMessageImp;
class TzSoapOutputContext;
class TzSoapScope;
class TzSoapScopeRules;
class TzSoapVersionTable;
struct TzSoapTagName;

/// The start tag of an envelope, ready for the next one that is alike: most messages of a program
/// carry the same declarations and state the same style.
///
/// The tag of an envelope that carries anything but declarations is not kept, so no value of a
/// message is; nor is a tag of more than 1 KiB or 8 declarations.
class TzSoapEnvelopeTag {
public:
    /// Whether the tag of `message` in `context`, where nothing else is open, is this one.
    bool isOf(const TzSoapMessageImp& message, const TzSoapOutputContext& context) const;
    /// Puts into `scope`, where the envelope alone is open, what the tag declares and states.
    void enter(TzSoapScope& scope) const;
    /// What `TzSoapStartTag::lookAround` finds after the tag.
    const TzSoapStartTag::Around& around() const noexcept { return around_; }
    /// Writes the tag, whose name is spelt `name`, in `context` and ends the line.
    void write(const TzSoapOutputContext& context, const TzSoapTagName& name) const;
    /// Becomes that of `message`, which `tag` has just written in `context`, if that can be kept.
    void keep(const TzSoapMessageImp& message, const TzSoapOutputContext& context,
              TzSoapStartTag& tag);

private:
    /// Most bytes of the texts of a tag that is kept, and most declarations.
    static constexpr std::size_t MostText = 1024;
    static constexpr std::size_t MostDeclarations = 8;

    struct Declared {
        TzCString name; // qualified
        TzCString uri;
    };

    static bool isKept(const TzSoapMessageImp& message, const TzSoapOutputContext& context,
                       const TzSoapStartTag& tag);
    bool hasDeclarationsOf(const TzSoapMessageImp& message) const;

    // What the tag depends on; no rules: that of no message.
    const TzSoapScopeRules* rules_ = nullptr; // tables and rules last as long as the library
    const TzSoapVersionTable* table_ = nullptr;
    TzCString name_;         // qualified
    std::size_t prefix_ = 0; // its size
    TzCString uri_;
    std::vector<Declared> carried_;
    TzCString style_;
    // What it comes to.
    TzSoapDeclarations declarations_;
    TzCString styleAttribute_;
    TzSoapStartTag::Around around_;
};

/// The envelope's tag that the message before on this thread has left, and that the next one finds.
class TzSoapEnvelopeTagInUse {
public:
    TzSoapEnvelopeTagInUse();
    TzSoapEnvelopeTagInUse(const TzSoapEnvelopeTagInUse&) = delete;
    TzSoapEnvelopeTagInUse& operator=(const TzSoapEnvelopeTagInUse&) = delete;
    ~TzSoapEnvelopeTagInUse();

    TzSoapEnvelopeTag& operator*() noexcept { return *tag_; }

private:
    std::unique_ptr<TzSoapEnvelopeTag> tag_;
};
