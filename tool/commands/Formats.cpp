#include "commands/Command.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"
#include "terminal/Usage.h"

#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace ZYN::Tool {

namespace {

struct Row {
    const char* format;
    const char* otherNames;
    const char* use; // translated for people
};

// The library tells extensions and whether a name is known; what each is good for is known here.
constexpr Row rows[] = {
    {"XML", "default", QT_TRANSLATE_NOOP("zyn", "native: everything that is read back")},
    {"CSV", "", QT_TRANSLATE_NOOP("zyn", "spreadsheets")},
    {"TXT", "text, ascii", QT_TRANSLATE_NOOP("zyn", "reading and printing as plain text")},
    {"HTML", "", QT_TRANSLATE_NOOP("zyn", "browsers")},
    {"PDF", "", QT_TRANSLATE_NOOP("zyn", "printing and archives")},
    {"JSON", "", QT_TRANSLATE_NOOP("zyn", "programs")},
    {"STDF", "std", QT_TRANSLATE_NOOP("zyn", "yield tools: STDF V4, appended to a lot file")},
};

int PrintTable()
{
    const auto line = [](const QString& format, const QString& extension, const QString& names,
                         const QString& use) {
        Print(PadRight(format, 8) + PadRight(extension, 11) + PadRight(names, 13) + use + QLatin1Char('\n'));
    };
    line(Texts::tr("Format"), Texts::tr("Extension"), Texts::tr("Also named"), Texts::tr("Good for"));
    for (const Row& row : rows)
        line(QLatin1String(row.format),
             QLatin1Char('.') + CExportServiceReport::ExtensionForFormat(QLatin1String(row.format)),
             QLatin1String(row.otherNames), Texts::tr(row.use));
    return ExitGood;
}

int PrintJson()
{
    QJsonArray formats;
    for (const Row& row : rows)
        formats.append(QJsonObject{{QStringLiteral("format"), QLatin1String(row.format)},
                                   {QStringLiteral("extension"),
                                    CExportServiceReport::ExtensionForFormat(QLatin1String(row.format))},
                                   {QStringLiteral("use"), QLatin1String(row.use)}});
    PrintJsonLine(QJsonDocument(formats).toJson(QJsonDocument::Compact));
    return ExitGood;
}

} // namespace

Command FormatsCommand(CommandLine& zyn, const Manners&)
{
    CommandLine formats = zyn.Subcommand("formats", Texts::tr("List the report formats"));
    const auto json = std::make_shared<bool>(false);
    formats.Flag("--json", *json, Texts::tr("For programs"));
    formats.Footer({}, {"zyn formats", "zyn formats --json | jq -r .[].extension"});
    return {formats, [=] { return *json ? PrintJson() : PrintTable(); }, {}};
}

} // namespace ZYN::Tool
