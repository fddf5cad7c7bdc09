// Files of rules on the disk: their names, their locks, reading and writing them whole.
//
// Errors are thrown as RulesError, with a message for the person. `where` is the beginning of the
// message: the file, or the file and a rule. Called by RulesFile only.
#pragma once

#include <QByteArray>
#include <QLockFile>
#include <QString>
#include <memory>
#include <string_view>

namespace zolt20::composer {

[[noreturn]] void Complain(const QString& where, const QString& complaint);

/// A path as it is shown to the person.
QString Shown(const QString& path);
/// The file that all symbolic links lead to, in a canonical folder, so that two names of one file
/// are equal.
QString TargetOf(const QString& path);

/// Locks the file. Throws when another composer has locked it. Null, with the reason, when a lock
/// can't be made there.
std::unique_ptr<QLockFile> Lock(const QString& target, const QString& where, QString& whyNot);
/// The same, but throws when a lock can't be made.
std::unique_ptr<QLockFile> NeededLock(const QString& target, const QString& where);

QByteArray ReadBytes(const QString& target, const QString& where);
/// Whether the file has exactly these bytes. Reads it in pieces.
bool HoldsBytes(const QString& target, std::string_view bytes, const QString& where);
/// Writes the file, or throws and leaves the old one as it was.
void WriteBytes(const QString& target, std::string_view bytes, const QString& where);

/// Syncs the folder of a file to the disk, where the system supports it, so that a new, renamed or
/// removed file survives a crash.
void SyncFolderOf(const QString& target);

}  // namespace zolt20::composer
