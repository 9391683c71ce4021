#include "terminal/Translation.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtCore/QTranslator>

namespace ZYN::Tool {

namespace {

bool Install(QCoreApplication* application, const QString& name, const QString& folder,
             const QLocale& locale = QLocale())
{
    auto* const translator = new QTranslator(application);
    return translator->load(locale, name, QStringLiteral("_"), folder) &&
           QCoreApplication::installTranslator(translator);
}

} // namespace

void LoadTranslation(QCoreApplication* application)
{
    Install(application, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    // Beside the tool as installed, so that an installation can be moved.
    const QDir bin(QCoreApplication::applicationDirPath());
    const QString folder = bin.filePath(QStringLiteral(ZYN_TRANSLATIONS_FROM_TOOL));
    // English has a catalogue of its own for "1 part" and "2 parts".
    if (!Install(application, QStringLiteral("zyn"), folder))
        Install(application, QStringLiteral("zyn"), folder, QLocale(QLocale::English));
}

} // namespace ZYN::Tool
