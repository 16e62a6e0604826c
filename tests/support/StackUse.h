// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>

/// Bytes of stack, in whole pages, that `action` needs when a new thread runs it, what
/// starting the thread takes included; 0 under a sanitizer, which puts its own on the stack.
/// `action` must not throw.
std::size_t stackUse(const std::function<void()>& action);
