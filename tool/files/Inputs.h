#pragma once

#include "terminal/Problem.h"

#include "runs/files/FolderFiles.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>
#include <string>
#include <vector>

namespace ZYN::Tool {

/// A file to read.
struct Input {
    QString path;     ///< what to open
    QString name;     ///< what to call it in messages
    QString relative; ///< where it lies below the folder that was given; the bare name for a file
};

/// The files that the command line means: files as they are, folders with all their files of the wanted
/// extensions (searched to the bottom, in the order of their names), "-" for standard input. Pipes
/// are read to their end at once and kept in memory. What is not there or cannot be read becomes a problem. A
/// name that is no UTF-8 is opened by another one that Qt can handle.
QList<Input> ExpandInputs(const std::vector<std::string>& arguments, const QStringList& extensions,
                          QList<Problem>* problems);

/// Which files are read, so that none of them is written.
class InputFiles {
public:
    explicit InputFiles(const QList<Input>& inputs);
    /// Why a file cannot be written: it is an input, by this name or another.
    std::optional<Problem> Refusal(const QString& output) const;

private:
    QSet<QString> m_paths;
};

/// A path of the command line.
QString PathOf(const std::string& argument);

} // namespace ZYN::Tool
