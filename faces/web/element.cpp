#include "faces/web/element.h"

#include <algorithm>
#include <utility>

namespace zolt20::web {

namespace {

const Member& MemberOf(int number) {
  return Members()[static_cast<std::size_t>(number - 1)];
}

// An empty value stands for a number that does not fit 16 bits.
Variant Checked(Variant value) {
  if (std::holds_alternative<std::monostate>(value)) Raise(ErrorKind::kOverflow);
  return value;
}

}  // namespace

MapElement::MapElement(const Page& page, int id)
    : page_(page), id_(id), control_(*this), person_(control_), lists_(control_, page.folded) {
  control_.UserControl_InitProperties();
  new_ = control_.Save();
  person_.TakeChanges();
}

// The contract.

Status MapElement::Let(int member, Variant value) {
  return person_.Try([&] { MemberOf(member).let(control_, Checked(std::move(value))); });
}

Status MapElement::Get(int member, Variant& value) {
  return person_.Try([&] { value = MemberOf(member).get(control_); }, false);
}

Status MapElement::Call(int member, Variant argument) {
  const Member& method = MemberOf(member);
  return person_.Try([&] {
    if (method.type != ValueType::kNone) argument = Checked(std::move(argument));
    method.call(control_, std::move(argument));
  });
}

Status MapElement::InitProperties() {
  return person_.Try([&] { control_.UserControl_InitProperties(); });
}

void MapElement::PutInBag(std::size_t entry, Variant value) {
  bag_.at(entry) = std::move(value);
}

Status MapElement::ReadProperties() {
  const Status status = person_.Try([&] { control_.UserControl_ReadProperties(*this); });
  bag_ = {};
  return status;
}

std::vector<Variant> MapElement::WriteProperties() {
  control_.UserControl_WriteProperties(*this);
  return std::exchange(written_, {});
}

Status MapElement::Renew() {
  if (person_.IsBusy()) return Status::kNotTaken;
  return person_.Try([&] { control_.Restore(new_); });
}

namespace {

std::size_t EntryRead(std::string_view key) {
  const auto entries = BagEntries();
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [key](const BagEntry& entry) { return entry.readKey == key; });
  return static_cast<std::size_t>(found - entries.begin());
}

}  // namespace

String MapElement::ReadString(std::string_view key, StringView defaultValue) {
  const std::optional<Variant>& value = bag_.at(EntryRead(key));
  return value ? std::get<String>(*value) : String(defaultValue);
}

Integer MapElement::ReadInteger(std::string_view key, Integer defaultValue) {
  const std::optional<Variant>& value = bag_.at(EntryRead(key));
  return value ? std::get<Integer>(Checked(*value)) : defaultValue;
}

void MapElement::WriteString(std::string_view /*key*/, StringView value) {
  written_.emplace_back(String(value));
}

void MapElement::WriteInteger(std::string_view /*key*/, Integer value) {
  written_.emplace_back(value);
}

void MapElement::PropertyChanged(std::string_view property) {
  page_.propertyChanged(id_, FindMember(property)->number);
}

void MapElement::ShowMessage(const Message& message) {
  page_.message(id_, message.text, message.title);
}

}  // namespace zolt20::web
