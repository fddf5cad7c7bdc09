// Exports of the module for texts in the statement language, which has no element. An answer goes
// out as one list of numbers and one text. The text has all texts of the answer one behind the
// other; the list has the length of each where it belongs.
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "faces/web/exchange.h"
#include "language/check.h"
#include "language/explain.h"
#include "language/opening.h"
#include "language/outline.h"
#include "language/uses.h"

using namespace zolt20;
using web::given;
using web::numbers;
using web::taken;

namespace {

// The catalogue that the script gave last, and its names.
reopen::Catalogue catalogue;
std::optional<language::Names> names;

void Begin() {
  numbers.clear();
  given.clear();
}
void Tell(std::size_t number) {
  numbers.push_back(static_cast<std::int32_t>(number));
}
void Tell(std::initializer_list<std::size_t> several) {
  for (const std::size_t number : several)
    Tell(number);
}
void Tell(StringView text) {
  Tell(text.size());
  given += text;
}
void Tell(std::string_view text) {
  Tell(StringView(FromAscii(text)));
}
template <typename Enum>
std::size_t NumberOf(Enum value) {
  return static_cast<std::size_t>(value);
}

void Tell(const std::vector<reopen::Problem>& problems) {
  Tell(problems.size());
  for (const reopen::Problem& problem : problems) {
    Tell({static_cast<std::size_t>(problem.line), static_cast<std::size_t>(problem.column)});
    Tell(std::string_view(problem.message));
  }
}

void Tell(const std::vector<String>& lines) {
  Tell(lines.size());
  for (const String& line : lines)
    Tell(StringView(line));
}

// Each step: a property with its value, or a gesture with word, operand, control, number and text.
void Tell(const std::vector<reopen::Step>& steps) {
  Tell(steps.size());
  for (const reopen::Step& step : steps) {
    Tell(step.property != nullptr ? 1 : 0);
    if (step.property != nullptr) {
      Tell(std::string_view(step.property->name));
    } else {
      const GestureDesign& design = DesignOf(step.gesture);
      Tell(design.word);
      Tell(design.operand);
      Tell(std::string_view(step.control));
      numbers.push_back(step.number);
    }
    Tell(StringView(step.text));
  }
}

}  // namespace

extern "C" {

/// The names of all kinds of nodes, and of all problems of nodes, the first of which is "".
ZOLT20_EXPORT(names_of_nodes) void names_of_nodes() {
  using language::NodeKind;
  using language::Problem;
  Begin();
  Tell(NumberOf(NodeKind::kDefault) + 1);
  for (std::size_t kind = 0; kind <= NumberOf(NodeKind::kDefault); ++kind)
    Tell(std::string_view(NameOf(static_cast<NodeKind>(kind))));
  Tell(NumberOf(Problem::kIncomplete) + 1);
  for (std::size_t problem = 0; problem <= NumberOf(Problem::kIncomplete); ++problem)
    Tell(std::string_view(NameOf(static_cast<Problem>(problem))));
}

/// Sets the catalogue: the first `tables` characters of `taken` are the tables, the rest the
/// fields.
ZOLT20_EXPORT(use_catalogue) void use_catalogue(int tables) {
  const auto count = static_cast<std::size_t>(tables);
  catalogue = {taken.substr(0, count), taken.substr(count)};
  names.emplace(catalogue.tables, catalogue.fields);
  taken.clear();
}

// The functions below read the text in `taken`.

/// The nodes of the taken text, each as nine numbers in the order of language::Node: the places of
/// the node (2) and of its head (2), its depth, its parent, the node behind it, kind and problem.
ZOLT20_EXPORT(outline) void outline() {
  const String text = std::exchange(taken, {});
  const std::vector<language::Node> nodes = language::ReadOutline(text);
  Begin();
  constexpr std::size_t kNumbers = 9;
  numbers.reserve(kNumbers * nodes.size());
  for (const language::Node& node : nodes) {
    Tell({node.first, node.last, node.headFirst, node.headLast, node.depth, node.parent,
          node.behind, NumberOf(node.kind), NumberOf(node.problem)});
  }
}

/// For each finding five numbers of its place and node, then its code, severity and sentence.
ZOLT20_EXPORT(check) void check(int withCatalogue) {
  const String text = std::exchange(taken, {});
  const auto findings = language::Check(text, withCatalogue != 0 && names ? &*names : nullptr);
  Begin();
  for (const language::Finding& finding : findings) {
    Tell({finding.line, finding.column, finding.first, finding.length, finding.node});
    Tell(std::string_view(CodeOf(finding.mistake)));
    Tell(std::string_view(NameOf(finding.severity)));
    Tell(StringView(finding.sentence));
  }
}

/// For each use five numbers of its place and node, its kind, what the text is there, and 1 when
/// the name is missing in the catalogue.
ZOLT20_EXPORT(uses) void uses(int withCatalogue) {
  const String text = std::exchange(taken, {});
  const language::Names* const known = withCatalogue != 0 && names ? &*names : nullptr;
  Begin();
  for (const language::Use& use : language::UsesIn(text, known)) {
    Tell({use.line, use.column, use.first, use.length, use.node});
    Tell(std::string_view(NameOf(use.kind)));
    Tell(std::string_view(NameOf(use.place)));
    Tell(known != nullptr && IsMissing(use, *known) ? 1 : 0);
  }
}

/// For each explained node its index, how many explained nodes it stands in, and its sentence.
ZOLT20_EXPORT(explain) void explain() {
  const String text = std::exchange(taken, {});
  const std::vector<language::Node> nodes = language::ReadOutline(text);
  Begin();
  std::vector<std::size_t> behindOpen;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (language::IsToldByAnother(nodes[i])) continue;
    while (!behindOpen.empty() && behindOpen.back() <= i)
      behindOpen.pop_back();
    Tell({i, behindOpen.size()});
    Tell(StringView(language::Explain(text, nodes, i)));
    behindOpen.push_back(nodes[i].behind);
  }
}

/// Splits a statement into the values of the part properties. The answer has the name and the value
/// of each property, "" for a clause that the statement does not have, then the problems, then the
/// text that no property can take.
ZOLT20_EXPORT(reopen) void reopen_statement() {
  const reopen::Reopened reopened = reopen::Reopen(std::exchange(taken, {}));
  Begin();
  Tell(reopen::PartsInOrder().size());
  for (const reopen::PartProperty& property : reopen::PartsInOrder()) {
    Tell(std::string_view(property.name));
    Tell(StringView(reopened.parts.*property.part));
  }
  Tell(reopened.problems);
  Tell(StringView(reopened.rest));
}

/// The steps that open the text, tried on a control with the catalogue of use_catalogue.
ZOLT20_EXPORT(open) void open_statement() {
  const reopen::Opening opening = reopen::Open(std::exchange(taken, {}), catalogue);
  Begin();
  Tell(opening.IsEqual() ? 1 : 0);
  Tell(opening.steps);
  Tell(opening.finish);
  Tell(StringView(opening.result));
  Tell(opening.differences.size());
  for (const reopen::Difference& difference : opening.differences) {
    Tell(static_cast<std::size_t>(difference.line));
    Tell(difference.stored);
    Tell(difference.comes);
  }
  Tell(opening.problems);
}

/// The text encoded as properties take it. Returns 0, without a text, if it can't be sent.
ZOLT20_EXPORT(encode) int encode() {
  const String text = std::exchange(taken, {});
  Begin();
  if (reopen::FindUnsendable(text) != String::npos) return 0;
  Tell(StringView(reopen::Encode(text)));
  return 1;
}

}  // extern "C"
