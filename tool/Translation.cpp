#include "Translation.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtCore/QTranslator>

namespace ZYN::Tool {

namespace {

void Install(QCoreApplication* application, const QString& name, const QString& folder)
{
    auto* const translator = new QTranslator(application);
    if (translator->load(QLocale(), name, QStringLiteral("_"), folder))
        application->installTranslator(translator);
}

} // namespace

void LoadTranslation(QCoreApplication* application)
{
    // Beside the tool as installed, so that an installation can be moved.
    const QDir folder(QCoreApplication::applicationDirPath());
    Install(application, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    Install(application, QStringLiteral("zyn"), folder.filePath(QStringLiteral(ZYN_TRANSLATIONS_FROM_TOOL)));
}

} // namespace ZYN::Tool
