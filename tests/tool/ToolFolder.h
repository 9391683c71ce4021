#pragma once

#include "support/Files.h"
#include "support/Program.h"

#include <QtCore/QDirIterator>
#include <QtCore/QMap>
#include <QtCore/QTemporaryDir>

namespace ZYN {

/// A folder of its own in which the tool is run.
class ToolFolder {
public:
    QString Path(const QString& name) const { return folder.filePath(name); }
    QByteArray Content(const QString& name) const { return Files::Content(Path(name)); }
    /// Writes a file, in a folder that is made when it is missing.
    void Write(const QString& name, const QByteArray& content) const
    {
        QDir().mkpath(QFileInfo(Path(name)).path());
        Files::Write(Path(name), content);
    }
    /// Every regular file with its content, hidden ones too.
    QMap<QString, QByteArray> Snapshot(const QString& name = ".") const
    {
        const QDir top(Path(name));
        QMap<QString, QByteArray> files;
        QDirIterator it(top.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = it.next();
            files.insert(top.relativeFilePath(path), Files::Content(path));
        }
        return files;
    }
    /// Runs the tool with arguments that are parted by blanks.
    Program::Outcome Zyn(const QString& arguments, const QByteArray& input = {},
                         const std::function<void()>& prepare = {}) const
    {
        return Program::Run(ZYN_TOOL, arguments.split(' ', Qt::SkipEmptyParts), folder.path(), input,
                            prepare);
    }

private:
    QTemporaryDir folder;
};

} // namespace ZYN
