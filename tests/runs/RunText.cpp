#include "RunText.h"

#include "text/DecimalText.h"

#include <cmath>

namespace ZYN {

namespace {

using namespace Qt::StringLiterals;

QString Text(const std::string& text)
{
    QString shown = QString::fromStdString(text);
    return u'"' + shown.replace(u'\\', u"\\\\"_s).replace(u'\n', u"\\n"_s).replace(u'"', u"\\\""_s) + u'"';
}

QString Number(double number)
{
    return std::isnan(number) ? u"-"_s : DecimalText::FromReal(number);
}

template <class Kind>
QString Maybe(const std::optional<Kind>& number)
{
    return number ? Number(double(*number)) : u"-"_s;
}

QString At(const Run::Texts& texts, std::size_t position, const QString& name)
{
    for (const auto& [place, text] : texts)
        if (place == position)
            return u' ' + name + u' ' + Text(text);
    return QString();
}

/// A limit in its place: "lower op value op upper".
QString LimitText(double limit, const Run::Texts& texts, std::size_t position)
{
    const QString text = At(texts, position, QString()).trimmed();
    return text.isEmpty() ? Number(limit) : text;
}

QString LimitsAt(const RunLimits& limits, std::size_t p)
{
    QString text;
    if (!limits.lowerOperator[p].empty())
        text += u" lower "_s + LimitText(limits.lower[p], limits.lowerTexts, p) + u' ' +
                QString::fromStdString(limits.lowerOperator[p]);
    if (!limits.upperOperator[p].empty())
        text += u" upper "_s + QString::fromStdString(limits.upperOperator[p]) + u' ' +
                LimitText(limits.upper[p], limits.upperTexts, p);
    if (!std::isnan(limits.nominal[p]))
        text += u" nominal "_s + Number(limits.nominal[p]);
    return text + (limits.inverted[p] ? u" inverted"_s : QString());
}

QString ValueAt(const Run& run, std::size_t p)
{
    const RunComponent& component = run.layout->components[p];
    QString text = QString(qsizetype(component.kind == ComponentKind::Group  ? 2
                                     : component.kind == ComponentKind::Step ? 4
                                                                             : 6),
                           u' ');
    text += QString::fromStdString(component.identity) + u" | "_s + QString::fromStdString(component.path);
    text += u" | code %1, %2 s"_s.arg(run.codes[p]).arg(double(run.seconds[p]));
    if (component.kind == ComponentKind::Parameter)
        text += u" parameter"_s;
    if (component.dataType)
        text += u" type %1 value "_s.arg(component.dataType) + Number(run.values[p]) +
                At(run.texts, p, u"text"_s) + u" unit "_s + Text(component.unit) +
                u" (%1)"_s.arg(component.unitCode);
    text += At(run.comments, p, u"comment"_s) + At(run.attributes, p, u"attribute"_s);
    return text + (run.limits ? LimitsAt(*run.limits, p) : QString()) + u'\n';
}

} // namespace

QString RunText(std::span<const Run> runs, bool withSource)
{
    QString text;
    for (const Run& run : runs) {
        text += (run.isPanel ? u"panel "_s : u"unit "_s) +
                u"product %1 lot %2 serial %3 ident %4 wafer %5\n"_s.arg(
                    Text(run.product), Text(run.lot), Text(run.serial), Text(run.ident), Text(run.wafer));
        text += u"  start %1 = %2 ms, offset %3 min, run %4, test %5, %6 s\n"_s.arg(
            Text(run.startText), Maybe(run.start), Maybe(run.utcOffset), QString::number(run.runIndex),
            QString::number(run.testIndex), Maybe(run.duration));
        text += u"  station %1 operator %2 panel %3 position %4 site %5\n"_s.arg(
            Text(run.station), Text(run.operatorName), Text(run.panel), Maybe(run.position), Maybe(run.site));
        if (withSource)
            text += u"  source "_s + Text(run.source) + u'\n';
        text += u"  code %1 comment %2\n  program %3 ident %4 version %5\n"_s.arg(
            QString::number(run.code), Text(run.comment), Text(run.layout->program),
            Text(run.layout->programIdent), Text(run.layout->version));
        for (std::size_t p = 0; p < run.codes.size(); ++p)
            if (run.codes[p] != Run::NoCode)
                text += ValueAt(run, p);
    }
    return text;
}

} // namespace ZYN
