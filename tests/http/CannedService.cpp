// SPDX-License-Identifier: MIT
#include "http/CannedService.h"

CannedService::CannedService(int status, const std::string& contentType, const std::string& body) {
    server_.Post(".*", [this, status, contentType, body](const httplib::Request& request,
                                                         httplib::Response& response) {
        last_ = request;
        response.status = status;
        if (!contentType.empty()) {
            response.set_content(body, contentType);
        }
    });
    url_ = "http://127.0.0.1:" + std::to_string(server_.bind_to_any_port("127.0.0.1"));
    thread_ = std::thread([this] { server_.listen_after_bind(); });
    while (!server_.is_running()) {
        std::this_thread::yield();
    }
}

CannedService::~CannedService() {
    server_.stop();
    thread_.join();
}
