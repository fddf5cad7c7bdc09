// What hosts tell people, as a pattern and what is filled into it, so that a host that speaks
// another language than English can say it in that: it puts its own pattern in the place of ours.
//
// Every pattern is a literal, written as Message("..."): scripts/translations.py finds it by that.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace zolt20::hosts {

class Message {
 public:
  /// Nothing to tell.
  Message() = default;
  /// A pattern, in UTF-8, with %1 to %9 for the arguments: messages, texts and whole numbers.
  template <std::size_t kSize, typename... Arguments>
  // NOLINTNEXTLINE(modernize-avoid-c-arrays): literals alone bind to it.
  explicit Message(const char (&pattern)[kSize], Arguments&&... arguments)
      : pattern_(pattern), arguments_{Of(std::forward<Arguments>(arguments))...} {}
  /// What is told as it is in every language, such as a name; in UTF-8.
  static Message Of(std::string text);
  static Message Of(std::size_t number) { return Of(std::to_string(number)); }
  static Message Of(Message message) { return message; }

  bool IsEmpty() const { return pattern_ == nullptr && text_.empty(); }
  /// In UTF-8.
  std::string English() const;
  /// The same with the patterns that `translate` gives for ours, in UTF-8.
  std::string In(const std::function<std::string(const char* pattern)>& translate) const;

 private:
  const char* pattern_ = nullptr;  // null for a text
  std::string text_;
  std::vector<Message> arguments_;
};

/// Goes wrong and says so; what() is the English message.
class MessageError : public std::runtime_error {
 public:
  explicit MessageError(Message message);
  /// Of a text that is in the language of the person already.
  explicit MessageError(const std::string& text) : MessageError(Message::Of(text)) {}

  const Message& Told() const { return *message_; }

 private:
  std::shared_ptr<const Message> message_;  // errors are copied without a throw
};

}  // namespace zolt20::hosts
