#include "page/SvgPlot.h"

#include "page/Html.h"
#include "page/Ink.h"

#include <QtCore/QBuffer>
#include <QtCore/QPoint>
#include <QtCore/QRegularExpression>
#include <QtGui/QPainter>
#include <QtSvg/QSvgGenerator>

#include <charconv>
#include <cstdlib>

namespace ZYN::Page {

namespace {

QByteArray Painted(const QSizeF& size, const std::function<void(QPainter&, const QRectF&)>& draw)
{
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(96); // one unit a pixel
    generator.setSize(size.toSize());
    generator.setViewBox(QRectF(QPointF(), size));
    QPainter painter(&generator);
    draw(painter, QRectF(QPointF(), size));
    painter.end();
    return buffer.data();
}

QString Attribute(const QString& tag, const char* name)
{
    const QString start = QLatin1Char(' ') + QLatin1String(name) + QStringLiteral("=\"");
    const qsizetype from = tag.indexOf(start);
    if (from < 0)
        return {};
    const qsizetype begin = from + start.size();
    return tag.mid(begin, tag.indexOf(QLatin1Char('"'), begin) - begin);
}

// The ink of a colour, as the name of a class of the style sheet; empty for none.
QString InkOf(const QString& colour)
{
    const QColor asked(colour);
    for (const InkColour& ink : inkColours)
        if (asked.isValid() && QColor(ink.light) == asked)
            return QString::fromLatin1(ink.variable + 2); // without "--"
    return {};
}

// What a group of the generator says in twenty attributes, as a class and the few that differ from what is
// usual.
QString ShortGroup(const QString& tag)
{
    const QString fill = InkOf(Attribute(tag, "fill"));
    const QString stroke = Attribute(tag, "stroke");
    if (stroke == QLatin1String("none") || stroke.isEmpty())
        return QStringLiteral("<g class=\"f-%1\">").arg(fill);
    QString style;
    if (const QString width = Attribute(tag, "stroke-width"); width != QLatin1String("1"))
        style += QStringLiteral(" stroke-width=\"%1\"").arg(width);
    if (const QString dashes = Attribute(tag, "stroke-dasharray"); !dashes.isEmpty())
        style += QStringLiteral(" stroke-dasharray=\"%1\"").arg(dashes);
    if (Attribute(tag, "stroke-linecap") == QLatin1String("round"))
        style += QStringLiteral(" stroke-linecap=\"round\"");
    return QStringLiteral("<g class=\"s-%1\"%2>").arg(InkOf(stroke), style);
}

QString Tenths(const QString& number)
{
    return QString::number(qRound(number.toDouble() * 10) / 10.0);
}

// The text's colour is the pen's: the generator writes it as the fill of the text.
QString ShortText(const QString& tag)
{
    return QStringLiteral("<text class=\"f-%1\" x=\"%2\" y=\"%3\">")
        .arg(InkOf(Attribute(tag, "fill")), Tenths(Attribute(tag, "x")), Tenths(Attribute(tag, "y")));
}

// A distance in tenths, with what parts it from the number before it.
void AppendTenths(QString* text, int tenths, bool needsComma)
{
    if (needsComma && tenths >= 0)
        *text += QLatin1Char(',');
    if (tenths < 0)
        *text += QLatin1Char('-');
    const int size = std::abs(tenths);
    if (size >= 10 || size == 0)
        *text += QString::number(size / 10);
    if (size % 10 != 0)
        *text += QLatin1Char('.') + QString::number(size % 10);
}

/// Writes a path with distances instead of places, to a tenth of a pixel: they have fewer digits.
class RelativePath {
public:
    void MoveTo(QPoint to)
    {
        m_text += QLatin1Char('m');
        AppendTenths(&m_text, to.x() - m_at.x(), false);
        AppendTenths(&m_text, to.y() - m_at.y(), true);
        m_start = m_at = to;
        m_lines = 0;
    }

    void LineTo(QPoint to)
    {
        const QPoint distance = to - m_at;
        if (++m_lines > 1 && to == m_start) {
            m_text += QLatin1Char('z');
        } else if (distance.x() == 0 && distance.y() != 0) {
            m_text += QLatin1Char('v');
            AppendTenths(&m_text, distance.y(), false);
        } else {
            m_text += QLatin1Char(distance.y() == 0 ? 'h' : 'l');
            AppendTenths(&m_text, distance.x(), false);
            if (distance.y() != 0)
                AppendTenths(&m_text, distance.y(), true);
        }
        m_at = to;
    }

    const QString& GetText() const { return m_text; }

private:
    QString m_text;
    QPoint m_at, m_start; // tenths
    int m_lines = 0;      // since the start
};

// Bytes are read several times as fast as texts by Qt, whose numbers know locales.
QString ShortPath(const QString& tag)
{
    const QByteArray path = Attribute(tag, "d").toLatin1(); // "M1,2 L3,4": plots draw no curves
    const char* at = path.constData();
    const char* const end = at + path.size();
    const auto tenths = [&] {
        double number = 0;
        at = std::from_chars(at, end, number).ptr;
        return qRound(number * 10);
    };
    RelativePath relative;
    while (at != end) {
        const char step = *at++;
        if (step != 'M' && step != 'L')
            continue;
        const int x = tenths();
        at += at != end; // the comma
        const QPoint to(x, tenths());
        step == 'M' ? relative.MoveTo(to) : relative.LineTo(to);
    }
    return path.isEmpty() ? QString() : QStringLiteral("<path d=\"%1\"/>").arg(relative.GetText());
}

QString ShortLine(const QString& tag)
{
    QString points = Attribute(tag, "points").trimmed();
    return QStringLiteral("<path d=\"M%1\"/>").arg(points.replace(QLatin1Char(' '), QLatin1Char('L')));
}

// A group of one element is that element; texts have all that they need themselves.
QString WithoutGroups(QString text)
{
    static const QRegularExpression empty(QStringLiteral("<g [^>]*></g>"));
    static const QRegularExpression single(QStringLiteral("<g ([^>]*)><path ([^>]*)/></g>"));
    static const QRegularExpression texts(QStringLiteral("<g [^>]*>((?:<text [^>]*>[^<]*</text>)+)</g>"));
    text.replace(single, QStringLiteral("<path \\1 \\2/>"));
    text.replace(texts, QStringLiteral("\\1"));
    return text.remove(empty);
}

QString Shortened(const QString& svg)
{
    static const QRegularExpression tags(QStringLiteral("<(g|text|path|polyline)\\b[^>]*>"));
    static const QRegularExpression space(QStringLiteral("\\s*\\n\\s*"));
    QString text;
    qsizetype done = 0;
    for (auto match = tags.globalMatch(svg); match.hasNext();) {
        const QRegularExpressionMatch tag = match.next();
        text += QStringView(svg).mid(done, tag.capturedStart() - done);
        done = tag.capturedEnd();
        const QString name = tag.captured(1);
        const QString whole = tag.captured();
        text += name == QLatin1String("g")      ? ShortGroup(whole)
                : name == QLatin1String("text") ? ShortText(whole)
                : name == QLatin1String("path") ? ShortPath(whole)
                                                : ShortLine(whole);
    }
    text += QStringView(svg).mid(done);
    return WithoutGroups(text.remove(space));
}

} // namespace

QByteArray SvgPlot(const QSizeF& size, const QString& title, const QString& description,
                   const std::function<void(QPainter&, const QRectF&)>& draw,
                   const std::function<QString()>& links)
{
    const QString whole = QString::fromUtf8(Painted(size, draw));
    const qsizetype begin = whole.indexOf(QStringLiteral("</defs>"));
    const QString body = whole.mid(begin + 7, whole.lastIndexOf(QStringLiteral("</svg>")) - begin - 7);
    const QString above = links ? links() : QString();
    return QStringLiteral(
               "<svg viewBox=\"0 0 %1 %2\" role=\"%3\"><title>%4</title><desc>%5</desc>%6%7</svg>\n")
        .arg(QString::number(size.width()), QString::number(size.height()),
             above.isEmpty() ? QStringLiteral("img") : QStringLiteral("group"), Escaped(title),
             Escaped(description), Shortened(body).trimmed(), above)
        .toUtf8();
}

} // namespace ZYN::Page
