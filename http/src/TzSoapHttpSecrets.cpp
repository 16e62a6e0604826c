// SPDX-License-Identifier: MIT
#include "TzSoapHttpSecrets.h"

#include <algorithm>

namespace {

constexpr std::string_view SecretHeaders[] = {
    "Authorization",      "Proxy-Authorization", "Cookie", "Set-Cookie", "WWW-Authenticate",
    "Proxy-Authenticate", "Authentication-Info"};
constexpr std::string_view SecretElements[] = {"Password", "BinarySecurityToken"};
constexpr std::string_view NameEnd = " \t\r\n/><";

bool isSecretElement(std::string_view qualifiedName) {
    const std::string_view local = qualifiedName.substr(qualifiedName.rfind(':') + 1);
    return std::find(std::begin(SecretElements), std::end(SecretElements), local) !=
           std::end(SecretElements);
}

/// The position after the tag that begins at `from`, whose attributes may hold ">" in quotes; the
/// text's end when the tag has none.
std::size_t endOfTag(std::string_view text, std::size_t from) {
    char quote = '\0';
    for (std::size_t at = from; at < text.size(); ++at) {
        const char character = text[at];
        if (quote != '\0') {
            quote = character == quote ? '\0' : quote;
        } else if (character == '"' || character == '\'') {
            quote = character;
        } else if (character == '>') {
            return at + 1;
        }
    }
    return text.size();
}

} // namespace

void TzSoapHttpSecrets::mask(TzSoapHttpTransportContext& headers,
                             const std::vector<TzCString>& further) {
    for (auto& [name, value] : headers) {
        const auto matches = [&name = name](std::string_view secret) {
            return tzEqualIgnoreCase(name, secret);
        };
        if (std::any_of(std::begin(SecretHeaders), std::end(SecretHeaders), matches) ||
            std::any_of(further.begin(), further.end(), matches)) {
            value = Mask;
        }
    }
}

TzCString TzSoapHttpSecrets::masked(std::string_view body) {
    TzCString shown;
    std::size_t copied = 0;
    for (std::size_t tag = body.find('<'); tag != std::string_view::npos;
         tag = body.find('<', tag + 1)) {
        const std::size_t nameEnd = body.find_first_of(NameEnd, tag + 1);
        const std::string_view name =
            body.substr(tag + 1, nameEnd == std::string_view::npos ? nameEnd : nameEnd - tag - 1);
        if (!isSecretElement(name)) {
            continue;
        }
        const std::size_t content = endOfTag(body, tag);
        if (body[content - 2] == '/') {
            tag = content - 1;
            continue;
        }
        // Other markup within, such as a CDATA section, belongs to the secret.
        const TzCString closing = "</" + TzCString(name);
        const std::size_t end = std::min(body.find(closing, content), body.size());
        shown.append(body.substr(copied, content - copied)).append(Mask);
        copied = end;
        tag = end == body.size() ? end - 1 : end;
    }
    return shown.append(body.substr(copied));
}
