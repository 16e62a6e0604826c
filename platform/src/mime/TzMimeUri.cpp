// SPDX-License-Identifier: MIT
#include "mime/TzMimeUri.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace {

/// The five components of RFC 3986, 3; those that are there at all.
struct Components {
    std::optional<std::string_view> scheme;
    std::optional<std::string_view> authority;
    std::string_view path;
    std::optional<std::string_view> query;
    std::optional<std::string_view> fragment;
};

bool isLetter(char character) noexcept {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool isSchemeCharacter(char character) noexcept {
    return isLetter(character) || (character >= '0' && character <= '9') || character == '+' ||
           character == '-' || character == '.';
}

/// The length of the scheme that `uri` begins with, 0 without one.
std::size_t schemeLength(std::string_view uri) noexcept {
    if (uri.empty() || !isLetter(uri.front())) {
        return 0;
    }
    std::size_t length = 1;
    while (length < uri.size() && isSchemeCharacter(uri[length])) {
        ++length;
    }
    return length < uri.size() && uri[length] == ':' ? length : 0;
}

/// Cuts `uri` at the first `separator` and returns what followed it.
std::optional<std::string_view> cut(std::string_view& uri, char separator) noexcept {
    const std::size_t position = uri.find(separator);
    if (position == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view tail = uri.substr(position + 1);
    uri = uri.substr(0, position);
    return tail;
}

Components split(std::string_view uri) noexcept {
    Components parts;
    parts.fragment = cut(uri, '#');
    parts.query = cut(uri, '?');
    if (const std::size_t length = schemeLength(uri); length != 0) {
        parts.scheme = uri.substr(0, length);
        uri.remove_prefix(length + 1);
    }
    if (uri.starts_with("//")) {
        const std::size_t end = uri.find('/', 2);
        parts.authority = uri.substr(2, end == std::string_view::npos ? end : end - 2);
        uri = end == std::string_view::npos ? std::string_view() : uri.substr(end);
    }
    parts.path = uri;
    return parts;
}

/// Removes the last segment of `path` and the slash before it.
void removeLastSegment(TzCString& path) {
    const std::size_t slash = path.rfind('/');
    path.resize(slash == TzCString::npos ? 0 : slash);
}

/// Removes dot segments (RFC 3986, 5.2.4).
TzCString removeDotSegments(std::string_view input) {
    TzCString output;
    output.reserve(input.size());
    while (!input.empty()) {
        if (input.starts_with("../")) {
            input.remove_prefix(3);
        } else if (input.starts_with("./") || input.starts_with("/./")) {
            input.remove_prefix(2);
        } else if (input == "/.") {
            input = "/";
        } else if (input.starts_with("/../")) {
            input.remove_prefix(3);
            removeLastSegment(output);
        } else if (input == "/..") {
            input = "/";
            removeLastSegment(output);
        } else if (input == "." || input == "..") {
            input = {};
        } else {
            const std::size_t end = std::min(input.find('/', 1), input.size());
            output.append(input.substr(0, end));
            input.remove_prefix(end);
        }
    }
    return output;
}

/// `path` in the place of all that follows the last slash of the base's path.
TzCString merge(const Components& base, std::string_view path) {
    if (base.authority && base.path.empty()) {
        return '/' + TzCString(path);
    }
    TzCString merged(base.path.substr(0, base.path.rfind('/') + 1));
    return merged.append(path);
}

TzCString compose(const Components& parts) {
    TzCString uri;
    if (parts.scheme) {
        uri.append(*parts.scheme).append(1, ':');
    }
    if (parts.authority) {
        uri.append("//").append(*parts.authority);
    }
    uri.append(parts.path);
    if (parts.query) {
        uri.append(1, '?').append(*parts.query);
    }
    if (parts.fragment) {
        uri.append(1, '#').append(*parts.fragment);
    }
    return uri;
}

} // namespace

namespace TzMimeUri {

TzCString resolve(std::string_view base, std::string_view reference) {
    const Components from = split(base);
    Components to = split(reference);
    TzCString path(to.path);
    if (!to.scheme) {
        to.scheme = from.scheme;
        if (!to.authority) {
            to.authority = from.authority;
            if (path.empty()) {
                path = from.path;
                to.query = to.query ? to.query : from.query;
            } else if (path.front() != '/') {
                path = merge(from, path);
            }
        }
    }
    if (to.scheme && !to.path.empty()) {
        path = removeDotSegments(path);
    }
    to.path = path;
    return compose(to);
}

} // namespace TzMimeUri
