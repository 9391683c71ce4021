#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayView>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

namespace ZYN::Tool {

/// The text with everything made visible that would steer a terminal or turn its writing direction: control
/// characters and bidirectional marks as "\x1b" or "\u202e".
QString Harmless(const QString& text);

/// Columns that a text takes on a terminal: none for combining characters, two for wide ones.
int Columns(const QString& text);
/// The text cut to a number of columns, with an ellipsis where something is missing.
QString Cut(const QString& text, int columns);
/// The text filled up with blanks to a number of columns.
QString PadRight(const QString& text, int columns);
QString PadLeft(const QString& text, int columns);

enum class Style { Plain, Bold, Dim, Good, Bad, Odd };

/// The text in colour where standard output is a terminal that wants colours (see no-color.org).
QString Paint(const QString& text, Style style);

/// Writes to standard output. The caller makes texts from files harmless first.
void Print(const QString& text);
/// Compact JSON, with what would steer a terminal escaped.
QString HarmlessJson(const QByteArray& json);
/// Prints compact JSON for programs, in one line; what would steer a terminal is escaped.
void PrintJsonLine(const QByteArray& json);
void PrintJsonLine(const QJsonObject& object);
/// Writes a file's bytes as they are to standard output.
void PrintBytes(QByteArrayView bytes);
/// Prints what a file is called and what it is.
void PrintTitle(const QString& fileName, const QString& kind);
/// Puts an empty line between what was printed so far and what is printed next, where there is both.
void SeparateNext();
/// \return false when not everything that was printed arrived
bool FlushOutput();

/// Whether standard error is a terminal, where a progress bar makes sense.
bool ErrorIsTerminal();
/// Columns of the terminal at standard error.
int TerminalColumns();
/// Columns of the terminal at standard output; 0 where that is none, and lines may be of any length.
int OutputColumns();

} // namespace ZYN::Tool
