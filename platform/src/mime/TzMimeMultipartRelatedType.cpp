// SPDX-License-Identifier: MIT
#include <tz/mime/TzMimeMultipartRelatedType.h>

namespace {

constexpr std::string_view boundaryName = "boundary";
constexpr std::string_view typeName = "type";
constexpr std::string_view startName = "start";
constexpr std::string_view startInfoName = "start-info";

} // namespace

TzMimeMultipartRelatedType::TzMimeMultipartRelatedType(const TzCString& startInfo,
                                                       const TzCString& type,
                                                       const TzCString& start,
                                                       const TzCString& boundary)
    : TzMimeContentType("multipart", "related") {
    setBoundary(boundary);
    setType(type);
    setStart(start);
    setStartInfo(startInfo);
}

TzMimeMultipartRelatedType::TzMimeMultipartRelatedType(const TzMimeContentType& other) noexcept
    : TzMimeContentType(other) {}

TzMimeMultipartRelatedType::~TzMimeMultipartRelatedType() = default;

TzCString TzMimeMultipartRelatedType::getBoundary() const { return getParameter(boundaryName); }

void TzMimeMultipartRelatedType::setBoundary(const TzCString& boundary) {
    setParameter(boundaryName, boundary);
}

TzCString TzMimeMultipartRelatedType::getType() const { return getParameter(typeName); }

void TzMimeMultipartRelatedType::setType(const TzCString& type) { setParameter(typeName, type); }

TzCString TzMimeMultipartRelatedType::getStart() const { return getParameter(startName); }

void TzMimeMultipartRelatedType::setStart(const TzCString& start) {
    setParameter(startName, start);
}

TzCString TzMimeMultipartRelatedType::getStartInfo() const { return getParameter(startInfoName); }

void TzMimeMultipartRelatedType::setStartInfo(const TzCString& startInfo) {
    setParameter(startInfoName, startInfo);
}
