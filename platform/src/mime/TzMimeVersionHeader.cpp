// SPDX-License-Identifier: MIT
#include <tz/mime/TzMimeVersionHeader.h>

TzMimeVersionHeader::TzMimeVersionHeader() : TzMimeVersionHeader(TzCString("1.0")) {}

TzMimeVersionHeader::TzMimeVersionHeader(const TzCString& version) : TzMimeHeader(Label, version) {}

TzMimeVersionHeader::TzMimeVersionHeader(const TzMimeHeader& other) : TzMimeHeader(other, Label) {}

TzMimeVersionHeader::~TzMimeVersionHeader() = default;
