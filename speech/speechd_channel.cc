#include "speech/speechd_channel.h"

#include <poll.h>

#include <chrono>
#include <cstdlib>

namespace {

// The one channel the library's notices go to: its callbacks carry no
// pointer of ours, and the reader opens one connection.
SpeechdChannel* noticeTarget = nullptr;

// How long an utterance of `bytes` bytes may take, at the slowest rate a
// listener would choose: a second for the start, a fifth of a second for
// each character of three bytes.
std::chrono::milliseconds LongestSpeech(size_t bytes) {
  return std::chrono::milliseconds(1000 + 70 * bytes);
}

void OnDone(size_t messageId, size_t, SPDNotificationType) {
  if (noticeTarget != nullptr) noticeTarget->MarkDone(messageId);
}

// How often a wait for the end of an utterance looks whether the server
// is still there.
constexpr std::chrono::milliseconds kHangupCheck(50);

}  // namespace

SpeechdChannel::~SpeechdChannel() {
  if (connection_ != nullptr) spd_close(connection_);
  if (noticeTarget == this) noticeTarget = nullptr;
}

void SpeechdChannel::MarkDone(size_t messageId) {
  std::lock_guard<std::mutex> lock(mutex_);
  if (messageId > doneId_) doneId_ = messageId;
  done_.notify_all();
}

bool SpeechdChannel::Open(std::string& why) {
  char* error = nullptr;
  SPDConnectionAddress* address = spd_get_default_address(&error);
  if (address == nullptr) {
    why = error != nullptr ? error : "no address";
    std::free(error);
    return false;
  }
  connection_ = spd_open2("epwingdict", "reader", nullptr, SPD_MODE_THREADED, address, 1, &error);
  SPDConnectionAddress__free(address);
  if (connection_ == nullptr) {
    why = error != nullptr ? error : "cannot connect";
    // The library's reason goes on about starting a server of its own;
    // its first sentence says what went wrong.
    if (why.rfind("Error: ", 0) == 0) why.erase(0, 7);
    const size_t sentenceEnd = why.find(". ");
    if (sentenceEnd != std::string::npos) why.erase(sentenceEnd);
    std::free(error);
    return false;
  }
  noticeTarget = this;
  connection_->callback_end = OnDone;
  connection_->callback_cancel = OnDone;
  if (spd_set_notification_on(connection_, SPD_END) != 0 ||
      spd_set_notification_on(connection_, SPD_CANCEL) != 0 ||
      spd_set_language(connection_, "ja") != 0)
    return Lost("it does not answer", why);
  return true;
}

bool SpeechdChannel::Lost(const char* what, std::string& why) {
  why = what;
  if (connection_ != nullptr) spd_close(connection_);
  connection_ = nullptr;
  return false;
}

bool SpeechdChannel::WaitFor(int id, size_t bytes) {
  const auto deadline = std::chrono::steady_clock::now() + LongestSpeech(bytes);
  std::unique_lock<std::mutex> lock(mutex_);
  while (doneId_ < static_cast<size_t>(id) && std::chrono::steady_clock::now() < deadline) {
    // A server that went away tells no end: look at the socket now and then.
    struct pollfd hangup{connection_->socket, POLLRDHUP, 0};
    if (poll(&hangup, 1, 0) > 0 && (hangup.revents & (POLLRDHUP | POLLHUP | POLLERR)) != 0)
      return false;
    done_.wait_for(lock, kHangupCheck);
  }
  return true;
}

bool SpeechdChannel::Say(const std::string& utf8, bool wait, std::string& why) {
  if (connection_ == nullptr) return Lost("not connected", why);
  if (spd_cancel(connection_) != 0) return Lost("the connection broke", why);
  const int id = spd_say(connection_, SPD_TEXT, utf8.c_str());
  if (id < 0) return Lost("the connection broke", why);
  if (wait && !WaitFor(id, utf8.size())) return Lost("the connection broke", why);
  return true;
}

bool SpeechdChannel::Stop(std::string& why) {
  if (connection_ == nullptr) return Lost("not connected", why);
  if (spd_cancel(connection_) != 0) return Lost("the connection broke", why);
  return true;
}

bool SpeechdChannel::Sound(std::string& why) {
  if (connection_ == nullptr) return Lost("not connected", why);
  if (spd_sound_icon(connection_, SPD_NOTIFICATION, "bell") < 0)
    return Lost("the connection broke", why);
  return true;
}
