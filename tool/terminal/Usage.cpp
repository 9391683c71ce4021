#include "terminal/Usage.h"

#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include <CLI/CLI.hpp>

#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

#include <algorithm>

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

const CLI::App* ChosenCommand(const CLI::App* app)
{
    while (!app->get_subcommands().empty())
        app = app->get_subcommands().front();
    return app;
}

// Steps that make one word of another: a letter more, less, changed, or two that changed places (optimal
// string alignment; F. J. Damerau, "A technique for computer detection and correction of spelling errors",
// CACM 7, 1964).
int Distance(const QString& left, const QString& right)
{
    const qsizetype columns = right.size() + 1;
    QList<int> steps((left.size() + 1) * columns);
    const auto at = [&](qsizetype row, qsizetype column) -> int& { return steps[row * columns + column]; };
    for (qsizetype row = 0; row <= left.size(); ++row) {
        for (qsizetype column = 0; column < columns; ++column) {
            if (row == 0 || column == 0) {
                at(row, column) = int(row + column);
                continue;
            }
            const bool same = left.at(row - 1) == right.at(column - 1);
            at(row, column) = std::min(
                {at(row - 1, column) + 1, at(row, column - 1) + 1, at(row - 1, column - 1) + (same ? 0 : 1)});
            if (row > 1 && column > 1 && left.at(row - 1) == right.at(column - 2) &&
                left.at(row - 2) == right.at(column - 1))
                at(row, column) = std::min(at(row, column), at(row - 2, column - 2) + 1);
        }
    }
    return steps.last();
}

// " (did you mean '...'?)" where a known word begins with the given one or is nearly written so.
QString DidYouMean(const QString& given, const QStringList& known)
{
    constexpr qsizetype longest = 40; // no command or option has a name like this
    constexpr int nearly = 2;
    if (given.size() > longest)
        return {};
    const auto badness = [&](const QString& word) {
        return word.startsWith(given) ? 0 : Distance(given, word);
    };
    const auto best = std::min_element(known.begin(), known.end(), [&](const QString& a, const QString& b) {
        return badness(a) < badness(b);
    });
    if (best == known.end() || badness(*best) > nearly || badness(*best) * 2 > best->size())
        return {};
    return Texts::tr(" (did you mean '%1'?)").arg(*best);
}

QStringList CommandsOf(const CLI::App* app)
{
    QStringList names;
    for (const CLI::App* const command : app->get_subcommands({}))
        names.append(QString::fromStdString(command->get_name()));
    return names;
}

// The long options that may stand behind a command: its own and those of what it is a command of.
QStringList OptionsOf(const CLI::App* app)
{
    QStringList names;
    for (; app; app = app->get_parent())
        for (const CLI::Option* const option : app->get_options())
            for (const std::string& name : option->get_lnames())
                names.append(QStringLiteral("--") + QString::fromStdString(name));
    return names;
}

QString What(const CLI::App* app, const CLI::Error& error)
{
    const CLI::App* const chosen = ChosenCommand(app);
    const std::vector<std::string> others = app->remaining(true);
    const QString first = others.empty() ? QString() : QString::fromStdString(others.front());
    if (!chosen->get_subcommands({}).empty() && !first.isEmpty() && !first.startsWith(QLatin1Char('-')))
        return NoSuchCommand(chosen, first);
    const QString what = Translated(QString::fromStdString(error.what()));
    const bool isUnknown = dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
    return isUnknown && first.startsWith(QLatin1String("--"))
               ? what + DidYouMean(first.section(QLatin1Char('='), 0, 0), OptionsOf(chosen))
               : what;
}

QString SeeHelp(const CLI::App* app)
{
    QString help;
    for (const CLI::App* chosen = ChosenCommand(app); chosen; chosen = chosen->get_parent())
        help.prepend(QString::fromStdString(chosen->get_name()) + QLatin1Char(' '));
    return Texts::tr("see %1 --help").arg(help.trimmed());
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

QString NoSuchCommand(const CLI::App* app, const QString& name)
{
    return Texts::tr("there is no command '%1'").arg(name) + DidYouMean(name, CommandsOf(app));
}

std::string UsageMessage(const CLI::App* app, const CLI::Error& error)
{
    return Harmless(QStringLiteral("zyn: %1; %2").arg(What(app, error), SeeHelp(app))).toStdString() + '\n';
}

} // namespace ZYN::Tool
