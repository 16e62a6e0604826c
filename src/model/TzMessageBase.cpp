// SPDX-License-Identifier: MIT
#include <soap/TzMessageBase.h>

TzMessageBase::TzMessageBase() noexcept = default;

TzMessageBase::TzMessageBase(const TzMessageBase&) noexcept = default;

TzMessageBase& TzMessageBase::operator=(const TzMessageBase&) noexcept = default;

TzMessageBase::~TzMessageBase() = default;
