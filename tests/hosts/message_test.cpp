// What hosts tell people, in English and with the patterns of another language.
#include "hosts/kit/message.h"

#include <gtest/gtest.h>

namespace zolt20::tests {
namespace {

using hosts::Message;
using hosts::MessageError;

std::string Swapped(const Message& message) {
  return message.In([](const char* pattern) {
    return std::string(pattern) == "%1 has %2" ? "%2, of %1" : "?" + std::string(pattern);
  });
}

TEST(MessageTest, APatternIsFilledInWithTextsNumbersAndMessages) {
  const Message message("%1 has %2", Message("table %1", std::string("A")), 3U);
  EXPECT_EQ(message.English(), "table A has 3");
  EXPECT_EQ(Swapped(message), "3, of ?table A");
}

TEST(MessageTest, WhatIsFilledInIsNoPattern) {
  const Message message("%1 has %2", std::string("%2 %9"), std::string("100 %"));
  EXPECT_EQ(message.English(), "%2 %9 has 100 %");
  EXPECT_EQ(Swapped(Message::Of(std::string("%1 has %2"))), "%1 has %2");
}

TEST(MessageTest, APlaceWithoutAnArgumentStaysAsItIs) {
  EXPECT_EQ(Message("100 % of %1 and %2 %", std::string("A")).English(), "100 % of A and %2 %");
}

TEST(MessageTest, NothingIsEmpty) {
  EXPECT_TRUE(Message().IsEmpty());
  EXPECT_EQ(Message().English(), "");
  EXPECT_FALSE(Message("is empty").IsEmpty());
}

TEST(MessageTest, AnErrorTellsEnglishAndItsMessage) {
  const MessageError error(Message("%1 has %2", std::string("A"), 1U));
  EXPECT_STREQ(error.what(), "A has 1");
  EXPECT_EQ(Swapped(error.Told()), "1, of A");
}

}  // namespace
}  // namespace zolt20::tests
