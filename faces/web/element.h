// The control behind one element of a page, and the changes that the page has yet to draw.
//
// The page owns the element and calls it by the functions of exports.cpp. Events, written
// properties and messages reach the page at once, inside the call in progress. Changes of the form
// are collected; the page fetches them after its call or inside an event. Re-entrancy: a gesture
// during another call is not taken.
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

/// The page's callbacks. `id` is the number that the page gave the element.
struct Page {
  void (*event)(int id, int number);
  void (*propertyChanged)(int id, int number);
  void (*message)(int id, StringView text, StringView title);
  /// Gives a text folded to one letter case, by the page's knowledge of letters.
  String (*folded)(StringView text);
};

class MapElement final : private ControlHost, private PropertyBag {
 public:
  MapElement(const Page& page, int id);

  const Surface& Form() const { return control_.Form(); }

  // The contract, by the numbers of its members. An empty value where one is required stands for a
  // number that does not fit 16 bits, and raises `overflow`.

  Status Let(int member, Variant value);
  Status Get(int member, Variant& value);
  Status Call(int member, Variant argument);

  /// Gives all properties the defaults of a new control.
  Status InitProperties();
  /// Puts a value into the property bag for the next ReadProperties. Other entries have defaults.
  void PutInBag(std::size_t entry, Variant value);
  Status ReadProperties();
  /// The values for a property bag, in the order in which the control writes them.
  std::vector<Variant> WriteProperties();
  /// Resets the control to the state of a new one. Not taken within another call.
  Status Renew();

  /// Takes gestures, undo and redo, and has the changes and the last failure.
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
