#include "transport/carrier.h"

#include <asio/error.hpp>
#include <atomic>
#include <utility>

namespace olt_host {
namespace {

// Small, because each drain tells the channel that the client still takes bytes.
constexpr std::size_t kDrain = 16U << 10U;

// Posts a call of a carrier that is not posted yet, however often the session asks.
class PostedOnce {
 public:
  PostedOnce(std::shared_ptr<Mailbox> mailbox, std::function<void()> call)
      : _state(std::make_shared<State>()) {
    _state->mailbox = std::move(mailbox);
    _state->call = std::move(call);
  }

  void operator()() const {
    if (_state->is_posted.exchange(true)) return;
    _state->mailbox->Post([state = _state] {
      state->is_posted = false;
      state->call();
    });
  }

 private:
  struct State {
    std::shared_ptr<Mailbox> mailbox;
    std::function<void()> call;
    std::atomic<bool> is_posted{false};
  };
  std::shared_ptr<State> _state;
};

}  // namespace

Carrier::Carrier(asio::io_context& io, std::shared_ptr<Channel> channel)
    : _channel(std::move(channel)), _patience(io) {}

void Carrier::ListenToChannel(const std::shared_ptr<Mailbox>& mailbox) {
  const auto calling = [weak = weak_from_this()](void (Carrier::*function)()) {
    return [weak, function] {
      if (const std::shared_ptr<Carrier> self = weak.lock()) (self.get()->*function)();
    };
  };
  Channel::Wakeups wakeups;
  wakeups.output_waits = PostedOnce(mailbox, calling(&Carrier::Write));
  wakeups.input_room = PostedOnce(mailbox, calling(&Carrier::Read));
  _channel->SetWakeups(std::move(wakeups));
}

void Carrier::Start(std::function<void()> gone) {
  _when_gone = std::move(gone);
  OnStart();
  Write();
  Read();
}

void Carrier::SessionEnded() {
  if (_gone) return;
  Linger();
  Write();
  Read();
}

void Carrier::Abort() { End(false); }

void Carrier::Read() {
  if (_reading || _input_ended || _gone || !FeedTyped()) return;
  _reading = true;
  AsyncRead(asio::buffer(_read_bytes),
            [self = shared_from_this()](const asio::error_code& error, std::size_t length) {
              self->OnRead(error, length);
            });
}

void Carrier::OnRead(const asio::error_code& error, std::size_t length) {
  _reading = false;
  if (_gone) return;
  if (error == asio::error::eof) {
    _input_ended = true;
    _channel->FeedEnd();
    if (_all_sent) End(true);
    return;
  }
  if (error || !Decode(_read_bytes.data(), length)) {
    Abort();
    return;
  }
  Write();
  Read();
}

// False while the channel has no room for what is here: nothing more is read then,
// until the channel calls.
bool Carrier::FeedTyped() {
  std::string& bytes = typed();
  bytes.erase(0, _channel->Feed(bytes.data(), bytes.size()));
  return bytes.empty();
}

void Carrier::Write() {
  if (_writing || _gone || _all_sent) return;
  std::string bytes = TakeOutgoing();
  if (bytes.empty()) {
    std::array<char, kDrain> drained;
    Encode(drained.data(), _channel->Drain(drained.data(), drained.size()));
    bytes = TakeOutgoing();
  }
  if (bytes.empty()) {
    if (_channel->closed() || _channel->drained_to_end()) AllIsSent();
    return;
  }
  _writing = true;
  _written_bytes = std::move(bytes);
  AsyncWrite(asio::buffer(_written_bytes),
             [self = shared_from_this()](const asio::error_code& error, std::size_t) {
               self->OnWritten(error);
             });
}

void Carrier::OnWritten(const asio::error_code& error) {
  _writing = false;
  _written_bytes.clear();
  if (_gone) return;
  if (error) {
    Abort();
    return;
  }
  if (_lingering) Linger();
  Write();
}

void Carrier::AllIsSent() {
  if (_all_sent) return;
  _all_sent = true;
  if (!EndOutput() || _input_ended) {
    End(true);
    return;
  }
  // Closing before the other end has would lose it what is still on the way.
  Linger();
  Read();
}

void Carrier::Linger() {
  _lingering = true;
  _patience.expires_after(kLinger);
  _patience.async_wait([weak = weak_from_this()](const asio::error_code& error) {
    const std::shared_ptr<Carrier> self = weak.lock();
    if (!error && self) self->Abort();
  });
}

void Carrier::End(bool orderly) {
  if (_gone) return;
  _gone = true;
  const std::shared_ptr<Carrier> self = shared_from_this();
  _patience.cancel();
  _channel->Close();
  CloseStream(orderly);
  if (_when_gone) _when_gone();
}

}  // namespace olt_host
