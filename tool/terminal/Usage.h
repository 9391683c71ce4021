#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <string>

namespace CLI {
class App;
class Error;
} // namespace CLI

/// \file
/// What the help says beside the options, and what it is made of; in the user's language.

namespace ZYN::Tool {

/// Gives the help of a program and its commands its headings; after all options were added.
void SetHeadings(CLI::App* app);

/// That a program or command has no command of this name, and which one may be meant.
QString NoSuchCommand(const CLI::App* app, const QString& name);

/// "zyn: what is wrong with the command line; see zyn COMMAND --help".
std::string UsageMessage(const CLI::App* app, const CLI::Error& error);

} // namespace ZYN::Tool
