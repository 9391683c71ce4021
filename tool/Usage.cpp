#include "Usage.h"

#include "Terminal.h"
#include "Texts.h"

#include <CLI/CLI.hpp>

#include <QtCore/QRegularExpression>

namespace ZYN::Tool {

namespace {

struct Row {
    const char* pattern; // of what the parser says
    const char* text;
};

// The parser speaks English only. What it says otherwise is passed on as it is.
constexpr Row rows[] = {
    {"^A subcommand is required$", QT_TRANSLATE_NOOP("zyn", "a command is required")},
    {"^(\\S+) is required$", QT_TRANSLATE_NOOP("zyn", "%1 is required")},
    {"^The following arguments? (?:was|were) not expected: (.*)$",
     QT_TRANSLATE_NOOP("zyn", "not expected: %1")},
    {"^(\\S+): 1 required .* missing$", QT_TRANSLATE_NOOP("zyn", "%1 has no value")},
    {"^(\\S+): At Most 1 required but received", QT_TRANSLATE_NOOP("zyn", "%1 is given more than once")},
    {"^Could not convert: (\\S+) = (.*)$", QT_TRANSLATE_NOOP("zyn", "%1: '%2' is no such number")},
    {"^(\\S+): Value (.*) not in range (\\d+ to \\d+)$", QT_TRANSLATE_NOOP("zyn", "%1: %2 is not within %3")},
    {"^(\\S+): File does not exist: (.*)$", QT_TRANSLATE_NOOP("zyn", "%1: there is no file %2")},
    {"^(\\S+): File is actually a directory: (.*)$", QT_TRANSLATE_NOOP("zyn", "%1: %2 is a folder")},
};

// What the parser says, in the user's language and words.
QString Translated(const QString& message)
{
    for (const Row& row : rows) {
        const QRegularExpressionMatch match =
            QRegularExpression(QLatin1String(row.pattern), QRegularExpression::DotMatchesEverythingOption)
                .match(message);
        if (!match.hasMatch())
            continue;
        const QString text = Texts::tr(row.text);
        switch (match.lastCapturedIndex()) {
        case 0:
            return text;
        case 1:
            return text.arg(match.captured(1));
        case 2:
            return text.arg(match.captured(1), match.captured(2));
        default:
            return text.arg(match.captured(1), match.captured(2),
                            match.captured(3).replace(QLatin1String(" to "), QStringLiteral(" … ")));
        }
    }
    return message;
}

QString What(const CLI::App* app, const CLI::Error& error)
{
    const CLI::App* chosen = app;
    while (!chosen->get_subcommands().empty())
        chosen = chosen->get_subcommands().front();
    const std::vector<std::string> others = app->remaining(true);
    if (!chosen->get_subcommands({}).empty() && !others.empty() && others.front().front() != '-')
        return Texts::tr("there is no command '%1'").arg(QString::fromStdString(others.front()));
    return Translated(QString::fromStdString(error.what()));
}

QString SeeHelp(const CLI::App* app)
{
    QString help = QStringLiteral("zyn");
    for (const CLI::App* chosen = app; !chosen->get_subcommands().empty();) {
        chosen = chosen->get_subcommands().front();
        help += QLatin1Char(' ') + QString::fromStdString(chosen->get_name());
    }
    return Texts::tr("see %1 --help").arg(help);
}

} // namespace

void SetHeadings(CLI::App* app)
{
    const std::pair<const char*, QString> labels[] = {{"Usage", Texts::tr("Usage")},
                                                      {"OPTIONS", Texts::tr("OPTIONS")},
                                                      {"SUBCOMMAND", Texts::tr("COMMAND")},
                                                      {"Positionals", Texts::tr("Arguments")},
                                                      {"REQUIRED", Texts::tr("(required)")}};
    for (const auto& [label, text] : labels)
        app->get_formatter()->label(label, text.toStdString());
    app->get_help_ptr()->description(Texts::tr("Print this help and exit").toStdString());
    for (CLI::Option* const option : app->get_options())
        option->group(Texts::tr("Options").toStdString());
    for (CLI::App* const command : app->get_subcommands({})) {
        command->group(Texts::tr("Commands").toStdString());
        SetHeadings(command);
    }
}

std::string UsageMessage(const CLI::App* app, const CLI::Error& error)
{
    return Harmless(QStringLiteral("zyn: %1; %2").arg(What(app, error), SeeHelp(app))).toStdString() + '\n';
}

} // namespace ZYN::Tool
