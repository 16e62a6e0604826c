// SPDX-License-Identifier: MIT
#include <soap/TzSoapFaultImp.h>

#include <soap/TzSoapAttributeSet.h>
#include <soap/TzSoapTypeImp.h>
#include <tz/xml/TzXmlElementImp.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapFaultSpelling.h"
#include "model/TzSoapFaultSpellingReader.h"
#include "model/TzSoapLasting.h"
#include "model/TzSoapVersionTable.h"
#include "reading/TzSoapDetailReader.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace {

/// The reason in exactly `language`, or one in a more particular one when `isRange`; null without.
const TzSoapReason* findReason(const std::vector<TzSoapReason>& reasons, std::string_view language,
                               bool isRange) {
    const auto suits = [&](const TzSoapReason& reason) {
        const std::string_view own = reason.language;
        const bool fits = own.size() == language.size() ||
                          (isRange && own.size() > language.size() && own[language.size()] == '-');
        return fits && tzEqualIgnoreCase(own.substr(0, language.size()), language);
    };
    const auto found = std::find_if(reasons.begin(), reasons.end(), suits);
    return found == reasons.end() ? nullptr : &*found;
}

/// The body of a detail, of which the fault asks nothing that is peculiar to composites.
TzSoapTypeImp& asValue(const TzSoapType& details) { return TzSoapAccess::body(details); }

} // namespace

TzSoapFaultImp::TzSoapFaultImp(const TzXmlName& name, TzSoapVersion::Version version)
    : details_(TzSoapVersion::getSoapElementName(TzSoapVersion::FaultDetail, version)), name_(name),
      version_(version) {}

TzSoapFaultImp::TzSoapFaultImp(const TzSoapFaultImp& other)
    : TzBodyBase(other), TzSoapContentHandler(other), code_(other.code_), reasons_(other.reasons_),
      node_(other.node_), role_(other.role_), details_(other.details_.copy()),
      detailText_(other.detailText_), name_(other.name_), version_(other.version_),
      readCode_(other.readCode_) {}

TzSoapFaultImp::~TzSoapFaultImp() = default;

void TzSoapFaultImp::takeNames(TzXmlName name, TzXmlName code,
                               std::vector<TzXmlName> subcodes) noexcept {
    name_ = std::move(name);
    code_ = std::move(code);
    subcodes_ = std::move(subcodes);
}

TzSoapFaultImp* TzSoapFaultImp::clone() const { return new TzSoapFaultImp(*this); }

void TzSoapFaultImp::setVersion(TzSoapVersion::Version version) {
    const TzSoapVersion& names = TzSoapVersion::getSoapVersion(version);
    // May fail; what follows does not.
    name_ = TzSoapVersionTable::renamed(name_, names.getSoapElementQName(TzSoapVersion::Fault));
    details_.setName(names.getSoapElementQName(TzSoapVersion::FaultDetail));
    version_ = version;
}

void TzSoapFaultImp::setCode(const TzXmlName& code) {
    const TzSoapVersionTable& table = TzSoapVersionTable::of(version_);
    if (table.habits().refusesForeignCodes && table.lacksFaultCode(code)) {
        table.refuseFaultCode();
    }
    code_ = code;
}

const TzCString& TzSoapFaultImp::getReason() const {
    return reasons_.empty() ? TzSoapAttributeSet::getEmptyString() : reasons_.front().text;
}

const TzCString& TzSoapFaultImp::getReason(const TzCString& language) const {
    std::string_view wanted = language;
    while (!wanted.empty()) {
        if (const TzSoapReason* const exact = findReason(reasons_, wanted, false)) {
            return exact->text;
        }
        if (const TzSoapReason* const particular = findReason(reasons_, wanted, true)) {
            return particular->text;
        }
        const std::size_t end = wanted.rfind('-');
        wanted = wanted.substr(0, end == std::string_view::npos ? 0 : end);
    }
    return getReason();
}

void TzSoapFaultImp::setReason(const TzCString& reason) {
    std::vector<TzSoapReason> reasons;
    if (!reason.empty()) {
        reasons.push_back({reason, {}});
    }
    reasons_.swap(reasons);
}

const TzXmlName& TzSoapFaultImp::getSubcode(unsigned int index) const {
    static TzSoapLasting<const TzXmlName> none([] { return TzXmlName(); });
    return index < subcodes_.size() ? subcodes_[index] : *none;
}

void TzSoapFaultImp::setDetails(const TzSoapCompositeType& details) {
    static_cast<void>(asValue(details)); // a detail without a body could not be written
    details_ = details;
}

const TzXmlName& TzSoapFaultImp::getSubcodeValue(unsigned int index) const {
    const auto read = std::lower_bound(
        readSubcodes_.begin(), readSubcodes_.end(), std::size_t{index},
        [](const ReadName& name, std::size_t wanted) { return name.index < wanted; });
    const bool wasRead = read != readSubcodes_.end() && read->index == index;
    return wasRead ? read->valueOf(getSubcode(index)) : getSubcode(index);
}

void TzSoapFaultImp::addDetailEntry(const TzCString& name, const TzSoapType& value) {
    TzXmlName named(name);
    const TzXmlName& own = value.getName();
    if (!named.getPrefix().empty() && named.getPrefix() == own.getPrefix()) {
        named.setNamespace(own.getNamespace());
    }
    TzSoapAccess::body(value).setName(named);
    details_.appendChild(value);
}

const TzSoapFaultSpelling* TzSoapFaultImp::spelling() const {
    const TzSoapFaultSpelling* const read = spelling_.get();
    const bool holds =
        read != nullptr && read->name == name_ && read->code == code_ &&
        read->subcodes == subcodes_ && read->reasons == reasons_ && read->node == node_ &&
        read->role == role_ &&
        (read->detail == &asValue(details_) || (read->detail == nullptr && !hasDetail()));
    return holds ? read : nullptr;
}

bool TzSoapFaultImp::hasDetail() const {
    return details_.childCount() > 0 || !TzXmlUtils::trim(detailText_).empty();
}

void TzSoapFaultImp::clear() {
    code_ = TzXmlName();
    reasons_.clear();
    node_.clear();
    role_.clear();
    details_.clearChildren();
    detailText_.clear();
    asValue(details_).clearElement();
    version_ = TzSoapVersion::getLatestVersion();
    state_ = State::None;
    spelling_.reset();
}
