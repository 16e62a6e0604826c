// SPDX-License-Identifier: MIT
#pragma once

#include "TzSoapCurl.h"

#include <array>
#include <cstddef>
#include <mutex>
#include <vector>

/// The connections of one client, and what its calls share. Usable from any thread.
class TzSoapHttpPool {
public:
    /// What one call at a time uses: its connection lives in `multi`.
    struct Session {
        TzSoapCurl::Easy easy;
        TzSoapCurl::Multi multi;
    };

    /// Keeps up to `idle` sessions that no call uses; shares cookies when `cookies` is set.
    TzSoapHttpPool(std::size_t idle, bool cookies);
    ~TzSoapHttpPool();
    TzSoapHttpPool(const TzSoapHttpPool&) = delete;
    TzSoapHttpPool& operator=(const TzSoapHttpPool&) = delete;

    /// The session that was used last, or a new one. Its options are those of a new handle but for
    /// what is shared. `std::bad_alloc`.
    Session take();
    /// Gives a session back; one too many is closed.
    void giveBack(Session session) noexcept;

private:
    static void lock(CURL* easy, curl_lock_data data, curl_lock_access access, void* pool);
    static void unlock(CURL* easy, curl_lock_data data, void* pool);

    std::array<std::mutex, CURL_LOCK_DATA_LAST> locks_;
    TzSoapCurl::Share share_;
    std::mutex mutex_;
    std::size_t most_;
    std::vector<Session> idle_;
};
