#include "page/UnitTables.h"

#include "page/Html.h"
#include "page/LotAnswers.h"
#include "page/NumberText.h"
#include "page/PageTexts.h"
#include "page/Part.h"

#include <QtCore/QCryptographicHash>

namespace ZYN::Page {

namespace {

constexpr std::size_t mostUnits = 500;

QString Anchor(int number, const QString& serial)
{
    const QByteArray hash =
        QCryptographicHash::hash(serial.toUtf8(), QCryptographicHash::Sha1).toHex().left(10);
    return QStringLiteral("u%1-%2").arg(number).arg(QString::fromLatin1(hash));
}

std::size_t Shown(const std::vector<UnitRow>& units)
{
    return std::min(units.size(), mostUnits);
}

QString Row(const UnitRow& unit, const QString& anchor)
{
    const QString name =
        unit.group.empty() ? unit.serial : unit.serial + QStringLiteral(" · ") + GroupText(unit.group);
    QString text =
        QStringLiteral("<tr%1><th scope=\"row\">%2</th><td class=\"n\">%3</td><td>%4</td><td>%5</td>")
            .arg(anchor.isEmpty() ? QString() : QStringLiteral(" id=\"%1\"").arg(anchor), Escaped(name),
                 QString::number(unit.runs), Escaped(VerdictOf(unit.firstCode)),
                 Escaped(VerdictOf(unit.code)));
    return text + QStringLiteral("<td>%1</td><td class=\"n\">%2</td></tr>\n")
                      .arg(Escaped(unit.firstFailure),
                           unit.failedValue
                               ? Escaped(Figure(unit.failedValue, unit.failedUnit, unit.failedStyle))
                               : QString());
}

QString Head(const Part& part, const QString& title, const QString& hint)
{
    QString text = QStringLiteral("%1<div class=\"scroll\" tabindex=\"0\" role=\"region\" "
                                  "aria-label=\"%2\"><table><caption>%3</caption><thead><tr>")
                       .arg(part.Heading(title), title, hint);
    const std::pair<QString, bool> columns[] = {
        {Texts::tr("Serial"), false},   {Texts::tr("Runs"), true},          {Texts::tr("First run"), false},
        {Texts::tr("Last run"), false}, {Texts::tr("Failed first"), false}, {Texts::tr("Value"), true}};
    for (const auto& [column, isNumber] : columns)
        text += QStringLiteral("<th scope=\"col\"%1>%2</th>")
                    .arg(isNumber ? QStringLiteral(" class=\"n\"") : QString(), column);
    return text + QStringLiteral("</tr></thead>\n<tbody>\n");
}

} // namespace

UnitTables::UnitTables(const LotAnswers& answers, const Part& part)
    : m_answers(answers)
    , m_part(part)
{
    for (const std::vector<UnitRow>* const units : {&answers.failedUnits, &answers.retestedUnits})
        for (std::size_t i = 0; i < Shown(*units); ++i)
            m_serials.insert((*units)[i].serial);
}

QString UnitTables::LinkTo(const QString& serial) const
{
    return m_serials.contains(serial) ? QLatin1Char('#') + Anchor(m_part.number, serial) : QString();
}

QString UnitTables::Html() const
{
    QString text;
    QSet<QString> anchored; // the first row of a serial is the one that is led to
    const auto table = [&](const QString& title, const QString& hint, const std::vector<UnitRow>& units) {
        if (units.empty())
            return;
        text += Head(m_part, title, hint);
        for (std::size_t i = 0; i < Shown(units); ++i) {
            const QString& serial = units[i].serial;
            text += Row(units[i], anchored.contains(serial) ? QString() : Anchor(m_part.number, serial));
            anchored.insert(serial);
        }
        text += QStringLiteral("</tbody></table></div>\n");
        if (units.size() > mostUnits)
            text += QStringLiteral("<p class=\"hint\">%1</p>\n")
                        .arg(Texts::tr("and %n more: zyn units", nullptr, int(units.size() - mostUnits)));
    };
    table(Texts::tr("Failed units"), Texts::tr("Units whose last run did not pass."), m_answers.failedUnits);
    table(Texts::tr("Units tested more than once"), Texts::tr("Units with several runs of one program."),
          m_answers.retestedUnits);
    return text;
}

} // namespace ZYN::Page
