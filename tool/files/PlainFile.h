#pragma once

#include <QtCore/QFile>
#include <QtCore/QString>

namespace ZYN::Tool {

/// A file as it is or, when it is compressed with gzip, its content: in memory, as long as this object lives.
class PlainFile {
public:
    /// Of a file that cannot be opened the path stays what it is, so that who opens it says why.
    explicit PlainFile(const QString& path);

    /// What to open.
    const QString& GetPath() const { return m_path; }
    /// Why it is not the whole content; empty when it is.
    const QString& GetProblem() const { return m_problem; }

    /// A file that becomes larger than this, and `MaximumRatio` times larger than it is, was made to do harm
    /// and is taken for empty.
    static constexpr qint64 MaximumSize = 64LL << 20;
    static constexpr qint64 MaximumRatio = 100;

private:
    void Decompress(QFile& file);

    QString m_path;
    QString m_problem;
    QFile m_memory;
};

} // namespace ZYN::Tool
