#include <ZYNCommon/ZYNTools.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <dlfcn.h>

namespace ZYN {

namespace {

/// The media folder beside this library as installed, so that an installation can be moved.
QDir MediaDirFromLibrary()
{
    static const char anchor = 0;
    Dl_info library;
    if (dladdr(&anchor, &library) == 0)
        return QDir(QStringLiteral(ZYN_MEDIA_INSTALL_DIR));
    const QDir folder = QFileInfo(QFile::decodeName(library.dli_fname)).absoluteDir();
    const QDir media(QDir::cleanPath(folder.filePath(QStringLiteral(ZYN_MEDIA_FROM_LIBRARY))));
    return media.exists() ? media : QDir(QStringLiteral(ZYN_MEDIA_INSTALL_DIR));
}

} // namespace

QDir ZYNTools::GetMediaDir()
{
    const QByteArray chosen = qgetenv("ZYN_MEDIA_DIR");
    return chosen.isEmpty() ? MediaDirFromLibrary() : QDir(QFile::decodeName(chosen));
}

QString ZYNTools::AddressToDataTypeString(EN_ZYN_ADDRESS address)
{
    switch (address) {
    case ZYN_ADDRESS_PROGRAM:
        return QStringLiteral("Program");
    case ZYN_ADDRESS_GROUP:
        return QStringLiteral("Group");
    case ZYN_ADDRESS_STEP:
        return QStringLiteral("Step");
    case ZYN_ADDRESS_PARAMETER:
        return QStringLiteral("Parameter");
    case ZYN_ADDRESS_INTEGER:
        return QStringLiteral("Integer");
    case ZYN_ADDRESS_REAL:
        return QStringLiteral("Real");
    case ZYN_ADDRESS_STRING:
        return QStringLiteral("String");
    case ZYN_ADDRESS_NONE:
        break;
    }
    return QStringLiteral("Type %1").arg(int(address));
}

} // namespace ZYN
