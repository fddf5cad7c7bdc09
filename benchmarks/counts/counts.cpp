// Counts the work of each gesture and call of recorded sessions: instructions by callgrind, under
// which this program runs, allocations and their bytes by the program itself.
//
//   zolt20_counts TABLES SESSION.jsonl...
//
// Each session begins with a new control. Lists of tables and fields get that many further tables.
// Before a request the counters are at zero; behind it callgrind writes a dump whose trigger is the
// number of the request, and a line `NUMBER<tab>NAME<tab>ALLOCATIONS<tab>BYTES` goes to standard
// output. Reading the JSON of a request is not counted.
#include <valgrind/callgrind.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "hosts/kit/json_reader.h"
#include "hosts/kit/request.h"
#include "hosts/kit/text_coding.h"
#include "shell/contract.h"
#include "shell/control.h"

namespace {

struct Allocated {
  long count = 0;
  long bytes = 0;
};
Allocated g_allocated;

}  // namespace

void* operator new(std::size_t size) {
  ++g_allocated.count;
  g_allocated.bytes += static_cast<long>(size);
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace zolt20::bench {
namespace {

using hosts::FindValue;
using hosts::JsonValue;
using hosts::TextOf;

constexpr int kFieldsOfATable = 20;

// What a host does with the control.
struct Action {
  const Member* member = nullptr;
  bool writes = false;
  Variant value;
};

Variant ValueOf(const JsonValue& value) {
  if (value.IsString()) return hosts::FromJsonText(TextOf(value));
  if (value.IsBool()) return value.GetBool();
  return Integer(hosts::WholeNumber(value));
}

Action ActionOf(const JsonValue& request) {
  for (const char* verb : {"set", "get", "call"}) {
    const JsonValue* name = FindValue(request, verb);
    if (name == nullptr) continue;
    Action action{FindMember(TextOf(*name)), std::string_view(verb) == "set", {}};
    if (action.writes) action.value = ValueOf(hosts::Needed(request, "value"));
    const JsonValue* arguments = FindValue(request, "args");
    if (arguments != nullptr && !arguments->Empty()) action.value = ValueOf((*arguments)[0]);
    return action;
  }
  throw hosts::BadRequest("no set, get or call");
}

void Run(ZOLT20MapControl& control, const Action& action) {
  if (action.writes) {
    action.member->let(control, action.value);
  } else if (action.member->IsMethod()) {
    action.member->call(control, action.value);
  } else {
    action.member->get(control);
  }
}

// A host that answers events as the session says.
class Host final : public ControlHost {
 public:
  Host() : control_(std::make_unique<ZOLT20MapControl>(*this)) {
    control_->UserControl_InitProperties();
  }

  ZOLT20MapControl& control() { return *control_; }
  void Answer(const JsonValue& request) {
    const std::string_view name = hosts::NeededText(request, "answer");
    const auto event = std::find_if(Events().begin(), Events().end(),
                                    [&](const Event& candidate) { return candidate.name == name; });
    std::vector<Action>& answer = answers_.at(static_cast<std::size_t>(event - Events().begin()));
    answer.clear();
    for (const JsonValue& action : hosts::Needed(request, "with").GetArray())
      answer.push_back(ActionOf(action));
  }

  void eventCancel() override { Raise(0); }
  void eventDone() override { Raise(1); }
  void eventSubQuery() override { Raise(2); }
  void eventCondition() override { Raise(3); }
  void eventFunction() override { Raise(4); }
  void PropertyChanged(std::string_view) override {}
  void ShowMessage(const Message&) override {}

 private:
  void Raise(std::size_t event) {
    for (const Action& action : answers_.at(event))
      Run(*control_, action);
  }

  std::unique_ptr<ZOLT20MapControl> control_;
  std::array<std::vector<Action>, 5> answers_;
};

// Tables, or the fields of tables, that no session uses.
String FurtherTables(int count, bool asFields) {
  String list;
  for (int table = 0; table < count; ++table) {
    const std::string digits = std::to_string(1000000 + table);
    const String name = u"T" + String(digits.begin(), digits.end());
    if (!asFields) {
      list += u"," + name + u"1";
      continue;
    }
    for (int field = 0; field < kFieldsOfATable; ++field) {
      const std::string number = std::to_string(field);
      list += u",long*Q*V*R*N*N" + name + u".F" + String(number.begin(), number.end()) +
              u"*Q*V*R*N*a field";
    }
  }
  return list;
}

// Counts one piece of work.
class Counter {
 public:
  template <typename Work>
  void Count(const std::string& name, const Work& work) {
    ++number_;
    const std::string trigger = std::to_string(number_);
    const Allocated before = g_allocated;
    CALLGRIND_ZERO_STATS;
    CALLGRIND_TOGGLE_COLLECT;
    work();
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(trigger.c_str());
    std::cout << trigger << '\t' << name << '\t' << g_allocated.count - before.count << '\t'
              << g_allocated.bytes - before.bytes << '\n';
  }

 private:
  int number_ = 0;
};

void Play(const std::string& line, Host& host, int furtherTables, Counter& counter) {
  hosts::JsonReader reader;
  const JsonValue& request =
      reader.Read(hosts::NeedsStandIns(line) ? hosts::PutStandIns(line) : line);
  if (FindValue(request, "answer") != nullptr) return host.Answer(request);
  if (FindValue(request, "user") != nullptr) {
    const UserGesture gesture = hosts::ReadGesture(request, host.control().Form());
    const std::string name =
        std::string(DesignOf(gesture.gesture).word) + ' ' + std::string(gesture.control->name());
    return counter.Count(name, [&] { host.control().User(gesture); });
  }
  for (const char* other : {"new", "save", "dump"}) {
    if (FindValue(request, other) != nullptr) return;  // each session has its new control
  }
  Action action = ActionOf(request);
  const bool isFields = action.member->name == "PrpStrFields";
  if (isFields || action.member->name == "PrpStrTables")
    std::get<String>(action.value) += FurtherTables(furtherTables, isFields);
  const std::string verb = action.writes ? "set " : action.member->IsMethod() ? "call " : "get ";
  counter.Count(verb + std::string(action.member->name), [&] { Run(host.control(), action); });
}

}  // namespace
}  // namespace zolt20::bench

int main(int argc, char** argv) {
  zolt20::bench::Counter counter;
  for (int i = 2; i < argc; ++i) {
    std::ifstream file(argv[i], std::ios::binary);
    if (!file) {
      std::cerr << argv[i] << " can't be read\n";
      return 1;
    }
    zolt20::bench::Host host;
    for (std::string line; std::getline(file, line);) {
      if (line.empty() || line.front() == '#') continue;
      zolt20::bench::Play(line, host, std::atoi(argv[1]), counter);
    }
  }
  return 0;
}
