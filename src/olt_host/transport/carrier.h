// Carries the bytes of one session between its channel and a stream, whatever
// the stream is. Holds no more than one read and one write of bytes: what the
// channel does not take is not read, what the stream does not take is not
// drained.
//
// Lives on the carrying thread, in a shared_ptr: kept by its operations that are
// under way and by the set of carriers, until it is gone.
#ifndef OLT_HOST_TRANSPORT_CARRIER_H
#define OLT_HOST_TRANSPORT_CARRIER_H

#include <array>
#include <asio/buffer.hpp>
#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>
#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "session/channel.h"
#include "transport/mailbox.h"

namespace olt_host {

class Carrier : public std::enable_shared_from_this<Carrier> {
 public:
  // A stream whose session is over is dropped when it takes no byte for so long,
  // or does not close its end once it has got all.
  static constexpr std::chrono::seconds kLinger{3};

  Carrier(asio::io_context& io, std::shared_ptr<Channel> channel);
  Carrier(const Carrier&) = delete;
  Carrier& operator=(const Carrier&) = delete;
  virtual ~Carrier() = default;

  // Makes the channel call here, by way of the mailbox. Before the session starts.
  void ListenToChannel(const std::shared_ptr<Mailbox>& mailbox);
  // `gone` is called once, when nothing is carried any more.
  void Start(std::function<void()> gone);
  // The session has ended: what is queued is still sent, for a limited time.
  void SessionEnded();
  // Drops the stream, whatever waits.
  void Abort();

 protected:
  using Done = std::function<void(const asio::error_code&, std::size_t)>;

  virtual void OnStart() {}
  virtual void AsyncRead(asio::mutable_buffer into, Done done) = 0;
  // Writes all of the bytes, which stay until `done`.
  virtual void AsyncWrite(asio::const_buffer bytes, Done done) = 0;

  // What came from the stream; false when its other end is not to be borne.
  virtual bool Decode(const char* bytes, std::size_t length) = 0;
  // What was decoded and not taken by the channel yet.
  virtual std::string& typed() = 0;
  // What the session says, to be taken by TakeOutgoing.
  virtual void Encode(const char* bytes, std::size_t length) = 0;
  // What is to be written next; may hold more than was encoded.
  virtual std::string TakeOutgoing() = 0;
  // Everything was written; false when the other end need not be waited for.
  virtual bool EndOutput() = 0;
  // `orderly`: both ends are done.
  virtual void CloseStream(bool orderly) = 0;

  Channel& channel() { return *_channel; }

 private:
  void Read();
  void OnRead(const asio::error_code& error, std::size_t length);
  void Write();
  void OnWritten(const asio::error_code& error);
  bool FeedTyped();
  void AllIsSent();
  void Linger();
  void End(bool orderly);

  const std::shared_ptr<Channel> _channel;
  std::function<void()> _when_gone;
  asio::steady_timer _patience;
  std::array<char, 8192> _read_bytes{};
  std::string _written_bytes;
  bool _reading = false;
  bool _writing = false;
  bool _input_ended = false;
  bool _lingering = false;
  bool _all_sent = false;
  bool _gone = false;
};

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_CARRIER_H
