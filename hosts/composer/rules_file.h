// A file of named rules: statements as a control wrote them, each with the records of its fields.
//
// The file is JSON in UTF-8, two blanks for each level, ended by a line feed:
//
//   {"format": "zolt20 rules", "version": 2,
//    "rules": [{"name": "", "text": "", "fields": "",
//               "nodeNotes": [{"at": [0, 2], "head": "", "note": ""}],
//               "stored": "2026-01-31T23:59:59Z", "note": "",
//               "versions": [{"stored": "", "text": "", "fields": "", "nodeNotes": []}]}],
//    "bin": [{"name": "", "text": "", "fields": "", "deleted": ""}],
//    "catalogue": {"tables": "", "fields": ""}}
//
// "nodeNotes" are those of nodes of the text, each with its place in the tree as in
// language/node_notes.h; they are missing where there are none, and editions that do not know them
// keep them. "stored" and what follows it may be missing, and are missing in files of version 1.
// "versions" are the texts before, oldest first; "bin" holds deleted rules with all that belongs to
// them; "catalogue" has the names that the rules were composed with, as the control takes them.
// Times are UTC.
//
// Texts come back exactly, to the last 16-bit character; one that is half of a pair stands in the
// file as an escape. Keys of a later edition of the format, at the top or in a rule, are kept and
// written back behind the known ones. What has been read is whole: a file in which anything is
// missing or wrong gives an error and no rules.
//
// While a file is open, FILE.lock beside it keeps other composers away; two names of one file (by
// links) have one lock. Everything is done in memory until one of the Save functions is called.
#pragma once

#include <QByteArray>
#include <QString>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "hosts/kit/rules_changes.h"
#include "hosts/kit/rules_text.h"
#include "surface/string.h"

namespace zolt20::composer {

using rules::DeletedRule;
using rules::Rule;
using rules::RulesError;
using rules::Version;

/// Save would write over what somebody else has done to the file.
class ChangedOnDisk : public RulesError {
 public:
  using RulesError::RulesError;
};

/// Writes a file in the way of RulesFile::Save. Throws RulesError, and then the old one is whole.
void WriteWholeFile(const QString& path, const QByteArray& content);

/// The rules of one file, and the right to write it. After a move only a new value can be assigned.
class RulesFile {
 public:
  /// A new file without rules, which is made by the first Save. Throws RulesError when there is
  /// something of this name, or when no file can be made there.
  static RulesFile Create(const QString& path);
  /// Throws RulesError when the file is open in another composer, when it can't be read, when it is
  /// empty, cut short, no JSON, no file of rules or of a later version, and when a rule is wrong or
  /// two rules have the same name. Where no lock can be made the file is opened all the same, and
  /// can't be saved.
  static RulesFile Open(const QString& path);
  /// The rules of a file that other composers may have open. Throws RulesError when they can't be
  /// read.
  static std::vector<Rule> RulesAt(const QString& path);

  /// Reads the file again; what was done to the rules and not saved is gone. Throws RulesError as
  /// Open does, and then everything is as it was.
  void Reload();

  RulesFile(RulesFile&& other) noexcept;
  RulesFile& operator=(RulesFile&& other) noexcept;
  ~RulesFile();

  /// As it was named at Create, Open or SaveAs.
  const QString& Path() const;
  /// In the order of the file; new ones come last.
  const std::vector<Rule>& rules() const;
  /// Null when there is none; valid until the next change.
  const Rule* Find(StringView name) const;
  /// Whether anything was done to the rules since the file was created, opened or saved.
  bool IsChanged() const;
  /// Whether the file is locked and nothing was seen that forbids to write it.
  bool CanSave() const;
  /// Why it can't be saved, for the person; "" when it can.
  std::string WhyNotSaved() const;

  /// How many texts before are kept of each rule.
  static constexpr std::size_t kVersions = rules::kVersions;

  /// Adds the rule, or replaces the one of the same name in its place, which keeps its note and its
  /// unknown keys; a text that becomes another one is the newest of its versions then. Throws
  /// RulesError for an empty name.
  void Put(const Rule& rule);
  /// Throws RulesError when there is no such rule, and for a new name that is empty or another
  /// rule's.
  void Rename(StringView name, StringView newName);
  /// Puts a copy behind the rule, "NAME (2)" or with the next number that is free, and gives back
  /// its name. The copy has the note and no versions yet. Throws RulesError when there is no such
  /// rule.
  String Duplicate(StringView name);
  /// Moves the rule into the bin. Throws RulesError when there is no such rule.
  void Remove(StringView name);

  // All of these throw RulesError when there is no such rule.

  /// The texts that the rule had before, oldest first.
  std::vector<Version> VersionsOf(StringView name) const;
  /// When its text was put, as in Version.
  String StoredAt(StringView name) const;
  const String& NoteOf(StringView name) const;
  void SetNote(StringView name, StringView note);

  /// The deleted rules; the one that was deleted last comes last. Several can have one name.
  std::vector<DeletedRule> Bin() const;
  /// Takes a rule out of the bin and puts it behind the others, with a number behind its name when
  /// that is taken. Gives its name. The index is one of the bin's.
  String BringBack(std::size_t index);
  /// Deletes a rule of the bin for good.
  void Forget(std::size_t index);

  // Names of the catalogue.

  /// All that the file has.
  const rules::RulesContent& Content() const;
  /// What of this catalogue the rules need stands in the file from the next Save on. That alone is
  /// no change.
  void KeepNames(const rules::NameLists& catalogue);
  /// Makes the changes that are chosen, in one step, and keeps the names of the catalogue that they
  /// are made for. Gives how many rules are others now. `names` is as for rules::MakeChanges.
  std::size_t ChangeNames(std::span<const rules::Change> changes, const language::Names& names,
                          const rules::NameLists& catalogue);
  /// Whether there is such a step.
  bool CanTakeBackNames() const;
  /// Takes that step back: its rules, their versions and notes are what they were, but for those
  /// that are others since or gone. Gives how many these are. When nothing else was done, a Save
  /// writes the bytes of before. A step that could not be saved is taken back before anything else.
  std::size_t TakeBackNames();

  /// Writes the rules into a file of another name in the same folder, which then takes the place
  /// and the permissions of the old one; behind a symbolic link, of the file it leads to. Throws
  /// RulesError with the system's reason; the old file and the rules in memory are then as they
  /// were. Throws ChangedOnDisk when the file holds something else than what was read or saved
  /// last, or is gone.
  void Save();
  /// The same, whatever has become of the file.
  void SaveOver();
  /// Saves under another name, which is the file's from then on, and replaces a file that is there.
  /// Throws RulesError as Save does, and when that file is open in another composer; then the file
  /// is still the one it was.
  void SaveAs(const QString& path);

  /// Puts the rule at this place among the others, from 0. Throws RulesError when there is no such
  /// rule, or no such place.
  void Move(StringView name, std::size_t place);

 private:
  struct State;
  struct NamesStep;

  explicit RulesFile(std::unique_ptr<State> state);

  std::size_t NeededIndex(StringView name) const;
  void CheckFree(StringView name) const;
  String FreeName(StringView name) const;
  void CheckBin(std::size_t index) const;

  std::unique_ptr<State> state_;
};

}  // namespace zolt20::composer
