#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

/// The file of an XML report, as every reader of it wants it.
namespace ZYN::ReportDocument {

/// The version that this library writes.
QString KnownVersion();

/// The bytes of a file, without 0x12: some testers let that control character through from a bar code, and an
/// XML reader rejects the whole document for it.
/// \param readError set when the file was opened and could not be read to its end
/// \return nothing when the file cannot be opened
std::optional<QByteArray> Read(const QString& fileName, QString* readError);

} // namespace ZYN::ReportDocument
