// SPDX-License-Identifier: MIT
#include <tz/tools/TzMessage.h>

#include <utility>

TzMessage::TzMessage(TzCString text) : domain_(""), id_(0), text_(std::move(text)) {}

TzMessage::TzMessage(const TzCatMsg& entry, std::initializer_list<Argument> arguments)
    : domain_(entry.domain), id_(entry.id) {
    const auto* argument = arguments.begin();
    for (const char* cursor = entry.text; *cursor != '\0'; ++cursor) {
        if (cursor[0] == '%' && (cursor[1] == 's' || cursor[1] == 'd')) {
            if (argument != arguments.end()) {
                text_ += (argument++)->text();
            }
            ++cursor;
        } else {
            text_ += *cursor;
        }
    }
}
