#include "hosts/kit/message.h"

#include <string_view>
#include <utility>

namespace zolt20::hosts {

Message Message::Of(std::string text) {
  Message message;
  message.text_ = std::move(text);
  return message;
}

std::string Message::English() const {
  return In([](const char* pattern) { return std::string(pattern); });
}

// In one pass, so that a "%1" within an argument stays what it is.
std::string Message::In(const std::function<std::string(const char* pattern)>& translate) const {
  if (pattern_ == nullptr) return text_;
  const std::string pattern = translate(pattern_);
  std::string told;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    const char digit = at + 1 < pattern.size() ? pattern[at + 1] : ' ';
    const auto argument = static_cast<std::size_t>(digit - '1');
    if (pattern[at] != '%' || digit < '1' || argument >= arguments_.size()) {
      told += pattern[at];
      continue;
    }
    told += arguments_[argument].In(translate);
    ++at;
  }
  return told;
}

MessageError::MessageError(Message message)
    : std::runtime_error(message.English()),
      message_(std::make_shared<const Message>(std::move(message))) {}

}  // namespace zolt20::hosts
