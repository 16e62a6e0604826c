// SPDX-License-Identifier: MIT
#include "http/TestService.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

TestService::TestService(Handler handler) : server_(std::make_unique<httplib::Server>()) {
    start(std::move(handler));
}

TestService::TestService(Handler handler, const std::string& certificate, const std::string& key,
                         const std::string& clientAuthority)
    : scheme_("https://"), server_(std::make_unique<httplib::SSLServer>(
                               certificate.c_str(), key.c_str(),
                               clientAuthority.empty() ? nullptr : clientAuthority.c_str())) {
    EXPECT_TRUE(server_->is_valid());
    start(std::move(handler));
}

TestService::~TestService() {
    server_->stop();
    thread_.join();
}

void TestService::start(Handler handler) {
    constexpr std::size_t Threads = 256; // an idle connection holds one
    server_->new_task_queue = [] { return new httplib::ThreadPool(Threads); };
    server_->set_tcp_nodelay(true);
    server_->set_keep_alive_timeout(1);
    server_->Post(".*", std::move(handler));
    int listener = -1;
    server_->set_socket_options([&listener](socket_t made) { listener = made; });
    port_ = server_->bind_to_any_port("127.0.0.1");
    listen(listener, SOMAXCONN); // more connections may wait than cpp-httplib lets
    thread_ = std::thread([this] { server_->listen_after_bind(); });
    while (!server_->is_running()) {
        std::this_thread::yield();
    }
}

namespace {

/// A folder that goes with the process.
class Folder {
public:
    Folder()
        : path_(std::filesystem::temp_directory_path() /
                ("tzsoap-tls-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(path_);
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string file(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

std::string contentOf(const std::string& file) {
    std::ifstream in(file);
    return {std::istreambuf_iterator<char>(in), {}};
}

TestCertificates make(const Folder& folder) {
    TestCertificates made{folder.file("ca.pem"),     folder.file("server.pem"),
                          folder.file("server.key"), folder.file("client.pem"),
                          folder.file("client.key"), ""};
    const auto run = [](const std::string& command) {
        EXPECT_EQ(std::system((command + " 2>/dev/null").c_str()), 0) << command;
    };
    const std::string curve = " -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes ";
    const std::string caKey = folder.file("ca.key");
    run("openssl req -x509 -days 2 -subj '/CN=test authority'" + curve + "-keyout " + caKey +
        " -out " + made.authority);
    const auto sign = [&](const std::string& certificate, const std::string& key,
                          const std::string& extension) {
        const std::string wanted = folder.file("wanted.csr");
        const std::string extensions = folder.file("extensions");
        std::ofstream(extensions) << extension << '\n';
        run("openssl req -subj /CN=test" + curve + "-keyout " + key + " -out " + wanted);
        run("openssl x509 -req -days 2 -set_serial 1 -in " + wanted + " -CA " + made.authority +
            " -CAkey " + caKey + " -extfile " + extensions + " -out " + certificate);
    };
    sign(made.server, made.serverKey, "subjectAltName=DNS:localhost");
    sign(made.client, made.clientKey, "extendedKeyUsage=clientAuth");
    const std::string pin = folder.file("pin");
    run("openssl x509 -pubkey -noout -in " + made.server +
        " | openssl pkey -pubin -outform der | openssl dgst -sha256 -binary | openssl base64 > " +
        pin);
    made.pin = contentOf(pin);
    made.pin.erase(made.pin.find_last_not_of('\n') + 1);
    return made;
}

} // namespace

const TestCertificates& TestCertificates::get() {
    static const Folder folder;
    static const TestCertificates made = make(folder);
    return made;
}
