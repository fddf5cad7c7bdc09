// Files of rules on the disk: their names, their locks, reading and writing them whole.
//
// Complaints are RulesErrors for the person. `where` in them is the file, or the file and a rule in
// it. Called by RulesFile alone.
#pragma once

#include <QByteArray>
#include <QLockFile>
#include <QString>
#include <memory>
#include <string_view>

namespace zolt20::composer {

[[noreturn]] void Complain(const QString& where, const QString& complaint);

/// A path as a person reads it.
QString Shown(const QString& path);
/// The file behind all links, in a folder without links, so that two names of one file are equal.
QString TargetOf(const QString& path);

/// Null, and why, where none can be made. Throws when another composer has it.
std::unique_ptr<QLockFile> Lock(const QString& target, const QString& where, QString& whyNot);
/// Throws where none can be made, too.
std::unique_ptr<QLockFile> NeededLock(const QString& target, const QString& where);

QByteArray ReadBytes(const QString& target, const QString& where);
/// Whether the file holds these and nothing else, piece by piece.
bool HoldsBytes(const QString& target, std::string_view bytes, const QString& where);
/// All of them or none; the old file is whole when it throws.
void WriteBytes(const QString& target, std::string_view bytes, const QString& where);

/// That a file was made, renamed or removed in its folder reaches the disk, where the system can
/// say so.
void SyncFolderOf(const QString& target);

}  // namespace zolt20::composer
