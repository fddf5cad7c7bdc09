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
// "nodeNotes" are the notes on statements of the text, each with the place of its node in the tree
// as in language/node_notes.h. The key is missing where there are no notes; earlier editions of the
// composer keep it unread. "stored" and all keys after it may be missing, and are missing in files
// of version 1. "versions" are the earlier texts, oldest first; "bin" holds deleted rules with all
// that belongs to them; "catalogue" has the names that the rules were composed with, encoded as for
// the control. Times are UTC.
//
// Texts are read back exactly, to the last 16-bit character; a lone surrogate is written as an
// escape. Unknown keys, of a later edition of the format, are kept and written back behind the
// known ones, at the top and in rules. A file is read completely or not at all: if anything is
// missing or wrong, there is an error and no rules.
//
// While a file is open, FILE.lock beside it keeps other composers out; two names of one file (by
// links) have one lock. All changes are made in memory until one of the Save functions is called.
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

/// Thrown by Save if it would overwrite changes that another program made to the file.
class ChangedOnDisk : public RulesError {
 public:
  using RulesError::RulesError;
};

/// Writes a file as RulesFile::Save does. Throws RulesError, and then the old file is unchanged.
void WriteWholeFile(const QString& path, const QByteArray& content);

/// The rules of one file, and the lock on it. A moved-from object can only be assigned to.
class RulesFile {
 public:
  /// A new file without rules. The first Save creates it. Throws RulesError when the file exists,
  /// or when it can't be created.
  static RulesFile Create(const QString& path);
  /// Throws RulesError when the file is open in another composer, when it can't be read, when it is
  /// empty, cut short, no JSON, no file of rules or of a later version, when a rule is wrong, and
  /// when two rules have the same name. If no lock can be made, the file is opened but can't be
  /// saved.
  static RulesFile Open(const QString& path);
  /// Reads a file without locking it, even if it is open in a composer. Throws RulesError when the
  /// rules can't be read.
  static std::vector<Rule> RulesAt(const QString& path);

  /// Reads the file again and discards unsaved changes. Throws RulesError as Open does, and then
  /// nothing has changed.
  void Reload();

  RulesFile(RulesFile&& other) noexcept;
  RulesFile& operator=(RulesFile&& other) noexcept;
  ~RulesFile();

  /// The path that was given to Create, Open or SaveAs.
  const QString& Path() const;
  /// The rules in the order of the file; new ones are the last.
  const std::vector<Rule>& rules() const;
  /// The rule of that name, null when there is none. Valid until the next change.
  const Rule* Find(StringView name) const;
  /// Whether there are unsaved changes.
  bool IsChanged() const;
  /// Whether the file can be saved: it is locked, and nothing is known that forbids writing it.
  bool CanSave() const;
  /// Why the file can't be saved, for the person; "" when it can.
  std::string WhyNotSaved() const;

  /// How many versions of each rule are kept.
  static constexpr std::size_t kVersions = rules::kVersions;

  /// Adds the rule, or replaces the one of the same name, which keeps its place, its note and its
  /// unknown keys. If its text changes, the old text becomes the newest version. Throws RulesError
  /// for an empty name.
  void Put(const Rule& rule);
  /// Renames a rule. Throws RulesError when there is no such rule, for an empty new name, and for
  /// the name of another rule.
  void Rename(StringView name, StringView newName);
  /// Inserts a copy after the rule, named "NAME (2)" or with the next free number, and returns its
  /// name. The copy has the note but no versions. Throws RulesError when there is no such rule.
  String Duplicate(StringView name);
  /// Moves the rule into the bin. Throws RulesError when there is no such rule.
  void Remove(StringView name);

  // All of these throw RulesError when there is no such rule.

  /// The versions of the rule: its earlier texts, oldest first.
  std::vector<Version> VersionsOf(StringView name) const;
  /// The time when the present text was stored, as in Version.
  String StoredAt(StringView name) const;
  const String& NoteOf(StringView name) const;
  void SetNote(StringView name, StringView note);

  /// The deleted rules in the order of deletion. Several can have the same name.
  std::vector<DeletedRule> Bin() const;
  /// Moves a rule from the bin to the end of the rules, with a number after its name if another
  /// rule has that name. Returns its name. The index counts in the bin.
  String BringBack(std::size_t index);
  /// Deletes a rule from the bin for good.
  void Forget(std::size_t index);

  // Names of the catalogue.

  /// Everything that the file contains.
  const rules::RulesContent& Content() const;
  /// Sets the catalogue whose names the next Save stores in the file, as far as the rules use them.
  /// This is no unsaved change.
  void KeepNames(const rules::NameLists& catalogue);
  /// Makes the chosen changes of names as one step, and stores the names of the catalogue that they
  /// are made for. Returns how many rules changed. `names` is as for rules::MakeChanges.
  std::size_t ChangeNames(std::span<const rules::Change> changes, const language::Names& names,
                          const rules::NameLists& catalogue);
  /// Whether there is a step of MakeChanges that can be undone.
  bool CanTakeBackNames() const;
  /// Undoes that step: its rules get back their texts, versions and notes, except those that were
  /// changed or deleted since. Returns the number of these exceptions. If nothing else was changed,
  /// a Save then writes the same bytes as before the step. A step that could not be saved is to be
  /// undone before any other change.
  std::size_t TakeBackNames();

  /// Writes the rules to a temporary file in the same folder, which then replaces the old file and
  /// takes over its permissions; if the path is a symbolic link, the file it leads to. Throws
  /// RulesError with the system's reason; then the old file and the rules in memory are unchanged.
  /// Throws ChangedOnDisk when the file is gone, or has other contents than were read or saved
  /// last.
  void Save();
  /// Saves without looking for changes of another program.
  void SaveOver();
  /// Saves to another path, which becomes the path of the file. An existing file is replaced.
  /// Throws RulesError as Save does, and when that file is open in another composer; then the path
  /// is still the old one.
  void SaveAs(const QString& path);

  /// Moves the rule to this index among the rules, from 0. Throws RulesError when there is no such
  /// rule or no such index.
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
