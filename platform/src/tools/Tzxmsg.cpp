// SPDX-License-Identifier: MIT
#include <tz/tools/Tzxmsg.h>

#include <utility>

namespace {

TzCString placeText(std::size_t line, std::size_t column) {
    return ", line " + std::to_string(line) + ", column " + std::to_string(column);
}

} // namespace

Tzxmsg::Tzxmsg(const char* text) : text_(text) {}

Tzxmsg::Tzxmsg(TzCString text) : text_(std::move(text)) {}

Tzxmsg::Tzxmsg(std::string_view text, std::size_t line, std::size_t column)
    : text_(text), line_(line), column_(column), endsWithPlace_(true) {
    if (line != 0) {
        text_ += placeText(line, column);
    }
}

Tzxmsg::~Tzxmsg() = default;

const char* Tzxmsg::what() const noexcept { return text_.c_str(); }

TzCString Tzxmsg::describe() const {
    TzCString all = text_;
    if (line_ != 0 && !endsWithPlace_) {
        all += placeText(line_, column_);
    }
    if (!detail_.empty()) {
        all += " (" + detail_ + ")";
    }
    return all;
}

void Tzxmsg::addPlace(std::size_t line, std::size_t column) noexcept {
    if (line_ == 0) {
        line_ = line;
        column_ = column;
    }
}

void Tzxmsg::addDetail(std::string_view detail) {
    if (!detail_.empty() && !detail.empty()) {
        detail_ += "; ";
    }
    detail_ += detail;
}
