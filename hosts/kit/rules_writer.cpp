#include "hosts/kit/rules_writer.h"

#include <array>
#include <cstdio>

#include "hosts/kit/text_coding.h"

namespace zolt20::rules {
namespace {

using hosts::JsonValue;

bool NeedsEscape(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\';
}

void AppendEscape(std::string& out, char c) {
  constexpr std::string_view kControls = "\b\t\n\f\r";
  constexpr std::string_view kLetters = "btnfr";
  out += '\\';
  if (const std::size_t known = kControls.find(c); known != std::string_view::npos) {
    out += kLetters[known];
  } else if (c == '"' || c == '\\') {
    out += c;
  } else {
    std::array<char, 8> code{};
    std::snprintf(code.data(), code.size(), "u%04x", static_cast<unsigned>(c));
    out += code.data();
  }
}

void BeginLine(std::string& out, std::size_t depth) {
  out += '\n';
  out.append(2 * depth, ' ');
}

// Writes the members of one object, one behind the other.
class Members {
 public:
  Members(std::string& out, std::size_t depth) : out_(out), depth_(depth) { out_ += '{'; }

  std::string& Begin(std::string_view key) {
    if (hasSome_) out_ += ',';
    hasSome_ = true;
    BeginLine(out_, depth_);
    out_ += key;
    out_ += ": ";
    return out_;
  }
  void Add(const char* key, std::string_view jsonText) {
    AppendString(Begin('"' + std::string(key) + '"'), jsonText);
  }
  void AddIfThere(const char* key, std::string_view jsonText) {
    if (!jsonText.empty()) Add(key, jsonText);
  }
  void Add(const std::vector<UnknownMember>& unknown, std::string_view but = {}) {
    for (const UnknownMember& member : unknown) {
      if (member.key != but) Begin(member.key) += member.value;
    }
  }
  void End() {
    if (hasSome_) BeginLine(out_, depth_ - 1);
    out_ += '}';
  }

 private:
  std::string& out_;
  std::size_t depth_;
  bool hasSome_ = false;
};

// Appends an array; `append(piece)` writes each piece on lines of its own.
template <typename Pieces, typename Append>
void AppendArray(std::string& out, const Pieces& pieces, std::size_t depth, const Append& append) {
  out += '[';
  bool hasSome = false;
  for (const auto& piece : pieces) {
    if (hasSome) out += ',';
    hasSome = true;
    BeginLine(out, depth + 1);
    append(piece);
  }
  if (hasSome) BeginLine(out, depth);
  out += ']';
}

// `depth` is that of the keys beside them.
void AddNodeNotes(Members& members, std::string& out, const std::vector<language::NodeNote>& notes,
                  std::size_t depth) {
  if (notes.empty()) return;
  members.Begin("\"nodeNotes\"");
  AppendArray(out, notes, depth, [&out, depth](const language::NodeNote& note) {
    Members each(out, depth + 2);
    each.Begin("\"at\"");
    AppendArray(out, note.path, depth + 2,
                [&out](std::uint32_t place) { out += std::to_string(place); });
    each.Add("head", hosts::ToJsonText(note.head));
    each.Add("note", hosts::ToJsonText(note.note));
    each.End();
  });
}

// Writes a rule up to and including its versions.
void AddRule(Members& members, std::string& out, const Rule& rule, const RuleExtras& extras) {
  members.Add("name", hosts::ToJsonText(rule.name));
  members.Add("text", hosts::ToJsonText(rule.text));
  members.Add("fields", hosts::ToJsonText(rule.fields));
  AddNodeNotes(members, out, rule.notes, kRuleMembers);
  members.AddIfThere("stored", hosts::ToJsonText(extras.stored));
  members.AddIfThere("note", hosts::ToJsonText(extras.note));
  if (extras.versions.IsEmpty()) return;
  members.Begin("\"versions\"") += '[';
  BeginLine(out, kRuleMembers + 1);
  extras.versions.AppendTo(out);
  BeginLine(out, kRuleMembers);
  out += ']';
}

void AppendRules(std::string& out, const RulesContent& content) {
  const RuleExtras* extras = content.extras.data();
  AppendArray(out, content.rules, 1, [&](const Rule& rule) {
    Members members(out, kRuleMembers);
    AddRule(members, out, rule, *extras);
    members.Add(extras->unknown);
    members.End();
    ++extras;
  });
}

void AppendBin(std::string& out, const RulesContent& content) {
  AppendArray(out, content.bin, 1, [&out](const KeptDeleted& kept) {
    Members members(out, kRuleMembers);
    AddRule(members, out, kept.deleted.rule, kept.extras);
    members.AddIfThere("deleted", hosts::ToJsonText(kept.deleted.deleted));
    members.Add(kept.extras.unknown, "\"deleted\"");
    members.End();
  });
}

std::size_t RoughLength(const RulesContent& content) {
  std::size_t length = 0;
  for (std::size_t i = 0; i < content.rules.size(); ++i) {
    length += 200 + content.rules[i].text.size() * 5 / 4 + content.rules[i].fields.size();
    length += content.extras[i].versions.Length() + 16;
  }
  return length;
}

}  // namespace

void AppendString(std::string& out, std::string_view jsonText) {
  std::string written;
  written.reserve(jsonText.size() + jsonText.size() / 8 + 2);
  written += '"';
  std::size_t copied = 0;
  for (std::size_t i = 0; i < jsonText.size(); ++i) {
    if (!NeedsEscape(jsonText[i])) continue;
    written += jsonText.substr(copied, i - copied);
    AppendEscape(written, jsonText[i]);
    copied = i + 1;
  }
  written += jsonText.substr(copied);
  written += '"';
  out += hosts::TakeStandIns(std::move(written));
}

void AppendValue(std::string& out, const JsonValue& value, std::size_t depth) {
  if (value.IsString()) return AppendString(out, hosts::TextOf(value));
  if (value.IsArray()) {
    return AppendArray(out, value.GetArray(), depth, [&out, depth](const JsonValue& piece) {
      AppendValue(out, piece, depth + 1);
    });
  }
  if (!value.IsObject()) {
    out += hosts::ToJson(value).dump();
    return;
  }
  Members members(out, depth + 1);
  for (auto member = value.MemberBegin(); member != value.MemberEnd(); ++member) {
    std::string key;
    AppendString(key, hosts::TextOf(member->name));
    AppendValue(members.Begin(key), member->value, depth + 1);
  }
  members.End();
}

std::string WriteVersion(const WrittenVersion& version) {
  std::string out;
  Members members(out, kVersionMembers);
  members.AddIfThere("stored", version.stored);
  members.Add("text", version.text);
  members.Add("fields", version.fields);
  AddNodeNotes(members, out, version.notes, kVersionMembers);
  members.Add(version.unknown);
  members.End();
  return out;
}

KeptVersion::KeptVersion(const Version& version) {
  const std::string stored = hosts::ToJsonText(version.stored);
  const std::string text = hosts::ToJsonText(version.text);
  const std::string fields = hosts::ToJsonText(version.fields);
  written_ = WriteVersion({stored, text, fields, version.notes, {}});
}

std::string WriteContent(const RulesContent& content) {
  std::string out;
  out.reserve(RoughLength(content));
  Members members(out, 1);
  members.Add("format", "zolt20 rules");
  members.Begin("\"version\"") += "2";
  members.Begin("\"rules\"");
  AppendRules(out, content);
  if (!content.bin.empty()) {
    members.Begin("\"bin\"");
    AppendBin(out, content);
  }
  if (content.catalogue.has_value()) {
    members.Begin("\"catalogue\"");
    Members names(out, kNameMembers);
    names.Add("tables", hosts::ToJsonText(content.catalogue->lists.tables));
    names.Add("fields", hosts::ToJsonText(content.catalogue->lists.fields));
    names.Add(content.catalogue->unknown);
    names.End();
  }
  members.Add(content.unknown);
  members.End();
  out += '\n';
  return out;
}

}  // namespace zolt20::rules
