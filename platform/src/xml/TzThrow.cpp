// SPDX-License-Identifier: MIT
#include <tz/xml/TzThrow.h>

void TzThrow(const TzXmlError& error) { throw error; }

void TzThrow(const TzXmlParseError& error) { throw error; }

void TzThrow(const TzXmlInternalError& error) { throw error; }

void TzThrow(const TzXmlBadArgError& error) { throw error; }

void TzThrow(const TzXmlDomainError& error) { throw error; }

void TzThrow(const TzXmlBoundsError& error) { throw error; }
