#pragma once

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QString>

/// Validation of XML files by an independent reader (xmllint).
namespace RelaxNg {

/// What xmllint says against a file; empty when the file is valid.
/// \param schema file name in the project's schema folder
inline QString Faults(const QString& schema, const QString& fileName)
{
    const QString schemaFile = QStringLiteral(ZYN_SOURCE_DIR "/schema/") + schema;
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral("xmllint"), {QStringLiteral("--noout"), QStringLiteral("--huge"),
                                              QStringLiteral("--relaxng"), schemaFile, fileName});
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit)
        return QStringLiteral("xmllint did not run: ") + process.errorString();
    const QString output = QString::fromUtf8(process.readAll());
    if (process.exitCode() == 0)
        return {};
    return output.isEmpty() ? QStringLiteral("xmllint failed without a word") : output;
}

/// Whether a schema refuses a document, and does so as invalid: not because it is no XML, or because
/// the schema cannot be read.
inline bool Refuses(const QString& schema, const QByteArray& document, const QString& scratchFile)
{
    QFile file(scratchFile);
    if (!file.open(QIODevice::WriteOnly) || file.write(document) != document.size())
        return false;
    file.close();
    return Faults(schema, scratchFile).contains(QStringLiteral("fails to validate"));
}

} // namespace RelaxNg
