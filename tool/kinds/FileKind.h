#pragma once

#include "kinds/Finding.h"
#include "kinds/ShowOptions.h"
#include "terminal/Problem.h"

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>
#include <QtCore/QList>
#include <QtCore/QStringList>

#include <optional>

namespace ZYN::Tool {

/// A kind of file that the tool can show and check.
struct FileKind {
    const char* name;       ///< for people, to be translated
    QStringList extensions; ///< without dot, as searched for in folders
    /// Whether a file that begins so (4096 bytes, or all of it; decompressed) is of this kind.
    bool (*recognises)(const QByteArray& head);
    /// Prints the file for people, of a damaged one what could be read. Texts from the file go through
    /// `Harmless`.
    std::optional<Problem> (*show)(const QString& path, const QString& name, const ShowOptions& options);
    /// Describes the file for programs; leaves the object empty when nothing could be read.
    std::optional<Problem> (*toJson)(const QString& path, const QString& name, const ShowOptions& options,
                                     QJsonObject* object);
    /// What is wrong with the file, in the order of the file.
    QList<Finding> (*check)(const QString& path);
    /// For a kind of many records, in place of `toJson`: prints an object a line, each with "file".
    std::optional<Problem> (*printJson)(const QString& path, const QString& name,
                                        const ShowOptions& options) = nullptr;

    /// Whether files of this kind are also read when they are compressed with gzip.
    bool MayBeCompressed() const;
};

/// All kinds. A new one adds its row in FileKind.cpp, and nothing else.
const QList<FileKind>& FileKinds();
/// The kind of a file, by its content or else by its extension; null with a problem when it is of none.
const FileKind* KindOf(const QString& path, const QString& name, std::optional<Problem>* problem);
/// Extensions of all kinds.
QStringList KnownExtensions();

} // namespace ZYN::Tool
