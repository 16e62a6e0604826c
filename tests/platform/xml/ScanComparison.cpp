// SPDX-License-Identifier: MIT
#include "platform/xml/ScanComparison.h"

#include <tz/tools/Tzxmsg.h>

#include <algorithm>
#include <stdexcept>
#include <typeinfo>
#include <utility>

namespace {

struct HandlerError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// `log` from a little before `at` on, as far as one can read it.
std::string excerpt(std::string_view log, std::size_t at) {
    std::string shown(log.substr(at - std::min<std::size_t>(at, 60), 160));
    std::replace(shown.begin(), shown.end(), '\0', '|');
    return shown;
}

std::string difference(const char* source, std::string_view expected, std::string_view seen) {
    if (seen == expected) {
        return {};
    }
    const auto at = static_cast<std::size_t>(
        std::mismatch(expected.begin(), expected.end(), seen.begin(), seen.end()).first -
        expected.begin());
    return std::string(source) + "\n  Expat: " + excerpt(expected, at) +
           "\n  here:  " + excerpt(seen, at) + "\n";
}

} // namespace

ScanTerms ScanTerms::of(std::size_t number) noexcept {
    ScanTerms terms;
    const std::size_t value = number >> 4;
    switch (number & 15) {
    case 0:
        terms.attributeLimit = value % 4;
        break;
    case 1:
        terms.depthLimit = value % 4;
        break;
    case 2:
        terms.throwAt = value % 16;
        break;
    case 3:
        terms.lowerAt = value % 8;
        break;
    case 4:
        terms.askAlways = false;
        break;
    default:
        break;
    }
    return terms;
}

ScanReading::ScanReading(TzXmlSourceChoice choice) {
    TzXmlSourceChooser::choose(parser_, choice);
    parser_.setContentHandler(this);
}

const std::string& ScanReading::read(std::string_view text, const ScanTerms& terms) {
    terms_ = terms;
    events_ = 0;
    log_.clear();
    accepted_ = false;
    parser_.setDepthLimit(terms.depthLimit);
    parser_.setAttributeLimit(terms.attributeLimit);
    parser_.setUriLimit(TzXmlSAXParser::DefaultUriLimit);
    try {
        parser_.parse(text);
        accepted_ = true;
    } catch (const Tzxmsg& error) {
        note(typeid(error).name());
        note(error.what());
    } catch (const HandlerError& error) {
        note(error.what());
    }
    note(parser_.getLine());
    note(parser_.getColumn());
    return log_;
}

void ScanReading::startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) {
    log_ += '<';
    noteName(name);
    for (const TzXmlAttribute& attribute : attributes) {
        noteName(attribute.getName());
        note(attribute.getValue());
    }
    finishEvent();
}

void ScanReading::endElement(const TzXmlName& name) {
    log_ += '/';
    noteName(name);
    finishEvent();
}

void ScanReading::characters(const TzCString& text) {
    log_ += '"';
    note(text);
    finishEvent();
}

void ScanReading::prolog(const TzXmlProlog& prolog) {
    log_ += '?';
    note(prolog.asString());
    finishEvent();
}

void ScanReading::note(std::string_view text) {
    log_ += text;
    log_ += '\0';
}

void ScanReading::note(std::size_t number) {
    for (; number >= 64; number /= 64) {
        log_ += static_cast<char>('0' + number % 64);
    }
    log_ += static_cast<char>('0' + number);
    log_ += '\0';
}

void ScanReading::noteName(const TzXmlName& name) {
    note(name.getPrefix());
    note(name.getLocalName());
    note(name.getUri());
}

void ScanReading::finishEvent() {
    const std::size_t event = events_++;
    if (terms_.askAlways || event % 4 == 0) {
        note(parser_.getLine());
        note(parser_.getColumn());
        note(parser_.getEventBegin());
        note(parser_.getEventEnd());
        note(static_cast<std::size_t>(parser_.getNamespaceScope()));
    }
    if (event == terms_.lowerAt) {
        if (event % 2 == 0) {
            parser_.setDepthLimit(1);
        }
        parser_.setAttributeLimit(1);
        parser_.setUriLimit(1);
    }
    if (event == terms_.throwAt) {
        throw HandlerError("thrown by the handler");
    }
}

ScanComparison::ScanComparison()
    : expat_(TzXmlSourceChoice::Expat), scanner_(TzXmlSourceChoice::Fastest),
      words_(TzXmlSourceChoice::Words) {}

std::string ScanComparison::differences(std::string_view text, const ScanTerms& terms,
                                        Forms forms) {
    const std::string& expected = expat_.read(text, terms);
    std::string all;
    if (forms != Forms::Words) {
        all += difference("scanner", expected, scanner_.read(text, terms));
    }
    if (forms != Forms::Fastest) {
        all += difference("scanner by words", expected, words_.read(text, terms));
    }
    return all;
}
