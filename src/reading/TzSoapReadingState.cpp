// SPDX-License-Identifier: MIT
#include "reading/TzSoapReadingState.h"

#include <soap/TzSoapMessageImp.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlSAXParser.h>

#include "model/TzSoapVersionTable.h"

TzSoapReadingState::TzSoapReadingState() = default;

TzSoapReadingState::~TzSoapReadingState() = default;

[[gnu::hot]] TzSoapVersion::Version TzSoapReadingState::version() const {
    return message != nullptr ? message->getVersion() : TzSoapVersion::getLatestVersion();
}

void TzSoapReadingState::setVersion(const TzSoapVersionTable& table) noexcept {
    styles.setVersion(table);
    references.setIdName(table.term(TzSoapVersionTable::Id));
}

void TzSoapReadingState::pushStyle(const TzCString& style) {
    if (style.size() > budget.uriLength()) {
        const std::size_t line = parser == nullptr ? 0 : parser->getLine();
        const std::size_t column = parser == nullptr ? 0 : parser->getColumn();
        TzThrow(tzWithDetail(TzXmlParseError::at("an encoding style is too long", line, column),
                             "the limit is " + std::to_string(budget.uriLength())));
    }
    styles.push(style);
}

void TzSoapReadingState::countDroppedText() noexcept {
    if (droppedText.count++ == 0 && parser != nullptr) {
        droppedText.line = parser->getLine();
        droppedText.column = parser->getColumn();
    }
}

void TzSoapReadingState::clear() noexcept {
    names.clear();
    styles.clear();
    references.clear();
    droppedText = {};
    handlers_.reset();
    valueMemory = {};
    bodies.finish();
    links.finish();
}

bool TzSoapReadingState::release() noexcept {
    clear();
    parser = nullptr;
    message = nullptr;
    package = TzMimeMultipart();
    budget = TzSoapReadBudget();
    std::vector<TzXmlName>().swap(markupNames);
    return !names.isExposed() && !styles.isExposed();
}
