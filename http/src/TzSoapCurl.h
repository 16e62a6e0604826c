// SPDX-License-Identifier: MIT
#pragma once

#include <curl/curl.h>

#include <memory>
#include <new>

/// Owners of libcurl's objects.
namespace TzSoapCurl {

/// Frees an object with a function of libcurl, whose handles are pointers to void that only their
/// functions tell apart.
template <auto Function> struct FreeBy {
    void operator()(auto* object) const noexcept { Function(object); }
};

using Easy = std::unique_ptr<CURL, FreeBy<curl_easy_cleanup>>;
using Multi = std::unique_ptr<CURLM, FreeBy<curl_multi_cleanup>>;
using Share = std::unique_ptr<CURLSH, FreeBy<curl_share_cleanup>>;
using Url = std::unique_ptr<CURLU, FreeBy<curl_url_cleanup>>;
using List = std::unique_ptr<curl_slist, FreeBy<curl_slist_free_all>>;
using Text = std::unique_ptr<char, FreeBy<curl_free>>;

/// An owner of `object`; `std::bad_alloc` for null, which is what libcurl returns without memory.
template <typename Owner> Owner owned(typename Owner::pointer object) {
    if (object == nullptr) {
        throw std::bad_alloc();
    }
    return Owner(object);
}

} // namespace TzSoapCurl
