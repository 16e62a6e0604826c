// SPDX-License-Identifier: MIT
#include "values/TzSoapIndexText.h"

#include "model/TzSoapVersionTable.h"
#include "values/TzSoapNumberText.h"

#include <soap/TzSoapCatalog.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlSchemaUtils.h>
#include <tz/xml/TzXmlUtils.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

using Index = TzSoapIndexText::Index;

constexpr long long Largest = std::numeric_limits<unsigned int>::max();

/// Characters of the number at the beginning of `text` as the C library's conversions read it:
/// white space, an optional sign, digits; 0 without digits.
std::size_t numberLength(std::string_view text) noexcept {
    std::size_t digits = std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size());
    if (digits < text.size() && (text[digits] == '+' || text[digits] == '-')) {
        ++digits;
    }
    const std::size_t end = std::min(text.find_first_not_of("0123456789", digits), text.size());
    return end == digits ? 0 : end;
}

/// Reads a text in brackets; every failure gives one error about the whole text.
class BracketReader {
public:
    BracketReader(std::string_view text, bool boundsMode) : text_(text), boundsMode_(boundsMode) {
        for (const char character : text) {
            if (character != TzXmlUtils::BlankUtf8 && character != TzXmlUtils::NewlineUtf8 &&
                character != TzXmlUtils::TabUtf8) {
                stripped_ += character;
            }
        }
    }

    Index read() {
        demand(stripped_.size() >= 2 && stripped_.front() == '[' && stripped_.back() == ']');
        std::size_t at = 1;
        while (true) {
            at += readEntry(std::string_view(stripped_).substr(at));
            if (stripped_[at] == ']') {
                demand(at + 1 == stripped_.size());
                return std::move(entries_);
            }
            ++at; // whatever separates the entries
        }
    }

    [[noreturn]] static void refuse(std::string_view text) {
        TzThrow(TzXmlBadArgError(TzMessage(tzsoap_BAD_INDEX_STRING(), text)));
    }

private:
    /// Reads the entry at the beginning of `rest`, which ends in a bracket; the characters it took.
    std::size_t readEntry(std::string_view rest) {
        const std::size_t length = numberLength(rest);
        const bool openAllowed = boundsMode_ && entries_.empty();
        if (length == 0) {
            demand(openAllowed && (rest.front() == ',' || rest.front() == ']'));
            entries_.push_back(0);
            return 0;
        }
        const long long number = TzSoapNumberText::toInteger(rest);
        demand(number >= 0 && number <= Largest);
        demand(number != 0 || !boundsMode_ || openAllowed);
        entries_.push_back(static_cast<unsigned int>(number));
        return length;
    }

    void demand(bool condition) const {
        if (!condition) {
            refuse(text_);
        }
    }

    std::string_view text_;
    TzCString stripped_;
    Index entries_;
    bool boundsMode_;
};

} // namespace

Index TzSoapIndexText::parse(std::string_view text, bool boundsMode) {
    if (text.find('[') == std::string_view::npos) {
        return parseLatest(text);
    }
    return BracketReader(text, boundsMode).read();
}

Index TzSoapIndexText::parseLatest(std::string_view text) {
    constexpr std::string_view WhiteSpace = TzXmlUtils::WhiteSpace;
    Index entries;
    bool openSeen = false;
    for (std::size_t at = text.find_first_not_of(WhiteSpace); at != std::string_view::npos;
         at = text.find_first_not_of(WhiteSpace, at)) {
        const std::size_t end = std::min(text.find_first_of(WhiteSpace, at), text.size());
        const bool open = text[at] == '*';
        const long long number = TzSoapNumberText::toInteger(text.substr(at, end - at));
        if ((open && openSeen) || number < 0 || number > Largest) {
            BracketReader::refuse(text);
        }
        openSeen = openSeen || open;
        entries.push_back(static_cast<unsigned int>(number));
        at = end;
    }
    return entries;
}

TzCString TzSoapIndexText::print(const Index& vector, bool zeroAsDigit,
                                 TzSoapVersion::Version version) {
    const TzSoapVersionTable* const table = TzSoapVersionTable::find(version);
    if (table == nullptr || !table->habits().indicesInBrackets) {
        return printLatest(vector, zeroAsDigit);
    }
    TzCString text = "[";
    for (const unsigned int& entry : vector) {
        if (&entry != vector.data()) {
            text += ',';
        }
        if (entry != 0 || zeroAsDigit) {
            text += TzXmlSchemaUtils::ConvertTypeToString(entry);
        }
    }
    return text += ']';
}

TzCString TzSoapIndexText::printLatest(const Index& vector, bool zeroAsDigit) {
    TzCString text;
    bool markOpen = !zeroAsDigit;
    for (const unsigned int& entry : vector) {
        if (&entry != vector.data()) {
            text += ' ';
        }
        if (entry == 0 && markOpen) {
            text += '*';
            markOpen = false;
        } else {
            text += TzXmlSchemaUtils::ConvertTypeToString(entry);
        }
    }
    return text;
}
