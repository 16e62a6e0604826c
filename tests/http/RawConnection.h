// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// A connection to a port of this machine that sends whatever it is given.
class RawConnection {
public:
    /// Connects. `std::system_error` when that fails.
    explicit RawConnection(int port);
    ~RawConnection();
    RawConnection(const RawConnection&) = delete;
    RawConnection& operator=(const RawConnection&) = delete;

    /// Sends bytes; what the other side does not want any more is dropped.
    void send(std::string_view bytes) const;
    /// Tells the other side that nothing more comes.
    void finishSending() const;
    /// What the other side sends until it ends the connection, or sends nothing for ten seconds.
    std::string readAll() const;

private:
    int socket_;
};
