// A breadth-first search of all sessions over the smallest catalogue that has all kinds, with the
// control and the plain walks compared. A state that was visited before is not expanded again.
//
//   zolt20-explore [--states N] [--topic NAME] [--found FILE]
//   zolt20-explore --play FILE
//
// Sessions grow step by step, shortest first, until N states were expanded, in each topic times the
// topic's share. The first difference ends the program with status 1 and leaves the session in
// FILE, as lines of the automation host. --play carries out such a file on both and prints in what
// they differ.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "tests/explore/moves.h"
#include "tests/support/digester.h"
#include "tests/support/mirror.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// A visited state, stored as the way to it.
struct Met {
  std::size_t from;  // the index of the state before, kNone for a beginning
  std::size_t move;  // the index of the move, or of the beginning
  bool turns;        // the page is turned before the move
};

struct Options {
  std::size_t states = 1000;
  std::string topic;
  std::string found = "difference.jsonl";
  std::string play;
};

/// Whether a person could use the control of that name if its page were in front.
bool IsWithinReach(const ZOLT20MapControl& control, const std::string& name) {
  const Control* on = control.Form().Find(name);
  if (on == nullptr || !on->Enabled() || !on->Visible()) return false;
  for (const Frame* frame = on->frame(); frame != nullptr; frame = frame->frame()) {
    if (!frame->Visible()) return false;
  }
  return true;
}

Step PageStep(int page) {
  return StepOf({{"user", "tab"}, {"page", page}});
}

class Explorer {
 public:
  Explorer(const Topic& topic, const Options& options) : topic_(topic), options_(options) {
    for (int page = 0; page <= 6; ++page)
      pages_.push_back(PageStep(page));
    for (const std::vector<std::string>& lines : topic.beginnings) {
      std::vector<Step> steps;
      for (const std::string& line : lines)
        steps.push_back(StepOf(Json::parse(line)));
      beginnings_.push_back(std::move(steps));
    }
  }

  /// False when a difference was found.
  bool Walk();

 private:
  using Way = std::vector<const Step*>;

  bool Begin();
  bool WalkOnFrom(std::size_t place);
  std::vector<Met> MovesFrom(std::size_t place) const;
  Way WayTo(std::size_t place) const;
  void AddTo(Way& way, const Met& met) const;
  bool Agree(const Way& way, bool isNew);
  bool Keep(const Met& met);
  void Tell(const char* what) const;

  const Topic& topic_;
  const Options& options_;
  std::vector<Step> pages_;
  std::vector<std::vector<Step>> beginnings_;
  BothForms forms_;
  const BothForms::State fresh_ = forms_.Save();
  std::vector<Met> met_;
  std::unordered_set<std::size_t> digests_;
  std::size_t steps_ = 0;
};

void Explorer::AddTo(Way& way, const Met& met) const {
  const Move& move = topic_.moves[met.move];
  if (met.turns) way.push_back(&pages_[static_cast<std::size_t>(move.page)]);
  for (const Step& step : move.steps)
    way.push_back(&step);
}

Explorer::Way Explorer::WayTo(std::size_t place) const {
  std::vector<std::size_t> places;
  for (; met_[place].from != kNone; place = met_[place].from)
    places.push_back(place);
  Way way;
  for (const Step& step : beginnings_[met_[place].move])
    way.push_back(&step);
  for (std::size_t i = places.size(); i-- > 0;)
    AddTo(way, met_[places[i]]);
  return way;
}

bool Explorer::Agree(const Way& way, bool isNew) {
  std::string difference = forms_.Difference();
  if (difference.empty() && isNew) difference = BrokenRule(forms_.Control().Form());
  if (difference.empty()) return true;
  std::ofstream file(options_.found);
  for (const Step* step : way)
    file << step->line << "\n";
  std::printf("%s\nThe session is in %s\n", difference.c_str(), options_.found.c_str());
  return false;
}

bool Explorer::Keep(const Met& met) {
  Digester digest;
  digest.Add(static_cast<std::int64_t>(DigestOf(forms_.Control())));
  digest.Add(static_cast<std::int64_t>(forms_.Literal().Digest()));
  if (!digests_.insert(digest.Value()).second) return false;
  met_.push_back(met);
  return true;
}

// The moves that a person or a host can make in the current state of the forms.
std::vector<Met> Explorer::MovesFrom(std::size_t place) const {
  std::vector<Met> moves;
  for (std::size_t number = 0; number < topic_.moves.size(); ++number) {
    const Move& move = topic_.moves[number];
    if (!move.control.empty() && !IsWithinReach(forms_.Control(), move.control)) continue;
    const bool turns = move.page >= 0 && forms_.Control().Form().tabVrn.Tab() != move.page;
    moves.push_back({place, number, turns});
  }
  return moves;
}

// Restores the state before the last move and makes that move again for each next move. Right after
// a restore, the control lacks what it keeps beside its state, and a next move would not use that.
bool Explorer::WalkOnFrom(std::size_t place) {
  forms_.Restore(fresh_);
  const Way way = WayTo(place);
  const Met& met = met_[place];
  const std::size_t last = met.from == kNone ? way.size() - 1 : WayTo(met.from).size();
  for (std::size_t i = 0; i < last; ++i)
    forms_.Do(*way[i]);
  const BothForms::State before = forms_.Save();
  const auto makeLast = [&] {
    for (std::size_t i = last; i < way.size(); ++i)
      forms_.Do(*way[i]);
  };
  makeLast();
  if (!Agree(way, false)) return false;
  for (const Met& next : MovesFrom(place)) {
    forms_.Restore(before);
    makeLast();
    Way whole = way;
    AddTo(whole, next);
    bool isMade = true;
    for (std::size_t i = way.size(); i < whole.size(); ++i)
      isMade = forms_.Do(*whole[i]) && isMade;
    ++steps_;
    if (!Agree(whole, isMade && Keep(next))) return false;
  }
  return true;
}

void Explorer::Tell(const char* what) const {
  std::printf("%-10s  %s: %zu states, %zu steps\n", std::string(topic_.name).c_str(), what,
              met_.size(), steps_);
  std::fflush(stdout);
}

bool Explorer::Begin() {
  for (std::size_t i = 0; i < beginnings_.size(); ++i) {
    forms_.Restore(fresh_);
    Way way;
    for (const Step& step : beginnings_[i]) {
      way.push_back(&step);
      forms_.Do(step);
      if (!Agree(way, true)) return false;
    }
    Keep({kNone, i, false});
  }
  return true;
}

bool Explorer::Walk() {
  const auto began = Clock::now();
  if (!Begin()) return false;
  std::size_t walked = 0;
  int depth = 0;
  const std::size_t most = options_.states * topic_.share;
  for (std::size_t end = met_.size(); walked < met_.size() && walked < most; ++walked) {
    if (walked == end) {
      ++depth;
      Tell(("all sessions of " + std::to_string(depth) + " steps").c_str());
      end = met_.size();
    }
    if (!WalkOnFrom(walked)) return false;
  }
  const std::chrono::duration<double, std::ratio<60>> minutes = Clock::now() - began;
  Tell(("walked on from " + std::to_string(walked)).c_str());
  std::printf("%-10s  %.0f states and %.0f steps a minute\n", std::string(topic_.name).c_str(),
              static_cast<double>(met_.size()) / minutes.count(),
              static_cast<double>(steps_) / minutes.count());
  std::fflush(stdout);
  return true;
}

int Play(const std::string& name) {
  std::ifstream file(name);
  if (!file) {
    std::fprintf(stderr, "%s can't be read\n", name.c_str());
    return 2;
  }
  BothForms forms;
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    if (line.empty() || line.front() == '#') continue;
    const bool isMade = forms.Do(StepOf(Json::parse(line)));
    std::string difference = forms.Difference();
    if (difference.empty()) difference = BrokenRule(forms.Control().Form());
    if (!difference.empty()) {
      std::printf("%s:%d: %s\n%s\n", name.c_str(), number, line.c_str(), difference.c_str());
      return 1;
    }
    if (!isMade) std::printf("%s:%d: refused: %s\n", name.c_str(), number, line.c_str());
  }
  return 0;
}

std::optional<Options> OptionsOf(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t i = 0; i + 1 < arguments.size(); i += 2) {
    const std::string& value = arguments[i + 1];
    if (arguments[i] == "--states") {
      options.states = std::strtoull(value.c_str(), nullptr, 10);
    } else if (arguments[i] == "--topic") {
      options.topic = value;
    } else if (arguments[i] == "--found") {
      options.found = value;
    } else if (arguments[i] == "--play") {
      options.play = value;
    } else {
      return std::nullopt;
    }
  }
  if (arguments.size() % 2 != 0) return std::nullopt;
  return options;
}

int Main(const std::vector<std::string>& arguments) {
  const std::optional<Options> options = OptionsOf(arguments);
  if (!options) {
    std::fputs(
        "zolt20-explore [--states N] [--topic NAME] [--found FILE]\n"
        "zolt20-explore --play FILE\n",
        stderr);
    return 2;
  }
  if (!options->play.empty()) return Play(options->play);
  bool isAny = false;
  for (const Topic& topic : Topics()) {
    if (!options->topic.empty() && options->topic != topic.name) continue;
    isAny = true;
    if (!Explorer(topic, *options).Walk()) return 1;
  }
  if (!isAny) std::fprintf(stderr, "There is no topic %s\n", options->topic.c_str());
  return isAny ? 0 : 2;
}

}  // namespace
}  // namespace zolt20::tests

int main(int count, char** arguments) {
  return zolt20::tests::Main({arguments + 1, arguments + count});
}
