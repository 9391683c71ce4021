#include "ReportDocument.h"

#include <QtCore/QFile>

namespace ZYN::ReportDocument {

QString KnownVersion()
{
    return QStringLiteral("1.4.0");
}

std::optional<QByteArray> Read(const QString& fileName, QString* readError)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return std::nullopt;
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        *readError = file.errorString();
    bytes.removeIf([](char byte) { return byte == 0x12; });
    return bytes;
}

} // namespace ZYN::ReportDocument
