#include <ZYNPersistence/BinningReader.h>

#include "export/ModelAdapter.h"

#include <ZYNIni/IniReader.h>

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

#include <optional>
#include <set>

namespace ZYN {

namespace {

const QString& UnreadableText()
{
    static const auto text = QStringLiteral("Could not read from binning file or it has an ini syntax error");
    return text;
}

/// The value of a property that knows two words.
template <typename Choice>
std::optional<Choice> Choose(const QString& value, QLatin1String first, Choice firstChoice,
                             QLatin1String second, Choice secondChoice)
{
    if (value == first)
        return firstChoice;
    if (value == second)
        return secondChoice;
    return std::nullopt;
}

/// Gathers the definitions section by section. The first fault ends the reading.
class BinningBuilder {
public:
    explicit BinningBuilder(const IniReader& iniReader)
        : m_ini(iniReader)
    {
    }

    /// \return what is wrong with the section; null when nothing is
    QString AddSection(const QString& section)
    {
        // Compiled once; matching a shared pattern is thread-safe.
        static const QRegularExpression pattern(QStringLiteral("BIN(\\d+)"));
        const QRegularExpressionMatch match = pattern.match(section);
        if (!match.hasMatch())
            return QStringLiteral("Section '%1' has not the expected format 'BIN<bin-id>'").arg(section);

        BinDefinition bin;
        bin.id = match.capturedView(1).toInt(); // 0 for a number that does not fit
        if (bins.contains(bin.id))
            return QStringLiteral("There are duplicate sections with bin id %1").arg(bin.id);

        bin.name = m_ini.getPropertyValue(section, QStringLiteral("_NAME_"));
        if (bin.name.isEmpty())
            return QStringLiteral("Section '%1' must have property '_NAME_'").arg(section);
        if (m_names.contains(bin.name))
            return QStringLiteral("There are duplicate sections with bin name %1").arg(bin.name);

        const auto type = Choose(m_ini.getPropertyValue(section, QStringLiteral("_TYPE_")),
                                 QLatin1String("HARD"), BinType::Hard, QLatin1String("SOFT"), BinType::Soft);
        if (!type)
            return QStringLiteral("Section '%1' must have property '_TYPE_' with value 'HARD' or 'SOFT'")
                .arg(section);
        const auto result =
            Choose(m_ini.getPropertyValue(section, QStringLiteral("_RESULT_")), QLatin1String("PASS"),
                   BinResult::Pass, QLatin1String("FAIL"), BinResult::Fail);
        if (!result)
            return QStringLiteral("Section '%1' must have property '_RESULT_' with value 'PASS' or 'FAIL'")
                .arg(section);

        bin.type = *type;
        bin.result = *result;
        m_names.insert(bin.name);
        bins.insert(bin.id, bin);
        return {};
    }

    QMap<qint32, BinDefinition> bins;

private:
    const IniReader& m_ini;
    std::set<QString> m_names; // a hash of Qt would end the process for want of memory
};

Binning ReadFile(const QString& fileName, QString& errorText)
{
    QFile file(fileName);
    IniReader ini(&file);
    if (!ini.read()) {
        errorText = UnreadableText();
        return {};
    }
    BinningBuilder builder(ini);
    const QList<IniSection> sections = ini.getAllSections();
    for (const IniSection& section : sections) {
        if (const QString fault = builder.AddSection(ModelAdapter::SectionName(section)); !fault.isNull()) {
            errorText = fault;
            return {};
        }
    }
    return {true, fileName, builder.bins};
}

} // namespace

BinningReader::BinningReader() = default;
BinningReader::BinningReader(const BinningReader&) = default;
BinningReader::BinningReader(BinningReader&&) noexcept = default;
BinningReader::~BinningReader() = default;
BinningReader& BinningReader::operator=(const BinningReader&) = default;
BinningReader& BinningReader::operator=(BinningReader&&) noexcept = default;

Binning BinningReader::read(const QString& fileName, QString& errorText)
{
    try {
        return ReadFile(fileName, errorText);
    } catch (...) {
        // Out of memory: nothing may be thrown into the caller's library.
        errorText = UnreadableText();
        return {};
    }
}

} // namespace ZYN
