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

int PrintTable()
{
    const auto line = [](const QString& format, const QString& extension, const QString& names,
                         const QString& use) {
        Print(PadRight(format, 8) + PadRight(extension, 11) + PadRight(names, 13) + use + QLatin1Char('\n'));
    };
    line(Texts::tr("Format"), Texts::tr("Extension"), Texts::tr("Also named"), Texts::tr("Good for"));
    for (const ReportFormat& format : CExportServiceReport::Formats())
        line(format.name, QLatin1Char('.') + format.extension, format.otherNames.join(QLatin1String(", ")),
             QObject::tr(format.purpose));
    return ExitGood;
}

int PrintJson()
{
    QJsonArray formats;
    for (const ReportFormat& format : CExportServiceReport::Formats())
        formats.append(QJsonObject{{QStringLiteral("format"), format.name},
                                   {QStringLiteral("extension"), format.extension},
                                   {QStringLiteral("use"), QLatin1String(format.purpose)}});
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
