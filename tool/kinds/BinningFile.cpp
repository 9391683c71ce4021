#include "kinds/BinningFile.h"

#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include <ZYNIni/IniReader.h>
#include <ZYNPersistence/BinningReader.h>

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QRegularExpression>

namespace ZYN::Tool {

namespace {

QString TypeText(const BinDefinition& bin)
{
    return bin.type == BinType::Hard ? QStringLiteral("hard") : QStringLiteral("soft");
}

QString ResultText(const BinDefinition& bin)
{
    return bin.result == BinResult::Pass ? QStringLiteral("PASS") : QStringLiteral("FAIL");
}

// The reader names what is wrong, but no line. It stops at the first section that is wrong: that is the first
// one whose name it quotes, or else the second one of an id or a name.
int LineOfFault(const IniReader& ini, const QString& text)
{
    static const QRegularExpression id(QStringLiteral("BIN(\\d+)"));
    QStringList seen;
    const QList<IniSection> sections = ini.getAllSections();
    for (const IniSection& section : sections) {
        const QString name = section.getName();
        if (text.startsWith(QStringLiteral("Section '%1' ").arg(name)))
            return section.getLine();
        const int number = id.match(name).capturedView(1).toInt();
        const QString binName = ini.getPropertyValue(name, QStringLiteral("_NAME_"));
        for (const QString& fault :
             {QStringLiteral("bin id %1").arg(number), QStringLiteral("bin name ") + binName}) {
            if (!text.endsWith(fault))
                continue;
            if (seen.contains(fault))
                return section.getLine();
            seen += fault;
        }
    }
    return 0;
}

// Reads a definition; nothing is found when it is good.
std::optional<Finding> ReadBinning(const QString& path, Binning* binning)
{
    QFile file(path);
    IniReader ini(&file);
    if (!ini.read()) {
        const QString text = ini.getErrorText().isEmpty() ? file.errorString() : ini.getErrorText();
        return Finding{.line = ini.getErrorLine(), .text = Texts::tr("cannot be read as INI: %1").arg(text)};
    }
    QString text;
    *binning = BinningReader::read(path, text);
    if (!binning->valid)
        return Finding{.line = LineOfFault(ini, text), .text = text};
    return std::nullopt;
}

} // namespace

bool LooksLikeBinning(const QByteArray& head)
{
    static const QRegularExpression section(QStringLiteral("^\\s*\\[[^\\]\\n]*BIN\\d"),
                                            QRegularExpression::MultilineOption);
    return section.match(QString::fromUtf8(head)).hasMatch();
}

std::optional<Problem> ShowBinning(const QString& path, const QString& name, const ShowOptions& options)
{
    Binning binning;
    if (const auto finding = ReadBinning(path, &binning))
        return Problem{name, finding->line, finding->text, {}};
    if (options.failedOnly)
        return std::nullopt; // nothing in it was tested
    PrintTitle(name, Texts::tr("binning definition, %n bins", nullptr, int(binning.bins.size())));
    int width = 0;
    for (const BinDefinition& bin : std::as_const(binning.bins))
        width = qMax(width, Columns(Harmless(bin.name)));
    for (const BinDefinition& bin : std::as_const(binning.bins)) {
        const bool isFail = bin.result == BinResult::Fail;
        Print(QStringLiteral("%1  %2  %3  %4\n")
                  .arg(PadLeft(QString::number(bin.id), 10), PadRight(Harmless(bin.name), width),
                       bin.type == BinType::Hard ? Texts::tr("hard") : Texts::tr("soft"),
                       Paint(ResultText(bin), isFail ? Style::Bad : Style::Good)));
    }
    return std::nullopt;
}

std::optional<Problem> BinningToJson(const QString& path, const QString& name, const ShowOptions&,
                                     QJsonObject* object)
{
    Binning binning;
    if (const auto finding = ReadBinning(path, &binning))
        return Problem{name, finding->line, finding->text, {}};
    QJsonArray bins;
    for (const BinDefinition& bin : std::as_const(binning.bins))
        bins.append(QJsonObject{{QStringLiteral("id"), bin.id},
                                {QStringLiteral("name"), bin.name},
                                {QStringLiteral("type"), TypeText(bin)},
                                {QStringLiteral("result"), ResultText(bin)}});
    object->insert(QStringLiteral("kind"), QStringLiteral("binning definition"));
    object->insert(QStringLiteral("bins"), bins);
    return std::nullopt;
}

QList<Finding> CheckBinning(const QString& path)
{
    Binning binning;
    if (const auto finding = ReadBinning(path, &binning))
        return {*finding};
    return {};
}

} // namespace ZYN::Tool
