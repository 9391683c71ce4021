#include "terminal/CommandLine.h"

#include "terminal/Texts.h"
#include "terminal/Usage.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace ZYN::Tool {

namespace {

std::string FooterText(const QString& text, const QStringList& examples)
{
    QString footer = text.isEmpty() ? text : text + QLatin1Char('\n');
    footer += Texts::tr("Examples:");
    for (const QString& example : examples)
        footer += QStringLiteral("\n  ") + example;
    return footer.toStdString();
}

} // namespace

OptionSetup& OptionSetup::Named(const QString& type)
{
    m_option->type_name(type.toStdString());
    return *this;
}

OptionSetup& OptionSetup::Required()
{
    m_option->required();
    return *this;
}

OptionSetup& OptionSetup::HasDefault()
{
    m_option->capture_default_str();
    return *this;
}

OptionSetup& OptionSetup::Within(int least, int most)
{
    m_option->check(CLI::Range(least, most).description({}));
    return *this;
}

OptionSetup& OptionSetup::ExistingFile()
{
    m_option->check(CLI::Validator(CLI::ExistingFile).description({}));
    return *this;
}

OptionSetup CommandLine::Inputs(const char* name, std::vector<std::string>& values, const QString& help)
{
    OptionSetup setup(m_app->add_option(name, values, help.toStdString()));
    setup.Named({}).Required();
    return setup;
}

OptionSetup CommandLine::Words(const char* name, std::vector<std::string>& values, const QString& help)
{
    OptionSetup setup(m_app->add_option(name, values, help.toStdString()));
    setup.Named({});
    return setup;
}

OptionSetup CommandLine::Argument(const char* name, std::string& value, const QString& help)
{
    OptionSetup setup(m_app->add_option(name, value, help.toStdString()));
    setup.Named({}).Required();
    return setup;
}

OptionSetup CommandLine::Value(const char* names, std::string& value, const QString& help)
{
    return OptionSetup(m_app->add_option(names, value, help.toStdString()));
}

OptionSetup CommandLine::Value(const char* names, int& value, const QString& help)
{
    return OptionSetup(m_app->add_option(names, value, help.toStdString()));
}

OptionSetup CommandLine::Value(const char* names, quint64& value, const QString& help)
{
    return OptionSetup(m_app->add_option(names, value, help.toStdString()));
}

OptionSetup CommandLine::Values(const char* names, std::vector<std::string>& values, const QString& help)
{
    CLI::Option* const option = m_app->add_option(names, values, help.toStdString());
    option->expected(1)->allow_extra_args(false); // a value each: what follows is an input
    option->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    return OptionSetup(option);
}

void CommandLine::Flag(const char* names, bool& value, const QString& help)
{
    m_app->add_flag(names, value, help.toStdString());
}

void CommandLine::Footer(const QString& text, const QStringList& examples)
{
    m_app->footer(FooterText(text, examples));
}

CommandLine CommandLine::Subcommand(const char* name, const QString& help)
{
    CLI::App* const command = m_app->add_subcommand(name, help.toStdString());
    command->fallthrough(); // -q and -v also behind the command's name
    m_app->require_subcommand(1);
    return CommandLine(command);
}

std::optional<QString> CommandLine::HelpOf(const std::vector<std::string>& names, QString* unknown) const
{
    const CLI::App* app = m_app;
    std::string path = app->get_name();
    for (const std::string& name : names) {
        const std::vector<const CLI::App*> commands = app->get_subcommands({});
        const auto command = std::find_if(commands.begin(), commands.end(),
                                          [&](const CLI::App* each) { return each->get_name() == name; });
        if (command == commands.end()) {
            *unknown = NoSuchCommand(app, QString::fromStdString(name));
            return std::nullopt;
        }
        app = *command;
        path += ' ' + name;
    }
    // Not `help`, which explains the command that was chosen: this one.
    return QString::fromStdString(app->get_formatter()->make_help(app, path, CLI::AppFormatMode::Normal));
}

bool CommandLine::IsChosen() const
{
    return m_app->parsed();
}

bool CommandLine::IsGiven(const char* name) const
{
    const CLI::Option* const option = m_app->get_option_no_throw(name);
    const std::vector<CLI::App*> chosen = m_app->get_subcommands();
    return (option && option->count() > 0) || (!chosen.empty() && CommandLine(chosen.front()).IsGiven(name));
}

Program::Program(const QString& help, const QString& footer, const char* version, bool& quiet, bool& verbose)
    : m_app(std::make_unique<CLI::App>(help.toStdString(), "zyn"))
{
    m_app->add_flag("-q,--quiet", quiet, Texts::tr("Say nothing but what went wrong").toStdString());
    m_app->add_flag("-v,--verbose", verbose, Texts::tr("Say what is being done").toStdString());
    m_app->set_version_flag("--version", version, Texts::tr("Print the version and exit").toStdString());
    m_app->failure_message(UsageMessage);
    m_app->footer(footer.toStdString());
}

Program::~Program() = default;

CommandLine Program::Top()
{
    return CommandLine(m_app.get());
}

std::optional<int> Program::Parse(int argc, char** argv)
{
    SetHeadings(m_app.get());
    try {
        m_app->parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return m_app->exit(error);
    }
    return std::nullopt;
}

} // namespace ZYN::Tool
