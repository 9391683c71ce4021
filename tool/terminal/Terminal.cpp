#include "terminal/Terminal.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QList>

#include <algorithm>
#include <cstdio>

#include <sys/ioctl.h>
#include <unistd.h>

namespace ZYN::Tool {

namespace {

bool IsSteering(char32_t c)
{
    switch (QChar::category(c)) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    case QChar::Other_Format: // joiners are part of ordinary writing, direction marks and tags are not
        return c != 0x200c && c != 0x200d && c != 0x00ad;
    default:
        return false;
    }
}

// Blocks of characters that terminals draw two columns wide (Unicode Standard Annex 11).
bool IsWide(char32_t c)
{
    return (c >= 0x1100 && c <= 0x115f) || (c >= 0x2e80 && c <= 0xa4cf) || (c >= 0xac00 && c <= 0xd7a3) ||
           (c >= 0xf900 && c <= 0xfaff) || (c >= 0xfe30 && c <= 0xfe6f) || (c >= 0xff00 && c <= 0xff60) ||
           (c >= 0xffe0 && c <= 0xffe6) || (c >= 0x1f300 && c <= 0x1faff) || (c >= 0x20000 && c <= 0x3fffd);
}

bool WantsColours()
{
    static const bool wants =
        isatty(STDOUT_FILENO) && qEnvironmentVariableIsEmpty("NO_COLOR") && qgetenv("TERM") != "dumb";
    return wants;
}

// 0 when it is no terminal, or one that does not tell.
int ColumnsOf(int descriptor)
{
    winsize size{};
    return ioctl(descriptor, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

const char* EscapeOf(Style style)
{
    switch (style) {
    case Style::Bold:
        return "\x1b[1m";
    case Style::Dim:
        return "\x1b[2m";
    case Style::Good:
        return "\x1b[32m";
    case Style::Bad:
        return "\x1b[1;31m";
    case Style::Odd:
        return "\x1b[33m";
    case Style::Plain:
        break;
    }
    return "";
}

bool hasPrinted = false;
bool separatorIsDue = false;

} // namespace

QString Harmless(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (const char32_t c : text.toUcs4()) {
        if (!IsSteering(c))
            result += QStringView(QChar::fromUcs4(c));
        else if (c == U'\n')
            result += QStringLiteral("\\n");
        else if (c == U'\t')
            result += QStringLiteral("\\t");
        else if (c < 0x100)
            result += QStringLiteral("\\x%1").arg(uint(c), 2, 16, QLatin1Char('0'));
        else
            result += QStringLiteral("\\u%1").arg(uint(c), 4, 16, QLatin1Char('0'));
    }
    return result;
}

int Columns(const QString& text)
{
    int columns = 0;
    for (const char32_t c : text.toUcs4()) {
        const QChar::Category category = QChar::category(c);
        if (category != QChar::Mark_NonSpacing && category != QChar::Mark_Enclosing &&
            category != QChar::Other_Format)
            columns += IsWide(c) ? 2 : 1;
    }
    return columns;
}

QString Cut(const QString& text, int columns)
{
    if (Columns(text) <= columns)
        return text;
    QString result;
    int used = 1; // for the ellipsis
    for (const char32_t c : text.toUcs4()) {
        const QString next = QStringView(QChar::fromUcs4(c)).toString();
        used += Columns(next);
        if (used > columns)
            break;
        result += next;
    }
    return columns > 0 ? result + QChar(0x2026) : QString();
}

QString PadRight(const QString& text, int columns)
{
    return text + QString(qMax(0, columns - Columns(text)), QLatin1Char(' '));
}

QString PadLeft(const QString& text, int columns)
{
    return QString(qMax(0, columns - Columns(text)), QLatin1Char(' ')) + text;
}

QString Paint(const QString& text, Style style)
{
    if (style == Style::Plain || text.trimmed().isEmpty() || !WantsColours())
        return text;
    return QLatin1String(EscapeOf(style)) + text + QStringLiteral("\x1b[0m");
}

void PrintBytes(QByteArrayView bytes)
{
    std::fwrite(bytes.data(), 1, size_t(bytes.size()), stdout);
}

void Print(const QString& text)
{
    const QByteArray bytes = (separatorIsDue ? QLatin1Char('\n') + text : text).toUtf8();
    separatorIsDue = false;
    hasPrinted = true;
    PrintBytes(bytes);
}

QString HarmlessJson(const QByteArray& json)
{
    if (std::all_of(json.begin(), json.end(), [](char c) { return c >= ' ' && c < '\x7f'; }))
        return QString::fromLatin1(json);
    QString line;
    line.reserve(json.size() + 1);
    for (const char32_t c : QString::fromUtf8(json).toUcs4()) {
        const auto units = QChar::fromUcs4(c);
        if (!IsSteering(c)) {
            line += QStringView(units);
            continue;
        }
        // Such a character can stand in a text only, where its escape means the same.
        for (const QChar unit : QStringView(units))
            line += QStringLiteral("\\u%1").arg(uint(unit.unicode()), 4, 16, QLatin1Char('0'));
    }
    return line;
}

void PrintJsonLine(const QByteArray& json)
{
    Print(HarmlessJson(json) + QLatin1Char('\n'));
}

void PrintJsonLine(const QJsonObject& object)
{
    PrintJsonLine(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

void PrintTitle(const QString& fileName, const QString& kind)
{
    Print(QStringLiteral("%1  %2\n").arg(Paint(Harmless(fileName), Style::Bold), kind));
}

void SeparateNext()
{
    separatorIsDue = hasPrinted;
}

bool FlushOutput()
{
    return std::fflush(stdout) == 0 && !std::ferror(stdout);
}

bool ErrorIsTerminal()
{
    return isatty(STDERR_FILENO);
}

int TerminalColumns()
{
    const int columns = ColumnsOf(STDERR_FILENO);
    return columns > 0 ? columns : 80;
}

int OutputColumns()
{
    return ColumnsOf(STDOUT_FILENO);
}

} // namespace ZYN::Tool
