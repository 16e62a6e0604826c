// SPDX-License-Identifier: MIT
#include <tz/tools/Tzxmsg.h>

#include <utility>

Tzxmsg::Tzxmsg(const char* text) : text_(text) {}

Tzxmsg::Tzxmsg(TzCString text) : text_(std::move(text)) {}

Tzxmsg::~Tzxmsg() = default;

const char* Tzxmsg::what() const noexcept { return text_.c_str(); }
