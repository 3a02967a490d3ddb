// Brings work from any thread to the thread that carries bytes, for as long as
// there is one: sessions outlive the transports and may still call.
#ifndef OLT_HOST_TRANSPORT_MAILBOX_H
#define OLT_HOST_TRANSPORT_MAILBOX_H

#include <asio/io_context.hpp>
#include <asio/post.hpp>
#include <functional>
#include <mutex>
#include <utility>

namespace olt_host {

class Mailbox {
 public:
  explicit Mailbox(asio::io_context& io) : _io(&io) {}
  Mailbox(const Mailbox&) = delete;
  Mailbox& operator=(const Mailbox&) = delete;

  // Runs `work` soon on the carrying thread; drops it after Close. Never waits.
  void Post(std::function<void()> work) {
    const std::lock_guard<std::mutex> lock(_mutex);
    if (_io != nullptr) asio::post(*_io, std::move(work));
  }
  // The io_context may be destroyed afterwards.
  void Close() {
    const std::lock_guard<std::mutex> lock(_mutex);
    _io = nullptr;
  }

 private:
  std::mutex _mutex;
  asio::io_context* _io;  // guarded by _mutex
};

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_MAILBOX_H
