// SPDX-License-Identifier: MIT
#include "reading/TzSoapMimeLookup.h"

#include <soap/TzSoapReferenceToMimePartImp.h>
#include <tz/mime/TzMimeContentIdHeader.h>

#include <utility>

namespace {

constexpr std::string_view ContentIdScheme = "cid:";

/// Most writers put the id into the URL unchanged, others percent-encode it (RFC 2392).
std::size_t positionById(const TzMimeMultipart& package, std::string_view id) {
    const std::size_t position = package.findPartById(id);
    return position != TzMimePart::NotFound || id.find('%') == std::string_view::npos
               ? position
               : package.findPartById(TzMimeContentIdHeader::decodeUrl(id));
}

} // namespace

std::optional<TzSoapMimeLookup::Found> TzSoapMimeLookup::find(std::string_view href) {
    const std::size_t position =
        package_.hasParts() ? positionOf(href) : std::size_t{TzMimePart::NotFound};
    if (position == TzMimePart::NotFound) {
        return std::nullopt;
    }
    TzMimePart part = package_.getPart(position);
    const TzXmlAttribute::SharedValue& text = textOf(position, part);
    return Found{std::move(part), text};
}

std::size_t TzSoapMimeLookup::positionOf(std::string_view href) {
    if (href.starts_with(ContentIdScheme)) {
        return positionById(package_, href.substr(ContentIdScheme.size()));
    }
    const std::size_t position = package_.findPartByLocation(href);
    return position != TzMimePart::NotFound || base() == nullptr ? position
                                                                 : positionBelowBase(href);
}

std::size_t TzSoapMimeLookup::positionBelowBase(std::string_view href) {
    const auto [known, isNew] = belowBase_.try_emplace(href, TzMimePart::NotFound);
    if (isNew) {
        known->second = package_.findPartByLocation(base()->resolve(TzCString(href)));
    }
    return known->second;
}

const TzMimeContentLocationHeader* TzSoapMimeLookup::base() {
    if (!baseSought_) {
        const std::size_t position = package_.findHeader(TzMimeContentLocationHeader::Label);
        if (position != TzMimePart::NotFound) {
            base_.emplace(package_.getHeader(position));
        }
        baseSought_ = true;
    }
    return base_ ? &*base_ : nullptr;
}

const TzXmlAttribute::SharedValue& TzSoapMimeLookup::textOf(std::size_t position,
                                                            const TzMimePart& part) {
    if (texts_.empty()) {
        texts_.resize(package_.getPartCount());
    }
    TzXmlAttribute::SharedValue& text = texts_[position];
    if (!text.isSet()) {
        text = textMaker_.make(TzSoapReferenceToMimePartImp::textFor(part));
    }
    return text;
}
