// A file of named rules: statements as a control wrote them, each with the records of its fields.
//
// The file is JSON in UTF-8, two blanks for each level, ended by a line feed:
//
//   {"format": "zolt20 rules", "version": 1, "rules": [{"name": "", "text": "", "fields": ""}]}
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
#include <stdexcept>
#include <string>
#include <vector>

#include "surface/string.h"

namespace zolt20::composer {

struct Rule {
  String name;    ///< not ""; no two rules of a file have the same
  String text;    ///< the statement
  String fields;  ///< the field records that came with it

  bool operator==(const Rule&) const = default;
};

/// What goes wrong with a file of rules or with a name; the message, in UTF-8, is for the person
/// and names the file.
class RulesError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

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

  /// Adds the rule, or replaces the one of the same name in its place, which keeps its unknown
  /// keys. Throws RulesError for an empty name.
  void Put(const Rule& rule);
  /// Throws RulesError when there is no such rule, and for a new name that is empty or another
  /// rule's.
  void Rename(StringView name, StringView newName);
  /// Puts a copy behind the rule, "NAME (2)" or with the next number that is free, and gives back
  /// its name. Throws RulesError when there is no such rule.
  String Duplicate(StringView name);
  /// Throws RulesError when there is no such rule.
  void Remove(StringView name);

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

 private:
  struct State;

  explicit RulesFile(std::unique_ptr<State> state);

  std::size_t NeededIndex(StringView name) const;
  void CheckFree(StringView name) const;

  std::unique_ptr<State> state_;
};

}  // namespace zolt20::composer
