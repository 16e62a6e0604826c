// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlStringWriter.h>

#include <utility>

// The base stores the address of the text only, so the text may be constructed after it.
TzXmlStringWriter::TzXmlStringWriter() noexcept : TzXmlWriter(text_) {}

TzXmlStringWriter::TzXmlStringWriter(const TzXmlStringWriter& other)
    : TzXmlWriter(text_), text_(other.getString()) {
    standAs(other);
}

TzXmlStringWriter& TzXmlStringWriter::operator=(const TzXmlStringWriter& other) {
    if (this != &other) {
        setString(other.getString());
        standAs(other);
    }
    return *this;
}

TzXmlStringWriter::~TzXmlStringWriter() = default;

TzCString TzXmlStringWriter::takeString() {
    flush();
    return std::exchange(text_, TzCString());
}

void TzXmlStringWriter::setString(TzCString text) noexcept {
    discard();
    text_ = std::move(text);
}
