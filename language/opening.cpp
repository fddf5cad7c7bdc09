#include "language/opening.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

#include "language/own_control.h"

namespace zolt20::reopen {
namespace {

// With more pairs of lines than that, the differing lines are given as one block.
constexpr std::size_t kMostPairs = 1'000'000;

// False when the gesture is refused.
bool PlayStep(ZOLT20MapControl& control, const Step& step) {
  if (step.property != nullptr) {
    (control.*step.property->write)(step.text);
    return true;
  }
  const Control* const target = control.Form().Find(step.control);
  if (target == nullptr) return false;
  return control.User({step.gesture, target, step.number, step.text}) == Outcome::kDone;
}

using Lines = std::vector<StringView>;

// The longest common subsequence of the lines of two texts, as pairs of indexes.
std::vector<std::pair<std::size_t, std::size_t>> SharedLines(const Lines& a, const Lines& b) {
  const std::size_t width = b.size() + 1;
  std::vector<std::size_t> lengths((a.size() + 1) * width);
  for (std::size_t i = a.size(); i-- > 0;) {
    for (std::size_t j = b.size(); j-- > 0;) {
      std::size_t& length = lengths[i * width + j];
      length = a[i] == b[j] ? lengths[(i + 1) * width + j + 1] + 1
                            : std::max(lengths[(i + 1) * width + j], lengths[i * width + j + 1]);
    }
  }
  std::vector<std::pair<std::size_t, std::size_t>> shared;
  for (std::size_t i = 0, j = 0; i < a.size() && j < b.size();) {
    if (a[i] == b[j]) {
      shared.emplace_back(i++, j++);
    } else if (lengths[(i + 1) * width + j] >= lengths[i * width + j + 1]) {
      ++i;
    } else {
      ++j;
    }
  }
  return shared;
}

}  // namespace

std::vector<Difference> Compare(StringView stored, StringView comes) {
  Lines a = Split(stored, kLineBreak);
  Lines b = Split(comes, kLineBreak);
  const auto [firstA, firstB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  const auto same = firstA - a.begin();
  const auto [lastA, lastB] = std::mismatch(a.rbegin(), std::make_reverse_iterator(firstA),
                                            b.rbegin(), std::make_reverse_iterator(firstB));
  a = Lines(firstA, lastA.base());
  b = Lines(firstB, lastB.base());

  std::vector<std::pair<std::size_t, std::size_t>> shared;
  if (a.size() * b.size() <= kMostPairs) shared = SharedLines(a, b);
  shared.emplace_back(a.size(), b.size());
  std::vector<Difference> differences;
  std::size_t i = 0;
  std::size_t j = 0;
  for (const auto& [nextI, nextJ] : shared) {
    Difference difference{static_cast<int>(same) + static_cast<int>(i) + 1, {}, {}};
    for (; i < nextI; ++i)
      difference.stored.emplace_back(a[i]);
    for (; j < nextJ; ++j)
      difference.comes.emplace_back(b[j]);
    if (!difference.stored.empty() || !difference.comes.empty())
      differences.push_back(std::move(difference));
    ++i;
    ++j;
  }
  return differences;
}

bool Play(ZOLT20MapControl& control, const std::vector<Step>& steps) {
  return std::all_of(steps.begin(), steps.end(),
                     [&](const Step& step) { return PlayStep(control, step); });
}

Opening Open(StringView statement, const Catalogue& catalogue) {
  while (statement.starts_with(kLineBreak))
    statement.remove_prefix(kLineBreak.size());
  return statement.starts_with(u"select ") ? OpenSelect(statement, catalogue)
                                           : OpenCondition(statement, catalogue);
}

OwnControl::OwnControl(const Catalogue& catalogue) {
  control_.UserControl_InitProperties();
  control_.PrpStrTables(catalogue.tables);
  control_.PrpStrFields(catalogue.fields);
}

void OwnControl::Write(String Parts::*part, StringView value) {
  const auto& parts = PartsInOrder();
  const auto* const property =
      std::find_if(parts.begin(), parts.end(),
                   [part](const PartProperty& candidate) { return candidate.part == part; });
  Step step;
  step.property = property;
  step.text = value;
  Do(std::move(step));
}

void OwnControl::Click(const Control& button) {
  Step step;
  step.control = button.name();
  Do(std::move(step));
}

void OwnControl::Click(const Control& list, int row) {
  Step step;
  step.gesture = Gesture::kClickRow;
  step.control = list.name();
  step.number = row;
  Do(std::move(step));
}

void OwnControl::Type(const Control& box, StringView text) {
  Step step;
  step.gesture = Gesture::kType;
  step.control = box.name();
  step.text = text;
  Do(std::move(step));
}

void OwnControl::Tab(int page) {
  Step step;
  step.gesture = Gesture::kTab;
  step.control = Form().tabVrn.name();
  step.number = page;
  Do(std::move(step));
}

void OwnControl::Do(Step step) {
  if (wasRefused_) return;
  wasRefused_ = !PlayStep(control_, step);
  steps_.push_back(std::move(step));
}

Opening Try(StringView statement, const Catalogue& catalogue, const Doing& fill,
            const Doing& finish) {
  Opening opening;
  try {
    OwnControl control(catalogue);
    fill(control);
    std::vector<Step> steps = control.TakeSteps();
    finish(control);
    if (!control.WasRefused()) {
      opening.steps = std::move(steps);
      opening.finish = control.TakeSteps();
      opening.result = control.Form().TxtOutput.Text();
    }
  } catch (...) {
    // The form raised an error: the statement can't be opened in this way.
  }
  opening.differences = Compare(statement, opening.result);
  return opening;
}

void KeepBetter(Opening& best, Opening opening) {
  const auto changed = [](const Opening& candidate) {
    std::size_t lines = 0;
    for (const Difference& difference : candidate.differences)
      lines += difference.stored.size() + difference.comes.size();
    return lines;
  };
  if (opening.steps.empty()) return;
  if (best.steps.empty() || changed(opening) < changed(best)) best = std::move(opening);
}

}  // namespace zolt20::reopen
