// The control behind one element of a page: what it does, and what the page has to draw anew.
//
// The page owns the element and calls it by the functions of exports.cpp; it hears of events, of
// written properties and of messages at once, inside the call in progress. What changed on the form
// is noted and fetched by the page when it likes: after its call, or when it hears of something in
// it. A gesture is taken only while no other call is in progress.
#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <vector>

#include "faces/shared/person.h"
#include "faces/web/drawn_lists.h"
#include "shell/contract.h"
#include "shell/control.h"

namespace zolt20::web {

/// How a call ended.
using Status = faces::End;

/// What the page is told, by the number that it gave the element.
struct Page {
  void (*event)(int id, int number);
  void (*propertyChanged)(int id, int number);
  void (*message)(int id, StringView text, StringView title);
  /// Gives a text in one letter case, as the page has it.
  String (*folded)(StringView text);
};

class Element final : private ControlHost, private PropertyBag {
 public:
  Element(const Page& page, int id);

  const Surface& Form() const { return control_.Form(); }

  // The contract, by the numbers of its members. No value where there has to be one stands for a
  // number outside of 16 bits, which raises `overflow`.

  Status Let(int member, Variant value);
  Status Get(int member, Variant& value);
  Status Call(int member, Variant argument);

  /// The defaults of a new control.
  Status InitProperties();
  /// What the bag has for an entry, until the bag is read. The rest has its default.
  void PutInBag(std::size_t entry, Variant value);
  Status ReadProperties();
  /// The values in the order of writing.
  std::vector<Variant> WriteProperties();
  /// Makes the control a new one again. Not taken within another call.
  Status Renew();

  /// What the person does, and what it comes to.
  faces::Person& person() { return person_; }

  /// Which rows of a list of the form are drawn.
  faces::DrawnRows& Drawn(const RowsControl& list) { return lists_.Of(list); }

 private:
  void eventCancel() override { page_.event(id_, 1); }
  void eventDone() override { page_.event(id_, 2); }
  void eventSubQuery() override { page_.event(id_, 3); }
  void eventCondition() override { page_.event(id_, 4); }
  void eventFunction() override { page_.event(id_, 5); }
  void PropertyChanged(std::string_view property) override;
  void ShowMessage(const Message& message) override;

  String ReadString(std::string_view key, StringView defaultValue) override;
  Integer ReadInteger(std::string_view key, Integer defaultValue) override;
  void WriteString(std::string_view key, StringView value) override;
  void WriteInteger(std::string_view key, Integer value) override;

  const Page& page_;
  int id_;
  ZOLT20MapControl control_;
  ControlSnapshot new_;
  faces::Person person_;
  DrawnLists lists_;
  std::array<std::optional<Variant>, 14> bag_;
  std::vector<Variant> written_;
};

}  // namespace zolt20::web
