// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlOutputWriter.h>

TzXmlOutputWriter::TzXmlOutputWriter(const TzSink& sink) : TzXmlWriter(sink, Held) {}

TzXmlOutputWriter::~TzXmlOutputWriter() = default;
