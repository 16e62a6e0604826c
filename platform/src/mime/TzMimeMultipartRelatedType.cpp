// SPDX-License-Identifier: MIT
#include <tz/mime/TzMimeMultipartRelatedType.h>

namespace {

constexpr std::string_view BoundaryName = "boundary";
constexpr std::string_view TypeName = "type";
constexpr std::string_view StartName = "start";
constexpr std::string_view StartInfoName = "start-info";

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

TzCString TzMimeMultipartRelatedType::getBoundary() const { return getParameter(BoundaryName); }

void TzMimeMultipartRelatedType::setBoundary(const TzCString& boundary) {
    setParameter(BoundaryName, boundary);
}

TzCString TzMimeMultipartRelatedType::getType() const { return getParameter(TypeName); }

void TzMimeMultipartRelatedType::setType(const TzCString& type) { setParameter(TypeName, type); }

TzCString TzMimeMultipartRelatedType::getStart() const { return getParameter(StartName); }

void TzMimeMultipartRelatedType::setStart(const TzCString& start) {
    setParameter(StartName, start);
}

TzCString TzMimeMultipartRelatedType::getStartInfo() const { return getParameter(StartInfoName); }

void TzMimeMultipartRelatedType::setStartInfo(const TzCString& startInfo) {
    setParameter(StartInfoName, startInfo);
}
