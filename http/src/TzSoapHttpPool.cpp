// SPDX-License-Identifier: MIT
#include "TzSoapHttpPool.h"

#include "TzSoapSigpipeBlock.h"

#include <utility>

namespace {

/// libcurl, ready to be used. Never ended: a client may be used until the process ends.
void startLibrary() {
    static const CURLcode code = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (code != CURLE_OK) {
        throw std::bad_alloc();
    }
}

} // namespace

TzSoapHttpPool::TzSoapHttpPool(std::size_t idle, bool cookies)
    : share_((startLibrary(), TzSoapCurl::owned<TzSoapCurl::Share>(curl_share_init()))),
      most_(idle) {
    curl_share_setopt(share_.get(), CURLSHOPT_LOCKFUNC, &TzSoapHttpPool::lock);
    curl_share_setopt(share_.get(), CURLSHOPT_UNLOCKFUNC, &TzSoapHttpPool::unlock);
    curl_share_setopt(share_.get(), CURLSHOPT_USERDATA, this);
    // Not the connections: libcurl cannot share those between threads.
    curl_share_setopt(share_.get(), CURLSHOPT_SHARE, CURL_LOCK_DATA_DNS);
    curl_share_setopt(share_.get(), CURLSHOPT_SHARE, CURL_LOCK_DATA_SSL_SESSION);
    if (cookies) {
        curl_share_setopt(share_.get(), CURLSHOPT_SHARE, CURL_LOCK_DATA_COOKIE);
    }
}

TzSoapHttpPool::~TzSoapHttpPool() {
    const TzSoapSigpipeBlock quiet; // closing a connection of TLS writes
    idle_.clear();
}

TzSoapHttpPool::Session TzSoapHttpPool::take() {
    Session session;
    {
        const std::lock_guard guard(mutex_);
        if (!idle_.empty()) {
            session = std::move(idle_.back());
            idle_.pop_back();
        }
    }
    if (session.easy == nullptr) {
        session.easy = TzSoapCurl::owned<TzSoapCurl::Easy>(curl_easy_init());
        session.multi = TzSoapCurl::owned<TzSoapCurl::Multi>(curl_multi_init());
        curl_multi_setopt(session.multi.get(), CURLMOPT_MAXCONNECTS, 1L);
    }
    curl_easy_setopt(session.easy.get(), CURLOPT_SHARE, share_.get());
    return session;
}

void TzSoapHttpPool::giveBack(Session session) noexcept {
    // Resetting alone would leak the list that switched cookies on; those of the share stay.
    curl_easy_setopt(session.easy.get(), CURLOPT_COOKIEFILE, static_cast<char*>(nullptr));
    curl_easy_reset(session.easy.get()); // what the options point at goes with the call
    const std::lock_guard guard(mutex_);
    try {
        if (idle_.size() < most_) {
            idle_.push_back(std::move(session));
        }
    } catch (const std::bad_alloc&) {
        // Without memory to keep the session in, it is closed.
    }
}

void TzSoapHttpPool::lock(CURL* /*easy*/, curl_lock_data data, curl_lock_access /*access*/,
                          void* pool) {
    static_cast<TzSoapHttpPool*>(pool)->locks_.at(data).lock();
}

void TzSoapHttpPool::unlock(CURL* /*easy*/, curl_lock_data data, void* pool) {
    static_cast<TzSoapHttpPool*>(pool)->locks_.at(data).unlock();
}
