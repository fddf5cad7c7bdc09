// A source of choices, from which sessions, forms and texts are made up.
//
// A seed gives random choices, the same ones in every run. Bytes, such as the input of a fuzzer,
// give a choice each, two of them where there are more than 256 possibilities: no byte makes an
// input invalid, and behind the last byte every choice is 0.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>

namespace zolt20::tests {

/// Also a generator of random bits, as std::shuffle takes one.
class Choices {
 public:
  using result_type = std::mt19937::result_type;

  virtual ~Choices() = default;

  /// False when every further choice is 0.
  virtual bool AreLeft() const = 0;
  /// A number from 0 to `count` - 1; 0 when `count` is not positive.
  virtual int Below(int count) = 0;
  /// True for one of `count` choices; false when none are left.
  virtual bool OneIn(int count) = 0;
  /// 32 random bits.
  virtual result_type operator()() = 0;
  static constexpr result_type min() { return std::mt19937::min(); }
  static constexpr result_type max() { return std::mt19937::max(); }

  /// An entry of a list that has some.
  template <typename List>
  auto From(const List& list) {
    return list[static_cast<std::size_t>(Below(static_cast<int>(list.size())))];
  }
};

class SeededChoices final : public Choices {
 public:
  explicit SeededChoices(unsigned seed) : random_(seed) {}

  bool AreLeft() const override { return true; }
  int Below(int count) override {
    return count <= 0 ? 0 : static_cast<int>(random_() % static_cast<unsigned>(count));
  }
  bool OneIn(int count) override { return Below(count) == 0; }
  result_type operator()() override { return random_(); }

 private:
  std::mt19937 random_;
};

/// The bytes have to outlive it.
class ByteChoices final : public Choices {
 public:
  ByteChoices(const std::uint8_t* data, std::size_t size) : bytes_(data, size) {}

  bool AreLeft() const override { return at_ < bytes_.size(); }
  int Byte() { return AreLeft() ? bytes_[at_++] : 0; }
  int Below(int count) override {
    if (count <= 0) return 0;
    const int low = Byte();
    return (count <= 256 ? low : low * 256 + Byte()) % count;
  }
  bool OneIn(int count) override { return Below(count) == 1; }
  result_type operator()() override {
    result_type bits = 0;
    for (int byte = 0; byte < 4; ++byte)
      bits = bits << 8U | static_cast<result_type>(Byte());
    return bits;
  }

 private:
  std::span<const std::uint8_t> bytes_;
  std::size_t at_ = 0;
};

}  // namespace zolt20::tests
