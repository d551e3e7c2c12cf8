// A server on this machine, for tests: it counts who comes, and takes its time.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tavix::recorder::testing {

class SlowServer {
public:
    // `answer` gives the body for a path.
    SlowServer(double delaySec, std::function<std::string(const std::string& path)> answer);
    ~SlowServer();
    SlowServer(const SlowServer&) = delete;
    SlowServer& operator=(const SlowServer&) = delete;

    std::string origin() const { return "http://127.0.0.1:" + std::to_string(port_); }
    int visitors() const { return visitors_; }

private:
    void accept();
    void serve(int connection);

    double delaySec_;
    std::function<std::string(const std::string&)> answer_;
    int listener_ = -1, port_ = 0;
    std::atomic<int> visitors_ = 0;
    std::atomic<bool> isClosing_ = false;
    std::mutex mutex_;
    std::vector<std::thread> connections_;
    std::thread thread_;
};

}   // namespace tavix::recorder::testing
