// SPDX-License-Identifier: MIT
#include "xml/TzXmlNamesInUse.h"

#include "tools/TzPlatformLasting.h"

#include <tz/thread/TzTSpares.h>

#include <utility>

namespace {

/// Room for the open elements of most texts.
constexpr std::size_t UsualDepth = 16;

/// Most bytes of one value whose memory the next one takes over.
constexpr std::size_t ShortValue = 128;

using Spares = TzTSpares<TzXmlNames>;

Spares& spares() {
    static TzPlatformLasting<Spares> instance([] { return Spares(); });
    return *instance;
}

} // namespace

void TzXmlAttributePlaces::make(std::size_t count) {
    set.reserve(count);
    while (set.size() < count) {
        set.append(TzXmlAttribute());
    }
    stamps.resize(count);
}

std::size_t TzXmlAttributePlaces::wipe() noexcept {
    std::size_t bytes = 0;
    for (TzXmlAttribute& attribute : set) {
        const std::size_t capacity = attribute.getValue().capacity();
        if (capacity > ShortValue) {
            *this = {};
            return 0;
        }
        attribute.wipeValue(); // it may be secret
        bytes += sizeof(attribute) + capacity;
    }
    return bytes;
}

TzXmlNames::TzXmlNames() { elements.reserve(UsualDepth); }

std::size_t TzXmlNames::endDocument() noexcept {
    resolver.endDocument();
    std::size_t bytes =
        sizeof(*this) + resolver.bytes() + elements.capacity() * sizeof(TzXmlOpenElement);
    for (TzXmlAttributePlaces& each : places) {
        bytes += each.wipe();
    }
    return bytes;
}

TzXmlNamesInUse::TzXmlNamesInUse() : names_(spares().take()) {
    if (names_ == nullptr) {
        names_ = std::make_unique<TzXmlNames>();
    }
}

TzXmlNamesInUse::~TzXmlNamesInUse() {
    if (names_->endDocument() <= MostBytes) {
        spares().giveBack(std::move(names_));
    }
}
