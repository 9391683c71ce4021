#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

/// \file
/// How commands describe their part of the command line. The parser behind it is known to one source file
/// only: it takes the compiler longer than everything else of a command.

namespace ZYN::Tool {

/// An option or argument while it is being described. All texts are in the user's language.
class OptionSetup {
public:
    explicit OptionSetup(CLI::Option* option)
        : m_option(option)
    {
    }
    /// What stands for its value in the help: "FILE".
    OptionSetup& Named(const QString& type);
    OptionSetup& Required();
    /// Its value so far is what it has when it is not given, and the help says so.
    OptionSetup& HasDefault();
    OptionSetup& Within(int least, int most);
    OptionSetup& ExistingFile();

private:
    CLI::Option* m_option;
};

/// A command's part of the command line. The variables that it fills must live until the command has run.
class CommandLine {
public:
    explicit CommandLine(CLI::App* app)
        : m_app(app)
    {
    }

    /// What is given without a name.
    OptionSetup Inputs(const char* name, std::vector<std::string>& values, const QString& help);
    /// The same where it may be left out.
    OptionSetup Words(const char* name, std::vector<std::string>& values, const QString& help);
    OptionSetup Argument(const char* name, std::string& value, const QString& help);
    OptionSetup Value(const char* names, std::string& value, const QString& help);
    OptionSetup Value(const char* names, int& value, const QString& help);
    OptionSetup Value(const char* names, quint64& value, const QString& help);
    /// May be given several times.
    OptionSetup Values(const char* names, std::vector<std::string>& values, const QString& help);
    void Flag(const char* names, bool& value, const QString& help);
    /// End of the help.
    /// \param text may be empty
    /// \param examples command lines, as typed
    void Footer(const QString& text, const QStringList& examples);

    /// A command of this one, of which then one must be chosen.
    CommandLine Subcommand(const char* name, const QString& help);
    /// The help of a command below this one.
    /// \param names of the command and, before it, those that it is a command of; none: this one's own
    /// \param unknown what to say when there is no such command, and nothing is returned
    std::optional<QString> HelpOf(const std::vector<std::string>& names, QString* unknown) const;
    /// Whether the user chose it.
    bool IsChosen() const;
    /// Whether a flag of this name is there, here or in the command that was chosen of this one, and was
    /// given.
    bool IsGiven(const char* name) const;

private:
    CLI::App* m_app;
};

/// The command line of the whole program.
class Program {
public:
    /// \param quiet, verbose filled by -q and -v, which stand before or behind a command's name
    Program(const QString& help, const QString& footer, const char* version, bool& quiet, bool& verbose);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    CommandLine Top();
    /// Reads the command line, once all commands are described. Prints help and errors.
    /// \return the exit code where the program ends here: 0 after a help text, another one for wrong usage
    std::optional<int> Parse(int argc, char** argv);

private:
    std::unique_ptr<CLI::App> m_app;
};

} // namespace ZYN::Tool
