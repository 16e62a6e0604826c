// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlContentHandler.h>

void TzXmlContentHandler::prolog(const TzXmlProlog&) {}

TzXmlContentHandler::~TzXmlContentHandler() = default;
